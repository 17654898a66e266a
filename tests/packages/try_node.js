'use strict';
// Tries the npm package in the project that this file lies in: try_node.js DRAWING

const assert = require('node:assert');
const {convert} = require('dwg-import-worker');

async function main(drawing) {
  const result = await convert(drawing);
  assert.equal(result.kind, 'document', result.message);
  assert.ok(result.document.entities.length > 0);
  const complete = await convert(drawing, {complete: true});
  assert.equal(complete.document.form.name, 'complete');
  assert.equal((await convert('none.dwg')).kind, 'refused');
  assert.equal((await convert(drawing, {maxBytes: 10})).kind, 'bad');
  if (process.platform !== 'win32') {
    assert.notEqual((await convert(drawing, {megabytes: 1})).kind, 'document');
  }
}

main(process.argv[2]).catch((error) => {
  console.error(error);
  process.exit(1);
});
