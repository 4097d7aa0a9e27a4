// A bench on which markup is opened in a browser with scripting on, and watched: every case in a frame of its own, so
// that none hides another, and every request answered here, so that nothing leaves the browser and nothing is missed.
//
// Markup enters a frame in one of three ways, since each has tricks of its own: as the page that the browser reads
// ("served"), by document.write ("written"), or as innerHTML that is read out and set once more ("inserted"), which is
// what a host with its own view does and where markup that changes at its second reading shows itself. Markup that is
// held to do nothing may enter one frame in all three ways ("every way"). Then the frame is exercised: everything in it
// is pressed, focused, and sent each event that it has a handler for.
//
// What counts: a call of `fired` or of a dialogue, a request, a frame inside, a navigation, a new window, and a global
// named `shadowed`. Pressing a link to an ordinary address is what a reader may do, so that navigation is held back.

const origin = 'http://bench.test';

/** The ways in which markup enters a frame. */
export const entries = ['served', 'written', 'inserted'];

// Runs in every frame before anything else in it.
const watch = `(() => {
  const tell = globalThis.tellBench;
  globalThis.fired = () => { tell('runs'); };
  for (const name of ['alert', 'confirm', 'prompt', 'print']) globalThis[name] = globalThis.fired;
  const ordinary = (link) => /^(?:https?:\\/\\/|mailto:|#)/i.test(link.getAttribute('href') ?? '#');
  globalThis.exerciseFrame = () => {
    window.addEventListener('click', (event) => {
      const link = event.target.closest?.('a, area');
      if (link && ordinary(link)) event.preventDefault();
    });
    if ('shadowed' in globalThis || 'shadowed' in document) tell('shadows');
    const attempt = (action) => { try { action(); } catch { /* an element may refuse; that is its answer */ } };
    const visit = (root) => {
      for (const element of root.querySelectorAll('*')) {
        attempt(() => element.focus?.());
        attempt(() => element.click ? element.click() : element.dispatchEvent(new MouseEvent('click', {bubbles: true, cancelable: true})));
        for (const { name } of [...element.attributes]) {
          if (/^on/i.test(name)) attempt(() => element.dispatchEvent(new Event(name.slice(2).toLowerCase(), {bubbles: true})));
        }
        if (element.shadowRoot) visit(element.shadowRoot);
      }
    };
    visit(document);
  };
})();`;

const scriptText = (value) => JSON.stringify(value).replaceAll('<', '\\u003c');

const writes = (markup) => `<script>document.write(${scriptText(markup)})</script>`;
const inserts = (markup) => `<div id="place"></div><script>{const place = document.getElementById('place');
  place.innerHTML = ${scriptText(markup)}; place.innerHTML = place.innerHTML;}</script>`;

const bodies = {
  'served': (markup) => markup,
  'written': writes,
  'inserted': inserts,
  'every way': (markup) => markup + writes(markup) + inserts(markup),
};

/** The document that brings `markup` into a frame in the way `entry`. */
function frameDocument({ markup, styleSheet = '', entry }) {
  return `<!DOCTYPE html><html><head><meta charset="utf-8"><title>case</title><style>${styleSheet}</style></head><body>` +
    bodies[entry](markup);
}

/** Loads a frame for each case and exercises all of them. Runs in the bench's own page. */
const openFrames = (count) => `new Promise((resolve) => {
  const frames = [];
  let left = ${count};
  const exercise = () => {
    for (const frame of frames) { try { frame.contentWindow.exerciseFrame(); } catch { /* it has gone elsewhere */ } }
    setTimeout(resolve, 150);
  };
  const late = setTimeout(exercise, 8000);
  const done = () => { if (--left === 0) { clearTimeout(late); setTimeout(exercise, 50); } };
  for (let i = 0; i < ${count}; i++) {
    const frame = document.createElement('iframe');
    frame.addEventListener('load', done, { once: true });
    frame.src = '/case/' + i;
    frames.push(frame);
    document.body.append(frame);
  }
})`;

/** What one page saw: for each case the set of what it did. */
class Watcher {
  #page;
  #cases;
  #caseOfFrame = new Map();
  #contexts = new Map();
  #topFrame;
  deeds;

  constructor(page, cases, topFrame) {
    this.#page = page;
    this.#cases = cases;
    this.#topFrame = topFrame;
    this.deeds = cases.map(() => new Set());
  }

