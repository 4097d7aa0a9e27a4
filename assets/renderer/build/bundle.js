/**
 * esbuild, set up for the three kinds of script that renderer.js is made of.
 */

import { readFile } from 'node:fs/promises';
import { join } from 'node:path';
import * as esbuild from 'esbuild';
import { withLazyModes } from './lazyHighlighter.js';

const COMMON = {
  bundle: true,
  minify: true,
  write: false,
  metafile: true,
  // Escaped where it is laid out; packed parts are not.
  charset: 'utf8',
  legalComments: 'none',
  platform: 'neutral',
  mainFields: ['module', 'main'],
  conditions: ['import'],
  target: 'es2022',
};

const SHIMS = {
  'linkify-it': 'src/shims/noLinkify.js',
  'punycode.js': 'src/shims/noPunycode.js',
  'uc.micro': 'src/shims/unicodeClasses.js',
};

// The table of named character references is a part of its own. The Markdown parser puts off loading it until a text
// holds one; the tokenizer wants it at once.
const sharedEntities = (root) => ({
  name: 'shared-entities',
  setup(build) {
    const shimFor = (shim, user) => ({ importer }) =>
      importer.includes(`/${user}/`) ? { path: join(root, 'src/shims', shim) } : undefined;
    build.onResolve({ filter: /^entities$/ }, shimFor('lazyEntities.js', 'markdown-it'));
    build.onResolve({ filter: /^entities\/lib\/decode\.js$/ }, shimFor('sharedEntities.js', 'htmlparser2'));
  },
});

const lazyHighlighter = {
  name: 'lazy-highlighter',
  setup(build) {
    build.onLoad({ filter: /highlight\.js\/lib\/core\.js$/ }, async ({ path }) => ({
      contents: withLazyModes(await readFile(path, 'utf8')),
    }));
  },
};

function substitutes(root) {
  const alias = Object.fromEntries(Object.entries(SHIMS).map(([name, path]) => [name, join(root, path)]));
  // The package's entry draws in its parser, its tree and more; the tokenizer stands alone.
  alias.htmlparser2 = join(root, 'src/shims/tokenizerOnly.js');
  return { alias, plugins: [sharedEntities(root), lazyHighlighter] };
}

async function script(root, options, inputs) {
  const result = await esbuild.build({ ...COMMON, absWorkingDir: root, ...options });
  for (const input of Object.keys(result.metafile.inputs)) inputs.add(input);
  return result.outputFiles[0].text.trim();
}

export const bundle = {
  /** The program that is parsed at once: flat, since an engine parses a function around it twice. */
  program: (root, entry, inputs) => script(root, { entryPoints: [entry], format: 'esm' }, inputs),

  /** A part: a function body that takes `loadPart` and returns the exports of its module. */
  async part(root, entry, inputs) {
    const options = { entryPoints: [entry], format: 'iife', globalName: 'part', ...substitutes(root) };
    return `${await script(root, options, inputs)}return part`;
  },

  /** A grammar of the highlighter, as a part. */
  async grammar(root, name, inputs) {
    const contents = `export { default } from 'highlight.js/lib/languages/${name}';`;
    const stdin = { contents, resolveDir: root, sourcefile: `${name}.js` };
    return `${await script(root, { stdin, format: 'iife', globalName: 'part' }, inputs)}return part`;
  },
};

export async function minifyStyle(style) {
  const { code } = await esbuild.transform(style, { loader: 'css', minify: true, charset: 'ascii', legalComments: 'none' });
  return code.trim();
}

