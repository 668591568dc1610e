// The faults on the wire that are in force.
import { post, remove } from './service.js';
import { byId, element, setAttribute, setText } from './dom.js';
import { setUpFaultForm } from './fault_form.js';
import { kPresets, remainingInWords, ruleInWords } from './fault_kinds.js';
import { onClick } from './problem.js';

class Rules {
  #rows = new Map();

  show(rules) {
    const ids = new Set(rules.map(({ id }) => id));
    for (const [id, { row }] of this.#rows) {
      if (ids.has(id)) continue;
      row.remove();
      this.#rows.delete(id);
    }
    for (const rule of rules) this.#showOne(rule);
    setText(byId('wire-count'), rules.length === 0 ? 'none' : `${rules.length} in force`);
    setAttribute(byId('wire-count'), 'data-tone', rules.length === 0 ? 'good' : 'wait');
    byId('clear-faults').disabled = rules.length === 0;
  }

  #showOne(rule) {
    if (!this.#rows.has(rule.id)) this.#add(rule);
    const { words, remaining } = this.#rows.get(rule.id);
    setText(words, ruleInWords(rule));
    setText(remaining, remainingInWords(rule));
  }

  #add(rule) {
    const words = element('b');
    const remaining = element('span', { class: 'quiet' });
    const off = element('button', { type: 'button', class: 'plain', 'aria-label': `Switch off: ${ruleInWords(rule)}` }, 'Switch off');
    onClick(off, () => remove(`/api/faults/${rule.id}`));
    const row = element('li', { class: 'group rule' }, element('div', {}, words, ' ', remaining), off);
    this.#rows.set(rule.id, { row, words, remaining });
    byId('rules').append(row);
  }
}

export function setUpFaults(store) {
  for (const { name, rule } of kPresets) {
    const button = element('button', { type: 'button' }, name);
    onClick(button, () => post('/api/faults', rule));
    byId('fault-presets').append(button);
  }
  setUpFaultForm();
  onClick(byId('clear-faults'), () => remove('/api/faults'));
  const rules = new Rules();
  store.on('state', ({ faults }) => rules.show(faults));
}
