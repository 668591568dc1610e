// A zelkad-sim of one's own, and programs that talk to it as a till's do.
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import net from 'node:net';
import readline from 'node:readline';

const kStartLimit = 60000;

function required(variable) {
  const value = process.env[variable];
  if (!value) throw new Error(`${variable} is not set. Start these tests by CTest, or see tests/web/CMakeLists.txt.`);
  return value;
}

export class Simulator {
  /// Starts one on free ports, or on those given: {weighing, printing, web}.
  static async start(options = [], ports = {}) {
    const args = ['--quiet', '--address', '127.0.0.1', '--weighing-port', String(ports.weighing ?? 0),
      '--printing-port', String(ports.printing ?? 0), '--web-port', String(ports.web ?? 0), ...options];
    const launcher = (process.env.ZELKAD_SIM_LAUNCHER ?? '').split(' ').filter(Boolean);
    const [command, ...rest] = [...launcher, required('ZELKAD_SIM'), ...args];
    const simulator = new Simulator(spawn(command, rest, { stdio: ['ignore', 'pipe', 'inherit'] }));
    await simulator.#ready();
    return simulator;
  }

  constructor(process) {
    this.process = process;
    this.ended = once(process, 'exit');
    this.ports = {};
  }

  async #ready() {
    const lines = readline.createInterface({ input: this.process.stdout });
    const limit = setTimeout(() => this.process.kill(), kStartLimit);
    for await (const line of lines) {
      const port = /(weighing|printing|page) on (?:http:\/\/)?[\d.]+:(\d+)/.exec(line);
      if (port) this.ports[port[1] === 'page' ? 'web' : port[1]] = Number(port[2]);
      if (line.endsWith('ready')) break;
    }
    clearTimeout(limit);
    if (!this.ports.web) throw new Error('zelkad-sim did not start.');
    this.process.stdout.resume();
    this.url = `http://127.0.0.1:${this.ports.web}/`;
  }

  async stop() {
    this.process.kill();
    await this.ended;
  }

  async call(method, path, body) {
    const options = { method };
    if (body !== undefined) {
      options.body = JSON.stringify(body);
      options.headers = { 'Content-Type': 'application/json' };
    }
    const response = await fetch(new URL(path, this.url), options);
    const text = await response.text();
    if (!response.ok) throw new Error(`${method} ${path}: ${response.status} ${text}`);
    return /json/.test(response.headers.get('content-type')) ? JSON.parse(text) : text;
  }

  get(path) { return this.call('GET', path); }
  patch(path, body) { return this.call('PATCH', path, body); }
  post(path, body) { return this.call('POST', path, body); }

  /// Connects a program to the weighing or the printing port.
  client(port) { return Client.connect(this.ports[port]); }
}

export class Client {
  #text = '';
  #waiting = [];

  static async connect(port) {
    const socket = net.connect(port, '127.0.0.1');
    await once(socket, 'connect');
    return new Client(socket);
  }

  constructor(socket) {
    this.socket = socket;
    socket.setEncoding('utf8');
    socket.on('error', () => {});
    socket.on('data', (text) => this.#take(text));
    socket.on('close', () => { for (const { fail } of this.#waiting.splice(0)) fail(new Error('The connection was closed.')); });
  }

  // Replies have no objects within, so that one ends at its first closing brace outside of a string.
  #take(text) {
    this.#text += text;
    for (let reply; (reply = /^\{(?:[^"}]|"(?:[^"\\]|\\.)*")*\}/.exec(this.#text)) !== null;) {
      this.#text = this.#text.slice(reply[0].length);
      this.#waiting.shift()?.take(JSON.parse(reply[0]));
    }
  }

  send(request) { this.socket.write(typeof request === 'string' ? request : JSON.stringify(request)); }

  ask(request) {
    return new Promise((take, fail) => {
      this.#waiting.push({ take, fail });
      this.send(request);
    });
  }

  /// Prints texts, each on lines of its own, without finishing the job.
  async print(texts, printerType = '1') {
    for (const text of texts) await this.ask({ cmd: 'printtext', printerType, fontsize: '24', text });
  }

  async receipt(texts, printerType = '1') {
    await this.print(texts, printerType);
    await this.ask({ cmd: 'beginPrint', printerType });
    return this.ask({ cmd: 'cutPaper', printerType, Percent: '100' });
  }

  close() { this.socket.destroy(); }
}
