/** Stands for the table of named character references where it is needed at once. */

/* global loadPart */

export const {
  BinTrieFlags,
  decodeHTML,
  decodeHTMLStrict,
  DecodingMode,
  determineBranch,
  EntityDecoder,
  htmlDecodeTree,
  xmlDecodeTree,
} = loadPart('entities');
