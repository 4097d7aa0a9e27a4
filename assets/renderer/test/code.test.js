import assert from 'node:assert/strict';
import { test } from 'node:test';
import { body, renderRequest, renderText, TOKEN } from './support.js';

function lines(text, language) {
  return body(renderText(text, 'code', { language })).split('<span class="tsr-line">').length - 1;
}

const coloured = (text) => renderText(text, 'code', { language: 'c' }).html.includes('tsr-keyword');

test('every line of a source is an element, also within a colour that goes over several', () => {
  assert.equal(
    body(renderText('a\n/* b\nc */\n', 'code', { language: 'c' })),
    '<pre class="tsr-lines"><code><span class="tsr-line">a</span>\n' +
      '<span class="tsr-line"><span class="tsr-comment">/* b</span></span>\n' +
      '<span class="tsr-line"><span class="tsr-comment">c */</span></span>\n</code></pre>',
  );
  assert.deepEqual(['', 'a', 'a\n', 'a\n\n', 'a\r\nb'].map((text) => lines(text)), [1, 1, 1, 2, 2]);
});

test('text without a known language is shown plain', () => {
  for (const language of [undefined, '', 'none-such', 'plaintext', '|', ':', '__proto__']) {
    assert.ok(renderText('if (a) <b>', 'code', { language }).html.includes('<span class="tsr-line">if (a) &lt;b&gt;</span>'));
  }
});

test('a grammar that embeds others takes them in', () => {
  const result = renderText('<style>a{color:red}</style><script>return 1</script>', 'code', { language: 'html' });
  assert.ok(result.html.includes('<span class="tsr-keyword">return</span>'));
  assert.equal(result.language, 'xml');
});

test('source is coloured up to 65,536 bytes', () => {
  const source = (bytes) => `${'return;\n'.repeat(8_190)}\u00e9`.padEnd(bytes - 1, ' ');
  assert.equal(Buffer.byteLength(source(65_537)), 65_537);
  assert.deepEqual([65_535 + 1, 65_537].map((bytes) => coloured(source(bytes))), [true, false]);
  const result = renderText(source(65_537), 'code', { language: 'c' });
  assert.deepEqual(result.notices, ['This source is too large, or its lines too long, to be highlighted.']);
});

test('long lines and long stretches of blanks keep a source plain', () => {
  const line = (units) => `return;\n${'x'.repeat(units)}\n`;
  assert.deepEqual([1_023, 1_024, 1_025].map((units) => coloured(line(units))), [true, true, false]);
  const blanks = (units) => `return;${'\n'.repeat(units)}b`;
  assert.deepEqual([255, 256, 257].map((units) => coloured(blanks(units))), [true, true, false]);
});

test('no text is left out when the time for colours ends in the middle', () => {
  const text = '<style>\na { color: red }\n</style>\n<script>\nlet a = html`<b>${1}</b>`;\n</script>\n'.repeat(60);
  const request = { operation: 'render', text, format: { kind: 'code', language: 'html' } };
  for (let reads = 1; reads < 40; reads++) {
    const clock = `let reads = 0; Date.now = () => (reads++ < ${reads} ? 0 : 1e6);`;
    const shown = body(renderRequest(request, TOKEN, clock)).replace(/<[^>]*>/g, '');
    assert.equal(shown.replaceAll('&lt;', '<').replaceAll('&gt;', '>'), text, `${reads} looks at the clock`);
  }
});
