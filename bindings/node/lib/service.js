'use strict';

const { constants } = require('./tables');
const { verdict, code, text, room, kTextSize } = require('./command');
const { weighing, printing } = require('./connection');
const { decoded, encodedUtf8 } = require('./charset');
const raw = require('./raw');

const modules = new Map([['loadcell', weighing], ['print', printing]]);

/** @param {string} module */
function connectionOf(module) {
  const connection = modules.get(module);
  if (!connection) throw new RangeError(`The service has the modules "print" and "loadcell", but not ${JSON.stringify(module)}.`);
  return connection;
}

/** @returns {import('./connection').Work<boolean>} */
function* connected() {
  return (yield [raw.checkConnection]) === 1;
}

/** @returns {import('./connection').Work<string[]>} */
function* list() {
  const names = room();
  yield* verdict(raw.GetPrinterList, names, kTextSize);
  return decoded(names).split(',').map((name) => name.trim()).filter((name) => name !== '');
}

/**
 * @param {string} module
 * @returns {import('./connection').Work<string>}
 */
function* level(module) {
  const found = room();
  yield* code(raw.getLogLevel, encodedUtf8(module), found, kTextSize);
  return decoded(found);
}

/** @param {string} module @param {string | number} value */
function newLevel(module, value) {
  const said = typeof value === 'number' ? String(value) : text('The log level', value);
  return code(raw.setLogLevel, encodedUtf8(module), encodedUtf8(said));
}

const checkConnection = () => weighing.run(connected());
const checkConnectionSync = () => weighing.runSync(connected());

const printers = () => printing.run(list());
const printersSync = () => printing.runSync(list());

const openCashDrawer = () => printing.run(verdict(raw.OpenCashDrawerEx));
const openCashDrawerSync = () => printing.runSync(verdict(raw.OpenCashDrawerEx));

/** @param {string} module */
const getServiceLogLevel = async (module) => connectionOf(module).run(level(module));
/** @param {string} module */
const getServiceLogLevelSync = (module) => connectionOf(module).runSync(level(module));

/** @param {string} module @param {string | number} value */
const setServiceLogLevel = async (module, value) => connectionOf(module).run(newLevel(module, value));
/** @param {string} module @param {string | number} value */
const setServiceLogLevelSync = (module, value) => connectionOf(module).runSync(newLevel(module, value));

/** @param {string} address */
function setServer(address) {
  if (raw.SetServerIpForRemoteAccess(encodedUtf8(text('The address of the service', address))) !== constants.TOLVEX_OK) {
    throw new RangeError('The address of the service has to be an IPv4 address of four numbers, such as "192.168.1.20", ' +
      `but it is ${JSON.stringify(address)}.`);
  }
}

module.exports = {
  checkConnection, checkConnectionSync, printers, printersSync, openCashDrawer, openCashDrawerSync,
  getServiceLogLevel, getServiceLogLevelSync, setServiceLogLevel, setServiceLogLevelSync, setServer,
};
