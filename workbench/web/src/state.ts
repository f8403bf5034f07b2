// What the workbench told: one signal a key, so that a change redraws only what shows it.
import { batch, computed, signal, type Signal } from '@preact/signals';
import type {
  Command,
  Edit,
  FilledSlot,
  Group,
  Lamps,
  Layout,
  LibraryItem,
  Progress,
  ServerDialog,
  Show,
  Slot,
  StageItem,
  State,
  Surface,
  SurfaceFader,
  Transport,
} from './protocol';

const RESTING: SurfaceFader = { hand: 0 };
const FADER_KEYS = ['hand', 'stored', 'caught', 'way', 'distance'] as const;
const eightFaders = () => Array.from({ length: 8 }, () => signal(RESTING));

// A signal each, so that a lamp that blinks redraws no fader.
export const faders = { group: eightFaders(), bump: eightFaders() };

const NO_SHOW: Show = { name: '', page: '', pages: [], shows: [] };

const signals = {
  show: signal(NO_SHOW),
  layout: signal<Layout>({ pageSize: 8, sizes: [8], focus: true }),
  surface: signal<Lamps>({ masks: {}, blink: {}, phase: false }),
  transport: signal<Transport>({
    state: 'Stopped',
    recording: false,
    mode: 'Merge',
    ms: 0,
    timecode: '00:00:00.000',
    events: 0,
    next: 0,
    current: -1,
    revision: 0,
  }),
  edit: signal<Edit>({ mode: 'None', waiting: '', flashing: [], popup: null }),
  stage: signal<StageItem[]>([]),
  items: signal<LibraryItem[]>([]),
  dialog: signal<ServerDialog | null>(null),
  progress: signal<Progress | null>(null),
  clients: signal(1),
  commands: signal<Command[]>([]),
};

export const lamps = signals.surface;
export const { show, layout, transport, edit, stage, items, dialog, progress, clients, commands } = signals;

const emptyGroup = (group: number): Group => ({ caption: '', group, step: 0, steps: 1, value: 0, slots: [] });

// Groups 0 (top buttons) to 9 (bump buttons).
export const groups: Signal<Group>[] = Array.from({ length: 10 }, (_, group) =>
  signal(emptyGroup(group)),
);

export const serverVersion = signal('');

// Work that takes its time, in words.
const WORK: Record<string, string> = {
  LoadShow: 'Loading the show',
  CreateNewShow: 'Making the show',
  SetPage: 'Turning the page',
  clearAll: 'Switching everything off',
  'record.LoadEventsFrom': 'Loading the events',
  'record.SaveEventsTo': 'Saving the events',
  'record.updateEventTime': 'Sorting the events',
};

export const workName = (command: string) => WORK[command] ?? command;

// Controls that the next click can mean while an edit waits.
export const meantControls = computed(() => new Set(edit.value.flashing));

// The session's clock less this page's, in milliseconds.
const clockOffset = signal(0);
export function sessionNow(): number {
  return performance.now() + clockOffset.value;
}

function setGroup(number: number, group: Group | null): void {
  groups[number]!.value = group ?? emptyGroup(number);
}

function setFaders(surface: Surface): void {
  for (const row of ['group', 'bump'] as const) {
    surface[row].forEach((fader, i) => {
      const now = faders[row][i]!;
      const same = FADER_KEYS.every((key) => fader[key] === now.peek()[key]);
      if (!same) now.value = fader;
    });
  }
}

export function setState(ms: number | undefined, changed: State): void {
  batch(() => {
    if (ms !== undefined) clockOffset.value = ms - performance.now();
    for (const [key, value] of Object.entries(changed)) {
      if (key === 'surface') setFaders(value as Surface);
      if (key.startsWith('group.')) setGroup(Number(key.slice(6)), value as Group | null);
      else if (key === 'show' && value === null) show.value = NO_SHOW;
      else if (key in signals) (signals as Record<string, Signal<unknown>>)[key]!.value = value;
    }
  });
}

export function isFilled(slot: Slot | null | undefined): slot is FilledSlot {
  return slot?.name !== undefined;
}

export function slotAt(group: number, index: number): Slot | undefined {
  return groups[group]?.peek().slots.find((slot) => slot.index === index);
}

export function groupName(group: number): string {
  if (group === 0) return 'Top buttons';
  return group === 9 ? 'Bump buttons' : `Group ${group}`;
}
