/**
 * The page that a request becomes: the writer, and the few things that more than one format puts on it (links, images,
 * code, formulas). The parts that read a format see no more of the program than this.
 */

import { writeLines, writePlainLines, writeRuns } from './code/codeLines.js';
import { isHighlightable } from './code/isHighlightable.js';
import { Formulas } from './formulas/Formulas.js';
import {
  DATA_IMAGE_DOCUMENT_UNITS,
  HIGHLIGHT_DOCUMENT_BYTES,
  HIGHLIGHT_MILLISECONDS,
  OUTPUT_BYTES,
} from './limits.js';
import { escapeText } from './output/escape.js';
import { HTMLWriter } from './output/HTMLWriter.js';
import { writeImage } from './output/images.js';
import { linkAttributes, prefixedIdentifier, webAddress } from './output/links.js';
import { writingLanguage } from './writingLanguage.js';

const NOT_HIGHLIGHTED = 'This source is too large, or its lines too long, to be highlighted.';

export class Page {
  constructor(request, token, notices, parts) {
    this.request = request;
    this.allowsRemoteImages = request.allowsRemoteImages;
    this.notices = notices;
    this.parts = parts;
    this.writer = new HTMLWriter(OUTPUT_BYTES);
    this.formulas = new Formulas(token, request.text);
    this.highlightDeadline = Date.now() + HIGHLIGHT_MILLISECONDS;
    this.dataImageUnitsLeft = DATA_IMAGE_DOCUMENT_UNITS;
    this.highlightBytesLeft = HIGHLIGHT_DOCUMENT_BYTES;
    /** Language of the result: of a source file the grammar's name, of a document the one that it declares. */
    this.language = undefined;
    /** Language of the writing, for fonts and line breaks, as the document declares it. */
    this.declaredLanguage = undefined;
    this.sourceWebsiteURL = undefined;
    this.titleText = '';
  }

  /** Attributes of a link to the address, in the form that the writer takes. */
  link(address) {
    return linkAttributes(address);
  }

  /** The identifier as the result may hold it, or absent. */
  identifier(identifier) {
    return prefixedIdentifier(identifier);
  }

  image(image) {
    writeImage(image, this);
  }

  /** Remembers the first address of the web that the document names as its origin. */
  origin(address) {
    this.sourceWebsiteURL ??= webAddress(address);
  }

  /** The title that the document gives itself; shown above it. */
  title(text) {
    this.titleText = text;
  }

  /** Takes a language tag that the document gives itself; anything else is passed over. */
  declareLanguage(tag) {
    if (typeof tag === 'string' && /^[A-Za-z]{2,3}(?:-[A-Za-z0-9]{1,8}){0,4}$/.test(tag)) this.declaredLanguage ??= tag;
  }

  formula(source, isDisplay) {
    this.formulas.write(source, isDisplay, this.writer);
  }

  /** Writes HTML that stands in another format. */
  foreignMarkup(markup) {
    this.parts.load('html').writeFragment(markup, this);
  }

  /** A code block inside a document, with its language named. */
  codeBlock(text, languageName) {
    const grammar = this.grammarName(languageName);
    const attributes = languageName === '' ? [] : ['class', 'tsr-block', 'data-language', languageName.toLowerCase()];
    this.writer.open('pre', attributes);
    this.writer.open('code', languageName === '' ? [] : ['class', `language-${languageName}`]);
    const runs = this.highlighted(text, grammar);
    if (runs === undefined) this.writer.text(text);
    else writeRuns(runs, this.writer);
    this.writer.close();
    this.writer.close();
  }

  /** A whole source file, line by line; a line end at its end begins no further line. */
  sourceCode(source, languageName) {
    const lines = source.replace(/\r\n?/g, '\n');
    const text = lines.endsWith('\n') ? lines.slice(0, -1) : lines;
    const grammar = languageName === undefined ? undefined : this.grammarName(languageName);
    this.language = grammar ?? languageName;
    this.openSource();
    const runs = this.highlighted(lines, grammar);
    if (runs === undefined && grammar !== undefined && grammar !== 'plaintext') this.notices.add(NOT_HIGHLIGHTED);
    if (runs === undefined) writePlainLines(text, this.writer);
    else writeLines(withoutLastLineEnd(runs), this.writer);
    if (text !== lines) this.writer.put('\n');
    this.closeSource();
  }

  /** The source as it is, where nothing better can be done. */
  plainSource(text) {
    this.writer.open('pre', ['class', 'tsr-plain']);
    this.writer.open('code');
    this.writer.text(text);
    this.closeSource();
  }

  openSource() {
    this.writer.open('pre', ['class', 'tsr-lines']);
    this.writer.open('code');
  }

  closeSource() {
    this.writer.close();
    this.writer.close();
  }

  /** The highlighter's own name of a language, or absent where it has no grammar for it. */
  grammarName(languageName) {
    const name = languageName.toLowerCase();
    if (name === '' || /[|:,]/.test(name)) return undefined;
    const aliases = this.parts.text('languageAliases');
    const entry = aliases.indexOf(`|${name}:`);
    if (entry < 0) return undefined;
    return aliases.slice(entry + name.length + 2, aliases.indexOf('|', entry + 1));
  }

  /** The text as coloured runs, or absent where it is to be shown plain. */
  highlighted(text, grammar) {
    if (grammar === undefined || grammar === 'plaintext' || !isHighlightable(text)) return undefined;
    if (text.length > this.highlightBytesLeft || Date.now() > this.highlightDeadline) return undefined;
    this.highlightBytesLeft -= text.length;
    return this.parts.load('highlighter').highlight(text, grammar, this.highlightDeadline);
  }

  /** The page's HTML. */
  finish(kind) {
    const body = this.formulas.fillIn(this.writer.finish(), this.parts);
    const language = this.declaredLanguage ?? writingLanguage(this.request.text);
    const attributes = language === undefined ? '' : ` lang="${language}"`;
    const title = this.titleText === '' ? '' : `<p class="tsr-title">${escapeText(this.titleText)}</p>\n`;
    return `<article class="tessary tessary-${kind}"${attributes}>\n${title}${body}</article>`;
  }
}

/** Runs whose text does not end in a line end any more. */
function withoutLastLineEnd(runs) {
  const last = runs.length - 1;
  if (last > 0 && runs[last].endsWith('\n')) runs[last] = runs[last].slice(0, -1);
  return runs;
}
