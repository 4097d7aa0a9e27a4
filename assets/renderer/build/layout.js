/**
 * How renderer.js lies in its file: parts as a comment, their index, then the program. All of it is ASCII, since one
 * other character makes the engine hold the whole source in 16-bit units.
 */

import { pack } from './pack.js';

/** The script with every character beyond ASCII as an escape, also in regular expressions, which bundlers leave. */
export function toASCII(script) {
  return script.replace(/[^\0-\x7f]/g, (unit) => `\\u${unit.charCodeAt(0).toString(16).padStart(4, '0')}`);
}

// All parts lie on one line, since an engine finds the end of such a comment faster than that of one of many lines. In
// place of their own line ends is a mark, which src/parts.js takes out again.
const MARK = '\x01';

function onOneLine(name, text) {
  if (/[\x01\r]/.test(text)) throw new Error(`${name} holds a character that stands for a line end, or a bare return`);
  return text.replaceAll('\n', MARK);
}

// Above this many characters a grammar is packed: the large ones are long lists of words, of languages that are rare.
const PACKED_GRAMMAR_LENGTH = 16_384;

function isPacked(name, text) {
  return name === 'formulas' || (name.startsWith('language/') && text.length > PACKED_GRAMMAR_LENGTH);
}

/**
 * @param {string} program
 * @param {Map<string, string>} parts
 */
export function layOut(program, parts) {
  const opening = 'function tessaryColdParts(){// ';
  let cold = opening;
  let index = '';
  for (const [name, text] of parts) {
    const start = cold.length;
    const packs = isPacked(name, text);
    cold += onOneLine(name, packs ? pack(text) : toASCII(text));
    index += `|${packs ? 'packed/' : ''}${name}:${start}:${cold.length}`;
  }
  return `${cold}\n}\nvar tessaryColdIndex=${JSON.stringify(`${index}|`)};\n${toASCII(program)}\n`;
}
