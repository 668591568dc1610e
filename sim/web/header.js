// Who is connected, what happened last, and why nothing may appear.
import { post } from './service.js';
import { byId, setAttribute, setText } from './dom.js';
import { confirmed } from './dialog.js';
import { attempt } from './problem.js';
import { clock, outcomeAndFaults } from './text.js';

const kLost = 'Connection to the simulator lost, trying again';

function showLink(isLinked) {
  setText(byId('link'), isLinked ? 'Connected, live' : kLost);
  setAttribute(byId('link'), 'data-tone', isLinked ? 'good' : 'bad');
}

function showConnections({ weighing, printing }) {
  const parts = [['weighing', weighing], ['printing', printing]].filter(([, count]) => count > 0);
  setText(byId('connections'), parts.map(([name, count]) => `${count} ${name}`).join(', ') || 'none');
}

function showLastError(store) {
  const number = store.state.traffic.last_error;
  const exchange = number === null ? undefined : store.exchange(number);
  const button = byId('last-error');
  button.disabled = exchange === undefined;
  const words = exchange ? `#${number} ${exchange.command || '(no command)'}: ${outcomeAndFaults(exchange)}` : `#${number}`;
  setText(button, number === null ? 'none' : words);
}

function showHint({ ports, traffic }) {
  const hint = byId('hint');
  hint.hidden = traffic.last_client !== null;
  if (hint.hidden) return;
  setText(hint, `No program has connected yet. Point yours at ${ports.address}: port ${ports.weighing} for weighing, port ${ports.printing} for printing. ` +
    'If it runs on another machine, start zelkad-sim with --address.');
}

async function reset() {
  const isSure = await confirmed('Reset the simulator?', 'Scale, printers, drawer and faults go back to how they were at the start. Jobs and traffic are forgotten.', 'Reset');
  if (isSure) await post('/api/reset');
}

export function setUpHeader(store) {
  const button = byId('reset');
  button.addEventListener('click', () => attempt(byId('page-problem'), reset));
  store.on('link', showLink);
  store.on('exchanges', () => { if (store.state) showLastError(store); });
  store.on('state', (state) => {
    setText(byId('version'), state.version);
    setText(byId('port-weighing'), `${state.ports.address}:${state.ports.weighing}`);
    setText(byId('port-printing'), `${state.ports.address}:${state.ports.printing}`);
    showConnections(state.traffic.connections);
    setText(byId('last-client'), state.traffic.last_client ?? 'none yet');
    setText(byId('last-request'), state.traffic.last_request_at ? clock(state.traffic.last_request_at) : 'none yet');
    showLastError(store);
    showHint(state);
  });
}
