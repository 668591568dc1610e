// All jobs of all printers, in a list.
import { element } from './dom.js';
import { clock, jobState, length } from './text.js';
import { VirtualList } from './virtual_list.js';

const kColumns = [
  { name: 'Job', class: 'cell-number' },
  { name: 'Printer', class: 'cell-printer' },
  { name: 'Time', class: 'cell-time' },
  { name: 'Length', class: 'cell-length' },
  { name: 'State', class: 'cell-state' },
];

function fill(cells, job) {
  const texts = [job.number, job.printer, clock(job.began_at), length(job.length_mm), jobState(job)];
  cells.forEach((cell, index) => { cell.textContent = texts[index]; });
}

export class JobList {
  constructor(store, choice) {
    this.store = store;
    this.list = new VirtualList({
      id: 'job-rows',
      label: 'All jobs',
      columns: kColumns,
      rowHeight: 28,
      keyOf: (job) => job.number,
      idOf: (number) => `job-row-${number}`,
      fill,
      chosen: (job) => { this.list.mark(job.number); this.onChosen?.(job.number); },
      opened: (job) => choice.showJob(job.number),
      empty: 'No jobs yet.',
    });
    this.frame = element('div', { class: 'list job-list', id: 'job-list', role: 'tabpanel', 'aria-labelledby': 'tab-All-jobs' }, this.list.view);
  }

  show(isShown) {
    this.frame.hidden = !isShown;
    this.refresh();
  }

  refresh() {
    if (!this.frame.hidden) this.list.show([...this.store.jobs.values()]);
  }

  mark(number) { this.list.mark(number); }
}
