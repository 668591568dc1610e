// Choices that outlive the page. A browser may forbid keeping them, which then lasts for this page only.

const kPrefix = 'zelkad-sim.';

export function recall(name, otherwise) {
  try {
    return localStorage.getItem(kPrefix + name) ?? otherwise;
  } catch {
    return otherwise;
  }
}

export function remember(name, value) {
  try {
    localStorage.setItem(kPrefix + name, value);
  } catch {
    // Not kept.
  }
}
