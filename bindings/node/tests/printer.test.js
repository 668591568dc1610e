'use strict';

const { test, before, beforeEach } = require('node:test');
const assert = require('node:assert/strict');

const tolvex = require('..');
const simulator = require('./simulator');

const { Printer, PrinterSettings, PrinterType } = tolvex;

before(() => simulator.connect());
beforeEach(() => simulator.reset());

const ticket = new Printer(PrinterType.Ticket);
const label = new Printer(PrinterType.Label);
const settings = new PrinterSettings('Ticket');

// Name, the call, and the bytes of its request: each is made both ways.
const commands = [
  ['printText', ticket, ['Привет €', { size: 30 }], '{"cmd":"printtext","printerType":"1","fontsize":"30","text":"Привет €"}'],
  ['printText', ticket, [''], '{"cmd":"printtext","printerType":"1","fontsize":"24","text":" "}'],
  ['printWrapped', ticket, ['谢谢惠顾', { width: 40 }], '{"cmd":"print_text_width","printerType":"1","fontsize":"24","width":"320","text":"谢谢惠顾"}'],
  ['cut', ticket, [], '{"cmd":"cutPaper","printerType":"1","Percent":"70"}'],
  ['feed', ticket, [], '{"cmd":"printblanks","distance":"13","printerType":"1"}'],
  ['calibrate', label, [], '{"cmd":"calibrateLabelGap","printerType":"0"}'],
  ['calibratePaperEnd', ticket, [], '{"cmd":"calibrateOutOfPaper","printerType":"1"}'],
  ['setPaperWidth', ticket, [58], '{"cmd":"setpaperwidth","width":"464","printerType":"1"}'],
  ['setGapType', label, [1], '{"cmd":"setGapType","gapType":"1","printerType":"0"}'],
  ['setDirection', label, [1], '{"cmd":"setdirection","direction":"1","printerType":"0"}'],
  ['setTextWrapMode', ticket, [1], '{"cmd":"setTextWrapMode","printerType":"1","WrapMode":"1"}'],
  ['feedBlank', Printer, [40], '{"cmd":"printblanks","distance":"40","printerType":"100"}'],
  ['setLeftMargin', settings, [8], '{"cmd":"setLeftMargin","printerName":"Ticket","leftMargin":"8"}'],
  ['setRightMargin', settings, [8], '{"cmd":"setRightMargin","printerName":"Ticket","rightMargin":"8"}'],
  ['setPaperOffset', settings, [4], '{"cmd":"setPaperOffset","offset":"4","printerName":"Ticket"}'],
  ['setContrast', settings, [50], '{"cmd":"setcontrast","contrast":"50","printerName":"Ticket"}'],
  ['setSpeed', settings, [100], '{"cmd":"setprintspeed","speed":"100","printerName":"Ticket"}'],
  ['setAutoPrint', settings, [true], '{"cmd":"setPrtAutoPrint","printerName":"Ticket","enable":"1"}'],
  ['setRollback', settings, [false], '{"cmd":"setRollback","enable":"0","printerName":"Ticket"}'],
  ['setTakeUpSensor', settings, [true], '{"cmd":"settakepapersensor","enable":"1","printerName":"Ticket"}'],
  ['openCashDrawer', tolvex, [], '{"cmd":"opencashbox"}'],
];

for (const [name, of, values, request] of commands) {
  test(`${name}(${values.map((value) => JSON.stringify(value)).join(', ')}) is sent as it is`, async () => {
    assert.equal(await of[name](...values), undefined);
    assert.equal(of[`${name}Sync`](...values), undefined);
    assert.deepEqual(simulator.requests(), [request, request]);
  });
}

test('the state of a printer is told in words', async () => {
  assert.deepEqual(await ticket.status(), {
    ready: true, code: 0, codeName: 'Ok', text: 'OK', meaning: 'The command was carried out.', remedy: 'Nothing.',
  });
  await simulator.patch('/api/printers/Ticket', { faults: { 'out-of-paper': true } });
  const status = ticket.statusSync();
  assert.equal(status.ready, false);
  assert.equal(status.code, tolvex.ResultCode.OutOfPaper);
  assert.equal(status.codeName, 'OutOfPaper');
  assert.match(status.remedy, /Put in new paper/);
});

