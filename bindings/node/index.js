'use strict';

const { codes, constants } = require('./lib/tables');
const errors = require('./lib/errors');
const { load } = require('./lib/library');
const { charset } = require('./lib/charset');
const { Scale } = require('./lib/scale');
const { Printer, PrinterSettings, PrinterType } = require('./lib/printer');
const { Receipt, JobType } = require('./lib/receipt');
const service = require('./lib/service');
const raw = require('./lib/raw');

const ResultCode = Object.freeze(Object.fromEntries(codes.map(({ name, code }) => [name, code])));

module.exports = {
  load,
  setServer: service.setServer,
  checkConnection: service.checkConnection,
  checkConnectionSync: service.checkConnectionSync,
  printers: service.printers,
  printersSync: service.printersSync,
  openCashDrawer: service.openCashDrawer,
  openCashDrawerSync: service.openCashDrawerSync,
  getServiceLogLevel: service.getServiceLogLevel,
  getServiceLogLevelSync: service.getServiceLogLevelSync,
  setServiceLogLevel: service.setServiceLogLevel,
  setServiceLogLevelSync: service.setServiceLogLevelSync,
  queueCharset: () => charset().name,
  explain: errors.explain,
  Scale,
  Printer,
  PrinterSettings,
  PrinterType,
  Receipt,
  JobType,
  ResultCode,
  TolvexError: errors.TolvexError,
  UnreadableError: errors.UnreadableError,
  LibraryNotLoadedError: errors.LibraryNotLoadedError,
  WaitTimeoutError: errors.WaitTimeoutError,
  CharacterError: errors.CharacterError,
  constants: Object.freeze(constants),
  raw,
};
