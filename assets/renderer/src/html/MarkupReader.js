/**
 * Reads HTML with htmlparser2's tokenizer and hands on start tags, end tags and decoded text. Tags only, no tree: the
 * writer keeps the stack, and it is bounded.
 */

import { Tokenizer } from 'htmlparser2';

function fromCodePoint(codePoint) {
  return String.fromCodePoint(codePoint);
}

export class MarkupReader {
  /**
   * @param {{startTag(name: string, attributes: Map<string, string>, isSelfClosing: boolean): void,
   *   endTag(name: string): void, text(text: string): void}} receiver
   */
  constructor(receiver) {
    this.receiver = receiver;
    this.markup = '';
    this.name = '';
    this.attributes = new Map();
    this.attributeName = '';
    this.value = '';
  }

  read(markup) {
    this.markup = markup;
    const tokenizer = new Tokenizer({ decodeEntities: true }, this);
    tokenizer.write(markup);
    tokenizer.end();
  }

  // What follows is the tokenizer's interface; positions are UTF-16 units.

  ontext(start, end) {
    this.receiver.text(this.markup.slice(start, end));
  }

  ontextentity(codePoint) {
    this.receiver.text(fromCodePoint(codePoint));
  }

  onopentagname(start, end) {
    this.name = this.markup.slice(start, end).toLowerCase();
    this.attributes = new Map();
  }

  onattribname(start, end) {
    this.attributeName = this.markup.slice(start, end).toLowerCase();
    this.value = '';
  }

  onattribdata(start, end) {
    this.value += this.markup.slice(start, end);
  }

  onattribentity(codePoint) {
    this.value += fromCodePoint(codePoint);
  }

  onattribend() {
    // As in a browser, the first of several attributes of one name counts.
    if (!this.attributes.has(this.attributeName)) this.attributes.set(this.attributeName, this.value);
  }

  onopentagend() {
    this.receiver.startTag(this.name, this.attributes, false);
  }

  onselfclosingtag() {
    this.receiver.startTag(this.name, this.attributes, true);
  }

  onclosetag(start, end) {
    this.receiver.endTag(this.markup.slice(start, end).toLowerCase());
  }

  oncdata(start, end, offset) {
    // Outside foreign content, which is dropped, this is a comment.
    void [start, end, offset];
  }

  oncomment() {}
  ondeclaration() {}
  onprocessinginstruction() {}
  onend() {}
}
