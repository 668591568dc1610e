// The label stock in the printer, and what the printer believes of it.
import { patch, post, printerPath } from './service.js';
import { byId, drawing, setAttribute, setField, setText, watchTyping } from './dom.js';
import { numberOrNull } from './number_field.js';
import { attempt, onClick } from './problem.js';

const kFields = [
  ['stock-label', 'label_mm', 'The length of a label'],
  ['stock-gap', 'gap_mm', 'The length of a gap'],
  ['stock-position', 'position_mm', 'The place of the head'],
];

function stockOf() {
  const stock = { kind: byId('stock-kind').value };
  for (const [id, member, name] of kFields) {
    const field = byId(id);
    const value = numberOrNull(field, name, 'Type millimetres, as in 40 or 2.5.');
    if (value !== null) stock[member] = value;
  }
  return stock;
}

function forgetTyping() {
  for (const field of byId('stock-form').elements) field.dataset.edited = 'no';
}

function setUpForm(current) {
  const form = byId('stock-form');
  for (const field of form.querySelectorAll('input, select')) watchTyping(field);
  form.addEventListener('submit', async (event) => {
    event.preventDefault();
    if (await attempt(form, () => patch(printerPath(current()), { stock: stockOf() }))) forgetTyping();
  });
  onClick(byId('load-labels'), async () => {
    await post(`${printerPath(current())}/load-paper`, { stock: stockOf() });
    forgetTyping();
  });
  onClick(byId('calibrate'), () => post(`${printerPath(current())}/calibrate`));
}

function kindInWords({ kind, label_mm, gap_mm }) {
  if (kind === 'continuous') return 'paper without labels';
  return `labels of ${label_mm} mm with ${kind === 'mark' ? 'marks' : 'gaps'} of ${gap_mm} mm`;
}

// The stock as it passes the head, which stands still in the middle; 1 unit is 1 mm.
function pictureOf(stock) {
  const height = 56;
  const head = 40;
  const isContinuous = stock.kind === 'continuous';
  const pitch = isContinuous ? height : stock.label_mm + stock.gap_mm;
  const parts = [drawing('rect', { x: 0, y: 0, width: 74, height, class: isContinuous ? 'stock-label' : 'stock-backing' })];
  const first = head - stock.position_mm - Math.ceil(head / pitch) * pitch;
  for (let top = first; !isContinuous && top < height; top += pitch) {
    parts.push(drawing('rect', { x: 3, y: top, width: 68, height: stock.label_mm, rx: 1.5, class: 'stock-label' }));
    if (stock.kind === 'mark') parts.push(drawing('rect', { x: 58, y: top + stock.label_mm, width: 14, height: stock.gap_mm, class: 'stock-mark' }));
  }
  parts.push(drawing('path', { d: `M-4 ${head}H78`, class: 'stock-head' }),
    drawing('path', { d: `M78 ${head}l5 -3v6z`, class: 'stock-arrow' }));
  const text = drawing('text', { x: 84, y: head + 1.6, class: 'stock-text' }, 'head');
  return drawing('svg', { viewBox: `-4 0 104 ${height}`, role: 'img',
    'aria-label': `${kindInWords(stock)}; the head is ${stock.position_mm} mm below the upper edge of a label` }, ...parts, text);
}

function showLearnt({ learnt, in_register: isInRegister }) {
  setText(byId('register'), isInRegister ? 'In register: prints begin where a label begins.'
    : 'Not calibrated for this stock: it will misfeed. Press Calibrate.');
  setAttribute(byId('register'), 'data-tone', isInRegister ? 'good' : 'bad');
  setText(byId('learnt'), learnt === null ? 'The printer has learnt nothing about its labels.' : `The printer has learnt: ${kindInWords(learnt)}.`);
}

/// Returns what shows a printer's stock.
export function setUpStock(current) {
  setUpForm(current);
  let shown = '';
  return (printer) => {
    byId('stock').hidden = printer.stock === null;
    if (printer.stock === null) return;
    showLearnt(printer);
    const kind = byId('stock-kind');
    if (kind.dataset.edited !== 'yes') kind.value = printer.stock.kind;
    for (const [id, member] of kFields) setField(byId(id), printer.stock[member]);
    const key = JSON.stringify(printer.stock);
    if (key === shown) return;
    shown = key;
    byId('stock-view').replaceChildren(pictureOf(printer.stock));
  };
}
