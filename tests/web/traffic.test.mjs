// The list of exchanges.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite();

const commands = async (page) => (await page.rows()).map((row) => row[3]);
const listed = (page, expected) => until(() => commands(page), (names) => names.join() === expected.join(), `the list was to be ${expected}`);
const row = (page, index) => page.$(`#traffic-rows .list-row[data-index="${index}"]`);

const kWeigh = { cmd: 'getweight' };

test('every exchange is listed with port, command, result and time', async ({ page, weighing, printing }) => {
  await weighing.ask(kWeigh);
  await printing.ask({ cmd: 'printerStatus', printerType: '1' });
  const rows = await until(() => page.rows(), (shown) => shown.length === 2 && shown.every((cells) => cells[5] !== ''), 'two exchanges were to be listed');
  const [time, port, client, command, result, took] = rows[0];
  assert.match(time, /^\d\d:\d\d:\d\d\.\d\d\d$/);
  assert.match(client, /^127\.0\.0\.1:\d+ \(\d+\)$/);
  assert.match(took, /^<?\d+(\.\d)? ms$/);
  assert.deepEqual([port, command], ['weighing', 'getweight']);
  assert.match(result, /^0 /);
  assert.deepEqual([rows[1][1], rows[1][3]], ['printing', 'printerStatus']);
});

test('an unknown command is marked in words', async ({ page, weighing }) => {
  await weighing.ask({ cmd: 'getwieght' });
  await until(() => page.rows(), (rows) => rows.length === 1 && rows[0][3] === 'getwieght' && rows[0][4] === '1002 unknown command', 'the command was to be unknown');
  assert.equal(await row(page, 0).getAttribute('data-tone'), 'bad');
});

