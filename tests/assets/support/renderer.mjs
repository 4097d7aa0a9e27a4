// Rendering through the real process: one process per request, the request on standard input, as a host does it.

import { spawn } from 'node:child_process';
import { availableParallelism } from 'node:os';

import { assetFolder, rendererExecutable } from './places.mjs';

/**
 * Runs the process once with `request` (any value that JSON can express) and resolves to how it ended:
 * `status` (null after a signal), `signal` (null after an exit), `output` and `complaints` (standard error) as text.
 */
export function run(request) {
  return new Promise((resolve, reject) => {
    const child = spawn(rendererExecutable(), ['--assets', assetFolder()], { stdio: ['pipe', 'pipe', 'pipe'] });
    const output = [];
    const complaints = [];
    child.stdout.on('data', (bytes) => output.push(bytes));
    child.stderr.on('data', (bytes) => complaints.push(bytes));
    child.on('error', reject);
    // A process that ends before it has read its input closes the pipe; how it ended is the answer, not this.
    child.stdin.on('error', () => {});
    child.on('close', (status, signal) => resolve({
      status, signal,
      output: Buffer.concat(output).toString('utf8'),
      complaints: Buffer.concat(complaints).toString('utf8'),
    }));
    child.stdin.end(JSON.stringify(request));
  });
}

/** The request for one document. `format` is "markdown", "html" or "code"; `fields` overrides and adds fields. */
export function renderRequest(format, text, fields = {}) {
  return {
    operation: 'render', text, format: { kind: format }, frontmatterLabel: 'Front matter', allowsRemoteImages: false,
    ...fields,
  };
}

/** Runs the process with `request` and resolves to the result; any other end than success with silence is an error. */
export async function result(request) {
  const ended = await run(request);
  if (ended.status !== 0 || ended.complaints !== '') {
    throw new Error(`the process ended with status ${ended.status}, signal ${ended.signal}: ` +
      `${ended.output.slice(0, 200)}${ended.complaints.slice(0, 200)}`);
  }
  return JSON.parse(ended.output);
}

/** Renders one document and resolves to its result. */
export const rendered = (format, text, fields) => result(renderRequest(format, text, fields));

/** Applies the asynchronous `operation` to all `items`, as many at a time as there are cores; answers in their order. */
export async function mapConcurrently(items, operation) {
  const answers = new Array(items.length);
  let next = 0;
  const worker = async () => {
    while (next < items.length) {
      const index = next++;
      answers[index] = await operation(items[index], index);
    }
  };
  await Promise.all(Array.from({ length: availableParallelism() }, worker));
  return answers;
}
