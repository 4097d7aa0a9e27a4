// The contract between the asset and its hosts, field by field, on the real process.

import assert from 'node:assert/strict';
import { test } from 'node:test';

import { rendered, renderRequest, result, run } from './support/renderer.mjs';

const pixel = 'iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==';

const count = (text, pattern) => [...text.matchAll(pattern)].length;
const withoutTags = (html) => html.replace(/<[^>]*>/g, '');

/** The contents of the one `code` element in `html`, as text. */
const codeText = (html) => withoutTags(/<code[^>]*>([\s\S]*)<\/code>/.exec(html)[1])
  .replaceAll('&lt;', '<').replaceAll('&gt;', '>').replaceAll('&amp;', '&');

// ---- The result ----

test('a result holds the fields of the model and no others', async () => {
  const page = await rendered('html', '<html lang="ko"><link rel="canonical" href="https://a.example/b"><p>text</p>');
  assert.deepEqual(Object.keys(page).sort(),
    ['html', 'notices', 'sourceWebsiteURL', 'styleSheet'].concat('language' in page ? ['language'] : []).sort());
  assert.equal(typeof page.html, 'string');
  assert.equal(typeof page.styleSheet, 'string');
  assert.deepEqual(page.notices, []);
});

test('an optional field that has no value is missing', async () => {
  const page = await rendered('markdown', 'text');
  assert.ok(!('sourceWebsiteURL' in page));
  assert.ok(!('language' in page) || typeof page.language === 'string');
});

