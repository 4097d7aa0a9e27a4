/**
 * The entry: sets the one global that the process calls.
 */

import { loadPart, partText } from './parts.js';
import { render } from './render.js';

const parts = { load: loadPart, text: partText };

globalThis.TessaryOfflineRenderer = Object.freeze({
  /**
   * @param {unknown} request the parsed request
   * @param {unknown} token a text that the document cannot know
   */
  render: (request, token) => render(request, token, parts),
});
