/**
 * A whole HTML document: what its head says about it (title, language, origin) besides its body.
 */

import { ForeignMarkup } from './ForeignMarkup.js';

const TITLE_UNITS = 300;

export class DocumentMarkup extends ForeignMarkup {
  constructor(page) {
    super(page);
    this.title = '';
    this.isInTitle = false;
    this.hasTitle = false;
    this.originByLink = undefined;
    this.originByMeta = undefined;
  }

  text(text) {
    if (!this.isInTitle) super.text(text);
    else if (this.title.length < TITLE_UNITS) this.title += text;
  }

  startTag(name, attributes, isSelfClosing) {
    if (!this.writer.isSilent) this.readHead(name, attributes);
    super.startTag(name, attributes, isSelfClosing);
  }

  endTag(name) {
    if (name === 'title') this.isInTitle = false;
    super.endTag(name);
  }

  readHead(name, attributes) {
    if (name === 'html') this.page.declareLanguage(attributes.get('lang'));
    else if (name === 'title' && !this.hasTitle) this.isInTitle = this.hasTitle = true;
    else if (name === 'link' && isCanonical(attributes)) this.originByLink ??= attributes.get('href');
    else if (name === 'meta' && attributes.get('property')?.toLowerCase() === 'og:url') {
      this.originByMeta ??= attributes.get('content');
    }
  }

  /** Tells the page what the head said. */
  finish() {
    if (this.originByLink !== undefined) this.page.origin(this.originByLink);
    if (this.originByMeta !== undefined) this.page.origin(this.originByMeta);
    this.page.title(this.title.replace(/\s+/g, ' ').trim().slice(0, TITLE_UNITS));
  }
}

function isCanonical(attributes) {
  const relations = attributes.get('rel')?.toLowerCase().split(/\s+/) ?? [];
  return relations.includes('canonical');
}
