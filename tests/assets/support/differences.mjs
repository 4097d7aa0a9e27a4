// Lists of known differences: a file of rows, each the number of an example and the reason why its result differs. A list
// is held to be exact in both directions, so that it can neither grow nor go stale unnoticed.

import { readFileSync } from 'node:fs';

/** Reads a list: "#" begins a comment line; every other line is a number, a tab and a reason. */
export function readDifferences(file) {
  const reasons = new Map();
  for (const [index, line] of readFileSync(file, 'utf8').split('\n').entries()) {
    if (line === '' || line.startsWith('#')) continue;
    const [, number, reason] = /^([0-9]+)\t(\S.*)$/.exec(line) ?? [];
    if (reason === undefined) throw new Error(`${file}:${index + 1} is not a number, a tab and a reason`);
    if (reasons.has(Number(number))) throw new Error(`${file}:${index + 1} lists ${number} a second time`);
    reasons.set(Number(number), reason);
  }
  return reasons;
}
