/**
 * Where a document may point. A reader follows a link knowingly, so the web and mail are allowed, and places in the
 * document itself; everything else (scripts, files, relative paths, which would be read against the host's own
 * address) loses its target.
 */

import { ADDRESS_UNITS } from '../limits.js';

/** Before every identifier that a document chose, so that none of them is one of the host's. */
export const IDENTIFIER_PREFIX = 'doc-';

const WEB = /^https?:\/\/[^/?#\\]/i;
const MAIL = /^mailto:/i;

/**
 * The address as a browser reads it: tabs and line ends vanish, and so do control characters and blanks at the ends.
 * Empty where it is too long to be one.
 */
function canonicalAddress(address) {
  if (address.length > ADDRESS_UNITS) return '';
  return address.replace(/[\t\n\r]/g, '').replace(/^[\0- ]+/, '').trimEnd();
}

/** An absolute http or https address, or absent. */
export function webAddress(address) {
  const canonical = canonicalAddress(address);
  return WEB.test(canonical) ? canonical : undefined;
}

/** The identifier under its prefix, or absent where nothing is left of it. */
export function prefixedIdentifier(identifier) {
  const compact = identifier.replace(/[\t\n\r\f ]/g, '');
  return compact === '' || compact.length > 256 ? undefined : IDENTIFIER_PREFIX + compact;
}

function fragmentTarget(fragment) {
  let identifier = fragment;
  try {
    identifier = decodeURIComponent(fragment);
  } catch {
    // A stray percent sign stands for itself.
  }
  const prefixed = prefixedIdentifier(identifier);
  return prefixed === undefined ? '#' : `#${encodeURIComponent(prefixed)}`;
}

/**
 * The attributes of a link to that address; none where it may not be followed.
 * @returns {string[]} names and values in turn
 */
export function linkAttributes(address) {
  const canonical = canonicalAddress(address);
  if (canonical.charCodeAt(0) === 0x23) return ['href', fragmentTarget(canonical.slice(1))];
  if (WEB.test(canonical) || MAIL.test(canonical)) return ['href', canonical, 'rel', 'noopener noreferrer nofollow'];
  return [];
}
