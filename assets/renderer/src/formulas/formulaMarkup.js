/**
 * Part "formulas": TeX to MathML, which every current browser lays out itself, without fonts or scripts.
 */

import temml from 'temml';
import { escapeText } from '../output/escape.js';

const OPTIONS = { throwOnError: true, trust: false, maxExpand: 200, maxSize: [20, 100] };

/** The formula's MathML, or its source where it is no formula that the library understands. */
export function formulaMarkup(source, isDisplay) {
  try {
    return temml.renderToString(source, { ...OPTIONS, displayMode: isDisplay });
  } catch {
    return `<code class="tsr-formula">${escapeText(source)}</code>`;
  }
}
