'use strict';

const { test, before, beforeEach } = require('node:test');
const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');

const tolvex = require('..');
const simulator = require('./simulator');

before(() => simulator.connect());
beforeEach(() => simulator.reset());

const logo = path.join(process.env.TEST_FOLDER, 'logo.bmp');
// One white pixel of 24 bits.
const bmp = Buffer.from('424d3a0000000000000036000000280000000100000001000000010018000000000004000000' +
  '130b0000130b00000000000000000000ffffff00', 'hex');
fs.writeFileSync(logo, bmp);

test('a receipt goes out line by line, then the confirmation and the cut', async () => {
  await new tolvex.Receipt()
    .text('Äpfel Boskoop')
    .text('große Schrift', { size: 48 })
    .wrapped('SUMME              1,44 €', { size: 36 })
    .blank()
    .wrapped('two\nlines\r\n\nand an empty one', { size: 12, width: 40 })
    .print();
  assert.deepEqual(simulator.requests(), [
    '{"cmd":"printtext","printerType":"1","fontsize":"24","text":"Äpfel Boskoop"}',
    '{"cmd":"printtext","printerType":"1","fontsize":"48","text":"große Schrift"}',
    '{"cmd":"print_text_width","printerType":"1","fontsize":"36","width":"576","text":"SUMME              1,44 €"}',
    '{"cmd":"printtext","printerType":"1","fontsize":"24","text":" "}',
    '{"cmd":"print_text_width","printerType":"1","fontsize":"12","width":"320","text":"two"}',
    '{"cmd":"print_text_width","printerType":"1","fontsize":"12","width":"320","text":"lines"}',
    '{"cmd":"print_text_width","printerType":"1","fontsize":"12","width":"320","text":" "}',
    '{"cmd":"print_text_width","printerType":"1","fontsize":"12","width":"320","text":"and an empty one"}',
    '{"cmd":"beginPrint","printerType":"1"}',
    '{"cmd":"cutPaper","printerType":"1","Percent":"70"}',
  ]);
  const lines = (await simulator.paper(1)).split('\n').map((line) => line.trim().replace(/ +/g, ' '));
  assert.deepEqual(lines.slice(0, 4), ['Äpfel Boskoop', 'große Schrift', 'SUMME 1,44 €', '']);
});

test('a receipt prints for who waits in JavaScript', async () => {
  new tolvex.Receipt().text('at once').printSync(tolvex.JobType.TicketFeed);
  assert.deepEqual(simulator.requests(), [
    '{"cmd":"printtext","printerType":"1","fontsize":"24","text":"at once"}',
    '{"cmd":"beginPrint","printerType":"1"}',
    '{"cmd":"printblanks","distance":"13","printerType":"1"}',
  ]);
});

test('a label goes to the label printer', async () => {
  await new tolvex.Receipt().text('Bergkäse').printLabel();
  assert.deepEqual(simulator.requests(), [
    '{"cmd":"printtext","printerType":"0","fontsize":"24","text":"Bergkäse"}',
    '{"cmd":"beginPrint","printerType":"0"}',
  ]);
});

test('a receipt without lines only cuts', async () => {
  await new tolvex.Receipt().print();
  assert.deepEqual(simulator.requests(), ['{"cmd":"cutPaper","printerType":"1","Percent":"70"}']);
  await assert.rejects(new tolvex.Receipt().print(tolvex.JobType.Ticket), { name: 'TolvexError', code: 1, operation: 'BeginPrint' });
});

test('each job type goes to its printer and does its own', async () => {
  const expected = {
    Ticket: [1], ImageTicket: [1], Label: [0], ImageLabel: [0], DotLabel: [0],
    TicketFeed: [1, 'printblanks'], FpFeed: [1, 'printblanks'], LabelFeedAuto: [0, 'printblanks'], LabelFeed: [0, 'printblanks'],
    FllpFeed: [2, 'printblanks'], TicketCut: [1, 'cutPaper'], FpCut: [1, 'cutPaper'], FlpCut: [1, 'cutPaper'], FllpCut: [2, 'cutPaper'],
  };
  assert.deepEqual(Object.keys(tolvex.JobType).sort(), Object.keys(expected).sort());
  const receipt = new tolvex.Receipt().text('x');
  for (const [name, [printer, end]] of Object.entries(expected)) {
    await receipt.print(tolvex.JobType[name]);
    const sent = simulator.requests().map((request) => JSON.parse(request));
    assert.deepEqual(sent.map(({ cmd }) => cmd), ['printtext', 'beginPrint', ...(end ? [end] : [])], name);
    assert.deepEqual(new Set(sent.map(({ printerType }) => printerType)), new Set([String(printer)]), name);
  }
});

test('an image is printed, from a path without a folder, too', async () => {
  const here = process.cwd();
  process.chdir(process.env.TEST_FOLDER);
  try {
    await new tolvex.Receipt().image('logo.bmp', { angle: 90 }).print();
    const [image] = simulator.requests().map((request) => JSON.parse(request));
    assert.equal(image.cmd, 'printbmpfile');
    assert.equal(image.angle, '90');
    assert.match(image.filename, /prt_0\.bmp$|logo\.bmp$/);
    await new tolvex.Printer(tolvex.PrinterType.Third).printImage('logo.bmp');
    assert.deepEqual(simulator.requests(),
      [JSON.stringify({ cmd: 'printbmpfile', printerType: '2', angle: '0', filename: path.join(process.cwd(), 'logo.bmp') })]);
  } finally {
    process.chdir(here);
  }
});

