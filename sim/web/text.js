// Numbers, times and states as people read them.

const two = (number) => String(number).padStart(2, '0');

export function clock(iso) {
  const time = new Date(iso);
  return `${two(time.getHours())}:${two(time.getMinutes())}:${two(time.getSeconds())}`;
}

export function clockWithMilliseconds(iso) {
  return `${clock(iso)}.${String(new Date(iso).getMilliseconds()).padStart(3, '0')}`;
}

export function duration(milliseconds) {
  if (milliseconds === null || milliseconds === undefined) return '';
  if (milliseconds < 0.1) return '<0.1 ms';
  if (milliseconds < 10) return `${milliseconds.toFixed(1)} ms`;
  if (milliseconds < 1000) return `${Math.round(milliseconds)} ms`;
  return `${(milliseconds / 1000).toFixed(1)} s`;
}

const short = (number, digits) => String(Number(number.toFixed(digits)));

export function length(millimetres) {
  return millimetres < 1000 ? `${short(millimetres, 1)} mm` : `${short(millimetres / 1000, 2)} m`;
}

export function plural(count, one, many = `${one}s`) {
  return `${count} ${count === 1 ? one : many}`;
}

const kEnds = { cut: 'cut', torn: 'torn off', open: 'in the printer' };

export function jobState(job) {
  return job.finished ? `finished, ${kEnds[job.end] ?? job.end}` : 'printing';
}

// A weight that moves is no error.
const isGoodResult = (result) => result === null || result === undefined || result === 0 || result === 1005;

/// What "errors only" lists: also what a fault was made for.
export function isError(exchange) {
  return toneOf(exchange) === 'bad' || exchange.faults.length > 0;
}

const kOutcomes = {
  pending: 'not answered yet',
  unanswered: 'never answered',
  closed: 'connection closed',
  reset: 'connection reset',
  lost: 'client left before the answer',
};

export function outcome(exchange) {
  if (exchange.outcome !== 'answered') return kOutcomes[exchange.outcome] ?? exchange.outcome;
  if (exchange.known === false) return `${exchange.result ?? ''} unknown command`.trim();
  if (exchange.result === null || exchange.result === undefined) return 'answered';
  return `${exchange.result} ${exchange.result_text ?? ''}`.trim();
}

/// The same, with the faults that acted on it.
export function outcomeAndFaults(exchange) {
  return [outcome(exchange), ...exchange.faults.map((fault) => `fault: ${fault}`)].join(' · ');
}

/// How an exchange is to be coloured: "plain", "wait" for one that waits or went well but for a fault
/// that was wanted, "bad".
export function toneOf(exchange) {
  const isGood = /^(answered|pending)$/.test(exchange.outcome) && exchange.known !== false && isGoodResult(exchange.result);
  if (!isGood) return 'bad';
  return exchange.outcome === 'pending' || exchange.faults.length > 0 ? 'wait' : 'plain';
}

export function pretty(text) {
  try {
    return JSON.stringify(JSON.parse(text), null, 2);
  } catch {
    return text;
  }
}

/// An exchange for the clipboard.
export function exchangeAsText(exchange) {
  return [
    `#${exchange.number} ${exchange.time} ${exchange.port} ${exchange.client} ${exchange.command || 'unknown'}: ` +
      `${outcome(exchange)}, ${duration(exchange.duration_ms)}${exchange.faults.length ? `, fault: ${exchange.faults.join(', ')}` : ''}`,
    `> ${exchange.request}`,
    `< ${exchange.reply}`,
  ].join('\n');
}
