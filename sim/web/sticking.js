// Whether a scrolled view stays at its end while it grows.

/// The end is kept until the reader scrolls up, and again once the end is reached. `near` is how many
/// pixels from the end still count as being there.
export class Sticking {
  #top = 0;
  sticks = true;

  constructor(view, near) {
    this.view = view;
    this.near = near;
  }

  /// To be called at each scroll. What grows fires none, but may have grown since the scroll, so that
  /// only a way upwards tells that the reader left.
  scrolled() {
    const { scrollTop, scrollHeight, clientHeight } = this.view;
    if (scrollHeight - scrollTop - clientHeight < this.near) this.sticks = true;
    else if (scrollTop < this.#top) this.sticks = false;
    this.#top = scrollTop;
  }

  toEnd() {
    if (!this.sticks) return;
    this.view.scrollTop = this.view.scrollHeight;
    this.#top = this.view.scrollTop;
  }
}
