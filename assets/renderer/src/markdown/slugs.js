/**
 * Names of headings, by which links reach them: the heading's text in lower case, without punctuation, with hyphens
 * for blanks; a number where a name comes twice. The way GitHub does it, since documents link to such names by hand.
 */

// Marks below U+00C0 and the blocks of punctuation that occur in headings; letters of every script stay.
const PUNCTUATION = /[\0-\x1f!-,./:-@[-^`{-\xa9\xab-\xb4\xb6-\xb9\xbb-\xbf\xd7\xf7\u2000-\u206f\u2190-\u2bff\u3000-\u3004\u3008-\u3020\u3030\uff01-\uff0f\uff1a-\uff20\uff3b-\uff40\uff5b-\uff65]/g;

export class Slugs {
  constructor() {
    this.uses = new Map();
  }

  /** A name that no earlier heading has. */
  take(heading) {
    const base = heading.trim().toLowerCase().replace(PUNCTUATION, '').replace(/ /g, '-') || 'section';
    let slug = base;
    let count = this.uses.get(base) ?? 0;
    while (this.uses.has(slug)) slug = `${base}-${++count}`;
    this.uses.set(base, count);
    if (slug !== base) this.uses.set(slug, 0);
    return slug;
  }
}
