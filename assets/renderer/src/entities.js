/** Part "entities": named character references. */
export { decodeHTML, decodeHTMLStrict } from 'entities';
