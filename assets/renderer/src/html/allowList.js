/**
 * What a document's markup may contribute to a result. Whatever is not named here loses its tags and keeps its text;
 * what is named under DROPPED goes with all that it contains.
 */

const TABLE_CELL = ['colspan', 'rowspan', 'align', 'scope'];

/** Elements, each with the attributes that it may have besides GLOBAL_ATTRIBUTES. */
export const ELEMENTS = new Map([
  ...'abbr address article aside b bdi bdo big caption center cite code dd dfn div dl dt em figcaption figure'.split(' ').map((name) => [name, []]),
  ...'footer h1 h2 h3 h4 h5 h6 header hgroup hr i kbd main mark nav p pre rp rt ruby s samp section small'.split(' ').map((name) => [name, []]),
  ...'span strike strong sub summary sup table tbody tfoot thead tr tt u var wbr br ul'.split(' ').map((name) => [name, []]),
  ['a', ['href', 'name']],
  ['blockquote', []],
  ['col', ['span']],
  ['colgroup', ['span']],
  ['data', []],
  ['del', ['datetime']],
  ['details', ['open']],
  ['img', []],
  ['ins', ['datetime']],
  ['li', ['value']],
  ['ol', ['start', 'reversed', 'type']],
  ['q', []],
  ['td', TABLE_CELL],
  ['th', TABLE_CELL],
  ['time', ['datetime']],
]);

/** Attributes of every element. */
export const GLOBAL_ATTRIBUTES = ['id', 'title', 'lang', 'dir'];

/** Elements that are never written and whose contents go with them. */
export const DROPPED = new Set(
  ('script style title textarea xmp noscript iframe noembed noframes plaintext template svg math object applet audio ' +
    'video canvas select datalist map frameset portal dialog').split(' '),
);

/** Dropped elements that have no contents. */
export const DROPPED_VOID = new Set('area base basefont bgsound embed frame input keygen link meta param source track'.split(' '));

/** Elements of the allow-list that have no contents. */
export const VOID = new Set(['br', 'col', 'hr', 'img', 'wbr']);

const NUMBER = /^\d{1,5}$/;

/** Attributes whose value must have a form; of all others any text will do. */
export const VALUE_FORMS = {
  align: /^(?:left|right|center|justify)$/i,
  colspan: /^\d{1,3}$/,
  rowspan: /^\d{1,3}$/,
  span: /^\d{1,3}$/,
  start: /^-?\d{1,9}$/,
  value: /^-?\d{1,9}$/,
  width: NUMBER,
  height: NUMBER,
  type: /^[1aAiI]$/,
  dir: /^(?:ltr|rtl|auto)$/i,
  lang: /^[A-Za-z]{1,8}(?:-[A-Za-z0-9]{1,8}){0,4}$/,
  scope: /^(?:row|col|rowgroup|colgroup)$/i,
  datetime: /^[\w:+. -]{1,40}$/,
};
