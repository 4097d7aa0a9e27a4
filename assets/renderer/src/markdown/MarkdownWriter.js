/**
 * Walks the parser's tokens and writes the page. Tokens of blocks and of text lie in flat lists, so nesting costs no
 * stack; elements are balanced by the writer.
 */

import { findAutolinks } from './autolinks.js';
import { FootnoteList } from './FootnoteList.js';
import { Slugs } from './slugs.js';

const TASK = /^\[([ xX])\]\s/;
// Containers whose first child begins on a line of its own.
const BROKEN_AFTER = new Set(['blockquote', 'ul', 'ol', 'thead', 'tbody', 'tr']);

export class MarkdownWriter {
  constructor(page, parser) {
    this.page = page;
    this.utilities = parser.utils;
    this.writer = page.writer;
    this.slugs = new Slugs();
    this.footnotes = new FootnoteList();
    this.linkDepth = 0;
  }

  /** Writes a document's tokens, then its footnotes. */
  writeDocument(tokens) {
    this.writeBlocks(tokens, 0, tokens.length);
    this.footnotes.write(this);
  }

  /** Writes the blocks in [start, end); definitions of footnotes are put aside. */
  writeBlocks(tokens, start, end) {
    for (let i = start; i < end; i++) {
      if (tokens[i].type === 'footnote_open') i = this.footnotes.define(tokens, i);
      else this.writeBlock(tokens, i);
    }
  }

  writeBlock(tokens, i) {
    const token = tokens[i];
    switch (token.type) {
      case 'inline':
        this.writeInline(token.children);
        return;
      case 'heading_open':
        this.openHeading(token, tokens[i + 1]);
        return;
      case 'fence':
        this.writeFence(token);
        break;
      case 'code_block':
        this.writeIndentedCode(token);
        break;
      case 'html_block':
        this.page.foreignMarkup(token.content);
        return;
      case 'hr':
        this.writer.empty('hr');
        break;
      case 'formula':
        this.writer.open('p', ['class', 'tsr-display']);
        this.page.formula(token.content, true);
        this.writer.close();
        break;
      case 'list_item_open':
        this.openItem(tokens, i);
        return;
      case 'ordered_list_open':
        this.writer.open('ol', token.attrs === null ? undefined : ['start', String(token.attrGet('start'))]);
        break;
      case 'table_open':
        this.writer.open('div', ['class', 'tsr-table']);
        this.writer.open('table');
        break;
      case 'table_close':
        this.writer.close();
        this.writer.close();
        break;
      case 'th_open':
      case 'td_open':
        this.openCell(token);
        return;
      case 'paragraph_close':
        this.closeParagraph(token, tokens[i + 1]);
        return;
      default:
        this.writeTag(token);
        return;
    }
    this.writer.put('\n');
  }

  writeTag(token) {
    if (token.hidden) return;
    if (token.nesting > 0) {
      this.writer.open(token.tag);
      if (BROKEN_AFTER.has(token.tag)) this.writer.put('\n');
    } else {
      this.writer.close();
      this.writer.put('\n');
    }
  }

  closeParagraph(token, next) {
    if (!token.hidden) this.writer.close();
    if (!token.hidden || (next !== undefined && next.type !== 'list_item_close')) this.writer.put('\n');
  }

  openHeading(token, inline) {
    const identifier = this.page.identifier(this.slugs.take(plainText(inline.children)));
    this.writer.open(token.tag, identifier === undefined ? undefined : ['id', identifier]);
  }

  openCell(token) {
    const style = token.attrGet('style');
    // The parser writes "text-align:right".
    this.writer.open(token.tag, style === null ? undefined : ['align', style.slice(style.indexOf(':') + 1)]);
  }

