/**
 * Front matter: the block between "---" lines that opens a document. It is meant for programs, so it is read only as
 * far as a reader profits: the keys of the outermost level, each with the text that belongs to it.
 */

const MAX_ROWS = 64;

// The name of a key: a word of any script, perhaps with blanks in it, before a colon.
const KEY = /^([^\s#:[\]{},"'`&*!|>%@-][^:]{0,79}|"[^"]{1,80}"|'[^']{1,80}'):(?:[ \t]+(.*))?$/;

function unquoted(value) {
  const text = value.trim();
  const quote = text[0];
  const isQuoted = text.length > 1 && (quote === '"' || quote === "'") && text.endsWith(quote);
  return isQuoted ? text.slice(1, -1) : text;
}

/** "[a, b]" and "- a" as lines of their own. */
function valueText(first, more) {
  if (more.length === 0) {
    const isList = first.startsWith('[') && first.endsWith(']');
    return isList ? first.slice(1, -1).split(',').map(unquoted).join('\n') : unquoted(first);
  }
  const lines = more.map((line) => (/^\s*- /.test(line) ? unquoted(line.trim().slice(2)) : line.trim()));
  const isBlockMarker = first === '' || /^[|>][+-]?$/.test(first);
  return (isBlockMarker ? lines : [first, ...lines]).join('\n');
}

/** The rows, or absent where the lines are no mapping. */
function readRows(lines) {
  const rows = [];
  for (const line of lines) {
    if (line.trim() === '' || line.trimStart().startsWith('#')) continue;
    const isContinuation = /^[ \t]/.test(line) || line.startsWith('- ');
    const key = isContinuation ? null : KEY.exec(line.trimEnd());
    if (key !== null) rows.push({ key: unquoted(key[1]), first: (key[2] ?? '').trim(), more: [] });
    else if (rows.length > 0) rows[rows.length - 1].more.push(line);
    else return undefined;
  }
  return rows.length === 0 ? undefined : rows;
}

/**
 * @param {string} text line ends are "\n"
 * @returns {{rows: {key: string, value: string}[], bodyStart: number} | undefined} absent where the document has none
 */
export function readFrontMatter(text) {
  const opening = /^\ufeff?---[ \t]*\n/.exec(text);
  if (opening === null) return undefined;
  const lines = [];
  let start = opening[0].length;
  while (start < text.length) {
    const newline = text.indexOf('\n', start);
    const end = newline < 0 ? text.length : newline;
    const line = text.slice(start, end);
    start = end + 1;
    if (line.length < 64 && /^(?:---|\.\.\.)[ \t]*$/.test(line)) {
      const rows = readRows(lines)?.slice(0, MAX_ROWS);
      return rows && { rows: rows.map((row) => ({ key: row.key, value: valueText(row.first, row.more) })), bodyStart: start };
    }
    lines.push(line);
  }
  return undefined;
}
