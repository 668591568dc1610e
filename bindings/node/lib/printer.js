'use strict';

const path = require('node:path');

const { constants } = require('./tables');
const {
  verdict, code, rawReply, parsedReply, usual, fontSize, paperWidth, angle, unsigned, flag, wholeNumber, text, textThatIsNotEmpty,
  printerName, byName, room, wait, kTextSize,
} = require('./command');
const { printing } = require('./connection');
const { decoded, encodedUtf8 } = require('./charset');
const { explain, TolvexError } = require('./errors');
const raw = require('./raw');

const kMostBlank = 1000;

const PrinterType = Object.freeze(/** @type {const} */ ({
  Label: 0, Ticket: 1, Third: 2, Default: constants.TOLVEX_DEFAULT_PRINTER,
}));

/**
 * @param {number} printerType
 * @returns {import('./connection').Work<import('..').PrinterStatus>}
 */
function* status(printerType) {
  const state = yield [raw.GetPrinterStatus, printerType];
  if (state !== 0 && (state < 2001 || state > 2010)) throw new TolvexError('GetPrinterStatus', state);
  const { name, text: title, meaning, remedy } = explain(state);
  return { ready: state === 0, code: state, codeName: name, text: title, meaning, remedy };
}

/** A text of at least one character: an empty one would go out as a blank. @param {unknown} value */
function line(value) {
  return encodedUtf8(text('The text', value) === '' ? ' ' : /** @type {string} */ (value));
}

/** A printer, addressed by its type. */
class Printer {
  /** @param {number} [type] */
  constructor(type = PrinterType.Default) {
    this.type = unsigned('The printer type', type);
  }

  status() { return printing.run(status(this.type)); }
  statusSync() { return printing.runSync(status(this.type)); }

