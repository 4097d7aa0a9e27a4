import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';
import { renderRequest, renderText, TOKEN } from './support.js';

test('a result has the fields of the host, absent ones left out', () => {
  const result = renderText('# A', 'markdown');
  assert.deepEqual(Object.keys(result).sort(), ['html', 'notices', 'styleSheet']);
  assert.equal(typeof result.styleSheet, 'string');
  assert.ok(result.styleSheet.includes('.tessary'));
});

test('an unknown operation gives a result with a notice', () => {
  for (const request of [{}, { operation: 'other' }, { operation: 5 }, [], null, 'x', 7]) {
    assert.deepEqual(renderRequest(request), {
      html: '',
      styleSheet: '',
      notices: ['This operation is not known to the renderer.'],
    });
  }
});

test('an unknown format shows the source with a notice', () => {
  for (const format of [undefined, null, 5, [], {}, { kind: 'pdf' }, { kind: 'constructor' }, { kind: 5 }]) {
    const result = renderRequest({ operation: 'render', text: '<a>', format });
    assert.ok(result.html.includes('<pre class="tsr-plain"><code>&lt;a&gt;</code></pre>'));
    assert.deepEqual(result.notices, ['This format is not known to the renderer; the source is shown.']);
  }
});

test('fields of the wrong type are absent', () => {
  const format = { kind: 'code', language: 5 };
  const wrong = { operation: 'render', text: 'a', format, frontmatterLabel: [], allowsRemoteImages: 'yes' };
  assert.equal(renderRequest(wrong).language, undefined);
  assert.equal(renderRequest({ operation: 'render', text: 7, format }).notices.length, 0);
});

test('any token is taken; without a usable one formulas are shown as source', () => {
  for (const token of [null, '', 5, '<b>', 'short', {}]) {
    const result = renderRequest({ operation: 'render', text: '$x$', format: { kind: 'markdown' } }, token);
    assert.ok(result.html.includes('<code class="tsr-formula">x</code>'), String(token));
  }
});

test('a document that holds the token cannot place a formula', () => {
  const text = `${TOKEN}:0; $x$`;
  assert.ok(renderText(text, 'markdown').html.includes(`<p>${TOKEN}:0; <code class="tsr-formula">x</code></p>`));
});

test('half a surrogate pair does not reach the result', () => {
  assert.ok(renderText('a\ud800b', 'markdown').html.includes('<p>a\ufffdb</p>'));
});

test('code is the language of the result, by the name of its grammar', () => {
  assert.equal(renderText('x', 'code', { language: 'py' }).language, 'python');
  assert.equal(renderText('x', 'code', { language: 'unheard-of' }).language, 'unheard-of');
});

test('the script is ASCII and every grammar in it can be loaded', () => {
  const path = process.env.TESSARY_RENDERER_ASSET ?? new URL('../dist/renderer.js', import.meta.url);
  const script = readFileSync(path);
  assert.ok(script.length <= 4_194_304);
  assert.equal(script.findIndex((byte) => byte > 0x7f), -1);
  const names = [...script.toString('latin1').matchAll(/\|(?:packed\/)?language\/([\w-]+):/g)].map((match) => match[1]);
  assert.ok(names.length > 190);
  for (const name of names) {
    const result = renderText('a "b" 1 # c // d\n', 'code', { language: name });
    assert.equal(result.language, name);
    assert.equal(result.html.replace(/<[^>]*>/g, '').trim(), 'a "b" 1 # c // d', name);
  }
});
