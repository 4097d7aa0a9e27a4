/**
 * The packed form of the parts that few documents need (see build/pack.js, which makes it). A packed text is its
 * number of UTF-16 units, a blank, and then units as they are, except for three signs: REPEAT stands before the length
 * (one digit, counted from MIN_COPY) and the distance (three digits) of a stretch to be copied, CYRILLIC before a
 * Cyrillic letter (one digit), OTHER before any other unit (three digits). Digits are to the base 95, from the blank on.
 */

export const REPEAT = 0x03;
export const CYRILLIC = 0x04;
export const OTHER = 0x05;
export const DIGITS = 95;
export const MIN_COPY = 6;
export const FIRST_CYRILLIC = 0x400;

// Units that are turned into text at one time; an engine limits the number of arguments.
const CHUNK_UNITS = 8_192;

function text(units) {
  let whole = '';
  for (let start = 0; start < units.length; start += CHUNK_UNITS) {
    whole += String.fromCharCode.apply(null, units.subarray(start, start + CHUNK_UNITS));
  }
  return whole;
}

/** The text that was packed. */
export function unpack(packed) {
  const blank = packed.indexOf(' ');
  const units = new Uint16Array(Number(packed.slice(0, blank)));
  const digit = (position) => packed.charCodeAt(position) - 0x20;
  const number = (position) => (digit(position) * DIGITS + digit(position + 1)) * DIGITS + digit(position + 2);
  let length = 0;
  for (let i = blank + 1; i < packed.length; i++) {
    const unit = packed.charCodeAt(i);
    if (unit === REPEAT) {
      const end = length + MIN_COPY + digit(i + 1);
      const distance = number(i + 2);
      for (; length < end; length++) units[length] = units[length - distance];
      i += 4;
    } else if (unit === CYRILLIC) {
      units[length++] = FIRST_CYRILLIC + digit(++i);
    } else if (unit === OTHER) {
      units[length++] = number(i + 1);
      i += 3;
    } else {
      units[length++] = unit;
    }
  }
  return text(units);
}
