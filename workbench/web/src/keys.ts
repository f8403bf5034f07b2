// Every key of the page: what it does, in words, for the help and the palette, and the doing.
import {
  allOff,
  cancelEdit,
  enableEditing,
  go,
  highlight,
  pageBy,
  play,
  record,
  step,
  stop,
  toggleRecordMode,
} from './actions';
import { notify } from './announce';
import { closeNewest } from './escape';
import { setPaused, paused } from './log';
import { focusedGroup, focusFader, focusGroup, focusNextRegion } from './parts/focus';
import {
  askClearEvents,
  askDeletePage,
  askDeleteShow,
  askLoadEvents,
  askNewPage,
  askNewShow,
  askRenamePage,
  askRenameShow,
  askSaveEvents,
  beginAtFocused,
  beginCue,
  beginFadeTimes,
  chooseFocused,
  deleteFocused,
  editFocused,
  nextFaderMode,
} from './parts/editing';
import { rendered } from './rendered';
import { dialog, edit } from './state';
import { keepKeys, keysWaitFor } from './typeahead';
import { drawer, overlay, question, showPanel, singleKeys, toggleTheme, wide, type PanelName } from './ui';

export interface Action {
  section: 'Play' | 'Move about' | 'Edit' | 'Show and pages' | 'Transport' | 'Panels' | 'This page';
  text: string;
  // As shown; none: only in the palette.
  keys?: string;
  // Codes as "Shift+KeyP"; a text matches the key itself.
  on?: string[];
  // A promise of it: keys that follow wait, other than those that play.
  run(event?: KeyboardEvent): unknown;
}

function inGroup(act: (group: number) => unknown): () => unknown {
  return () => {
    const group = focusedGroup();
    if (group !== null && group >= 1 && group <= 8) return act(group);
    return notify('refused', 'Move into one of the eight groups first (keys 1 to 8).');
  };
}

const digit = (event?: KeyboardEvent) => Number(event?.code.slice(-1));

function openPanel(name: PanelName, focus: string): () => void {
  return () => {
    if (!wide.peek() && drawer.peek() === name) {
      drawer.value = null;
      return;
    }
    showPanel(name);
    void rendered().then(() => document.querySelector<HTMLElement>(`[data-panel="${name}"] ${focus}`)?.focus());
  };
}

