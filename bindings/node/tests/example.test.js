// The example as it is shipped, with a simulator that plays examples/sale.json.
'use strict';

const { test } = require('node:test');
const assert = require('node:assert/strict');
const path = require('node:path');
const { pathToFileURL } = require('node:url');

const simulator = require('./simulator');

test('the sale goes through, though the paper ends in the middle of the receipt', async (t) => {
  const printed = [];
  t.mock.method(console, 'log', (line) => { printed.push(line); });
  process.argv[2] = process.env.TOLVEX_TEST_ADDRESS;
  await import(pathToFileURL(path.join(__dirname, '../examples/checkout.mjs')));
  t.mock.restoreAll();
  assert.deepEqual(printed, [
    'Scale up to 15 kg, in steps of 0.001 kg and more',
    '> Please put the empty bowl on the scale.',
    '  tare 0.120',
    '> Please put the cheese into the bowl.',
    '  net 00.3560 kg',
    '! Out of Paper: Put in new paper, close the cover, and print the job again: what came out before is not complete.',
    'Receipt printed and cut.',
    'Drawer opened.',
  ]);
  assert.equal(process.exitCode ?? 0, 0);
  const jobs = await simulator.jobs();
  const lines = (await simulator.paper(jobs.at(-1).number)).split('\n').map((line) => line.trim().replace(/ +/g, ' '));
  assert.deepEqual(lines.slice(0, 8), ['CHEESE & MORE', '', 'Mountain cheese', '0.356 kg x 18.90/kg 6.73', '-'.repeat(48),
    'TOTAL 6.73', '', 'Thank you!']);
  assert.equal((await simulator.get('/api/drawer')).openings, 1);
});
