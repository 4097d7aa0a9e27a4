/**
 * Part "highlighter": highlight.js with its grammars taken in one at a time, when a text first asks for one.
 */

import hljs from 'highlight.js/lib/core';
import { RunEmitter } from './RunEmitter.js';

/* global loadPart */

hljs.configure({ __emitter: RunEmitter });

function ensureGrammar(name) {
  if (hljs.getLanguage(name)) return;
  const grammar = loadPart(`language/${name}`);
  if (grammar !== undefined) hljs.registerLanguage(name, (highlighter) => withEmbedded(grammar.default(highlighter)));
}

/**
 * Makes a grammar ask for the grammars it embeds (style sheets in HTML, say) only when it meets such a passage: what
 * it calls by name becomes a property that takes the other grammar in when it is read.
 */
function withEmbedded(grammar) {
  const seen = new Set();
  const left = [grammar];
  while (left.length > 0) {
    const mode = left.pop();
    if (typeof mode !== 'object' || mode === null || mode instanceof RegExp || seen.has(mode)) continue;
    seen.add(mode);
    if (mode.subLanguage !== undefined) deferEmbedded(mode);
    for (const key of ['contains', 'variants', 'starts']) {
      if (Array.isArray(mode[key])) left.push(...mode[key]);
      else left.push(mode[key]);
    }
  }
  return grammar;
}

function deferEmbedded(mode) {
  const names = mode.subLanguage;
  // An open choice would try every grammar there is.
  const isOpenChoice = Array.isArray(names) && names.length === 0;
  Object.defineProperty(mode, 'subLanguage', {
    enumerable: true,
    configurable: true,
    get() {
      if (isOpenChoice) return undefined;
      for (const name of Array.isArray(names) ? names : [names]) ensureGrammar(name);
      return names;
    },
  });
}

/**
 * @param {string} grammar the highlighter's own name of a language
 * @returns {string[]} class and text in turn
 */
export function highlight(text, grammar) {
  ensureGrammar(grammar);
  if (!hljs.getLanguage(grammar)) return ['', text];
  const result = hljs.highlight(text, { language: grammar, ignoreIllegals: true });
  // What a grammar fails on it leaves unfinished.
  return result.errorRaised === undefined ? result._emitter.runs : ['', text];
}
