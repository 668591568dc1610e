// The table of a printer's settings; each value can be changed.
import { patch, printerPath } from './service.js';
import { element, setField, watchTyping } from './dom.js';
import { numberIn } from './number_field.js';
import { attempt } from './problem.js';

export class SettingsTable {
  #fields = new Map();

  constructor(body, current) {
    this.body = body;
    this.current = current;
  }

  show(settings) {
    for (const [name, value] of Object.entries(settings)) {
      if (!this.#fields.has(name)) this.#add(name);
      setField(this.#fields.get(name), value);
    }
  }

  #add(name) {
    const field = element('input', { type: 'number', step: '1', 'aria-label': name });
    watchTyping(field);
    field.addEventListener('change', async () => {
      const settings = () => ({ settings: { [name]: numberIn(field, name, 'Type a whole number.') } });
      if (await attempt(field, () => patch(printerPath(this.current()), settings()))) field.dataset.edited = 'no';
    });
    this.#fields.set(name, field);
    this.body.append(element('tr', {}, element('th', { scope: 'row' }, name), element('td', {}, field)));
  }
}
