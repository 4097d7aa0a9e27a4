/**
 * Code on the page. A run is a text with at most one class; runs lie in a flat list, class and text in turn.
 */

import { escapeText } from '../output/escape.js';

// Elements of code are nested in no other way than here, and there are thousands of them: their tags are written as they
// are, not kept on the writer's stack.
const LINE_BEGIN = '<span class="tsr-line">';
const LINE_END = '</span>';

function writeRun(colour, text, writer) {
  if (colour === '') writer.text(text);
  else if (text !== '') writer.put(`<span class="${colour}">${escapeText(text)}</span>`);
}

/** Writes runs. */
export function writeRuns(runs, writer) {
  for (let i = 0; i < runs.length; i += 2) writeRun(runs[i], runs[i + 1], writer);
}

/** Writes runs line by line: each line becomes an element of its own, and its end stays outside. */
export function writeLines(runs, writer) {
  writer.put(LINE_BEGIN);
  for (let i = 0; i < runs.length; i += 2) {
    const text = runs[i + 1];
    let start = 0;
    for (let end = text.indexOf('\n'); end >= 0; end = text.indexOf('\n', start)) {
      writeRun(runs[i], text.slice(start, end), writer);
      writer.put(`${LINE_END}\n${LINE_BEGIN}`);
      start = end + 1;
    }
    writeRun(runs[i], start === 0 ? text : text.slice(start), writer);
  }
  writer.put(LINE_END);
}

/** Writes text without colours, line by line. */
export function writePlainLines(text, writer) {
  writeLines(['', text], writer);
}
