/** Stands for the parser's own search for addresses, which is not used and slow to load. */
export default class NoLinkify {}
