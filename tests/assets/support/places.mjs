// Where the things under test stand. The build system hands every place over in the environment, so that the tests
// themselves know no path of any machine.

import { createRequire } from 'node:module';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';

/** The value of the environment variable `name`; a test that is started without it fails at once and says which. */
function required(name) {
  const value = process.env[name];
  if (!value) throw new Error(`${name} is not set; CTest sets it`);
  return value;
}

/** Path of the executable that hosts the asset. */
export const rendererExecutable = () => required('TESSARY_RENDERER');

/** Folder that holds `renderer.js`. */
export const assetFolder = () => required('TESSARY_ASSET_FOLDER');

/** Path of the browser's executable. */
export const browserExecutable = () => required('TESSARY_BROWSER');

/** Loads an oracle: a development-only package from the folder into which the lock file was installed. */
export async function oracle(name) {
  const resolve = createRequire(join(required('TESSARY_ORACLES'), 'package.json')).resolve;
  return import(pathToFileURL(resolve(name)).href);
}

/** A whole number from the environment, for runs by hand that are larger than those of CI. */
export function countFromEnvironment(name, otherwise) {
  const text = process.env[name];
  if (!text) return otherwise;
  if (!/^[0-9]+$/.test(text)) throw new Error(`${name} is not a whole number`);
  return Number(text);
}
