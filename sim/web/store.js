// What the page knows of the simulator: its state, its exchanges and its print jobs.
import { Topics } from './topics.js';

/// Topics: "state", "exchanges" (those that changed), "jobs" (those that changed), "jobs-differ" (some
/// are gone), "forgotten" (all are), "link" (whether the simulator is there).
export class Store extends Topics {
  #byNumber = new Map();

  state = null;
  /// In the order of their numbers.
  exchanges = [];
  /// By number, in the order of numbers.
  jobs = new Map();
  revision = 0;
  isLinked = false;

  exchange(number) { return this.#byNumber.get(number); }

  printer(name) { return this.state?.printers.find((printer) => printer.name === name); }

  setLinked(isLinked) {
    this.isLinked = isLinked;
    this.tell('link', isLinked);
  }

  takeState(state) {
    if (this.state !== null && !this.isSameRun(state)) this.forget();
    this.state = state;
    this.#dropOldJobs(state.jobs);
    this.#dropOldExchanges(state.traffic);
    this.tell('state', state);
  }

  /// Whether jobs and exchanges that are known belong to the same run of the simulator, without a
  /// reset in between.
  isSameRun(state) {
    return this.state.started_at === state.started_at && this.state.epoch === state.epoch;
  }

  forget() {
    this.#byNumber.clear();
    this.exchanges = [];
    this.jobs.clear();
    this.revision = 0;
    this.tell('forgotten');
  }

  takeExchanges(exchanges) {
    let isSorted = true;
    for (const exchange of exchanges) {
      const known = this.#byNumber.get(exchange.number);
      if (known) {
        // The lists hold the object itself.
        Object.assign(known, exchange);
      } else {
        const last = this.exchanges.at(-1);
        isSorted &&= last === undefined || last.number < exchange.number;
        this.#byNumber.set(exchange.number, exchange);
        this.exchanges.push(exchange);
      }
    }
    if (!isSorted) this.exchanges.sort((a, b) => a.number - b.number);
    this.tell('exchanges', exchanges);
  }

  /// Where the live feed goes on: exchanges that were not yet answered come again.
  lastSettledExchange() {
    const pending = this.exchanges.find((exchange) => exchange.outcome === 'pending');
    return pending ? pending.number - 1 : this.exchanges.at(-1)?.number ?? 0;
  }

  takeJobs(jobs) {
    for (const job of jobs) {
      const isNewest = [...this.jobs.keys()].at(-1) ?? 0;
      this.jobs.set(job.number, job);
      if (job.number < isNewest) this.jobs = new Map([...this.jobs].sort(([a], [b]) => a - b));
      this.revision = Math.max(this.revision, job.revision);
    }
    this.tell('jobs', jobs);
  }

  /// The simulator's whole list, after jobs between others were removed.
  replaceJobs(jobs) {
    this.jobs = new Map(jobs.map((job) => [job.number, job]));
    this.tell('jobs', jobs);
  }

  #dropOldJobs({ oldest, count }) {
    for (const number of [...this.jobs.keys()]) {
      if (count === 0 || number < oldest) this.jobs.delete(number);
    }
    if (this.jobs.size > count) this.tell('jobs-differ');
  }

  #dropOldExchanges({ oldest, newest }) {
    const isGone = (exchange) => exchange.number < oldest || (newest < oldest && exchange.number <= newest);
    let gone = 0;
    while (gone < this.exchanges.length && isGone(this.exchanges[gone])) {
      this.#byNumber.delete(this.exchanges[gone].number);
      ++gone;
    }
    if (gone === 0) return;
    this.exchanges = this.exchanges.slice(gone);
    this.tell('exchanges', []);
  }
}
