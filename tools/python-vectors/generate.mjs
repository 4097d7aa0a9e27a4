// Runs the *.py files of this folder that are named below in CPython 3.14, as the pyodide package carries it, and
// writes what they give under tests/vectors, each into the folder that is named beside it:
//
//   npm ci && npm run generate
//
// Each of them defines vectors(), which gives a list of (file name, text). The same input gives the same bytes.

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { loadPyodide } from "pyodide";

const here = dirname(fileURLToPath(import.meta.url));
const target = join(here, "../../tests/vectors");
const generators = {
  "text.py": "python",
  "path.py": "python",
  "timestamp.py": "python",
  "event_seconds.py": "capture",
  "json_text.py": "capture",
  "signal_rules.py": "capture",
};

const python = await loadPyodide();
for (const name of ["rows.py", ...Object.keys(generators)]) {
  python.FS.writeFile(`/home/pyodide/tessary_${name}`, readFileSync(join(here, name), "utf8"));
}
python.runPython(`
import sys, datetime, _datetime, json.encoder
assert sys.version_info[:2] == (3, 14), sys.version
assert datetime.datetime is _datetime.datetime, "the C implementation is the authority, not the Python one"
assert json.encoder.c_make_encoder is not None, "the C implementation is the authority, not the Python one"
sys.path.insert(0, "/home/pyodide")
`);

for (const [generator, folder] of Object.entries(generators)) {
  const module = `tessary_${generator.slice(0, -".py".length)}`;
  mkdirSync(join(target, folder), { recursive: true });
  for (const [name, text] of python.runPython(`import ${module}; ${module}.vectors()`).toJs()) {
    writeFileSync(join(target, folder, name), text);
    console.log(`${folder}/${name}: ${text.split("\n").length - 1} rows, ${text.length} bytes`);
  }
}
