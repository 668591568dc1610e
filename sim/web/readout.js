// What the scale shows to its operator.
import { Digits } from './digits.js';
import { byId, element, setAttribute, setText } from './dom.js';

const kWords = {
  stable: 'stable',
  moving: 'moving',
  'over load': 'over load: too heavy',
  'under load': 'under load: below zero',
  invalid: 'no valid weight',
  disconnected: 'not connected',
};

const kTareKinds = { key: 'by key', preset: 'preset' };

function digitsOf({ state, display }) {
  if (state === 'over load') return '‾‾‾‾‾‾';
  if (state === 'under load') return '______';
  return display;
}

class Lamp {
  constructor(id, name) {
    this.node = byId(id);
    this.word = element('span', { class: 'unseen' });
    this.node.append(element('span', { class: 'lamp-light', 'aria-hidden': 'true' }), name, this.word);
  }

  show(isLit) {
    setAttribute(this.node, 'data-lit', isLit ? 'yes' : 'no');
    setText(this.word, isLit ? ': on' : ': off');
  }
}

export class Readout {
  #digits = new Digits(byId('digits'));
  #stable = new Lamp('lamp-stable', 'Stable');
  #zero = new Lamp('lamp-zero', 'Zero');
  #net = new Lamp('lamp-net', 'Net');
  #said = '';

  show({ reading, unit }) {
    const word = kWords[reading.state] ?? reading.state;
    const isWeight = reading.state === 'stable' || reading.state === 'moving';
    const hasTare = isWeight && reading.tare_kind !== 'none';
    this.#digits.show(digitsOf(reading), isWeight ? `${reading.net_kg} ${unit}` : word);
    setText(byId('scale-unit'), unit);
    setText(byId('scale-word'), word);
    setAttribute(byId('scale-word'), 'data-tone', isWeight ? 'good' : 'bad');
    setText(byId('tare-line'), hasTare
      ? `Tare ${reading.tare_kg} ${unit}, ${kTareKinds[reading.tare_kind]} · gross ${reading.gross_kg} ${unit}` : 'No tare');
    this.#stable.show(isWeight && reading.stable);
    this.#zero.show(isWeight && reading.zero);
    this.#net.show(hasTare);
    this.#say(isWeight, reading, unit, word);
  }

  // A weight that moves is not read aloud, only what it comes to.
  #say(isWeight, reading, unit, word) {
    if (reading.state === 'moving') return;
    const text = isWeight ? `${reading.net_kg} ${unit}` : word;
    if (text === this.#said) return;
    this.#said = text;
    setText(byId('scale-says'), text);
  }
}
