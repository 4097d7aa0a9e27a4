/**
 * Formulas. Their MathML is made by a library and is the one thing in a result that is not written element by
 * element; so while the page is written a formula is only a placeholder, which holds the request's token, and the
 * MathML is put in last. A document cannot write a placeholder, since it cannot know the token.
 */

import { FORMULA_DOCUMENT_UNITS, FORMULA_UNITS } from '../limits.js';

export class Formulas {
  /**
   * @param {unknown} token without a usable token formulas are shown as their source
   * @param {string} documentText a token that the document holds is not usable
   */
  constructor(token, documentText) {
    const isUsable = typeof token === 'string' && /^[\w-]{16,128}$/.test(token) && !documentText.includes(token);
    this.token = isUsable ? token : undefined;
    this.list = [];
    this.unitsLeft = FORMULA_DOCUMENT_UNITS;
  }

  /** Writes the formula's placeholder, or its source where it is too long. */
  write(source, isDisplay, writer) {
    const isTooLong = source.length > FORMULA_UNITS || source.length > this.unitsLeft;
    if (this.token === undefined || isTooLong || writer.isSilent) {
      writer.open('code', ['class', 'tsr-formula']);
      writer.text(source);
      writer.close();
      return;
    }
    this.unitsLeft -= source.length;
    writer.put(`${this.token}:${this.list.length};`);
    this.list.push({ source, isDisplay });
  }

  /** The page with the formulas in the places of their placeholders. */
  fillIn(html, parts) {
    if (this.list.length === 0) return html;
    const { formulaMarkup } = parts.load('formulas');
    const pieces = html.split(this.token);
    for (let i = 1; i < pieces.length; i++) {
      const end = pieces[i].indexOf(';');
      const formula = this.list[Number(pieces[i].slice(1, end))];
      pieces[i] = formulaMarkup(formula.source, formula.isDisplay) + pieces[i].slice(end + 1);
    }
    return pieces.join('');
  }
}
