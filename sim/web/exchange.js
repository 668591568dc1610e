// One exchange in full.
import { copyText } from './clipboard.js';
import { byId, element, say } from './dom.js';
import { attempt } from './problem.js';
import { recall, remember } from './remembered.js';
import { clockWithMilliseconds, duration, exchangeAsText, outcomeAndFaults, plural, pretty } from './text.js';

function facts(exchange) {
  const facts = [
    `#${exchange.number}`, clockWithMilliseconds(exchange.time), exchange.port,
    `${exchange.client}, connection ${exchange.connection}`,
    exchange.known === false ? `unknown command ${exchange.command}` : exchange.command,
    outcomeAndFaults(exchange), duration(exchange.duration_ms),
  ];
  return facts.filter(Boolean).join(' · ');
}

function block(title, text, bytes, isPretty) {
  return element('div', { class: 'message' }, element('h3', {}, title, ' ', element('span', { class: 'quiet' }, plural(bytes, 'byte'))),
    element('pre', { tabIndex: 0, 'aria-label': title }, (isPretty ? pretty(text) : text) || 'nothing'));
}

function button(name, action, more = {}) {
  const made = element('button', { type: 'button', ...more }, name);
  made.addEventListener('click', () => attempt(made, action));
  return made;
}

/// Returns what shows the chosen exchange anew.
export function showExchange(store, choice) {
  const place = byId('exchange');
  let isPretty = recall('pretty', 'yes') === 'yes';
  const buttonsOf = (exchange) => {
    const buttons = [
      button('Pretty', () => { isPretty = !isPretty; remember('pretty', isPretty ? 'yes' : 'no'); show(); byId('exchange-pretty').focus(); },
        { id: 'exchange-pretty', 'aria-pressed': String(isPretty) }),
      button('Copy', async () => { await copyText(exchangeAsText(exchange)); say('Copied.'); }, { id: 'exchange-copy' }),
    ];
    if (exchange.job !== null) {
      buttons.push(button(`Show paper of job ${exchange.job}`, () => { choice.view('paper'); choice.showJob(exchange.job); }, { id: 'exchange-paper' }),
        button('Only this job', () => choice.filterByJob(exchange.job), { id: 'exchange-job' }));
    }
    buttons.push(button('Close', () => { choice.chooseExchange(null); byId('traffic-rows').focus(); }, { id: 'exchange-close' }));
    return element('div', { class: 'buttons group' }, ...buttons);
  };
  const show = () => {
    const exchange = choice.exchange === null ? undefined : store.exchange(choice.exchange);
    place.hidden = exchange === undefined;
    if (exchange === undefined) return place.replaceChildren();
    const focused = place.contains(document.activeElement) ? document.activeElement.id : '';
    place.replaceChildren(element('p', { class: 'facts' }, facts(exchange)), buttonsOf(exchange),
      element('div', { class: 'messages' }, block('Request', exchange.request, exchange.request_bytes, isPretty),
        block('Reply', exchange.reply, exchange.reply_bytes, isPretty)));
    if (focused !== '') byId(focused)?.focus();
  };
  return show;
}
