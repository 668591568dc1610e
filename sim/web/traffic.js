// Every exchange between programs and the simulator.
import { remove } from './service.js';
import { copyText } from './clipboard.js';
import { byId, say, setAttribute, setText } from './dom.js';
import { showExchange } from './exchange.js';
import { onClick } from './problem.js';
import { clockWithMilliseconds, duration, exchangeAsText, outcomeAndFaults, plural, toneOf } from './text.js';
import { TrafficFilter } from './traffic_filter.js';
import { VirtualList } from './virtual_list.js';

const kColumns = [
  { name: 'Time', class: 'cell-clock' },
  { name: 'Port', class: 'cell-port' },
  { name: 'Client', class: 'cell-client' },
  { name: 'Command', class: 'cell-command' },
  { name: 'Result', class: 'cell-result' },
  { name: 'Took', class: 'cell-took' },
];

function fill(cells, exchange, row) {
  const texts = [clockWithMilliseconds(exchange.time), exchange.port, `${exchange.client} (${exchange.connection})`,
    exchange.command || '(no command)', outcomeAndFaults(exchange), duration(exchange.duration_ms)];
  cells.forEach((cell, index) => { setText(cell, texts[index]); });
  cells[4].title = texts[4];
  setAttribute(row, 'data-tone', toneOf(exchange));
}

class Traffic {
  #paused = null; // what is listed while paused

  constructor(store, choice) {
    this.store = store;
    this.choice = choice;
    this.filter = new TrafficFilter(choice, () => this.refresh());
    this.list = new VirtualList({
      id: 'traffic-rows',
      label: 'Exchanges, oldest first. Arrow keys choose one, Enter shows its paper.',
      columns: kColumns,
      rowHeight: 26,
      keyOf: (exchange) => exchange.number,
      idOf: (number) => `exchange-${number}`,
      fill,
      chosen: (exchange) => choice.chooseExchange(exchange.number),
      opened: (exchange) => { if (exchange.job !== null) choice.showJob(exchange.job); },
    });
    byId('traffic-list').append(this.list.view);
  }

  get isPaused() { return this.#paused !== null; }

  pause(isPaused) {
    this.#paused = isPaused ? this.store.exchanges.slice() : null;
    setAttribute(byId('pause'), 'aria-pressed', isPaused);
    setText(byId('pause'), isPaused ? 'Resume' : 'Pause');
    this.refresh();
  }

  forget() {
    if (this.isPaused) this.#paused = [];
    this.choice.chooseExchange(null);
    this.refresh();
  }

  refresh() {
    const all = this.#paused ?? this.store.exchanges;
    const shown = this.filter.isEmpty ? all : all.filter((exchange) => this.filter.takes(exchange));
    this.list.show(shown);
    this.#count(shown.length, all.length);
    this.list.setEmptyText(all.length > 0 ? 'No exchange fits the filter.' : this.#whyNothing());
  }

  #count(shown, all) {
    const text = shown === all ? plural(all, 'exchange') : `${shown} of ${plural(all, 'exchange')}`;
    const newest = this.#paused?.at(-1)?.number ?? 0;
    const waiting = this.isPaused ? this.store.exchanges.filter(({ number }) => number > newest).length : 0;
    setText(byId('traffic-count'), this.isPaused ? `${text}, paused, ${waiting} waiting` : text);
    setAttribute(byId('traffic-count'), 'data-tone', this.isPaused ? 'wait' : 'plain');
  }

  #whyNothing() {
    const ports = this.store.state?.ports;
    if (!ports) return 'Waiting for the simulator.';
    return `Nothing yet. Requests appear here as soon as a program connects to ${ports.address}, port ${ports.weighing} (weighing) or ${ports.printing} (printing).`;
  }

  /// Brings an exchange into view, whatever was filtered.
  reveal(number) {
    if (!this.store.exchange(number)) return;
    if (this.isPaused) this.pause(false);
    if (!this.filter.takes(this.store.exchange(number))) this.filter.clear();
    this.refresh();
    this.choice.chooseExchange(number);
    this.list.reveal(number);
  }
}

function setUpButtons(traffic, store) {
  byId('pause').addEventListener('click', () => traffic.pause(!traffic.isPaused));
  onClick(byId('copy-shown'), async () => {
    const shown = traffic.list.entries;
    await copyText(shown.map(exchangeAsText).join('\n\n'));
    say(`Copied ${plural(shown.length, 'exchange')}.`);
  });
  onClick(byId('clear-traffic'), async () => {
    await remove('/api/traffic');
    if (traffic.isPaused) traffic.forget();
  });
  byId('last-error').addEventListener('click', () => {
    traffic.choice.view('traffic');
    traffic.reveal(store.state.traffic.last_error);
  });
}

export function setUpTraffic(store, choice) {
  const traffic = new Traffic(store, choice);
  setUpButtons(traffic, store);
  const details = showExchange(store, choice);
  let isDue = false;
  store.on('exchanges', (changed) => {
    if (changed.some(({ number }) => number === choice.exchange) || (choice.exchange !== null && !store.exchange(choice.exchange))) details();
    if (isDue) return;
    isDue = true;
    requestAnimationFrame(() => { isDue = false; traffic.refresh(); });
  });
  store.on('state', () => { if (store.exchanges.length === 0) traffic.refresh(); });
  store.on('forgotten', () => traffic.forget());
  choice.on('exchange', (number) => { traffic.list.mark(number); details(); });
  choice.on('jobFilter', () => choice.view('traffic'));
}
