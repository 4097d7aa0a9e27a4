/**
 * The one writer of result HTML. It keeps the stack of open elements, so that whatever is asked of it the text it
 * makes is balanced, and it escapes every text and every attribute value itself.
 *
 * Two kinds of caller share the stack. This program opens elements of its own (`open`, `close`); a document's markup
 * opens others (`openForeign`, `closeForeign`) inside them. A foreign end tag never closes an element of ours, and an
 * element of ours, when it closes, closes whatever foreign ones were left open in it. So a stray `</div>` in a
 * Markdown paragraph stays in that paragraph.
 *
 * An element to be dropped with its contents lies on the stack like any other, and silences what is above it.
 */

import { OPEN_ELEMENTS } from '../limits.js';
import { escapeAttribute, escapeText } from './escape.js';

/** Thrown when the result would pass the given size; the caller then shows the source plain. */
export class OutputOverflow extends Error {}

const VOID = new Set(['br', 'hr', 'img', 'input', 'wbr', 'col']);

export class HTMLWriter {
  /** @param {number} limit UTF-16 units that the text may hold */
  constructor(limit) {
    this.html = '';
    this.limit = limit;
    this.names = [];
    this.foreign = [];
    // Place on the stack of the element that silences, or -1.
    this.silencer = -1;
    // Elements of the silencer's own name that are open inside it.
    this.silencedTwins = 0;
  }

  /** The innermost open element if the document opened it, else an empty text. */
  get innermostForeign() {
    const top = this.names.length - 1;
    return top >= 0 && this.foreign[top] ? this.names[top] : '';
  }

  /** Whether what is written now is dropped. */
  get isSilent() {
    return this.silencer >= 0;
  }

  put(markup) {
    if (this.silencer >= 0) return;
    if (this.html.length + markup.length > this.limit) throw new OutputOverflow();
    this.html += markup;
  }

  /** Writes text, escaped. */
  text(text) {
    this.put(escapeText(text));
  }

  /**
   * Opens an element of this program's own.
   * @param {string[]} [attributes] names and values in turn; names are constants of this program
   */
  open(name, attributes) {
    this.put(startTag(name, attributes));
    this.push(name, false);
  }

  /** Writes an element that has no contents. */
  empty(name, attributes) {
    this.put(startTag(name, attributes));
  }

  /** Closes the innermost element of this program's own, and the foreign ones inside it. */
  close() {
    while (this.names.length > 0 && this.foreign[this.names.length - 1]) this.pop();
    if (this.names.length > 0) this.pop();
  }

  /** Opens an allow-listed element for the document; does nothing where too many are open. */
  openForeign(name, attributes) {
    if (this.silencer >= 0 || this.names.length >= OPEN_ELEMENTS) return;
    this.put(startTag(name, attributes));
    if (!VOID.has(name)) this.push(name, true);
  }

  /** Closes the innermost foreign element of that name and those inside it, if there is one within ours. */
  closeForeign(name) {
    if (this.silencer >= 0) {
      this.endSilence(name);
      return;
    }
    let place = this.names.length - 1;
    while (place >= 0 && this.foreign[place] && this.names[place] !== name) place--;
    if (place < 0 || !this.foreign[place]) return;
    while (this.names.length > place) this.pop();
  }

  /** Drops everything until the element of that name closes, or the element of ours around it. */
  silence(name) {
    if (this.silencer >= 0) {
      if (this.names[this.silencer] === name) this.silencedTwins++;
      return;
    }
    this.silencer = this.names.length;
    this.silencedTwins = 0;
    this.push(name, true);
  }

  endSilence(name) {
    if (this.names[this.silencer] !== name) return;
    if (this.silencedTwins > 0) {
      this.silencedTwins--;
      return;
    }
    while (this.names.length > this.silencer && this.foreign[this.names.length - 1]) this.pop();
  }

  /** Closes what is open and hands the text over. */
  finish() {
    while (this.names.length > 0) this.pop();
    return this.html;
  }

  push(name, isForeign) {
    this.names.push(name);
    this.foreign.push(isForeign);
  }

  pop() {
    const name = this.names.pop();
    this.foreign.pop();
    if (this.silencer < 0) this.html += `</${name}>`;
    else if (this.names.length === this.silencer) this.silencer = -1;
  }
}

function startTag(name, attributes) {
  if (attributes === undefined || attributes.length === 0) return `<${name}>`;
  let tag = `<${name}`;
  for (let i = 0; i < attributes.length; i += 2) tag += ` ${attributes[i]}="${escapeAttribute(attributes[i + 1])}"`;
  return `${tag}>`;
}
