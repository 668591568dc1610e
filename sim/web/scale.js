// The scale: its read-out and what a tester does to it.
import { patch, post } from './service.js';
import { byId, setAttribute, setField, setText, watchTyping } from './dom.js';
import { numberIn } from './number_field.js';
import { attempt, latestOnly, onClick } from './problem.js';
import { Readout } from './readout.js';
import { Switch } from './switch.js';

const kPath = '/api/scale';
const kPatience = 1000; // ms until the simulator's load counts, whatever was sent
const kKilograms = 'Type kilograms, as in 0.482.';

/// A number that is sent when it was changed and Enter is pressed or the field is left.
function numberField(field, member, name, remedy = kKilograms) {
  watchTyping(field);
  field.addEventListener('change', async () => {
    const isTaken = await attempt(field, () => patch(kPath, { [member]: numberIn(field, name, remedy) }));
    if (isTaken) field.dataset.edited = 'no';
  });
}

/// Returns what shows a load on the slider. What the simulator told before it learnt of the latest move
/// is not shown, so that the slider never jumps back under the hand.
function setUpSlider(slider) {
  let expected = null;
  const sendLatest = latestOnly(slider, (load) => patch(kPath, { load_kg: load }));
  const send = (load) => {
    expected = { load, until: performance.now() + kPatience };
    sendLatest(load);
  };
  slider.addEventListener('input', () => send(slider.valueAsNumber));
  const steps = { ArrowUp: 1, ArrowRight: 1, ArrowDown: -1, ArrowLeft: -1, PageUp: 100, PageDown: -100 };
  slider.addEventListener('keydown', (event) => {
    const grams = steps[event.key];
    if (grams === undefined || event.ctrlKey || event.altKey || event.metaKey) return;
    event.preventDefault();
    const step = event.shiftKey && Math.abs(grams) === 1 ? grams * 10 : grams;
    slider.value = Math.round(slider.valueAsNumber * 1000 + step) / 1000;
    send(slider.valueAsNumber);
  });
  return (load) => {
    if (expected !== null && expected.load !== load && performance.now() < expected.until) return;
    expected = null;
    if (!slider.matches(':active')) slider.value = load;
  };
}

function setUpKeys() {
  onClick(byId('key-zero'), () => post(`${kPath}/zero`));
  onClick(byId('key-tare'), () => post(`${kPath}/tare`));
  onClick(byId('key-clear-tare'), () => post(`${kPath}/clear-tare`));
  const field = byId('preset-tare-kg');
  byId('preset-tare').addEventListener('submit', (event) => {
    event.preventDefault();
    attempt(field, () => post(`${kPath}/preset-tare`, { tare_kg: numberIn(field, 'The preset tare', kKilograms) }));
  });
}

function setUpLoad() {
  const showOnSlider = setUpSlider(byId('load-slider'));
  numberField(byId('load'), 'load_kg', 'The load');
  for (const button of document.querySelectorAll('.goods button')) {
    onClick(button, () => patch(kPath, { load_kg: Number(button.dataset.load) }));
  }
  return showOnSlider;
}

function setUpFaults() {
  const make = (name, member, isInverse) => {
    const one = new Switch(name, (isOn) => patch(kPath, { [member]: isInverse ? !isOn : isOn }));
    byId('scale-faults').append(one.element);
    return (scale) => one.show(isInverse ? !scale[member] : scale[member]);
  };
  return [make('Disconnected', 'connected', true), make('Invalid', 'invalid'), make('Unstable', 'unstable')];
}

function plateOf({ ranges, min_kg, unit }) {
  const largest = ranges.map((range) => range.max_kg).join('/');
  const divisions = ranges.map((range) => Math.round(range.division_kg * 1e6) / 1000).join('/');
  return `Max ${largest} ${unit}   Min ${min_kg} ${unit}   e = ${divisions} g`;
}

export function setUpScale(store) {
  const readout = new Readout();
  const showOnSlider = setUpLoad();
  setUpKeys();
  const faults = setUpFaults();
  numberField(byId('settling'), 'settling_s', 'The settling time', 'Type seconds, as in 0.5.');
  numberField(byId('noise'), 'noise_kg', 'The noise');
  store.on('state', ({ scale }) => {
    readout.show(scale);
    setText(byId('plate'), plateOf(scale));
    showOnSlider(scale.load_kg);
    setAttribute(byId('load-slider'), 'aria-valuetext', `${scale.load_kg} kg`);
    setField(byId('load'), scale.load_kg);
    setField(byId('settling'), scale.settling_s);
    setField(byId('noise'), scale.noise_kg);
    for (const show of faults) show(scale);
  });
}
