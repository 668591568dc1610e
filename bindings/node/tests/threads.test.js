'use strict';

const { test, before, beforeEach } = require('node:test');
const assert = require('node:assert/strict');
const { once } = require('node:events');
const path = require('node:path');
const { Worker } = require('node:worker_threads');

const tolvex = require('..');
const simulator = require('./simulator');

const kLimit = 60000;
const scale = new tolvex.Scale();
const ticket = new tolvex.Printer(tolvex.PrinterType.Ticket);

before(() => simulator.connect());
beforeEach(() => simulator.reset());

// The texts of the requests, from one confirmation to the next.
function printedJobs() {
  const jobs = [[]];
  for (const request of simulator.requests('printing').map((line) => JSON.parse(line))) {
    if (request.cmd === 'beginPrint') jobs.push([]);
    else if (request.text) jobs.at(-1).push(request.text);
  }
  return jobs.filter((job) => job.length > 0);
}

const lines = (name, count = 12) => Array.from({ length: count }, (_, i) => `${name} line ${i + 1}`);

function receipt(name) {
  const made = new tolvex.Receipt();
  for (const line of lines(name)) made.text(line);
  return made;
}

test('JavaScript goes on while a call waits for its reply', async () => {
  await simulator.post('/api/faults', { kind: 'no-answer', command: 'checkSomething', carried_out: false, times: 1 });
  const waiting = scale.rawCommand('checkSomething', { timeout: 600000 });
  let ended = false;
  waiting.catch(() => {}).finally(() => { ended = true; });
  // The service has the request, and gives no answer: what comes now is done meanwhile.
  const limit = AbortSignal.timeout(kLimit);
  while (simulator.requests('weighing').length === 0) {
    limit.throwIfAborted();
    await new Promise(setImmediate);
  }
  assert.equal((await ticket.status()).ready, true);
  assert.equal(ended, false);
  const failed = assert.rejects(waiting, { code: 4 });
  await simulator.replace();
  await failed;
});

test('weighing does not wait for printing', async () => {
  await simulator.post('/api/faults', { kind: 'delay', command: 'printtext', delay_ms: 600000, times: 1 });
  const failed = assert.rejects(receipt('slow').print(), { operation: 'BeginPrint' });
  assert.equal((await scale.read()).state, 'weight');
  await simulator.kill();
  await failed;
  await simulator.restart();
  await simulator.connectedAgain();
});

test('receipts that are printed at the same time come out one after the other', async () => {
  await Promise.all(['A', 'B', 'C'].map((name) => receipt(name).print()));
  assert.deepEqual(printedJobs(), ['A', 'B', 'C'].map((name) => lines(name)));
});

test('each failure has its own code, however many calls are under way', async () => {
  await simulator.post('/api/faults', { kind: 'result', command: 'setzero', code: 10 });
  await simulator.post('/api/faults', { kind: 'result', command: 'settarebykey', code: 1005 });
  const calls = [];
  for (let i = 0; i < 50; i += 1) {
    calls.push(assert.rejects(scale.zero(), { code: 10 }), assert.rejects(scale.tare(), { code: 1005 }), scale.read());
  }
  await Promise.all(calls);
});

test('what waits in JavaScript is refused while something asynchronous goes on with the same connection', async () => {
  const reading = scale.read();
  assert.throws(() => scale.readSync(), { code: 'ERR_TOLVEX_BUSY' });
  assert.equal(ticket.statusSync().ready, true); // the other connection
  await reading;
  assert.equal(scale.readSync().state, 'weight');
});

test('another copy of the package takes its turn with this one', async () => {
  const kept = Object.keys(require.cache).filter((file) => file.startsWith(path.dirname(require.resolve('..'))))
    .map((file) => [file, require.cache[file]]);
  for (const [file] of kept) delete require.cache[file];
  const copy = require('..');
  for (const [file, module] of kept) require.cache[file] = module;
  assert.notEqual(copy.Scale, tolvex.Scale);

  const reading = scale.read();
  assert.throws(() => new copy.Scale().readSync(), { code: 'ERR_TOLVEX_BUSY' }); // and does not wait for ever
  await reading;
  const other = new copy.Receipt();
  for (const line of lines('B')) other.text(line);
  await Promise.all([receipt('A').print(), other.print()]);
  assert.deepEqual(printedJobs(), ['A', 'B'].map((name) => lines(name)));
});

test('a failed call makes way for the next one', async () => {
  await simulator.patch('/api/scale', { connected: false });
  const failing = assert.rejects(scale.read(), { code: 1007 });
  const alive = tolvex.checkConnection();
  await failing;
  assert.equal(await alive, true);
});

async function inWorkers(names, work) {
  const workers = names.map((name) => new Worker(path.join(__dirname, 'worker.js'), { workerData: { name, work } }));
  await Promise.all(workers.map(async (worker) => {
    const [status] = await once(worker, 'exit', { signal: AbortSignal.timeout(kLimit) });
    assert.equal(status, 0, 'a worker failed');
  }));
}

test('a worker has its turn on a connection to itself', async () => {
  const { printing, weighing } = require('../lib/connection');
  const held = new Int32Array(new SharedArrayBuffer(4));
  const worker = new Worker(path.join(__dirname, 'worker.js'), { workerData: { work: 'hold', held } });
  await once(worker, 'message', { signal: AbortSignal.timeout(kLimit) });
  const taken = [printing, weighing].map((connection) => connection.threads().tryTake());
  Atomics.store(held, 0, 1);
  Atomics.notify(held, 0);
  assert.deepEqual(taken, [false, true]);
  weighing.threads().release();
  await once(worker, 'exit', { signal: AbortSignal.timeout(kLimit) });
  assert.equal(printing.threads().tryTake(), true);
  printing.threads().release();
});

test('receipts that several workers print at the same time are not mixed', async () => {
  await inWorkers(['A', 'B', 'C'], 'print');
  const jobs = printedJobs();
  assert.equal(jobs.length, 15);
  for (const job of jobs) assert.deepEqual(job, lines(job[0].slice(0, 1)));
});

test('one worker weighs while another one prints', async () => {
  await simulator.patch('/api/scale', { load_kg: 0.5 });
  await Promise.all([inWorkers(['A'], 'weigh'), inWorkers(['B'], 'print')]);
  assert.equal(printedJobs().length, 5);
});

test('the library stays when a worker that used it has ended', async () => {
  await inWorkers(['A'], 'weigh');
  assert.equal((await scale.read()).state, 'weight');
});

test('a worker that was ended within a job does not keep the others from printing', async () => {
  await simulator.post('/api/faults', { kind: 'delay', command: 'printtext', delay_ms: 500, times: 1 });
  const worker = new Worker(path.join(__dirname, 'worker.js'), { workerData: { name: 'A', work: 'print' } });
  const limit = AbortSignal.timeout(kLimit);
  while (simulator.requests('printing').length === 0) {
    limit.throwIfAborted();
    await new Promise(setImmediate);
  }
  await worker.terminate();
  await receipt('B').print();
});
