/**
 * Whether a text may be given to a grammar. Grammars are regular expressions of many hands, tried at every word of a
 * text; what keeps them near linear is that no line and no stretch of blanks is long.
 */

import { HIGHLIGHT_BLANK_UNITS, HIGHLIGHT_BYTES, HIGHLIGHT_LINE_UNITS } from '../limits.js';
import { exceedsBytes } from '../output/size.js';

// Of fixed length, so it costs at most that length at each place.
const LONG_BLANK = new RegExp(`\\s{${HIGHLIGHT_BLANK_UNITS + 1}}`);

function hasLongLine(text) {
  let start = 0;
  while (text.length - start > HIGHLIGHT_LINE_UNITS) {
    const end = text.indexOf('\n', start);
    if (end < 0 || end - start > HIGHLIGHT_LINE_UNITS) return true;
    start = end + 1;
  }
  return false;
}

export function isHighlightable(text) {
  if (exceedsBytes(text, HIGHLIGHT_BYTES) || hasLongLine(text)) return false;
  return text.length <= HIGHLIGHT_BLANK_UNITS || !LONG_BLANK.test(text);
}
