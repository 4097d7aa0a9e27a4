/**
 * The request as the renderer reads it: what is missing or of the wrong type is absent, and nothing throws.
 */

function text(value) {
  return typeof value === 'string' ? value : undefined;
}

// Half a surrogate pair has no form in UTF-8, so it may not reach the result.
function wellFormed(value) {
  if (!/[\ud800-\udfff]/.test(value)) return value;
  return value.replace(/\p{Surrogate}/gu, '\ufffd');
}

/**
 * @param {unknown} value the parsed request
 * @returns {{operation?: string, text: string, kind?: string, language?: string, frontmatterLabel?: string,
 *   allowsRemoteImages: boolean}}
 */
export function readRequest(value) {
  const fields = typeof value === 'object' && value !== null ? value : {};
  const format = typeof fields.format === 'object' && fields.format !== null ? fields.format : {};
  return {
    operation: text(fields.operation),
    text: wellFormed(text(fields.text) ?? ''),
    kind: text(format.kind),
    language: text(format.language),
    frontmatterLabel: text(fields.frontmatterLabel),
    allowsRemoteImages: fields.allowsRemoteImages === true,
  };
}
