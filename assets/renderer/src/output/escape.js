/**
 * Text and attribute values on their way out. Nothing reaches the result except through these two functions or as a
 * constant of this program, so that no byte of a document is ever copied.
 */

const CONTROLS = /[\0-\x08\x0b-\x1f\x7f]/;
const ALL_CONTROLS = /[\0-\x08\x0b-\x1f\x7f]/g;
const TEXT = /[&<>\0-\x08\x0b-\x1f\x7f]/;
const ATTRIBUTE = /[&<>"'`\0-\x08\x0b-\x1f\x7f]/;

// A parser turns most control characters into errors or U+FFFD itself; only a form feed and a return have a meaning,
// the one of white space.
function replaceControl(character) {
  return character === '\r' || character === '\f' ? '\n' : '\ufffd';
}

function escapeMarkup(text) {
  const clean = CONTROLS.test(text) ? text.replace(ALL_CONTROLS, replaceControl) : text;
  return clean.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;');
}

/** The text as it stands between tags. */
export function escapeText(text) {
  return TEXT.test(text) ? escapeMarkup(text) : text;
}

/** The value as it stands between double quotes; the other quotes too, for hosts that take the text apart. */
export function escapeAttribute(value) {
  if (!ATTRIBUTE.test(value)) return value;
  return escapeMarkup(value).replace(/"/g, '&quot;').replace(/'/g, '&#39;').replace(/`/g, '&#96;');
}
