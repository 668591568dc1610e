// Light, dark, or as the system has it.
import { byId } from './dom.js';
import { recall, remember } from './remembered.js';

const kThemes = ['system', 'light', 'dark'];

function apply(theme) {
  if (theme === 'system') delete document.documentElement.dataset.theme;
  else document.documentElement.dataset.theme = theme;
}

export function setUpTheme() {
  const select = byId('theme');
  const kept = recall('theme', 'system');
  select.value = kThemes.includes(kept) ? kept : 'system';
  apply(select.value);
  select.addEventListener('change', () => {
    apply(select.value);
    remember('theme', select.value);
  });
}
