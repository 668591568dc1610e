// A row of tabs, of which the arrow keys choose.
import { element, setAttribute, setText } from './dom.js';

class Tabs {
  #tabs = new Map();

  constructor(place, chosen) {
    this.place = place;
    this.chosen = chosen;
    place.addEventListener('keydown', (event) => this.#key(event));
  }

  /// Pairs of a name and the id of what it shows.
  offer(pairs) {
    for (const [name, controls] of pairs) {
      const note = element('span', { class: 'tab-note' });
      const tab = element('button', { type: 'button', role: 'tab', id: `tab-${name.replace(/\W/g, '-')}`, 'aria-controls': controls }, name, note);
      tab.addEventListener('click', () => this.chosen(name));
      this.#tabs.set(name, { tab, note });
      this.place.append(tab);
    }
  }

  note(name, text) { setText(this.#tabs.get(name).note, text === '' ? '' : ` · ${text}`); }

  choose(name) {
    for (const [other, { tab }] of this.#tabs) {
      setAttribute(tab, 'aria-selected', other === name);
      tab.tabIndex = other === name ? 0 : -1;
    }
  }

  #key(event) {
    const names = [...this.#tabs.keys()];
    const now = names.findIndex((name) => this.#tabs.get(name).tab === document.activeElement);
    const next = { ArrowRight: now + 1, ArrowLeft: now - 1, Home: 0, End: names.length - 1 }[event.key];
    if (next === undefined || now < 0) return;
    event.preventDefault();
    const name = names[(next + names.length) % names.length];
    this.#tabs.get(name).tab.focus();
    this.chosen(name);
  }
}

export const setUpTabs = (place, chosen) => new Tabs(place, chosen);
