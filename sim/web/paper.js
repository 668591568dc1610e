// The paper of all printers, as strips that grow, and the list of all jobs.
import { get, remove } from './service.js';
import { byId } from './dom.js';
import { setUpJobBar } from './job_bar.js';
import { JobList } from './job_list.js';
import { onClick } from './problem.js';
import { Strip } from './strip.js';
import { setUpTabs } from './tabs.js';
import { recall, remember } from './remembered.js';

const kAll = 'All jobs';
const kFirst = 'Ticket';

class Papers {
  #strips = new Map();
  #shown = '';
  #chosen = null;

  constructor(store, choice) {
    this.store = store;
    this.choice = choice;
    this.bar = setUpJobBar(store, choice);
    this.list = new JobList(store, choice);
    this.tabs = setUpTabs(byId('paper-tabs'), (name) => this.show(name));
    this.list.frame.hidden = true;
  }

  takeState(state) {
    if (this.#strips.size === 0) this.#begin(state.printers);
    for (const printer of state.printers) this.#takePrinter(printer, state);
    this.takeJobs([]);
  }

  #begin(printers) {
    for (const { name, paper } of printers) {
      const strip = new Strip(name, paper, this.choice);
      strip.setZoom(byId('zoom').value);
      this.#strips.set(name, strip);
      byId('strips').append(strip.frame);
    }
    byId('strips').append(this.list.frame);
    const names = [...this.#strips.keys()];
    this.tabs.offer([...names.map((name) => [name, `strip-${name}`]), [kAll, 'job-list']]);
    this.show(names.includes(kFirst) ? kFirst : names[0]);
  }

  #takePrinter(printer, { ports }) {
    const strip = this.#strips.get(printer.name);
    if (!strip) return;
    strip.paper = printer.paper;
    strip.explain(`Nothing printed on ${printer.name} yet. Point your program at ${ports.address}, port ${ports.printing}: what it prints grows here, line by line.`);
    const words = [printer.job === null ? '' : 'printing', printer.result === 0 ? '' : `fault ${printer.result}`];
    this.tabs.note(printer.name, words.filter(Boolean).join(', '));
  }

  takeJobs(jobs) {
    for (const strip of this.#strips.values()) strip.keepOnly(this.store.jobs);
    for (const job of jobs) this.#strips.get(job.printer)?.update(job);
    if (jobs.length > 0) this.#follow(jobs);
    if (!this.store.jobs.has(this.#chosen)) this.#choose(this.#newestOf(this.#shown));
    this.bar.show(this.#chosen);
    this.list.refresh();
  }

  // What begins to print comes into view, unless the reader is busy with some other paper.
  #follow(jobs) {
    const newest = jobs.reduce((a, b) => (a.revision > b.revision ? a : b));
    if (newest.printer !== this.#shown) {
      if (!byId('follow').checked || this.#shown === kAll || byId('strips').contains(document.activeElement)) return;
      this.show(newest.printer);
    }
    const last = this.#newestOf(newest.printer);
    if (newest.number === last) this.#choose(last);
  }

  #newestOf(name) {
    let newest = null;
    for (const job of this.store.jobs.values()) if (name === kAll || job.printer === name) newest = job.number;
    return newest;
  }

  show(name) {
    this.#shown = name;
    this.tabs.choose(name);
    for (const [other, strip] of this.#strips) strip.show(other === name);
    this.list.show(name === kAll);
    if (name !== kAll) this.choice.choosePrinter(name);
    this.#choose(this.#newestOf(name));
  }

  #choose(number) {
    this.#chosen = number;
    for (const strip of this.#strips.values()) strip.mark(number);
    this.list.mark(number);
    this.bar.show(number);
  }

  reveal(number) {
    const job = this.store.jobs.get(number);
    if (!job) return;
    if (this.#shown !== job.printer) this.show(job.printer);
    this.#choose(number);
    this.#strips.get(job.printer).reveal(number);
  }

  showPrinter(name) {
    if (this.#shown !== name) this.show(name);
  }

  setZoom(zoom) {
    for (const strip of this.#strips.values()) strip.setZoom(zoom);
  }
}

function setUpZoom(papers) {
  const zoom = byId('zoom');
  zoom.value = recall('zoom', 'fit');
  if (zoom.selectedIndex < 0) zoom.value = 'fit';
  zoom.addEventListener('change', () => {
    remember('zoom', zoom.value);
    papers.setZoom(zoom.value);
  });
}

function setUpFollow() {
  const follow = byId('follow');
  follow.checked = recall('follow', 'yes') === 'yes';
  follow.addEventListener('change', () => remember('follow', follow.checked ? 'yes' : 'no'));
}

export function setUpPaper(store, choice) {
  setUpFollow();
  const papers = new Papers(store, choice);
  setUpZoom(papers);
  onClick(byId('clear-jobs'), () => remove('/api/jobs'));
  store.on('state', (state) => papers.takeState(state));
  store.on('jobs', (jobs) => papers.takeJobs(jobs));
  store.on('forgotten', () => papers.takeJobs([]));
  store.on('jobs-differ', async () => store.replaceJobs(jobsIn(await get('/api/jobs').catch(() => [...store.jobs.values()]))));
  choice.on('job', (number) => papers.reveal(number));
  choice.on('printer', (name) => papers.showPrinter(name));
}

const jobsIn = (answer) => (Array.isArray(answer) ? answer : answer.jobs);
