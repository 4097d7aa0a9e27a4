/**
 * Part "highlighter": highlight.js with its grammars taken in one at a time, when a text first asks for one.
 */

import hljs from 'highlight.js/lib/core';
import { HIGHLIGHT_WINDOW_UNITS } from '../limits.js';
import { RunEmitter } from './RunEmitter.js';

/* global loadPart */

hljs.configure({ __emitter: RunEmitter });

function ensureGrammar(name) {
  if (hljs.getLanguage(name)) return;
  const grammar = loadPart(`language/${name}`);
  if (grammar !== undefined) hljs.registerLanguage(name, grammar.default);
}

// The grammars that a grammar embeds (style sheets in HTML, say) are taken in when it meets such a passage. An open
// choice would try every grammar there is.
hljs.setEmbedded((names) => {
  if (names === undefined || names === null || names.length === 0) return false;
  if (typeof names === 'string') ensureGrammar(names);
  else names.forEach(ensureGrammar);
  return true;
});

// Between two windows of a text. The writer replaces this character, so no document needs it.
const MARK = '\x02';

/** The text with marks at ends of lines, at most a window apart where its lines allow. */
function inWindows(text) {
  let windows = '';
  let start = 0;
  while (text.length - start > HIGHLIGHT_WINDOW_UNITS) {
    const lineEnd = text.lastIndexOf('\n', start + HIGHLIGHT_WINDOW_UNITS - 1);
    if (lineEnd < start) break;
    windows += text.slice(start, lineEnd + 1) + MARK;
    start = lineEnd + 1;
  }
  return windows + text.slice(start);
}

/**
 * The grammar that reads a text with marks: all between them is the other grammar's, which the highlighter goes on
 * with after each mark in the state that it had before.
 */
function windowGrammar(grammar) {
  const name = `windows/${grammar}`;
  if (!hljs.getLanguage(name)) {
    hljs.registerLanguage(name, () => ({ subLanguage: grammar, contains: [{ begin: MARK }] }));
  }
  return name;
}

/**
 * @param {string} grammar the highlighter's own name of a language
 * @param {number} deadline milliseconds since 1970; when it has passed the text is left plain
 * @returns {string[]} class and text in turn
 */
export function highlight(text, grammar, deadline) {
  ensureGrammar(grammar);
  if (!hljs.getLanguage(grammar)) return ['', text];
  RunEmitter.deadline = deadline;
  const windows = inWindows(text.replaceAll(MARK, '\ufffd'));
  const language = windows.includes(MARK) ? windowGrammar(grammar) : grammar;
  try {
    return hljs.highlight(windows, { language, ignoreIllegals: true })._emitter.runs.map(withoutMark);
  } catch {
    // A grammar that gives up, or an exhausted stack, or time that is over.
    return ['', text];
  }
}

function withoutMark(text) {
  return text.includes(MARK) ? text.replaceAll(MARK, '') : text;
}
