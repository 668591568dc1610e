// Numbers that people type.
import { Refusal } from './service.js';

/// The field's number, or null when it is empty; a refusal for anything else.
export function numberOrNull(field, name, remedy) {
  if (field.validity.badInput || !Number.isFinite(Number(field.value))) throw new Refusal(`${name} is not a number.`, remedy);
  return field.value.trim() === '' ? null : Number(field.value);
}

/// The field's number; a refusal when there is none.
export function numberIn(field, name, remedy) {
  const value = numberOrNull(field, name, remedy);
  if (value === null) throw new Refusal(`${name} is missing.`, remedy);
  return value;
}