  /** Takes one event of the page. */
  take(method, parameters) {
    switch (method) {
      case 'Page.frameAttached': return this.#frameAttached(parameters);
      case 'Page.frameNavigated': return this.#frameNavigated(parameters.frame);
      case 'Page.windowOpen': return this.#everyCase(`opens ${parameters.url}`);
      case 'Page.javascriptDialogOpening':
        return void this.#page.send('Page.handleJavaScriptDialog', { accept: false }).catch(() => {});
      case 'Runtime.executionContextCreated':
        return void this.#contexts.set(parameters.context.id, parameters.context.auxData.frameId);
      case 'Runtime.bindingCalled':
        return this.#note(this.#contexts.get(parameters.executionContextId), parameters.payload);
      case 'Fetch.requestPaused': return void this.#answer(parameters).catch(() => {});
      default:
    }
  }

  #frameAttached({ frameId, parentFrameId }) {
    if (parentFrameId === this.#topFrame) return;
    this.#caseOfFrame.set(frameId, this.#caseOfFrame.get(parentFrameId));
    this.#note(frameId, 'opens a frame');
  }

  #frameNavigated({ id, url, parentId }) {
    const own = url.startsWith(`${origin}/case/`) && parentId === this.#topFrame;
    if (own && !this.#caseOfFrame.has(id)) this.#caseOfFrame.set(id, Number(url.slice(origin.length + 6)));
    else if (parentId && !url.startsWith(origin) && url !== 'about:blank') this.#note(id, `goes to ${url.slice(0, 80)}`);
  }

  async #answer({ requestId, request, frameId, resourceType }) {
    const path = request.url.startsWith(`${origin}/`) ? request.url.slice(origin.length) : null;
    const number = /^\/case\/([0-9]+)$/.exec(path)?.[1];
    if (path === '/') return this.#fulfil(requestId, '<!DOCTYPE html><title>bench</title><body>');
    if (path === '/favicon.ico') return this.#refuse(requestId);
    if (number !== undefined && !this.#caseOfFrame.has(frameId)) {
      this.#caseOfFrame.set(frameId, Number(number));
      return this.#fulfil(requestId, frameDocument(this.#cases[number]));
    }
    this.#note(frameId, `asks for ${request.url.slice(0, 80)}`);
    // "No content" leaves a page where it is; a refusal would put an error page in its place.
    return resourceType === 'Document' ? this.#fulfil(requestId, '', 204) : this.#refuse(requestId);
  }

  #fulfil(requestId, text, responseCode = 200) {
    return this.#page.send('Fetch.fulfillRequest', {
      requestId, responseCode, body: Buffer.from(text, 'utf8').toString('base64'),
      responseHeaders: [{ name: 'Content-Type', value: 'text/html; charset=utf-8' }],
    });
  }

  #refuse(requestId) {
    return this.#page.send('Fetch.failRequest', { requestId, errorReason: 'BlockedByClient' });
  }

  // A deed that cannot be laid at one case's door is laid at everyone's, so that it is never lost.
  #note(frameId, deed) {
    const number = this.#caseOfFrame.get(frameId);
    if (number === undefined) this.#everyCase(deed);
    else this.deeds[number].add(deed);
  }

  #everyCase(deed) {
    for (const deeds of this.deeds) deeds.add(`${deed} (one of a page)`);
  }
}

/**
 * Opens every case ({markup, styleSheet, entry}) in a frame of one new page of `browser`; resolves to the deeds of each
 * case, as a list of texts, empty where the case did nothing.
 */
export async function watchOnePage(browser, cases) {
  const page = await browser.openPage();
  const { frameTree } = await page.send('Page.getFrameTree');
  const watcher = new Watcher(page, cases, frameTree.frame.id);
  page.listen((method, parameters) => watcher.take(method, parameters));
  await page.send('Page.enable');
  await page.send('Runtime.enable');
  await page.send('Runtime.addBinding', { name: 'tellBench' });
  await page.send('Page.addScriptToEvaluateOnNewDocument', { source: watch });
  await page.send('Fetch.enable', { patterns: [{ urlPattern: '*' }] });
  await page.send('Page.navigate', { url: `${origin}/` });
  await page.evaluate('document.readyState === "complete" || new Promise((done) => addEventListener("load", done))');
  await page.evaluate(openFrames(cases.length));
  await page.close();
  return watcher.deeds.map((deeds) => [...deeds]);
}

/** As `watchOnePage`, for any number of cases, `perPage` frames to a page. */
export async function watchAll(browser, cases, perPage = 100) {
  const deeds = [];
  for (let at = 0; at < cases.length; at += perPage) {
    deeds.push(...await watchOnePage(browser, cases.slice(at, at + perPage)));
  }
  return deeds;
}
