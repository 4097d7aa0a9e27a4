// What of a page's looks can be measured, on a page with one of everything: nothing reaches out of a narrow or a wide
// window, every text can be told from its ground in both schemes, and on paper nothing is cut off.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';

import { Browser } from './support/browser.mjs';
import { cutOff, faintTexts, stickingOut } from './support/contrast.mjs';
import { rendered } from './support/renderer.mjs';

const everything = readFileSync(new URL('fixtures/everything.md', import.meta.url), 'utf8');
const source = 'def f(a, b):\n    """Adds."""\n    return a + b  # both\n' + `x = "${'long '.repeat(60)}"\n`;

let browser;
const pages = new Map();

before(async () => {
  browser = await Browser.start();
  pages.set('a document', await rendered('markdown', everything, { frontmatterLabel: 'Front matter' }));
  pages.set('a source', await rendered('code', source, { format: { kind: 'code', language: 'python' } }));
  pages.set('an HTML document', await rendered('html', '<title>Title</title><h1>Heading</h1><p>Text <mark>mark</mark> <kbd>k</kbd>' +
    `<table><caption>Caption</caption><tr>${'<th>column of a wide table'.repeat(12)}<tr>${'<td>cell'.repeat(12)}</table>`));
});
after(() => browser?.stop());

/** Lays `page` out in a window of `width` pixels and hands the browser's page to `look`. */
async function laidOut({ html, styleSheet }, { width, scheme = 'light', media = 'screen' }, look) {
  const view = await browser.openPage();
  await view.send('Emulation.setDeviceMetricsOverride', { width, height: 800, deviceScaleFactor: 1, mobile: false });
  await view.send('Emulation.setEmulatedMedia', { media, features: [{ name: 'prefers-color-scheme', value: scheme }] });
  const { frameTree } = await view.send('Page.getFrameTree');
  await view.send('Page.setDocumentContent', { frameId: frameTree.frame.id, html: '<!DOCTYPE html><html><head><meta charset="utf-8">' +
    `<style>body{margin:0}</style><style>${styleSheet}</style></head><body>${html}</body></html>` });
  await look(view);
  await view.close();
}

for (const width of [320, 375, 768, 1280]) {
  test(`nothing reaches out of a window of ${width} pixels`, async () => {
    for (const [name, page] of pages) {
      await laidOut(page, { width }, async (view) => assert.deepEqual(await view.evaluate(stickingOut), [], name));
    }
  });
}

for (const scheme of ['light', 'dark']) {
  test(`every text can be told from its ground in the ${scheme} scheme`, async () => {
    for (const [name, page] of pages) {
      await laidOut(page, { width: 1280, scheme }, async (view) => assert.deepEqual(await view.evaluate(faintTexts), [], name));
    }
  });
}

test('the scheme follows the reader', async () => {
  const ground = (view) => view.evaluate('getComputedStyle(document.querySelector("article")).backgroundColor');
  const grounds = [];
  for (const scheme of ['light', 'dark']) {
    await laidOut(pages.get('a document'), { width: 800, scheme }, async (view) => grounds.push(await ground(view)));
  }
  assert.notEqual(grounds[0], grounds[1]);
});

test('a table that is too wide scrolls in a box of its own', async () => {
  await laidOut(pages.get('a document'), { width: 375 }, async (view) => {
    const hidden = await view.evaluate(`Math.max(...[...document.querySelectorAll('.tsr-table')].map((box) => box.scrollWidth - box.clientWidth))`);
    assert.ok(hidden > 100);
  });
});

test('on paper nothing is cut off, and every text can be told from its ground', async () => {
  for (const [name, page] of pages) {
    await laidOut(page, { width: 680, media: 'print' }, async (view) => {
      assert.deepEqual(await view.evaluate(cutOff), [], name);
      assert.deepEqual(await view.evaluate(stickingOut), [], name);
      assert.deepEqual(await view.evaluate(faintTexts), [], name);
    });
  }
});

test('on paper the dark scheme is not used', async () => {
  await laidOut(pages.get('a document'), { width: 680, media: 'print', scheme: 'dark' }, async (view) => {
    assert.deepEqual(await view.evaluate(faintTexts), []);
    const ink = await view.evaluate('getComputedStyle(document.querySelector("article p")).color');
    const [red] = /[0-9]+/.exec(ink);
    assert.ok(Number(red) < 80, `ink is ${ink}`);
  });
});
