// What the operator does, as the workbench's command lines.
import { say } from './announce';
import { attempt, connection, run, sendOrWarn } from './link';
import type { FaderMode, FoundButton, ItemType, Slot } from './protocol';
import { edit, groups, isFilled, show, transport } from './state';

export function quote(text: string): string {
  return `"${text.replaceAll('"', '""')}"`;
}

// ---- Playing

export interface Pointer {
  button: number;
  shift: number;
  x: number;
  y: number;
}

const BY_KEY: Pointer = { button: 1, shift: 0, x: 0, y: 0 };

const clickLine = (control: number, at: Pointer = BY_KEY) =>
  `controlClicked ${control} ${at.button} ${at.shift} ${at.x} ${at.y}`;

export const click = (control: number, at?: Pointer) => run(clickLine(control, at));

export function press(control: number): boolean {
  return sendOrWarn(connection.tell({ t: 'press', control }));
}

export function release(control: number): void {
  connection.tell({ t: 'release', control });
}

export function moveFader(which: 'group' | 'bump', number: number, value: number): void {
  sendOrWarn(connection.tell({ t: 'fader', which, number, value }));
}

export const go = (group: number) => run(`buttonGroupGo ${group}`);
export const highlight = (group: number, direction: 'First' | 'Prev' | 'Next') =>
  run(`highlightButton ${group} Highlight_${direction}`);

export async function step(group: number, direction: 'Prev' | 'Next'): Promise<void> {
  if (await run(`changeButtonGroupPageOffset ${group} PageDir_${direction}`)) {
    const { step: now, steps } = groups[group]!.peek();
    say(`Group ${group}, step ${now + 1} of ${steps}`);
  }
}

export const allOff = () => run('clearAll');

// ---- Shows and pages

export const newShow = (name: string) => run(`CreateNewShow ${quote(name)}`);
export const loadShow = (name: string) => run(`LoadShow ${quote(name)}`);
export const renameShow = (from: string, to: string) => run(`host.renameShow ${quote(from)} ${quote(to)}`);
export const deleteShow = (name: string) => run(`host.deleteShow ${quote(name)}`);
export const renamePage = (from: string, to: string) => run(`RenamePage ${quote(from)} ${quote(to)}`);
export const deletePage = (name: string) => run(`DeletePage ${quote(name)}`);

export async function setPage(name: string): Promise<boolean> {
  const done = await run(`SetPage ${quote(name)}`);
  if (done) say(`Page ${name}`);
  return done;
}

// A page that is added beside others becomes current only when it is set.
export async function addPage(name: string): Promise<boolean> {
  return (await run(`AddPage ${quote(name)}`)) && (name === show.peek().page || setPage(name));
}

export async function pageBy(offset: number): Promise<void> {
  const { pages, page } = show.peek();
  if (pages.length < 2) return;
  const next = pages[(pages.indexOf(page) + offset + pages.length) % pages.length];
  if (next !== undefined) await setPage(next);
}

export const setPageSize = (size: number) => run(`setButtonGroupPageSize ${size}`);
export const setReleaseOnPlay = (on: boolean) => run(`host.policy releaseOnPlay ${on ? 'on' : 'off'}`);

// Brings a button onto the screen.
export async function goTo(found: FoundButton): Promise<boolean> {
  if (found.page !== show.peek().page && !(await setPage(found.page))) return false;
  if (found.group < 1 || found.group > 8) return true;
  return run(`goToPageWithButtonIndex ${found.group} ${found.index}`);
}

// ---- Editing

export const enableEditing = (on: boolean) => (on ? run('setModeEditing true') : cancelEdit());
export const cancelEdit = () => run('CancelEditMode');

export async function cancelAssignment(): Promise<boolean> {
  const done = await run('CancelEditMode');
  if (done) say('Cancelled');
  return done;
}

const chooseLines = (control: number) => ['setModeEditing true', clickLine(control)];

