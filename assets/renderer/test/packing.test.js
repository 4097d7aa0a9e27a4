import assert from 'node:assert/strict';
import { test } from 'node:test';
import { pack } from '../build/pack.js';
import { unpack } from '../src/packing.js';

test('what is packed comes out as it was', () => {
  const rows = ['', 'a', 'abcabcabcabcabcabc', 'a'.repeat(10_000), '\x03\x04\x05 ~\x7f', '\u0400\u045e\u045f\u0460\uffff\0', '\ud83d\ude00'];
  for (const text of rows) assert.equal(unpack(pack(text)), text);
});

test('packed text is ASCII', () => {
  assert.match(pack('\u0416\u00e9\uffff\x80'), /^[\0-\x7e]*$/);
});

test('texts of few letters, at random, come out as they were', () => {
  let state = 20_240;
  const next = (bound) => {
    state = (state * 1_103_515_245 + 12_345) % 2_147_483_648;
    return Math.floor((state / 2_147_483_648) * bound);
  };
  for (let round = 0; round < 200; round++) {
    const text = Array.from({ length: next(3_000) }, () => 'ab\u0430\x03 '[next(5)]).join('');
    assert.equal(unpack(pack(text)), text);
  }
});
