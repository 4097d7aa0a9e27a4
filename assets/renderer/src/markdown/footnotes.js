/**
 * Footnotes as GFM has them: "[^label]" in the text, "[^label]: note" as a block. The parser leaves definitions where
 * they stand, between two tokens of their own; the writer collects them and sets them at the end, in the order in
 * which they are first referred to.
 */

// A label is a word or two; the limit keeps a search for its end short.
const LABEL_UNITS = 128;

const BRACKET_OPEN = 0x5b;
const BRACKET_CLOSE = 0x5d;
const CARET = 0x5e;
const COLON = 0x3a;

/** Position of the "]" that ends the label which "[^" opens at a position, or -1. */
function labelEnd(text, position, end) {
  if (text.charCodeAt(position) !== BRACKET_OPEN || text.charCodeAt(position + 1) !== CARET) return -1;
  const limit = Math.min(end, position + 2 + LABEL_UNITS);
  for (let i = position + 2; i < limit; i++) {
    const unit = text.charCodeAt(i);
    if (unit === BRACKET_CLOSE) return i > position + 2 ? i : -1;
    if (unit === BRACKET_OPEN || unit <= 0x20) return -1;
  }
  return -1;
}

function labelKey(state, label) {
  return state.md.utils.normalizeReference(label);
}

/** Labels that the document defines; made by the first definition. */
function definitions(state) {
  state.env.footnotes ??= new Set();
  return state.env.footnotes;
}

/** Block rule of markdown-it. */
export function footnoteDefinition(state, startLine, endLine, silent) {
  const start = state.bMarks[startLine] + state.tShift[startLine];
  const max = state.eMarks[startLine];
  const end = labelEnd(state.src, start, max);
  if (end < 0 || state.src.charCodeAt(end + 1) !== COLON || state.sCount[startLine] - state.blkIndent >= 4) return false;
  if (silent) return true;

  const label = labelKey(state, state.src.slice(start + 2, end));
  definitions(state).add(label);
  state.push('footnote_open', '', 1).meta = { label };
  parseBody(state, startLine, endLine, end + 2);
  state.push('footnote_close', '', -1);
  return true;
}

/** Parses what follows the label as blocks that are indented by four columns, the first of them on the label's line. */
function parseBody(state, startLine, endLine, bodyStart) {
  const kept = [state.bMarks[startLine], state.tShift[startLine], state.sCount[startLine], state.parentType];
  let pos = bodyStart;
  while (pos < state.eMarks[startLine] && state.md.utils.isSpace(state.src.charCodeAt(pos))) pos++;
  state.bMarks[startLine] = bodyStart;
  state.tShift[startLine] = pos - bodyStart;
  state.blkIndent += 4;
  state.sCount[startLine] = state.blkIndent;
  state.parentType = 'footnote';
  state.md.block.tokenize(state, startLine, endLine, true);
  state.blkIndent -= 4;
  [state.bMarks[startLine], state.tShift[startLine], state.sCount[startLine], state.parentType] = kept;
}

/** Inline rule of markdown-it; a reference without a definition is left as text. */
export function footnoteReference(state, silent) {
  const end = labelEnd(state.src, state.pos, state.posMax);
  if (end < 0 || !state.env.footnotes) return false;
  const label = labelKey(state, state.src.slice(state.pos + 2, end));
  if (!state.env.footnotes.has(label)) return false;
  if (!silent) state.push('footnote_reference', '', 0).meta = { label };
  state.pos = end + 1;
  return true;
}
