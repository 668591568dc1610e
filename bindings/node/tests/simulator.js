// The simulator that run.mjs started for this process, and what tests do with it.
'use strict';

const assert = require('node:assert/strict');
const fs = require('node:fs');
const http = require('node:http');
const { setTimeout: pause } = require('node:timers/promises');

const tolvex = require('..');

const kLimit = 60000;

let url = process.env.TEST_SIMULATOR;
let recording = process.env.TEST_RECORDING;
let seen = 0;

// Not by fetch, whose connections Wine refuses.
function exchange(method, address, body) {
  return new Promise((take, fail) => {
    const headers = body === undefined ? {} : { 'Content-Type': 'application/json', 'Content-Length': Buffer.byteLength(body) };
    const request = http.request(address, { method, headers, signal: AbortSignal.timeout(kLimit) }, async (response) => {
      try {
        const parts = [];
        for await (const part of response) parts.push(part);
        const text = Buffer.concat(parts).toString();
        if (response.statusCode >= 300) throw new Error(`${method} ${address}: ${response.statusCode} ${text}`);
        take(/json/.test(response.headers['content-type']) ? JSON.parse(text) : text);
      } catch (error) {
        fail(error);
      }
    });
    request.on('error', fail);
    request.end(body);
  });
}

const call = (method, path, body) => exchange(method, new URL(path, url), body === undefined ? undefined : JSON.stringify(body));
const ask = (what) => exchange('GET', new URL(what, process.env.TEST_CONTROL));

/** Lets the process talk to its own simulator; has to come before any other call. */
function connect() {
  tolvex.setServer(process.env.TOLVEX_TEST_ADDRESS);
}

const kill = () => ask('/kill');

async function restart() {
  const started = await ask('/start');
  url = started.url;
  recording = started.recording;
  seen = 0;
}

// The library learns with a send that a connection was lost, and that may go well for a while: until then calls fail.
async function connectedAgain({ printing = true } = {}) {
  await succeeds('a connection for weighing', () => tolvex.checkConnection());
  if (printing) {
    const status = new tolvex.Printer(tolvex.PrinterType.Ticket);
    await succeeds('a connection for printing', async () => { await status.status(); return true; });
  }
}

/** Asks until the answer is true. */
async function succeeds(what, question) {
  const end = performance.now() + kLimit;
  for (let problem = 'no'; ;) {
    try {
      if (await question()) return;
    } catch (error) {
      problem = error;
    }
    assert.ok(performance.now() < end, `${what} did not come within ${kLimit} ms: ${problem}`);
    await pause(20);
  }
}

/** Ends all that the simulator keeps waiting, by another one in its place. */
async function replace() {
  await kill();
  await restart();
  await connectedAgain();
}

/** The bytes of the requests that have come since the last call, of one port or both, in their order. */
function requests(port) {
  const lines = fs.readFileSync(recording, 'utf8').split('\n').filter(Boolean).map((line) => JSON.parse(line)).slice(1);
  const fresh = lines.slice(seen);
  seen = lines.length;
  return fresh.filter((line) => port === undefined || line.port === port).map((line) => {
    assert.equal(line.request_base64, undefined, 'the request is no UTF-8');
    return line.request;
  });
}

/** Back to the start, with what the scale has on it. */
async function reset(patch = {}) {
  await call('POST', '/api/reset', { scale: { settling_s: 0 }, ...patch });
  requests();
}

/** The text on the paper of a job. */
const paper = (number) => call('GET', `/api/jobs/${number}/paper.txt`);

async function jobs() {
  return (await call('GET', '/api/jobs')).jobs;
}

module.exports = {
  connect, kill, restart, replace, connectedAgain, requests, reset, paper, jobs,
  get: (path) => call('GET', path),
  patch: (path, body) => call('PATCH', path, body),
  post: (path, body) => call('POST', path, body),
  remove: (path) => call('DELETE', path),
};
