// The state of one printer, and what a tester does to it.
import { patch, post, printerPath } from './service.js';
import { byId, element, setAttribute, setField, setText, watchTyping } from './dom.js';
import { numberOrNull } from './number_field.js';
import { attempt, onClick } from './problem.js';
import { SettingsTable } from './settings.js';
import { setUpStock } from './stock.js';
import { Switch } from './switch.js';
import { length } from './text.js';

const kFaults = [
  ['out-of-paper', 'Out of paper'],
  ['busy', 'Busy'],
  ['hot', 'Head too hot'],
  ['illegal-head', 'Illegal head'],
  ['abnormal', 'Abnormal'],
  ['unplugged', 'Not found (unplugged)'],
];

/// How a printer stands, in words.
export function printerWord({ result, text, job }) {
  if (result !== 0) return `${result} ${text}`;
  return job === null ? 'ready' : `printing job ${job}`;
}

function setUpPaper(current) {
  const field = byId('paper-mm');
  watchTyping(field);
  const setLeft = (left) => patch(printerPath(current()), { paper: { left_mm: left } });
  byId('paper-form').addEventListener('submit', async (event) => {
    event.preventDefault();
    if (await attempt(field, () => setLeft(numberOrNull(field, 'The paper left', 'Type millimetres, or nothing for an endless roll.')))) field.dataset.edited = 'no';
  });
  for (const button of document.querySelectorAll('[data-left]')) {
    onClick(button, () => setLeft(button.dataset.left === 'endless' ? null : Number(button.dataset.left)));
  }
  onClick(byId('load-roll'), () => post(`${printerPath(current())}/load-paper`, {}));
  onClick(byId('tear'), () => post(`${printerPath(current())}/tear`));
}

function setUpFaults(current) {
  return kFaults.map(([name, words]) => {
    const one = new Switch(words, (isOn) => patch(printerPath(current()), { faults: { [name]: isOn } }));
    byId('printer-faults').append(one.element);
    return ({ faults }) => one.show(faults[name] === true);
  });
}

function showPaper({ paper }) {
  const fresh = paper.fed_mm > 0 ? `, ${length(paper.fed_mm)} fresh at the head` : '';
  setText(byId('paper-left'), (paper.left_mm === null ? 'endless' : `${length(paper.left_mm)} left`) + fresh);
  setField(byId('paper-mm'), paper.left_mm);
}

function offerPrinters(select, printers) {
  const names = printers.map(({ name }) => name);
  if ([...select.options].map(({ value }) => value).join() === names.join()) return;
  select.replaceChildren(...names.map((name) => element('option', { value: name }, name)));
}

export function setUpPrinter(store, choice) {
  const current = () => choice.printer;
  const select = byId('printer-choice');
  const faults = setUpFaults(current);
  const showStock = setUpStock(current);
  const settings = new SettingsTable(byId('settings'), current);
  setUpPaper(current);
  const show = () => {
    const printer = store.printer(choice.printer);
    if (!printer) return;
    offerPrinters(select, store.state.printers);
    select.value = printer.name;
    setText(byId('printer-word'), printerWord(printer));
    setAttribute(byId('printer-word'), 'data-tone', printer.result === 0 ? 'good' : 'bad');
    for (const one of faults) one(printer);
    showPaper(printer);
    showStock(printer);
    settings.show(printer.settings);
  };
  select.addEventListener('change', () => choice.choosePrinter(select.value));
  store.on('state', show);
  choice.on('printer', () => {
    for (const field of byId('printer').querySelectorAll('input')) field.dataset.edited = 'no';
    for (const problem of byId('printer').querySelectorAll('.problem')) problem.remove();
    show();
  });
}
