// Edit commands on the button that has the focus, and questions before what cannot be taken back.
import {
  addPage,
  choose,
  clearEvents,
  deletePage,
  deleteShow,
  editAt,
  editOpen,
  loadEvents,
  newShow,
  renamePage,
  renameShow,
  saveEvents,
  type EditCommand,
} from '../actions';
import { notify } from '../announce';
import { FADER_MODES } from '../protocol';
import { isFilled, show, slotAt } from '../state';
import { ask, confirm } from '../ui';
import { focusedSlot } from './focus';

function focusedControl(): { control: number; name: string; fader: string | undefined } | null {
  const { group, index } = focusedSlot()?.dataset ?? {};
  const slot = slotAt(Number(group), Number(index));
  if (!isFilled(slot)) {
    notify('refused', 'There is no button here. Move to one with the arrow keys first.');
    return null;
  }
  if (slot.control === null) {
    notify('refused', 'No control reaches this slot with this page size.');
    return null;
  }
  return { control: slot.control, name: slot.name, fader: slot.fader };
}

export async function editFocused(command: EditCommand): Promise<void> {
  const at = focusedControl();
  if (at) await editAt(at.control, command);
}

export async function chooseFocused(): Promise<void> {
  const at = focusedControl();
  if (at) await choose(at.control);
}

export async function deleteFocused(): Promise<void> {
  const at = focusedControl();
  if (at && (await choose(at.control))) await deleteOpen(at.name);
}

export async function nextFaderMode(): Promise<void> {
  const at = focusedControl();
  if (!at) return;
  const now = FADER_MODES.findIndex((mode) => mode === at.fader);
  await editAt(at.control, FADER_MODES[(now + 1) % FADER_MODES.length]!);
}

export async function deleteOpen(name: string): Promise<void> {
  const sure = await confirm({
    title: `Delete “${name}”?`,
    text: 'The button goes from its page. This cannot be taken back.',
    action: 'Delete',
    dangerous: true,
  });
  if (sure) await editOpen('delete');
}

// What follows is the host's own: it has the button playing to begin with.
export async function beginFadeTimes(name: string): Promise<void> {
  if (await editOpen('fadeTimes')) notify('info', `“${name}” plays, for its fade times to be adjusted.`);
}

export async function beginCue(name: string): Promise<void> {
  if (await editOpen('cue')) notify('info', `“${name}” plays, for its cue to be edited.`);
}

// The same with the button that has the focus.
export async function beginAtFocused(begin: (name: string) => Promise<void>): Promise<void> {
  const at = focusedControl();
  if (at && (await choose(at.control))) await begin(at.name);
}

async function askName(title: string, label: string, value: string, action: string, then: (name: string) => unknown) {
  const name = (await ask({ title, label, value, action }))?.trim();
  if (name && name !== value) await then(name);
}

export const askNewShow = () => askName('New show', 'Name of the show', '', 'Make show', newShow);
export const askNewPage = () => askName('New page', 'Name of the page', '', 'Add page', addPage);

export function askRenameShow(): Promise<void> {
  const { name } = show.peek();
  return askName('Rename show', 'New name of the show', name, 'Rename', (to) => renameShow(name, to));
}

export function askRenamePage(): Promise<void> {
  const { page } = show.peek();
  return askName('Rename page', 'New name of the page', page, 'Rename', (to) => renamePage(page, to));
}

export async function askDeleteShow(): Promise<void> {
  const { name } = show.peek();
  const text = 'The show goes with all its pages and files. This cannot be taken back.';
  if (await confirm({ title: `Delete the show “${name}”?`, text, action: 'Delete show', dangerous: true })) await deleteShow(name);
}

export async function askDeletePage(): Promise<void> {
  const { page } = show.peek();
  const text = 'The page goes with its buttons. This cannot be taken back.';
  if (await confirm({ title: `Delete the page “${page}”?`, text, action: 'Delete page', dangerous: true })) await deletePage(page);
}

export const askSaveEvents = () => askFile('Save the events', 'Save', saveEvents);
export const askLoadEvents = () => askFile('Load events', 'Load', loadEvents);

async function askFile(title: string, action: string, then: (file: string) => unknown): Promise<void> {
  const file = (await ask({ title, label: 'File in the data folder', value: 'evening.evt', action }))?.trim();
  if (file) await then(file);
}

export async function askClearEvents(): Promise<void> {
  const text = 'The recording is emptied. What was saved to a file stays there.';
  if (await confirm({ title: 'Clear all events?', text, action: 'Clear', dangerous: true })) await clearEvents();
}
