/**
 * The footnotes of one document as they are written: numbers go by first reference, and each note leads back to the
 * places that refer to it.
 */

// A note that is referred to more often leads back to the first of them only.
const MAX_RETURNS = 32;

export class FootnoteList {
  constructor() {
    // Label to the range of tokens that the note consists of.
    this.definitions = new Map();
    // Label to number and count of references, in the order of the numbers.
    this.used = new Map();
  }

  /** Remembers the definition that begins at a token; the first one of a label counts. Returns its last token. */
  define(tokens, open) {
    let depth = 0;
    let i = open;
    do {
      if (tokens[i].type === 'footnote_open') depth++;
      else if (tokens[i].type === 'footnote_close') depth--;
      i++;
    } while (depth > 0);
    const { label } = tokens[open].meta;
    if (!this.definitions.has(label)) this.definitions.set(label, { tokens, start: open + 1, end: i - 1 });
    return i - 1;
  }

  writeReference(label, writer) {
    if (!this.used.has(label)) this.used.set(label, { number: this.used.size + 1, references: 0 });
    const note = this.used.get(label);
    note.references++;
    writer.open('sup', ['class', 'tsr-reference']);
    writer.open('a', ['href', `#tsr-note-${note.number}`, 'id', referenceIdentifier(note.number, note.references)]);
    writer.text(String(note.number));
    writer.close();
    writer.close();
  }

  /** Writes the notes that were referred to; a note may itself refer to notes, which then follow it. */
  write(markdownWriter) {
    if (this.used.size === 0) return;
    const { writer } = markdownWriter;
    writer.open('section', ['class', 'tsr-notes']);
    writer.open('ol');
    writer.put('\n');
    // A map's iteration reaches entries that are added during it.
    for (const [label, note] of this.used) {
      const definition = this.definitions.get(label);
      if (definition === undefined) continue;
      writer.open('li', ['id', `tsr-note-${note.number}`]);
      writer.put('\n');
      markdownWriter.writeBlocks(definition.tokens, definition.start, definition.end);
      writeReturns(note, writer);
      writer.close();
      writer.put('\n');
    }
    writer.close();
    writer.close();
    writer.put('\n');
  }
}

function referenceIdentifier(number, reference) {
  return reference === 1 ? `tsr-reference-${number}` : `tsr-reference-${number}-${reference}`;
}

function writeReturns(note, writer) {
  const count = note.references > MAX_RETURNS ? 1 : note.references;
  for (let reference = 1; reference <= count; reference++) {
    writer.open('a', ['href', `#${referenceIdentifier(note.number, reference)}`, 'class', 'tsr-return']);
    writer.text('\u21a9\ufe0e');
    writer.close();
  }
}
