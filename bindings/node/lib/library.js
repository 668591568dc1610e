// Finds the library and loads it, once for the process, and never unloads it.
'use strict';

const path = require('node:path');
const { getEnvironmentData, setEnvironmentData } = require('node:worker_threads');

const { problemOf, needed, running } = require('./binary');
const { LibraryNotLoadedError } = require('./errors');

const isWindows = process.platform === 'win32';
const isSystemKnown = isWindows || process.platform === 'linux';
const fileName = isWindows ? 'tolvex_dll.dll' : 'libtolvex_dll.so';

/** @typedef {{file: string, system?: boolean}} Candidate */

// A process has one library: workers, and another copy of this package, take the one that was loaded before.
const inThisProcess = 'tolvex: path of the library';

/** @returns {string | undefined} */
function loadedBefore() {
  return /** @type {any} */ (globalThis)[Symbol.for(inThisProcess)] ?? getEnvironmentData(inThisProcess);
}

/** @param {string} file */
function tellOthers(file) {
  /** @type {any} */ (globalThis)[Symbol.for(inThisProcess)] = file;
  setEnvironmentData(inThisProcess, file); // of workers that are started from now on
}

/** @type {{path: string, handle: import('koffi').LibraryHandle} | null} */
let loaded = null;

// Loaded with the first use only, so that require('tolvex') never fails.
/** @returns {typeof import('koffi')} */
function koffi() {
  try {
    return require('koffi');
  } catch (error) {
    throw new LibraryNotLoadedError(
      `The npm package koffi, through which libraries are called, does not load in this ${running()} process: ` +
      `${/** @type {Error} */ (error).message}\n` +
      'Install the packages on the system that they run on, with optional dependencies (npm install, without ' +
      '--omit=optional); in a packed application, leave koffi and @koromix unpacked.', [], error);
  }
}

/**
 * A file that was packed into an archive lies beside it, for the system cannot load it from there.
 * @param {string} file
 */
function outsideOfArchive(file) {
  return file.replace(/\.asar(?=[\\/])/, '.asar.unpacked');
}

/**
 * Where to look, in this order.
 * @param {string} [given]
 * @returns {Candidate[]}
 */
function candidates(given) {
  if (given !== undefined) return [{ file: path.resolve(given) }];
  const before = loadedBefore();
  if (before) return [{ file: before, system: !path.isAbsolute(before) }];
  const set = process.env.TOLVEX_LIBRARY;
  if (set) return [{ file: path.resolve(set) }];
  const inPackage = path.join(__dirname, '..', 'native', isWindows ? 'win32-x64' : 'linux-x64', fileName);
  const files = [outsideOfArchive(inPackage)];
  if (process.argv[1]) files.push(path.join(path.dirname(path.resolve(process.argv[1])), fileName));
  files.push(path.join(path.dirname(process.execPath), fileName));
  return [...new Set(files)].map((file) => /** @type {Candidate} */ ({ file })).concat({ file: fileName, system: true });
}

/**
 * Keeps the library in the process, whatever becomes of its handles: they go with the thread that loaded it, and
 * the library has connections and memory that have to stay.
 * @param {string} file
 */
function pin(file) {
  if (isWindows) {
    const kPin = 1;
    const handle = Buffer.alloc(8);
    koffi().load('kernel32.dll').func('__stdcall', 'GetModuleHandleExW', 'int', ['uint32', 'str16', 'void *'])(
      kPin, file, handle);
  } else {
    const kNow = 2;
    const kNoDelete = 0x1000;
    koffi().load(null).func('dlopen', 'void *', ['str', 'int'])(file, kNow | kNoDelete);
  }
}

/**
 * @param {Candidate} candidate
 * @param {{file: string, problem: string}[]} tried
 */
function attempt(candidate, tried) {
  const file = candidate.file;
  const problem = candidate.system ? null : problemOf(file);
  if (problem) {
    tried.push({ file, problem });
    return null;
  }
  try {
    const handle = koffi().load(file);
    handle.func('getLastErrCode', 'int', []);
    pin(file);
    return { path: file, handle };
  } catch (error) {
    if (error instanceof LibraryNotLoadedError) throw error;
    const message = /** @type {Error} */ (error).message.trim();
    tried.push({
      file: candidate.system ? `${file} in the system's own search` : file,
      problem: /Cannot find function/.test(message) ? 'is another library: it has no getLastErrCode'
        : candidate.system ? `was not found: ${message}` : `does not load: ${message}`,
    });
    return null;
  }
}

/** @param {{file: string, problem: string}[]} tried */
function failure(tried) {
  const lines = [`The library ${fileName} could not be loaded into this ${running()} process; needed is ${needed()}.`];
  if (tried.length > 0) lines.push('Tried:', ...tried.map(({ file, problem }) => `  ${file} ${problem}`));
  if (!isSystemKnown) {
    lines.push('What to do: tolvex is for 64-bit (x64) Windows and Linux only; run the application there.');
  } else if (process.arch !== 'x64') {
    lines.push(`What to do: tolvex is 64-bit (x64) only. Run the 64-bit build of ${
      process.versions.electron ? 'the application (Electron for x64, not ia32)' : 'Node.js (x64)'}.`);
  } else if (process.env.TOLVEX_LIBRARY) {
    lines.push('What to do: TOLVEX_LIBRARY has to be the path of the library; without it, that of this package is taken.');
  } else {
    lines.push(`What to do: Install the package tolvex again, put ${fileName} beside the application, or tell its path ` +
      'with the environment variable TOLVEX_LIBRARY or with load(path).');
  }
  return new LibraryNotLoadedError(lines.join('\n'), tried);
}

/**
 * Loads the library unless it is loaded, and tells its path.
 * @param {string} [given]
 * @returns {string}
 */
function load(given) {
  if (given !== undefined && (typeof given !== 'string' || given === '')) {
    throw new TypeError('The path of the library has to be a text that is not empty.');
  }
  const before = loaded?.path ?? loadedBefore();
  if (before && given !== undefined && path.resolve(given) !== before) {
    throw new Error(`The library is loaded already, from ${before}; it stays until the process ends.`);
  }
  if (loaded) return loaded.path;
  /** @type {{file: string, problem: string}[]} */
  const tried = [];
  if (process.arch !== 'x64' || !isSystemKnown) throw failure(tried);
  for (const candidate of candidates(given)) {
    loaded = attempt(candidate, tried);
    if (!loaded) continue;
    tellOthers(loaded.path);
    return loaded.path;
  }
  throw failure(tried);
}

function handle() {
  load();
  return /** @type {{handle: import('koffi').LibraryHandle}} */ (loaded).handle;
}

module.exports = { load, handle, koffi, isWindows, outsideOfArchive };
