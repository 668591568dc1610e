'use strict';

const { test, before, beforeEach } = require('node:test');
const assert = require('node:assert/strict');
const { once } = require('node:events');
const net = require('node:net');

const tolvex = require('..');
const simulator = require('./simulator');

const scale = new tolvex.Scale();
const ticket = new tolvex.Printer(tolvex.PrinterType.Ticket);

before(() => simulator.connect());
beforeEach(() => simulator.reset());

test('paper that ends in the middle of a job is an error, and the receipt can be printed again', async () => {
  const receipt = new tolvex.Receipt();
  for (let i = 1; i <= 20; i += 1) receipt.wrapped(`line ${i}`);
  await simulator.patch('/api/printers/Ticket', { paper: { left_mm: 30 } });
  await assert.rejects(receipt.print(), {
    name: 'TolvexError', code: 2006, codeName: 'OutOfPaper', operation: 'BeginPrint',
    message: 'BeginPrint: 2006 OutOfPaper (Out of Paper). The printer has no paper left. What to do: Put in new paper, close the ' +
      'cover, and print the job again: what came out before is not complete.',
  });
  assert.equal((await ticket.status()).codeName, 'OutOfPaper');
  await simulator.post('/api/printers/Ticket/load-paper', {});
  assert.equal((await ticket.status()).ready, true);
  simulator.requests();
  await ticket.cut();
  await receipt.print();
  const sent = simulator.requests().map((request) => JSON.parse(request));
  assert.deepEqual(sent.map(({ cmd }) => cmd), ['cutPaper', ...Array(20).fill('print_text_width'), 'beginPrint', 'cutPaper']);
  const last = (await simulator.jobs()).at(-1);
  const lines = (await simulator.paper(last.number)).split('\n').map((line) => line.trim()).filter(Boolean);
  assert.deepEqual(lines.slice(0, 20), Array.from({ length: 20 }, (_, i) => `line ${i + 1}`));
});

test('nothing of a job that failed is printed with the next one', async () => {
  await simulator.post('/api/faults', { kind: 'result', command: 'printtext', code: 2007, times: 1 });
  await assert.rejects(new tolvex.Receipt().text('one').text('two').text('three').print(), { code: 2007 });
  simulator.requests();
  await new tolvex.Receipt().text('next').print(tolvex.JobType.Ticket);
  assert.deepEqual(simulator.requests().map((request) => JSON.parse(request).text), ['next', undefined]);
});

test('a reply that is no JSON is an unreadable one', async () => {
  await simulator.post('/api/faults', { kind: 'garbage', command: 'printerStatus', times: 1 });
  await assert.rejects(ticket.status(), { name: 'TolvexError', code: -1, codeName: 'UnreadableReply' });
  await simulator.post('/api/faults', { kind: 'garbage', command: 'opencashbox', times: 1 });
  await assert.rejects(tolvex.openCashDrawer(), { code: -1, codeName: 'UnreadableReply', operation: 'OpenCashDrawerEx' });
  assert.equal((await ticket.status()).ready, true);
});

test('a connection that is reset instead of a reply is a failed exchange', async () => {
  await simulator.post('/api/faults', { kind: 'reset', command: 'getweight', times: 1 });
  await assert.rejects(scale.read(), { code: 4, codeName: 'SocketInterrupt', operation: 'read_standard' });
  await simulator.connectedAgain();
  assert.equal((await scale.read()).state, 'weight');
});

test('a failed verdict behind which stands no code says that there is none', () => {
  const error = tolvex.TolvexError.behindVerdict('cutPaper', 0);
  assert.equal(error.codeName, 'NoCode');
  assert.match(error.message, /^cutPaper: 0 NoCode \(no code\)\. .*another call ended at the same time, or an argument was refused\. .*log/);
});

test('a service that is gone is an error, and what is tried after its return works', async () => {
  await scale.read();
  await simulator.kill();
  await assert.rejects(scale.read(), { name: 'TolvexError', code: 4, operation: 'read_standard' });
  await assert.rejects(new tolvex.Receipt().text('lost').print(), { name: 'TolvexError', operation: 'BeginPrint' });
  assert.equal(await tolvex.checkConnection(), false);
  await simulator.restart();
  await simulator.connectedAgain();
  await new tolvex.Receipt().text('found').print();
  const printed = simulator.requests('printing').join();
  assert.match(printed, /found/);
  assert.doesNotMatch(printed, /lost/);
});

// A service of the test's own, for replies that the simulator does not give. It comes last, in the simulator's place.
test('weights of another service are read exactly, or not at all', async (t) => {
  await simulator.kill();
  let reply = '';
  const sockets = new Set();
  const service = net.createServer((socket) => {
    sockets.add(socket);
    socket.on('data', () => socket.write(reply));
    socket.on('error', () => {});
  });
  service.listen(53264, process.env.TOLVEX_TEST_ADDRESS);
  await once(service, 'listening');
  t.after(async () => {
    for (const socket of sockets) socket.destroy();
    service.close();
    await simulator.restart();
  });
  reply = '{"result":"0"}';
  await simulator.connectedAgain({ printing: false });

  const weight = (members) => JSON.stringify({ result: '0', zero: '0', tareType: 'N', tare: '0', ...members });
  for (const [net, tare, expected] of [
    ['-12.5', '0', { netText: '-12.500', netUnits: -125000, tareText: '00.0000', tareUnits: 0 }],
    ['123.456', '123.4', { netText: '123.456', netUnits: 1234560, tareText: '123.4000', tareUnits: 1234000 }],
    ['-0.005', '-12.5', { netText: '-0.0050', netUnits: -50, tareText: '-12.5000', tareUnits: -125000 }],
    ['99.9999', '1', { netText: '99.9999', netUnits: 999999, tareText: '01.0000', tareUnits: 10000 }],
  ]) {
    reply = weight({ net, tare });
    const { netText, netUnits, tareText, tareUnits } = await scale.read();
    assert.deepEqual({ netText, netUnits, tareText, tareUnits }, expected);
  }
  for (const net of ['nan', 'inf', undefined]) {
    reply = weight({ net });
    await assert.rejects(scale.read(), { name: 'UnreadableError', codeName: 'UnreadableReply' }, String(net));
  }
  reply = JSON.stringify({ result: '0', net: '1', zero: '0', tareType: 'N' });
  assert.equal((await scale.read()).tare, null);
  reply = '{"result":"0","version":"\u00e4\u00ff"}'.replace('\u00ff', '');
  assert.equal((await scale.version()).version, 'ä');
  reply = Buffer.from('{"result":"0","done":"\xff"}', 'latin1');
  assert.equal(await scale.rawCommand('x'), '{"result":"0","done":"\ufffd"}');
});
