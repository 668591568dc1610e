// Shortcuts of one key, and the window that lists them.
import { openDialog } from './dialog.js';
import { byId, element } from './dom.js';
import { recall, remember } from './remembered.js';

const focus = (choice, view, id) => {
  choice.view(view);
  byId(id).focus();
  byId(id).select?.();
};

const kShortcuts = [
  ['l', 'type a load', (choice) => focus(choice, 'scale', 'load')],
  ['s', 'move the load', (choice) => focus(choice, 'scale', 'load-slider')],
  ['e', 'lift everything off the scale', () => document.querySelector('[data-load="0"]').click()],
  ['z', 'zero key', () => byId('key-zero').click()],
  ['t', 'tare key', () => byId('key-tare').click()],
  ['d', 'close the drawer', () => byId('drawer-close').click()],
  ['1', 'paper of the first printer; 2 and 3 the others, 4 all jobs', (choice) => showTab(choice, 0)],
  ['r', 'go to the requests', (choice) => focus(choice, 'traffic', 'traffic-rows')],
  ['/', 'filter the requests', (choice) => focus(choice, 'traffic', 'filter-text')],
  ['p', 'pause or resume the list of requests', () => byId('pause').click()],
  ['f', 'make a fault on the wire', (choice) => { byId('fault-new').open = true; focus(choice, 'wire', 'fault-kind'); }],
  ['?', 'this help', () => openHelp()],
];

function showTab(choice, index) {
  choice.view('paper');
  const tab = byId('paper-tabs').children[index];
  tab?.click();
  tab?.focus();
}

const areOn = () => recall('shortcuts', 'on') === 'on';

function openHelp() {
  if (document.querySelector('dialog[open]')) return;
  const rows = kShortcuts.map(([key, what]) => element('tr', {}, element('th', { scope: 'row' }, element('kbd', {}, key)), element('td', {}, what)));
  const box = element('input', { type: 'checkbox', id: 'shortcuts', checked: areOn() });
  box.addEventListener('change', () => remember('shortcuts', box.checked ? 'on' : 'off'));
  openDialog('Keyboard', [
    element('table', { class: 'shortcuts' }, element('tbody', {}, ...rows)),
    element('p', { class: 'quiet' }, 'Escape leaves a field, so that the keys act again. In the list of requests the arrow keys choose one and Enter shows its paper. Click a paper to choose its job; "Requests" lists what printed it.'),
    element('label', { class: 'check' }, box, ' Shortcuts of one key are on'),
  ]);
}

function isTyping(target) {
  return target.matches('input:not([type=range], [type=checkbox], [type=radio]), select, textarea') || target.isContentEditable;
}

export function setUpKeyboard(choice) {
  byId('help-open').addEventListener('click', openHelp);
  document.addEventListener('keydown', (event) => {
    if (event.key === 'Escape' && isTyping(event.target)) event.target.blur();
    if (event.ctrlKey || event.altKey || event.metaKey || isTyping(event.target) || document.querySelector('dialog[open]')) return;
    if (!areOn()) return;
    const index = '234'.indexOf(event.key);
    const action = index >= 0 ? (to) => showTab(to, index + 1) : kShortcuts.find(([key]) => key === event.key)?.[2];
    if (!action) return;
    event.preventDefault();
    action(choice);
  });
}
