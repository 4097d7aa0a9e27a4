/**
 * Part "markdown": a Markdown document onto the page.
 */

import { readFrontMatter } from './frontMatter.js';
import { MarkdownWriter } from './MarkdownWriter.js';
import { makeParser } from './parser.js';

function writeFrontMatter(rows, label, writer) {
  writer.open('div', ['class', 'tsr-table']);
  writer.open('table', ['class', 'tsr-front']);
  if (label !== undefined && label !== '') {
    writer.open('caption');
    writer.text(label);
    writer.close();
  }
  writer.open('tbody');
  for (const { key, value } of rows) {
    writer.open('tr');
    writer.open('th', ['scope', 'row']);
    writer.text(key);
    writer.close();
    writer.open('td');
    writer.text(value);
    writer.close();
    writer.close();
  }
  writer.close();
  writer.close();
  writer.close();
  writer.put('\n');
}

/**
 * @param {{text: string, frontmatterLabel?: string}} request
 * @param {Page} page
 */
export function writeMarkdown(request, page) {
  const text = request.text.replace(/\r\n?/g, '\n');
  const frontMatter = readFrontMatter(text);
  if (frontMatter !== undefined) {
    const declared = frontMatter.rows.find((row) => row.key === 'lang' || row.key === 'language');
    page.declareLanguage(declared?.value);
    writeFrontMatter(frontMatter.rows, request.frontmatterLabel, page.writer);
  }
  const parser = makeParser();
  const body = frontMatter === undefined ? text.replace(/^\ufeff/, '') : text.slice(frontMatter.bodyStart);
  new MarkdownWriter(page, parser).writeDocument(parser.parse(body, {}));
}
