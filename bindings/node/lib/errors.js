'use strict';

const { codes, answers } = require('./tables');

const rows = new Map(codes.map((row) => [row.code, row]));

const noCode = {
  name: 'NoCode',
  text: 'no code',
  meaning: 'The library keeps one last code for the whole process, and it tells of no failure: another call ended at the ' +
    'same time, or an argument was refused.',
  remedy: "Read the library's log; it has the reason.",
};

/**
 * What is known of a code that a function returned, or that stands behind its verdict.
 * @param {number} code
 */
function explain(code) {
  if (code === answers.TOLVEX_UNREADABLE_REPLY.code) return answers.TOLVEX_UNREADABLE_REPLY;
  return rows.get(code) ?? {
    code,
    name: `Unknown code ${code}`,
    text: `Unknown code ${code}`,
    meaning: 'The service answered with a code of its own.',
    remedy: "Look it up in the service's documents, and read the service's log and the library's.",
  };
}

/** A command that did not succeed: what went wrong, and what to do about it. */
class TolvexError extends Error {
  /**
   * @param {string} operation name of the export
   * @param {number} code
   * @param {{name: string, text: string, meaning: string, remedy: string}} [row]
   */
  constructor(operation, code, row = explain(code)) {
    const title = row.name.startsWith('Unknown code') ? row.name : `${code} ${row.name} (${row.text})`;
    super(`${operation}: ${title}. ${row.meaning} What to do: ${row.remedy}`);
    this.operation = operation;
    this.code = code;
    this.codeName = row.name;
    this.text = row.text;
    this.meaning = row.meaning;
    this.remedy = row.remedy;
    /** @type {string | undefined} the reply to a raw command, if one came */
    this.reply = undefined;
  }

  /**
   * Of a verdict 255: code is what getLastErrCode said right after it.
   * @param {string} operation
   * @param {number} code
   */
  static behindVerdict(operation, code) {
    return code === 0 ? new TolvexError(operation, 0, noCode) : new TolvexError(operation, code);
  }
}
TolvexError.prototype.name = 'TolvexError';

/** A reply that came, but holds something else than it has to. */
class UnreadableError extends TolvexError {
  /**
   * @param {string} operation
   * @param {string} what
   * @param {string} text as it came
   * @param {string} needed what it has to be
   */
  constructor(operation, what, text, needed = 'number') {
    super(operation, answers.TOLVEX_UNREADABLE_REPLY.code, {
      ...answers.TOLVEX_UNREADABLE_REPLY,
      meaning: `The ${what} that the service told is no ${needed}: ${JSON.stringify(text)}.`,
    });
    this.unreadable = text;
  }
}
UnreadableError.prototype.name = 'UnreadableError';

/** The library could not be loaded. The message tells each file that was tried, and what was wrong with it. */
class LibraryNotLoadedError extends Error {
  /**
   * @param {string} message
   * @param {{file: string, problem: string}[]} tried
   * @param {unknown} [cause]
   */
  constructor(message, tried, cause) {
    super(message);
    this.tried = tried;
    if (cause !== undefined) this.cause = cause;
  }
}
LibraryNotLoadedError.prototype.name = 'LibraryNotLoadedError';

/** No reading was as it was waited for within the time. */
class WaitTimeoutError extends Error {
  /**
   * @param {number} timeout in milliseconds
   * @param {import('..').Reading | null} lastReading
   */
  constructor(timeout, lastReading) {
    super(`The scale had no such reading within ${timeout} ms. ${described(lastReading)}`);
    this.timeout = timeout;
    this.lastReading = lastReading;
  }
}
WaitTimeoutError.prototype.name = 'WaitTimeoutError';

/** @param {import('..').Reading | null} reading */
function described(reading) {
  if (reading === null) return 'No reading came at all.';
  if (reading.state !== 'weight') return `Its last state was ${reading.state}.`;
  return `The last one was ${reading.netText}, ${reading.stable ? 'stable' : 'not stable'}.`;
}

/** What to do about a character, by what the text is for: a line of a receipt, the path of its image, or UTF-8. */
const charactersRemedies = {
  line: 'Print the line past the queue with Printer.printText, run the program under UTF-8, or have such characters ' +
    'replaced by "?" with {replace: true}.',
  path: 'Give the image a path without it, print the image past the queue with Printer.printImage, or run the program ' +
    'under UTF-8.',
  utf8: '',
};

/** A text holds a character that cannot be printed in the system's character set. */
class CharacterError extends RangeError {
  /**
   * @param {string} character
   * @param {number} position counted from 0 in UTF-16 units, as JavaScript does
   * @param {string} charset
   * @param {keyof typeof charactersRemedies} use
   */
  constructor(character, position, charset, use) {
    const codePoint = /** @type {number} */ (character.codePointAt(0));
    const number = `U+${codePoint.toString(16).toUpperCase().padStart(4, '0')}`;
    const isLone = codePoint >= 0xd800 && codePoint <= 0xdfff;
    super(isLone
      ? `The text has half of a surrogate pair, ${number}, at position ${position}, which is no character. ` +
        `Cut texts between characters${use === 'line' ? ', or have it replaced by "?" with {replace: true}' : ''}.`
      : `The character "${character}" (${number}) at position ${position} is not in ${charset}, in which this system ` +
        `queues texts. ${charactersRemedies[use]}`);
    this.character = character;
    this.position = position;
    this.charset = charset;
  }
}
CharacterError.prototype.name = 'CharacterError';

module.exports = { explain, TolvexError, UnreadableError, LibraryNotLoadedError, WaitTimeoutError, CharacterError };
