/**
 * GFM's extended autolinks: addresses that stand in running text without any markup. Found by scanning for the few
 * things that every one of them holds (":", "www.", "@"), since most text holds none.
 */

const DOMAIN_END = /[^A-Za-z0-9._\-\u0080-\uffff]/g;
const PATH_END = /[\s<]/g;
const TRAILING = new Set(['?', '!', '.', ',', ':', '*', '_', '~', "'", '"']);
const SCHEMES = ['http://', 'https://'];

function endBy(pattern, text, from) {
  pattern.lastIndex = from;
  const match = pattern.exec(text);
  return match === null ? text.length : match.index;
}

/** End of the domain that begins at a position, or -1 where there is no valid one. */
function domainEnd(text, start, { needsDot }) {
  const end = endBy(DOMAIN_END, text, start);
  const domain = text.slice(start, end).replace(/[.-]+$/, '');
  if (domain === '' || domain.length > 253) return -1;
  const segments = domain.split('.');
  if (segments.includes('') || (needsDot && segments.length < 2)) return -1;
  return segments.slice(-2).some((segment) => segment.includes('_')) ? -1 : start + domain.length;
}

/** The end without the punctuation that belongs to the sentence, and without what would unbalance parentheses. */
function trimmedEnd(text, start, end) {
  let surplus = 0;
  for (let i = start; i < end; i++) {
    if (text[i] === ')') surplus++;
    else if (text[i] === '(') surplus--;
  }
  let last = end;
  while (last > start) {
    const character = text[last - 1];
    if (TRAILING.has(character)) last--;
    else if (character === ')' && surplus > 0) {
      surplus--;
      last--;
    } else if (character === ';') {
      const entity = /&[A-Za-z0-9]{1,31};$/.exec(text.slice(Math.max(start, last - 40), last));
      last -= entity === null ? 1 : entity[0].length;
    } else break;
  }
  return last;
}

function webLink(text, start, domainStart, prefix) {
  const domain = domainEnd(text, domainStart, { needsDot: prefix !== '' });
  if (domain < 0) return undefined;
  const end = trimmedEnd(text, start, endBy(PATH_END, text, domain));
  return end <= domainStart ? undefined : { start, end, address: prefix + text.slice(start, end) };
}

// An address begins a word, or follows what opens or closes emphasis or a parenthesis.
function mayBeginAt(text, position) {
  return position === 0 || /[\s*_~("']/.test(text[position - 1]);
}

function linkBeforeColon(text, colon, from) {
  for (const scheme of SCHEMES) {
    const start = colon - scheme.length + 3;
    const isScheme = start >= from && text.slice(start, colon + 3).toLowerCase() === scheme;
    if (isScheme && mayBeginAt(text, start)) return webLink(text, start, colon + 3, '');
  }
  return undefined;
}

/** The mail address around an "@", which reaches back at most to `from`. */
function mailLink(text, at, from) {
  let start = at;
  while (start > from && /[A-Za-z0-9._+-]/.test(text[start - 1])) start--;
  const end = domainEnd(text, at + 1, { needsDot: true });
  if (start === at || end < 0 || /[-_]$/.test(text.slice(0, end).slice(-1))) return undefined;
  const next = endBy(DOMAIN_END, text, at + 1);
  if (/[-_]/.test(text[next - 1])) return undefined;
  const address = `mailto:${text.slice(start, end)}`;
  // A scheme before the address belongs to it; one of a kind that may not be followed leaves all of it text.
  const before = text.slice(Math.max(from, start - 7), start).toLowerCase();
  if (before.endsWith('xmpp:')) return undefined;
  return { start: before === 'mailto:' ? start - 7 : start, end, address };
}

const CANDIDATE = /:\/\/|www\.|@/gi;

/**
 * @returns {{start: number, end: number, address: string}[]} in order, without overlap
 */
export function findAutolinks(text) {
  const links = [];
  let from = 0;
  CANDIDATE.lastIndex = 0;
  for (let match = CANDIDATE.exec(text); match !== null; match = CANDIDATE.exec(text)) {
    const place = match.index;
    let link;
    if (match[0] === '@') link = mailLink(text, place, from);
    else if (match[0] === '://') link = linkBeforeColon(text, place, from);
    else if (mayBeginAt(text, place)) link = webLink(text, place, place, 'http://');
    // What was looked at is not looked at again from a later "@".
    from = Math.max(from, place);
    if (link === undefined) continue;
    links.push(link);
    from = link.end;
    CANDIDATE.lastIndex = Math.max(link.end, place + 1);
  }
  return links;
}
