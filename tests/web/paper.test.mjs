// The strips of paper, the list of jobs, and the way from a job to its requests.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite();

const kJobs = '#strip-Ticket .job';

/// Waits until the picture of a job shows a revision of at least the one that the simulator has.
async function pictureIsCurrent(page, sim, number) {
  const { revision } = await sim.get(`/api/jobs/${number}`);
  return until(() => page.$(`.job[data-job="${number}"] img`).evaluate((image) => (
    image.complete && image.naturalHeight > 0 ? Number(new URL(image.src).searchParams.get('revision')) : 0)),
  (shown) => shown >= revision, `the picture of job ${number} was to be of revision ${revision}`);
}

const heightOf = async (page, number) => (await page.$(`.job[data-job="${number}"] img`).boundingBox()).height;

test('an unfinished job is shown and grows with each print', async ({ page, sim, printing }) => {
  await printing.print(['first line']);
  await page.shows(`${kJobs} .job-name span:last-child`, 'printing');
  await pictureIsCurrent(page, sim, 1);
  const before = await heightOf(page, 1);
  await printing.print(['second line', 'third line', 'fourth line', 'fifth line']);
  await pictureIsCurrent(page, sim, 1);
  await until(() => heightOf(page, 1), (height) => height > before + 40, `the picture was to grow from ${before}`);
});

test('a job tells its number, length, time and end', async ({ page, printing }) => {
  await printing.receipt(['one', 'two', 'three']);
  await page.shows(`${kJobs} b`, 'Job 1');
  await page.shows(`${kJobs} .job-name`, /^Job 1[\d.]+ mm\d\d:\d\d:\d\dfinished, cut$/);
  await page.shows('#job-title', /^Job 1 on Ticket: \d\d:\d\d:\d\d, [\d.]+ mm, finished, cut$/);
  assert.match(await page.$(`${kJobs} img`).getAttribute('alt'), /^Paper of job 1 on Ticket, [\d.]+ mm, finished, cut$/);
});

test('jobs stand from the oldest at the top to the newest at the print head', async ({ page, printing }) => {
  for (const text of ['a', 'b', 'c']) await printing.receipt([text]);
  await until(() => page.$(`${kJobs} b`).allTextContents(), (names) => names.join() === 'Job 1,Job 2,Job 3', 'the jobs were to stand in their order');
  const head = await page.$('#strip-Ticket .print-head').boundingBox();
  const newest = await page.$(`${kJobs}[data-job="3"]`).boundingBox();
  assert.ok(head.y >= newest.y + newest.height - 20, 'the newest job stands above the print head');
});

test('the strip stays at the print head until the reader scrolls up', async ({ page, sim, printing }) => {
  const tall = Array.from({ length: 30 }, (_, line) => `line ${line}`);
  await printing.receipt(tall);
  await printing.receipt(tall);
  await pictureIsCurrent(page, sim, 2);
  const strip = page.$('#strip-Ticket');
  const distance = () => strip.evaluate((node) => node.scrollHeight - node.scrollTop - node.clientHeight);
  await until(distance, (rest) => rest < 2, 'the strip was to be at its end');
  await strip.evaluate((node) => { node.scrollTop = 0; });
  await until(() => strip.evaluate((node) => node.scrollTop), (top) => top === 0, 'the strip was to be at its top');
  await printing.receipt(tall);
  await page.shows('#strip-Ticket ~ .newest', 'New paper below');
  assert.equal(await strip.evaluate((node) => node.scrollTop), 0);
  await page.click('#strip-Ticket ~ .newest');
  await until(distance, (rest) => rest < 2, 'the strip was to be at its end again');
});

test('paper has its true proportions at every zoom', async ({ page, sim, printing }) => {
  await printing.receipt(['one', 'two', 'three', 'four', 'five', 'six']);
  await pictureIsCurrent(page, sim, 1);
  const svg = await sim.get('/api/jobs/1/paper.svg?form=strip');
  const [width, height] = ['width', 'height'].map((side) => Number(new RegExp(`${side}="([\\d.]+)mm"`).exec(svg)[1]));
  for (const [zoom, factor] of [['0.5', 0.5], ['0.75', 0.75], ['1', 1], ['1.25', 1.25], ['1.5', 1.5], ['2', 2]]) {
    await page.$('#zoom').selectOption(zoom);
    const box = await page.$(`${kJobs} img`).boundingBox();
    assert.ok(Math.abs(box.width - (width * 96 * factor) / 25.4) < 1.5, `${box.width} px wide at ${zoom}`);
    assert.ok(Math.abs(box.height - (height * 96 * factor) / 25.4) < 1.5, `${box.height} px high at ${zoom}`);
  }
  await page.$('#zoom').selectOption('fit');
  const view = await page.$('#strip-Ticket').boundingBox();
  const box = await page.$(kJobs).boundingBox();
  assert.ok(box.x >= view.x && box.x + box.width <= view.x + view.width, 'the paper fits');
});

