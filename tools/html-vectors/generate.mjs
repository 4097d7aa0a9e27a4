// Runs the Python scripts of this folder in the CPython that the package `pyodide` holds, and writes what they give.
// Each script defines `files()`, which returns a dictionary from a path in this repository to the text of that file.
//
//   npm ci && npm run generate

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { loadPyodide } from "pyodide";

const here = dirname(fileURLToPath(import.meta.url));
const root = join(here, "..", "..");

const python = await loadPyodide();
for (const script of ["entities.py", "events.py"]) {
  const scope = python.toPy({});
  python.runPython(readFileSync(join(here, script), "utf8"), { globals: scope });
  const files = python.runPython("files()", { globals: scope }).toJs({ dict_converter: Object.fromEntries });
  for (const [path, text] of Object.entries(files)) {
    mkdirSync(dirname(join(root, path)), { recursive: true });
    writeFileSync(join(root, path), text);
    console.log(`${path}: ${text.length} characters`);
  }
}
