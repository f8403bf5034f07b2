// The button that was found last, marked on the screen for a moment.
import { signal } from '@preact/signals';
import { rendered } from '../rendered';
import { focusSlot } from './focus';

const MARKED_FOR = 2500;
const found = signal<{ group: number; index: number } | null>(null);
let timer = 0;

export function wasFound(group: number, index: number): boolean {
  return found.value?.group === group && found.value.index === index;
}

export function markFound(group: number, index: number): void {
  found.value = { group, index };
  clearTimeout(timer);
  timer = window.setTimeout(() => (found.value = null), MARKED_FOR);
  void rendered().then(() => focusSlot(group, { index }));
}
