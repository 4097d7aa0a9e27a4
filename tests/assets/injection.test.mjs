// Known ways to inject script, rendered by the process both as Markdown and as HTML, and opened in a browser with
// scripting on. None may run, load, go anywhere or shadow a global. So that the test can fail, the same payloads are
// opened unrendered first: most of them have to be seen doing something.

import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { markdownPayloads, markupPayloads } from './payloads/index.mjs';
import { entries, watchAll } from './support/bench.mjs';
import { Browser } from './support/browser.mjs';
import { violationsOf } from './support/judge.mjs';
import { oracle } from './support/places.mjs';
import { mapConcurrently, rendered } from './support/renderer.mjs';

const { Parser, HtmlRenderer } = (await oracle('commonmark')).default;

/** Markdown as a renderer writes it that trusts its documents. */
const trusted = (text) => new HtmlRenderer().render(new Parser().parse(text));

const jobs = [
  ...markupPayloads.flatMap((payload) => [{ ...payload, format: 'html' }, { ...payload, format: 'markdown' }]),
  ...markdownPayloads.map((payload) => ({ ...payload, format: 'markdown' })),
];

let browser;
let results;

before(async () => {
  [browser, results] = await Promise.all([
    Browser.start(),
    mapConcurrently(jobs, ({ format, text }) => rendered(format, text)),
  ]);
});
after(() => browser?.stop());

test('the bench sees payloads act that nobody has rendered', async () => {
  const raw = [...markupPayloads.map(({ text }) => text), ...markdownPayloads.map(({ text }) => trusted(text))];
  const deeds = await watchAll(browser, raw.map((markup) => ({ markup, entry: 'served' })));
  const acting = deeds.filter((list) => list.length > 0).length;
  const running = deeds.filter((list) => list.includes('runs')).length;
  console.log(`${raw.length} payloads unrendered: ${acting} act, ${running} of them run script`);
  assert.ok(acting > 650, `only ${acting} act`);
  assert.ok(running > 380, `only ${running} run script`);
  for (const deed of ['runs', 'shadows', 'asks for', 'goes to', 'opens a frame']) {
    assert.ok(deeds.some((list) => list.some((one) => one.startsWith(deed))), `nothing was seen of the kind "${deed}"`);
  }
});

test('the bench sees payloads act however they enter a frame', async () => {
  const raw = markupPayloads.filter(({ technique }) => technique.startsWith('handlers: ')).slice(0, 40);
  for (const entry of entries) {
    const deeds = await watchAll(browser, raw.map(({ text }) => ({ markup: text, entry })));
    const running = deeds.filter((list) => list.includes('runs')).length;
    assert.ok(running > 30, `only ${running} of ${raw.length} run when ${entry}`);
  }
});

test('no rendered payload holds anything outside the allow-list', () => {
  const failures = jobs.flatMap(({ technique, format, text }, index) => {
    const violations = violationsOf(results[index].html);
    return violations.length === 0 ? [] : [`${technique}, as ${format}: ${violations.join(', ')}\n  ${JSON.stringify(text)}`];
  });
  assert.equal(failures.length, 0, failures.join('\n'));
});

test('no rendered payload runs, loads, goes anywhere or shadows, however it enters a frame', async () => {
  const deeds = await watchAll(browser,
    results.map(({ html, styleSheet }) => ({ markup: html, styleSheet, entry: 'every way' })), 200);
  const failures = jobs.flatMap(({ technique, format, text }, index) =>
    deeds[index].length === 0 ? [] : [`${technique}, as ${format}: ${deeds[index].join(', ')}\n  ${JSON.stringify(text)}`]);
  console.log(`${jobs.length} payloads rendered: ${failures.length} act`);
  assert.equal(failures.length, 0, failures.join('\n'));
});
