// Every export under its own name. Arguments are checked as far as it takes to keep the process whole: whatever a
// program passes here, the library reads and writes nothing that is not the program's.
'use strict';

const { functions } = require('./tables');
const library = require('./library');

const limits = { int: [-0x80000000, 0x7fffffff], uint: [0, 0xffffffff] };
const types = { int: 'int', uint: 'unsigned int', text: 'const void *', buffer: 'void *' };

/** @typedef {(string | number)[]} Parameter name, type, and of a buffer its least size or the parameter that tells it */

/**
 * @param {string} where
 * @param {'int' | 'uint'} type
 * @param {unknown} value
 */
function checkedNumber(where, type, value) {
  const [least, most] = limits[type];
  if (typeof value !== 'number') throw new TypeError(`${where} has to be a number, but it is ${shown(value)}.`);
  if (!Number.isInteger(value) || value < least || value > most) {
    throw new RangeError(`${where} has to be a whole number from ${least} to ${most}, but it is ${value}.`);
  }
  return value;
}

/**
 * @param {string} where
 * @param {unknown} value
 */
function checkedText(where, value) {
  if (value === null) return null;
  if (typeof value === 'string') {
    const position = value.indexOf('\0');
    if (position >= 0) throw new RangeError(`${where} has a NUL at position ${position}, where the library would end it.`);
    return Buffer.from(`${value}\0`, 'utf8');
  }
  if (value instanceof Uint8Array) {
    if (!value.includes(0)) throw new RangeError(`${where} has no NUL at its end.`);
    return value;
  }
  throw new TypeError(`${where} has to be a string, bytes with a NUL, or null, but it is ${shown(value)}.`);
}

/**
 * @param {string} where
 * @param {unknown} value
 * @param {number} size
 * @param {boolean} isText whether the library reads a text from it first
 */
function checkedBuffer(where, value, size, isText) {
  if (value === null) return null;
  if (!(value instanceof Uint8Array)) throw new TypeError(`${where} has to be a Buffer or null, but it is ${shown(value)}.`);
  if (value.length < size) throw new RangeError(`${where} has to have at least ${size} bytes, but it has ${value.length}.`);
  if (isText && !value.includes(0)) throw new RangeError(`${where} has no NUL at its end.`);
  return value;
}

/** @param {unknown} value */
function shown(value) {
  return value === undefined ? 'missing' : value === null ? 'null' : `of the type ${typeof value}`;
}

/**
 * @param {string} name
 * @param {Parameter[]} parameters
 * @param {unknown[]} values
 */
function checked(name, parameters, values) {
  const sizeAt = parameters.findIndex(([parameter]) => parameter === 'size');
  return parameters.map(([parameter, type, least], i) => {
    const where = `${name}: ${parameter}`;
    if (type === 'int' || type === 'uint') return checkedNumber(where, type, values[i]);
    if (type === 'text') return checkedText(where, values[i]);
    const size = least === 'size' ? checkedNumber(`${name}: size`, 'uint', values[sizeAt]) : Number(least);
    return checkedBuffer(where, values[i], size, parameter === 'text');
  });
}

/**
 * @param {string} name
 * @param {Parameter[]} parameters
 */
function bind(name, parameters) {
  /** @type {ReturnType<import('koffi').LibraryHandle['func']> | undefined} */
  let native;
  const resolved = () => {
    native ??= library.handle().func(name, 'int', parameters.map(([, type]) => types[/** @type {'int'} */ (type)]));
    return native;
  };
  /** @param {unknown[]} values */
  const call = (...values) => resolved()(...checked(name, parameters, values));
  /** @param {unknown[]} values */
  call.async = (...values) => new Promise((take, fail) => {
    const passed = checked(name, parameters, values);
    // What was passed has to live until the call is over; the callback holds it.
    resolved().async(...passed, (/** @type {unknown} */ error, /** @type {number} */ result) => {
      if (error) fail(error);
      else take(passed && result);
    });
  });
  Object.defineProperty(call, 'name', { value: name });
  return call;
}

const raw = Object.fromEntries(functions.map(([name, , parameters]) =>
  [name, bind(/** @type {string} */ (name), /** @type {Parameter[]} */ (parameters))]));

/** @type {import('./exports').Raw} */
module.exports = Object.freeze(/** @type {any} */ (raw));
