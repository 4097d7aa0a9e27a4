/**
 * The Markdown parser: CommonMark and GFM's tables by markdown-it, with rules of our own for strikethrough,
 * footnotes and formulas. What GFM calls autolinks and task lists is found when the text is written.
 */

import MarkdownIt from 'markdown-it';
import { footnoteDefinition, footnoteReference } from './footnotes.js';
import { formulaBlock, formulaInline } from './formulaRules.js';
import { strikethroughRun, strikethroughTags } from './strikethrough.js';

const WITH_PARAGRAPHS = { alt: ['paragraph', 'reference', 'blockquote', 'list'] };

export function makeParser() {
  const parser = new MarkdownIt({ html: true });
  parser.disable(['linkify', 'replacements', 'smartquotes']);
  // Which address may be followed is decided where links are written; a refused one is still a link, without target.
  parser.validateLink = () => true;
  parser.normalizeLink = parser.utils.lib.mdurl.encode;
  parser.block.ruler.before('fence', 'formula_block', formulaBlock, WITH_PARAGRAPHS);
  parser.block.ruler.before('reference', 'footnote_definition', footnoteDefinition, { alt: ['paragraph', 'reference'] });
  parser.inline.ruler.before('escape', 'formula', formulaInline);
  parser.inline.ruler.at('strikethrough', strikethroughRun);
  parser.inline.ruler2.at('strikethrough', strikethroughTags);
  parser.inline.ruler.before('link', 'footnote_reference', footnoteReference);
  return parser;
}