  /** @param {string} value @param {{size?: number}} [options] */
  async printText(value, options) { return printing.run(this.#text(value, options)); }
  /** @param {string} value @param {{size?: number}} [options] */
  printTextSync(value, options) { return printing.runSync(this.#text(value, options)); }
  /** @param {string} value @param {{size?: number}} [options] */
  #text(value, options) {
    const { size = usual.size } = byName(options);
    return code(raw.printTextById, line(value), fontSize(size), this.type);
  }

  /** @param {string} value @param {{size?: number, width?: number}} [options] */
  async printWrapped(value, options) { return printing.run(this.#wrapped(value, options)); }
  /** @param {string} value @param {{size?: number, width?: number}} [options] */
  printWrappedSync(value, options) { return printing.runSync(this.#wrapped(value, options)); }
  /** @param {string} value @param {{size?: number, width?: number}} [options] */
  #wrapped(value, options) {
    const { size = usual.size, width = usual.width } = byName(options);
    return code(raw.printTextByPaperWidthById, line(value), fontSize(size), paperWidth(width), this.type);
  }

  /** @param {string} file @param {{angle?: number}} [options] */
  async printImage(file, options) { return printing.run(this.#image(file, options)); }
  /** @param {string} file @param {{angle?: number}} [options] */
  printImageSync(file, options) { return printing.runSync(this.#image(file, options)); }
  // The service opens it, from a folder of its own.
  /** @param {string} file @param {{angle?: number}} [options] */
  #image(file, options) {
    const { angle: turned = 0 } = byName(options);
    const absolute = path.resolve(textThatIsNotEmpty('The path of the image', file));
    return code(raw.printBitmapFileById, encodedUtf8(absolute), angle(turned), this.type);
  }

  cut() { return printing.run(code(raw.cutPaperById, this.type)); }
  cutSync() { return printing.runSync(code(raw.cutPaperById, this.type)); }

  feed() { return printing.run(verdict(raw.feedPaperById, this.type)); }
  feedSync() { return printing.runSync(verdict(raw.feedPaperById, this.type)); }

  calibrate() { return printing.run(verdict(raw.calibrateLabel, this.type)); }
  calibrateSync() { return printing.runSync(verdict(raw.calibrateLabel, this.type)); }

  calibratePaperEnd() { return printing.run(code(raw.testPaper, this.type)); }
  calibratePaperEndSync() { return printing.runSync(code(raw.testPaper, this.type)); }

  /** @param {number} millimetres */
  async setPaperWidth(millimetres) { return printing.run(this.#paperWidth(millimetres)); }
  /** @param {number} millimetres */
  setPaperWidthSync(millimetres) { return printing.runSync(this.#paperWidth(millimetres)); }
  // Sent times eight, which has to remain a number.
  /** @param {number} millimetres */
  #paperWidth(millimetres) {
    return code(raw.setDefaultPaperWidth, wholeNumber('The paper width in millimetres', millimetres, 0, 0x0fffffff), this.type);
  }

  /** @param {number} value */
  async setGapType(value) { return printing.run(this.#set(raw.setGapType, 'The gap type', value)); }
  /** @param {number} value */
  setGapTypeSync(value) { return printing.runSync(this.#set(raw.setGapType, 'The gap type', value)); }

  /** @param {number} value */
  async setDirection(value) { return printing.run(this.#set(raw.setPrinterDirection, 'The direction', value)); }
  /** @param {number} value */
  setDirectionSync(value) { return printing.runSync(this.#set(raw.setPrinterDirection, 'The direction', value)); }

  /** @param {number} value */
  async setTextWrapMode(value) { return printing.run(this.#set(raw.setTextWrapMode, 'The wrap mode', value)); }
  /** @param {number} value */
  setTextWrapModeSync(value) { return printing.runSync(this.#set(raw.setTextWrapMode, 'The wrap mode', value)); }

  /** @param {typeof raw.setGapType} exported @param {string} what @param {number} value */
  #set(exported, what, value) {
    return code(exported, unsigned(what, value), this.type);
  }

  // Of the default printer only: there is no function that feeds another one by a distance.
  /** @param {number} distance */
  static async feedBlank(distance) { return printing.run(feedBlank(distance)); }
  /** @param {number} distance */
  static feedBlankSync(distance) { return printing.runSync(feedBlank(distance)); }
}

/** @param {unknown} distance */
function feedBlank(distance) {
  return verdict(raw.printBlanks, wholeNumber('The distance', distance, 1, kMostBlank));
}

/**
 * @param {Buffer} name
 * @returns {import('./connection').Work<Record<string, unknown>>}
 */
function* firmwareVersion(name) {
  const reply = room();
  yield* verdict(raw.getPrinterVersion, reply, kTextSize, name);
  return parsedReply('getPrinterVersion', decoded(reply));
}

/** @typedef {{number?: number, parameters?: string, timeout?: number}} RawOptions */

/** Settings of a printer, addressed by its name. */
class PrinterSettings {
  #name;

  /** @param {string} name one that printers() tells */
  constructor(name) {
    this.name = printerName(name);
    this.#name = encodedUtf8(name);
  }

  /** @param {number} dots */
  async setLeftMargin(dots) { return printing.run(this.#set(raw.setLeftMargin, 'The left margin', dots)); }
  /** @param {number} dots */
  setLeftMarginSync(dots) { return printing.runSync(this.#set(raw.setLeftMargin, 'The left margin', dots)); }

  /** @param {number} dots */
  async setRightMargin(dots) { return printing.run(this.#set(raw.setRightMargin, 'The right margin', dots)); }
  /** @param {number} dots */
  setRightMarginSync(dots) { return printing.runSync(this.#set(raw.setRightMargin, 'The right margin', dots)); }

  /** @param {number} offset */
  async setPaperOffset(offset) { return printing.run(this.#set(raw.setPaperOffset, 'The paper offset', offset)); }
  /** @param {number} offset */
  setPaperOffsetSync(offset) { return printing.runSync(this.#set(raw.setPaperOffset, 'The paper offset', offset)); }

  /** @param {number} contrast */
  async setContrast(contrast) { return printing.run(this.#set(raw.setPrintContrast, 'The contrast', contrast)); }
  /** @param {number} contrast */
  setContrastSync(contrast) { return printing.runSync(this.#set(raw.setPrintContrast, 'The contrast', contrast)); }

  /** @param {number} speed */
  async setSpeed(speed) { return printing.run(this.#set(raw.setPrintSpeed, 'The speed', speed)); }
  /** @param {number} speed */
  setSpeedSync(speed) { return printing.runSync(this.#set(raw.setPrintSpeed, 'The speed', speed)); }

  /** @param {boolean} on */
  async setAutoPrint(on) { return printing.run(this.#switch(raw.setPrtAutoPrint, 'Automatic printing', on)); }
  /** @param {boolean} on */
  setAutoPrintSync(on) { return printing.runSync(this.#switch(raw.setPrtAutoPrint, 'Automatic printing', on)); }

  /** @param {boolean} on */
  async setRollback(on) { return printing.run(this.#switch(raw.setRollback, 'Rolling back', on)); }
  /** @param {boolean} on */
  setRollbackSync(on) { return printing.runSync(this.#switch(raw.setRollback, 'Rolling back', on)); }

  /** @param {boolean} on */
  async setTakeUpSensor(on) { return printing.run(this.#sensor(on)); }
  /** @param {boolean} on */
  setTakeUpSensorSync(on) { return printing.runSync(this.#sensor(on)); }
  /** @param {boolean} on */
  #sensor(on) {
    return verdict(raw.setTakeupPaperSensor, flag('The sensor for taken paper', on), this.#name);
  }

  firmwareVersion() { return printing.run(firmwareVersion(this.#name)); }
  firmwareVersionSync() { return printing.runSync(firmwareVersion(this.#name)); }

  /** @param {string} command @param {RawOptions} [options] */
  async rawCommand(command, options) { return printing.run(this.#rawCommand(command, options)); }
  /** @param {string} command @param {RawOptions} [options] */
  rawCommandSync(command, options) { return printing.runSync(this.#rawCommand(command, options)); }
  /** @param {string} command @param {RawOptions} [options] */
  #rawCommand(command, options) {
    const { number = 0, parameters = '', timeout = usual.wait } = byName(options);
    const sent = encodedUtf8(textThatIsNotEmpty('The command', command));
    const list = encodedUtf8(text('The parameters', parameters));
    wholeNumber('The number', number, -0x80000000, 0x7fffffff);
    const limit = wait(timeout);
    return rawReply(raw.sendRawCmdToPrt, (reply) => [this.#name, sent, number, list, reply, kTextSize, limit]);
  }

  /** @param {typeof raw.setLeftMargin} exported @param {string} what @param {number} value */
  #set(exported, what, value) {
    return code(exported, unsigned(what, value), this.#name);
  }

  /** @param {typeof raw.setLeftMargin} exported @param {string} what @param {boolean} on */
  #switch(exported, what, on) {
    return code(exported, flag(what, on), this.#name);
  }
}

module.exports = { Printer, PrinterSettings, PrinterType };
