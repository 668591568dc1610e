// Faults on the wire, made on the page and felt by a program.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite();

const rulesOf = async (sim) => (await sim.get('/api/faults')).faults;
const kWeigh = { cmd: 'getweight' };

async function opened(page) {
  await page.click('#fault-new summary');
  return page.$('#fault-form');
}

/// The names of the fields that are for the chosen kind.
const fields = (page) => page.$('#fault-form').evaluate((form) => [...form.elements]
  .filter((field) => field.id && field.checkVisibility()).map((field) => field.id.replace('fault-', '')));

const kAlways = ['kind', 'port'];
const kHowOften = ['counted', 'times', 'endless'];

for (const [kind, own] of Object.entries({ delay: ['delay_ms'], 'no-answer': [], close: [], reset: [], 'two-pieces': ['first_piece', 'delay_ms'],
  garbage: ['bytes'], oversized: ['bytes'], 'wrong-type': [], result: ['code'] })) {
  test(`${kind} has exactly its fields and is made`, async ({ page, sim }) => {
    const form = await opened(page);
    await page.$('#fault-kind').selectOption(kind);
    assert.deepEqual(await fields(page), [...kAlways, 'command', ...own, ...kHowOften, 'carried-out']);
    assert.equal(await page.$('#fault-carried-out').isChecked(), kind !== 'result');
    await form.getByRole('button').click();
    await page.shows('#wire-count', '1 in force');
    const [rule] = await rulesOf(sim);
    assert.deepEqual([rule.kind, rule.port, rule.command, rule.times, rule.carried_out], [kind, 'both', '*', 1, kind !== 'result']);
  });
}

test('refusing connections has its own fields', async ({ page, sim }) => {
  const form = await opened(page);
  await page.$('#fault-kind').selectOption('refuse');
  assert.deepEqual(await fields(page), [...kAlways, 'drop']);
  await page.$('#fault-drop').uncheck();
  await form.getByRole('button').click();
  await page.shows('#rules b', 'both ports: refuse connections');
  await page.shows('#rules .quiet', 'until switched off');
  assert.equal((await rulesOf(sim))[0].drop, false);
});

test('all of the form reaches the rule', async ({ page, sim }) => {
  const form = await opened(page);
  await page.$('#fault-kind').selectOption('two-pieces');
  await page.$('#fault-port').selectOption('weighing');
  await page.$('#fault-command').selectOption('getweight');
  await page.$('#fault-first_piece').fill('7');
  await page.$('#fault-delay_ms').fill('50');
  await page.$('#fault-times').fill('4');
  await page.$('#fault-carried-out').uncheck();
  await form.getByRole('button').click();
  await page.shows('#wire-count', '1 in force');
  const [rule] = await rulesOf(sim);
  assert.deepEqual([rule.kind, rule.port, rule.command, rule.first_piece, rule.delay_ms, rule.times, rule.carried_out],
    ['two-pieces', 'weighing', 'getweight', 7, 50, 4, false]);
  await page.shows('#rules li > div', 'getweight (weighing): answer in two pieces, 50 ms apart, not carried out 4 to go, not yet used');
});

test('the commands offered are those of the port', async ({ page }) => {
  await opened(page);
  const offered = () => page.$('#fault-command option').allTextContents();
  await page.$('#fault-port').selectOption('weighing');
  assert.ok((await offered()).includes('getweight') && !(await offered()).includes('printtext'));
  await page.$('#fault-port').selectOption('printing');
  assert.ok(!(await offered()).includes('getweight') && (await offered()).includes('printtext'));
  assert.equal((await offered())[0], 'all');
});

test('a fault acts as often as it was said, and then is gone', async ({ page, weighing }) => {
  await opened(page);
  await page.$('#fault-kind').selectOption('result');
  await page.$('#fault-code').fill('1006');
  await page.$('#fault-times').fill('2');
  await page.role('button', 'Make the fault').click();
  await page.shows('#rules li > div', /2 to go, not yet used$/);
  assert.equal((await weighing.ask(kWeigh)).result, '1006');
  await page.shows('#rules li > div', /1 to go, used once$/);
  assert.equal((await weighing.ask(kWeigh)).result, '1006');
  await page.shows('#wire-count', 'none');
  assert.equal((await weighing.ask(kWeigh)).result, '0');
});

test('a fault without a number acts until it is switched off', async ({ page, sim, weighing }) => {
  await opened(page);
  await page.$('#fault-kind').selectOption('result');
  await page.$('#fault-code').fill('1006');
  await page.$('#fault-endless').check();
  await page.role('button', 'Make the fault').click();
  await page.shows('#rules .quiet', 'until switched off, not yet used');
  assert.equal((await rulesOf(sim))[0].times, null);
  for (const used of ['used once', 'used 2 times']) {
    assert.equal((await weighing.ask(kWeigh)).result, '1006');
    await page.shows('#rules .quiet', `until switched off, ${used}`);
  }
  await page.role('button', 'Switch off: every command (both ports): answer result 1006, not carried out').click();
  await page.shows('#wire-count', 'none');
  assert.equal((await weighing.ask(kWeigh)).result, '0');
});

test('several faults are in force at once, and each is switched off alone', async ({ page, sim }) => {
  await page.role('button', 'Answer in two pieces').click();
  await page.role('button', 'Delay 2 s').click();
  await page.shows('#wire-count', '2 in force');
  await page.$('#rules li').first().getByRole('button').click();
  await page.shows('#wire-count', '1 in force');
  assert.deepEqual((await rulesOf(sim)).map(({ kind }) => kind), ['delay']);
});

test('all faults are cleared at once', async ({ page, sim }) => {
  for (const name of ['Answer in two pieces', 'Never answer', 'Delay 2 s']) await page.role('button', name).click();
  await page.shows('#wire-count', '3 in force');
  await page.click('#clear-faults');
  await page.shows('#wire-count', 'none');
  assert.deepEqual(await rulesOf(sim), []);
});

test('the common faults are one click away', async ({ page, printing, sim }) => {
  for (const name of ['Answer in two pieces', 'Never answer', 'Delay 2 s', 'Out of paper (2006) at the next print']) {
    await page.role('button', name).click();
  }
  await page.shows('#wire-count', '4 in force');
  assert.deepEqual((await rulesOf(sim)).map(({ kind, port, command, times }) => [kind, port, command, times]), [
    ['two-pieces', 'both', '*', null], ['no-answer', 'both', '*', 1], ['delay', 'both', '*', null], ['result', 'printing', 'beginPrint', 1]]);
  await page.click('#clear-faults');
  await page.shows('#wire-count', 'none');
  await page.role('button', 'Out of paper (2006) at the next print').click();
  await page.shows('#wire-count', '1 in force');
  await printing.print(['one']);
  assert.equal((await printing.ask({ cmd: 'beginPrint', printerType: '1' })).result, '2006');
  await page.shows('#wire-count', 'none');
  await until(() => page.rows(), (rows) => /^2006 .* · fault: result$/.test(rows.at(-1)?.[4] ?? ''), 'the exchange was to tell the fault');
});

test('a fault that is refused says why in the form, which stays as it was', async ({ page }) => {
  page.expectRefusals();
  const form = await opened(page);
  await page.$('#fault-delay_ms').fill('9999999');
  await form.getByRole('button').click();
  await page.shows('#fault-new .problem', /delay_ms.*9999999/);
  assert.equal(await page.$('#fault-delay_ms').inputValue(), '9999999');
  await page.$('#fault-delay_ms').fill('');
  await page.role('button', 'Make the fault').click();
  await page.shows('#fault-new .problem', /Delay is missing\. Type a number\./);
});
