'use strict';

const { test } = require('node:test');
const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { once } = require('node:events');
const { Worker } = require('node:worker_threads');

const isWindows = process.platform === 'win32';
const library = process.env.TOLVEX_LIBRARY;
const folder = path.join(process.env.TEST_FOLDER, 'libraries');
fs.mkdirSync(folder);

function file(name, bytes) {
  const full = path.join(folder, name);
  fs.writeFileSync(full, bytes);
  return full;
}

function elf(machine, kind) {
  const head = Buffer.alloc(64);
  head.write('\x7fELF', 'latin1');
  head[4] = kind;
  head.writeUInt16LE(machine, 18);
  return head;
}

function pe(machine) {
  const head = Buffer.alloc(128);
  head.write('MZ', 'latin1');
  head.writeUInt32LE(64, 60);
  head.write('PE\0\0', 64, 'latin1');
  head.writeUInt16LE(machine, 68);
  return head;
}

const needed = isWindows ? '64-bit Windows' : '64-bit Linux';
const wrong = [
  ['missing', path.join(folder, 'missing.so'), 'is missing'],
  ['a folder', folder, /is a folder|can not be read/],
  ['empty', file('empty', ''), 'is empty'],
  ['a text', file('text', 'not a library at all\n'), `is no library; needed is one for ${needed}`],
  ['cut off', file('cut', elf(0x3e, 2).subarray(0, 10)), 'is damaged: it ends within its head'],
  ['an MS-DOS program', file('dos', Buffer.concat([Buffer.from('MZ'), Buffer.alloc(100)])), 'is damaged: it ends within its head'],
  ['32-bit Linux', file('elf32', elf(0x03, 1)), `is for 32-bit Linux, needed is ${needed}`],
  ['32-bit Windows', file('pe32', pe(0x14c)), `is for 32-bit Windows, needed is ${needed}`],
  ['for ARM on Linux', file('elfarm', elf(0xb7, 2)), `is for ARM 64-bit Linux, needed is ${needed}`],
  ['for ARM on Windows', file('pearm', pe(0xaa64)), `is for ARM 64-bit Windows, needed is ${needed}`],
  ['that of the other system', file('other', isWindows ? elf(0x3e, 2) : pe(0x8664)),
    `is for ${isWindows ? '64-bit Linux' : '64-bit Windows'}, needed is ${needed}`],
  ['of the right kind, but cut off', file('half', fs.readFileSync(library).subarray(0, 8192)), 'is damaged: it ends before its end'],
  ['of the right kind, but nothing else', file('hollow', isWindows ? pe(0x8664) : elf(0x3e, 2)), /^does not load: .+/],
];

const tolvex = require('..');

for (const [name, given, problem] of wrong) {
  test(`a library that is ${name} is told with what is wrong`, () => {
    assert.throws(() => tolvex.load(given), (error) => {
      assert.ok(error instanceof tolvex.LibraryNotLoadedError);
      assert.equal(error.tried.length, 1);
      assert.equal(error.tried[0].file, path.resolve(given));
      if (problem instanceof RegExp) assert.match(error.tried[0].problem, problem);
      else assert.equal(error.tried[0].problem, problem);
      assert.match(error.message, new RegExp(`could not be loaded into this ${needed} process; needed is ${needed}\\.`));
      assert.ok(error.message.includes(`${path.resolve(given)} ${error.tried[0].problem}`));
      assert.match(error.message, /What to do: /);
      return true;
    });
  });
}

if (process.env.TOLVEX_OTHER_LIBRARY) {
  test('the library of the other system is refused', () => {
    assert.throws(() => tolvex.load(process.env.TOLVEX_OTHER_LIBRARY), /is for 64-bit (Windows|Linux), needed is/);
  });
}

test('TOLVEX_LIBRARY is the only place where it is looked for', () => {
  process.env.TOLVEX_LIBRARY = path.join(folder, 'missing.so');
  try {
    assert.throws(() => new tolvex.Scale().readSync(), (error) => {
      assert.equal(error.name, 'LibraryNotLoadedError');
      assert.deepEqual(error.tried.map(({ problem }) => problem), ['is missing']);
      assert.match(error.message, /TOLVEX_LIBRARY has to be the path/);
      return true;
    });
  } finally {
    process.env.TOLVEX_LIBRARY = library;
  }
});

