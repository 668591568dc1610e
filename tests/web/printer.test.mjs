// The state of the printers on the page, their paper, their labels and their settings.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite();

const printer = (sim, name = 'Ticket') => sim.get(`/api/printers/${name}`);
const chooses = (page, name) => page.$('#printer-choice').selectOption(name);

const kFaults = [['Out of paper', 'out-of-paper', 2006], ['Busy', 'busy', 2005], ['Head too hot', 'hot', 2007],
  ['Illegal head', 'illegal-head', 2009], ['Abnormal', 'abnormal', 2010], ['Not found (unplugged)', 'unplugged', 2008]];

for (const [words, name, code] of kFaults) {
  test(`${words} is a switch, and stands in words and at the tab`, async ({ page, sim, printing }) => {
    const one = page.role('switch', words, '#printer-faults');
    await one.click();
    await page.shows('#printer-word', new RegExp(`^${code} .+`));
    await page.shows('#tab-Ticket', `Ticket · fault ${code}`);
    assert.equal(await one.getAttribute('aria-checked'), 'true');
    assert.equal((await printing.ask({ cmd: 'printerStatus', printerType: '1' })).result, String(code));
    assert.equal((await printer(sim)).faults[name], true);
    await one.click();
    await page.shows('#printer-word', 'ready');
  });
}

test('the printer that is looked at is the one whose paper is shown', async ({ page }) => {
  await chooses(page, 'Label');
  await page.shows('#paper-tabs [aria-selected="true"]', /^Label/);
  await page.role('tab', 'Third').click();
  await page.value('#printer-choice', 'Third');
});

test('the paper left is set in millimetres, by presets and endless', async ({ page, sim }) => {
  await page.shows('#paper-left', 'endless');
  await page.type('#paper-mm', '120');
  await page.shows('#paper-left', '120 mm left');
  await page.role('button', '30 mm left').click();
  await page.shows('#paper-left', '30 mm left');
  assert.equal((await printer(sim)).paper.left_mm, 30);
  await page.role('button', 'Full roll, 50 m').click();
  await page.shows('#paper-left', '50 m left');
  await page.role('button', 'Endless').click();
  await page.shows('#paper-left', 'endless');
});

test('a wrong length of paper is refused next to the field', async ({ page }) => {
  page.expectRefusals();
  await page.type('#paper-mm', '-5');
  await page.shows('#paper-form ~ .problem', /left_mm.*-5/);
});

test('paper that runs out in the middle of a job is seen, and a new roll mends it', async ({ page, printing }) => {
  await page.role('button', '30 mm left').click();
  await page.shows('#paper-left', '30 mm left');
  await printing.print(Array.from({ length: 12 }, (_, line) => `line ${line}`));
  await page.shows('#printer-word', /^2006 /);
  await page.click('#load-roll');
  await page.shows('#printer-word', 'printing job 1');
});

test('what was printed is torn off', async ({ page, printing }) => {
  await printing.print(['one']);
  await page.shows('#job-title', /printing$/);
  await page.click('#tear');
  await page.shows('#job-title', /finished, torn off$/);
});

test('only the label printer has labels', async ({ page }) => {
  await page.shows('#printer-word', 'ready');
  assert.equal(await page.$('#stock').isVisible(), false);
  await chooses(page, 'Label');
  assert.equal(await page.$('#stock').isVisible(), true);
});

test('labels that the printer has not learnt are said to misfeed until it is calibrated', async ({ page, sim }) => {
  await chooses(page, 'Label');
  await page.$('#stock-label').fill('60');
  await page.$('#stock-gap').fill('2.5');
  await page.role('button', 'Change in place', '#stock-form').click();
  await page.shows('#register', /^Not calibrated for this stock: it will misfeed/);
  const { stock } = await printer(sim, 'Label');
  assert.deepEqual([stock.label_mm, stock.gap_mm], [60, 2.5]);
  await page.click('#calibrate');
  await page.shows('#register', 'In register: prints begin where a label begins.');
  await page.shows('#learnt', 'The printer has learnt: labels of 60 mm with gaps of 2.5 mm.');
});

test('labels are loaded with all that is in the form', async ({ page, sim }) => {
  await chooses(page, 'Label');
  await page.$('#stock-kind').selectOption('mark');
  await page.$('#stock-label').fill('50');
  await page.$('#stock-gap').fill('4');
  await page.$('#stock-position').fill('10');
  await page.click('#load-labels');
  await page.shows('#register', /^Not calibrated/);
  assert.deepEqual((await printer(sim, 'Label')).stock, { kind: 'mark', label_mm: 50, gap_mm: 4, position_mm: 10 });
  await until(() => page.$('#stock-view svg').getAttribute('aria-label'), (label) => /^labels of 50 mm with marks of 4 mm; the head is 10 mm/.test(label), 'the drawing was to tell the stock');
});

test('impossible labels are refused and stay in the form', async ({ page }) => {
  page.expectRefusals();
  await chooses(page, 'Label');
  await page.$('#stock-label').fill('9000');
  await page.role('button', 'Change in place', '#stock-form').click();
  await page.shows('#stock .problem', /label_mm.*9000/);
  assert.equal(await page.$('#stock-label').inputValue(), '9000');
});

test('settings are shown as a program set them, and can be changed', async ({ page, sim, printing }) => {
  await page.click('#printer summary');
  await printing.ask({ cmd: 'setcontrast', printerName: 'Ticket', contrast: '77' });
  const field = page.$('#settings').getByLabel('contrast', { exact: true });
  await until(() => field.inputValue(), (value) => value === '77', 'the contrast was to be 77');
  await field.fill('33');
  await field.press('Enter');
  await until(() => printer(sim), ({ settings }) => settings.contrast === 33, 'the contrast was to be 33');
  assert.equal(await page.$('#settings tr').count(), Object.keys((await printer(sim)).settings).length);
  page.expectRefusals();
  await field.fill('5000');
  await field.press('Enter');
  await page.shows('#printer details .problem', /contrast.*5000/);
});
