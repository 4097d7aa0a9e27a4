/** Named character references, whose table is large, loaded with the first one that a text holds. */

/* global loadPart */

export const decodeHTML = (text) => loadPart('entities').decodeHTML(text);
export const decodeHTMLStrict = (text) => loadPart('entities').decodeHTMLStrict(text);
