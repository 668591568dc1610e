// Themes, narrow screens, and everything within reach.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite({ opens: false });

const background = (page) => page.page.evaluate(() => getComputedStyle(document.body).backgroundColor);
const isDark = (color) => color.match(/\d+/g).slice(0, 3).every((part) => Number(part) < 60);
const kPhone = { width: 390, height: 844 };
const kViews = ['Scale', 'Paper', 'Printer', 'Traffic', 'Faults'];

for (const colorScheme of ['light', 'dark']) {
  test(`a ${colorScheme} system has a ${colorScheme} page, until it is chosen otherwise`, async ({ open }) => {
    const page = await open({ colorScheme });
    assert.equal(isDark(await background(page)), colorScheme === 'dark');
    await page.$('#theme').selectOption('dark');
    assert.ok(isDark(await background(page)));
    await page.$('#theme').selectOption('light');
    assert.ok(!isDark(await background(page)));
    await page.page.reload();
    await page.value('#theme', 'light');
    assert.ok(!isDark(await background(page)), 'the choice is kept');
    await page.$('#theme').selectOption('system');
    assert.equal(isDark(await background(page)), colorScheme === 'dark');
  });

  test(`text stands out in the ${colorScheme} page`, async ({ open, printing, weighing, sim }) => {
    const page = await open({ colorScheme });
    await printing.receipt(['one']);
    await weighing.ask({ cmd: 'nonsense' });
    await sim.post('/api/faults', { kind: 'delay', port: 'both', command: 'setzero', delay_ms: 5, times: null });
    await page.shows('#wire-count', '1 in force');
    await page.waitForRows(4);
    assert.deepEqual(await page.page.evaluate(tooFaint), []);
  });
}

// Texts whose contrast to what they stand on is below 4.5, as "text: contrast". Runs in the page.
function tooFaint() {
  const parts = (color) => color.match(/[\d.]+/g).map(Number);
  const light = (channel) => (channel / 255 <= 0.04045 ? channel / 255 / 12.92 : ((channel / 255 + 0.055) / 1.055) ** 2.4);
  const luminance = ([red, green, blue]) => 0.2126 * light(red) + 0.7152 * light(green) + 0.0722 * light(blue);
  const ground = (node) => {
    for (let at = node; at; at = at.parentElement) {
      const color = parts(getComputedStyle(at).backgroundColor);
      if (color.length === 3 || color[3] > 0.99) return color;
    }
    return [255, 255, 255];
  };
  const faint = [];
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  for (let node; (node = walker.nextNode()) !== null;) {
    const parent = node.parentElement;
    if (node.data.trim() === '' || !parent.checkVisibility() || parent.closest('.unseen, :disabled, [aria-disabled="true"]')) continue;
    const [a, b] = [luminance(parts(getComputedStyle(parent).color)), luminance(ground(parent))].sort((x, y) => y - x);
    const contrast = (a + 0.05) / (b + 0.05);
    if (contrast < 4.5) faint.push(`${node.data.trim()}: ${contrast.toFixed(2)}`);
  }
  return faint;
}

/// Whether nothing needs scrolling sideways, but for the paper when it is enlarged.
const fitsAcross = (page) => page.page.evaluate(() => document.documentElement.scrollWidth <= innerWidth &&
  [...document.querySelectorAll('.panel')].filter((panel) => panel.checkVisibility())
    .every((panel) => panel.scrollWidth <= panel.clientWidth + 1 && panel.getBoundingClientRect().right <= innerWidth));

test('on a phone nothing needs scrolling sideways, and every control is reached', async ({ open, printing, weighing, sim }) => {
  await printing.receipt(['one']);
  await weighing.ask({ cmd: 'nonsense' });
  await sim.post('/api/faults', { kind: 'result', port: 'both', command: 'setTextWrapMode', code: 2006, times: null });
  const page = await open({ viewport: kPhone, hasTouch: true, isMobile: true });
  await page.shows('#wire-count', '1 in force');
  const reached = new Set();
  for (const view of kViews) {
    await page.role('button', view, '.views').click();
    if (view === 'Faults') await page.click('#fault-new summary');
    if (view === 'Printer') await page.$('#printer-choice').selectOption('Label');
    if (view === 'Printer') await page.click('#printer summary');
    if (view === 'Traffic') await page.$('#traffic-rows .list-body .list-row').first().click();
    if (view === 'Traffic') await page.role('button', 'Traffic', '.views').click();
    assert.ok(await fitsAcross(page), view);
    for (const id of await page.page.evaluate(reachable)) reached.add(id);
  }
  const all = await page.page.evaluate(() => [...document.querySelectorAll('main button, main input, main select, main a')]
    .filter((node) => !node.closest('[hidden]')).map((node) => node.id || node.textContent));
  assert.deepEqual(all.filter((id) => !reached.has(id)), []);
});

// The controls that can be scrolled into view and are then really there. Runs in the page.
function reachable() {
  return [...document.querySelectorAll('main button, main input, main select, main a')].filter((node) => {
    if (!node.checkVisibility()) return false;
    node.scrollIntoView({ block: 'center' });
    const { left, right, top, bottom } = node.getBoundingClientRect();
    const hit = document.elementFromPoint((left + right) / 2, (top + bottom) / 2);
    return hit !== null && (node === hit || node.contains(hit) || hit.contains(node));
  }).map((node) => node.id || node.textContent);
}

test('a page of 1280 shows scale, paper, traffic and faults side by side', async ({ open }) => {
  const page = await open();
  for (const id of ['scale', 'paper', 'traffic', 'wire']) assert.ok(await page.$(`#${id}`).isVisible(), id);
  assert.ok(await fitsAcross(page));
});

for (const viewport of [{ width: 1280, height: 800 }, kPhone]) {
  test(`the names of all commands are read in full on a page of ${viewport.width}`, async ({ open, printing }) => {
    const commands = ['calibrateOutOfPaper', 'print_text_width', 'settakepapersensor', 'setTextWrapMode'];
    for (const cmd of commands) await printing.ask({ cmd });
    const page = await open({ viewport });
    if (viewport === kPhone) await page.role('button', 'Traffic', '.views').click();
    await page.waitForRows(commands.length);
    const cut = await page.page.evaluate(() => [...document.querySelectorAll('#traffic-rows .cell-command')]
      .filter((cell) => cell.scrollWidth > cell.clientWidth).map((cell) => cell.textContent));
    assert.deepEqual(cut, []);
    assert.ok(await page.page.evaluate(() => {
      const list = document.querySelector('#traffic-rows');
      return list.scrollWidth <= list.clientWidth;
    }), 'no scrolling sideways');
    assert.ok(await fitsAcross(page));
  });
}

test('on a phone a request leads to its paper, and the paper to its requests', async ({ open, printing }) => {
  await printing.receipt(['one']);
  const page = await open({ viewport: kPhone });
  await page.role('button', 'Traffic', '.views').click();
  await page.$('#traffic-rows .list-body .list-row').first().click();
  await page.role('button', 'Show paper of job 1', '#exchange').click();
  assert.ok(await page.$('#paper').isVisible());
  await page.$('.job.found[data-job="1"]').waitFor();
  await page.click('#job-requests');
  assert.ok(await page.$('#traffic').isVisible());
  await until(() => page.rows(), (rows) => rows.length === 3, 'the requests of the job were to be listed');
});
