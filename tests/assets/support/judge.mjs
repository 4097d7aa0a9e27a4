// The judge of a result's safety: what its markup may hold, written down here on its own and not taken from the asset,
// and read by a parser that follows the HTML standard. The result is parsed as the contents of an element, as a document
// of its own, and with scripting off, since the three readings differ and a host may do any of them.

import { oracle } from './places.mjs';

const parse5 = await oracle('parse5');

const HTML = parse5.html.NS.HTML;
const MATHML = parse5.html.NS.MATHML;

const words = (text) => new Set(text.split(/\s+/));

const elements = words(`
  a abbr address article aside b bdi bdo big blockquote br caption center cite code col colgroup data dd del details dfn
  div dl dt em figcaption figure footer h1 h2 h3 h4 h5 h6 header hgroup hr i img input ins kbd li main mark nav ol p pre
  q rp rt ruby s samp section small span strike strong sub summary sup table tbody td tfoot th thead time tr tt u ul var
  wbr`);

// A parser makes these itself when it reads a document; they have no attributes then.
const ofTheDocument = words('html head body');

const anywhere = words('id class title lang dir');
const attributes = new Map(Object.entries({
  a: words('href name rel'),
  article: words('data-format'),
  col: words('span'),
  colgroup: words('span'),
  del: words('datetime'),
  details: words('open'),
  div: words('tabindex role aria-label'),
  img: words('src alt width height loading decoding referrerpolicy'),
  input: words('type checked disabled aria-label'),
  ins: words('datetime'),
  li: words('value'),
  ol: words('start reversed type'),
  pre: words('data-language tabindex'),
  section: words('aria-label'),
  span: words('role aria-label'),
  sup: words(''),
  td: words('colspan rowspan align scope'),
  th: words('colspan rowspan align scope'),
  time: words('datetime'),
}));
const none = new Set();

const mathElements = words(`
  math mrow mi mn mo ms mspace mtext mfrac msqrt mroot mstyle merror mpadded mphantom msub msup msubsup munder mover
  munderover mmultiscripts mprescripts none mtable mtr mtd menclose semantics`);
const mathAttributes = words(`
  class style display displaystyle scriptlevel mathvariant mathcolor mathbackground mathsize stretchy fence separator
  form symmetric largeop movablelimits minsize maxsize lspace rspace accent accentunder linethickness width height depth
  voffset columnalign rowalign columnspacing rowspacing columnlines rowlines columnspan rowspan frame framespacing notation
  side rowsep intent arg dir id equalrows equalcolumns align alttext bevelled linebreak`);

const classNames = /^(?:tessary(?:-[a-z]+)?|tsr-[a-z0-9-]+|language-[^ \t\n\f\r]+)$/;
// The names that the formula library itself gives; a document has no say in them.
const mathClassNames = new RegExp('^(?:tml-[a-z0-9-]+|(?:wbk|chr)-[a-z0-9-]+|(?:up|down|x|sout|b|f)?(?:strike|cancel)|' +
  'mathcal|mathscr|mathfrak|mord|phasor-(?:bottom|angle)|longdiv-(?:top|arc)|ff-squash|ff-narrow|circle-pad|actuarial|' +
  'special-fraction|box|roundedbox|circle|cancel|prime-pad)$');
