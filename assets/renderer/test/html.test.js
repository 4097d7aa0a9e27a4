import assert from 'node:assert/strict';
import { test } from 'node:test';
import { html, renderText } from './support.js';

test('a document keeps its body and says its title', () => {
  assert.equal(
    html('<!doctype html><html><head><title>T &amp; t</title><style>x</style></head><body><h1>H</h1><p>a<p>b</body></html>'),
    '<p class="tsr-title">T &amp; t</p>\n<h1>H</h1><p>a</p><p>b</p>',
  );
});

test('end tags that may be left out are put in', () => {
  assert.equal(html('<ul><li>a<li>b<ul><li>c</ul><li>d</ul>'), '<ul><li>a</li><li>b<ul><li>c</li></ul></li><li>d</li></ul>');
  assert.equal(
    html('<table><tr><td>1<td>2<tr><th>3</table>x'),
    '<table><tr><td>1</td><td>2</td></tr><tr><th>3</th></tr></table>x',
  );
});

test('the origin is the canonical link, else og:url, and only of the web', () => {
  const canonical = '<link rel="canonical" href="https://a.b/c">';
  const property = '<meta property="og:url" content="http://d.e/f">';
  assert.equal(renderText(property + canonical, 'html').sourceWebsiteURL, 'https://a.b/c');
  assert.equal(renderText(property, 'html').sourceWebsiteURL, 'http://d.e/f');
  assert.equal(renderText('<link rel=canonical href="javascript:x">' + property, 'html').sourceWebsiteURL, 'http://d.e/f');
  assert.equal(renderText('<link rel=canonical href="/relative">', 'html').sourceWebsiteURL, undefined);
});

test('only links of the web, of mail and inside the document lead anywhere', () => {
  const web = 'rel="noopener noreferrer nofollow"';
  const rows = [
    ['https://a.b', ` href="https://a.b" ${web}`],
    [' HTTP://a.b ', ` href="HTTP://a.b" ${web}`],
    ['mailto:a@b', ` href="mailto:a@b" ${web}`],
    ['#a b', ' href="#doc-ab"'],
    ['#', ' href="#"'],
    ['javascript:x', ''],
    ['java\nscript:x', ''],
    ['&#1;javascript:x', ''],
    ['data:text/html,x', ''],
    ['vbscript:x', ''],
    ['file:///etc', ''],
    ['/path', ''],
    ['//host/path', ''],
    ['https:path', ''],
    ['https:///path', ''],
  ];
  for (const [address, expected] of rows) assert.equal(html(`<a href="${address}">x</a>`), `<a${expected}>x</a>`, address);
});

test('an address is followed up to its limit', () => {
  const address = (length) => `https://a.b/${'x'.repeat(length - 12)}`;
  const isLink = (length) => html(`<a href="${address(length)}">x</a>`).includes('href');
  assert.deepEqual([8_191, 8_192, 8_193].map(isLink), [true, true, false]);
});

test('images of the web are loaded only on request', () => {
  const image = '<img src="https://a.b/c.png" alt="A&lt;" width=10 height=x onerror=y>';
  const held = renderText(image, 'html');
  assert.ok(held.html.includes('<span class="tsr-image">A&lt;</span>'));
  assert.deepEqual(held.notices, ['Images from the web are not loaded.']);
  const loaded = renderText(image, 'html', { allowsRemoteImages: true });
  assert.ok(loaded.html.includes('<img src="https://a.b/c.png" alt="A&lt;" width="10" loading="lazy"'));
  assert.deepEqual(loaded.notices, []);
});

test('embedded images are raster images of bounded size', () => {
  const isShown = (source) => html(`<img src="${source}">`).startsWith('<img ');
  assert.ok(isShown('data:image/png;base64,iVBORw0KGgo='));
  assert.ok(isShown(' data:image/webp;base64,iVBO\nRw0KGgo='));
  for (const source of ['data:image/svg+xml;base64,PHN2Zz4=', 'data:text/html;base64,PHN2Zz4=', 'data:image/png,x', 'data:image/png;base64,a&quot;b', 'c.png']) {
    assert.ok(!isShown(source), source);
  }
  const head = 'data:image/png;base64,';
  const ofLength = (length) => head + 'a'.repeat(length - head.length);
  assert.deepEqual([393_215, 393_216, 393_217].map((length) => isShown(ofLength(length))), [true, true, false]);
});

test('nothing of scripts, styles, frames and foreign content is left', () => {
  const names = 'script style textarea xmp noscript iframe noembed noframes template svg math object select'.split(' ');
  for (const name of names) assert.equal(html(`a<${name}><b>x</b></${name}>z`), 'az', name);
  assert.equal(html('a<plaintext>b</plaintext>c'), 'ac');
  assert.equal(html('<svg/>a<math />b<script/>c</script>d'), 'abd');
  assert.equal(html('<svg><svg></svg>x</svg>y'), 'y');
});

test('identifiers have a prefix, and other attributes are dropped', () => {
  assert.equal(html('<p id="a" class="b" style="c" onclick="d" data-e="f" title="g&quot;`">x</p>'), '<p id="doc-a" title="g&quot;&#96;">x</p>');
  assert.equal(html('<a name="a">x</a>'), '<a name="doc-a">x</a>');
});

test('elements are open up to the limit, and text goes on below it', () => {
  const nested = (depth) => html(`${'<b>'.repeat(depth)}x`);
  const tags = (depth) => nested(depth).split('<b>').length - 1;
  assert.deepEqual([191, 192, 193].map(tags), [191, 192, 192]);
  assert.equal(nested(193), `${'<b>'.repeat(192)}x${'</b>'.repeat(192)}`);
  assert.equal(html(`${'<b>'.repeat(500)}<script>y</script>x`).includes('y'), false);
});

test('a hundred thousand nested or stray tags are no trouble', () => {
  for (const unit of ['<b>', '<div>', '</b>', '<svg>', '<table>', '<td>', '<p>', '<', '<!--', '&amp', '<a b=', '<title>']) {
    assert.equal(typeof renderText(unit.repeat(100_000), 'html').html, 'string', unit);
  }
});
