/**
 * End tags that HTML lets an author leave out: which open element ends where another begins. Only as far as the
 * elements of the allow-list need it.
 */

const BLOCKS =
  'address article aside blockquote center details div dl figcaption figure footer h1 h2 h3 h4 h5 h6 header hgroup hr ' +
  'main nav ol p pre section table ul';

const rows = [
  ['li', 'p li'],
  ['dt', 'p dt dd'],
  ['dd', 'p dt dd'],
  ['rt', 'rt rp'],
  ['rp', 'rt rp'],
  ['tr', 'p tr td th caption colgroup'],
  ['td', 'p td th'],
  ['th', 'p td th'],
  ['thead', 'p tr td th caption colgroup tbody thead tfoot'],
  ['tbody', 'p tr td th caption colgroup tbody thead tfoot'],
  ['tfoot', 'p tr td th caption colgroup tbody thead tfoot'],
  ...BLOCKS.split(' ').map((name) => [name, 'p']),
];

const ENDS = new Map(rows.map(([name, ended]) => [name, new Set(ended.split(' '))]));

/** Whether the open element ends where the other one begins. */
export function endsBefore(open, beginning) {
  return ENDS.get(beginning)?.has(open) ?? false;
}
