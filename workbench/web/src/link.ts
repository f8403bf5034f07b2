// The one connection of the page, wired to the state, the log and the notices.
import { notify, say, warn } from './announce';
import { Connection, NotConnected, socketUrl } from './connection';
import { addEntries, startLog } from './log';
import type { Done, Events, FoundButton } from './protocol';
import { serverVersion, setState } from './state';

let connectedBefore = false;

export const connection = new Connection(socketUrl(), {
  hello(frame) {
    serverVersion.value = frame.version;
    setState(frame.ms, { ...frame.state, commands: frame.commands });
    startLog(frame.log ?? []);
    if (connectedBefore) say('Connected again. Everything is up to date.');
    connectedBefore = true;
  },
  patch: (frame) => setState(frame.ms, frame.set),
  log: (frame) => addEntries(frame.entries),
  problem: (text) => notify('refused', text),
  lost: () => warn('Connection lost. Trying to connect again.'),
});

// A command line; a refusal or failure is shown to the operator. Answers whether it succeeded.
export async function run(cmd: string): Promise<boolean> {
  return (await attempt(cmd)).ok;
}

// The same with everything that came back.
export async function attempt(cmd: string): Promise<Done> {
  const done = await quietly(cmd);
  if (!done.ok) notify('refused', reasonOf(done));
  return done;
}

// The same without a notice.
export async function quietly(cmd: string): Promise<Done> {
  try {
    return await connection.ask<Done>({ t: 'do', cmd });
  } catch (error) {
    return { t: 'done', id: 0, ok: false, error: (error as Error).message };
  }
}

export function reasonOf(done: Done): string {
  const text = (done.error ?? 'The workbench gave no reason.').replace(/^refused: /, '');
  return text.charAt(0).toUpperCase() + text.slice(1);
}

export async function find(text: string): Promise<FoundButton[]> {
  const found = await connection.ask<{ t: 'found'; id: number; results: FoundButton[]; more: boolean }>({ t: 'find', text });
  return found.results;
}

export async function fetchEvents(from: number, count: number): Promise<Events> {
  return connection.ask<Events>({ t: 'events', from, count });
}

export function sendOrWarn(sent: boolean): boolean {
  if (!sent) notify('refused', new NotConnected().message);
  return sent;
}
