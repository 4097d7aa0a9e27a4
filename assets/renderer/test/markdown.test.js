import assert from 'node:assert/strict';
import { test } from 'node:test';
import { markdown, renderText } from './support.js';

const REL = 'rel="noopener noreferrer nofollow"';

test('a heading can be reached by its words, and two of one name differ', () => {
  assert.equal(
    markdown('# A b!\n# A b\n# \u6587 \u66f8\n# !\n'),
    '<h1 id="doc-a-b">A b!</h1>\n<h1 id="doc-a-b-1">A b</h1>\n<h1 id="doc-\u6587-\u66f8">\u6587 \u66f8</h1>\n<h1 id="doc-section">!</h1>\n',
  );
  assert.equal(markdown('[x](#a-b)'), '<p><a href="#doc-a-b">x</a></p>\n');
});

test('a table keeps its alignment and lies in a frame', () => {
  assert.equal(
    markdown('|a|b|\n|-|-:|\n|1|2|\n').replaceAll('\n', ''),
    '<div class="tsr-table"><table><thead><tr><th>a</th><th align="right">b</th></tr></thead>' +
      '<tbody><tr><td>1</td><td align="right">2</td></tr></tbody></table></div>',
  );
});

test('a task has a box, checked or not, which cannot be used', () => {
  assert.equal(
    markdown('- [ ] a\n- [x] b\n- [y] c\n'),
    '<ul>\n<li class="tsr-task"><input type="checkbox" disabled=""> a</li>\n' +
      '<li class="tsr-task"><input type="checkbox" disabled="" checked=""> b</li>\n<li>[y] c</li>\n</ul>\n',
  );
});

test('addresses in running text become links, without the punctuation of the sentence', () => {
  const rows = [
    ['see https://a.b/c.', `see <a href="https://a.b/c" ${REL}>https://a.b/c</a>.`],
    ['(https://a.b/c(d))', `(<a href="https://a.b/c(d)" ${REL}>https://a.b/c(d)</a>)`],
    ['www.a.b', `<a href="http://www.a.b" ${REL}>www.a.b</a>`],
    ['a@b.cd', `<a href="mailto:a@b.cd" ${REL}>a@b.cd</a>`],
    ['a@b', 'a@b'],
    ['xhttps://a.b', 'xhttps://a.b'],
    ['https://a_b.c_d', 'https://a_b.c_d'],
    ['a@b.c_', 'a@b.c_'],
    ['`https://a.b`', '<code>https://a.b</code>'],
    ['[https://a.b](https://c.d)', `<a href="https://c.d" ${REL}>https://a.b</a>`],
  ];
  for (const [text, expected] of rows) assert.equal(markdown(text), `<p>${expected}</p>\n`, text);
});

test('footnotes are numbered by first reference and lead back', () => {
  assert.equal(
    markdown('b[^b] a[^a] b[^b] c[^c]\n\n[^a]: A\n[^b]: B\n').replaceAll('\n', ''),
    '<p>b<sup class="tsr-reference"><a href="#tsr-note-1" id="tsr-reference-1">1</a></sup> ' +
      'a<sup class="tsr-reference"><a href="#tsr-note-2" id="tsr-reference-2">2</a></sup> ' +
      'b<sup class="tsr-reference"><a href="#tsr-note-1" id="tsr-reference-1-2">1</a></sup> c[^c]</p>' +
      '<section class="tsr-notes"><ol><li id="tsr-note-1"><p>B</p>' +
      '<a href="#tsr-reference-1" class="tsr-return">\u21a9\ufe0e</a><a href="#tsr-reference-1-2" class="tsr-return">\u21a9\ufe0e</a></li>' +
      '<li id="tsr-note-2"><p>A</p><a href="#tsr-reference-2" class="tsr-return">\u21a9\ufe0e</a></li></ol></section>',
  );
});

test('a footnote that refers to itself ends', () => {
  assert.ok(markdown('[^a]\n\n[^a]: again[^a]\n').includes('id="tsr-reference-1-2"'));
});

