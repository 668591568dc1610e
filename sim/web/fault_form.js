// The form for a fault of any kind.
import { post } from './service.js';
import { commandsOf } from './commands.js';
import { byId, element } from './dom.js';
import { isCarriedOutAtFirst, kKinds } from './fault_kinds.js';
import { numberIn, numberOrNull } from './number_field.js';
import { attempt } from './problem.js';

const option = (value, text) => element('option', { value }, text);

function unitField(input, unit) {
  return element('span', { class: 'unit-field' }, input, element('span', {}, unit));
}

class FaultForm {
  #kind = element('select', { id: 'fault-kind' }, ...Object.entries(kKinds).map(([kind, { name }]) => option(kind, name)));
  #port = element('select', { id: 'fault-port' }, option('both', 'both'), option('weighing', 'weighing'), option('printing', 'printing'));
  #command = element('select', { id: 'fault-command' });
  #own = element('div', { class: 'fields own' });
  #isCounted = element('input', { type: 'radio', name: 'fault-times', id: 'fault-counted', checked: true });
  #isEndless = element('input', { type: 'radio', name: 'fault-times', id: 'fault-endless' });
  #times = element('input', { type: 'number', id: 'fault-times', min: 1, step: 1, value: '1', 'aria-label': 'Number of exchanges' });
  #isCarriedOut = element('input', { type: 'checkbox', id: 'fault-carried-out', checked: true });
  #inputs = new Map();

  constructor(form) {
    this.ofExchanges = [element('label', {}, 'Command ', this.#command), this.#howOften(),
      element('label', { class: 'check' }, this.#isCarriedOut, ' The command is carried out all the same')];
    const [command, ...acting] = this.ofExchanges;
    form.append(element('label', {}, 'Fault ', this.#kind), element('label', {}, 'Port ', this.#port), command, this.#own, ...acting,
      element('div', { class: 'buttons' }, element('button', { class: 'key' }, 'Make the fault')));
    this.#kind.addEventListener('change', () => this.#showKind());
    this.#port.addEventListener('change', () => this.#showCommands());
    this.#times.addEventListener('input', () => { this.#isCounted.checked = true; });
    form.addEventListener('submit', (event) => {
      event.preventDefault();
      attempt(form, () => post('/api/faults', this.#rule()));
    });
    this.#showCommands();
    this.#showKind();
  }

  #howOften() {
    return element('fieldset', { class: 'how-often' }, element('legend', {}, 'How often'),
      element('label', { class: 'check' }, this.#isCounted, ' the next'), this.#times,
      element('label', { class: 'check' }, this.#isEndless, ' until switched off'));
  }

  #showCommands() {
    const before = this.#command.value;
    this.#command.replaceChildren(option('*', 'all'), ...commandsOf(this.#port.value).map((name) => option(name, name)));
    this.#command.value = before;
    if (this.#command.selectedIndex < 0) this.#command.value = '*';
  }

  #showKind() {
    const kind = kKinds[this.#kind.value];
    this.#inputs.clear();
    const fields = kind.fields.map((field) => this.#numberField(field));
    const switches = (kind.switches ?? []).map((one) => this.#switch(one));
    this.#own.replaceChildren(...fields, ...switches);
    this.#own.hidden = fields.length + switches.length === 0;
    for (const node of this.ofExchanges) node.hidden = kind.isOfConnections === true;
    this.#isCarriedOut.checked = isCarriedOutAtFirst(this.#kind.value);
  }

  #numberField({ member, name, unit, min, initial, hint }) {
    const input = element('input', { type: 'number', id: `fault-${member}`, min, step: 1, value: initial === undefined ? '' : String(initial) });
    if (hint !== undefined) input.placeholder = hint;
    this.#inputs.set(member, () => (initial === undefined ? numberOrNull(input, name, 'Type a number, or nothing.') : numberIn(input, name, 'Type a number.')));
    return element('label', {}, `${name} `, unitField(input, unit));
  }

  #switch({ member, name, initial }) {
    const input = element('input', { type: 'checkbox', id: `fault-${member}`, checked: initial });
    this.#inputs.set(member, () => input.checked);
    return element('label', { class: 'check' }, input, ` ${name}`);
  }

  #onExchanges() {
    const times = this.#isEndless.checked ? null
      : numberIn(this.#times, 'The number of exchanges', 'Type a number, or choose "until switched off".');
    return { command: this.#command.value, times, carried_out: this.#isCarriedOut.checked };
  }

  #rule() {
    const kind = this.#kind.value;
    const rule = { kind, port: this.#port.value };
    if (!kKinds[kind].isOfConnections) Object.assign(rule, this.#onExchanges());
    for (const [member, valueOf] of this.#inputs) {
      const value = valueOf();
      if (value !== null) rule[member] = value;
    }
    return rule;
  }
}

export function setUpFaultForm() { return new FaultForm(byId('fault-form')); }
