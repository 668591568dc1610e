// Weights come as decimal text and are passed on three ways: as text, as a number, and as a whole number of
// ten-thousandths, with which sums come out exactly.
'use strict';

const { UnreadableError } = require('./errors');

const kDecimals = 4;

/**
 * @param {string} operation
 * @param {string} what
 * @param {string} text
 * @returns {{value: number, units: number}}
 */
function readDecimal(operation, what, text) {
  const parts = /^([+-]?)(\d+)(?:\.(\d+))?$/.exec(text);
  if (!parts) throw new UnreadableError(operation, what, text);
  const [, sign, whole, fraction = ''] = parts;
  // Beyond the fourth decimal nothing but zeros is taken: the units would not be the weight.
  if (/[^0]/.test(fraction.slice(kDecimals))) throw new UnreadableError(operation, what, text);
  const units = Number(whole + fraction.slice(0, kDecimals).padEnd(kDecimals, '0'));
  if (!Number.isSafeInteger(units)) throw new UnreadableError(operation, what, text);
  const signed = sign === '-' && units !== 0 ? -units : units;
  return { value: signed / 10 ** kDecimals, units: signed };
}

module.exports = { readDecimal };