test('each printer has a strip, and what prints comes into view', async ({ page, printing }) => {
  await printing.receipt(['a label'], '0');
  await page.shows('#paper-tabs [aria-selected="true"]', /^Label/);
  await page.shows('#strip-Label .job b', 'Job 1');
  await printing.print(['third'], '2');
  await page.shows('#paper-tabs [aria-selected="true"]', /^Third · printing/);
  await page.shows('#strip-Third .job b', 'Job 2');
  await page.shows('#job-title', /^Job 2 on Third/);
});

test('without following, the chosen printer stays', async ({ page, printing }) => {
  await page.$('#follow').uncheck();
  await printing.receipt(['a label'], '0');
  await page.shows('#strip-Label .job b', 'Job 1');
  assert.match(await page.text('#paper-tabs [aria-selected="true"]'), /^Ticket/);
});

test('all jobs are listed, and one is shown from there', async ({ page, printing }) => {
  await printing.receipt(['a label'], '0');
  await printing.receipt(['a receipt'], '1');
  await page.role('tab', 'All jobs').click();
  const rows = await page.waitForRows(2, '#job-rows');
  assert.deepEqual(rows.map(([number, printer]) => [number, printer]), [['1', 'Label'], ['2', 'Ticket']]);
  await page.$('#job-rows .list-body .list-row').first().click();
  await page.shows('#paper-tabs [aria-selected="true"]', /^Label/);
  await page.$('.job.found[data-job="1"]').waitFor();
});

test('the text of a job is viewed and copied', async ({ page, printing }) => {
  await printing.receipt(['Total  5.02']);
  await page.shows('#job-title', /^Job 1/);
  await page.click('#job-view');
  await page.shows('dialog h2', 'Text of job 1');
  await page.shows('dialog pre', /Total {2}5\.02/);
  await page.role('button', 'Copy text', 'dialog').click();
  await until(() => page.copied(), (text) => text.includes('Total  5.02'), 'the text was to be copied');
  await page.page.keyboard.press('Escape');
  await until(() => page.$('dialog').count(), (count) => count === 0, 'the window was to close');
  await page.page.evaluate(() => navigator.clipboard.writeText(''));
  await page.click('#job-copy');
  await until(() => page.copied(), (text) => text.includes('Total  5.02'), 'the text was to be copied');
});

test('the requests of a job are listed, and all again', async ({ page, printing, weighing }) => {
  await weighing.ask({ cmd: 'getweight' });
  await printing.receipt(['one']);
  await printing.receipt(['two', 'three']);
  await page.shows('#job-title', /^Job 2/);
  await page.$(`${kJobs}[data-job="1"] .job-name`).click();
  await page.shows('#job-title', /^Job 1/);
  await page.click('#job-requests');
  await page.shows('#filter-job', 'Job 1 ×');
  const rows = await until(() => page.rows(), (shown) => shown.length > 0 && shown.every((row) => row[3] !== 'getweight'), 'only requests of the job were to be listed');
  assert.deepEqual(rows.map((row) => row[3]), ['printtext', 'beginPrint', 'cutPaper']);
  await page.click('#filter-job');
  await page.waitForRows(8);
});

test('a request shows the paper of its job', async ({ page, sim, printing }) => {
  const tall = Array.from({ length: 40 }, (_, line) => `line ${line}`);
  await printing.receipt(['the first']);
  await printing.receipt(tall);
  await printing.receipt(tall, '0');
  await page.shows('#paper-tabs [aria-selected="true"]', /^Label/);
  await page.type('#filter-text', 'the first');
  await page.waitForRows(1);
  await page.$('#traffic-rows .list-body .list-row').click();
  await page.shows('#paper-tabs [aria-selected="true"]', /^Ticket/);
  await page.$('.job.found[data-job="1"]').waitFor();
  await page.shows('#job-title', /^Job 1 on Ticket/);
  const view = await page.$('#strip-Ticket').boundingBox();
  const box = await page.$(`${kJobs}[data-job="1"]`).boundingBox();
  assert.ok(box.y >= view.y - 1 && box.y < view.y + view.height, 'the paper is in view');
  await pictureIsCurrent(page, sim, 1);
});

test('the history of jobs is cleared, but not what still prints', async ({ page, printing }) => {
  await printing.receipt(['one']);
  await printing.print(['two']);
  await printing.receipt(['label'], '0');
  await until(() => page.$('.job').count(), (count) => count === 3, 'there were to be 3 jobs');
  await page.click('#clear-jobs');
  await until(() => page.$('.job b').allTextContents(), (names) => names.join() === 'Job 2', 'only the job that prints was to be left');
});
