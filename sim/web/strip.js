// The paper of one printer: its jobs from the oldest at the top to the newest at the print head.
import { element } from './dom.js';
import { JobFigure, kGutter } from './job_figure.js';
import { Sticking } from './sticking.js';

const kNearBottom = 48; // px
const kPadding = 28;    // px, of the strip to both sides
const kMillimetre = 96 / 25.4;
const kLargestFit = 1.25;

export class Strip {
  #figures = new Map();
  #zoom = 'fit';
  #room = 0;          // px across
  #isFollowDue = false;
  #list = element('ol', { class: 'jobs' });
  #empty = element('p', { class: 'empty' });
  #newest = element('button', { type: 'button', class: 'newest', hidden: true }, 'New paper below');

  constructor(name, paper, choice) {
    this.name = name;
    this.paper = paper;
    this.choice = choice;
    this.element = element('div', { class: 'strip', role: 'tabpanel', id: `strip-${name}`, tabIndex: 0, 'aria-labelledby': `tab-${name}` },
      this.#empty, this.#list, element('div', { class: 'print-head', 'aria-hidden': 'true' }, element('span', {}, 'print head')));
    this.#newest.addEventListener('click', () => { this.sticking.sticks = true; this.follow(); });
    this.frame = element('div', { class: 'strip-frame', hidden: true }, this.element, this.#newest);
    this.sticking = new Sticking(this.element, kNearBottom);
    this.element.addEventListener('scroll', () => this.#scrolled(), { passive: true });
    this.near = new IntersectionObserver((entries) => this.#cameNear(entries), { root: this.element, rootMargin: '800px 0px' });
    new ResizeObserver(() => this.#resize()).observe(this.element);
  }

  /// What to say while there is no job.
  explain(text) {
    if (this.#empty.textContent !== text) this.#empty.textContent = text;
    this.#empty.hidden = this.#figures.size > 0;
  }

  update(job) {
    let figure = this.#figures.get(job.number);
    if (!figure) {
      figure = new JobFigure(job, this);
      this.#figures.set(job.number, figure);
      this.#insert(figure);
      this.near.observe(figure.element);
    }
    figure.update(job);
    this.#empty.hidden = true;
    if (!this.sticking.sticks) this.#newest.hidden = false;
    this.follow();
  }

  /// Takes away the jobs that are not known any more.
  keepOnly(jobs) {
    for (const [number, figure] of this.#figures) {
      if (jobs.has(number)) continue;
      this.near.unobserve(figure.element);
      figure.drop();
      this.#figures.delete(number);
    }
    this.#empty.hidden = this.#figures.size > 0;
  }

  #insert(figure) {
    const after = [...this.#list.children].reverse().find((child) => Number(child.dataset.job) < figure.job.number);
    if (after) after.after(figure.element);
    else this.#list.prepend(figure.element);
  }

  setZoom(zoom) {
    this.#zoom = zoom;
    this.#resize();
  }

  /// In screen pixels per millimetre of paper.
  get scale() {
    if (this.#zoom !== 'fit') return kMillimetre * Number(this.#zoom);
    const room = this.#room - kPadding - kGutter;
    const width = Math.max(...[...this.#figures.values()].map((figure) => figure.widthInMillimetres), this.paper.width_mm);
    return Math.max(Math.min(room / width, kMillimetre * kLargestFit), kMillimetre * 0.3);
  }

  #resize() {
    if (this.frame.hidden) return;
    this.#room = this.element.clientWidth;
    this.#layOut();
    this.follow();
  }

  #layOut() {
    const scale = this.scale;
    for (const figure of this.#figures.values()) figure.resize(scale);
  }

  /// A paper's picture turned out wider than the paper is said to be.
  pictureCame(figure, isWider) {
    if (isWider) this.#layOut();
    else figure.resize(this.scale);
    this.follow();
  }

  show(isShown) {
    this.frame.hidden = !isShown;
    if (isShown) this.#resize();
  }

  /// Keeps the print head in view while the reader is there.
  follow() {
    if (!this.sticking.sticks || this.#isFollowDue) return;
    this.#isFollowDue = true;
    requestAnimationFrame(() => {
      this.#isFollowDue = false;
      this.sticking.toEnd();
    });
  }

  #scrolled() {
    this.sticking.scrolled();
    if (this.sticking.sticks) this.#newest.hidden = true;
  }

  #cameNear(entries) {
    for (const { target, isIntersecting } of entries) this.#figures.get(Number(target.dataset.job))?.setNear(isIntersecting);
  }

  mark(number) {
    for (const figure of this.#figures.values()) figure.mark(figure.job.number === number);
  }

  /// Brings a job's paper into view and points at it.
  reveal(number) {
    const figure = this.#figures.get(number);
    if (!figure) return false;
    this.sticking.sticks = false;
    figure.element.scrollIntoView({ block: 'nearest', behavior: 'instant' });
    this.#scrolled();
    figure.point();
    return true;
  }
}

