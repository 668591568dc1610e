'use strict';

const { test, before, beforeEach } = require('node:test');
const assert = require('node:assert/strict');

const tolvex = require('..');
const { parsedReply } = require('../lib/command');
const simulator = require('./simulator');

const scale = new tolvex.Scale();

before(() => simulator.connect());
beforeEach(() => simulator.reset());

test('a stable weight comes with all its fields, as number, units and text', async () => {
  await simulator.patch('/api/scale', { load_kg: 0.482 });
  assert.deepEqual(await scale.read(), {
    state: 'weight', net: 0.482, netUnits: 4820, netText: '00.4820', tare: 0, tareUnits: 0, tareText: '00.0000',
    stable: true, zero: false, tareActive: false,
  });
  assert.deepEqual(simulator.requests('weighing'), ['{"cmd":"getweight"}']);
});

test('the same weight comes to who waits in JavaScript', async () => {
  await simulator.patch('/api/scale', { load_kg: 12.345 });
  const reading = scale.readSync();
  assert.equal(reading.netText, '12.3450');
  assert.deepEqual(reading, await scale.read());
});

test('an empty scale is at zero', async () => {
  const reading = await scale.read();
  assert.equal(reading.net, 0);
  assert.equal(reading.zero, true);
});

test('a tare is taken, told, subtracted, and cleared', async () => {
  await simulator.patch('/api/scale', { load_kg: 0.12 });
  assert.deepEqual(await scale.tare(), { tare: 0.12, tareUnits: 1200, tareText: '0.120' });
  await simulator.patch('/api/scale', { load_kg: 0.62 });
  const reading = await scale.read();
  assert.equal(reading.netUnits, 5000);
  assert.equal(reading.tareUnits, 1200);
  assert.equal(reading.tareActive, true);
  await simulator.patch('/api/scale', { load_kg: 0 });
  assert.equal((await scale.read()).netUnits, -1200);
  assert.equal((await scale.clearTare()).tareUnits, 0);
  assert.equal((await scale.read()).tareActive, false);
});

test('a weight that moves is told, and is not stable', async () => {
  await simulator.patch('/api/scale', { load_kg: 0.482, unstable: true });
  const reading = await scale.read();
  assert.equal(reading.state, 'weight');
  assert.equal(reading.stable, false);
  assert.equal(typeof reading.net, 'number');
});

for (const [state, patch] of [['underLoad', { load_kg: -1 }], ['overLoad', { load_kg: 16 }], ['invalid', { invalid: true }]]) {
  test(`${state} is a state without a weight`, async () => {
    await simulator.patch('/api/scale', patch);
    assert.deepEqual(await scale.read(), {
      state, net: null, netUnits: null, netText: null, tare: null, tareUnits: null, tareText: null,
      stable: false, zero: false, tareActive: false,
    });
  });
}

test('a scale that is not connected is an error with a remedy', async () => {
  await simulator.patch('/api/scale', { connected: false });
  await assert.rejects(scale.read(), (error) => {
    assert.ok(error instanceof tolvex.TolvexError);
    assert.equal(error.name, 'TolvexError');
    assert.equal(error.code, 1007);
    assert.equal(error.codeName, 'LcNotConnected');
    assert.equal(error.operation, 'read_standard');
    assert.equal(error.message, 'read_standard: 1007 LcNotConnected (LC not connected). The service cannot reach the ' +
      "scale. What to do: Check the scale's cable and power, then its port in the service's settings.");
    return true;
  });
  assert.throws(() => scale.readSync(), { name: 'TolvexError', code: 1007 });
});

test('base information comes in the unit, and in whole thousandths', async () => {
  assert.deepEqual(await scale.info(), {
    maxRange: [3, 6, 15], minRange: 0.02, maxTare: 6, maxPresetTare: 3, resolution: [0.001, 0.002, 0.005],
    thousandths: { minRange: 20, maxTare: 6000, maxPresetTare: 3000, resolution: [1, 2, 5] },
    unit: 'kg', systemVersion: 'SIM 1.0',
  });
});

test('zero, version and the overload alarm are sent as they are', async () => {
  await simulator.patch('/api/scale', { load_kg: 0.05 });
  await scale.zero();
  assert.equal((await scale.read()).net, 0);
  assert.deepEqual(await scale.version(), { result: '0', version: '3.0.3.2' });
  simulator.requests();
  await scale.setOverloadAlarm(true);
  await scale.setOverloadAlarm(false);
  assert.deepEqual(simulator.requests('printing'),
    ['{"cmd":"setOverloadAlarm","enable":"1"}', '{"cmd":"setOverloadAlarm","enable":"0"}']);
  await assert.rejects(scale.setOverloadAlarm(1), TypeError);
});

test('a zero that the scale refuses is an error', async () => {
  await simulator.patch('/api/scale', { load_kg: 5 });
  await assert.rejects(scale.zero(), { name: 'TolvexError', code: 10, codeName: 'CommandReturnFail', operation: 'send_zero' });
});

