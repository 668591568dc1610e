// What the simulator refused, shown next to the control that asked for it.
import { Refusal } from './service.js';
import { element } from './dom.js';

function groupOf(control) {
  return control.closest('.group, .group-head, .bar, .job-bar, dialog, #page-problem') ?? document.getElementById('page-problem');
}

function clear(group) {
  group.querySelector(':scope > .problem')?.remove();
}

function show(group, error) {
  clear(group);
  const close = element('button', { type: 'button', class: 'plain', 'aria-label': 'Dismiss' }, '×');
  const text = error instanceof Refusal ? [element('b', {}, error.what), ' ', error.remedy] : [element('b', {}, String(error.message ?? error))];
  const problem = element('div', { class: 'problem', role: 'alert' }, element('p', {}, ...text), close);
  close.addEventListener('click', () => problem.remove());
  group.append(problem);
}

/// Runs an action for a control. Its failure is shown in the control's group until the next success
/// there. Resolves to the action's value, or to undefined.
export async function attempt(control, action) {
  const group = groupOf(control);
  try {
    const value = await action();
    clear(group);
    return value ?? true;
  } catch (error) {
    show(group, error);
    if (!(error instanceof Refusal)) console.error(error);
    return undefined;
  }
}

/// A click on the button attempts the action.
export function onClick(button, action) {
  button.addEventListener('click', () => attempt(button, action));
}

/// For controls that move faster than requests: one request is on its way at a time, and the latest
/// value is the last one sent.
export function latestOnly(control, send) {
  let isBusy = false;
  let waiting = null;
  return async function offer(value) {
    waiting = { value };
    if (isBusy) return;
    isBusy = true;
    while (waiting !== null) {
      const next = waiting.value;
      waiting = null;
      await attempt(control, () => send(next));
    }
    isBusy = false;
  };
}