test('an exchange is shown in full, pretty or raw', async ({ page, weighing }) => {
  const reply = await weighing.ask(kWeigh);
  await page.waitForRows(1);
  await row(page, 0).click();
  await page.shows('#exchange .facts', /^#1 · .* · weighing · 127\.0\.0\.1:\d+, connection \d+ · getweight · 0 .* ms$/);
  await page.shows('#exchange .message:first-child pre', JSON.stringify(kWeigh, null, 2));
  await page.shows('#exchange .message:last-child pre', JSON.stringify(reply, null, 2));
  await page.click('#exchange-pretty');
  await page.shows('#exchange .message:first-child pre', JSON.stringify(kWeigh));
  await page.shows('#exchange .message:last-child pre', JSON.stringify(reply));
  await page.click('#exchange-pretty');
  await page.shows('#exchange .message:first-child pre', JSON.stringify(kWeigh, null, 2));
  await page.click('#exchange-close');
  assert.equal(await page.$('#exchange').isVisible(), false);
});

test('the list is filtered by text, port, errors and job', async ({ page, weighing, printing }) => {
  await weighing.ask(kWeigh);
  await weighing.ask({ cmd: 'nonsense' });
  await printing.print(['Tomatoes']);
  await printing.ask({ cmd: 'beginPrint', printerType: '1' });
  await page.waitForRows(4);
  await page.$('#filter-text').fill('TOMATOES printtext');
  await listed(page, ['printtext']);
  await page.shows('#traffic-count', '1 of 4 exchanges');
  await page.$('#filter-text').fill('');
  await page.$('#filter-port').selectOption('printing');
  await listed(page, ['printtext', 'beginPrint']);
  await page.$('#filter-port').selectOption('');
  await page.$('#filter-errors').check();
  await listed(page, ['nonsense']);
  await page.$('#filter-text').fill('getweight');
  await page.shows('#traffic-list .empty', 'No exchange fits the filter.');
  await page.$('#filter-text').fill('');
  await page.$('#filter-errors').uncheck();
  await page.waitForRows(4);
  await row(page, 2).click();
  await page.click('#exchange-job');
  await listed(page, ['printtext', 'beginPrint']);
});

test('a filter goes on filtering what comes', async ({ page, weighing, printing }) => {
  await page.$('#filter-port').selectOption('weighing');
  await printing.ask({ cmd: 'getPrinterList' });
  await weighing.ask(kWeigh);
  await listed(page, ['getweight']);
});

test('the paper of an exchange is shown from its details', async ({ page, printing }) => {
  await printing.receipt(['one']);
  await page.waitForRows(3);
  await row(page, 0).click();
  await page.role('button', 'Show paper of job 1', '#exchange').click();
  await page.$('.job.found[data-job="1"]').waitFor();
});

test('a paused list stands still and counts what waits', async ({ page, weighing }) => {
  await weighing.ask(kWeigh);
  await page.waitForRows(1);
  await page.click('#pause');
  await page.shows('#traffic-count', '1 exchange, paused, 0 waiting');
  for (let count = 0; count < 3; ++count) await weighing.ask(kWeigh);
  await page.shows('#traffic-count', '1 exchange, paused, 3 waiting');
  assert.equal((await page.rows()).length, 1);
  assert.equal(await page.$('#pause').getAttribute('aria-pressed'), 'true');
  await page.role('button', 'Resume').click();
  await page.waitForRows(4);
  await page.shows('#traffic-count', '4 exchanges');
});

test('the chosen exchange, or all that are shown, are copied', async ({ page, weighing }) => {
  const reply = JSON.stringify(await weighing.ask(kWeigh));
  await weighing.ask({ cmd: 'nonsense' });
  await page.waitForRows(2);
  await row(page, 0).click();
  await page.click('#exchange-copy');
  const first = await until(() => page.copied(), (text) => text.startsWith('#1 '), 'the exchange was to be copied');
  assert.deepEqual(first.split('\n').slice(1), [`> ${JSON.stringify(kWeigh)}`, `< ${reply}`]);
  await page.click('#copy-shown');
  const all = await until(() => page.copied(), (text) => text.includes('#2 '), 'both exchanges were to be copied');
  assert.equal(all.split('\n\n')[0], first);
  assert.match(all.split('\n\n')[1], /^#2 .* nonsense: 1002 unknown command, .* ms\n> .*\n< .*$/);
  await page.$('#filter-errors').check();
  await page.waitForRows(1);
  await page.click('#copy-shown');
  await until(() => page.copied(), (text) => text.startsWith('#2 '), 'only what is shown was to be copied');
});

test('the list is cleared, also while it is paused', async ({ page, weighing }) => {
  await weighing.ask(kWeigh);
  await page.waitForRows(1);
  await row(page, 0).click();
  await page.click('#clear-traffic');
  await page.waitForRows(0);
  assert.equal(await page.$('#exchange').isVisible(), false);
  await weighing.ask(kWeigh);
  await page.waitForRows(1);
  await page.click('#pause');
  await page.click('#clear-traffic');
  await page.waitForRows(0);
});

test('an answer that is late is shown as such until it comes', async ({ page, sim, weighing }) => {
  await sim.post('/api/faults', { kind: 'delay', port: 'weighing', command: '*', delay_ms: 1000, times: 1 });
  const answer = weighing.ask(kWeigh);
  await until(() => page.rows(), (rows) => rows.length === 1 && /^not answered yet · fault: delay$/.test(rows[0][4]), 'the answer was to be awaited');
  await answer;
  await until(() => page.rows(), (rows) => rows.length === 1 && /^0 .* · fault: delay$/.test(rows[0][4]), 'the answer was to be listed');
});

test('the header tells who was last, what was last, and the last error', async ({ page, weighing, printing }) => {
  await page.shows('#connections', '1 weighing, 1 printing');
  await printing.ask({ cmd: 'printerStatus', printerType: '9' });
  await weighing.ask(kWeigh);
  await page.shows('#last-client', /^127\.0\.0\.1:\d+$/);
  await page.shows('#last-request', /^\d\d:\d\d:\d\d$/);
  await page.shows('#last-error', /^#1 printerStatus: \d+ .+/);
  await page.$('#filter-text').fill('getweight');
  await page.waitForRows(1);
  await page.click('#last-error');
  await page.shows('#exchange .facts', /^#1 · /);
  assert.equal(await page.$('#filter-text').inputValue(), '');
});
