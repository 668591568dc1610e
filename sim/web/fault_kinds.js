// The faults that can be made on the wire, with exactly the fields that each of them has.

const kDelay = { member: 'delay_ms', name: 'Delay', unit: 'ms', min: 0, max: 600000 };

/// `fields` are numbers; one without `initial` may stay empty, then the simulator takes its own value.
/// `words` tells a rule in words.
export const kKinds = {
  delay: {
    name: 'Delay the answer',
    fields: [{ ...kDelay, initial: 2000 }],
    words: (rule) => `answer after ${rule.delay_ms} ms`,
  },
  'no-answer': { name: 'Never answer', fields: [], words: () => 'never answer' },
  close: { name: 'Close instead of answering', fields: [], words: () => 'close the connection' },
  reset: { name: 'Reset instead of answering', fields: [], words: () => 'reset the connection' },
  'two-pieces': {
    name: 'Answer in two pieces',
    fields: [{ member: 'first_piece', name: 'First piece', unit: 'bytes', min: 1, hint: 'half' },
      { ...kDelay, name: 'Pause between', hint: '200' }],
    words: (rule) => `answer in two pieces${rule.delay_ms ? `, ${rule.delay_ms} ms apart` : ''}`,
  },
  garbage: {
    name: 'Answer garbage',
    fields: [{ member: 'bytes', name: 'Length', unit: 'bytes', min: 1, hint: '64' }],
    words: (rule) => `answer ${rule.bytes ?? ''} bytes of garbage`.replace('  ', ' '),
  },
  oversized: {
    name: 'Answer too long',
    fields: [{ member: 'bytes', name: 'Length', unit: 'bytes', min: 1, hint: '4096' }],
    words: (rule) => `answer ${rule.bytes ?? ''} bytes`.replace('  ', ' '),
  },
  'wrong-type': { name: 'Answer values of a wrong type', fields: [], words: () => 'answer values of a wrong type' },
  result: {
    name: 'Answer a result code',
    fields: [{ member: 'code', name: 'Result code', unit: '', min: 0, initial: 2006 }],
    words: (rule) => `answer result ${rule.code}`,
  },
  refuse: {
    name: 'Refuse connections',
    fields: [],
    isOfConnections: true,
    switches: [{ member: 'drop', name: 'Close open connections, too', initial: true }],
    words: (rule) => `refuse connections${rule.drop === false ? '' : ' and close the open ones'}`,
  },
};

export function isCarriedOutAtFirst(kind) { return kind !== 'result'; }

export const kPresets = [
  { name: 'Answer in two pieces', rule: { kind: 'two-pieces', port: 'both', command: '*', times: null } },
  { name: 'Never answer', rule: { kind: 'no-answer', port: 'both', command: '*', times: 1 } },
  { name: 'Delay 2 s', rule: { kind: 'delay', port: 'both', command: '*', delay_ms: 2000, times: null } },
  { name: 'Out of paper (2006) at the next print', rule: { kind: 'result', port: 'printing', command: 'beginPrint', code: 2006, times: 1 } },
];

/// A rule in words, for the list.
export function ruleInWords(rule) {
  const kind = kKinds[rule.kind];
  const what = kind ? kind.words(rule) : rule.kind;
  const command = rule.command === '*' ? 'every command' : rule.command;
  const port = rule.port === 'both' ? 'both ports' : rule.port;
  const on = kind?.isOfConnections ? port : `${command} (${port})`;
  const done = kind?.isOfConnections || rule.carried_out !== false ? '' : ', not carried out';
  return `${on}: ${what}${done}`;
}

export function remainingInWords(rule) {
  if (kKinds[rule.kind]?.isOfConnections) return 'until switched off';
  const acted = rule.acted === 0 ? 'not yet used' : `used ${rule.acted} times`.replace(' 1 times', ' once');
  if (rule.remaining === null) return `until switched off, ${acted}`;
  return `${rule.remaining} to go, ${acted}`;
}
