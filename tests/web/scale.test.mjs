// The scale on the page.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite({ simulator: ['--settling', '0'] });

const readout = '#digits svg';
const reads = (page, text) => until(() => page.$(readout).getAttribute('aria-label'), (label) => label === text, `the read-out was to tell ${text}`);
const loadOf = async (sim) => (await sim.get('/api/scale')).load_kg;
const hasLoad = (sim, kg) => until(() => loadOf(sim), (load) => load === kg, `the load was to be ${kg}`);

// The segments that are lit, digit by digit.
const segments = (page) => page.$(readout).evaluate((svg) => [...svg.querySelectorAll('g g')]
  .map((cell) => [...cell.querySelectorAll('.lit')].length));

test('goods from the presets are weighed', async ({ page, sim, weighing }) => {
  for (const [name, kg] of [['Apple 0.182', 0.182], ['Cheese 0.356', 0.356], ['Bread 0.750', 0.75], ['Melon 1.940', 1.94], ['Sack 5.250', 5.25]]) {
    await page.role('button', name).click();
    await reads(page, `${kg.toFixed(3)} kg`);
    assert.equal(await loadOf(sim), kg);
    assert.equal(Number((await weighing.ask({ cmd: 'getweight' })).net), kg);
  }
  await page.role('button', 'Lift off 0.000').click();
  await reads(page, '0.000 kg');
});

test('the digits are drawn with as many segments as their figures have', async ({ page }) => {
  await page.role('button', 'Apple 0.182').click();
  await reads(page, '0.182 kg');
  assert.deepEqual(await segments(page), [0, 0, 6 + 1, 2, 7, 5]);
});

test('over load and under load are shown as bars and in words', async ({ page }) => {
  await page.role('button', 'Too heavy 16.000').click();
  await page.shows('#scale-word', 'over load: too heavy');
  assert.deepEqual(await segments(page), [1, 1, 1, 1, 1, 1]);
  await page.role('button', 'Too light −0.100').click();
  await page.shows('#scale-word', 'under load: below zero');
  assert.deepEqual(await segments(page), [1, 1, 1, 1, 1, 1]);
});

test('a typed load is weighed', async ({ page }) => {
  await page.type('#load', '1.234');
  await reads(page, '1.234 kg');
});

test('a load that is refused is shown with its remedy and stays in the field', async ({ page, sim }) => {
  page.expectRefusals();
  await page.type('#load', '2000');
  await page.shows('#scale .problem', /load_kg.*2000.*1000/);
  assert.equal(await page.$('#load').inputValue(), '2000');
  assert.equal(await loadOf(sim), 0);
  await page.type('#load', '1');
  await until(() => page.$('#scale .problem').count(), (count) => count === 0, 'the refusal was to go');
});

test('a refusal is dismissed', async ({ page }) => {
  page.expectRefusals();
  await page.type('#load', '2000');
  await page.role('button', 'Dismiss', '#scale .problem').click();
  assert.equal(await page.$('#scale .problem').count(), 0);
});

test('the slider moves by grams, tens and hundreds of grams on the keyboard', async ({ page, sim }) => {
  await page.$('#load-slider').focus();
  for (const [key, kg] of [['ArrowRight', 0.001], ['ArrowUp', 0.002], ['Shift+ArrowUp', 0.012], ['PageUp', 0.112], ['ArrowLeft', 0.111],
    ['Shift+ArrowDown', 0.101], ['PageDown', 0.001], ['ArrowDown', 0], ['End', 16], ['Home', -0.1]]) {
    await page.page.keyboard.press(key);
    await hasLoad(sim, kg);
  }
});

test('the slider follows the pointer, and the last place counts', async ({ page, sim }) => {
  const box = await page.$('#load-slider').boundingBox();
  await page.page.mouse.move(box.x + 8, box.y + box.height / 2);
  await page.page.mouse.down();
  for (let step = 1; step <= 20; ++step) await page.page.mouse.move(box.x + (box.width * step) / 40, box.y + box.height / 2);
  await page.page.mouse.up();
  const load = Number(await page.$('#load-slider').inputValue());
  assert.ok(load > 6 && load < 10, `in the middle was ${load}`);
  await hasLoad(sim, load);
});

