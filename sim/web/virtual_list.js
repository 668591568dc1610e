// A list of any length of which only the rows in view are in the document.
import { element, setAttribute } from './dom.js';
import { Sticking } from './sticking.js';

const kSpare = 6;  // rows kept above and below the view

/// One row in view. `fill` puts an entry into it.
class Row {
  constructor(columns) {
    this.cells = columns.map((column) => element('span', { class: `cell ${column.class}`, role: 'gridcell' }));
    this.element = element('div', { class: 'list-row', role: 'row' }, ...this.cells);
  }
}

/// Options: id, label, columns ([{name, class}]), rowHeight, keyOf(entry), idOf(key), fill(cells, entry, row),
/// chosen(entry), opened(entry), empty (text when there are no rows).
export class VirtualList {
  #entries = [];
  #rows = [];
  #chosenKey = null;
  #isDue = false;

  constructor(options) {
    this.options = options;
    const heads = options.columns.map(({ name, class: kind }) => element('span', { class: `cell ${kind}`, role: 'columnheader' }, name));
    this.body = element('div', { class: 'list-body', role: 'rowgroup' });
    this.empty = element('p', { class: 'empty' }, options.empty ?? '');
    this.view = element('div', { class: 'list-view', tabIndex: 0, role: 'grid', 'aria-label': options.label, id: options.id },
      element('div', { class: 'list-row list-head', role: 'row', 'aria-rowindex': '1' }, ...heads), this.empty, this.body);
    this.sticking = new Sticking(this.view, options.rowHeight);
    this.view.addEventListener('scroll', () => this.#scrolled(), { passive: true });
    this.view.addEventListener('keydown', (event) => this.#key(event));
    this.body.addEventListener('click', (event) => this.#click(event));
    new ResizeObserver(() => this.refresh()).observe(this.view);
  }

  get entries() { return this.#entries; }

  show(entries) {
    this.#entries = entries;
    this.refresh();
  }

  /// Draws in the next frame, however often it is asked for before.
  refresh() {
    if (this.#isDue) return;
    this.#isDue = true;
    requestAnimationFrame(() => {
      this.#isDue = false;
      this.#draw();
    });
  }

  setEmptyText(text) {
    if (this.empty.textContent !== text) this.empty.textContent = text;
  }

  mark(key) {
    this.#chosenKey = key;
    this.refresh();
  }

  reveal(key) {
    const index = this.#indexOf(key);
    if (index < 0) return false;
    this.sticking.sticks = false;
    this.#draw();
    const top = index * this.options.rowHeight;
    const room = this.view.clientHeight - this.options.rowHeight;
    if (top < this.view.scrollTop) this.view.scrollTop = top;
    else if (top + this.options.rowHeight > this.view.scrollTop + room) this.view.scrollTop = top + this.options.rowHeight - room;
    this.#scrolled();
    return true;
  }

  #indexOf(key) { return this.#entries.findIndex((entry) => this.options.keyOf(entry) === key); }

  #scrolled() {
    this.sticking.scrolled();
    this.refresh();
  }

  #draw() {
    const { rowHeight } = this.options;
    const count = this.#entries.length;
    this.body.style.height = `${count * rowHeight}px`;
    this.empty.hidden = count > 0;
    setAttribute(this.view, 'aria-rowcount', count + 1);
    this.sticking.toEnd();
    const first = Math.max(0, Math.floor(this.view.scrollTop / rowHeight) - kSpare);
    const last = Math.min(count, Math.ceil((this.view.scrollTop + this.view.clientHeight) / rowHeight) + kSpare);
    this.#haveRows(Math.max(0, last - first));
    this.#rows.forEach((row, offset) => this.#fill(row, first + offset));
    this.#pointAtChosen(first, last);
  }

  #haveRows(count) {
    while (this.#rows.length < count) {
      const row = new Row(this.options.columns);
      this.#rows.push(row);
      this.body.append(row.element);
    }
    while (this.#rows.length > count) this.#rows.pop().element.remove();
  }

  #fill(row, index) {
    const entry = this.#entries[index];
    const key = this.options.keyOf(entry);
    row.element.style.transform = `translateY(${index * this.options.rowHeight}px)`;
    row.element.dataset.index = index;
    row.element.id = this.options.idOf(key);
    setAttribute(row.element, 'aria-rowindex', index + 2);
    setAttribute(row.element, 'aria-selected', key === this.#chosenKey);
    this.options.fill(row.cells, entry, row.element);
  }

  #pointAtChosen(first, last) {
    const index = this.#chosenKey === null ? -1 : this.#indexOf(this.#chosenKey);
    if (index >= first && index < last) setAttribute(this.view, 'aria-activedescendant', this.options.idOf(this.#chosenKey));
    else this.view.removeAttribute('aria-activedescendant');
  }

  #click(event) {
    const row = event.target.closest('.list-row');
    const entry = this.#entries[Number(row?.dataset.index)];
    if (entry === undefined) return;
    this.options.chosen(entry);
    this.options.opened(entry);
  }

  #key(event) {
    if (event.target !== this.view || event.ctrlKey || event.altKey || event.metaKey) return;
    const now = this.#chosenKey === null ? -1 : this.#indexOf(this.#chosenKey);
    const last = this.#entries.length - 1;
    const page = Math.max(1, Math.floor(this.view.clientHeight / this.options.rowHeight) - 2);
    const before = now < 0 ? last + 1 : now;
    const next = { ArrowUp: before - 1, ArrowDown: now < 0 ? last : now + 1, PageUp: before - page, PageDown: now + page, Home: 0, End: last }[event.key];
    if (event.key === 'Enter' && now >= 0) this.options.opened(this.#entries[now]);
    else if (next !== undefined && last >= 0) this.#step(Math.max(0, Math.min(last, next)));
    else return;
    event.preventDefault();
  }

  #step(index) {
    const entry = this.#entries[index];
    this.options.chosen(entry);
    this.reveal(this.options.keyOf(entry));
  }
}
