'use strict';

const { performance } = require('node:perf_hooks');

const { constants, records } = require('./tables');
const {
  verdict, code, rawReply, parsedReply, usual, flag, text, textThatIsNotEmpty, byName, wait, wholeNumber, room, kTextSize,
} = require('./command');
const { weighing, printing } = require('./connection');
const { decoded, encodedUtf8 } = require('./charset');
const { readDecimal } = require('./decimal');
const { TolvexError, WaitTimeoutError } = require('./errors');
const raw = require('./raw');

const kTareBytes = 10;

/** @typedef {import('..').Reading} Reading */

/** @type {Omit<Reading, 'state'>} */
const nothingRead = {
  net: null, netUnits: null, netText: null, tare: null, tareUnits: null, tareText: null,
  stable: false, zero: false, tareActive: false,
};

/**
 * @param {Buffer} record
 * @param {{offset: number, size: number}} member
 */
function member(record, { offset, size }) {
  return record.subarray(offset, offset + size);
}

/**
 * @param {Buffer} record
 * @returns {Reading}
 */
function readingOf(record) {
  const layout = records.tolvex_weight;
  if (record[layout.mark.offset] === 0) return { state: 'invalid', ...nothingRead };
  const netText = decoded(member(record, layout.net));
  const net = readDecimal('read_standard', 'net weight', netText);
  const tareText = decoded(record.subarray(layout.tare.offset, layout.size));
  const tare = tareText === '' ? null : readDecimal('read_standard', 'tare', tareText);
  const status = record[layout.status.offset];
  return {
    state: 'weight',
    net: net.value, netUnits: net.units, netText,
    tare: tare && tare.value, tareUnits: tare && tare.units, tareText: tare && tareText,
    stable: (status & constants.TOLVEX_WEIGHT_STABLE) !== 0,
    zero: (status & constants.TOLVEX_WEIGHT_AT_ZERO) !== 0,
    tareActive: (status & constants.TOLVEX_WEIGHT_TARE_ACTIVE) !== 0,
  };
}

/** @returns {import('./connection').Work<Reading>} */
function* read() {
  const record = Buffer.alloc(records.tolvex_weight.size);
  const result = yield [raw.read_standard, record];
  if (result === constants.TOLVEX_UNDER_LOAD) return { state: 'underLoad', ...nothingRead };
  if (result === constants.TOLVEX_OVER_LOAD) return { state: 'overLoad', ...nothingRead };
  if (result !== constants.TOLVEX_OK) throw TolvexError.behindVerdict('read_standard', raw.getLastErrCode());
  return readingOf(record);
}

/** @returns {import('./connection').Work<import('..').ScaleInfo>} */
function* info() {
  const layout = records.tolvex_base_info;
  const record = Buffer.alloc(layout.size);
  yield* verdict(raw.read_baseinfo, record);
  /** @param {{offset: number, count: number}} of @returns {number[]} */
  const all = (of) => Array.from({ length: of.count }, (_, i) => record.readInt32LE(of.offset + 4 * i));
  /** @param {{offset: number}} of */
  const one = (of) => record.readInt32LE(of.offset);
  const thousandths = {
    minRange: one(layout.min_range),
    maxTare: one(layout.max_tare),
    maxPresetTare: one(layout.max_preset_tare),
    resolution: all(layout.resolution),
  };
  return {
    maxRange: all(layout.max_range),
    minRange: thousandths.minRange / 1000,
    maxTare: thousandths.maxTare / 1000,
    maxPresetTare: thousandths.maxPresetTare / 1000,
    resolution: thousandths.resolution.map((value) => value / 1000),
    thousandths,
    unit: decoded(member(record, layout.weight_unit)),
    systemVersion: decoded(member(record, layout.system_version)),
  };
}

/**
 * @param {typeof raw.set_tare_bykey} exported
 * @returns {import('./connection').Work<import('..').Tare | null>}
 */
function* tare(exported) {
  const reply = Buffer.alloc(kTareBytes);
  yield* verdict(exported, reply);
  const tareText = decoded(reply);
  if (tareText === '') return null;
  const { value, units } = readDecimal(exported.name, 'tare', tareText);
  return { tare: value, tareUnits: units, tareText };
}

/** @returns {import('./connection').Work<Record<string, unknown>>} */
function* version() {
  const reply = room();
  yield* code(raw.getLCVersion, reply, kTextSize);
  return parsedReply('getLCVersion', decoded(reply));
}

