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

export function isError(exchange) {
  const isBad = exchange.result !== null && exchange.result !== undefined && exchange.result !== 0 && exchange.result !== 1005;
  return isBad || exchange.known === false || exchange.faults.length > 0 || !/^(answered|pending)$/.test(exchange.outcome);
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
