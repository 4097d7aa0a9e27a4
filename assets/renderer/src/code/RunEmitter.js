/**
 * Takes the highlighter's events and keeps, for every stretch of text, the class of the innermost scope that has a
 * colour. The highlighter's own HTML is never used.
 */

import { scopeClass } from './scopeClasses.js';

/** Scope to class, for the scopes met so far; absent classes too. */
const classes = new Map();

function classOf(scope) {
  if (!classes.has(scope)) classes.set(scope, scopeClass(scope));
  return classes.get(scope);
}

export class RunEmitter {
  /** Milliseconds since 1970 after which a text is given up, between two of its windows. */
  static deadline = Infinity;

  constructor() {
    /** Class and text in turn; neighbours differ in class. */
    this.runs = [];
    this.scopes = [''];
  }

  addText(text) {
    this.addRun(this.scopes[this.scopes.length - 1], text);
  }

  openNode(scope) {
    const own = classOf(scope);
    this.scopes.push(own === undefined ? this.scopes[this.scopes.length - 1] : own);
  }

  closeNode() {
    if (this.scopes.length > 1) this.scopes.pop();
  }

  startScope(scope) {
    this.openNode(scope);
  }

  endScope() {
    this.closeNode();
  }

  closeAllNodes() {
    this.scopes.length = 1;
  }

  __addSublanguage(emitter) {
    if (Date.now() > RunEmitter.deadline) throw new Error('the time for highlighting is over');
    for (let i = 0; i < emitter.runs.length; i += 2) this.addRun(emitter.runs[i], emitter.runs[i + 1]);
  }

  finalize() {}

  toHTML() {
    return '';
  }

  addRun(colour, text) {
    if (text === '') return;
    const last = this.runs.length - 2;
    if (last >= 0 && this.runs[last] === colour) this.runs[last + 1] += text;
    else this.runs.push(colour, text);
  }
}
