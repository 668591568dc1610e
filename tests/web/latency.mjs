// Measures how long after beginPrint a job stands finished on the page, and how long until its paper is
// drawn. Both clocks are this machine's.
import { launchBrowser } from './chromium.mjs';
import { Simulator } from './simulator.mjs';

// The simulator keeps no more jobs than the most.
const kMostJobs = 500;
const kJobs = Math.min(Number(process.argv[2] ?? 100), kMostJobs);
const kLines = 20;

function watch() {
  window.shown = new Map();
  window.drawn = new Map();
  const now = () => performance.timeOrigin + performance.now();
  const note = (times, key) => { if (!times.has(key)) times.set(key, now()); };
  new MutationObserver(() => {
    for (const job of document.querySelectorAll('.job[data-finished="yes"]')) note(window.shown, job.dataset.job);
  }).observe(document.getElementById('strips'), { subtree: true, childList: true, attributes: true, attributeFilter: ['data-finished'] });
  document.addEventListener('load', ({ target }) => {
    const job = target.closest?.('.job[data-finished="yes"]');
    if (job) note(window.drawn, job.dataset.job);
  }, true);
}

function report(name, times) {
  const sorted = [...times].sort((a, b) => a - b);
  const at = (part) => sorted[Math.min(sorted.length - 1, Math.floor(part * sorted.length))].toFixed(1);
  console.log(`${name}: median ${at(0.5)} ms, 95 % ${at(0.95)} ms, longest ${at(1)} ms`);
}

const sim = await Simulator.start();
const browser = await launchBrowser();
try {
  const page = await browser.newPage({ viewport: { width: 1280, height: 900 } });
  await page.goto(sim.url);
  await page.getByText('Connected, live').waitFor();
  await page.evaluate(watch);
  const client = await sim.client('printing');
  const began = [];
  for (let number = 1; number <= kJobs; ++number) {
    await client.print(Array.from({ length: kLines }, (_, line) => `line ${line} of receipt ${number}`));
    began.push(performance.timeOrigin + performance.now());
    await client.ask({ cmd: 'beginPrint', printerType: '1' });
    await page.waitForFunction((job) => window.drawn.has(job), String(number));
  }
  const timesOf = async (name) => new Map(await page.evaluate((which) => [...window[which]], name));
  for (const [name, words] of [['shown', 'finished on the page'], ['drawn', 'its paper drawn']]) {
    const times = await timesOf(name);
    report(`after beginPrint, ${words}`, began.map((time, index) => times.get(String(index + 1)) - time));
  }
  client.close();
} finally {
  await browser.close();
  await sim.stop();
}
