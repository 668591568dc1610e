// Which printer, job and exchange the page looks at: the parts of the page agree on it here.

/// Topics: "printer" (a name), "job" (a number, with how it was chosen), "exchange" (a number or null),
/// "jobFilter" (a number or null), "view".
export class Choice {
  #listeners = new Map();
  printer = null;
  exchange = null;

  on(topic, listener) {
    if (!this.#listeners.has(topic)) this.#listeners.set(topic, []);
    this.#listeners.get(topic).push(listener);
  }

  tell(topic, detail) {
    for (const listener of this.#listeners.get(topic) ?? []) listener(detail);
  }

  choosePrinter(name) {
    if (this.printer === name) return;
    this.printer = name;
    this.tell('printer', name);
  }

  /// Shows a job's paper and points at it.
  showJob(number) { this.tell('job', number); }

  chooseExchange(number) {
    this.exchange = number;
    this.tell('exchange', number);
  }

  /// Lists only the requests of a job; null lists all.
  filterByJob(number) { this.tell('jobFilter', number); }

  view(name) { this.tell('view', name); }
}
