// What all commands have in common: results, and arguments that have to be refused before the library takes them for
// something else.
'use strict';

const { constants } = require('./tables');
const { decoded } = require('./charset');
const { TolvexError, UnreadableError } = require('./errors');
const raw = require('./raw');

const kTextSize = 2048; // the longest reply
const kNameBytes = 255;

/** What holds where a caller says nothing. */
const usual = Object.freeze({
  size: 24, // dots; a receipt of 72 mm has 48 such characters in a line
  width: 72, // millimetres, of 80 mm paper
  wait: 40000, // milliseconds, as the library waits
});

/** @typedef {import('./exports').Export<any[]>} Exported */

/**
 * A function returning a verdict.
 * @param {Exported} exported
 * @param {...any} values
 * @returns {import('./connection').Work<void>}
 */
function* verdict(exported, ...values) {
  const result = yield [exported, ...values];
  if (result === constants.TOLVEX_OK) return;
  throw TolvexError.behindVerdict(exported.name, raw.getLastErrCode());
}

/**
 * A function returning a code.
 * @param {Exported} exported
 * @param {...any} values
 * @returns {import('./connection').Work<void>}
 */
function* code(exported, ...values) {
  const result = yield [exported, ...values];
  if (result !== 0) throw new TolvexError(exported.name, result);
}

/**
 * A raw command: its reply, which an error has, too.
 * @param {Exported} exported
 * @param {(reply: Buffer) => any[]} values
 * @returns {import('./connection').Work<string>}
 */
function* rawReply(exported, values) {
  const reply = room();
  try {
    yield* code(exported, ...values(reply));
  } catch (error) {
    if (error instanceof TolvexError) error.reply = decoded(reply);
    throw error;
  }
  return decoded(reply);
}

/**
 * The object in a reply that the library has read already.
 * @param {string} operation
 * @param {string} reply
 * @returns {Record<string, unknown>}
 */
function parsedReply(operation, reply) {
  try {
    return JSON.parse(reply);
  } catch {
    throw new UnreadableError(operation, 'reply', reply, 'JSON');
  }
}

/**
 * @param {string} what
 * @param {unknown} value
 * @param {number} least
 * @param {number} most
 * @returns {number}
 */
function wholeNumber(what, value, least, most) {
  if (typeof value !== 'number') throw new TypeError(`${what} has to be a number, but it is ${kind(value)}.`);
  if (!Number.isInteger(value) || value < least || value > most) {
    throw new RangeError(`${what} has to be a whole number from ${least} to ${most}, but it is ${value}.`);
  }
  return value;
}

/** @param {unknown} value */
function fontSize(value) {
  return wholeNumber('The font size', value, 12, 72);
}

/** @param {unknown} value */
function paperWidth(value) {
  return wholeNumber('The paper width in millimetres', value, 0, 80);
}

/** @param {unknown} value */
function angle(value) {
  const number = wholeNumber('The angle', value, 0, 270);
  if (number % 90 !== 0) throw new RangeError(`The angle has to be 0, 90, 180 or 270, but it is ${number}.`);
  return number;
}

/** @param {string} what @param {unknown} value */
function unsigned(what, value) {
  return wholeNumber(what, value, 0, 0xffffffff);
}

/**
 * A text without a NUL, at which the library would end it.
 * @param {string} what
 * @param {unknown} value
 * @returns {string}
 */
function text(what, value) {
  if (typeof value !== 'string') throw new TypeError(`${what} has to be a text, but it is ${kind(value)}.`);
  const position = value.indexOf('\0');
  if (position >= 0) throw new RangeError(`${what} has a NUL at position ${position}, where it would end.`);
  return value;
}

/** @param {string} what @param {unknown} value */
function textThatIsNotEmpty(what, value) {
  if (text(what, value) === '') throw new RangeError(`${what} is empty.`);
  return /** @type {string} */ (value);
}

/** @param {unknown} value */
function printerName(value) {
  const name = textThatIsNotEmpty('The printer name', value);
  const bytes = Buffer.byteLength(name);
  if (bytes > kNameBytes) throw new RangeError(`The printer name has ${bytes} bytes of UTF-8, but at most ${kNameBytes} are taken.`);
  return name;
}

/** @param {string} what @param {unknown} on */
function flag(what, on) {
  if (typeof on !== 'boolean') throw new TypeError(`${what} has to be true or false, but it is ${kind(on)}.`);
  return on ? 1 : 0;
}

/** @param {unknown} value */
function kind(value) {
  return value === null ? 'null' : typeof value;
}

/**
 * What a caller may leave out. A bare value in its place, as in text('x', 36), would be passed over without a word.
 * @template Options
 * @param {Options | undefined} options
 * @returns {Partial<Options>}
 */
function byName(options) {
  if (options === undefined) return {};
  if (typeof options === 'object' && options !== null) return options;
  throw new TypeError(`Options have to be an object, such as {size: 36}, but it is ${kind(options)}.`);
}

/** Room for a reply, and a NUL behind it whatever came. */
function room() {
  return Buffer.alloc(kTextSize + 1);
}

/** @param {unknown} value a time in milliseconds */
function wait(value) {
  return wholeNumber('The timeout in milliseconds', value, 1, 0x7fffffff);
}

module.exports = {
  verdict, code, rawReply, parsedReply, usual, wholeNumber, fontSize, paperWidth, angle, unsigned, flag, text, textThatIsNotEmpty,
  printerName, byName, room, wait, kTextSize,
};
