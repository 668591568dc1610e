// What kind of library a file is, told from its first bytes: the system's own words for a wrong one ("%1 is not a
// valid Win32 application") help nobody.
'use strict';

const fs = require('node:fs');

const kHead = 4096;
const elfMachines = new Map([[0x3e, '64-bit'], [0x03, '32-bit'], [0xb7, 'ARM 64-bit'], [0x28, 'ARM 32-bit']]);
const peMachines = new Map([[0x8664, '64-bit'], [0x14c, '32-bit'], [0xaa64, 'ARM 64-bit'], [0x1c0, 'ARM 32-bit'],
  [0x1c4, 'ARM 32-bit']]);

/** @param {string} file */
function head(file) {
  const bytes = Buffer.alloc(kHead);
  const opened = fs.openSync(file, 'r');
  try {
    const { size } = fs.fstatSync(opened);
    return { bytes: bytes.subarray(0, fs.readSync(opened, bytes, 0, kHead, 0)), size };
  } finally {
    fs.closeSync(opened);
  }
}

/** @param {Buffer} bytes */
function elf(bytes) {
  if (bytes.length < 20) return null;
  const machine = bytes.readUInt16LE(18);
  const kind = elfMachines.get(machine) ?? `another processor (${machine})`;
  // The class counts, too: x32 has the machine of x64.
  const isWide = bytes[4] === 2;
  return `${kind === '64-bit' && !isWide ? '32-bit' : kind} Linux`;
}

/** @param {Buffer} bytes */
function pe(bytes) {
  if (bytes.length < 64) return null;
  const at = bytes.readUInt32LE(60);
  if (at + 24 > bytes.length || bytes.toString('latin1', at, at + 4) !== 'PE\0\0') return null;
  const machine = bytes.readUInt16LE(at + 4);
  return `${peMachines.get(machine) ?? `another processor (${machine})`} Windows`;
}

// Where a file of the needed kind ends by its own account. A process that loads a shorter one may be killed for it.
/** @param {Buffer} bytes */
function lengthOf(bytes) {
  if (process.platform !== 'win32') {
    if (bytes.length < 64) return Infinity;
    return Number(bytes.readBigUInt64LE(40)) + bytes.readUInt16LE(58) * bytes.readUInt16LE(60); // section headers are last
  }
  const at = bytes.readUInt32LE(60);
  const sections = at + 24 + bytes.readUInt16LE(at + 20);
  let length = 0;
  for (let i = 0; i < bytes.readUInt16LE(at + 6); i += 1) {
    const section = sections + 40 * i;
    if (section + 40 > bytes.length) return Infinity;
    length = Math.max(length, bytes.readUInt32LE(section + 16) + bytes.readUInt32LE(section + 20));
  }
  return length;
}

/** The systems' names, as the problems say them. */
function needed() {
  const systems = /** @type {Record<string, string>} */ ({ win32: '64-bit Windows', linux: '64-bit Linux' });
  return systems[process.platform] ?? '64-bit Windows or Linux';
}

/** What this process is, in the same words. */
function running() {
  const systems = /** @type {Record<string, string>} */ ({ win32: 'Windows', linux: 'Linux', darwin: 'macOS' });
  const kinds = /** @type {Record<string, string>} */ ({
    x64: '64-bit', ia32: '32-bit', arm64: 'ARM 64-bit', arm: 'ARM 32-bit',
  });
  return `${kinds[process.arch] ?? process.arch} ${systems[process.platform] ?? process.platform}`;
}

/**
 * What is wrong with a file as this system's library, as far as its first bytes tell; null if nothing is.
 * @param {string} file
 */
function problemOf(file) {
  let bytes;
  let size;
  try {
    ({ bytes, size } = head(file));
  } catch (error) {
    const code = /** @type {NodeJS.ErrnoException} */ (error).code;
    if (code === 'ENOENT' || code === 'ENOTDIR') return 'is missing';
    if (code === 'EISDIR') return 'is a folder';
    return `can not be read (${code})`;
  }
  let kind = null;
  if (bytes.length === 0) return 'is empty';
  if (bytes.toString('latin1', 0, 4) === '\x7fELF') kind = elf(bytes);
  else if (bytes.toString('latin1', 0, 2) === 'MZ') kind = pe(bytes);
  else return `is no library; needed is one for ${needed()}`;
  if (kind === null) return 'is damaged: it ends within its head';
  if (kind !== needed()) return `is for ${kind}, needed is ${needed()}`;
  return size < lengthOf(bytes) ? 'is damaged: it ends before its end' : null;
}

module.exports = { problemOf, needed, running };
