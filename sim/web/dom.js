// Making and changing elements. Whatever comes from devices and programs goes in as text, never as markup.

export const byId = (id) => document.getElementById(id);

const kSvg = 'http://www.w3.org/2000/svg';

/// An element with properties (class and data-*, aria-* as attributes) and children: nodes or texts.
export function element(name, properties = {}, ...children) {
  return fill(document.createElement(name), properties, children);
}

/// The same for drawings; all properties are attributes.
export function drawing(name, attributes = {}, ...children) {
  const node = document.createElementNS(kSvg, name);
  for (const [key, value] of Object.entries(attributes)) node.setAttribute(key, value);
  node.append(...children);
  return node;
}

function fill(node, properties, children) {
  for (const [key, value] of Object.entries(properties)) {
    if (key === 'class') node.className = value;
    else if (/^(data|aria)-|^(role|for|list)$/.test(key)) node.setAttribute(key, value);
    else node[key] = value;
  }
  node.append(...children);
  return node;
}

/// Only writes what differs, so that nothing is laid out or read aloud again without need.
export function setText(node, text) {
  const value = String(text);
  if (node.textContent !== value) node.textContent = value;
}

export function setAttribute(node, name, value) {
  const text = String(value);
  if (node.getAttribute(name) !== text) node.setAttribute(name, text);
}

/// A field shows the device's value, unless someone is typing into it.
export function setField(field, value) {
  const text = value === null || value === undefined ? '' : String(value);
  if (document.activeElement === field && field.dataset.edited === 'yes') return;
  if (field.value !== text) field.value = text;
}

/// Remembers typing (see setField) until the field is left or its value was taken.
export function watchTyping(field) {
  field.addEventListener('input', () => { field.dataset.edited = 'yes'; });
  field.addEventListener('blur', () => { field.dataset.edited = 'no'; });
}

/// Says something to screen readers, once.
export function say(text) {
  const place = byId('says');
  place.textContent = '';
  requestAnimationFrame(() => { place.textContent = text; });
}
