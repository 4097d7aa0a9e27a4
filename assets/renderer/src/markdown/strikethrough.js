/**
 * GFM's strikethrough: a run of one tilde or of two opens or closes, and a run closes only one of its own length; a run
 * of three or more is text. The parser's own rule knows runs of two and takes longer ones apart.
 */

const TILDE = 0x7e;

// The parser pairs delimiters whose markers are equal, so each length is given a marker of its own.
const MARKERS = [undefined, TILDE, TILDE << 8];

/** Inline rule of markdown-it: a run of tildes becomes text that may yet turn out to be a delimiter. */
export function strikethroughRun(state, silent) {
  if (silent || state.src.charCodeAt(state.pos) !== TILDE) return false;
  const run = state.scanDelims(state.pos, true);
  const token = state.push('text', '', 0);
  token.content = '~'.repeat(run.length);
  if (run.length < MARKERS.length) {
    state.delimiters.push({
      marker: MARKERS[run.length],
      // The rule of three is for emphasis only; a length of zero keeps it away.
      length: 0,
      token: state.tokens.length - 1,
      end: -1,
      open: run.can_open,
      close: run.can_close,
    });
  }
  state.pos += run.length;
  return true;
}

function convert(tokens, delimiters) {
  for (const opening of delimiters) {
    if (opening.end < 0 || !MARKERS.includes(opening.marker)) continue;
    const closing = delimiters[opening.end];
    Object.assign(tokens[opening.token], { type: 's_open', tag: 's', nesting: 1, content: '' });
    Object.assign(tokens[closing.token], { type: 's_close', tag: 's', nesting: -1, content: '' });
  }
}

/** Second inline rule: delimiters that found each other become tags. */
export function strikethroughTags(state) {
  convert(state.tokens, state.delimiters);
  for (const meta of state.tokens_meta) {
    if (meta?.delimiters) convert(state.tokens, meta.delimiters);
  }
}
