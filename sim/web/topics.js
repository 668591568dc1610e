// Telling other parts of the page what changed.

/// Listeners by topic.
export class Topics {
  #listeners = new Map();

  on(topic, listener) {
    if (!this.#listeners.has(topic)) this.#listeners.set(topic, []);
    this.#listeners.get(topic).push(listener);
  }

  tell(topic, detail) {
    for (const listener of this.#listeners.get(topic) ?? []) listener(detail);
  }
}
