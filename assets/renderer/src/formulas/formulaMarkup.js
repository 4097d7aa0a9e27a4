/**
 * Part "formulas": TeX to MathML, which every current browser lays out itself, without fonts or scripts.
 */

import temml from 'temml';
import { escapeText } from '../output/escape.js';

const OPTIONS = { throwOnError: true, trust: false, maxExpand: 200, maxSize: [20, 100] };

// References between formulas: a link and a name that the document chose, neither of which may pass unchanged.
const REFERENCE = /<a[ >]|<m[a-z]+ id=/;

// TeX can ask for a character by number, and these have no place in HTML, or no form in UTF-8.
const UNFIT = /[\0-\x08\x0b-\x1f\x7f]|\p{Surrogate}/gu;

/** The formula's MathML, or its source where it is no formula that the library understands. */
export function formulaMarkup(source, isDisplay) {
  try {
    const markup = temml.renderToString(source, { ...OPTIONS, displayMode: isDisplay });
    if (!REFERENCE.test(markup)) return markup.replace(UNFIT, '\ufffd');
  } catch {
    // What cannot be read is shown as it was written, as below.
  }
  return `<code class="tsr-formula">${escapeText(source)}</code>`;
}
