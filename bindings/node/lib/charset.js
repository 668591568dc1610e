// The character set in which the library takes texts that are to be queued: on Windows the ANSI code page, elsewhere
// that of the user's locale, told exactly as the library tells it.
'use strict';

const { koffi, isWindows } = require('./library');
const { CharacterError } = require('./errors');

/**
 * @typedef {object} Charset
 * @property {string} name
 * @property {(text: string) => Buffer | null} encode bytes without a NUL, or null if a character is not in the set
 * @property {(bytes: Buffer) => string} decode
 */

/** @type {Charset} */
const utf8 = {
  name: 'UTF-8',
  encode: (text) => Buffer.from(text, 'utf8'),
  decode: (bytes) => bytes.toString('utf8'),
};

// ---- Windows ----

const kCodePageUtf8 = 65001;
const kNoBestFit = 0x400;
// These take no flags, and have all of Unicode or shift states of their own.
const withoutFlags = new Set([54936, 42, 50220, 50221, 50222, 50225, 50227, 50229]);

function windowsCharset() {
  const kernel = koffi().load('kernel32.dll');
  const codePage = kernel.func('__stdcall', 'GetACP', 'uint32', [])();
  if (codePage === kCodePageUtf8) return utf8;
  const narrow = kernel.func('__stdcall', 'WideCharToMultiByte', 'int',
    ['uint32', 'uint32', 'void *', 'int', 'void *', 'int', 'void *', 'void *']);
  const widen = kernel.func('__stdcall', 'MultiByteToWideChar', 'int',
    ['uint32', 'uint32', 'void *', 'int', 'void *', 'int']);
  const isPlain = withoutFlags.has(codePage);
  return {
    name: `the code page ${codePage}`,
    encode(/** @type {string} */ text) {
      if (text === '') return Buffer.alloc(0);
      const wide = Buffer.from(text, 'utf16le');
      const bytes = Buffer.alloc(text.length * 8 + 16);
      const usedDefault = Buffer.alloc(4);
      const length = narrow(codePage, isPlain ? 0 : kNoBestFit, wide, text.length, bytes, bytes.length, null,
        isPlain ? null : usedDefault);
      return length > 0 && usedDefault.readInt32LE() === 0 ? bytes.subarray(0, length) : null;
    },
    decode(/** @type {Buffer} */ bytes) {
      if (bytes.length === 0) return '';
      const wide = Buffer.alloc(bytes.length * 4 + 16);
      const length = widen(codePage, 0, bytes, bytes.length, wide, wide.length / 2);
      return wide.toString('utf16le', 0, length * 2);
    },
  };
}

// ---- Linux ----

/** @type {ReturnType<typeof loadedLibc> | undefined} */
let libcFunctions;

function loadedLibc() {
  const libc = koffi().load(null);
  return {
    getenv: libc.func('getenv', 'str', ['str']),
    newlocale: libc.func('newlocale', 'void *', ['int', 'str', 'void *']),
    freelocale: libc.func('freelocale', 'void', ['void *']),
    langinfo: libc.func('nl_langinfo_l', 'str', ['int', 'void *']),
    open: libc.func('iconv_open', 'intptr_t', ['str', 'str']),
    convert: libc.func('iconv', 'size_t', ['intptr_t', 'void *', 'void *', 'void *', 'void *']),
    close: libc.func('iconv_close', 'int', ['intptr_t']),
  };
}

const libc = () => (libcFunctions ??= loadedLibc());

/** @param {number | bigint} value */
function word(value) {
  const bytes = Buffer.alloc(8);
  bytes.writeBigUInt64LE(BigInt(value));
  return bytes;
}

/**
 * @param {string} to
 * @param {string} from
 * @param {Buffer} input
 * @returns {Buffer | null} null where something can not be converted
 */
