// Every payload, by technique. A payload calls `fired()` where it runs, asks for something of the machine `loads.test`
// where it loads or goes somewhere, and makes a global `shadowed` where it shadows.

import { addressPayloads } from './addresses.mjs';
import { handlerPayloads } from './handlers.mjs';
import { markdownPayloads } from './markdown.mjs';
import { mutationPayloads } from './mutations.mjs';
import { scriptPayloads } from './scripts.mjs';

/** Payloads that are markup: they are rendered both as an HTML document and as Markdown. */
export const markupPayloads = [...handlerPayloads, ...scriptPayloads, ...addressPayloads, ...mutationPayloads];

export { markdownPayloads };
