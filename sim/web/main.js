// The page of the simulator: its parts, and the feed that keeps them up to date.
import { Choice } from './choice.js';
import { setUpDrawer } from './drawer.js';
import { setUpFaults } from './faults.js';
import { setUpHeader } from './header.js';
import { setUpKeyboard } from './keyboard.js';
import { Live } from './live.js';
import { setUpPaper } from './paper.js';
import { setUpPrinter } from './printer.js';
import { setUpScale } from './scale.js';
import { Store } from './store.js';
import { setUpTheme } from './theme.js';
import { setUpTraffic } from './traffic.js';
import { setUpViews } from './views.js';

setUpTheme();
const store = new Store();
const choice = new Choice();
setUpHeader(store);
setUpScale(store);
setUpDrawer(store);
setUpPrinter(store, choice);
setUpPaper(store, choice);
setUpTraffic(store, choice);
setUpFaults(store);
setUpViews(choice);
setUpKeyboard(choice);
new Live(store).connect();
