// Requests to the simulator.

/// A refusal: `what` was wrong and its `remedy`, as the simulator worded them.
export class Refusal extends Error {
  constructor(what, remedy) {
    super(what);
    this.what = what;
    this.remedy = remedy;
  }
}

async function answerOf(path, options) {
  try {
    return await fetch(path, options);
  } catch {
    throw new Refusal('The simulator does not answer.',
      'Start it again if it has stopped; this page connects to it by itself.');
  }
}

async function refusalOf(response) {
  try {
    const { error } = await response.json();
    return new Refusal(String(error.what), String(error.remedy ?? ''));
  } catch {
    return new Refusal(`The simulator answered with HTTP status ${response.status}.`, 'Reload the page.');
  }
}

async function call(method, path, body) {
  const options = { method };
  if (body !== undefined) {
    options.body = JSON.stringify(body);
    options.headers = { 'Content-Type': 'application/json' };
  }
  const response = await answerOf(path, options);
  if (!response.ok) throw await refusalOf(response);
  return response;
}

const jsonOf = async (response) => (await response).json();

export const get = (path) => jsonOf(call('GET', path));
export const post = (path, body) => jsonOf(call('POST', path, body));
export const patch = (path, body) => jsonOf(call('PATCH', path, body));
export const remove = (path) => jsonOf(call('DELETE', path));
export const getText = async (path) => (await call('GET', path)).text();

export const printerPath = (name) => `/api/printers/${encodeURIComponent(name)}`;
export const jobPath = (number) => `/api/jobs/${number}`;
