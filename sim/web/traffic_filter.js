// Which exchanges are listed.
import { byId, setText } from './dom.js';
import { isError } from './text.js';

// All that the filter looks into, made once for each state of an exchange.
const texts = new WeakMap();

function textOf(exchange) {
  const known = texts.get(exchange);
  if (known?.outcome === exchange.outcome) return known.text;
  const text = [exchange.number, exchange.port, exchange.client, exchange.command, exchange.request, exchange.reply,
    exchange.result, exchange.result_text, exchange.outcome, ...exchange.faults].join('\n').toLowerCase();
  texts.set(exchange, { outcome: exchange.outcome, text });
  return text;
}

export class TrafficFilter {
  #words = [];
  #port = '';
  #errorsOnly = false;
  #job = null;

  constructor(choice, changed) {
    this.changed = changed;
    const read = () => { this.#read(); changed(); };
    for (const id of ['filter-text', 'filter-port', 'filter-errors']) byId(id).addEventListener('input', read);
    byId('filter-job').addEventListener('click', () => {
      choice.filterByJob(null);
      byId('filter-text').focus();
    });
    choice.on('jobFilter', (number) => this.#takeJob(number));
  }

  #read() {
    this.#words = byId('filter-text').value.toLowerCase().split(/\s+/).filter(Boolean);
    this.#port = byId('filter-port').value;
    this.#errorsOnly = byId('filter-errors').checked;
  }

  #takeJob(number) {
    this.#job = number;
    const chip = byId('filter-job');
    chip.hidden = number === null;
    setText(chip, `Job ${number} ×`);
    chip.setAttribute('aria-label', `Only job ${number}; press to list all again`);
    this.changed();
  }

  get isEmpty() { return this.#words.length === 0 && this.#port === '' && !this.#errorsOnly && this.#job === null; }

  takes(exchange) {
    return (this.#job === null || exchange.job === this.#job) && (this.#port === '' || exchange.port === this.#port) &&
      (!this.#errorsOnly || isError(exchange)) && this.#words.every((word) => textOf(exchange).includes(word));
  }

  clear() {
    byId('filter-text').value = '';
    byId('filter-port').value = '';
    byId('filter-errors').checked = false;
    this.#read();
    this.#takeJob(null);
  }
}
