// Windows over the page.
import { element } from './dom.js';

/// Opens a window with a title, nodes to show and buttons. Resolves when it is closed: to the value of
/// the button that closed it, or to "".
export function openDialog(title, nodes, buttons = [], closeName = 'Close') {
  const close = element('button', { type: 'button', class: buttons.length ? '' : 'key' }, closeName);
  const heading = element('h2', { id: 'dialog-title' }, title);
  const dialog = element('dialog', { 'aria-labelledby': 'dialog-title' }, heading, ...nodes, element('div', { class: 'buttons dialog-buttons' }, ...buttons, close));
  document.body.append(dialog);
  close.addEventListener('click', () => dialog.close(''));
  dialog.showModal();
  return new Promise((resolve) => {
    dialog.addEventListener('close', () => {
      dialog.remove();
      resolve(dialog.returnValue);
    });
  });
}

export async function confirmed(title, text, yes) {
  const button = element('button', { type: 'button', class: 'danger' }, yes);
  button.addEventListener('click', () => button.closest('dialog').close('yes'));
  return await openDialog(title, [element('p', {}, text)], [button], 'Cancel') === 'yes';
}
