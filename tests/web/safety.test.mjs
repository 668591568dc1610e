// Texts of programs are shown as texts, whatever they contain.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';

const test = suite();

const kProbes = ['<img src=x onerror="window.harmed = true">', '<script>window.harmed = true</script>',
  '"><svg onload="window.harmed = true">', "'); window.harmed = true; //", '</pre></dialog><b onmouseover="window.harmed = true">b</b>', '&lt;b&gt;&amp;'];

async function isUnharmed(page) {
  assert.equal(await page.page.evaluate(() => window.harmed), undefined);
  assert.equal(await page.$('main img:not(.sheet img), main b[onmouseover], main script, [onload], [onerror]').count(), 0);
}

test('markup in requests is text in list and details', async ({ page, weighing, printing }) => {
  for (const probe of kProbes) {
    await weighing.ask({ cmd: probe, [probe]: probe });
    await printing.ask({ cmd: 'getprinterversion', printerName: probe });
  }
  const rows = await page.waitForRows(kProbes.length * 2);
  assert.deepEqual(rows.filter((_, index) => index % 2 === 0).map((row) => row[3]), kProbes);
  for (let index = 0; index < rows.length; index += 2) {
    await page.$(`#traffic-rows .list-row[data-index="${index}"]`).click();
    const probe = kProbes[index / 2];
    await page.shows('#exchange .message:first-child pre', JSON.stringify({ cmd: probe, [probe]: probe }, null, 2));
    await isUnharmed(page);
  }
  await page.shows('#last-error', /.+/);
});

test('markup on paper is text in picture and text', async ({ page, sim, printing }) => {
  await printing.receipt(kProbes);
  await page.shows('#job-title', /^Job 1 .*finished, cut$/);
  await until(() => page.$('.job img').evaluate((image) => image.naturalHeight), (height) => height > 0, 'the picture was to come');
  await page.click('#job-view');
  const text = await page.text('dialog pre');
  for (const probe of kProbes.filter(({ length }) => length < 44)) assert.ok(text.includes(probe), probe);
  await isUnharmed(page);
  await page.page.keyboard.press('Escape');
  const svg = await sim.get('/api/jobs/1/paper.svg');
  const tags = svg.match(/<[^>]*>/g);
  assert.deepEqual(tags.filter((tag) => !/^<[/?]?(xml|svg|style|rect|path|clipPath|g|text|tspan|image)\b/.test(tag) || /\son\w+=/.test(tag)), []);
});

test('what is not JSON, and bytes that are not text, are shown', async ({ page, weighing }) => {
  await weighing.ask('<b>hello</b> {');
  weighing.socket.write(Buffer.from([0xff, 0xfe, 0x00, 0x80]));
  await until(() => page.rows(), (rows) => rows.length > 0, 'something was to be listed');
  await page.$('#traffic-rows .list-body .list-row').first().click();
  await page.shows('#exchange .message:first-child pre', /<b>hello<\/b>/);
  await isUnharmed(page);
});

test('the page runs nothing that was written into it', async ({ page }) => {
  page.allowed.push(/Content Security Policy/);
  await page.page.evaluate(() => {
    const script = document.createElement('script');
    script.textContent = 'window.harmed = true';
    document.body.append(script);
    const button = document.createElement('div');
    button.innerHTML = '<img src="data:," onerror="window.harmed = true">';
    document.body.append(button);
  });
  await page.page.evaluate(() => new Promise((go) => requestAnimationFrame(() => requestAnimationFrame(go))));
  assert.equal(await page.page.evaluate(() => window.harmed), undefined);
});

test('the page takes nothing from elsewhere', async ({ open, sim }) => {
  const page = await open();
  const asked = [];
  page.page.on('request', (request) => asked.push(request.url()));
  await page.page.reload();
  await page.shows('#link', 'Connected, live');
  assert.ok(asked.length > 10);
  assert.deepEqual(asked.filter((url) => !url.startsWith(sim.url)), []);
});