/** @param {string} command @param {{parameters?: string, timeout?: number}} [options] */
function rawCommand(command, options) {
  const { parameters = '', timeout = usual.wait } = byName(options);
  const sent = encodedUtf8(textThatIsNotEmpty('The command', command));
  const list = encodedUtf8(text('The parameters', parameters));
  const limit = wait(timeout);
  return rawReply(raw.sendRawCmdToLC, (reply) => [sent, list, reply, kTextSize, limit]);
}

/** @param {boolean} on */
function overloadAlarm(on) {
  return code(raw.setOverloadAlarm, flag('The overload alarm', on));
}

const timeIsUp = Symbol('time is up');
const never = () => new Promise(() => {}); // one for each wait: it would remember all of them
const kForever = 0x7fffffff;

/**
 * What the promise gives, unless the time is up or somebody aborts before that; the call behind it goes on.
 * @template Result
 * @param {Promise<Result>} promise
 * @param {number} milliseconds
 * @param {AbortSignal} [signal]
 * @returns {Promise<Result | typeof timeIsUp>}
 */
function within(promise, milliseconds, signal) {
  return new Promise((take, fail) => {
    const aborted = () => { end(); fail(signal?.reason); };
    const timer = setTimeout(() => { end(); take(timeIsUp); }, Math.max(0, milliseconds));
    const end = () => { clearTimeout(timer); signal?.removeEventListener('abort', aborted); };
    signal?.addEventListener('abort', aborted);
    promise.then((result) => { end(); take(result); }, (error) => { end(); fail(error); });
  });
}

/** The scale. There is one; all objects of this class are the same scale. */
class Scale {
  read() { return weighing.run(read()); }
  readSync() { return weighing.runSync(read()); }

  info() { return weighing.run(info()); }
  infoSync() { return weighing.runSync(info()); }

  zero() { return weighing.run(verdict(raw.send_zero)); }
  zeroSync() { return weighing.runSync(verdict(raw.send_zero)); }

  tare() { return weighing.run(tare(raw.set_tare_bykey)); }
  tareSync() { return weighing.runSync(tare(raw.set_tare_bykey)); }

  clearTare() { return weighing.run(tare(raw.clear_tare)); }
  clearTareSync() { return weighing.runSync(tare(raw.clear_tare)); }

  version() { return weighing.run(version()); }
  versionSync() { return weighing.runSync(version()); }

  // The service takes this command on the other connection.
  /** @param {boolean} on */
  async setOverloadAlarm(on) { return printing.run(overloadAlarm(on)); }
  /** @param {boolean} on */
  setOverloadAlarmSync(on) { return printing.runSync(overloadAlarm(on)); }

  /** @param {string} command @param {{parameters?: string, timeout?: number}} [options] */
  async rawCommand(command, options) { return weighing.run(rawCommand(command, options)); }
  /** @param {string} command @param {{parameters?: string, timeout?: number}} [options] */
  rawCommandSync(command, options) { return weighing.runSync(rawCommand(command, options)); }

  get highResolution() { return raw.getHighResWeightMode() === 1; }
  set highResolution(on) { raw.setHighResWeightMode(on ? 1 : 0); }

  /**
   * @param {import('..').WaitOptions} [options]
   * @returns {Promise<Reading>}
   */
  async waitStable(options) {
    const { timeout = 30000, interval = 100, signal, where = () => true } = byName(options);
    const end = performance.now() + wait(timeout);
    wholeNumber('The interval in milliseconds', interval, 1, 60000);
    /** @type {Reading | null} */
    let last = null;
    for (;;) {
      signal?.throwIfAborted();
      const reading = await within(this.read(), end - performance.now(), signal);
      if (reading === timeIsUp) throw new WaitTimeoutError(timeout, last);
      last = /** @type {Reading} */ (reading);
      if (last.state === 'weight' && last.stable && where(last)) return last;
      const left = end - performance.now();
      if (left <= 0) throw new WaitTimeoutError(timeout, last);
      await within(never(), Math.min(interval, left), signal);
    }
  }

  /**
   * @param {{interval?: number, signal?: AbortSignal}} [options]
   * @returns {AsyncGenerator<Reading, void, undefined>}
   */
  async *watch(options) {
    const { interval = 200, signal } = byName(options);
    wholeNumber('The interval in milliseconds', interval, 1, 60000);
    for (;;) {
      signal?.throwIfAborted();
      yield /** @type {Reading} */ (await within(this.read(), kForever, signal));
      await within(never(), interval, signal);
    }
  }
}

module.exports = { Scale };
