/**
 * Formulas between dollar signs. A single dollar sign is money more often than mathematics, so it opens a formula only
 * before something other than white space, and closes one only after such and not before a digit: "$5 and $10" holds
 * no formula.
 */

const DOLLAR = 0x24;
const BACKSLASH = 0x5c;

function isSpace(unit) {
  return unit === 0x20 || unit === 0x09 || unit === 0x0a || Number.isNaN(unit);
}

function isDigit(unit) {
  return unit >= 0x30 && unit <= 0x39;
}

// A dollar sign after a backslash is a sign in the formula.
function isEscaped(text, position) {
  let backslashes = 0;
  while (text.charCodeAt(position - 1 - backslashes) === BACKSLASH) backslashes++;
  return backslashes % 2 === 1;
}

function closesSingle(text, position) {
  if (isSpace(text.charCodeAt(position - 1)) || isDigit(text.charCodeAt(position + 1))) return false;
  return text.charCodeAt(position + 1) !== DOLLAR;
}

/** Position of the closing marker, or -1. */
function closingMarker(text, marker, from, end) {
  let position = text.indexOf(marker, from);
  while (position >= 0 && position < end) {
    const closes = marker === '$$' || closesSingle(text, position);
    if (position > from && closes && !isEscaped(text, position)) return position;
    position = text.indexOf(marker, position + 1);
  }
  return -1;
}

/** Inline rule of markdown-it: $...$ and, inside a paragraph, $$...$$. */
export function formulaInline(state, silent) {
  const { src, pos, posMax } = state;
  if (src.charCodeAt(pos) !== DOLLAR) return false;
  const marker = src.charCodeAt(pos + 1) === DOLLAR ? '$$' : '$';
  const start = pos + marker.length;
  if (isSpace(src.charCodeAt(start)) && marker === '$') return false;
  // Once no closing marker was found there is none for later openers either; searching again would be quadratic.
  const memory = marker === '$' ? 'noSingleFormula' : 'noDoubleFormula';
  if (state[memory]) return false;
  const end = closingMarker(src, marker, start, posMax);
  if (end < 0) {
    state[memory] = true;
    return false;
  }
  if (!silent) {
    const token = state.push('formula', '', 0);
    token.content = src.slice(start, end);
    token.isDisplay = marker === '$$';
  }
  state.pos = end + marker.length;
  return true;
}

function lineText(state, line) {
  return state.src.slice(state.bMarks[line] + state.tShift[line], state.eMarks[line]);
}

/** The line that ends with the closing marker, or -1. */
function closingLine(state, startLine, endLine) {
  // Lines that were searched in vain are not searched again from a later opening among them: that would be quadratic.
  if (startLine < (state.env.formulaFreeBefore ?? 0)) return -1;
  let line = startLine;
  for (; line < endLine && state.sCount[line] >= state.blkIndent; line++) {
    const text = lineText(state, line).trimEnd();
    if (text === '') break;
    if (text.endsWith('$$') && (line > startLine || text.length > 4)) return line;
  }
  state.env.formulaFreeBefore = line;
  return -1;
}

/** Block rule of markdown-it: $$ at the beginning of a line to $$ at the end of one, without a blank line between. */
export function formulaBlock(state, startLine, endLine, silent) {
  const first = lineText(state, startLine);
  if (!first.startsWith('$$') || state.sCount[startLine] - state.blkIndent >= 4) return false;
  const last = closingLine(state, startLine, endLine);
  if (last < 0) return false;
  const text = state.getLines(startLine, last + 1, state.blkIndent, false).trim();
  // Something after the opening's own closing marker makes this a paragraph that holds a formula.
  if (text.indexOf('$$', 2) !== text.length - 2) return false;
  if (silent) return true;
  const token = state.push('formula', '', 0);
  token.block = true;
  token.isDisplay = true;
  token.content = text.slice(2, -2);
  state.line = last + 1;
  return true;
}
