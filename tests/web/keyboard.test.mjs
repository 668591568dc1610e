// The page without a mouse.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite();

const press = (page, key) => page.page.keyboard.press(key);
const focused = (page) => page.page.evaluate(() => document.activeElement.id || document.activeElement.textContent);

test('tab reaches every control once, each with a visible focus and a name', async ({ page, printing }) => {
  await printing.receipt(['one']);
  await page.shows('#job-title', /^Job 1/);
  const all = await page.page.evaluate(() => [...document.querySelectorAll('button, input, select, a[href], summary, [tabindex="0"]')]
    .filter((node) => node.checkVisibility() && !node.disabled && node.tabIndex >= 0 && !(node.type === 'radio' && !node.checked)).length);
  const seen = [];
  for (let step = 0; step < all; ++step) {
    await press(page, 'Tab');
    seen.push(await page.page.evaluate(() => {
      const node = document.activeElement;
      window.numbers ??= new Map();
      if (!window.numbers.has(node)) window.numbers.set(node, window.numbers.size);
      const name = node.getAttribute('aria-label') ?? node.labels?.[0]?.textContent ?? node.textContent;
      return { number: window.numbers.get(node), isVisible: getComputedStyle(node).outlineStyle !== 'none', name: (name ?? '').trim() };
    }));
  }
  assert.equal(new Set(seen.map(({ number }) => number)).size, all);
  assert.deepEqual(seen.filter(({ isVisible, name }) => !isVisible || name === ''), []);
});

test('the shortcuts act and are listed', async ({ page, sim, printing }) => {
  await press(page, 'l');
  await page.page.keyboard.type('0.1');
  await press(page, 'Enter');
  await until(() => sim.get('/api/scale'), ({ reading }) => reading.net_kg === '0.100' && reading.stable, '0.1 kg was to be weighed');
  await press(page, 'Escape');
  await press(page, 's');
  assert.equal(await focused(page), 'load-slider');
  await press(page, 't');
  await page.shows('#tare-line', /^Tare 0.100/);
  await press(page, 'e');
  await until(() => sim.get('/api/scale'), ({ load_kg: load, reading }) => load === 0 && reading.stable, 'the scale was to be empty');
  await press(page, 'z');
  await page.shows('#tare-line', /^Tare 0.100/);
  await printing.ask({ cmd: 'opencashbox' });
  await page.shows('#drawer-word', 'open');
  await press(page, 'd');
  await page.shows('#drawer-word', 'closed');
  for (const [key, tab] of [['1', /^Label/], ['2', /^Ticket/], ['3', /^Third/], ['4', /^All jobs/]]) {
    await press(page, key);
    await page.shows('#paper-tabs [aria-selected="true"]', tab);
  }
  await press(page, 'p');
  await page.shows('#pause', 'Resume');
  await press(page, 'r');
  assert.equal(await focused(page), 'traffic-rows');
  await press(page, '/');
  assert.equal(await focused(page), 'filter-text');
  await press(page, 'p');
  assert.equal(await page.$('#filter-text').inputValue(), 'p');
  await page.$('#pause').focus();
  await press(page, 'f');
  assert.equal(await focused(page), 'fault-kind');
  await page.$('#pause').focus();
  await press(page, '?');
  assert.deepEqual(await page.$('dialog kbd').allTextContents(), ['l', 's', 'e', 'z', 't', 'd', '1', 'r', '/', 'p', 'f', '?']);
  await page.$('#shortcuts').uncheck();
  await press(page, 'Escape');
  await until(() => page.$('dialog').count(), (count) => count === 0, 'the help was to close');
  await press(page, 'p');
  await page.shows('#pause', 'Resume');
  await page.click('#help-open');
  await page.shows('dialog h2', 'Keyboard');
});

test('arrow keys choose requests, and Enter shows the paper', async ({ page, printing }) => {
  await printing.receipt(['one']);
  await printing.receipt(['two'], '0');
  await page.waitForRows(6);
  await press(page, 'r');
  await press(page, 'End');
  await page.shows('#exchange .facts', /^#6 /);
  await press(page, 'ArrowUp');
  await page.shows('#exchange .facts', /^#5 /);
  await press(page, 'Home');
  await page.shows('#exchange .facts', /^#1 /);
  await press(page, 'ArrowDown');
  await page.shows('#exchange .facts', /^#2 /);
  await press(page, 'Enter');
  await page.$('.job.found[data-job="1"]').waitFor();
  const active = await page.$('#traffic-rows').getAttribute('aria-activedescendant');
  assert.equal(await page.$(`#${active}`).getAttribute('aria-selected'), 'true');
});

test('arrow keys choose a printer, and Enter a job', async ({ page, printing }) => {
  await printing.receipt(['one']);
  await printing.receipt(['two']);
  await page.shows('#job-title', /^Job 2/);
  await page.$('#paper-tabs [aria-selected="true"]').focus();
  await press(page, 'ArrowRight');
  await page.shows('#paper-tabs [aria-selected="true"]', /^Third/);
  await press(page, 'ArrowLeft');
  await page.shows('#paper-tabs [aria-selected="true"]', /^Ticket/);
  await page.$('.job[data-job="1"] .job-name').focus();
  await press(page, 'Enter');
  await page.shows('#job-title', /^Job 1/);
});

test('a switch is used with the space bar, and says how it stands', async ({ page }) => {
  const one = page.role('switch', 'Busy', '#printer-faults');
  await one.focus();
  await press(page, 'Space');
  await page.shows('#printer-word', /^2005 /);
  assert.equal(await one.getAttribute('aria-checked'), 'true');
});

test('the weight is told once it is stable, not while it moves', async ({ page, sim }) => {
  await page.page.evaluate(() => {
    window.said = [];
    const place = document.getElementById('scale-says');
    new MutationObserver(() => window.said.push(place.textContent)).observe(place, { childList: true });
  });
  await sim.patch('/api/scale', { settling_s: 0.3, load_kg: 0.75 });
  await page.shows('#scale-says', '0.750 kg');
  assert.deepEqual(await page.page.evaluate(() => window.said), ['0.750 kg']);
});
