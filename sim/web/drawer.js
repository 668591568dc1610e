// The cash drawer.
import { patch } from './service.js';
import { byId, setAttribute, setText } from './dom.js';
import { onClick } from './problem.js';
import { plural } from './text.js';

export function setUpDrawer(store) {
  onClick(byId('drawer-close'), () => patch('/api/drawer', { open: false }));
  onClick(byId('drawer-open'), () => patch('/api/drawer', { open: true }));
  store.on('state', ({ drawer }) => {
    setText(byId('drawer-word'), drawer.open ? 'open' : 'closed');
    setAttribute(byId('drawer-word'), 'data-tone', drawer.open ? 'wait' : 'good');
    setAttribute(byId('till'), 'data-open', drawer.open ? 'yes' : 'no');
    setText(byId('drawer-openings'), drawer.openings === 0 ? 'Never opened' : `Opened ${plural(drawer.openings, 'time')}`);
  });
}
