/**
 * Sizes in UTF-8 bytes, without making the bytes.
 */

function unitBytes(unit) {
  if (unit < 0x80) return 1;
  if (unit < 0x800) return 2;
  // Each half of a pair counts two of the pair's four bytes.
  return unit >= 0xd800 && unit < 0xe000 ? 2 : 3;
}

/** Whether the text holds more than that many bytes in UTF-8. */
export function exceedsBytes(text, limit) {
  if (text.length > limit) return true;
  if (text.length * 3 <= limit) return false;
  let bytes = 0;
  for (let i = 0; i < text.length; i++) bytes += unitBytes(text.charCodeAt(i));
  return bytes > limit;
}

/** Whether the text as a JSON text holds more than that many bytes, with every character escaped that may be. */
export function exceedsJSONBytes(text, limit) {
  // No unit takes more than six bytes.
  if (text.length * 6 <= limit) return false;
  let bytes = 2;
  for (let i = 0; i < text.length; i++) {
    const unit = text.charCodeAt(i);
    if (unit < 0x20 || unit === 0x7f) bytes += unit === 0x0a || unit === 0x09 ? 2 : 6;
    else if (unit === 0x22 || unit === 0x5c || unit === 0x2f) bytes += 2;
    else bytes += unitBytes(unit);
  }
  return bytes > limit;
}
