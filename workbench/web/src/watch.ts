// What is said to screen readers when it changes, whoever changed it.
import { effect } from '@preact/signals';
import { say } from './announce';
import { edit, progress, show, transport, workName } from './state';

function whenChanged<T>(read: () => T, tell: (now: T) => void): void {
  let before: T | undefined;
  effect(() => {
    const now = read();
    if (before !== undefined && now !== before) tell(now);
    before = now;
  });
}

whenChanged(
  () => `${transport.value.state}${transport.value.recording ? ', recording' : ''}`,
  (now) => say(`Transport ${now.toLowerCase()}`),
);
whenChanged(
  () => edit.value.waiting,
  (now) => say(now || 'No edit waits any more'),
);
whenChanged(
  () => show.value.name,
  (now) => say(`Show ${now || 'none'}`),
);
whenChanged(
  () => progress.value?.what ?? '',
  (now) => say(now ? workName(now) : 'Finished'),
);
