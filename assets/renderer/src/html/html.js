/**
 * Part "html": an HTML document, or HTML inside a document of another format, onto the page.
 */

import { DocumentMarkup } from './DocumentMarkup.js';
import { ForeignMarkup } from './ForeignMarkup.js';
import { MarkupReader } from './MarkupReader.js';

/** Writes a whole HTML document. */
export function writeDocument(text, page) {
  const document = new DocumentMarkup(page);
  new MarkupReader(document).read(text);
  document.finish();
}

/** Writes HTML that stands in another format. */
export function writeFragment(markup, page) {
  new MarkupReader(new ForeignMarkup(page)).read(markup);
}
