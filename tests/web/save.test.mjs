// Papers saved as PNG and SVG.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { suite } from './browser.mjs';

const test = suite();

async function downloaded(page, selector) {
  const [download] = await Promise.all([page.page.waitForEvent('download'), page.click(selector)]);
  return { name: download.suggestedFilename(), bytes: await readFile(await download.path()) };
}

/// Decodes a PNG in the browser: its size, and for each band of rows the dark pixels as a text.
function decoded(page, bytes, bands) {
  return page.page.evaluate(async ({ base64, bands: wanted }) => {
    const data = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const picture = await createImageBitmap(new Blob([data], { type: 'image/png' }));
    const read = ({ top, height, left, width }) => {
      const canvas = document.createElement('canvas');
      canvas.width = width;
      canvas.height = height;
      const context = canvas.getContext('2d');
      context.drawImage(picture, -left, -top);
      const { data: pixels } = context.getImageData(0, 0, width, height);
      let dots = '';
      for (let i = 0; i < pixels.length; i += 4) dots += pixels[i] < 128 ? '1' : '0';
      return dots;
    };
    return { width: picture.width, height: picture.height, bands: wanted.map(read) };
  }, { base64: bytes.toString('base64'), bands });
}

const ink = (dots) => dots.replaceAll('0', '').length;

/// The size in dots and the origin of a paper's picture.
async function boxOf(sim, number) {
  const svg = await sim.get(`/api/jobs/${number}/paper.svg`);
  const [x, y, width, height] = /viewBox="([^"]+)"/.exec(svg)[1].split(' ').map(Number);
  return { x, y, width: Math.ceil(width), height: Math.ceil(height) };
}

test('a PNG has one pixel for each dot of the paper', async ({ page, sim, printing }) => {
  await printing.receipt(['Hello']);
  await page.shows('#job-title', /^Job 1/);
  const { name, bytes } = await downloaded(page, '#job-png');
  assert.equal(name, 'job-0001-Ticket.png');
  const { x, y, width, height } = await boxOf(sim, 1);
  const picture = await decoded(page, bytes, [{ left: -x, top: -y, width: 12 * 5, height: 30 }]);
  assert.deepEqual([picture.width, picture.height], [width, height]);
  assert.ok(ink(picture.bands[0]) > 100, 'Hello is in it');
});

test('writing of every script is in the PNG, and no box for a missing character', async ({ page, sim, printing }) => {
  // The last is a character that no font has.
  const scripts = { latin: 'éüñ', greek: 'Ελπ', cyrillic: 'Жщы', chinese: '苹果梨', japanese: 'りんご', korean: '사과배', missing: '\u{10fffd}' };
  await printing.receipt(Object.values(scripts));
  await page.shows('#job-title', /^Job 1/);
  const { bytes } = await downloaded(page, '#job-png');
  const { x, y } = await boxOf(sim, 1);
  const cell = 24;
  const bands = Object.keys(scripts).map((_, line) => ({ left: -x, top: line * 30 - y, width: 3 * cell, height: 30 }));
  const picture = await decoded(page, bytes, bands);
  const missing = picture.bands.pop();
  for (const [line, dots] of picture.bands.entries()) {
    const script = Object.keys(scripts)[line];
    assert.ok(ink(dots) > 60, `${script} has ink: ${ink(dots)}`);
    assert.notEqual(dots, missing, script);
    const width = 3 * cell;
    const characters = [0, 1, 2].map((index) => {
      const one = ['chinese', 'japanese', 'korean'].includes(script) ? cell : cell / 2;
      return Array.from({ length: 30 }, (_, row) => dots.slice(row * width + index * one, row * width + (index + 1) * one)).join('');
    });
    // Characters that all look the same would be boxes.
    assert.equal(new Set(characters).size, 3, `${script}: its characters differ`);
  }
});

test('an SVG is what the simulator draws, and has every script as text', async ({ page, sim, printing }) => {
  await printing.receipt(['é Ελλ Жщы 苹果 りんご 사과']);
  await page.shows('#job-title', /^Job 1/);
  const { name, bytes } = await downloaded(page, '#job-svg');
  assert.equal(name, 'job-0001-Ticket.svg');
  assert.equal(bytes.toString('utf8'), await sim.get('/api/jobs/1/paper.svg'));
  for (const part of ['é', 'Ελλ', 'Жщы', '苹', 'り', '사']) assert.ok(bytes.toString('utf8').includes(part), part);
});

test('paper of several metres is saved whole', async ({ page, sim, printing }) => {
  await printing.print(['top']);
  for (let metre = 0; metre < 5; ++metre) await printing.ask({ cmd: 'printblanks', printerType: '1', distance: '1000' });
  await printing.receipt(['bottom']);
  await page.shows('#job-title', /^Job 1 .*finished, cut$/);
  const { bytes } = await downloaded(page, '#job-png');
  const { x, y, width, height } = await boxOf(sim, 1);
  assert.ok(height > 40000, `${height} dots`);
  const picture = await decoded(page, bytes, [{ left: -x, top: -y, width: 60, height: 30 }, { left: -x, top: 40030 - y, width: 80, height: 30 }]);
  assert.deepEqual([picture.width, picture.height], [width, height]);
  assert.ok(ink(picture.bands[0]) > 60, 'the top is in it');
  assert.ok(ink(picture.bands[1]) > 60, 'the bottom is in it');
});

test('a job that is gone is refused with words', async ({ page, sim, printing }) => {
  page.expectRefusals();
  await printing.receipt(['Hello']);
  await page.shows('#job-title', /^Job 1/);
  await page.page.route('**/api/jobs/1/paper.svg', (route) => route.fulfill({ status: 404, contentType: 'application/json',
    body: JSON.stringify({ error: { what: 'There is no job 1.', remedy: 'GET /api/jobs lists them.' } }) }));
  await page.click('#job-png');
  await page.shows('#job-bar .problem p', 'There is no job 1. GET /api/jobs lists them.');
});