  openItem(tokens, i) {
    const isParagraph = tokens[i + 1]?.type === 'paragraph_open';
    const first = isParagraph ? tokens[i + 2].children[0] : undefined;
    const mark = first?.type === 'text' ? TASK.exec(first.content) : null;
    if (mark === null) {
      this.writer.open('li');
      if (isParagraph && !tokens[i + 1].hidden) this.writer.put('\n');
      return;
    }
    first.content = first.content.slice(3);
    this.writer.open('li', ['class', 'tsr-task']);
    const state = mark[1] === ' ' ? [] : ['checked', ''];
    this.writer.empty('input', ['type', 'checkbox', 'disabled', '', ...state]);
  }

  writeFence(token) {
    const language = this.utilities.unescapeAll(token.info).trim().split(/\s+/, 1)[0];
    if (language === 'math') {
      this.writer.open('p', ['class', 'tsr-display']);
      this.page.formula(token.content, true);
      this.writer.close();
    } else {
      this.page.codeBlock(token.content, language);
    }
  }

  writeIndentedCode(token) {
    this.page.codeBlock(token.content, '');
  }

  writeInline(tokens) {
    for (const token of tokens) this.writeSpan(token);
    // An element that HTML opened in this paragraph ends with it, and so does a link.
    this.linkDepth = 0;
  }

  writeSpan(token) {
    switch (token.type) {
      case 'text':
        this.writeText(token.content);
        break;
      case 'softbreak':
        this.writer.put('\n');
        break;
      case 'hardbreak':
        this.writer.empty('br');
        this.writer.put('\n');
        break;
      case 'code_inline':
        this.writer.open('code');
        this.writer.text(token.content);
        this.writer.close();
        break;
      case 'html_inline':
        this.noteForeignLink(token.content);
        this.page.foreignMarkup(token.content);
        break;
      case 'link_open':
        this.linkDepth++;
        this.writer.open('a', [...this.page.link(token.attrGet('href') ?? ''), ...titleOf(token)]);
        break;
      case 'link_close':
        this.linkDepth--;
        this.writer.close();
        break;
      case 'image':
        this.writeImage(token);
        break;
      case 'formula':
        this.page.formula(token.content, token.isDisplay);
        break;
      case 'footnote_reference':
        this.footnotes.writeReference(token.meta.label, this.writer);
        break;
      default:
        if (token.nesting > 0) this.writer.open(token.tag === 's' ? 'del' : token.tag);
        else if (token.nesting < 0) this.writer.close();
    }
  }

  // A link inside a link is no link.
  noteForeignLink(markup) {
    if (/^<a[\s>]/i.test(markup)) this.linkDepth++;
    else if (/^<\/a[\s>]/i.test(markup) && this.linkDepth > 0) this.linkDepth--;
  }

  writeText(text) {
    const mayHoldLink = this.linkDepth === 0 && /[@:]|www\./i.test(text);
    const links = mayHoldLink ? findAutolinks(text) : [];
    let written = 0;
    for (const link of links) {
      this.writer.text(text.slice(written, link.start));
      this.writer.open('a', this.page.link(this.utilities.lib.mdurl.encode(link.address)));
      this.writer.text(text.slice(link.start, link.end));
      this.writer.close();
      written = link.end;
    }
    this.writer.text(written === 0 ? text : text.slice(written));
  }

  writeImage(token) {
    const title = token.attrGet('title') ?? undefined;
    this.page.image({ source: token.attrGet('src') ?? '', alternative: plainText(token.children), title });
  }
}

function titleOf(token) {
  const title = token.attrGet('title');
  return title === null ? [] : ['title', title];
}

/** The text of spans without their markup. */
function plainText(tokens) {
  let text = '';
  const left = [...tokens].reverse();
  while (left.length > 0) {
    const token = left.pop();
    if (token.type === 'image') left.push(...[...token.children].reverse());
    else if (token.type === 'softbreak' || token.type === 'hardbreak') text += '\n';
    else if (token.type !== 'html_inline' && token.content !== undefined) text += token.content;
  }
  return text;
}
