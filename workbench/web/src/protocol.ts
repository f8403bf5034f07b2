// What goes over the connection: frames as JSON text, the state as keys that are replaced whole.

export type ItemType = 'Sequence' | 'Multi' | 'Timeline' | 'Auto';
export const ITEM_TYPES: readonly ItemType[] = ['Sequence', 'Multi', 'Timeline', 'Auto'];
export type FaderMode = 'Dimmer' | 'Speed' | 'Proportional';
export const FADER_MODES: readonly FaderMode[] = ['Dimmer', 'Speed', 'Proportional'];

// A place on the screen. `control` is absent where no control reaches the slot; `name` where it is empty.
export interface Slot {
  control: number | null;
  index: number;
  name?: string;
  type?: string;
  on?: boolean;
  locked?: boolean;
  bump?: boolean;
  fader?: string;
  highlight?: boolean;
  level?: number;
}

export interface FilledSlot extends Slot {
  name: string;
}

export interface Group {
  caption: string;
  group: number;
  step: number;
  steps: number;
  value: number;
  slots: Slot[];
}

export interface Show {
  name: string;
  page: string;
  pages: string[];
  shows: string[];
  loading?: boolean;
}

export interface Layout {
  pageSize: number;
  sizes: number[];
  focus: boolean;
  releaseOnPlay?: boolean;
}

// A fader without a motor: where the hand left it, what is stored, and the way (1 up, -1 down) and distance
// to go until it takes over.
export interface SurfaceFader {
  hand: number;
  // Absent: it drives nothing on this page.
  stored?: number;
  caught?: boolean;
  way?: number;
  distance?: number;
}

export interface Lamps {
  // By row code, one character a lamp, the first lamp first: '#' is lit (masks) or blinking (blink).
  masks: Record<string, string>;
  blink: Record<string, string>;
  phase: boolean;
}

export interface Surface extends Lamps {
  group: SurfaceFader[];
  bump: SurfaceFader[];
}

export interface Transport {
  state: string;
  recording: boolean;
  mode: string;
  ms: number;
  timecode: string;
  events: number;
  next: number;
  current: number;
  revision: number;
}

export interface Edit {
  mode: string;
  waiting: string;
  flashing: number[];
  popup?: EditedButton | null;
}

// The button whose edit pop-up is open.
export interface EditedButton {
  group: number;
  index: number;
  control: number | null;
  name: string;
}

export interface StageItem {
  id: string;
  name: string;
  type: string;
  level: number;
  mode: string;
  // When it started, on the session's clock.
  since: number;
  button: string;
}

export interface LibraryItem {
  id: string;
  type: string;
  name: string;
  multi?: string;
  parts?: string[];
  page?: string;
}

export interface ServerDialog {
  id: number;
  kind: 'yesno' | 'text' | 'message';
  title: string;
  text: string;
  value?: string;
}

export interface Progress {
  what: string;
  done: number;
  total: number;
}

export interface CommandArgument {
  name: string;
  type: string;
  optional?: boolean;
}

export interface Command {
  name: string;
  args: CommandArgument[];
  help?: string;
}

export interface LogEntry {
  n: number;
  ms: number;
  depth: number;
  kind: string;
  text: string;
  files?: string[];
}

export interface FoundButton {
  page: string;
  group: number;
  index: number;
  name: string;
}

export interface EventRow {
  i: number;
  ms: number;
  time: string;
  kind: string;
  text: string;
}

export interface Done {
  t: 'done';
  id: number;
  ok: boolean;
  error?: string;
  results?: Record<string, string>;
  us?: number;
}

export interface Found {
  t: 'found';
  id: number;
  results: FoundButton[];
  more: boolean;
}

export interface Events {
  t: 'events';
  id: number;
  total: number;
  from: number;
  rows: EventRow[];
}

export type State = Record<string, unknown>;

export type ServerFrame =
  | { t: 'hello'; version: string; seq: number; ms: number; state: State; log: LogEntry[]; commands: Command[] }
  | { t: 'patch'; seq: number; ms: number; set: State }
  | { t: 'log'; entries: LogEntry[] }
  | { t: 'error'; id?: number; text: string }
  | { t: 'pong'; id: number }
  | Done
  | Found
  | Events;

export type ClientFrame =
  | { t: 'do'; cmd: string }
  | { t: 'do'; cmds: string[] }
  | { t: 'press' | 'release'; control: number }
  | { t: 'fader'; which: 'group' | 'bump'; number: number; value: number }
  | { t: 'find'; text: string }
  | { t: 'events'; from: number; count: number }
  | { t: 'answer'; dialog: number; value: boolean | string | null }
  | { t: 'ping' };
