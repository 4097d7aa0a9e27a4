// Every grammar of the highlighter over code that is made to cost it more than its length, or to make it give up. Each
// document has to be answered with all of its code shown, coloured or not. Nothing here measures time; death by the
// clock is what fails.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { test } from 'node:test';

import { assetFolder } from './support/places.mjs';
import { Randomness } from './support/randomness.mjs';
import { renderRequest, run } from './support/renderer.mjs';

const lineUnits = 1_000;
const blockUnits = 2_000;
// The largest source that is coloured, and the most code of one document that is.
const sourceBytes = 65_536;
const documentUnits = 131_072;

// What opens, closes, quotes, escapes and joins in some language or other; runs of one of them, and of a few together.
const pieces = ['"', "'", '`', '"""', "'''", '\\', '\\"', '\\\\', '(', ')', '[', ']', '{', '}', '<', '>', '</', '<a ', '<a b="', '</a>', '/*', '*/',
  '//', '/', '#', '##', '--', '<!--', '{-', '(*', '=begin ', '${', '#{', '{{', '{%', '<?', '<%', '%(', 'q{', '<<A', 's/a/', 'm/', '@', '@"', '@@', '$', '$a',
  '$$', '%', '%%', '&', '&a;', '|', '||', '^', '~', '!', '?', '+', '-', '*', '**', '=', '==', '=>', '->', ':', '::', ';', ',', '.', '..', '_', '0', '0x', '1.',
  '1e', '1_', '1,', 'a', 'A', 'aA', 'a1', 'a.', 'a:', 'a::', 'a<', 'a(', 'a=', 'a-', '_a', ' ', '\t', ' a', 'a ', 'a b ', 'a, ', 'a = ', 'class a ',
  'function a(', 'let a = ', 'import a.', 'new a ', 'return ', 'the quick brown ', 'http://a', 'a@b.', '\\begin{a}', '\u00e9', '\ud55c'];

const script = readFileSync(join(assetFolder(), 'renderer.js'), 'latin1');

/** Names of all grammars in the script's index of its parts, with the text of those that are not packed. */
function grammars() {
  const entries = script.matchAll(/\|(packed\/)?language\/([^:|]+):(\d+):(\d+)/g);
  return [...entries].map(([, packed, name, start, end]) => ({
    name, text: packed === undefined ? script.slice(Number(start), Number(end)) : '',
  }));
}

/** Words and marks that the grammar itself names. */
function ownPieces(text) {
  const literals = [...text.matchAll(/["'`]([^"'`\\\n]{1,24})["'`]/g)].map((match) => match[1]);
  return literals.filter((literal) => /^[\x20-\x7d]+$/.test(literal) && literal.trim() !== '');
}

function unit(random, own) {
  const one = () => random.pick(own.length > 0 && random.chance(40) ? own : pieces);
  return Array.from({ length: 1 + random.below(3) }, one).join(random.chance(30) ? ' ' : '');
}

/** Lines of one unit over and over, and what stands before the first of them. */
function filled(random, own, size) {
  const text = unit(random, own);
  const line = text.repeat(Math.max(1, Math.floor((random.chance(50) ? lineUnits : 60) / text.length)));
  let whole = random.chance(50) ? random.pick(pieces) : '';
  while (whole.length + line.length + 1 <= size) whole += `${line}\n`;
  // A stretch of blanks as long as these may become keeps a text plain.
  return whole.trim() === '' ? `a${whole}\n` : `${whole}\n`;
}

const withoutMarkup = (html) => html.replace(/<[^>]*>/g, '').replaceAll('&lt;', '<').replaceAll('&gt;', '>').replaceAll('&amp;', '&');

/** How a run ends. What costs too much dies by the clock every time; on a busy machine anything may die of it once. */
async function page(request, name) {
  for (let attempt = 1; ; attempt++) {
    const ended = await run(request);
    if (ended.signal !== null && attempt < 3) continue;
    assert.equal(ended.signal, null, `${name} was cut off by the clock`);
    assert.equal(ended.status, 0, `${name}: ${ended.output.slice(0, 200)}`);
    return JSON.parse(ended.output).html;
  }
}

const all = grammars();

test('the script names its grammars', () => {
  assert.ok(all.length > 150, `${all.length} grammars`);
  assert.ok(all.filter(({ text }) => ownPieces(text).length > 3).length > 100);
});

// Longer than any line of code here, so that no line of code is its end.
const fence = '~'.repeat(lineUnits + 100);

for (const [index, { name, text }] of all.entries()) {
  const own = ownPieces(text);

  test(`blocks of ${name} are answered whole`, async () => {
    const random = new Randomness(2 * index + 1);
    const blocks = Array.from({ length: Math.floor(documentUnits / blockUnits) - 1 }, () => filled(random, own, blockUnits - 50));
    const html = await page(renderRequest('markdown', blocks.map((block) => `${fence}${name}\n${block}${fence}\n`).join('\n')), name);
    const shown = [...html.matchAll(/<pre [^>]*><code [^>]*>(.*?)<\/code><\/pre>/gs)].map((match) => withoutMarkup(match[1]));
    assert.deepEqual(shown, blocks);
  });

  test(`a source of ${name} is answered whole`, async () => {
    const random = new Randomness(2 * index + 2);
    const long = filled(random, own, sourceBytes);
    // No unit has more than three bytes for each of its own.
    const source = Buffer.byteLength(long) <= sourceBytes ? long : `${long.slice(0, sourceBytes / 4)}\n`;
    const html = await page(renderRequest('code', source, { format: { kind: 'code', language: name } }), name);
    assert.equal(withoutMarkup(/<code>(.*)<\/code>/s.exec(html)[1]), source);
  });
}
