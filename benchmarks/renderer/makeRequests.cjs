// Writes the requests that the comparison runs over: documents of given sizes, the same at every run.
//
//     node makeRequests.cjs <folder>

"use strict";

const { mkdirSync, writeFileSync } = require("node:fs");
const { join } = require("node:path");

let state = 1;
const random = (count) => {
  state = (Math.imul(state, 1103515245) + 12345) >>> 0;
  return (state >>> 16) % count;
};
const pick = (list) => list[random(list.length)];

const words = ("session plan renderer document agent library summary review revision folder process limit token capture "
  + "signal policy host stream buffer record reader writer schedule board feedback 문서 계획 요약 図書館 設計 entwurf größe").split(" ");
const sentence = () => {
  const text = Array.from({ length: 6 + random(12) }, () => pick(words)).join(" ");
  return text[0].toUpperCase() + text.slice(1) + ".";
};
const inline = () => pick([
  sentence,
  () => `**${pick(words)} ${pick(words)}** ${sentence()}`,
  () => `See \`${pick(words)}.${pick(words)}()\` and [the ${pick(words)}](https://example.org/${pick(words)}). ${sentence()}`,
  () => `_${pick(words)}_ ${sentence()} ~~${pick(words)}~~`,
])();

const code = {
  python: (name) => `def ${name}(items, limit=${random(100)}):\n    """Return the first items."""\n    for index, item in enumerate(items):\n        if index >= limit: break\n        yield f"{index}: {item}"\n`,
  typescript: (name) => `export async function ${name}(items: string[], limit = ${random(100)}): Promise<Map<string, number>> {\n  const counts = new Map<string, number>();\n  for (const item of items.slice(0, limit)) {\n    counts.set(item, (counts.get(item) ?? 0) + 1); // count \`\${item}\`\n  }\n  return counts;\n}\n`,
  cpp: (name) => `template <typename T>\nstd::vector<T> ${name}(std::span<const T> items, std::size_t limit = ${random(100)}) {\n  std::vector<T> result; /* at most limit */\n  for (const T& item : items)\n    if (result.size() < limit) result.push_back(item);\n  return result;\n}\n`,
  json: (name) => `{ "${name}": [1, 2.5, true, null], "path": "/home/${name}", "limit": ${random(100)} }\n`,
  bash: (name) => `for file in "$HOME/${name}"/*.md; do\n  grep -c "limit" "$file" || echo "none in \${file##*/}" >&2\ndone\n`,
};
const block = (number) => pick([
  () => `## ${number}. ${pick(words)} ${pick(words)}\n`,
  () => `${inline()} ${inline()} ${inline()}\n`,
  () => `${inline()} ${inline()}\n`,
  () => Array.from({ length: 3 + random(4) }, () => `- ${inline()}`).join("\n") + "\n",
  () => Array.from({ length: 3 }, (_, index) => `${index + 1}. ${sentence()}\n   - [${pick("x ")}] ${sentence()}`).join("\n") + "\n",
  () => `| ${pick(words)} | ${pick(words)} | count |\n|---|:-:|--:|\n` + Array.from({ length: 4 }, () => `| ${pick(words)} | \`${pick(words)}\` | ${random(1000)} |`).join("\n") + "\n",
  () => { const language = pick(Object.keys(code)); return "```" + language + "\n" + code[language](`f${number}`) + "```\n"; },
  () => `> ${inline()}\n> ${sentence()}\n`,
])();

const markdown = (bytes) => {
  let text = "---\ntitle: A plan\nagent: example\n---\n\n# A plan\n\n";
  for (let number = 1; Buffer.byteLength(text) < bytes; ++number) text += block(number) + "\n";
  return text;
};
const source = (bytes) => {
  let text = "";
  for (let number = 1; Buffer.byteLength(text) < bytes; ++number) text += code.typescript(`f${number}`) + "\n";
  return text;
};
const render = (text, kind, language) => ({ operation: "render", text, format: { kind, language }, frontmatterLabel: "Properties", allowsRemoteImages: false });

const folder = process.argv[2];
mkdirSync(folder, { recursive: true });
const requests = {
  "1-no-op.json": { operation: "nothing" },
  "2-markdown-1.6KB.json": render(markdown(1600), "markdown", null),
  "3-markdown-30KB.json": render(markdown(30_000), "markdown", null),
  "4-markdown-460KB.json": render(markdown(460_000), "markdown", null),
  "5-source-60KB.json": render(source(60_000), "code", "typescript"),
};
for (const [name, request] of Object.entries(requests)) writeFileSync(join(folder, name), JSON.stringify(request));