// Makes the button of a control the one that edit commands act on, and opens its menu.
export const choose = (control: number) => run(...chooseLines(control));

export type EditCommand =
  | 'rename'
  | 'delete'
  | 'mark'
  | 'fade'
  | 'lock'
  | 'bump'
  | 'move'
  | 'copy'
  | 'fadeTimes'
  | 'cue'
  | FaderMode;

const EDIT_LINES: Record<EditCommand, string> = {
  rename: 'RenameButton',
  delete: 'DeleteButton',
  mark: 'AssignMarkFade MarkFadeType_Mark',
  fade: 'AssignMarkFade MarkFadeType_Fade',
  lock: 'ToggleLockState',
  bump: 'ToggleBumpMode',
  move: 'setModeMove',
  copy: 'setModeCopy',
  fadeTimes: 'setModeAdjFadeInOut',
  cue: 'beginEditCue',
  Dimmer: 'ChangeFaderMode FaderMode_Dimmer',
  Speed: 'ChangeFaderMode FaderMode_Speed',
  Proportional: 'ChangeFaderMode FaderMode_Proportional',
};

// Acts on the button whose menu is open.
export const editOpen = (command: EditCommand) => run(EDIT_LINES[command]);

// Acts on the button of a control.
export const editAt = (control: number, command: EditCommand) => run(...chooseLines(control), EDIT_LINES[command]);

export const assign = (name: string, type: ItemType) => run(`setModeAssign ${quote(name)} ButtonType_${type} host`);
export const assignToNextFree = (group: number) => run(`autoAssignNextAvailable ${group}`);

// Whether a click now chooses a place instead of playing.
export function placing(): boolean {
  return ['Assign', 'Move', 'Copy'].includes(edit.value.mode);
}

// ---- Transport

export const play = () => run('record.Play');
export const record = () => run('record.Record');
export const stop = () => run('record.Stop_');
export const clearEvents = () => run('record.ClearEvents');
export const saveEvents = (file: string) => run(`record.SaveEventsTo ${quote(file)}`);
export const loadEvents = (file: string) => run(`record.LoadEventsFrom ${quote(file)}`);
export const seekTo = (index: number) => run(`record.SeekToEventIndex ${index}`);
export const setEventTime = (index: number, ms: number) => run(`record.updateEventTime ${index} ${ms}`);
export const setRecordMode = (mode: string) => run(`record.SetRecordMode RecordMode_${mode}`);
export const toggleRecordMode = () =>
  setRecordMode(transport.peek().mode === 'Overwrite' ? 'Merge' : 'Overwrite');

// ---- Any command

export const command = attempt;

export function describe(slot: Slot | undefined): string {
  if (!slot || !isFilled(slot)) return 'empty';
  const parts = [slot.name, slot.type?.toLowerCase() ?? ''];
  if (slot.locked) parts.push('locked');
  if (slot.bump) parts.push('bump');
  if (slot.fader) parts.push(`${slot.fader.toLowerCase()} fader`);
  if (slot.on) parts.push(`playing at ${slot.level ?? 0} percent`);
  if (slot.highlight) parts.push('next on go');
  return parts.filter(Boolean).join(', ');
}

// ---- Multi files

const initMulti = (page: string, name: string) => `multi.Init . ${quote(show.peek().name)} ${quote(page)} ${quote(name)}`;

// Writes the multi file of an item on the current page.
export function writeMulti(name: string, sequences: string[]): Promise<boolean> {
  const add = sequences.map((sequence) => `multi.AddSequence ${quote(sequence)} ${quote(name)}`);
  return run(initMulti(show.peek().page, name), ...add, 'multi.Save');
}

// What is in a multi file, as the workbench prints it.
export async function readMulti(page: string, name: string): Promise<string | null> {
  const done = await attempt(initMulti(page, name), 'multi.Load', 'multi.SequenceList');
  return done.ok ? (done.results?.[''] ?? '') : null;
}
