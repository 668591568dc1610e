// Runs a file of tests in a process of its own, with a simulator of its own.
// usage: run.mjs FILE.test.js [OPTION-OF-THE-SIMULATOR...]
//   TOLVEX_LIBRARY         the library under test
//   ZELKAD_SIM             the simulator, with a launcher before it if need be
//   TOLVEX_TEST_ADDRESS    where it listens, of the loopback range
//   TOLVEX_NODE_MODULES    where npm has put koffi
//   TOLVEX_NODE            the program that runs the tests, with a launcher before it; node if not set. Its output
//                          goes to a file, for under Wine it cannot be a pipe.
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import fs from 'node:fs';
import http from 'node:http';
import os from 'node:os';
import path from 'node:path';
import readline from 'node:readline';
import { fileURLToPath } from 'node:url';

const kEndLimit = 20_000;
const kStartLimit = 60000;
const kTestLimit = 240000;

function required(variable) {
  const value = process.env[variable];
  if (!value) throw new Error(`${variable} is not set. Start these tests by CTest, or see tests/bindings/node.cmake.`);
  return value;
}

const address = required('TOLVEX_TEST_ADDRESS');
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tolvex-node-'));
const isWine = Boolean(process.env.TOLVEX_NODE);
let simulator = null;
let recordings = 0;

async function startSimulator() {
  recordings += 1;
  const recording = path.join(folder, `recording-${recordings}.jsonl`);
  const [command, ...launched] = required('ZELKAD_SIM').split(' ');
  const child = spawn(command, [...launched, '--quiet', '--address', address, '--web-port', '0',
    '--record', forTheTest(recording), ...(isWine ? ['--console'] : []), ...process.argv.slice(3)],
  { stdio: [isWine ? 'pipe' : 'ignore', 'pipe', 'inherit'], cwd: folder });
  const limit = setTimeout(() => child.kill(), kStartLimit);
  let url = null;
  for await (const line of readline.createInterface({ input: child.stdout })) {
    url = /page on (\S+)/.exec(line)?.[1] ?? url;
    if (line.endsWith('ready')) break;
  }
  clearTimeout(limit);
  if (!url) throw new Error(`zelkad-sim did not start at ${address} within ${kStartLimit} ms.`);
  child.stdout.resume();
  simulator = { child, ended: once(child, 'exit') };
  return { url, recording: forTheTest(recording) };
}

// Wine may keep connections of a program that was killed, open and silent: there it is asked to end.
async function killSimulator() {
  if (!simulator) return;
  const { child, ended } = simulator;
  simulator = null;
  if (isWine) child.stdin.end('quit\n');
  const limit = setTimeout(() => child.kill('SIGKILL'), isWine ? kEndLimit : 0);
  await ended;
  clearTimeout(limit);
}

// A path as programs under Wine see it.
function forTheTest(file) {
  return isWine ? `Z:${file.replaceAll('/', '\\')}` : file;
}

// What a test asks for that it cannot do itself.
const control = http.createServer(async (request, response) => {
  try {
    let answer = {};
    if (request.url === '/kill') await killSimulator();
    if (request.url === '/start') answer = await startSimulator();
    response.writeHead(200, { 'Content-Type': 'application/json' }).end(JSON.stringify(answer));
  } catch (error) {
    response.writeHead(500).end(String(error));
  }
});

async function run(file) {
  control.listen(0, '127.0.0.1');
  await once(control, 'listening');
  const { url, recording } = await startSimulator();
  const [command, ...args] = [...(process.env.TOLVEX_NODE ?? process.execPath).split(' '), '--test-reporter=tap',
    forTheTest(path.resolve(file))];
  const printed = path.join(folder, 'output');
  const output = fs.openSync(printed, 'w');
  const child = spawn(command, args, {
    stdio: ['ignore', output, output],
    env: {
      ...process.env,
      HOME: folder,
      XDG_STATE_HOME: path.join(folder, 'state'),
      TOLVEX_LIBRARY: forTheTest(path.resolve(required('TOLVEX_LIBRARY'))),
      NODE_PATH: forTheTest(path.resolve(required('TOLVEX_NODE_MODULES'))),
      NODE_SKIP_PLATFORM_CHECK: '1', // Wine says that it is Windows 7
      TEST_SIMULATOR: url,
      TEST_RECORDING: recording,
      TEST_CONTROL: `http://127.0.0.1:${control.address().port}`,
      TEST_FOLDER: forTheTest(folder),
    },
  });
  const limit = setTimeout(() => {
    console.log(`FAILED: ${file} did not end within ${kTestLimit} ms.`);
    child.kill('SIGKILL');
  }, kTestLimit);
  const [status] = await once(child, 'exit');
  clearTimeout(limit);
  const text = fs.readFileSync(printed, 'utf8');
  process.stdout.write(text);
  // A file without tests, or one that ended before them, is no success.
  const passed = Number(/^# pass (\d+)/m.exec(text)?.[1] ?? 0);
  if (status === 0 && passed === 0) console.log('FAILED: no test has run');
  return status === 0 && passed > 0 ? 0 : 1;
}

try {
  process.exitCode = await run(process.argv[2]);
} finally {
  await killSimulator();
  control.close();
  fs.rmSync(folder, { recursive: true, force: true, maxRetries: 20, retryDelay: 100 });
}
