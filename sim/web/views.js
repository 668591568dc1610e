// On narrow screens one section is shown at a time.
import { setAttribute } from './dom.js';

export function setUpViews(choice) {
  const main = document.querySelector('main');
  const buttons = document.querySelectorAll('.views button');
  const show = (name) => {
    main.dataset.view = name;
    for (const button of buttons) setAttribute(button, 'aria-pressed', button.dataset.view === name);
  };
  for (const button of buttons) button.addEventListener('click', () => choice.view(button.dataset.view));
  choice.on('view', show);
}
