'use strict';

const fs = require('node:fs');
const path = require('node:path');

const { constants } = require('./tables');
const { usual, fontSize, paperWidth, angle, wholeNumber, text, textThatIsNotEmpty, byName } = require('./command');
const { printing } = require('./connection');
const { encoded } = require('./charset');
const { TolvexError } = require('./errors');
const raw = require('./raw');

const kLongestLine = 2048; // bytes of UTF-8; the service takes no longer one
const kMostImages = 200;

const JobType = Object.freeze(/** @type {const} */ ({
  Ticket: 0, Label: 2, TicketFeed: 4, ImageTicket: 7, TicketCut: 8,
  FpFeed: 104, FpCut: 105,
  ImageLabel: 204, DotLabel: 205, LabelFeedAuto: 206, FlpCut: 207, LabelFeed: 208,
  FllpFeed: 304, FllpCut: 305,
}));

// With these the library leaves what is queued where it is, for the next job to print.
const leaveTheQueue = new Set([6, 106, 209, 306, 80, 81, 90, 91]);

/** Set when lines of a receipt are left in the library's queue: the next job would print them. */
let queueIsSpoilt = false;

/**
 * @typedef {object} Item
 * @property {import('./exports').Export<any[]>} queue
 * @property {string} content text, or the path of an image
 * @property {number[]} values
 */

/** What becomes one line each, without the end of line: LF or CR LF. @param {string} content */
function linesOf(content) {
  return content.split('\n').map((line) => line.replace(/\r$/, ''));
}

/** Lines and images, kept here until they are printed, and after that, so that they can be printed again. */
class Receipt {
  /** @type {Item[]} */
  #items = [];
  #replace;

  /** @param {{replace?: boolean}} [options] */
  constructor(options) {
    this.#replace = byName(options).replace ?? false;
  }

  get length() { return this.#items.length; }

  /** @param {string} value @param {{size?: number}} [options] */
  text(value, options) {
    const { size = usual.size } = byName(options);
    text('The text', value);
    const tooLong = linesOf(value).find((line) => Buffer.byteLength(line) > kLongestLine);
    if (tooLong !== undefined) {
      throw new RangeError(`A line has ${Buffer.byteLength(tooLong)} bytes of UTF-8, but at most ${kLongestLine} are printed. ` +
        'Break it into shorter lines, or use wrapped, which takes any length.');
    }
    this.#items.push({ queue: raw.PrintText, content: value, values: [fontSize(size)] });
    return this;
  }

  /** @param {string} value @param {{size?: number, width?: number}} [options] */
  wrapped(value, options) {
    const { size = usual.size, width = usual.width } = byName(options);
    text('The text', value);
    this.#items.push({ queue: raw.PrintTextByPaperWidth, content: value, values: [fontSize(size), paperWidth(width)] });
    return this;
  }

  /** @param {{size?: number}} [options] */
  blank(options) {
    return this.text('', options);
  }

  /** @param {string} file @param {{angle?: number}} [options] */
  image(file, options) {
    const { angle: turned = 0 } = byName(options);
    const absolute = path.resolve(textThatIsNotEmpty('The path of the image', file));
    if (this.#items.filter((item) => item.queue === raw.PrintBitmapFile).length === kMostImages) {
      throw new RangeError(`A receipt has at most ${kMostImages} images: more would take the place of the first ones.`);
    }
    this.#items.push({ queue: raw.PrintBitmapFile, content: absolute, values: [angle(turned)] });
    return this;
  }

  /** @param {number} [jobType] */
  async print(jobType = JobType.TicketCut) { return printing.run(this.#job(jobType)); }
  /** @param {number} [jobType] */
  printSync(jobType = JobType.TicketCut) { return printing.runSync(this.#job(jobType)); }

  printLabel() { return this.print(JobType.Label); }
  printLabelSync() { return this.printSync(JobType.Label); }

  /**
   * Converts and checks everything before the first line is queued: what is queued can only be printed.
   * @param {number} jobType
   */
  #job(jobType) {
    wholeNumber('The job type', jobType, -0x80000000, 0x7fffffff);
    if (leaveTheQueue.has(jobType)) {
      throw new RangeError(`Job type ${jobType} prints nothing, and would leave the receipt for the next job.`);
    }
    const queued = this.#items.map(({ queue, content, values }) => {
      const isImage = queue === raw.PrintBitmapFile;
      if (isImage) fs.accessSync(content, fs.constants.R_OK);
      // The library queues nothing for an empty text; a blank becomes an empty line.
      const bytes = encoded(content === '' ? ' ' : content, this.#replace && !isImage, isImage ? 'path' : 'line');
      return /** @type {const} */ ([queue, bytes, ...values]);
    });
    return job(queued, jobType);
  }
}

/**
 * Queues and prints. Queuing text is quick and needs no thread of its own; for an image a file is copied.
 * @param {(readonly [import('./exports').Export<any[]>, Buffer, ...number[]])[]} queued
 * @param {number} jobType
 * @returns {import('./connection').Work<void>}
 */
function* job(queued, jobType) {
  if (queueIsSpoilt) throw spoilt();
  for (const [i, [queue, ...values]] of queued.entries()) {
    const result = queue === raw.PrintBitmapFile ? yield [queue, ...values] : queue(...values);
    if (result === constants.TOLVEX_OK) {
      queueIsSpoilt = true; // until it is printed, whatever comes between
      continue;
    }
    // All that the library refuses is refused before; what is left is a lack of memory.
    throw new Error(`${queue.name}: the library did not take line ${i + 1} of the receipt (${result}); it has no memory. ` +
      (queueIsSpoilt ? spoilt().message : 'Nothing was printed.'));
  }
  const result = yield [raw.BeginPrint, jobType];
  queueIsSpoilt = false; // nothing is left after a job, printed or not
  if (result !== constants.TOLVEX_OK) throw TolvexError.behindVerdict('BeginPrint', raw.getLastErrCode());
}

function spoilt() {
  return new Error('Lines of a receipt that could not be printed are left in the library, and the next job would print ' +
    'them. Restart the application before it prints receipts again.');
}

module.exports = { Receipt, JobType };
