// Keys that come before the page has answered the one before: they are kept and act in their order, in the place that
// has the focus by then. So a name that is typed right after the key for renaming goes into the question for it, also
// when the workbench takes its time to ask.
import { effect } from '@preact/signals';
import { connectionStatus } from './connection';
import { rendered } from './rendered';
import { dialog } from './state';
import { question } from './ui';

const MOST = 200;
const MODIFIERS = ['Shift', 'Control', 'Alt', 'Meta'];

let underWay = 0;
let kept: KeyboardEvent[] = [];

// A question ends the wait: the keys are for it.
const waits = () => underWay > 0 && !dialog.peek() && !question.peek();

// Keys wait until it is done. What became of it is not asked.
export function keysWaitFor(work: Promise<unknown>): void {
  const done = () => {
    underWay--;
    void actOn();
  };
  underWay++;
  work.then(done, done);
}

function isField(target: Element): target is HTMLInputElement {
  return target.matches('input:not([type=radio], [type=checkbox])');
}

// What the browser itself does with a key; keys that move from field to field are left out.
function byDefault(target: Element, key: string): void {
  if (isField(target)) {
    if (key.length === 1) document.execCommand('insertText', false, key);
    else if (key === 'Backspace') document.execCommand('delete');
    else if (key === 'Enter') target.form?.requestSubmit();
  } else if (target instanceof HTMLElement && target.matches('button, input') && (key === 'Enter' || key === ' ')) {
    target.click();
  }
}

function strike({ key, code, shiftKey }: KeyboardEvent): void {
  const target = document.activeElement ?? document.body;
  const event = (type: string) => new KeyboardEvent(type, { key, code, shiftKey, bubbles: true, cancelable: true });
  if (target.dispatchEvent(event('keydown'))) byDefault(target, key);
  target.dispatchEvent(event('keyup'));
}

async function actOn(): Promise<void> {
  await rendered();
  while (kept.length && !waits()) {
    strike(kept.shift()!);
    await rendered();
  }
}

function keep(event: KeyboardEvent): void {
  if (!event.isTrusted || !(waits() || kept.length)) return;
  if (event.ctrlKey || event.altKey || event.metaKey || MODIFIERS.includes(event.key)) return;
  // Everything off never waits.
  if (event.key === 'Escape' && event.shiftKey) return;
  event.preventDefault();
  event.stopImmediatePropagation();
  if (kept.length < MOST) kept.push(event);
}

export function keepKeys(): void {
  window.addEventListener('keydown', keep, true);
  effect(() => {
    if (dialog.value || question.value) void actOn();
  });
  // What was meant for another state of the desk is not done when it is back.
  effect(() => {
    if (connectionStatus.value === 'lost') kept = [];
  });
}
