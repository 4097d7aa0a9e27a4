/**
 * The numbers that bound what one request may cost. Byte counts are UTF-8 bytes; the first two are the numbers that
 * the host's own model publishes.
 */

/** The result of the process, as JSON text, may hold at most this many bytes. */
export const OUTPUT_BYTES = 6_291_456;

/** Code above this many bytes is shown plain: no grammar is promised to be linear. */
export const HIGHLIGHT_BYTES = 65_536;

/** All code blocks of one Markdown document together; those that come after are shown plain. */
export const HIGHLIGHT_DOCUMENT_BYTES = 2 * HIGHLIGHT_BYTES;

/**
 * A line above this many UTF-16 units keeps its block plain: grammars look ahead to the end of a line from each of its
 * words, which is quadratic in the line.
 */
export const HIGHLIGHT_LINE_UNITS = 1_024;

/** So does a stretch of white space above this many units, line ends included, for the same reason. */
export const HIGHLIGHT_BLANK_UNITS = 256;

/**
 * A grammar is given at most about this many units at one time. Some look ahead to the end of what they are given, and
 * nothing can stop them in between.
 */
export const HIGHLIGHT_WINDOW_UNITS = 2_048;

/**
 * Once a document has taken this long its further code is shown plain. The limits above make that a matter of a machine
 * under load; a page without colours is still better than none, since the process has four seconds.
 */
export const HIGHLIGHT_MILLISECONDS = 2_500;

/** Open elements at one time. Deeper elements lose their tags and keep their text. */
export const OPEN_ELEMENTS = 192;

/** UTF-16 units of one formula; a longer one is shown as its source. */
export const FORMULA_UNITS = 4_096;

/** UTF-16 units of all formulas of a document. */
export const FORMULA_DOCUMENT_UNITS = 65_536;

/** UTF-16 units of an address; a longer one is no address that anybody follows. */
export const ADDRESS_UNITS = 8_192;

/** UTF-16 units of one embedded image. */
export const DATA_IMAGE_UNITS = 393_216;

/** UTF-16 units of all embedded images; one definition may be referred to thousands of times. */
export const DATA_IMAGE_DOCUMENT_UNITS = 2 * DATA_IMAGE_UNITS;

/** Notices of one result; they are for a reader, and a reader stops reading. */
export const NOTICES = 8;