test('without it, the package, the application, the executable and the system are searched, in this order', () => {
  delete process.env.TOLVEX_LIBRARY;
  try {
    const name = isWindows ? 'tolvex_dll.dll' : 'libtolvex_dll.so';
    assert.throws(() => tolvex.load(), (error) => {
      const native = path.join(__dirname, '..', 'native', isWindows ? 'win32-x64' : 'linux-x64', name);
      assert.deepEqual(error.tried.map(({ file: tried }) => tried), [
        native, path.join(__dirname, name), path.join(path.dirname(process.execPath), name), `${name} in the system's own search`,
      ]);
      return true;
    });
  } finally {
    process.env.TOLVEX_LIBRARY = library;
  }
});

test('a 32-bit process is told to run the 64-bit Node.js', () => {
  const arch = Object.getOwnPropertyDescriptor(process, 'arch');
  Object.defineProperty(process, 'arch', { ...arch, value: 'ia32' });
  try {
    assert.throws(() => tolvex.load(), (error) => {
      assert.equal(error.name, 'LibraryNotLoadedError');
      assert.match(error.message, /into this 32-bit (Windows|Linux) process/);
      assert.match(error.message, /Run the 64-bit build of Node\.js \(x64\)/);
      return true;
    });
  } finally {
    Object.defineProperty(process, 'arch', arch);
  }
});

test('a system for which there is no library is told where there is one', () => {
  const platform = Object.getOwnPropertyDescriptor(process, 'platform');
  const file = require.resolve('../lib/library');
  const kept = require.cache[file];
  delete require.cache[file];
  Object.defineProperty(process, 'platform', { ...platform, value: 'darwin' });
  try {
    assert.throws(() => require('../lib/library').load(), {
      name: 'LibraryNotLoadedError', message: /64-bit macOS process; needed is 64-bit Windows or Linux\.\nWhat to do: .*Windows and Linux only/,
    });
  } finally {
    Object.defineProperty(process, 'platform', platform);
    require.cache[file] = kept;
  }
});

test('a library within an archive is looked for beside it', () => {
  const { outsideOfArchive } = require('../lib/library');
  assert.equal(outsideOfArchive('/opt/till/resources/app.asar/node_modules/tolvex/native/x.so'),
    '/opt/till/resources/app.asar.unpacked/node_modules/tolvex/native/x.so');
  assert.equal(outsideOfArchive('C:\\till\\app.asar\\x.dll'), 'C:\\till\\app.asar.unpacked\\x.dll');
  assert.equal(outsideOfArchive('/opt/app.asar.unpacked/x.so'), '/opt/app.asar.unpacked/x.so');
});

test('a path that is none is refused', () => {
  for (const given of ['', null, 5]) assert.throws(() => tolvex.load(given), TypeError);
});

function isInProcess() {
  const koffi = require('koffi');
  if (isWindows) return koffi.load('kernel32.dll').func('__stdcall', 'GetModuleHandleW', 'intptr_t', ['str16'])(library) !== 0;
  const kNoLoad = 4;
  const kNow = 2;
  return koffi.load(null).func('dlopen', 'intptr_t', ['str', 'int'])(library, kNow | kNoLoad) !== 0;
}

test('the library stays in the process when the worker that loaded it has ended', async () => {
  assert.equal(isInProcess(), false);
  const worker = new Worker("require(require('node:worker_threads').workerData).raw.OpenDisplay();",
    { eval: true, workerData: path.join(__dirname, '..') });
  const [status] = await once(worker, 'exit', { signal: AbortSignal.timeout(60000) });
  assert.equal(status, 0);
  assert.equal(isInProcess(), true);
});

// From here on the library is in the process.
test('after all that the library is loaded, once', () => {
  assert.equal(tolvex.load(library), path.resolve(library));
  assert.equal(tolvex.load(), path.resolve(library));
  assert.equal(tolvex.load(library), path.resolve(library));
  assert.throws(() => tolvex.load(path.join(folder, 'missing.so')), /loaded already, from /);
  assert.equal(tolvex.raw.OpenDisplay(), tolvex.constants.TOLVEX_OK);
});

test('a worker takes the library that is in the process, wherever it would look itself', async () => {
  delete process.env.TOLVEX_LIBRARY;
  const worker = new Worker(`const { parentPort, workerData } = require('node:worker_threads');
    parentPort.postMessage(require(workerData).load());`, { eval: true, workerData: path.join(__dirname, '..') });
  const [found] = await once(worker, 'message', { signal: AbortSignal.timeout(60000) });
  assert.equal(found, path.resolve(library));
});

test('another copy of the package takes it, too', () => {
  for (const loaded of Object.keys(require.cache)) if (!loaded.includes('node_modules')) delete require.cache[loaded];
  const copy = require('..');
  assert.notEqual(copy, tolvex);
  assert.equal(copy.load(), path.resolve(library));
  assert.throws(() => copy.load(path.join(folder, 'missing.so')), /loaded already, from /);
});