test('what is no state of a printer is an error', async () => {
  await simulator.post('/api/faults', { kind: 'result', command: 'printerStatus', code: 8, times: 1 });
  await assert.rejects(ticket.status(), { name: 'TolvexError', code: 8, codeName: 'MissParam', operation: 'GetPrinterStatus' });
});

test('a code that nobody knows sends to the log', async () => {
  await simulator.post('/api/faults', { kind: 'result', command: 'cutPaper', code: 4711, times: 1 });
  await assert.rejects(ticket.cut(), {
    code: 4711, codeName: 'Unknown code 4711',
    message: "cutPaperById: Unknown code 4711. The service answered with a code of its own. What to do: Look it up in the service's " +
      "documents, and read the service's log and the library's.",
  });
});

test('the printers are listed, without those that are unplugged', async () => {
  assert.deepEqual(await tolvex.printers(), ['Label', 'Ticket', 'Third']);
  await simulator.patch('/api/printers/Label', { faults: { unplugged: true } });
  assert.deepEqual(tolvex.printersSync(), ['Ticket', 'Third']);
});

test('the drawer opens', async () => {
  await tolvex.openCashDrawer();
  assert.deepEqual(await simulator.get('/api/drawer'), { open: true, openings: 1 });
});

test('the firmware version and raw commands give the reply', async () => {
  assert.deepEqual(await settings.firmwareVersion(), { result: '0', version: 'Ticket SIM 1.0' });
  simulator.requests();
  await assert.rejects(settings.rawCommand('beep', { number: -3, parameters: 'é', timeout: 20000 }),
    { code: 2002, reply: '{"result":"2002"}', operation: 'sendRawCmdToPrt' });
  assert.deepEqual(simulator.requests(), ['{"cmd":"beep","printerName":"Ticket","intParam":"-3","paramList":"é"}']);
});

test('the log levels of the service are set and told', async () => {
  await tolvex.setServiceLogLevel('print', 2);
  await tolvex.setServiceLogLevel('loadcell', '3');
  assert.equal(await tolvex.getServiceLogLevel('print'), '2');
  assert.equal(tolvex.getServiceLogLevelSync('loadcell'), '3');
  await assert.rejects(tolvex.getServiceLogLevel('drawer'), RangeError);
});

test('a sign of life is true', async () => {
  assert.equal(await tolvex.checkConnection(), true);
  assert.equal(tolvex.checkConnectionSync(), true);
});

test('arguments that the library would take for something else are refused', async () => {
  for (const value of [-1, 2 ** 32, 1.5, NaN]) await assert.rejects(settings.setContrast(value), RangeError, String(value));
  await assert.rejects(settings.setContrast('50'), TypeError);
  await assert.rejects(settings.setRollback(1), TypeError);
  for (const distance of [0, 1001]) await assert.rejects(Printer.feedBlank(distance), RangeError, String(distance));
  await assert.rejects(ticket.setPaperWidth(2 ** 29), RangeError);
  await assert.rejects(ticket.printText('x', { size: 0 }), RangeError);
  await assert.rejects(ticket.printText('a\0b'), RangeError);
  await assert.rejects(ticket.printImage(null), TypeError);
  assert.throws(() => new Printer(-1), RangeError);
  for (const name of ['', 'a\0b', 'ä'.repeat(128)]) assert.throws(() => new PrinterSettings(name), RangeError, name);
  assert.throws(() => new PrinterSettings(null), TypeError);
  assert.equal(new PrinterSettings('ä'.repeat(127)).name.length, 127);
  assert.deepEqual(simulator.requests(), []);
});

test('a bare value in the place of options is refused', async () => {
  const scale = new tolvex.Scale();
  const printer = new tolvex.Printer();
  const settings = new tolvex.PrinterSettings('Ticket');
  for (const call of [() => printer.printText('x', 36), () => printer.printWrapped('x', 36), () => printer.printImage('x', 90),
    () => settings.rawCommand('x', 500), () => scale.rawCommand('x', 500), () => scale.waitStable(5000), () => scale.watch(200).next()]) {
    await assert.rejects(call, { name: 'TypeError', message: /^Options have to be an object/ }, String(call));
  }
});

test('an address that is none is refused', () => {
  for (const address of ['localhost', '1.2.3', '', '1.2.3.4 ', '256.1.1.1', '::1']) {
    assert.throws(() => tolvex.setServer(address), RangeError, address);
  }
  assert.throws(() => tolvex.setServer(null), TypeError);
});
