/**
 * The highlighter's grammars: their names, and by which other names documents call them.
 */

import { readdir } from 'node:fs/promises';
import { createRequire } from 'node:module';
import { dirname, join } from 'node:path';

const require = createRequire(import.meta.url);

/** Names of all grammars, sorted. */
export async function grammarNames() {
  const folder = join(dirname(require.resolve('highlight.js/package.json')), 'lib/languages');
  const files = await readdir(folder);
  return files.filter((file) => file.endsWith('.js') && !file.endsWith('.js.js')).map((file) => file.slice(0, -3)).sort();
}

/** "|alias:name" for every name that a grammar goes by, its own first; an alias of two grammars is the first one's. */
export async function grammarAliases(names) {
  const highlighter = require('highlight.js/lib/core');
  const taken = new Map(names.map((name) => [name, name]));
  for (const name of names) {
    const grammar = require(`highlight.js/lib/languages/${name}`)(highlighter);
    for (const alias of grammar.aliases ?? []) {
      if (!taken.has(alias.toLowerCase())) taken.set(alias.toLowerCase(), name);
    }
  }
  return `${[...taken].map(([alias, name]) => `|${alias}:${name}`).join('')}|`;
}
