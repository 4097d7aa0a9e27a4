// Rendering inside this process, for counts of documents that one process each would make too slow. The context is as
// bare as the real one: the language's own globals and a frozen console, nothing of node. It is another engine, so what
// it proves about safety counts beside the real process and not in its place.

import { randomBytes } from 'node:crypto';
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import vm from 'node:vm';

import { assetFolder } from './places.mjs';

// Contexts are replaced after this many documents, so that state which a document left behind would show itself, and
// would not last.
const documentsPerContext = 200;

/** Makes a function that renders a request and returns its result, as the real process would hand it out. */
export function makeBareRenderer() {
  const script = new vm.Script(readFileSync(join(assetFolder(), 'renderer.js'), 'utf8'), { filename: 'renderer.js' });
  let context = null;
  let left = 0;
  return (request) => {
    if (left === 0) {
      context = vm.createContext({});
      vm.runInContext('var console = Object.freeze({log(){},warn(){},error(){}});', context);
      script.runInContext(context);
      left = documentsPerContext;
    }
    left -= 1;
    context.requestText = JSON.stringify(request);
    context.token = randomBytes(32).toString('hex').toUpperCase();
    const answer = vm.runInContext('JSON.stringify(TessaryOfflineRenderer.render(JSON.parse(requestText), token))',
      context, { timeout: 20_000 });
    return JSON.parse(answer);
  };
}
