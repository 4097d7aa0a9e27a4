/** Part "entities": named character references. */
export {
  BinTrieFlags,
  decodeHTML,
  decodeHTMLStrict,
  DecodingMode,
  determineBranch,
  EntityDecoder,
  htmlDecodeTree,
  xmlDecodeTree,
} from 'entities/lib/decode.js';
