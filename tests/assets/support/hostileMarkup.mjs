// Random hostile markup by a grammar. A document is a run of pieces, each of which may be well formed, half formed, or a
// mixture that some parser has been fooled by: tags in tags, attributes that never end, entities in every spelling,
// foreign content, raw text, comments that end early, and Markdown around and across all of it.

const names = `a abbr acronym address animate annotation-xml applet area article audio b base bdo blockquote body br button
  canvas caption center code col colgroup dd del desc details dialog div dl dt em embed fieldset figure font foreignObject
  form frame frameset g h1 h2 head hr html i iframe image img input ins isindex kbd keygen label li link listing main
  maction malignmark map mark marquee math menu meta mglyph mi mn mo ms mtext nobr noembed noframes noscript object ol
  optgroup option p param picture plaintext pre q rb rp rt rtc ruby s script section select set slot source span strike
  strong style sub summary sup svg table tbody td template textarea tfoot th thead time title tr track tt u ul use var
  video wbr xmp x-y svg:a __proto__ constructor`.split(/\s+/);

const attributeNames = `href src srcset srcdoc id name class style title alt onclick onerror onload onfocus onmouseover
  autofocus tabindex xlink:href xmlns xmlns:xlink xml:base action formaction form target rel ping background poster data
  cite longdesc usemap http-equiv content charset colspan rowspan align width height start type value checked open
  contenteditable is slot shadowrootmode encoding attributename to values begin dir lang datetime reversed scope span
  __proto__ constructor`.split(/\s+/);

const values = ['javascript:fired()', 'JaVaScRiPt:fired()', 'java&Tab;script:fired()', '&#106;avascript&colon;fired()',
  '\u0001javascript:fired()', 'data:text/html,<script>fired()</script>', 'data:image/svg+xml,<svg onload=fired()>',
  'data:image/png;base64,iVBORw0KGgo=', 'data:image/png;base64,"><script>', 'http://loads.test/a', '//loads.test/a',
  'https://a.example/?a=1&b=2', 'mailto:a@b.example', '#a', '#', '#%', '#doc-a', '#tsr-note-1', 'a', '', ' ', '0', '1',
  'tsr-line', 'tessary', 'hljs', 'tml-tag', 'javascript&#58;fired()', 'https:\\\\a.example', 'https:a', 'http:///a',
  'fired()', 'alert`1`', 'url(http://loads.test/a)', '&quot;onclick=fired()', '"', "'", '`', '>', '<', '--&gt;', ']]>',
  '</style>', '</title><script>fired()</script>', '\u2028', '\0', 'ltr', 'en', 'left', 'right" onclick="fired()', '1e9',
  'text/html', 'image/svg+xml', '0;url=javascript:fired()', 'open', 'closed', 'body', 'document', 'attributes'];

const entities = ['&lt;', '&gt;', '&amp;', '&quot;', '&#39;', '&#x3c;', '&#60', '&LT', '&lt', '&amp;lt;', '&Tab;', '&colon;',
  '&#0;', '&#x80;', '&#xD800;', '&#x110000;', '&#99999999999;', '&nosuch;', '&', '&#', '&#x', '&nbsp;', '&ThickSpace;',
  '&notit;', '&bne;', '&fjlig;'];

const texts = ['text', 'a b', ' ', '\n', '\n\n', '\t', '<', '>', '<<', '</', '<!', '<?', '&', '"', "'", '`', '=', '/', '\0', '\f',
  '\r', '\r\n', '\u0001', '\u007f', '\u0085', '\u00a0', '\u2028', '\ufeff', '\ufffe', '\u{1f600}', '\ud55c\uae00', '\u202e', '\u0338',
  'fired()', '{{x}}', '${x}', '0'.repeat(64), 'A'.repeat(64)];

