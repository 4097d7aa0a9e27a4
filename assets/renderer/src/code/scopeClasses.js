/**
 * The highlighter's scopes and the colours of the theme. A scope that has no row of its own goes by the part before
 * its last point; one without any row lets the colour around it through.
 */

const CLASSES = {
  keyword: 'tsr-keyword',
  literal: 'tsr-literal',
  number: 'tsr-literal',
  symbol: 'tsr-literal',
  bullet: 'tsr-literal',
  string: 'tsr-string',
  regexp: 'tsr-string',
  'char.escape': 'tsr-escape',
  // What is put into a string is code again.
  subst: '',
  comment: 'tsr-comment',
  quote: 'tsr-comment',
  doctag: 'tsr-doctag',
  meta: 'tsr-meta',
  'meta.prompt': 'tsr-meta',
  title: 'tsr-title',
  section: 'tsr-title',
  type: 'tsr-type',
  built_in: 'tsr-type',
  class: 'tsr-type',
  'title.class': 'tsr-type',
  variable: 'tsr-variable',
  'template-variable': 'tsr-variable',
  property: 'tsr-name',
  attr: 'tsr-name',
  attribute: 'tsr-name',
  name: 'tsr-tag',
  tag: '',
  'selector-tag': 'tsr-tag',
  'selector-id': 'tsr-name',
  'selector-class': 'tsr-name',
  'selector-attr': 'tsr-name',
  'selector-pseudo': 'tsr-name',
  'template-tag': 'tsr-meta',
  link: 'tsr-string',
  code: 'tsr-string',
  addition: 'tsr-added',
  deletion: 'tsr-removed',
  strong: 'tsr-strong',
  emphasis: 'tsr-emphasis',
};

/** The class for a scope such as "title.function", '' for none, absent where the scope has no say. */
export function scopeClass(scope) {
  let name = scope;
  while (name !== '') {
    if (Object.hasOwn(CLASSES, name)) return CLASSES[name];
    name = name.slice(0, Math.max(0, name.lastIndexOf('.')));
  }
  return undefined;
}
