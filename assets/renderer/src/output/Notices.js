import { NOTICES } from '../limits.js';

/** Remarks for the reader, each said once, in the order in which they came up. */
export class Notices {
  constructor() {
    this.list = [];
  }

  add(notice) {
    if (this.list.length < NOTICES && !this.list.includes(notice)) this.list.push(notice);
  }
}