test('a load from elsewhere moves slider and field', async ({ page, sim }) => {
  await sim.patch('/api/scale', { load_kg: 2.5 });
  await page.value('#load', '2.5');
  await page.value('#load-slider', '2.5');
});

test('what is being typed is not overwritten', async ({ page, sim }) => {
  await page.$('#load').fill('1.5');
  await sim.patch('/api/scale', { load_kg: 2.5 });
  await reads(page, '2.500 kg');
  assert.equal(await page.$('#load').inputValue(), '1.5');
});

test('the zero key takes a small load away', async ({ page }) => {
  await page.type('#load', '0.1');
  await reads(page, '0.100 kg');
  await page.click('#key-zero');
  await reads(page, '0.000 kg');
  await page.shows('#lamp-zero', 'Zero: on');
});

test('a refused key says why next to it', async ({ page }) => {
  page.expectRefusals();
  await page.type('#load', '2');
  await reads(page, '2.000 kg');
  await page.click('#key-zero');
  await page.shows('.group:has(#key-zero) .problem', /.+/);
});

test('tare and clear tare are shown with the lamp and the line', async ({ page }) => {
  await page.role('button', 'Apple 0.182').click();
  await reads(page, '0.182 kg');
  await page.click('#key-tare');
  await reads(page, '0.000 kg');
  await page.shows('#tare-line', 'Tare 0.182 kg, by key · gross 0.182 kg');
  await page.shows('#lamp-net', 'Net: on');
  await page.click('#key-clear-tare');
  await page.shows('#tare-line', 'No tare');
  await page.shows('#lamp-net', 'Net: off');
});

test('a preset tare is taken, and a wrong one refused', async ({ page }) => {
  await page.type('#preset-tare-kg', '0.12');
  await page.shows('#tare-line', /^Tare 0.120 kg, preset/);
  page.expectRefusals();
  await page.$('#preset-tare-kg').fill('99');
  await page.role('button', 'Set', '#preset-tare').click();
  await page.shows('.group:has(#preset-tare) .problem', /.+/);
  await page.$('#preset-tare-kg').fill('');
  await page.role('button', 'Set', '#preset-tare').click();
  await page.shows('.group:has(#preset-tare) .problem', /The preset tare is missing. Type kilograms/);
});

test('a weight moves and settles before the eyes', async ({ page, sim }) => {
  await page.type('#settling', '1');
  await until(() => sim.get('/api/scale'), ({ settling_s: seconds }) => seconds === 1, 'the settling time was to be 1');
  await page.page.evaluate(() => {
    window.seen = new Set();
    const svg = document.querySelector('#digits svg');
    new MutationObserver(() => window.seen.add(svg.getAttribute('aria-label'))).observe(svg, { attributes: true });
  });
  await page.role('button', 'Bread 0.750').click();
  await page.shows('#scale-word', 'moving');
  await page.shows('#scale-word', 'stable');
  await reads(page, '0.750 kg');
  const seen = await page.page.evaluate(() => window.seen.size);
  assert.ok(seen >= 4, `only ${seen} different weights were seen`);
});

test('noise is set', async ({ page, sim }) => {
  await page.type('#noise', '0.002');
  await until(() => sim.get('/api/scale'), ({ noise_kg: noise }) => noise === 0.002, 'the noise was to be 0.002');
});

test('the faults of the scale are switches', async ({ page, sim }) => {
  const scale = () => sim.get('/api/scale');
  const one = (name) => page.role('switch', name, '#scale-faults');
  await one('Invalid').click();
  await page.shows('#scale-word', 'no valid weight');
  assert.equal(await one('Invalid').getAttribute('aria-checked'), 'true');
  await one('Invalid').click();
  await page.shows('#scale-word', 'stable');
  await one('Disconnected').click();
  await page.shows('#scale-word', 'not connected');
  assert.deepEqual(await segments(page), [0, 0, 0, 0, 0, 0]);
  await one('Disconnected').click();
  await page.shows('#scale-word', 'stable');
  await one('Unstable').click();
  await page.shows('#scale-word', 'moving');
  assert.equal((await scale()).unstable, true);
  await one('Unstable').click();
  await page.shows('#scale-word', 'stable');
});

test('the plate tells the ranges', async ({ page }) => {
  await page.shows('#plate', 'Max 3/6/15 kg   Min 0.02 kg   e = 1/2/5 g');
});