test('high resolution reads finer steps', async () => {
  await simulator.patch('/api/scale', { load_kg: 0.4823 });
  assert.equal(scale.highResolution, false);
  assert.equal((await scale.read()).netUnits, 4820);
  scale.highResolution = true;
  assert.equal(scale.highResolution, true);
  assert.equal((await scale.read()).netUnits, 4823);
  scale.highResolution = false;
});

test('waiting ends with the first stable weight that is as wanted', async () => {
  await simulator.patch('/api/scale', { load_kg: 0.3, unstable: true });
  const waiting = scale.waitStable({ interval: 20, where: (reading) => reading.net > 0.5 });
  await simulator.patch('/api/scale', { unstable: false });
  await simulator.patch('/api/scale', { load_kg: 0.6 });
  assert.equal((await waiting).netUnits, 6000);
});

test('waiting gives up with the last reading', async () => {
  await simulator.patch('/api/scale', { load_kg: 0.3, unstable: true });
  await assert.rejects(scale.waitStable({ timeout: 2000, interval: 20 }), (error) => {
    assert.ok(error instanceof tolvex.WaitTimeoutError);
    assert.equal(error.lastReading.stable, false);
    assert.match(error.message, /within 2000 ms\. The last one was .*, not stable\./);
    return true;
  });
});

test('waiting gives up although no reply comes', async () => {
  await simulator.post('/api/faults', { kind: 'delay', command: 'getweight', delay_ms: 600000, times: 1 });
  await assert.rejects(scale.waitStable({ timeout: 200 }), { name: 'WaitTimeoutError', lastReading: null });
  await simulator.replace();
});

test('waiting can be aborted', async () => {
  await simulator.patch('/api/scale', { unstable: true });
  const controller = new AbortController();
  const waiting = scale.waitStable({ signal: controller.signal });
  controller.abort(new Error('the customer left'));
  await assert.rejects(waiting, /the customer left/);
  await assert.rejects(scale.waitStable({ signal: controller.signal }), /the customer left/);
});

test('watching gives one reading after the other until the loop ends', async () => {
  const nets = [];
  for await (const reading of scale.watch({ interval: 5 })) {
    nets.push(reading.netUnits);
    if (nets.length === 3) break;
    await simulator.patch('/api/scale', { load_kg: nets.length / 10 });
  }
  assert.deepEqual(nets, [0, 1000, 2000]);
});

test('watching can be aborted', async () => {
  const controller = new AbortController();
  await assert.rejects(async () => {
    for await (const reading of scale.watch({ interval: 5, signal: controller.signal })) {
      assert.equal(reading.state, 'weight');
      controller.abort();
    }
  }, { name: 'AbortError' });
});

test('a weight that is no number is an error, not a zero', async () => {
  const { readDecimal } = require('../lib/decimal');
  for (const text of ['', '    nan', '    inf', '1,5', '1.2.3', '12345.', '0.00001', '0x10', '99999999999999999']) {
    assert.throws(() => readDecimal('read_standard', 'net weight', text), (error) => {
      assert.ok(error instanceof tolvex.UnreadableError && error instanceof tolvex.TolvexError, text);
      assert.equal(error.codeName, 'UnreadableReply');
      assert.equal(error.unreadable, text);
      return true;
    });
  }
});

test('decimal text is read exactly', async () => {
  const { readDecimal } = require('../lib/decimal');
  for (const [text, units] of [['-12.500', -125000], ['-12.5000', -125000], ['123.4000', 1234000], ['0.12', 1200], ['01.5000', 15000],
    ['0', 0], ['-0.0000', 0], ['0.1230000', 1230]]) {
    const read = readDecimal('read_standard', 'tare', text);
    assert.deepEqual(read, { value: units / 10000, units }, text);
  }
});

test('a reply that is no JSON is told as such', () => {
  assert.throws(() => parsedReply('getLCVersion', '{"version":'), {
    name: 'UnreadableError', operation: 'getLCVersion', unreadable: '{"version":',
    meaning: 'The reply that the service told is no JSON: "{\\"version\\":".',
  });
});

test('a raw command gives the reply, and an error has it, too', async () => {
  assert.equal(await scale.rawCommand('getLCVersion', { timeout: 20000 }), '{"result":"0","version":"3.0.3.2"}');
  simulator.requests();
  await assert.rejects(scale.rawCommand('selftest', { parameters: '1,2' }),
    { name: 'TolvexError', code: 1002, operation: 'sendRawCmdToLC', reply: '{"result":"1002"}' });
  assert.deepEqual(simulator.requests(), ['{"cmd":"selftest","paramList":"1,2"}']);
  await assert.rejects(scale.rawCommand('a\0b'), RangeError);
  await assert.rejects(scale.rawCommand(''), RangeError);
  await assert.rejects(scale.rawCommand('x', { timeout: -1 }), RangeError);
});
