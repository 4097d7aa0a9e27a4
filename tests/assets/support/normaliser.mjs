// Brings an example's expected HTML and the result of rendering it to one form, so that what remains different is a
// difference in meaning. Both go through the same parser and the same rules. The rules undo what the asset documents as
// its additions, and take from the expectation what no result may hold; they undo nothing else.

import { oracle } from './places.mjs';

const parse5 = await oracle('parse5');

// White space beside and directly inside these means nothing.
const blocks = new Set(`address article aside blockquote body center dd details div dl dt fieldset figcaption figure footer
  form h1 h2 h3 h4 h5 h6 head header hr html legend li link main menu nav ol p pre section summary table tbody td tfoot th
  thead title tr ul br`.split(/\s+/));

const attributesOf = (node) => new Map(node.attrs.map(({ name, value }) => [name, value]));

const isOwnClass = (name) => name.startsWith('tsr-');

/** A canonical element: name, attributes, children; text children are strings. */
class Element {
  constructor(name, attributes, children) {
    this.name = name;
    this.attributes = attributes;
    this.children = children;
  }
}

const isLinkKept = (address) => /^(?:https?:\/\/[^/?#\\]|mailto:|#)/i.test(address);

/** The attributes of `node` in the common form. */
function commonAttributes(node) {
  const attributes = attributesOf(node);
  // Headings are given anchors, links a relation, blocks of code a name for their language.
  if (/^h[1-6]$/.test(node.tagName)) attributes.delete('id');
  attributes.delete('rel');
  attributes.delete('data-language');
  const classes = (attributes.get('class') ?? '').split(/\s+/).filter((name) => name !== '' && !isOwnClass(name));
  if (classes.length > 0) attributes.set('class', classes.join(' '));
  else attributes.delete('class');
  // Names that the document chose stand under a prefix.
  for (const name of ['id', 'name']) {
    if (attributes.has(name)) attributes.set(name, attributes.get(name).replace(/^doc-/, ''));
  }
  if (node.tagName === 'a' && attributes.has('href')) {
    const address = attributes.get('href').replace(/^#doc-/, '#');
    if (isLinkKept(address)) attributes.set('href', address);
    // A target that is not allowed is taken away, and the link stays a link without one.
    else attributes.delete('href');
  }
  return attributes;
}

/** The element or elements that stand for `node` in the common form. */
function commonElements(node, children) {
  const classes = (attributesOf(node).get('class') ?? '').split(/\s+/);
  const attributes = commonAttributes(node);
  if (node.tagName === 'article' && classes.includes('tessary')) return children;
  // Tables lie in a box that scrolls.
  if (node.tagName === 'div' && classes.includes('tsr-table')) return children;
  // An image that is not shown is its alternative text in a box; which address it had does not matter then.
  if (node.tagName === 'span' && classes.includes('tsr-image')) {
    return [new Element('image', new Map([...attributes, ['alt', textOf(children)]]), [])];
  }
  if (node.tagName === 'img' && !/^https?:/i.test(attributes.get('src') ?? '')) {
    attributes.delete('src');
    return [new Element('image', attributes, [])];
  }
  if (node.tagName === 'img') {
    for (const name of ['loading', 'decoding', 'referrerpolicy']) attributes.delete(name);
  }
  // Colours of highlighted code.
  if (node.tagName === 'span' && classes.some(isOwnClass)) return children;
  return [new Element(node.tagName, attributes, children)];
}

const textOf = (children) => children.map((child) => (typeof child === 'string' ? child : textOf(child.children))).join('');

function canonicalChildren(node) {
  const children = [];
  for (const child of (node.content ?? node).childNodes) {
    const made = child.nodeName === '#text' ? [child.value]
      : child.nodeName === '#comment' ? [new Element('comment', new Map([['text', child.data]]), [])]
      : child.tagName !== undefined ? commonElements(child, canonicalChildren(child)) : [];
    for (const one of made) {
      const last = children.length - 1;
      if (typeof one === 'string' && typeof children[last] === 'string') children[last] += one;
      else children.push(one);
    }
  }
  return children;
}

const isBlock = (child) => child === undefined || (typeof child !== 'string' && blocks.has(child.name));

/** Takes away white space that means nothing: beside blocks, and at the edges of one. */
function trimmed(children, isInsideBlock) {
  return children.map((child, index) => {
    if (typeof child !== 'string') {
      if (child.name !== 'pre') child.children = trimmed(child.children, isBlock(child));
      return child;
    }
    let text = child.replace(/[ \t\n\r\f]+/g, ' ');
    const before = index === 0 ? isInsideBlock : isBlock(children[index - 1]);
    const after = index === children.length - 1 ? isInsideBlock : isBlock(children[index + 1]);
    if (before) text = text.replace(/^ /, '');
    if (after) text = text.replace(/ $/, '');
    return text;
  }).filter((child) => child !== '');
}

function written(child) {
  if (typeof child === 'string') return JSON.stringify(child);
  const attributes = [...child.attributes].sort(([a], [b]) => (a < b ? -1 : 1));
  const list = attributes.map(([name, value]) => ` ${name}=${JSON.stringify(value)}`).join('');
  return `<${child.name}${list}>[${child.children.map(written).join(' ')}]`;
}

/** The common form of `html`, as one line of text. */
export function normalised(html) {
  return trimmed(canonicalChildren(parse5.parseFragment(html)), true).map(written).join(' ');
}
