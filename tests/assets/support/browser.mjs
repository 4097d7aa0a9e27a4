// A headless browser driven over its debugging pipe: messages are JSON texts that end in NUL, written to file
// descriptor 3 of the browser and read from its descriptor 4. No package and no network port is needed for that.

import { spawn } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';

import { browserExecutable } from './places.mjs';

const switches = [
  '--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--no-default-browser-check',
  '--disable-background-networking', '--disable-component-update', '--disable-sync', '--disable-extensions',
  '--disable-default-apps', '--disable-dev-shm-usage', '--mute-audio', '--hide-scrollbars',
  // Every frame in one process, so that one session sees all of them.
  '--disable-site-isolation-trials',
  '--disable-features=IsolateOrigins,site-per-process,IsolateSandboxedIframes,OptimizationHints,MediaRouter,Translate',
  // Nothing leaves this machine, whatever a page asks for: no name resolves.
  '--host-resolver-rules=MAP * ~NOTFOUND', '--no-proxy-server',
  '--remote-debugging-pipe', 'about:blank',
];

/** One running browser. `start` it, `attach` to a page, `stop` it; `stop` also removes its profile. */
export class Browser {
  #child;
  #profile;
  #lastId = 0;
  #waiting = new Map();
  #listeners = [];
  #unread = '';

  static async start() {
    const browser = new Browser();
    browser.#profile = mkdtempSync(join(tmpdir(), 'tessary-browser-'));
    browser.#child = spawn(browserExecutable(), [`--user-data-dir=${browser.#profile}`, ...switches],
      { stdio: ['ignore', 'ignore', 'ignore', 'pipe', 'pipe'] });
    browser.#child.on('exit', () => browser.#abandon('the browser has ended'));
    browser.#child.on('error', (error) => browser.#abandon(error.message));
    browser.#child.stdio[3].on('error', () => {});
    browser.#child.stdio[4].setEncoding('utf8').on('data', (text) => browser.#take(text));
    await browser.send('Browser.getVersion');
    return browser;
  }

  async stop() {
    const ended = new Promise((resolve) => this.#child.once('exit', resolve));
    await this.send('Browser.close').catch(() => {});
    const killer = setTimeout(() => this.#child.kill('SIGKILL'), 5_000);
    if (this.#child.exitCode === null && this.#child.signalCode === null) await ended;
    clearTimeout(killer);
    rmSync(this.#profile, { recursive: true, force: true, maxRetries: 5 });
  }

  /** Sends one command and resolves to its result; a command that the browser refuses is an error. */
  send(method, parameters = {}, sessionId = undefined) {
    const id = ++this.#lastId;
    return new Promise((resolve, reject) => {
      this.#waiting.set(id, { resolve, reject, method });
      this.#child.stdio[3].write(`${JSON.stringify({ id, method, params: parameters, sessionId })}\0`);
    });
  }

  /** Opens a new page and resolves to a session with it. */
  async openPage() {
    const { targetId } = await this.send('Target.createTarget', { url: 'about:blank' });
    const { sessionId } = await this.send('Target.attachToTarget', { targetId, flatten: true });
    return new Page(this, targetId, sessionId);
  }

  /** Calls `listener` with every event of the session `sessionId`. */
  listen(sessionId, listener) {
    this.#listeners.push({ sessionId, listener });
  }

  forget(sessionId) {
    this.#listeners = this.#listeners.filter((entry) => entry.sessionId !== sessionId);
  }

  #take(text) {
    const parts = (this.#unread + text).split('\0');
    this.#unread = parts.pop();
    for (const part of parts) this.#dispatch(JSON.parse(part));
  }

  #dispatch(message) {
    if (message.id === undefined) {
      for (const { sessionId, listener } of this.#listeners) {
        if (sessionId === message.sessionId) listener(message.method, message.params);
      }
      return;
    }
    const { resolve, reject, method } = this.#waiting.get(message.id);
    this.#waiting.delete(message.id);
    if (message.error) reject(new Error(`${method}: ${message.error.message}`));
    else resolve(message.result);
  }

  #abandon(reason) {
    for (const { reject, method } of this.#waiting.values()) reject(new Error(`${method}: ${reason}`));
    this.#waiting.clear();
  }
}

/** One page of a browser. */
export class Page {
  #browser;
  #targetId;
  #sessionId;

  constructor(browser, targetId, sessionId) {
    this.#browser = browser;
    this.#targetId = targetId;
    this.#sessionId = sessionId;
  }

  send(method, parameters) {
    return this.#browser.send(method, parameters, this.#sessionId);
  }

  /** Calls `listener(method, parameters)` with every event of this page. */
  listen(listener) {
    this.#browser.listen(this.#sessionId, listener);
  }

  /** The value of the script expression `expression` in the page; a promise is waited for. */
  async evaluate(expression) {
    const { result, exceptionDetails } =
      await this.send('Runtime.evaluate', { expression, awaitPromise: true, returnByValue: true });
    if (exceptionDetails) throw new Error(`${exceptionDetails.text} ${exceptionDetails.exception?.description ?? ''}`);
    return result.value;
  }

  async close() {
    this.#browser.forget(this.#sessionId);
    await this.#browser.send('Target.closeTarget', { targetId: this.#targetId });
  }
}
