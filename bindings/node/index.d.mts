export * from './index.js';
import * as tolvex from './index.js';
export default tolvex;
