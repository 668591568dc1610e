// The live feed of the simulator, connected again by itself.

const kFirstPause = 300;
const kLongestPause = 2000;

export class Live {
  #store;
  #socket = null;
  #pause = kFirstPause;
  #cursorIsNew = false;

  constructor(store) { this.#store = store; }

  connect() {
    const store = this.#store;
    const url = new URL('/api/live', location.href);
    url.protocol = location.protocol === 'https:' ? 'wss:' : 'ws:';
    url.searchParams.set('exchanges_after', store.lastSettledExchange());
    url.searchParams.set('jobs_after', store.revision);
    this.#cursorIsNew = store.lastSettledExchange() === 0 && store.revision === 0;
    const socket = new WebSocket(url);
    this.#socket = socket;
    socket.addEventListener('message', ({ data }) => {
      if (socket === this.#socket) this.#take(JSON.parse(data));
    });
    socket.addEventListener('close', () => {
      if (socket === this.#socket) this.#again();
    });
  }

  #again() {
    this.#store.setLinked(false);
    setTimeout(() => this.connect(), this.#pause);
    this.#pause = Math.min(this.#pause * 2, kLongestPause);
  }

  #take(message) {
    const store = this.#store;
    if (message.type === 'state') {
      this.#takeState(message.state);
    } else if (store.state === null || message.epoch !== store.state.epoch) {
      // Of before a reset.
    } else if (message.type === 'exchanges') {
      store.takeExchanges(message.exchanges);
    } else if (message.type === 'jobs') {
      store.takeJobs(message.jobs);
    }
  }

  // A simulator that was started again counts from 1 again, so what this connection was to leave out
  // is not what the page has.
  #takeState(state) {
    const store = this.#store;
    const isOther = store.state !== null && !store.isSameRun(state) && !store.isLinked;
    store.takeState(state);
    this.#pause = kFirstPause;
    if (isOther && !this.#cursorIsNew) {
      const socket = this.#socket;
      this.connect();
      socket.close();
      return;
    }
    if (!store.isLinked) store.setLinked(true);
  }
}
