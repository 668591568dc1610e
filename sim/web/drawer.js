// The cash drawer.
import { patch } from './service.js';
import { byId, setAttribute, setText } from './dom.js';
import { onClick } from './problem.js';

function timesOpened(openings) {
  if (openings === 0) return 'Never opened';
  return openings === 1 ? 'Opened once' : `Opened ${openings} times`;
}

export function setUpDrawer(store) {
  onClick(byId('drawer-close'), () => patch('/api/drawer', { open: false }));
  onClick(byId('drawer-open'), () => patch('/api/drawer', { open: true }));
  store.on('state', ({ drawer }) => {
    setText(byId('drawer-word'), drawer.open ? 'open' : 'closed');
    setAttribute(byId('drawer-word'), 'data-tone', drawer.open ? 'wait' : 'good');
    setAttribute(byId('till'), 'data-open', drawer.open ? 'yes' : 'no');
    setText(byId('drawer-openings'), timesOpened(drawer.openings));
  });
}
