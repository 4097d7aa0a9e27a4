// Random hostile markup, judged by a parser that follows the HTML standard. The seed is fixed, so a failure names a case
// that can be made again; larger runs by hand set TESSARY_HOSTILE_CASES and TESSARY_HOSTILE_SEED.

import assert from 'node:assert/strict';
import { test } from 'node:test';

import { makeBareRenderer } from './support/bareContext.mjs';
import { hostileDocument, hostileSymbols } from './support/hostileMarkup.mjs';
import { reread, violationsOf } from './support/judge.mjs';
import { countFromEnvironment } from './support/places.mjs';
import { Randomness } from './support/randomness.mjs';
import { mapConcurrently, rendered, renderRequest } from './support/renderer.mjs';

const cases = countFromEnvironment('TESSARY_HOSTILE_CASES', 4_000);
const processCases = Math.min(cases, 200);
const seed = countFromEnvironment('TESSARY_HOSTILE_SEED', 20_260_101);

const formats = ['markdown', 'html'];

/** Case `number`: its text and whether remote images may load. */
function hostileCase(number, most) {
  const random = new Randomness(seed + number);
  const text = random.chance(80) ? hostileDocument(random, most) : hostileSymbols(random, most * 8);
  return { text, allowsRemoteImages: random.chance(25) };
}

/** What is wrong with the result for a case; empty when nothing is. */
function faultsOf(html, allowsRemoteImages) {
  const faults = violationsOf(html, { allowsRemoteImages });
  const once = reread(html);
  const again = violationsOf(once, { allowsRemoteImages });
  if (again.length > 0) faults.push(`at a second reading: ${again.join(', ')}`);
  return faults;
}

const report = ({ number, format, text, faults }) =>
  `case ${number} (seed ${seed}) as ${format}: ${faults.join(', ')}\n  ${JSON.stringify(text)}`;

test('hostile documents leave nothing outside the allow-list in the result', () => {
  const render = makeBareRenderer();
  const failures = [];
  for (let number = 0; number < cases && failures.length < 10; number++) {
    const { text, allowsRemoteImages } = hostileCase(number, 16);
    for (const format of formats) {
      const faults = faultsOf(render(renderRequest(format, text, { allowsRemoteImages })).html, allowsRemoteImages);
      if (faults.length > 0) failures.push(report({ number, format, text, faults }));
    }
  }
  assert.equal(failures.length, 0, failures.join('\n'));
});

test('hostile documents of many pieces leave nothing outside the allow-list in what the process writes', async () => {
  const jobs = Array.from({ length: processCases }, (_, number) => ({ number, format: formats[number % 2] }));
  const failures = (await mapConcurrently(jobs, async ({ number, format }) => {
    const { text, allowsRemoteImages } = hostileCase(number, 150);
    const faults = faultsOf((await rendered(format, text, { allowsRemoteImages })).html, allowsRemoteImages);
    return faults.length === 0 ? [] : [report({ number, format, text: text.slice(0, 2_000), faults })];
  })).flat();
  assert.equal(failures.length, 0, failures.join('\n'));
});

test('the judge objects to the same documents before they are rendered', () => {
  let bad = 0;
  for (let number = 0; number < 200; number++) if (violationsOf(hostileCase(number, 16).text).length > 0) bad++;
  assert.ok(bad > 170, `only ${bad} of 200 raw documents are objected to`);
});
