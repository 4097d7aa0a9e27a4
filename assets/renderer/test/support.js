/**
 * The built script in a bare context, as the process runs it; and the pieces that tests of single modules share.
 */

import { readFileSync } from 'node:fs';
import vm from 'node:vm';

export const TOKEN = '7d0f2a51-93c4-4e08-b1aa-1f6a5e5b7c11';

const assetPath = process.env.TESSARY_RENDERER_ASSET ?? new URL('../dist/renderer.js', import.meta.url);

/** A fresh context with nothing but the language, in which the script has been evaluated. */
function freshContext() {
  const context = vm.createContext(Object.create(null));
  vm.runInContext('var console=Object.freeze({log:function(){},warn:function(){},error:function(){}});', context);
  vm.runInContext(readFileSync(assetPath, 'latin1'), context);
  return context;
}

/** The result for any request, as the process would write it; `before` is a script that runs ahead of it. */
export function renderRequest(request, token = TOKEN, before = '') {
  const context = freshContext();
  vm.runInContext(before, context);
  context.input = JSON.stringify(request);
  context.token = token;
  return JSON.parse(vm.runInContext('JSON.stringify(TessaryOfflineRenderer.render(JSON.parse(input), token))', context));
}

/** The result for a document. */
export function renderText(text, kind, options = {}) {
  const { language, ...others } = options;
  return renderRequest({ operation: 'render', text, format: { kind, language }, ...others });
}

/** The HTML inside the article. */
export function body(result) {
  const match = /^<article [^>]*>\n(.*)<\/article>$/s.exec(result.html);
  if (match === null) throw new Error(`no article: ${result.html.slice(0, 80)}`);
  return match[1];
}

export function markdown(text, options) {
  return body(renderText(text, 'markdown', options));
}

export function html(text, options) {
  return body(renderText(text, 'html', options));
}
