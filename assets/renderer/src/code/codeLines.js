/**
 * Code on the page. A run is a text with at most one class; runs lie in a flat list, class and text in turn.
 */

function writeRun(colour, text, writer) {
  if (text === '') return;
  if (colour === '') {
    writer.text(text);
    return;
  }
  writer.open('span', ['class', colour]);
  writer.text(text);
  writer.close();
}

function openLine(writer) {
  writer.open('span', ['class', 'tsr-line']);
}

function nextLine(writer) {
  writer.close();
  writer.put('\n');
  openLine(writer);
}

/** Writes runs; line by line, each line becomes an element of its own, and its end stays outside. */
export function writeRuns(runs, writer, { isLineByLine = false } = {}) {
  if (isLineByLine) openLine(writer);
  for (let i = 0; i < runs.length; i += 2) {
    if (!isLineByLine) {
      writeRun(runs[i], runs[i + 1], writer);
      continue;
    }
    const lines = runs[i + 1].split('\n');
    for (let line = 0; line < lines.length; line++) {
      if (line > 0) nextLine(writer);
      writeRun(runs[i], lines[line], writer);
    }
  }
  if (isLineByLine) writer.close();
}

/** Writes text without colours, line by line. */
export function writePlainLines(text, writer) {
  writeRuns(['', text], writer, { isLineByLine: true });
}