const classics = ['<math><mtext><table><mglyph><style><!--</style><img title="--&gt;&lt;img src=x: onerror=fired()&gt;">',
  '<svg></p><style><a id="</style><img src=x: onerror=fired()>">', '<noscript><p title="</noscript><img src=x: onerror=fired()>">',
  '<form><math><mtext></form><form><mglyph><style></math><img src=x: onerror=fired()>', '<!--><img src=x: onerror=fired()>-->',
  '<svg><![CDATA[><img src=x: onerror=fired()>]]></svg>', '<a href="javascript:fired()"><table><a href="javascript:fired()">',
  '<math><annotation-xml encoding="text/html"><style><img title="</style><img src=x: onerror=fired()>"></style>',
  '<template><style></template></style><img src=x: onerror=fired()>', '<select><style></select><img src=x: onerror=fired()></style>',
  '<xmp><p title="</xmp><img src=x: onerror=fired()>">', '<textarea></textarea/><img src=x: onerror=fired()>',
  '<script><!--<script></script><img src=x: onerror=fired()>--></script>', '<plaintext><img src=x: onerror=fired()>',
  '<b><p></b><script>fired()</script>', '<style><!--</style><img src=x: onerror=fired()>-->'];

const markdown = ['[text](javascript:fired())', '![text](http://loads.test/a)', '![a"b](x "t\\"t")', '<https://a.example/"onclick=>',
  '[text][a]\n\n[a]: javascript:fired() "<b>"\n', '`', '```', '```"><b>\n', '~~~ a b\n', '    ', '> ', '- ', '1. ', '- [x] ', '# ', '***',
  '**', '_', '~~', '~', '|a|b|\n|-|-|\n|', '\n---\n', '---\ntitle: <b>\n---\n', '[^a]', '\n[^a]: note <b>\n\n', '[^__proto__]', '$x$', '$$x$$',
  '$\\text{<b>}$', '$\\href{javascript:fired()}{x}$', '$\\frac', '$', '$$', '\\', '\\<', '  \n', '\\\n', '[', ']', '](', ')', '![', '(<', '>)',
  'http://a.example/<b>', 'www.a.example"', 'a@b.example', '<a@b.example>', '<!-- ', ' -->', '<?', '?>', '<![CDATA[', ']]>', ':-:|',
  '\n\n<div>\n\n', '\n\n</div>\n\n', '\n\n<pre>\n', '</pre>', '\n    <b>\n'];

const formulaPieces = ['\\frac{', '\\sqrt[', '\\text{', '\\mathrm{', '\\mbox{', '\\href{javascript:fired()}{', '\\url{javascript:fired()}',
  '\\includegraphics{http://loads.test/a}', '\\class{" onclick="fired()}{', '\\style{background:url(//loads.test/a)}{', '\\htmlId{shadowed}{',
  '\\htmlData{a=b}{', '\\id{shadowed}{', '\\data{a=b}{', '\\tag{', '\\label{shadowed', '\\ref{shadowed}', '\\eqref{a}', '\\color{red}', '\\textcolor{#f00}{',
  '\\colorbox{"onclick="fired()}{', '\\definecolor{a}{HTML}{ff0000}', '\\begin{matrix}', '\\end{matrix}', '\\begin{align}', '\\end{align}',
  '\\begin{array}{c|"c}', '\\end{array}', '\\begin{equation}', '\\end{equation}', '\\\\', '\\hline', '&', '^', '_', '{', '}', '}', '}', '}', ']', '\\left(', '\\right)',
  '\\left<', '\\def\\a{', '\\a', '\\newcommand{\\b}[1]{#1', '\\b', '\\let\\c=<', '\\c', '\\char"3C', '\\char60', '\\unicode{x3c}', '\\rule{1em}{1em}',
  '\\hskip 1em', '\\kern-9999em', '\\raisebox{9em}{', '\\cancel{', '\\boxed{', '\\fbox{', '\\phase{', '\\xrightarrow[', '\\overbrace{', '\\ce{', '\\pu{', '\\operatorname{',
  '\\mathbb{', '\\mathscr{', '\\bm{', '\\not<', '<', '>', '<b>', '&lt;', '"', "'", '`', '%', '#', '~', '1', 'x', ' ', '\n', '\\$', '\\<', '\\"', '\u{1f600}', '\ud55c', '\0'];

const elementOf = (random) => (random.chance(15) ? random.pick(names).toUpperCase() : random.pick(names));

