// Which printer, job and exchange the page looks at: the parts of the page agree on it here.
import { Topics } from './topics.js';

/// Topics: "printer" (a name), "job" (the number of one to be shown), "exchange" (a number or null),
/// "jobFilter" (a number or null), "view".
export class Choice extends Topics {
  printer = null;
  exchange = null;

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
