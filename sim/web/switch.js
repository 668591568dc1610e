// A switch that says in words how it stands.
import { element, setAttribute, setText } from './dom.js';
import { attempt } from './problem.js';

/// A switch named `name` that calls change(isOn) when it is used, and shows what show(isOn) tells.
export class Switch {
  #word = element('span', { class: 'switch-word', 'aria-hidden': 'true' }, 'off');

  constructor(name, change) {
    this.element = element('button', { type: 'button', class: 'switch', role: 'switch', 'aria-checked': 'false' },
      element('span', { class: 'switch-knob', 'aria-hidden': 'true' }), element('span', {}, name), this.#word);
    this.element.addEventListener('click', () => attempt(this.element, () => change(!this.isOn)));
  }

  get isOn() { return this.element.getAttribute('aria-checked') === 'true'; }

  show(isOn) {
    setAttribute(this.element, 'aria-checked', isOn);
    setText(this.#word, isOn ? 'on' : 'off');
  }
}