function converted(to, from, input) {
  const conversion = libc().open(to, from);
  if (Number(conversion) === -1) return null;
  try {
    const output = Buffer.alloc(input.length * 8 + 64);
    const at = [input.length > 0 ? word(koffi().address(input)) : null, word(input.length),
      word(koffi().address(output)), word(output.length)];
    if (at[0] !== null && Number(libc().convert(conversion, ...at)) !== 0) return null;
    // Ends the text: some sets hold a letter back until it is known whether an accent follows.
    if (Number(libc().convert(conversion, null, null, at[2], at[3])) !== 0) return null;
    return output.subarray(0, output.length - Number(/** @type {Buffer} */ (at[3]).readBigUInt64LE()));
  } finally {
    libc().close(conversion);
  }
}

/** @param {string} charset */
function isUsable(charset) {
  if (charset === '' || charset.includes('/')) return false;
  return converted('UTF-8', charset, Buffer.from('AZaz09'))?.toString() === 'AZaz09';
}

function installedCharset() {
  const kCtypeMask = 1;
  const kCodeset = 14;
  const locale = libc().newlocale(kCtypeMask, '', null);
  if (!locale) return '';
  const charset = libc().langinfo(kCodeset, locale);
  libc().freelocale(locale);
  return charset;
}

/** @returns {Charset} */
function localeCharset() {
  // The process's own environment: process.env of a worker is a copy.
  const locale = ['LC_ALL', 'LC_CTYPE', 'LANG'].map((name) => libc().getenv(name)).find(Boolean) ?? '';
  if (locale === '' || locale === 'C' || locale === 'POSIX') return utf8;
  const named = /^[^.@]*\.([^@]*)/.exec(locale);
  const charset = installedCharset() || (named ? named[1] : '');
  if (!isUsable(charset) || /^utf8$/i.test(charset.replace(/[-_]/g, ''))) return utf8;
  return {
    name: charset,
    encode: (text) => converted(charset, 'UTF-8', Buffer.from(text, 'utf8')),
    decode: (bytes) => converted('UTF-8', charset, bytes)?.toString('utf8') ?? '',
  };
}

// ---- Texts ----

/** @type {Charset | undefined} */
let current;

/** The set of this process: told once, as the library does. */
function charset() {
  current ??= isWindows ? windowsCharset() : localeCharset();
  return current;
}

const loneSurrogate = /[\ud800-\udbff](?![\udc00-\udfff])|(?<![\ud800-\udbff])[\udc00-\udfff]/;

/**
 * Whether the library reads the text back as it is: some conversions drop or change a character without a word.
 * @param {Charset} set
 * @param {string} text
 */
function encodedExactly(set, text) {
  const bytes = set.encode(text);
  return bytes !== null && set.decode(bytes) === text ? bytes : null;
}

/**
 * A text in the set, with a NUL at its end.
 * @param {string} text
 * @param {boolean} replace whether "?" takes the place of what the set does not have
 * @param {'line' | 'path'} [use] what the text is for
 * @returns {Buffer}
 */
function encoded(text, replace, use = 'line') {
  const set = charset();
  let whole = loneSurrogate.test(text) ? null : encodedExactly(set, text);
  if (whole === null) {
    let kept = '';
    for (const character of text) {
      const isThere = !loneSurrogate.test(character) && encodedExactly(set, character) !== null;
      if (!isThere && !replace) throw new CharacterError(character, kept.length, set.name, use);
      kept += isThere ? character : '?';
    }
    // Each character is there, and yet not all of them together: an accent that melts into its letter.
    whole = set.encode(kept);
    if (whole === null) throw new RangeError(`The text can not be put into ${set.name}: ${JSON.stringify(text)}.`);
  }
  return Buffer.concat([whole, Buffer.of(0)]);
}

/**
 * A text for the exports that take UTF-8.
 * @param {string} text
 */
function encodedUtf8(text) {
  const lone = loneSurrogate.exec(text);
  if (lone) throw new CharacterError(lone[0], lone.index, 'Unicode', 'utf8');
  return Buffer.from(`${text}\0`, 'utf8');
}

/**
 * The text that came: up to the first NUL, and a byte that is no UTF-8 shows as U+FFFD.
 * @param {Buffer} bytes
 */
function decoded(bytes) {
  const end = bytes.indexOf(0);
  return bytes.toString('utf8', 0, end < 0 ? bytes.length : end);
}

module.exports = { charset, encoded, encodedUtf8, decoded };
