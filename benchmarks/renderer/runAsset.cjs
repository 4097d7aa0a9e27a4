// The same asset in node or bun, as a user of theirs would host it: read the request, run the script, call `render`,
// write the result with its keys sorted.
//
//     node runAsset.cjs <folder with renderer.js>

"use strict";

const { randomUUID } = require("node:crypto");
const { readFileSync, writeSync } = require("node:fs");
const { runInThisContext } = require("node:vm");

const sorted = (value) => {
  if (value === null || typeof value !== "object") return value;
  if (Array.isArray(value)) return value.map(sorted);
  return Object.fromEntries(Object.keys(value).sort().map((key) => [key, sorted(value[key])]));
};

const request = JSON.parse(readFileSync(0, "utf8"));
runInThisContext(readFileSync(`${process.argv[2]}/renderer.js`, "utf8"));
const token = (randomUUID() + randomUUID()).replaceAll("-", "").toUpperCase();
const bytes = Buffer.from(JSON.stringify(sorted(globalThis.TessaryOfflineRenderer.render(request, token))));
for (let written = 0; written < bytes.length; ) written += writeSync(1, bytes, written);
