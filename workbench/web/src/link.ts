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
export async function run(...cmds: string[]): Promise<boolean> {
  return (await attempt(...cmds)).ok;
}

// The same with everything that came back. Several are performed in turn up to the first that fails, with nothing of
// this page or another one in between.
export async function attempt(...cmds: string[]): Promise<Done> {
  const done = await quietly(...cmds);
  if (!done.ok) notify('refused', reasonOf(done));
  return done;
}

// The same without a notice.
export async function quietly(...cmds: string[]): Promise<Done> {
  try {
    return await connection.ask<Done>(cmds.length === 1 ? { t: 'do', cmd: cmds[0]! } : { t: 'do', cmds });
  } catch (error) {
    return { t: 'done', id: 0, ok: false, error: (error as Error).message };
  }
}

// Empty, or why the answer to the workbench's question was not taken.
export async function answerDialog(number: number, value: boolean | string | null): Promise<string> {
  try {
    const done = await connection.ask<Done>({ t: 'answer', dialog: number, value });
    return done.ok ? '' : reasonOf(done);
  } catch (error) {
    return (error as Error).message;
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
