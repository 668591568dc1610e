// In the character set of the locale that it runs in: LC_ALL says which.
'use strict';

const { test, before, beforeEach } = require('node:test');
const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');

const tolvex = require('..');
const { encoded } = require('../lib/charset');
const simulator = require('./simulator');

before(() => simulator.connect());
beforeEach(() => simulator.reset());

const isWindows = process.platform === 'win32';
// By locale: the set, what it has, in which bytes, and what it does not have.
const sets = {
  'de_DE.ISO-8859-1': { name: 'ISO-8859-1', has: 'Äpfel für 5 £', bytes: 'c47066656c2066fc72203520a3', lacks: 'Ж' },
  'de_DE.CP1252': { name: 'CP1252', has: 'Äpfel für 5 €', bytes: 'c47066656c2066fc7220352080', lacks: '谢' },
  'ru_RU.CP1251': { name: 'CP1251', has: 'Спасибо', bytes: 'd1efe0f1e8e1ee', lacks: 'ä' },
  'zh_CN.GBK': { name: 'GBK', has: '谢谢惠顾', bytes: 'd0bbd0bbbbddb9cb', lacks: '한' },
  'C.UTF-8': { name: 'UTF-8', has: 'Äpfel € 谢 Ж 한 🍎', bytes: Buffer.from('Äpfel € 谢 Ж 한 🍎').toString('hex'), lacks: null },
};
// Under Wine the code page follows the locale.
const pages = { 1252: 'de_DE.CP1252', 1251: 'ru_RU.CP1251', 936: 'zh_CN.GBK', 65001: 'C.UTF-8' };
const page = isWindows ? /\d+$/.exec(tolvex.queueCharset())?.[0] ?? '65001' : null;
const set = sets[isWindows ? pages[page] : process.env.LC_ALL];
assert.ok(set, `there is nothing here about ${page ?? process.env.LC_ALL}`);

// UTF-8 has all characters.
const testOfLacking = set.lacks ? test : () => {};

test('the set is that in which the library takes texts', () => {
  assert.equal(tolvex.queueCharset(), isWindows && page !== '65001' ? `the code page ${page}` : set.name);
});

test('what the set has is passed in its bytes, with a NUL', () => {
  assert.equal(encoded(set.has, false).toString('hex'), `${set.bytes}00`);
  assert.equal(encoded('', false).toString('hex'), '00');
  assert.equal(encoded(' \n~', false).toString('hex'), '200a7e00');
});

test('what the set has arrives at the service, queued or not', async () => {
  await new tolvex.Receipt().text(set.has).wrapped(`${set.has}\nagain ${set.has}`).print();
  await new tolvex.Printer(1).printText(set.has);
  const sent = simulator.requests().map((request) => JSON.parse(request).text).filter(Boolean);
  assert.deepEqual(sent, [set.has, set.has, `again ${set.has}`, set.has]);
});

testOfLacking('what the set does not have is refused by name, before anything is printed', async () => {
  const receipt = new tolvex.Receipt().text('above').text(`${set.has}${set.lacks}!`);
  await assert.rejects(receipt.print(), (error) => {
    assert.ok(error instanceof tolvex.CharacterError);
    assert.equal(error.character, set.lacks);
    assert.equal(error.position, set.has.length);
    assert.equal(error.charset, tolvex.queueCharset());
    assert.match(error.message, /^The character ".+" \(U\+[0-9A-F]{4}\) at position \d+ is not in .+Printer\.printText.+\{replace: true\}/);
    return true;
  });
  assert.deepEqual(simulator.requests(), []);
});

testOfLacking('an image whose path the set does not have is refused with what helps an image', async () => {
  const image = path.join(process.env.TEST_FOLDER, `${set.lacks}.bmp`);
  fs.writeFileSync(image, '');
  await assert.rejects(new tolvex.Receipt({ replace: true }).image(image).print(), (error) => {
    assert.equal(error.character, set.lacks);
    assert.match(error.message, /Give the image a path without it, .*Printer\.printImage/);
    assert.doesNotMatch(error.message, /replace/);
    return true;
  });
  assert.deepEqual(simulator.requests(), []);
});

testOfLacking('an emoji counts as one character at its place', () => {
  assert.throws(() => encoded('ab🍎c', false), { character: '🍎', position: 2 });
});

testOfLacking('what the set does not have is replaced where that is wanted', async () => {
  await new tolvex.Receipt({ replace: true }).text(`${set.has} ${set.lacks}🍎!`).print();
  assert.equal(JSON.parse(simulator.requests()[0]).text, `${set.has} ??!`);
});

test('past the queue, all characters are printed', async () => {
  await new tolvex.Printer(1).printText('Ж 谢 ä € 한 🍎');
  assert.equal(JSON.parse(simulator.requests()[0]).text, 'Ж 谢 ä € 한 🍎');
});

testOfLacking('characters that a conversion would drop without a word are refused', () => {
  assert.throws(() => encoded('a\u{e0041}b', false), tolvex.CharacterError);
});
