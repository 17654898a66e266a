'use strict';
// Converts CAD drawings with the program that this package holds, as a process of its
// own, under limits. What a drawing does never rejects: the result says how the run ended.

const {spawn} = require('node:child_process');
const path = require('node:path');

const SUFFIX = process.platform === 'win32' ? '.exe' : '';

/** The path of the program for this system. */
function program() {
  return path.join(__dirname, 'programs', `${process.platform}-${process.arch}`,
                   `dwg_import_worker${SUFFIX}`);
}

/** The command that sets the limit of memory for itself first, where a shell can. */
function command(words, megabytes) {
  if (process.platform === 'win32') {
    return [program(), words];
  }
  const script = `ulimit -c 0; ulimit -v ${Math.trunc(megabytes) * 1024}; exec "$0" "$@"`;
  return ['/bin/sh', ['-c', script, program(), ...words]];
}

function explain(code, signal, output) {
  if (signal !== null) {
    return {kind: 'crashed', message: `the worker was ended by ${signal}`};
  }
  if (code !== 0 && code !== 1) {
    return {kind: 'crashed', message: `the worker ended with the code ${code}`};
  }
  const text = output.toString('utf8');
  if (!text.endsWith('\n')) {
    return {kind: 'bad', message: "the worker's answer is cut off"};
  }
  let answer;
  try {
    answer = JSON.parse(text);
  } catch (error) {
    return {kind: 'bad', message: `the worker's answer is no JSON: ${error.message}`};
  }
  if (code === 1) {
    return {kind: 'refused', message: answer.error};
  }
  return {kind: 'document', message: 'converted', document: answer};
}

/** Converts one drawing. See index.d.ts. */
function convert(drawing, {seconds = 60, megabytes = 2048, maxBytes = 2 ** 28,
                           complete = false, onProgress = () => {}} = {}) {
  return new Promise((resolve) => {
    const [file, words] = command(
        [path.resolve(drawing), ...(complete ? ['--complete'] : [])], megabytes);
    const child = spawn(file, words, {stdio: ['ignore', 'pipe', 'pipe'], windowsHide: true});
    let ended = null;
    const end = (kind, message) => {
      ended = ended ?? {kind, message};
      child.kill('SIGKILL');
    };
    const timer = setTimeout(
        () => end('timeout', `the drawing took longer than ${seconds} seconds`), seconds * 1000);
    const pieces = [];
    let size = 0;
    child.stdout.on('data', (piece) => {
      size += piece.length;
      if (size > maxBytes) {
        end('bad', `the document is larger than ${maxBytes} bytes`);
      } else {
        pieces.push(piece);
      }
    });
    let rest = '';
    child.stderr.setEncoding('utf8').on('data', (text) => {
      const lines = (rest + text).split('\n');
      rest = lines.pop();
      lines.forEach((line) => onProgress(line));
    });
    child.on('error', (error) => {
      clearTimeout(timer);
      resolve({kind: 'bad', message: `the worker cannot be started: ${error.message}`});
    });
    child.on('close', (code, signal) => {
      clearTimeout(timer);
      resolve(ended ?? explain(code, signal, Buffer.concat(pieces)));
    });
  });
}

module.exports = {convert, program};
