/**
 * One request from beginning to end: choose the way by the format, and whatever a document does, answer with a page.
 * Where rendering gives up (too deep, too large), the source itself is shown, and a notice says so.
 */

import { OUTPUT_BYTES } from './limits.js';
import { Page } from './Page.js';
import { OutputOverflow } from './output/HTMLWriter.js';
import { Notices } from './output/Notices.js';
import { exceedsJSONBytes } from './output/size.js';
import { readRequest } from './request.js';

// Room for the style sheet, the notices and the braces of the result.
const HTML_BYTES = OUTPUT_BYTES - 262_144;

const UNKNOWN_OPERATION = 'This operation is not known to the renderer.';
const UNKNOWN_FORMAT = 'This format is not known to the renderer; the source is shown.';
const TOO_COMPLEX = 'This document is too large or too deeply nested to be laid out; the source is shown.';

const FORMATS = {
  markdown: (request, page, parts) => parts.load('markdown').writeMarkdown(request, page),
  html: (request, page, parts) => parts.load('html').writeDocument(request.text, page),
  code: (request, page) => page.sourceCode(request.text, request.language),
};

function isLayoutFailure(error) {
  // The engine reports an exhausted stack as a RangeError.
  return error instanceof OutputOverflow || error instanceof RangeError;
}

function writePage(kind, request, page, parts) {
  FORMATS[kind](request, page, parts);
  const html = page.finish(kind);
  if (exceedsJSONBytes(html, HTML_BYTES)) throw new OutputOverflow();
  return html;
}

function plainPage(request, notice) {
  const notices = new Notices();
  notices.add(notice);
  const page = new Page(request, undefined, notices, undefined);
  page.plainSource(request.text);
  return { page, html: page.finish('code') };
}

function laidOut(request, token, parts) {
  const kind = request.kind;
  if (kind === undefined || !Object.keys(FORMATS).includes(kind)) return plainPage(request, UNKNOWN_FORMAT);
  const page = new Page(request, token, new Notices(), parts);
  try {
    return { page, html: writePage(kind, request, page, parts) };
  } catch (error) {
    if (!isLayoutFailure(error)) throw error;
    return plainPage(request, TOO_COMPLEX);
  }
}

/**
 * @param {unknown} value the request
 * @param {unknown} token a text that the document cannot know
 * @param {{load: Function, text: Function}} parts the parts of the program that are loaded on demand
 * @returns {{html: string, styleSheet: string, notices: string[], language?: string, sourceWebsiteURL?: string}}
 */
export function render(value, token, parts) {
  const request = readRequest(value);
  if (request.operation !== 'render') return { html: '', styleSheet: '', notices: [UNKNOWN_OPERATION] };
  const { page, html } = laidOut(request, token, parts);
  const result = { html, styleSheet: parts.text('style') ?? '', notices: page.notices.list };
  if (page.language !== undefined) result.language = page.language;
  if (page.sourceWebsiteURL !== undefined) result.sourceWebsiteURL = page.sourceWebsiteURL;
  return result;
}