test('a missing image is refused before anything is printed', async () => {
  const receipt = new tolvex.Receipt().text('above').image(path.join(process.env.TEST_FOLDER, 'missing.bmp'));
  await assert.rejects(receipt.print(), { code: 'ENOENT' });
  assert.deepEqual(simulator.requests(), []);
  await new tolvex.Receipt().text('the next').print();
  assert.match(simulator.requests()[0], /the next/);
});

test('what the library would refuse or change is refused when it is added', () => {
  const receipt = new tolvex.Receipt();
  for (const size of [11, 73, 24.5, -24, NaN, 2 ** 32 + 24]) assert.throws(() => receipt.text('x', { size }), RangeError, String(size));
  assert.throws(() => receipt.text('x', { size: '24' }), TypeError);
  for (const width of [-1, 81]) assert.throws(() => receipt.wrapped('x', { width }), RangeError, String(width));
  for (const angle of [-90, 45, 360]) assert.throws(() => receipt.image('x.bmp', { angle }), RangeError, String(angle));
  for (const add of [() => receipt.text('x', 36), () => receipt.wrapped('x', 36), () => receipt.blank(36), () => receipt.image('x', 90),
    () => receipt.text('x', null), () => new tolvex.Receipt(true)]) {
    assert.throws(add, { name: 'TypeError', message: /^Options have to be an object/ });
  }
  for (const value of [null, undefined, 5]) assert.throws(() => receipt.text(value), TypeError, String(value));
  assert.throws(() => receipt.text('a\0b'), { name: 'RangeError', message: 'The text has a NUL at position 1, where it would end.' });
  assert.throws(() => receipt.image(''), RangeError);
  assert.throws(() => receipt.text('ä'.repeat(1025)), /2050 bytes of UTF-8, but at most 2048/);
  receipt.text(`${'ä'.repeat(1024)}\r\n${'b'.repeat(2048)}\r\n`).wrapped('ä'.repeat(3000));
  assert.equal(receipt.length, 2);
});

test('more images than the library can hold are refused', () => {
  const receipt = new tolvex.Receipt();
  for (let i = 0; i < 200; i += 1) receipt.image(logo);
  assert.throws(() => receipt.image(logo), /at most 200 images/);
});

test('job types that would leave the receipt for the next job are refused', async () => {
  const receipt = new tolvex.Receipt().text('x');
  for (const jobType of [6, 106, 209, 306, 80, 81, 90, 91]) await assert.rejects(receipt.print(jobType), RangeError, String(jobType));
  await assert.rejects(receipt.print(8.5), RangeError);
  await assert.rejects(receipt.print('8'), TypeError);
  assert.deepEqual(simulator.requests(), []);
});

test('half a surrogate pair is refused before anything is printed, or replaced', async () => {
  const receipt = new tolvex.Receipt().text('above').text('a\ud83d b');
  await assert.rejects(receipt.print(), (error) => {
    assert.ok(error instanceof tolvex.CharacterError && error instanceof RangeError);
    assert.equal(error.position, 1);
    assert.match(error.message, /U\+D83D, at position 1/);
    return true;
  });
  assert.deepEqual(simulator.requests(), []);
  await new tolvex.Receipt({ replace: true }).text('a\ud83d b').print();
  assert.equal(JSON.parse(simulator.requests()[0]).text, 'a? b');
  await assert.rejects(new tolvex.Printer().printText('\udc00'), {
    name: 'CharacterError', // there is nothing by which it could be replaced here
    message: 'The text has half of a surrogate pair, U+DC00, at position 0, which is no character. Cut texts between characters.',
  });
});

// Does the work with receipts that have these functions in the place of the library's.
async function withLibrary(stub, work) {
  const rawPath = require.resolve('../lib/raw');
  const receiptPath = require.resolve('../lib/receipt');
  const kept = [rawPath, receiptPath].map((file) => [file, require.cache[file]]);
  delete require.cache[receiptPath];
  require.cache[rawPath].exports = stub;
  try {
    await work(require('../lib/receipt').Receipt);
  } finally {
    for (const [file, module] of kept) require.cache[file] = module;
    require.cache[rawPath].exports = tolvex.raw;
  }
}

test('lines that a lack of memory left in the library are never printed with the next receipt', async () => {
  let printed = 0;
  let memory = 1;
  await withLibrary({
    PrintText() { memory -= 1; return memory >= 0 ? 240 : 255; },
    PrintBitmapFile() {},
    BeginPrint: { async: async () => { printed += 1; return 240; } },
  }, async (Receipt) => {
    await assert.rejects(new Receipt().text('one').text('two').print(), /did not take line 2 of the receipt.*Restart the application/s);
    memory = 100;
    await assert.rejects(new Receipt().text('next').print(), /Restart the application/);
    assert.equal(printed, 0);
    assert.equal(memory, 100);
  });
});

test('lines behind which a call could not be made are never printed with the next receipt', async () => {
  for (const failing of ['PrintBitmapFile', 'BeginPrint']) {
    const queued = [];
    const stub = {
      PrintText(bytes) { queued.push(bytes.toString()); return 240; },
      PrintBitmapFile: { async: async () => 240 },
      BeginPrint: { async: async () => 240 },
    };
    await withLibrary(stub, async (Receipt) => {
      await new Receipt().text('before').print();
      stub[failing].async = async () => { throw new Error('no thread'); };
      await assert.rejects(new Receipt().text('one').image(logo).print(), /no thread/);
      stub[failing].async = async () => 240;
      await assert.rejects(new Receipt().text('next').print(), /Restart the application/, failing);
    });
    assert.deepEqual(queued, ['before\0', 'one\0']);
  }
});
