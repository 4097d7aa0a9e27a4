/** Stands for the entry of htmlparser2, of which only the tokenizer is used. */
export { default as Tokenizer } from '../../node_modules/htmlparser2/lib/esm/Tokenizer.js';
