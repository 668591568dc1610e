// Copying text.
import { element } from './dom.js';

// Pages from other hosts than this one's own have no clipboard of their own.
function copySelected(text) {
  const area = element('textarea', { class: 'unseen', value: text, readOnly: true });
  const before = document.activeElement;
  (document.querySelector('dialog[open]') ?? document.body).append(area);
  area.select();
  const isCopied = document.execCommand('copy');
  area.remove();
  before?.focus();
  if (!isCopied) throw new Error('This browser does not let the page copy text.');
}

export async function copyText(text) {
  if (navigator.clipboard === undefined) return copySelected(text);
  try {
    return await navigator.clipboard.writeText(text);
  } catch {
    return copySelected(text);
  }
}