test('front matter is set apart as a table under its label', () => {
  const text = '---\ntitle: "A: b"\ntags: [x, y]\nlist:\n  - p\n  - q\n---\nbody\n';
  assert.equal(
    markdown(text, { frontmatterLabel: 'L<' }).replaceAll('</tr>', '</tr>\n'),
    '<div class="tsr-table"><table class="tsr-front"><caption>L&lt;</caption><tbody>' +
      '<tr><th scope="row">title</th><td>A: b</td></tr>\n<tr><th scope="row">tags</th><td>x\ny</td></tr>\n' +
      '<tr><th scope="row">list</th><td>p\nq</td></tr>\n</tbody></table></div>\n<p>body</p>\n',
  );
});

test('a rule and a heading at the beginning are no front matter', () => {
  assert.equal(markdown('---\n\ntext\n\n---\n'), '<hr>\n<p>text</p>\n<hr>\n');
});

test('money is no formula', () => {
  assert.equal(markdown('costs $5 and $10'), '<p>costs $5 and $10</p>\n');
});

test('formulas become MathML, and what is none is shown as it is written', () => {
  assert.match(markdown('$x$'), /^<p><math[^>]*><mi>x<\/mi><\/math><\/p>\n$/);
  assert.match(markdown('$$\nx\n$$\n'), /^<p class="tsr-display"><math display="block"[^>]*><mi>x<\/mi><\/math><\/p>\n$/);
  assert.equal(markdown('$\\nonsense{<}$'), '<p><code class="tsr-formula">\\nonsense{&lt;}</code></p>\n');
});

test('a formula cannot bring addresses or styles of its own', () => {
  for (const formula of ['\\href{https://a.b}{x}', '\\includegraphics{https://a.b}', '\\style{color:red}{x}', '\\class{c}{x}', '\\id{i}{x}']) {
    assert.doesNotMatch(markdown(`$${formula}$`), /href=|src=|<img|style="color|class="c"|id="i"/, formula);
  }
});

test('code names its language and has colours', () => {
  assert.equal(
    markdown('```py\nreturn 1\n```\n'),
    '<pre class="tsr-block" data-language="py"><code class="language-py">' +
      '<span class="tsr-keyword">return</span> <span class="tsr-literal">1</span>\n</code></pre>\n',
  );
  assert.equal(markdown('```\n<\n```\n'), '<pre><code>&lt;\n</code></pre>\n');
});

test('HTML in Markdown is kept where it is allowed, and ends with the block it stands in', () => {
  const rows = [
    ['a <b onclick="x">b</b>', '<p>a <b>b</b></p>\n'],
    ['a <b>b\n\nc', '<p>a <b>b</b></p>\n<p>c</p>\n'],
    ['a </p></article> b', '<p>a  b</p>\n'],
    ['a <script>x *y*</script> z', '<p>a  z</p>\n'],
    ['a <script>x\n\nb', '<p>a </p>\n<p>b</p>\n'],
    ['<svg><p>a</svg>', '<p></p>'],
    ['<a href="javascript:x">a</a>', '<p><a>a</a></p>\n'],
  ];
  for (const [text, expected] of rows) assert.equal(markdown(text).trim(), expected.trim(), text);
});

test('a reference that is repeated does not multiply what it refers to beyond the limit', () => {
  const definition = `[a]: https://a.b/${'x'.repeat(8_000)}\n\n`;
  const result = renderText(definition + '[a]'.repeat(100_000), 'markdown');
  assert.ok(result.html.includes('<pre class="tsr-plain">'));
  assert.deepEqual(result.notices, ['This document is too large or too deeply nested to be laid out; the source is shown.']);
  assert.ok(Buffer.byteLength(JSON.stringify(result)) <= 6_291_456);
});

test('the language of the writing is told for fonts and line breaks', () => {
  const rows = [
    ['\ud55c\uad6d\uc5b4 \ubb38\uc11c\uc785\ub2c8\ub2e4', ' lang="ko"'],
    ['\u65e5\u672c\u8a9e\u306e\u6587\u66f8\u3067\u3059', ' lang="ja"'],
    ['\u4e2d\u6587\u6587\u6863', ' lang="zh"'],
    ['\u0e20\u0e32\u0e29\u0e32\u0e44\u0e17\u0e22', ' lang="th"'],
    ['plain', ''],
    ['---\nlang: zh-TW\n---\nplain', ' lang="zh-TW"'],
    ['---\nlang: "x\\" y"\n---\nplain', ''],
  ];
  for (const [text, expected] of rows) {
    assert.ok(renderText(text, 'markdown').html.startsWith(`<article class="tessary tessary-markdown"${expected}>`), text);
  }
});
