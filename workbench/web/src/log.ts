// The log as the workbench sends it, bounded; drawn at most once a frame.
import { computed, signal } from '@preact/signals';
import type { LogEntry } from './protocol';

const MOST = 20000;

export const entries: LogEntry[] = [];
export const logVersion = signal(0);
// What is shown stands still while the log is paused.
export const stood = signal<LogEntry[] | null>(null);
export const paused = computed(() => stood.value !== null);
// How many entries came while the log was paused.
export const held = signal(0);

let lastNumber = 0;
let frame = 0;

function redrawSoon(): void {
  if (frame) return;
  frame = requestAnimationFrame(() => {
    frame = 0;
    logVersion.value++;
  });
}

export function addEntries(added: LogEntry[]): void {
  let count = 0;
  for (const entry of added) {
    if (entry.n <= lastNumber) continue;
    lastNumber = entry.n;
    entries.push(entry);
    count++;
  }
  if (!count) return;
  if (paused.value) held.value += count;
  if (entries.length > MOST) entries.splice(0, entries.length - MOST);
  redrawSoon();
}

// The numbers begin anew when the workbench was started anew.
export function startLog(first: LogEntry[]): void {
  const newest = first.at(-1);
  if (!newest || newest.n < lastNumber) {
    entries.length = 0;
    lastNumber = 0;
  }
  addEntries(first);
}

export function clearLog(): void {
  entries.length = 0;
  held.value = 0;
  logVersion.value++;
}

export function setPaused(value: boolean): void {
  stood.value = value ? [...entries] : null;
  held.value = 0;
}

export function asText(entry: LogEntry): string {
  const files = entry.files?.length ? `  [${entry.files.join(', ')}]` : '';
  return `${'  '.repeat(entry.depth)}${entry.text}${files}`;
}
