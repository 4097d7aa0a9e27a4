/**
 * The licence texts of the packages whose files are in renderer.js.
 */

import { readdir, readFile } from 'node:fs/promises';
import { join } from 'node:path';

/** "node_modules/a/node_modules/@b/c/x.js" gives "node_modules/a/node_modules/@b/c". */
function packageFolder(input) {
  const match = /^(.*node_modules\/(?:@[^/]+\/)?[^/]+)\//.exec(input);
  return match === null ? undefined : match[1];
}

async function licenceOf(root, folder) {
  const { name, version, license } = JSON.parse(await readFile(join(root, folder, 'package.json'), 'utf8'));
  const files = (await readdir(join(root, folder))).filter((file) => /^(?:licen[cs]e|copying|notice)/i.test(file)).sort();
  if (files.length === 0) throw new Error(`${name} has no licence file`);
  const texts = await Promise.all(files.map((file) => readFile(join(root, folder, file), 'utf8')));
  return `${name} ${version} (${license})\n\n${texts.map((text) => text.trim()).join('\n\n')}\n`;
}

/**
 * @param {Set<string>} inputs paths of the bundled files, relative to the root
 * @returns {Promise<string>} one text, packages in the order of their names
 */
export async function licenceTexts(root, inputs) {
  const folders = new Set([...inputs].map(packageFolder).filter((folder) => folder !== undefined));
  const texts = await Promise.all([...folders].sort().map((folder) => licenceOf(root, folder)));
  return `renderer.js contains the following packages.\n\n${texts.join(`\n${'-'.repeat(72)}\n\n`)}`;
}
