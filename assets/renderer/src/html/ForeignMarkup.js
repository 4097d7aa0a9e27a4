/**
 * A document's markup onto the page, element by element, by the allow-list. Nothing is copied: names are compared
 * with the list's own, values and text are escaped by the writer.
 */

import { DROPPED, DROPPED_VOID, ELEMENTS, GLOBAL_ATTRIBUTES, VALUE_FORMS } from './allowList.js';
import { endsBefore } from './impliedEnds.js';

export class ForeignMarkup {
  constructor(page) {
    this.page = page;
    this.writer = page.writer;
  }

  text(text) {
    this.writer.text(text);
  }

  startTag(name, attributes, isSelfClosing) {
    if (DROPPED.has(name)) {
      // Only foreign content knows the empty-element form; elsewhere the stroke means nothing.
      const isEmpty = isSelfClosing && (name === 'svg' || name === 'math');
      if (!isEmpty) this.writer.silence(name);
      return;
    }
    if (DROPPED_VOID.has(name) || !ELEMENTS.has(name) || this.writer.isSilent) return;
    this.endImplied(name);
    if (name === 'img') this.writeImage(attributes);
    else this.writer.openForeign(name, this.allowedAttributes(name, attributes));
  }

  endTag(name) {
    if (name === 'p' && !this.writer.isSilent && this.writer.innermostForeign !== 'p') return;
    this.writer.closeForeign(name);
  }

  endImplied(beginning) {
    let open = this.writer.innermostForeign;
    while (open !== '' && endsBefore(open, beginning)) {
      this.writer.closeForeign(open);
      open = this.writer.innermostForeign;
    }
  }

  /** Names and values in turn. */
  allowedAttributes(name, attributes) {
    const allowed = [];
    for (const attribute of [...GLOBAL_ATTRIBUTES, ...ELEMENTS.get(name)]) {
      if (attributes.has(attribute)) allowed.push(...this.allowedAttribute(attribute, attributes.get(attribute)));
    }
    return allowed;
  }

  allowedAttribute(name, value) {
    if (name === 'href') return this.page.link(value);
    if (name === 'id' || name === 'name') {
      const identifier = this.page.identifier(value);
      return identifier === undefined ? [] : [name, identifier];
    }
    if (name === 'open' || name === 'reversed') return [name, ''];
    const form = VALUE_FORMS[name];
    return form === undefined || form.test(value) ? [name, value] : [];
  }

  writeImage(attributes) {
    const size = ['width', 'height'].filter((name) => VALUE_FORMS[name].test(attributes.get(name) ?? ''));
    this.page.image({
      source: attributes.get('src') ?? '',
      alternative: attributes.get('alt') ?? '',
      title: attributes.get('title'),
      size: size.flatMap((name) => [name, attributes.get(name)]),
    });
  }
}
