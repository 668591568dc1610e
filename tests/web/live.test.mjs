// The page while the simulator comes and goes, and what it says when nothing happens.
import assert from 'node:assert/strict';
import { suite, until } from './browser.mjs';
import { Simulator } from './simulator.mjs';

const test = suite();

const kNetworkErrors = [/WebSocket connection to .* failed/, /net::ERR_/];

test('the header tells name, version and addresses', async ({ page, sim }) => {
  const { version, ports } = await sim.get('/api/state');
  await page.shows('#version', version);
  await page.shows('#port-weighing', `127.0.0.1:${ports.weighing}`);
  await page.shows('#port-printing', `127.0.0.1:${ports.printing}`);
  assert.equal(await page.page.title(), 'zelkad-sim');
});

test('a page opened late shows all that was before', async ({ open, weighing, printing }) => {
  await weighing.ask({ cmd: 'getweight' });
  await printing.receipt(['one']);
  const late = await open();
  await late.waitForRows(4);
  await late.shows('.job b', 'Job 1');
});

test('two pages show the same', async ({ page, open }) => {
  const other = await open();
  await page.click('#drawer-open');
  await other.shows('#drawer-word', 'open');
  await other.click('#drawer-close');
  await page.shows('#drawer-word', 'closed');
});

test('the drawer is open after a program opened it, and counts', async ({ page, printing }) => {
  await page.shows('#drawer-openings', 'Never opened');
  await printing.ask({ cmd: 'opencashbox' });
  await page.shows('#drawer-word', 'open');
  assert.equal(await page.$('#till').getAttribute('data-open'), 'yes');
  await page.shows('#drawer-openings', 'Opened once');
  await page.click('#drawer-close');
  await page.shows('#drawer-word', 'closed');
  await page.click('#drawer-open');
  await page.shows('#drawer-word', 'open');
});

test('a reset asks first, and then everything is as at the start', async ({ page, weighing, printing }) => {
  await printing.receipt(['one']);
  await weighing.ask({ cmd: 'getweight' });
  await page.role('button', 'Apple 0.182').click();
  await page.value('#load', '0.182');
  await page.waitForRows(4);
  await page.click('#reset');
  await page.role('button', 'Cancel', 'dialog').click();
  assert.equal((await page.rows()).length, 4);
  await page.click('#reset');
  await page.role('button', 'Reset', 'dialog').click();
  await page.waitForRows(0);
  await page.value('#load', '0');
  await until(() => page.$('.job').count(), (count) => count === 0, 'no job was to be left');
  await page.shows('#job-title', 'No job yet');
  await printing.receipt(['again']);
  await page.shows('.job b', 'Job 1');
});

test('without any client the page says where to connect', async ({ open }) => {
  const alone = await Simulator.start();
  try {
    const page = await open({ url: alone.url });
    const { weighing, printing } = alone.ports;
    await page.shows('#hint', new RegExp(`^No program has connected yet\\. Point yours at 127\\.0\\.0\\.1: port ${weighing} for weighing, port ${printing} for printing\\.`));
    await page.shows('#traffic-list .empty', new RegExp(`port ${weighing} \\(weighing\\) or ${printing} \\(printing\\)`));
    await page.shows('#strip-Ticket .empty', new RegExp(`port ${printing}`));
    const client = await alone.client('weighing');
    await client.ask({ cmd: 'getweight' });
    await until(() => page.$('#hint').isVisible(), (isVisible) => !isVisible, 'the hint was to go');
    client.close();
    page.allowed.push(...kNetworkErrors);
  } finally {
    await alone.stop();
  }
});

test('a simulator that is started again is found again, and its numbers are its own', async ({ open }) => {
  let other = await Simulator.start();
  const { ports } = other;
  const page = await open({ url: other.url });
  page.allowed.push(...kNetworkErrors);
  try {
    let client = await other.client('printing');
    await client.receipt(['of the first run']);
    await client.receipt(['also']);
    await page.waitForRows(6);
    await other.stop();
    await page.shows('#link', 'Connection to the simulator lost, trying again');
    await page.click('#drawer-open');
    await page.shows('#drawer .problem', /^The simulator does not answer\. Start it again/);
    other = await Simulator.start([], ports);
    await page.shows('#link', 'Connected, live');
    client = await other.client('printing');
    await client.ask({ cmd: 'getPrinterList' });
    const rows = await page.waitForRows(1);
    assert.equal(rows[0][3], 'getPrinterList');
    await until(() => page.$('.job').count(), (count) => count === 0, 'no job of the first run was to be left');
    client.close();
  } finally {
    await other.stop();
  }
});