// No brackets, so no function and no address; quotes only around a font's name.
const mathStyle = /^(?:\s*[a-z-]+\s*:\s*(?:[\w#%. ,+-]|'[A-Za-z ]+')+;?)*\s*$/;
// Blanks in the sense of HTML; other blanks are characters like any other there.
const identifiers = /^(?:doc-|tsr-)[^ \t\n\f\r]+$/;
const rasterImage = /^data:image\/(?:png|jpeg|jpg|gif|webp|avif|bmp);base64,[A-Za-z0-9+/]+={0,2}$/i;
const controls = /[\0-\x08\x0b-\x1f\x7f]/;

/** Whether a link may point there: the web, mail, or a place in the document under one of the result's own prefixes. */
function isAllowedLink(address) {
  if (controls.test(address) || /[\t\n]/.test(address)) return false;
  return /^https?:\/\/[^/?#\\\s]/i.test(address) || /^mailto:/i.test(address) || /^#(?:$|doc-|tsr-)/.test(address);
}

const isAllowedImage = (address, allowsRemoteImages) =>
  rasterImage.test(address) || (allowsRemoteImages && !controls.test(address) && /^https?:\/\/[^/?#\\\s]/i.test(address));

const valueRules = {
  href: (value) => isAllowedLink(value),
  src: (value, options) => isAllowedImage(value, options.allowsRemoteImages),
  id: (value) => identifiers.test(value),
  name: (value) => identifiers.test(value),
  class: (value) => value.split(/[ \t\n\f\r]+/).every((name) => classNames.test(name)),
  rel: (value) => value.split(' ').includes('noopener') && value.split(' ').includes('noreferrer'),
};

function judgeHTMLElement(node, options, violations) {
  const own = attributes.get(node.tagName) ?? none;
  for (const { name, value, prefix } of node.attrs) {
    if (prefix || !(anywhere.has(name) || own.has(name))) violations.push(`${node.tagName} has ${name}`);
    else if (valueRules[name] && !valueRules[name](value, options)) violations.push(`${node.tagName} has ${name}="${value}"`);
  }
  const has = (name) => node.attrs.some((attribute) => attribute.name === name);
  const address = node.attrs.find(({ name }) => name === 'href')?.value;
  if (node.tagName === 'a' && address !== undefined && !address.startsWith('#') && !has('rel')) {
    violations.push('a link without rel');
  }
  if (node.tagName === 'input' && node.attrs.find(({ name }) => name === 'type')?.value !== 'checkbox') {
    violations.push('input of another type');
  }
  if (node.tagName === 'input' && !has('disabled')) violations.push('input that is not disabled');
}

const isEquationNumber = (node) => node.tagName === 'span' && node.childNodes.length === 0 && node.attrs.length === 1 &&
  node.attrs[0].name === 'class' && node.attrs[0].value === 'tml-eqn';
const isTextOrEquationNumber = (node) => node.nodeName === '#text' || isEquationNumber(node);

function judgeMathElement(node, violations) {
  if (!mathElements.has(node.tagName)) violations.push(`math element ${node.tagName}`);
  for (const { name, value, prefix } of node.attrs) {
    if (prefix || !mathAttributes.has(name)) violations.push(`math ${node.tagName} has ${name}`);
    else if (name === 'style' && !mathStyle.test(value)) violations.push(`math ${node.tagName} has style="${value}"`);
    else if (name === 'class' && !value.split(/\s+/).every((c) => mathClassNames.test(c))) {
      violations.push(`math ${node.tagName} has class="${value}"`);
    } else if (name === 'id' && !identifiers.test(value)) violations.push(`math ${node.tagName} has id="${value}"`);
  }
  // Text elements of formulas are doors back to HTML; only text may stand behind them, and the empty element that a
  // style sheet fills with an equation's number.
  if (/^m(?:i|n|o|s|text)$/.test(node.tagName) && !node.childNodes.every(isTextOrEquationNumber)) {
    violations.push(`math ${node.tagName} holds more than text`);
  }
}

/** Judges the tree under `root`; `isDocument` lets the elements through that a parser makes itself. */
function judgeTree(root, isDocument, options, violations) {
  const left = [root];
  while (left.length > 0) {
    const node = left.pop();
    if (node.nodeName === '#comment' || (node.nodeName === '#documentType')) violations.push(`a ${node.nodeName}`);
    else if (node.namespaceURI === MATHML) judgeMathElement(node, violations);
    else if (node.tagName !== undefined && node.namespaceURI !== HTML) violations.push(`foreign element ${node.tagName}`);
    else if (node.tagName !== undefined) {
      const isMadeByParser = isDocument && ofTheDocument.has(node.tagName);
      if (isMadeByParser && node.attrs.length > 0) violations.push(`${node.tagName} with attributes`);
      else if (!isMadeByParser && !elements.has(node.tagName)) violations.push(`element ${node.tagName}`);
      else if (!isMadeByParser && !isEquationNumber(node)) judgeHTMLElement(node, options, violations);
    }
    for (const child of node.childNodes ?? []) left.push(child);
  }
}

/** What `html` holds that a result may not, as texts; empty for a good result. */
export function violationsOf(html, options = { allowsRemoteImages: false }) {
  const violations = [];
  judgeTree(parse5.parseFragment(html), false, options, violations);
  judgeTree(parse5.parseFragment(html, { scriptingEnabled: false }), false, options, violations);
  judgeTree(parse5.parse(html), true, options, violations);
  const unique = [...new Set(violations)];
  if (controls.test(html)) unique.push('a control character');
  return unique;
}

/** What a reading by the standard's parser makes of `html`, written out again. */
export const reread = (html) => parse5.serialize(parse5.parseFragment(html));