export const ACTIONS: Action[] = [
  { section: 'Play', text: 'Click the button, or hold a bump button', keys: 'Enter, Space', run: () => undefined },
  { section: 'Play', text: 'Go in group 1 to 8', keys: 'Shift+1 … 8', on: ['12345678'].flatMap((d) => [...d].map((n) => `Shift+Digit${n}`)), run: (event) => go(digit(event)) },
  { section: 'Play', text: 'Go in this group', keys: 'G', on: ['KeyG'], run: inGroup(go) },
  { section: 'Play', text: 'Mark the next button of this group for go', keys: 'N', on: ['KeyN'], run: inGroup((group) => highlight(group, 'Next')) },
  { section: 'Play', text: 'Mark the previous button of this group for go', keys: 'Shift+N', on: ['Shift+KeyN'], run: inGroup((group) => highlight(group, 'Prev')) },
  { section: 'Play', text: 'This group’s fader, or this bump button’s', keys: 'F', on: ['KeyF'], run: () => focusFader(focusedGroup() ?? 1) },
  { section: 'Play', text: 'Move a fader by 1, by 10, to the end', keys: '↑ ↓, Page Up Page Down, Home End', run: () => undefined },
  { section: 'Play', text: 'Everything off, on every page, whatever is open', keys: 'Shift+Esc', run: () => allOff() },

  { section: 'Move about', text: 'To the next button that way', keys: '← → ↑ ↓', run: () => undefined },
  { section: 'Move about', text: 'To group 1 to 8', keys: '1 … 8', on: [...'12345678'].map((n) => `Digit${n}`), run: (event) => focusGroup(digit(event)) },
  { section: 'Move about', text: 'To the top buttons', keys: '0', on: ['Digit0'], run: () => focusGroup(0) },
  { section: 'Move about', text: 'To the bump buttons', keys: '9', on: ['Digit9'], run: () => focusGroup(9) },
  { section: 'Move about', text: 'Previous, next step of this group', keys: 'Page Up, Page Down', on: ['PageUp', 'PageDown'], run: (event) => inGroup((group) => step(group, event?.code === 'PageUp' ? 'Prev' : 'Next'))() },
  { section: 'Move about', text: 'To the next part of the page, the one before', keys: 'F6, Shift+F6', on: ['F6', 'Shift+F6'], run: (event) => focusNextRegion(!!event?.shiftKey) },
  { section: 'Move about', text: 'Find a button on any page', keys: '/', on: ['Slash'], run: () => document.getElementById('find')?.focus() },

  { section: 'Edit', text: 'Menu of this button', keys: 'E', on: ['KeyE'], run: chooseFocused },
  { section: 'Edit', text: 'Edit mode: the next click chooses the button', keys: 'Shift+E', on: ['Shift+KeyE'], run: () => enableEditing(edit.peek().mode !== 'EditEnabled') },
  { section: 'Edit', text: 'Cancel what waits', keys: 'Esc', on: ['Escape'], run: () => edit.peek().mode !== 'None' && cancelEdit() },
  { section: 'Edit', text: 'Rename this button', keys: 'F2', on: ['F2'], run: () => editFocused('rename') },
  { section: 'Edit', text: 'Move this button', keys: 'V', on: ['KeyV'], run: () => editFocused('move') },
  { section: 'Edit', text: 'Copy this button', keys: 'C', on: ['KeyC'], run: () => editFocused('copy') },
  { section: 'Edit', text: 'Delete this button', keys: 'Del', on: ['Delete'], run: () => deleteFocused() },
  { section: 'Edit', text: 'Lock or unlock this button', keys: 'L', on: ['KeyL'], run: () => editFocused('lock') },
  { section: 'Edit', text: 'Bump on or off for this button', keys: 'B', on: ['KeyB'], run: () => editFocused('bump') },
  { section: 'Edit', text: 'Next fader mode for this button', keys: 'D', on: ['KeyD'], run: nextFaderMode },
  { section: 'Edit', text: 'Make a mark button before this one', keys: 'K', on: ['KeyK'], run: () => editFocused('mark') },
  { section: 'Edit', text: 'Make a fade button after this one', keys: 'J', on: ['KeyJ'], run: () => editFocused('fade') },
  { section: 'Edit', text: 'Adjust fade in and out of this button', run: () => beginAtFocused(beginFadeTimes) },
  { section: 'Edit', text: 'Edit the cue of this button', run: () => beginAtFocused(beginCue) },

  { section: 'Show and pages', text: 'Previous, next page', keys: '[ and ]', on: ['BracketLeft', 'BracketRight'], run: (event) => pageBy(event?.code === 'BracketLeft' ? -1 : 1) },
  { section: 'Show and pages', text: 'New page', keys: 'Shift+P', on: ['Shift+KeyP'], run: () => askNewPage() },
  { section: 'Show and pages', text: 'Rename this page', run: () => askRenamePage() },
  { section: 'Show and pages', text: 'Delete this page', run: () => askDeletePage() },
  { section: 'Show and pages', text: 'New show', run: () => askNewShow() },
  { section: 'Show and pages', text: 'Rename this show', run: () => askRenameShow() },
  { section: 'Show and pages', text: 'Delete this show', run: () => askDeleteShow() },

  { section: 'Transport', text: 'Play or pause', keys: 'P', on: ['KeyP'], run: () => play() },
  { section: 'Transport', text: 'Record, or end the take', keys: 'R', on: ['KeyR'], run: () => record() },
  { section: 'Transport', text: 'Stop and rewind', keys: 'S', on: ['KeyS'], run: () => stop() },
  { section: 'Transport', text: 'Merge or overwrite', keys: 'M', on: ['KeyM'], run: () => toggleRecordMode() },
  { section: 'Transport', text: 'Save the events', run: () => askSaveEvents() },
  { section: 'Transport', text: 'Load events', run: () => askLoadEvents() },
  { section: 'Transport', text: 'Clear the events', run: () => askClearEvents() },

  { section: 'Panels', text: 'Library: assign an item', keys: 'A', on: ['KeyA'], run: openPanel('Library', '#new-item-name') },
  { section: 'Panels', text: 'Events', keys: 'I', on: ['KeyI'], run: openPanel('Events', '.event-rows') },
  { section: 'Panels', text: 'Log', keys: 'O', on: ['KeyO'], run: openPanel('Log', '.filter') },
  { section: 'Panels', text: 'Stage', keys: 'T', on: ['KeyT'], run: openPanel('Stage', '[tabindex="0"]') },
  { section: 'Panels', text: 'Control surface', keys: 'U', on: ['KeyU'], run: openPanel('Surface', '[role="slider"]') },
  { section: 'Panels', text: 'Pause the log, or go on', keys: 'Shift+O', on: ['Shift+KeyO'], run: () => setPaused(!paused.peek()) },

  { section: 'This page', text: 'Any command', keys: 'Ctrl+K', on: ['Ctrl+KeyK'], run: () => (overlay.value = 'palette') },
  { section: 'This page', text: 'These keys', keys: '?', on: ['?', 'F1'], run: () => (overlay.value = 'help') },
  { section: 'This page', text: 'Light or dark', keys: 'Shift+T', on: ['Shift+KeyT'], run: toggleTheme },
];

const byCode = new Map(ACTIONS.flatMap((action) => (action.on ?? []).map((code) => [code, action] as const)));

function isText(target: EventTarget | null): boolean {
  return target instanceof HTMLElement && (target.isContentEditable || target.matches('input:not([type=radio], [type=checkbox]), textarea, select'));
}

function keyDown(event: KeyboardEvent): void {
  if (event.defaultPrevented || event.isComposing) return;
  if (event.key === 'Escape' && (event.shiftKey || closeNewest())) {
    event.preventDefault();
    if (event.shiftKey) void allOff();
    return;
  }
  if (dialog.peek() || question.peek() || overlay.peek() !== 'none') return;
  const withControl = event.ctrlKey || event.metaKey;
  if (event.altKey || (isText(event.target) && !withControl)) return;
  const code = `${withControl ? 'Ctrl+' : ''}${event.shiftKey ? 'Shift+' : ''}${event.code}`;
  const action = byCode.get(withControl ? code : event.key === '?' ? '?' : code);
  if (!action) return;
  // Single letters can be switched off, for speech input that types them.
  if (!singleKeys.peek() && event.key.length === 1 && !withControl) return;
  event.preventDefault();
  const done = action.run(event);
  if (done instanceof Promise && action.section !== 'Play') keysWaitFor(done);
}

export function listenToKeys(): void {
  keepKeys();
  window.addEventListener('keydown', keyDown);
}
