// The service has two connections, and so has this: what is done on each of them happens one after the other, the
// code behind a verdict is asked before the next call can change it, and a job is queued without another between.
// That holds for all threads of the process, for the library is in it once.
'use strict';

const fs = require('node:fs');
const { setTimeout: pause } = require('node:timers/promises');

const { koffi, isWindows } = require('./library');

const kPollMs = 10;

// ---- A lock among the threads (workers) of this process, which the system takes back when one of them ends ----

// flock, on a file that every process has for itself: two descriptors of it exclude each other.
class FileLock {
  /** @param {string} name of a file in /proc */
  constructor(name) {
    const kExclusive = 2;
    const kNow = 4;
    const kUnlock = 8;
    /** @type {number} */
    let file;
    try {
      file = fs.openSync(`/proc/${process.pid}/${name}`, 'r');
    } catch { // a system without /proc: each thread has its own order then
      this.tryTake = () => true;
      this.release = () => {};
      return;
    }
    const flock = koffi().load(null).func('flock', 'int', ['int', 'int']);
    this.tryTake = () => flock(file, kExclusive | kNow) === 0;
    this.release = () => { flock(file, kUnlock); };
  }
}

// A mutex belongs to the thread that took it: JavaScript's, which is the same all along.
class Mutex {
  /** @param {string} name */
  constructor(name) {
    const kTaken = 0;
    const kAbandoned = 0x80;
    const kernel = koffi().load('kernel32.dll');
    const handle = kernel.func('__stdcall', 'CreateMutexW', 'intptr_t', ['void *', 'int', 'str16'])(
      null, 0, `Local\\tolvex-${process.pid}-${name}`);
    const wait = kernel.func('__stdcall', 'WaitForSingleObject', 'uint32', ['intptr_t', 'uint32']);
    const release = kernel.func('__stdcall', 'ReleaseMutex', 'int', ['intptr_t']);
    this.tryTake = () => [kTaken, kAbandoned].includes(wait(handle, 0));
    this.release = () => release(handle);
  }
}

/** Keeps a thread that may not go on to its event loop waiting. */
function sleep() {
  Atomics.wait(new Int32Array(new SharedArrayBuffer(4)), 0, 0, kPollMs);
}

// ---- Connections ----

/**
 * Work that is the same whether JavaScript waits for it or not: a generator that yields calls, each an export with its
 * arguments, and gets their results.
 * @template Result
 * @typedef {Generator<[import('./exports').Export<any[]>, ...any[]], Result, number>} Work
 */

class Connection {
  /**
   * @param {string} name
   * @param {string} file in /proc
   */
  constructor(name, file) {
    this.name = name;
    this.file = file;
    this.waiting = 0;
    /** @type {Promise<unknown>} */
    this.last = Promise.resolve();
    /** @type {FileLock | Mutex | undefined} */
    this.lock = undefined;
  }

  threads() {
    this.lock ??= isWindows ? new Mutex(this.name) : new FileLock(this.file);
    return this.lock;
  }

  /**
   * Does the work when its turn has come, in a thread of the pool.
   * @template Result
   * @param {Work<Result>} work
   * @returns {Promise<Result>}
   */
  run(work) {
    this.waiting += 1;
    const done = this.last.then(() => this.#doIt(work));
    this.last = done.catch(() => {});
    return done;
  }

  /**
   * @template Result
   * @param {Work<Result>} work
   */
  async #doIt(work) {
    try {
      const threads = this.threads();
      while (!threads.tryTake()) await pause(kPollMs);
      try {
        let step = work.next();
        while (!step.done) {
          const [called, ...values] = step.value;
          step = work.next(await called.async(...values));
        }
        return step.value;
      } finally {
        threads.release();
      }
    } finally {
      this.waiting -= 1; // before whoever awaits this goes on
    }
  }

  /**
   * Does the work at once, and JavaScript waits.
   * @template Result
   * @param {Work<Result>} work
   * @returns {Result}
   */
  runSync(work) {
    if (this.waiting > 0) {
      throw Object.assign(new Error(`A Sync function was called while something asynchronous was going on with ${this.name}. ` +
        'Await that first, or use asynchronous functions only.'), { code: 'ERR_TOLVEX_BUSY' });
    }
    const threads = this.threads();
    while (!threads.tryTake()) sleep();
    try {
      let step = work.next();
      while (!step.done) {
        const [called, ...values] = step.value;
        step = work.next(called(...values));
      }
      return step.value;
    } finally {
      threads.release();
    }
  }
}

// Another copy of this package in the same thread has the same ones: a lock among threads does not keep it out on
// Windows, and a Sync function would wait for ever for what goes on there.
const inThisThread = Symbol.for('tolvex: connections');

/** @type {{weighing: Connection, printing: Connection}} */
const connections = /** @type {any} */ (globalThis)[inThisThread] ??= {
  weighing: new Connection('weighing', 'stat'),
  printing: new Connection('printing', 'statm'),
};

module.exports = connections;
