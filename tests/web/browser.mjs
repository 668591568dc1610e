// The page in a browser, and what a test may ask about it.
import assert from 'node:assert/strict';
import { after, before, test as nodeTest } from 'node:test';
import { launchBrowser } from './chromium.mjs';
import { Simulator } from './simulator.mjs';

const kPatience = 20000;

/// Waits until the value that `read` tells satisfies, at most for as long as a loaded machine may take.
export async function until(read, isSatisfied, what) {
  const end = Date.now() + kPatience;
  for (let value; ;) {
    value = await read();
    if (isSatisfied(value)) return value;
    if (Date.now() > end) assert.fail(`${what}; at the end it was ${JSON.stringify(value)}`);
    await new Promise((go) => setTimeout(go, 15));
  }
}

const fits = (text, expected) => (expected instanceof RegExp ? expected.test(text) : text === expected);

/// The page with the parts of it that tests look at.
export class Page {
  /// Messages that the test expects the browser to complain with.
  allowed = [];
  #complaints = [];

  constructor(page) {
    this.page = page;
    page.setDefaultTimeout(kPatience);
    page.on('console', (message) => { if (/error|warning/.test(message.type())) this.#complaints.push(message.text()); });
    page.on('pageerror', (error) => this.#complaints.push(String(error.stack)));
  }

  $(selector) { return this.page.locator(selector); }
  click(selector) { return this.$(selector).click(); }

  /// A button, switch or field by the name that people and screen readers know it by.
  role(role, name, within = 'body') { return this.$(within).getByRole(role, { name, exact: true }); }

  text(selector) { return this.$(selector).evaluate((node) => node.textContent); }

  /// Waits until an element's text is, or matches, what is expected.
  shows(selector, expected) {
    return until(() => this.text(selector), (text) => fits(text, expected), `${selector} was to show ${expected}`);
  }

  value(selector, expected) {
    return until(() => this.$(selector).inputValue(), (value) => value === expected, `${selector} was to have the value ${expected}`);
  }

  async type(selector, text) {
    await this.$(selector).fill(text);
    await this.$(selector).press('Enter');
  }

  /// Lets the browser log that requests were answered with an error.
  expectRefusals() { this.allowed.push(/the server responded with a status of 4\d\d/); }

  /// The texts of the rows of a list that are in the document.
  rows(list = '#traffic-rows') {
    return this.$(`${list} .list-body .list-row`).evaluateAll((rows) => rows
      .sort((a, b) => Number(a.dataset.index) - Number(b.dataset.index)).map((row) => [...row.children].map((cell) => cell.textContent)));
  }

  async waitForRows(count, list = '#traffic-rows') {
    return until(() => this.rows(list), (rows) => rows.length === count, `${list} was to have ${count} rows`);
  }

  /// Reading what was copied needs a page that may.
  copied() { return this.page.evaluate(() => navigator.clipboard.readText()); }

  complaints() { return this.#complaints.filter((text) => !this.allowed.some((pattern) => pattern.test(text))); }
}

/// A test for each call of the result: name, body({page, sim, weighing, printing, open}). All tests of a
/// file share one simulator, which is reset before each, and one browser. A test fails, too, when the
/// browser complains about the page.
export function suite(options = {}) {
  let sim;
  let browser;
  before(async () => {
    sim = await Simulator.start(options.simulator ?? []);
    browser = await launchBrowser();
  });
  after(async () => {
    await browser?.close();
    await sim?.stop();
  });

  const run = async (body) => {
    await sim.post('/api/reset');
    const opened = [];
    const open = async (more = {}) => {
      const context = await browser.newContext({ viewport: { width: 1280, height: 900 }, permissions: ['clipboard-read', 'clipboard-write'], ...more });
      const page = new Page(await context.newPage());
      opened.push({ page, context });
      await page.page.goto(more.url ?? sim.url);
      await page.shows('#link', 'Connected, live');
      return page;
    };
    const clients = await Promise.all([sim.client('weighing'), sim.client('printing')]);
    try {
      await body({ sim, open, page: options.opens === false ? null : await open(options.page), weighing: clients[0], printing: clients[1] });
      assert.deepEqual(opened.flatMap(({ page }) => page.complaints()), []);
    } finally {
      for (const client of clients) client.close();
      for (const { context } of opened) await context.close();
    }
  };
  return (name, body) => nodeTest(name, { timeout: 100000 }, () => run(body));
}
