/**
 * The numbers that bound what one request may cost. Byte counts are UTF-8 bytes; the first two are the numbers that
 * the host's own model publishes.
 */

/** The result of the process, as JSON text, may hold at most this many bytes. */
export const OUTPUT_BYTES = 6_291_456;

/** Code above this many bytes is shown plain: no grammar is promised to be linear. */
export const HIGHLIGHT_BYTES = 65_536;

/** All code blocks of one Markdown document together; those that come after are shown plain. */
export const HIGHLIGHT_DOCUMENT_BYTES = 4 * HIGHLIGHT_BYTES;

/** A line above this many UTF-16 units keeps its block plain: grammars look ahead to the end of a line. */
export const HIGHLIGHT_LINE_UNITS = 8_192;

/** Open elements at one time. Deeper elements lose their tags and keep their text. */
export const OPEN_ELEMENTS = 192;

/** UTF-16 units of one formula; a longer one is shown as its source. */
export const FORMULA_UNITS = 4_096;

/** UTF-16 units of all formulas of a document. */
export const FORMULA_DOCUMENT_UNITS = 65_536;

/** UTF-16 units of one embedded image. */
export const DATA_IMAGE_UNITS = 393_216;

/** Notices of one result; they are for a reader, and a reader stops reading. */
export const NOTICES = 8;
