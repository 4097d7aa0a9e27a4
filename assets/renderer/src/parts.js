/**
 * Parts of the program that most requests do not need. The build keeps their sources as one comment in the body of a
 * function that is never called, which an engine skips much faster than it parses code; a part is cut out of that
 * function's text and evaluated when it is first asked for. `tessaryColdParts` is that function, `tessaryColdIndex` a
 * text of "|name:start:end" entries; the build puts both in front of this program. Parts that are large and seldom
 * asked for are packed as well; their names in the index begin with "packed/".
 */

import { unpack } from './packing.js';

/* global tessaryColdParts, tessaryColdIndex */

const loaded = new Map();

function cut(name) {
  const entry = tessaryColdIndex.indexOf(`|${name}:`);
  if (entry < 0) return undefined;
  const [, start, end] = tessaryColdIndex.slice(entry + 1, tessaryColdIndex.indexOf('|', entry + 1)).split(':');
  const text = String(tessaryColdParts).slice(Number(start), Number(end));
  // A mark stands for a line end, which would end the comment.
  return text.replaceAll('\x01', '\n');
}

/** The text of a part, or absent where there is no part of that name. */
export function partText(name) {
  const plain = cut(name);
  if (plain !== undefined) return plain;
  const packed = cut(`packed/${name}`);
  return packed === undefined ? undefined : unpack(packed);
}

/** The exports of a part, evaluated at most once; absent where there is no part of that name. */
export function loadPart(name) {
  if (loaded.has(name)) return loaded.get(name);
  const source = partText(name);
  const part = source === undefined ? undefined : new Function('loadPart', source)(loadPart);
  loaded.set(name, part);
  return part;
}
