/**
 * Whether a text may be given to a grammar. Grammars are regular expressions of many hands, tried at every word of a
 * text; what keeps them near linear is that no line and no stretch of blanks is long.
 */

import { HIGHLIGHT_BLANK_UNITS, HIGHLIGHT_BYTES, HIGHLIGHT_LINE_UNITS } from '../limits.js';
import { exceedsBytes } from '../output/size.js';

function isBlank(unit) {
  return unit <= 0x20 || unit === 0xa0 || (unit >= 0x2000 && unit <= 0x200a) || unit === 0x3000;
}

/** Whether no line and no stretch of blanks passes its limit. */
function hasShortStretches(text) {
  let lineStart = 0;
  let blankStart = 0;
  for (let i = 0; i < text.length; i++) {
    const unit = text.charCodeAt(i);
    if (unit === 0x0a) {
      lineStart = i + 1;
    } else if (i - lineStart >= HIGHLIGHT_LINE_UNITS) {
      return false;
    }
    if (!isBlank(unit)) blankStart = i + 1;
    else if (i - blankStart >= HIGHLIGHT_BLANK_UNITS) return false;
  }
  return true;
}

export function isHighlightable(text) {
  return !exceedsBytes(text, HIGHLIGHT_BYTES) && hasShortStretches(text);
}
