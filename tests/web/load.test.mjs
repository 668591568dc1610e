// A long day: ten thousand requests, five hundred jobs.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite({ opens: false });

const kMostNodes = 6000;

const nodes = (page) => page.page.evaluate(() => document.querySelectorAll('*').length);

async function askOften(client, count) {
  const kAtOnce = 500;
  for (let sent = 0; sent < count; sent += kAtOnce) {
    await Promise.all(Array.from({ length: kAtOnce }, (_, index) => client.ask({ cmd: 'getweight', number: String(sent + index + 1) })));
  }
}

test('ten thousand requests are listed with few nodes, and each is reached', async ({ open, weighing, sim }) => {
  const page = await open();
  await askOften(weighing, 10000);
  const { traffic } = await sim.get('/api/state');
  const kept = traffic.newest - traffic.oldest + 1;
  assert.equal(traffic.newest, 10000);
  await page.shows('#traffic-count', `${kept} exchanges`);
  assert.ok((await page.rows()).length < 80);
  assert.ok(await nodes(page) < 2500, `${await nodes(page)} nodes`);
  const list = page.$('#traffic-rows');
  for (const part of [0, 0.25, 0.5, 0.75, 1]) {
    await list.evaluate((view, place) => { view.scrollTop = place * view.scrollHeight; }, part);
    const expected = Math.floor(part * (kept - 1));
    await until(() => page.$('#traffic-rows .list-body .list-row').evaluateAll((rows) => rows.map((row) => Number(row.dataset.index))),
      (shown) => shown.some((index) => Math.abs(index - expected) < 30), `row ${expected} was to be in view`);
  }
  await page.$('#filter-text').fill('"9876"');
  await page.waitForRows(1);
  await page.shows('#traffic-count', `1 of ${kept} exchanges`);
  const late = await open();
  await late.shows('#traffic-count', `${kept} exchanges`);
});

test('five hundred jobs scroll, with pictures only near the view', async ({ open, printing, sim }) => {
  const kJobs = 500;
  for (let number = 1; number <= kJobs; ++number) await printing.receipt([`receipt ${number}`, 'Total 1.00']);
  const { jobs } = await sim.get('/api/state');
  assert.equal(jobs.newest, kJobs);
  const page = await open();
  await until(() => page.$('#strip-Ticket .job').count(), (count) => count === jobs.count, `${jobs.count} jobs were to be there`);
  assert.ok(await nodes(page) < kMostNodes + 1, `${await nodes(page)} nodes`);
  const withPicture = () => page.$('.job img[src]').count();
  await until(withPicture, (count) => count > 0 && count < 80, 'only the jobs near the view were to have pictures');
  await page.$('#strip-Ticket').evaluate((strip) => { strip.scrollTop = 0; });
  await until(() => page.$(`.job[data-job="${jobs.oldest}"] img`).evaluate((image) => image.naturalHeight), (height) => height > 0, 'the oldest job was to be seen');
  assert.ok(await withPicture() < 100);
  await page.role('tab', 'All jobs').click();
  assert.ok((await until(() => page.rows('#job-rows'), (rows) => rows.length > 5, 'jobs were to be listed')).length < 80);
});