test('the style sheet asks for nothing from elsewhere', async () => {
  const { styleSheet } = await rendered('markdown', 'text');
  assert.doesNotMatch(styleSheet, /@import|url\(|expression|<\/|<!--/i);
});

test('the same request gives the same result, though the token differs', async () => {
  const text = '# a\n\n$x^2$ and $$\\frac12$$\n\ntext[^1]\n\n[^1]: note\n\n```js\nlet a\n```\n';
  assert.deepEqual(await rendered('markdown', text), await rendered('markdown', text));
});

// ---- Operations, formats, types ----

const odd = [undefined, null, true, 0, -1.5, [], {}, ['render'], 'Render', '', 'constructor', '__proto__', 'toString'];

for (const operation of odd) {
  test(`the operation ${JSON.stringify(operation)} is unknown, and a notice says so`, async () => {
    const page = await result({ operation, text: 'text', format: { kind: 'markdown' } });
    assert.equal(page.html, '');
    assert.equal(page.notices.length, 1);
    assert.match(page.notices[0], /\S/);
  });
}

for (const kind of odd) {
  test(`the kind of format ${JSON.stringify(kind)} is unknown; a notice says so and the source is shown`, async () => {
    const page = await result({ operation: 'render', text: 'a <b> *c*', format: { kind } });
    assert.equal(page.notices.length, 1);
    assert.equal(codeText(page.html), 'a <b> *c*');
  });
}

for (const format of [undefined, null, 'markdown', 1, [], ['markdown']]) {
  test(`the format ${JSON.stringify(format)} is none; a notice says so and the source is shown`, async () => {
    const page = await result({ operation: 'render', text: '*a*', format });
    assert.equal(page.notices.length, 1);
    assert.equal(codeText(page.html), '*a*');
  });
}

for (const value of [null, 1, true, [], {}, ['js'], { toString: 'js' }]) {
  test(`${JSON.stringify(value)} is no language, no label and no permission`, async () => {
    const code = await result({ operation: 'render', text: 'let a', format: { kind: 'code', language: value } });
    assert.equal(codeText(code.html), 'let a');
    assert.ok(!('language' in code));
    const labelled = await rendered('markdown', '---\na: b\n---\ntext', { frontmatterLabel: value });
    assert.doesNotMatch(labelled.html, /<caption/);
    assert.match(labelled.html, />a<[\s\S]*>b</);
    if (value === true) return;
    const image = await rendered('markdown', '![a](https://a.example/a.png)', { allowsRemoteImages: value });
    assert.doesNotMatch(image.html, /<img/);
  });
}

test('fields that nobody knows are passed over', async () => {
  const plain = await rendered('markdown', '# a');
  assert.deepEqual(await rendered('markdown', '# a', { more: { deep: [1] }, toJSON: 1, __proto__: null, html: 'x' }), plain);
});

test('an empty text gives an empty page without notices', async () => {
  for (const format of ['markdown', 'html', 'code']) {
    const page = await rendered(format, '');
    assert.equal(withoutTags(page.html).trim(), '');
    assert.deepEqual(page.notices, []);
  }
});

// ---- Markdown ----

test('front matter stands apart as a table under the label', async () => {
  const { html } = await rendered('markdown', '---\ntitle: A & B\ntags: [x, y]\n---\n# Heading\n',
    { frontmatterLabel: 'Vor <b>dem</b> Text' });
  assert.match(html, /Vor &lt;b&gt;dem&lt;\/b&gt; Text/);
  const table = /<table[\s\S]*?<\/table>/.exec(html)[0];
  assert.match(table, />title</);
  assert.match(table, />A &amp; B</);
  assert.match(table, />tags</);
  assert.ok(html.indexOf('</table>') < html.indexOf('<h1'));
  assert.doesNotMatch(html, /<hr/);
});

test('what only looks like front matter is Markdown', async () => {
  const rule = await rendered('markdown', '---\n\ntext\n');
  assert.match(rule.html, /<hr>/);
  assert.doesNotMatch(rule.html, /<table/);
  const late = await rendered('markdown', 'text\n\n---\na: b\n---\n');
  assert.doesNotMatch(late.html, /<table/);
});

test('headings have anchors that differ, also where their texts do not', async () => {
  const { html } = await rendered('markdown', '# A b\n\n# A b\n\n## A b\n\n# A b-1\n\n# \ud55c\uad6d\uc5b4\n\n# !!!\n\n# ???\n\n[to](#a-b) [too](#a-b-1)');
  const identifiers = [...html.matchAll(/<h[1-6] id="([^"]+)"/g)].map(([, identifier]) => identifier);
  assert.equal(identifiers.length, 7);
  assert.equal(new Set(identifiers).size, 7);
  assert.equal(identifiers[0], 'doc-a-b');
  assert.equal(identifiers[1], 'doc-a-b-1');
  assert.equal(identifiers[4], 'doc-\ud55c\uad6d\uc5b4');
  assert.match(html, /href="#doc-a-b"/);
  assert.match(html, /href="#doc-a-b-1"/);
});

test('a link to a heading in another script leads there', async () => {
  const { html } = await rendered('markdown', '# \ud55c\uad6d\uc5b4\n\n[to](#\ud55c\uad6d\uc5b4) [too](#%ED%95%9C%EA%B5%AD%EC%96%B4)');
  const targets = [...html.matchAll(/href="#([^"]+)"/g)].map(([, target]) => decodeURIComponent(target));
  assert.deepEqual(targets, ['doc-\ud55c\uad6d\uc5b4', 'doc-\ud55c\uad6d\uc5b4']);
});

test('footnotes are numbered by first reference, lead to their notes and back', async () => {
  const { html } = await rendered('markdown', 'a[^two] b[^one] c[^two]\n\n[^one]: First *note*.\n[^two]: Second note.\n[^three]: Nobody asks.\n');
  const identifiers = new Set([...html.matchAll(/ id="([^"]+)"/g)].map(([, identifier]) => identifier));
  const targets = [...html.matchAll(/href="#([^"]+)"/g)].map(([, target]) => target);
  assert.equal(targets.length, 3 + 3);
  for (const target of targets) assert.ok(identifiers.has(target), `nothing is named ${target}`);
  assert.ok(html.indexOf('Second note.') < html.indexOf('First <em>note</em>.'));
  assert.doesNotMatch(html, /Nobody asks/);
  assert.equal(count(html, /<section/g), 1);
});

test('a reference without a note stays text', async () => {
  assert.match((await rendered('markdown', 'a[^none]')).html, /a\[\^none\]/);
});

test('formulas become MathML', async () => {
  const { html } = await rendered('markdown', 'so $a^2 < b$ and\n\n$$\\frac{1}{2}$$\n\n```math\n\\sqrt{3}\n```\n');
  assert.equal(count(html, /<math/g), 3);
  assert.equal(count(html, /<math[^>]*display="block"/g), 2);
  assert.match(html, /<msup>/);
  assert.match(html, /<mo[^>]*>&lt;<\/mo>/);
  assert.match(html, /<mfrac>/);
  assert.match(html, /<msqrt>/);
});

test('amounts of money are no formulas', async () => {
  const { html } = await rendered('markdown', 'It costs $5 or $10, then $1,000 to $2,000 and \\$x\\$.');
  assert.match(html, /It costs \$5 or \$10, then \$1,000 to \$2,000 and \$x\$\./);
});

test('a formula that cannot be read is shown as its source', async () => {
  const { html } = await rendered('markdown', '$\\frac{1}$ and $\\nosuch<b>$');
  assert.match(withoutTags(html), /\\frac\{1\}/);
  assert.match(html, /\\nosuch&lt;b&gt;/);
});

test('a formula that refers or names is shown as its source, since a document may name nothing', async () => {
  for (const source of ['x \\ref{shadowed}', 'x \\eqref{shadowed}', '\\begin{equation}\\label{shadowed}x\\end{equation}']) {
    const { html } = await rendered('markdown', `$$${source}$$`);
    assert.doesNotMatch(html, /<math|href|id="/);
    assert.match(html, /<code class="tsr-formula">/);
  }
});

test('a character that a formula asks for by number is fit for HTML', async () => {
  const { html } = await rendered('markdown', '$\\char"0$ $\\char"D800$ $\\char"1B$ $\\char"3C$');
  assert.equal(count(html, /<mi[^>]*>\ufffd<\/mi>/g), 3);
  assert.equal(count(html, /&lt;/g), 1);
});

test('one tilde strikes through as two do, and three do not', async () => {
  const { html } = await rendered('markdown', '~a~ ~~b~~ ~~~c~~~ *~d~*\n\n~e~~\n');
  assert.match(html, /<del>a<\/del> <del>b<\/del> ~~~c~~~ <em><del>d<\/del><\/em><\/p>\n<p>~e~~<\/p>/);
});

test('a block of code names its language and is coloured', async () => {
  const { html } = await rendered('markdown', '```js\nlet a = "<b>";\n```\n');
  assert.match(html, /<pre[^>]* data-language="js"/);
  assert.match(html, /<code class="language-js">/);
  assert.match(html, /<span class="tsr-/);
  assert.equal(codeText(html), 'let a = "<b>";\n');
});

test('a language that nobody knows is named and shown plain', async () => {
  for (const language of ['nosuchlanguage', '__proto__', 'constructor', 'toString']) {
    const { html } = await rendered('markdown', `\`\`\`${language}\nlet a = "<b>";\n\`\`\`\n`);
    assert.match(html, new RegExp(`class="language-${language}"`));
    assert.equal(codeText(html), 'let a = "<b>";\n');
  }
});

test('tasks are boxes that cannot be changed', async () => {
  const { html } = await rendered('markdown', '- [ ] a\n- [x] b\n- [y] c\n');
  const boxes = [...html.matchAll(/<input[^>]*>/g)].map(([box]) => box);
  assert.equal(boxes.length, 2);
  for (const box of boxes) assert.match(box, /type="checkbox".*disabled/);
  assert.doesNotMatch(boxes[0], /checked/);
  assert.match(boxes[1], /checked/);
});

// ---- Links and images ----

test('links lead to the web, to mail and to places in the document, and nowhere else', async () => {
  const { html } = await rendered('markdown',
    '[a](https://a.example/?b=1&c=2) [b](HTTP://b.example) [c](mailto:c@c.example) [d](#d) ' +
    '[e](ftp://e.example) [f](javascript:f) [g](/g) [h](h.md) [i](file:///i) [j](//j.example) [k](data:text/html,k)');
  assert.deepEqual([...html.matchAll(/href="([^"]*)"/g)].map(([, address]) => address),
    ['https://a.example/?b=1&amp;c=2', 'HTTP://b.example', 'mailto:c@c.example', '#doc-d']);
  assert.equal(count(html, /rel="[^"]*noopener[^"]*"/g), 3);
  for (const text of 'abcdefghijk') assert.match(html, new RegExp(`>${text}<`));
});

for (const [format, image] of [['markdown', '![An "alt" <b>](https://a.example/a.png "title")'],
  ['html', '<img alt="An &quot;alt&quot; &lt;b&gt;" title="title" src="https://a.example/a.png">']]) {
  test(`a remote image in ${format} loads only where that is allowed`, async () => {
    const kept = await rendered(format, image, { allowsRemoteImages: true });
    assert.match(kept.html, /<img[^>]* src="https:\/\/a\.example\/a\.png"/);
    assert.match(kept.html, /<img[^>]* alt="An &quot;alt&quot; /);
    assert.deepEqual(kept.notices, []);
    const held = await rendered(format, image, { allowsRemoteImages: false });
    assert.doesNotMatch(held.html, /<img|a\.example/);
    assert.match(held.html, /An "alt" /);
    assert.equal(held.notices.length, 1);
  });
}

test('many remote images give one notice', async () => {
  const { notices } = await rendered('markdown', '![a](https://a.example/a.png)\n'.repeat(50));
  assert.equal(notices.length, 1);
});

test('an image in the document itself is shown if it is a raster image', async () => {
  for (const type of ['png', 'jpeg', 'gif', 'webp', 'avif']) {
    const { html, notices } = await rendered('markdown', `![a](data:image/${type};base64,${pixel})`);
    assert.match(html, new RegExp(`<img[^>]* src="data:image/${type};base64,${pixel.replaceAll('+', '\\+')}"`));
    assert.deepEqual(notices, []);
  }
});

test('other data are no images', async () => {
  for (const address of [`data:image/svg+xml;base64,${pixel}`, `data:text/html;base64,${pixel}`, 'data:image/png,x',
    `data:image/png;charset=a;base64,${pixel}`, `data:image/png;base64,${pixel}!`, `data:;base64,${pixel}`, 'data:image/png;base64,']) {
    for (const [format, text] of [['markdown', `![alt](${address})`], ['html', `<img alt="alt" src="${address}">`]]) {
      const { html } = await rendered(format, text, { allowsRemoteImages: true });
      assert.doesNotMatch(html, /<img|base64/, address);
      assert.match(html, />alt</);
    }
  }
});

test('an image in the document itself has a bound', async () => {
  const image = (length) => `<img alt="alt" src="data:image/png;base64,${'A'.repeat(length)}">`;
  assert.match((await rendered('html', image(300_000))).html, /<img/);
  assert.doesNotMatch((await rendered('html', image(500_000))).html, /<img/);
});

// ---- HTML documents ----

test('an HTML document keeps what it means and loses the rest', async () => {
  const { html } = await rendered('html', `<!DOCTYPE html><html lang="en"><head><title>The title</title>
    <style>p{color:red}</style><script>x</script></head><body class="a" onload="x">
    <h1>Head</h1><p style="color:red" class="b">Text <b>bold</b> <a href="https://a.example/">link</a></p>
    <table><caption>Cap</caption><tr><th scope="col">A</th></tr><tr><td colspan="2">B</td></tr></table>
    <ol start="3"><li>one</li></ol><form><label>Label <input value="v"></label><button>Press</button></form>
    <iframe>inside</iframe><noscript>none</noscript></body></html>`);
  for (const kept of ['The title', '<h1>Head</h1>', '<b>bold</b>', 'href="https://a.example/"', '<caption>Cap</caption>',
    '<th scope="col">A</th>', '<td colspan="2">B</td>', '<ol start="3">', 'Label', 'Press']) assert.ok(html.includes(kept), kept);
  for (const lost of ['style=', 'color', 'onload', 'class="a"', 'class="b"', '<script', '<input', '<button', '<form', 'inside', 'none']) {
    assert.ok(!html.includes(lost), lost);
  }
});

const origins = [
  ['the canonical link', '<link rel="canonical" href="https://a.example/b">', 'https://a.example/b'],
  ['the canonical link among other relations', '<LINK REL="x Canonical" HREF="https://a.example/b">', 'https://a.example/b'],
  ['og:url', '<meta property="og:url" content="https://a.example/c">', 'https://a.example/c'],
  ['the canonical link before og:url', '<meta property="og:url" content="https://a.example/c"><link rel="canonical" href="https://a.example/b">', 'https://a.example/b'],
  ['og:url where the canonical link is none', '<link rel="canonical" href="/b"><meta property="og:url" content="https://a.example/c">', 'https://a.example/c'],
  ['no script', '<link rel="canonical" href="javascript:fired()">', undefined],
  ['no relative address', '<link rel="canonical" href="b">', undefined],
  ['nothing of other relations', '<link rel="alternate" href="https://a.example/b">', undefined],
  ['nothing in a comment', '<!--<link rel="canonical" href="https://a.example/b">-->', undefined],
  ['nothing in text', '<title><link rel="canonical" href="https://a.example/b"></title>', undefined],
];

for (const [what, head, expected] of origins) {
  test(`the address of origin is ${what}`, async () => {
    assert.equal((await rendered('html', `<html><head>${head}</head><body><p>text`)).sourceWebsiteURL, expected);
  });
}

// ---- Code ----

test('code keeps its lines, its blanks and every character', async () => {
  const text = 'def f(a):\n\treturn "<b>&amp;</b>"  \n\n\n# \ud55c\uae00 \u{1f600}\n';
  const { html, language } = await rendered('code', text, { format: { kind: 'code', language: 'python' } });
  assert.equal(codeText(html), text);
  assert.equal(language, 'python');
  assert.match(html, /<span class="tsr-keyword">/);
});

test('code without a language is plain', async () => {
  const page = await rendered('code', 'let a = 1;\n');
  assert.equal(codeText(page.html), 'let a = 1;\n');
  assert.doesNotMatch(page.html, /tsr-keyword/);
});

for (const [language, text] of [['cpp', 'int main() { return 0; }'], ['swift', 'let a = 1'], ['json', '{"a": true}'], ['rust', 'fn main() {}'],
  ['html', '<p class="a">x</p>'], ['yaml', 'a: true'], ['dockerfile', 'FROM a'], ['ini', '[a]\nb=1'], ['x86asm', 'mov eax, 1'], ['latex', '\\section{a}']]) {
  test(`${language} is a language that is coloured`, async () => {
    const page = await rendered('code', text, { format: { kind: 'code', language } });
    assert.equal(codeText(page.html), text);
    assert.match(page.html, /<span class="tsr-(?!line)/);
  });
}

test('code of up to 65,536 bytes is coloured, and code above that plain with a notice', async () => {
  const line = 'let a = "\ud55c";\n';
  const lineBytes = Buffer.byteLength(line);
  const ofBytes = (bytes) => line.repeat(Math.floor(bytes / lineBytes)) + ' '.repeat(bytes % lineBytes);
  for (const [bytes, isColoured] of [[65_535, true], [65_536, true], [65_537, false]]) {
    const text = ofBytes(bytes);
    assert.equal(Buffer.byteLength(text), bytes);
    const page = await rendered('code', text, { format: { kind: 'code', language: 'javascript' } });
    assert.equal(/<span class="tsr-keyword">/.test(page.html), isColoured, `${bytes} bytes`);
    assert.equal(page.notices.length, isColoured ? 0 : 1, `${bytes} bytes`);
    assert.equal(codeText(page.html), text);
  }
});

// ---- The token ----

test('neither the token nor anything like it appears in a result', async () => {
  const text = '$a$ $b$\n\n$$c$$\n\n' + 'text $d$ '.repeat(20);
  for (const format of ['markdown', 'html']) {
    const ended = await run(renderRequest(format, text));
    assert.doesNotMatch(ended.output, /[0-9A-F]{32,}/);
  }
});

test('a document gains nothing by writing what placeholders may look like', async () => {
  const guess = 'A'.repeat(64);
  const forms = [guess, `${guess}0`, `${guess}-0`, `${guess}:0`, `${guess}.0`, `\u0001${guess}\u0001`, `<${guess}>`, `{${guess}0}`, `&${guess}0;`,
    `<span id="${guess}">`, '\ufffc0\ufffc', '\ue0000\ue001', '\u00020\u0003'];
  const { html } = await rendered('markdown', `$x$\n\n${forms.join('\n\n')}\n`);
  assert.equal(count(html, /<math/g), 1);
  assert.ok(count(html, new RegExp(guess, 'g')) >= 9);
});

// ---- What the process does with an asset that is asked for too much ----

test('a document whose page would be too large is shown as its source', async () => {
  // Each of these two characters becomes an element; as elements they would pass the bound of a result.
  const page = await rendered('markdown', '`a`'.repeat(170_000));
  assert.ok(page.notices.length <= 1);
  assert.ok(JSON.stringify(page).length <= 6_291_456);
});
