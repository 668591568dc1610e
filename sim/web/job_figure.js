// The paper of one job on its strip: a picture in true proportions, and beside it what job it is.
import { jobPath } from './service.js';
import { element, setAttribute, setText } from './dom.js';
import { clock, jobState, length } from './text.js';

export const kGutter = 104; // px, for the text beside the paper
const kMillimetre = 96 / 25.4;

export class JobFigure {
  #title = element('b');
  #length = element('span');
  #time = element('span');
  #state = element('span');
  #image = element('img', { alt: '', draggable: false, decoding: 'async' });
  #size = null;        // of the picture in mm, once it came
  #isNear = false;
  #wanted = 0;         // the revision that is to be shown
  #asked = 0;          // and the one on its way or shown
  #isLoading = false;
  #pointing = 0;

  constructor(job, strip) {
    this.job = job;
    this.strip = strip;
    this.chooser = element('button', { type: 'button', class: 'job-name' }, this.#title, this.#length, this.#time, this.#state);
    this.element = element('li', { class: 'job', 'data-job': String(job.number) },
      element('figure', {}, element('div', { class: 'sheet' }, this.#image), element('figcaption', {}, this.chooser)));
    this.element.addEventListener('click', () => strip.choice.showJob(job.number));
    this.#image.addEventListener('load', () => this.#came());
    this.#image.addEventListener('error', () => this.#failed());
  }

  update(job) {
    this.job = job;
    setText(this.#title, `Job ${job.number}`);
    setText(this.#length, length(job.length_mm));
    setText(this.#time, clock(job.began_at));
    setText(this.#state, jobState(job));
    setAttribute(this.element, 'data-continues', job.continues ? 'yes' : 'no');
    setAttribute(this.element, 'data-end', job.end);
    setAttribute(this.element, 'data-finished', job.finished ? 'yes' : 'no');
    this.#image.alt = `Paper of job ${job.number} on ${job.printer}, ${length(job.length_mm)}, ${jobState(job)}`;
    this.#wanted = job.revision;
    if (this.#size === null) this.resize(this.strip.scale);
    this.#load();
  }

  setNear(isNear) {
    this.#isNear = isNear;
    if (isNear) {
      this.#load();
    } else if (!this.#isLoading) {
      this.#image.removeAttribute('src');
      this.#asked = 0;
    }
  }

  // One request is on its way at a time; what changed meanwhile is fetched after it.
  #load() {
    if (!this.#isNear || this.#isLoading || this.#asked === this.#wanted) return;
    this.#asked = this.#wanted;
    this.#isLoading = true;
    this.#image.src = `${jobPath(this.job.number)}/paper.svg?form=strip&revision=${this.#wanted}`;
  }

  #came() {
    this.#isLoading = false;
    const before = this.#size?.width ?? 0;
    this.#size = { width: this.#image.naturalWidth / kMillimetre, height: this.#image.naturalHeight / kMillimetre };
    this.strip.pictureCame(this, this.#size.width > Math.max(before, this.strip.paper.width_mm));
    if (this.#isNear) this.#load();
    else this.setNear(false);
  }

  #failed() {
    this.#isLoading = false;
    if (this.#asked !== this.#wanted) this.#load();
  }

  get widthInMillimetres() { return this.#size?.width ?? 0; }

  resize(scale) {
    const { width, height } = this.#size ?? { width: this.strip.paper.width_mm, height: this.job.length_mm };
    this.#image.style.width = `${width * scale}px`;
    this.#image.style.height = `${height * scale}px`;
  }

  mark(isChosen) { setAttribute(this.chooser, 'aria-pressed', isChosen); }

  /// Draws the eye to the job for a moment.
  point() {
    this.element.classList.remove('found');
    requestAnimationFrame(() => this.element.classList.add('found'));
    clearTimeout(this.#pointing);
    this.#pointing = setTimeout(() => this.element.classList.remove('found'), 2500);
  }

  drop() {
    this.#isNear = false;
    this.element.remove();
  }
}
