/**
 * Packs the text of a part that few documents need, so that the engine has less to skip in every process. The form is
 * that of src/unpack.js: text in which a stretch that occurred before is replaced by its place and length.
 */

import { CYRILLIC, DIGITS, FIRST_CYRILLIC, MIN_COPY, OTHER, REPEAT } from '../src/packing.js';

const MAX_COPY = MIN_COPY + DIGITS - 1;
const KEY_UNITS = MIN_COPY;
// Earlier places that are tried for one position.
const MAX_TRIES = 64;

function digits(value, count) {
  let text = '';
  for (let i = 0, rest = value; i < count; i++, rest = Math.floor(rest / DIGITS)) {
    text = String.fromCharCode(0x20 + (rest % DIGITS)) + text;
  }
  return text;
}

function packedUnit(unit) {
  if (unit < 0x7f && unit !== REPEAT && unit !== CYRILLIC && unit !== OTHER) return String.fromCharCode(unit);
  const cyrillic = unit - FIRST_CYRILLIC;
  if (cyrillic >= 0 && cyrillic < DIGITS) return String.fromCharCode(CYRILLIC) + digits(cyrillic, 1);
  return String.fromCharCode(OTHER) + digits(unit, 3);
}

function commonLength(text, a, b) {
  let length = 0;
  while (length < MAX_COPY && b + length < text.length && text[a + length] === text[b + length]) length++;
  return length;
}

function longestCopy(text, position, places) {
  let best = { length: 0, place: 0 };
  for (const place of places.slice(-MAX_TRIES)) {
    const length = commonLength(text, place, position);
    if (length >= best.length) best = { length, place };
  }
  return best;
}

/** The packed text: ASCII, its number of units in front. */
export function pack(text) {
  const places = new Map();
  let packed = `${text.length} `;
  const remember = (position) => {
    const key = text.slice(position, position + KEY_UNITS);
    if (!places.has(key)) places.set(key, []);
    places.get(key).push(position);
  };
  for (let position = 0; position < text.length; ) {
    const copy = longestCopy(text, position, places.get(text.slice(position, position + KEY_UNITS)) ?? []);
    const step = copy.length >= MIN_COPY ? copy.length : 1;
    if (step > 1) packed += String.fromCharCode(REPEAT) + digits(step - MIN_COPY, 1) + digits(position - copy.place, 3);
    else packed += packedUnit(text.charCodeAt(position));
    for (let i = 0; i < step; i++) remember(position + i);
    position += step;
  }
  return packed;
}