function attribute(random) {
  const name = random.chance(10) ? random.pick(attributeNames).toUpperCase() : random.pick(attributeNames);
  const value = random.chance(12) ? random.pick(values) + random.pick(entities) + random.pick(values) : random.pick(values);
  switch (random.below(9)) {
    case 0: return name;
    case 1: return `${name}='${value.replaceAll("'", '&#39;')}'`;
    case 2: return `${name}=${value.replace(/[\s>]/g, '')}`;
    case 3: return `${name}="${value}`;
    case 4: return `${name} = "${value}"`;
    case 5: return `${name}='${value}'`;
    default: return `${name}="${value.replaceAll('"', '&quot;')}"`;
  }
}

function attributes(random) {
  let list = '';
  for (let left = random.below(4); left > 0; left--) list += random.pick([' ', ' ', ' ', '/', '\n', '\t', '\f', '']) + attribute(random);
  return list;
}

function startTag(random) {
  const end = random.pick(['>', '>', '>', '>', '>', '/>', ' >', '', '>>', '<']);
  return `<${elementOf(random)}${attributes(random)}${end}`;
}

const endTag = (random) => `</${elementOf(random)}${random.pick(['>', '>', '>', ' >', '/>', ' a="b">', ''])}`;

function comment(random) {
  const opening = random.pick(['<!--', '<!--', '<!', '<!-', '<?', '</ ', '<![CDATA[', '<!DOCTYPE ', '<!--[if IE]>']);
  return opening + piece(random, 0) + random.pick(['-->', '-->', '--!>', '->', '>', ']]>', '?>', '']);
}

function nested(random, depth) {
  const name = elementOf(random);
  return `<${name}${attributes(random)}>${pieces(random, 3, depth - 1)}${random.chance(70) ? `</${name}>` : endTag(random)}`;
}

function formula(random) {
  let text = '';
  for (let left = 1 + random.below(6); left > 0; left--) text += random.pick(formulaPieces);
  // Half of the formulas get the braces that they lack, since one that cannot be read shows little.
  const open = random.chance(50) ? text.split('{').length - text.split('}').length : 0;
  const marker = random.pick(['$', '$', '$$']);
  return marker + text + '}'.repeat(Math.max(0, open)) + marker;
}

/** One piece; `depth` bounds what lies inside. */
function piece(random, depth) {
  switch (random.below(depth > 0 ? 15 : 11)) {
    case 0: case 1: return startTag(random);
    case 2: return endTag(random);
    case 3: return random.pick(texts);
    case 4: return random.pick(entities);
    case 5: return random.pick(markdown);
    case 6: return random.pick(classics);
    case 7: return random.pick(values);
    case 8: return random.pick(markdown) + random.pick(texts);
    case 9: return startTag(random) + random.pick(texts);
    case 10: return formula(random);
    case 11: return comment(random);
    default: return nested(random, depth);
  }
}

function pieces(random, most, depth) {
  let text = '';
  for (let left = 1 + random.below(most); left > 0; left--) text += piece(random, depth);
  return text;
}

/** A hostile document of up to some `most` pieces, many of which hold pieces themselves. */
export function hostileDocument(random, most) {
  const document = pieces(random, most, 4);
  // A cut at any place leaves something open.
  return random.chance(20) ? document.slice(0, 1 + random.below(document.length)) : document;
}

/** A few characters of markup and Markdown in any order, for what no grammar would think of. */
export function hostileSymbols(random, length) {
  const symbols = ['<', '>', '/', '!', '-', '"', "'", '=', '&', ';', '#', 'a', 'b', ' ', '\n', '\t', '[', ']', '(', ')', '`', '*', '_', '~',
    '|', ':', '$', '\\', '^', '{', '}', '.', '@', '1', '\0', '<a ', 'href=', '<!--', '-->', '<p>', '<b>', '<i', 'script', 'javascript:',
    '---\n', '\n\n', '    ', '> ', '- '];
  let text = '';
  for (let left = length; left > 0; left--) text += random.pick(symbols);
  return text;
}
