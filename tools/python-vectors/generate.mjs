// Runs the *.py files of this folder that are named below in CPython 3.14, as the pyodide package carries it, and
// writes what they give under tests/vectors/python:
//
//   npm ci && npm run generate
//
// Each of them defines vectors(), which gives a list of (file name, text). The same input gives the same bytes.

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { loadPyodide } from "pyodide";

const here = dirname(fileURLToPath(import.meta.url));
const target = join(here, "../../tests/vectors/python");
const generators = ["rows.py", "text.py", "path.py", "timestamp.py"];

const python = await loadPyodide();
for (const name of generators) {
  python.FS.writeFile(`/home/pyodide/tessary_${name}`, readFileSync(join(here, name), "utf8"));
}
const files = python
  .runPython(
    `
import sys, datetime, _datetime
assert sys.version_info[:2] == (3, 14), sys.version
assert datetime.datetime is _datetime.datetime, "the C implementation is the authority, not the Python one"
sys.path.insert(0, "/home/pyodide")
import tessary_text, tessary_path, tessary_timestamp
tessary_text.vectors() + tessary_path.vectors() + tessary_timestamp.vectors()
`,
  )
  .toJs();

mkdirSync(target, { recursive: true });
for (const [name, text] of files) {
  writeFileSync(join(target, name), text);
  console.log(`${name}: ${text.split("\n").length - 1} rows, ${text.length} bytes`);
}
