// What the page says: to screen readers through two live regions, and to everybody in short notices.
import { signal } from '@preact/signals';

export interface Notice {
  id: number;
  kind: 'info' | 'refused';
  text: string;
}

export const polite = signal('');
export const assertive = signal('');
export const notices = signal<Notice[]>([]);

const SHOWN_FOR = 8000;
let lastId = 0;

export function say(text: string): void {
  // The same text twice is said twice only when the region changes.
  polite.value = polite.value === text ? `${text}\u00a0` : text;
}

export function warn(text: string): void {
  assertive.value = assertive.value === text ? `${text}\u00a0` : text;
}

export function notify(kind: Notice['kind'], text: string): void {
  const id = ++lastId;
  notices.value = [...notices.value.filter((notice) => notice.text !== text).slice(-3), { id, kind, text }];
  if (kind === 'refused') warn(text);
  else say(text);
  setTimeout(() => dismiss(id), SHOWN_FOR);
}

export function dismiss(id: number): void {
  if (notices.value.some((notice) => notice.id === id)) notices.value = notices.value.filter((n) => n.id !== id);
}
