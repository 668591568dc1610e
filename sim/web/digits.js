// The read-out of a shop scale: digits of seven segments.
import { drawing, setAttribute } from './dom.js';

const kSegments = {
  a: '2.5,1 17.5,1 13.8,5 6.2,5',
  b: '18.6,1.8 18.6,17 16.8,17.8 14.6,15.6 14.6,5.8',
  c: '16.8,18.2 18.6,19 18.6,34.2 14.6,30.2 14.6,20.4',
  d: '2.5,35 6.2,31 13.8,31 17.5,35',
  e: '1.4,34.2 1.4,19 3.2,18.2 5.4,20.4 5.4,30.2',
  f: '1.4,1.8 5.4,5.8 5.4,15.6 3.2,17.8 1.4,17',
  g: '4.2,18 6.4,16 13.6,16 15.8,18 13.6,20 6.4,20',
};

const kLit = {
  0: 'abcdef', 1: 'bc', 2: 'abged', 3: 'abgcd', 4: 'fgbc', 5: 'afgcd', 6: 'afgedc', 7: 'abc', 8: 'abcdefg', 9: 'abcdfg',
  '-': 'g', '‾': 'a', _: 'd', E: 'afged', r: 'eg', ' ': '',
};

const kCells = 6;
const kPitch = 26;

class Cell {
  constructor(index) {
    this.segments = Object.entries(kSegments).map(([name, points]) => ({ name, node: drawing('polygon', { points }) }));
    this.dot = drawing('circle', { cx: 22, cy: 33.2, r: 2.3 });
    this.node = drawing('g', { transform: `translate(${index * kPitch} 0)` }, ...this.segments.map(({ node }) => node), this.dot);
  }

  show({ character, dot }) {
    const lit = kLit[character] ?? '';
    for (const { name, node } of this.segments) setAttribute(node, 'class', lit.includes(name) ? 'lit' : 'dark');
    setAttribute(this.dot, 'class', dot ? 'lit' : 'dark');
  }
}

function cellsOf(text) {
  const cells = [];
  for (const character of text) {
    if (character === '.' && cells.length > 0) cells.at(-1).dot = true;
    else cells.push({ character, dot: false });
  }
  while (cells.length < kCells) cells.unshift({ character: ' ', dot: false });
  return cells.slice(-kCells);
}

/// Draws into the place; show() takes digits, point, minus, "‾" and "_" for the upper and lower bars.
export class Digits {
  #cells = Array.from({ length: kCells }, (_, index) => new Cell(index));

  constructor(place) {
    const group = drawing('g', { transform: 'skewX(-5)' }, ...this.#cells.map(({ node }) => node));
    this.picture = drawing('svg', { viewBox: `-5 -1 ${kCells * kPitch + 4} 38`, role: 'img' }, group);
    place.append(this.picture);
  }

  show(text, inWords) {
    setAttribute(this.picture, 'aria-label', inWords);
    cellsOf(text).forEach((cell, index) => this.#cells[index].show(cell));
  }
}
