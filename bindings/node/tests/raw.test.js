'use strict';

const { test, before, beforeEach } = require('node:test');
const assert = require('node:assert/strict');

const tolvex = require('..');
const { functions, records } = require('../lib/tables');
const { handle } = require('../lib/library');
const simulator = require('./simulator');

const { raw } = tolvex;
const { TOLVEX_OK, TOLVEX_FAILED } = tolvex.constants;
const kExports = 121;

before(() => simulator.connect());
beforeEach(() => simulator.reset());

test('every export is there under its own name, and in the library', () => {
  assert.equal(Object.keys(raw).length, kExports);
  for (const [name] of functions) {
    assert.equal(raw[name].name, name);
    assert.equal(typeof raw[name].async, 'function', name);
    handle().func(name, 'int', []);
  }
});

test('functions without a device answer as they are declared, and send nothing', async () => {
  const without = ['ClosePrinterEx', 'DisplayUpdate', 'OpenDisplay', 'OpenPrinter', 'SetDataRows', 'SetHeaderReserveRows',
    'SetInvoiceParameter', 'SetPrintContrast', 'SetPrintOffset', 'SetPrintSpeed', 'SetRealPrintHeaderWidth', 'SetScaleType',
    'SetTakeLabelSensor', 'SetTakeupMotorDirection', 'SetUSBPrinterDirection', 'SetUnitPrice', 'ShowBalance', 'ShowDisplayText',
    'ShowOrHideForm', 'ShowProduct', 'switch_resolution'];
  for (const name of without.flatMap((one) => [one, `${one}_stdcall`])) {
    assert.equal(raw[name](), TOLVEX_OK, name);
    assert.equal(await raw[name].async(), TOLVEX_OK, name);
  }
  for (const name of ['PrintLabelImage', 'PrintLabelImage_stdcall']) assert.equal(raw[name](), TOLVEX_FAILED, name);
  for (const name of ['Version', 'DisplayText', 'IncreaseResolution', 'SetClientName'].flatMap((one) => [one, `${one}_stdcall`])) {
    assert.equal(typeof raw[name](), 'number', name);
  }
  assert.deepEqual(simulator.requests(), []);
});

test('a function and its twin do the same', async () => {
  for (const name of ['read_standard', 'read_standard_stdcall']) {
    const record = Buffer.alloc(24);
    assert.equal(raw[name](record), TOLVEX_OK);
    assert.equal(await raw[name].async(record), TOLVEX_OK);
    assert.equal(record.toString('latin1', 1, 9), '00.0000P');
  }
  assert.equal(simulator.requests().length, 4);
});

test('the layouts are those of the records', () => {
  for (const [name, size, members] of [
    ['tolvex_base_info', 64, { max_range: 0, min_range: 12, max_tare: 16, max_preset_tare: 20, resolution: 24, weight_unit: 36, reserved: 40, system_version: 44 }],
    ['tolvex_weight', 24, { status: 0, net: 1, mark: 8, tare: 9, rest: 16 }],
  ]) {
    const { size: total, ...fields } = records[name];
    assert.equal(total, size);
    assert.deepEqual(Object.fromEntries(Object.entries(fields).map(([field, { offset }]) => [field, offset])), members);
    const last = Object.values(fields).at(-1);
    assert.equal(last.offset + last.size, size);
  }
});

test('texts go as UTF-8, as bytes, or as null', async () => {
  assert.equal(raw.printTextById('é', 24, 1), 0);
  assert.equal(raw.printTextById(Buffer.from('ö\0ignored'), 24, 1), 0);
  assert.equal(raw.printTextById(null, 24, 1), 2);
  assert.equal(await raw.printTextById.async('ü', 24, 1), 0);
  assert.deepEqual(simulator.requests().map((request) => JSON.parse(request).text), ['é', 'ö', 'ü']);
});

test('the last error is that of the latest command', () => {
  assert.equal(raw.read_standard(null), TOLVEX_FAILED);
  assert.equal(raw.printBlanks(1001), TOLVEX_FAILED);
  assert.equal(raw.getLastErrCode(), tolvex.ResultCode.InvalidParam);
});

test('a font size out of its range has an answer of its own', () => {
  assert.equal(raw.PrintText('x', 11), tolvex.constants.TOLVEX_FONT_TOO_SMALL);
  assert.equal(raw.PrintText('x', 73), tolvex.constants.TOLVEX_FONT_TOO_BIG);
});

test('what would read or write beyond its end is refused', () => {
  assert.throws(() => raw.read_standard(Buffer.alloc(23)), /at least 24 bytes, but it has 23/);
  assert.throws(() => raw.read_baseinfo(Buffer.alloc(63)), RangeError);
  assert.throws(() => raw.set_tare_bykey(Buffer.alloc(9)), RangeError);
  assert.throws(() => raw.send_pre_tare(Buffer.from('0123456789')), /no NUL at its end/);
  assert.throws(() => raw.getLCVersion(Buffer.alloc(100), 101), /at least 101 bytes/);
  assert.throws(() => raw.getLCVersion('x', 1), TypeError);
  assert.throws(() => raw.printTextById(Buffer.from('x'), 24, 1), /no NUL at its end/);
  assert.throws(() => raw.printTextById('a\0b', 24, 1), /NUL at position 1/);
  assert.throws(() => raw.printTextById(5, 24, 1), TypeError);
  assert.throws(() => raw.printTextById('x'), TypeError);
});

test('numbers that do not fit are refused, directly and by a promise', async () => {
  for (const value of [-1, 2 ** 32, 0.5, NaN, Infinity]) {
    assert.throws(() => raw.setPrintContrast(value, 'Ticket'), RangeError, String(value));
    await assert.rejects(raw.setPrintContrast.async(value, 'Ticket'), RangeError, String(value));
  }
  assert.throws(() => raw.BeginPrint(2 ** 31), RangeError);
  assert.throws(() => raw.BeginPrint('8'), TypeError);
});

test('result codes are explained', () => {
  assert.equal(tolvex.ResultCode.OutOfPaper, 2006);
  assert.equal(Object.keys(tolvex.ResultCode).length, 27);
  assert.deepEqual(tolvex.explain(2005), {
    code: 2005, name: 'PrinterIsBusy', text: 'Printer is Busy', meaning: 'The printer is still at work on something else.',
    remedy: 'Wait a moment and try again.',
  });
  assert.equal(tolvex.explain(-1).name, 'UnreadableReply');
  assert.equal(tolvex.explain(4711).name, 'Unknown code 4711');
});
