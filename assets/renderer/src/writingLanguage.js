/**
 * Which language a text is written in, as far as its look depends on it: Korean breaks lines between words only, and
 * Chinese and Japanese share code points that are drawn differently.
 */

// The beginning tells enough, and a document's first lines are the ones that are read.
const SAMPLE_UNITS = 4_096;

const SCRIPTS = [
  ['ko', /[\uac00-\ud7a3]/g],
  ['ja', /[\u3040-\u30ff]/g],
  ['th', /[\u0e00-\u0e7f]/g],
  ['zh', /[\u4e00-\u9fff]/g],
];

/** A language tag, or absent where the look does not depend on the language. */
export function writingLanguage(text) {
  const sample = text.slice(0, SAMPLE_UNITS);
  if (!/[\u0e00-\ud7a3]/.test(sample)) return undefined;
  for (const [language, script] of SCRIPTS) {
    // One character in twenty: a name or a quotation does not make the text foreign, and Japanese is mostly Han.
    const count = sample.match(script)?.length ?? 0;
    if (count * 20 > sample.length) return language;
  }
  return undefined;
}
