/**
 * Builds renderer.js, and the licence texts of what is in it, into the folder named by --out.
 *
 * The result is laid out for a process that lives for one document: a small program that is parsed at once, and in
 * front of it everything else as one comment (see src/parts.js), from which the program cuts what a document needs.
 */

import { mkdir, readFile, writeFile } from 'node:fs/promises';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { parseArgs } from 'node:util';
import { bundle, minifyStyle } from './bundle.js';
import { grammarAliases, grammarNames } from './grammars.js';
import { layOut } from './layout.js';
import { licenceTexts } from './licences.js';

const root = dirname(dirname(fileURLToPath(import.meta.url)));
// The process refuses a larger file.
const MAX_BYTES = 4_194_304;

const CODE_PARTS = {
  markdown: 'src/markdown/markdown.js',
  html: 'src/html/html.js',
  entities: 'src/entities.js',
  highlighter: 'src/code/highlighter.js',
  formulas: 'src/formulas/formulaMarkup.js',
};

async function coldParts(inputs) {
  const parts = new Map();
  parts.set('style', await minifyStyle(await readFile(join(root, 'src/style.css'), 'utf8')));
  for (const [name, entry] of Object.entries(CODE_PARTS)) parts.set(name, await bundle.part(root, entry, inputs));
  const names = await grammarNames();
  parts.set('languageAliases', await grammarAliases(names));
  for (const name of names) parts.set(`language/${name}`, await bundle.grammar(root, name, inputs));
  return parts;
}

const { values } = parseArgs({ options: { out: { type: 'string', default: join(root, 'dist') } } });
const inputs = new Set();
const program = await bundle.program(root, 'src/main.js', inputs);
const script = layOut(program, await coldParts(inputs));
if (script.length > MAX_BYTES) throw new Error(`renderer.js holds ${script.length} bytes, more than ${MAX_BYTES}`);
await mkdir(values.out, { recursive: true });
await writeFile(join(values.out, 'renderer.js'), script);
await writeFile(join(values.out, 'LICENSES.txt'), await licenceTexts(root, inputs));
console.log(`renderer.js: ${script.length} bytes, of which ${program.length} are parsed at once`);
