'use strict';

const assert = require('node:assert/strict');
const { parentPort, workerData } = require('node:worker_threads');

const tolvex = require('..');

async function print() {
  const receipt = new tolvex.Receipt();
  for (let i = 1; i <= 12; i += 1) receipt.text(`${workerData.name} line ${i}`);
  for (let i = 0; i < 5; i += 1) {
    if (i % 2 === 0) await receipt.print();
    else receipt.printSync();
  }
}

async function weigh() {
  for (let i = 0; i < 100; i += 1) {
    const reading = i % 2 === 0 ? await new tolvex.Scale().read() : new tolvex.Scale().readSync();
    assert.equal(reading.state, 'weight');
  }
}

// Keeps its turn for printing until it is told.
function hold() {
  require('../lib/connection').printing.runSync((function* work() {
    parentPort.postMessage('held');
    Atomics.wait(workerData.held, 0, 0);
  })());
}

({ print, weigh, hold })[workerData.work]();
