// What this page alone knows: which panels are open, which dialog of its own it shows, the theme.
import { effect, signal } from '@preact/signals';

export type PanelName = 'Surface' | 'Stage' | 'Library' | 'Log' | 'Events';
export const PANELS: readonly PanelName[] = ['Surface', 'Stage', 'Library', 'Log', 'Events'];

// Wide screens show three panels at once; others one of five in a drawer.
const wideScreen = window.matchMedia('(min-width: 1280px)');
export const wide = signal(wideScreen.matches);
wideScreen.addEventListener('change', () => (wide.value = wideScreen.matches));

export const upperPanel = signal<PanelName>('Stage');
export const lowerPanel = signal<PanelName>('Log');
export const drawer = signal<PanelName | null>(null);

export type Overlay = 'none' | 'palette' | 'help';
export const overlay = signal<Overlay>('none');

// A question of the page's own, beside those that the workbench asks.
export interface Question {
  title: string;
  text?: string;
  // Present: a text is asked for, this one at first.
  value?: string;
  label?: string;
  action: string;
  dangerous?: boolean;
}
interface OpenQuestion extends Question {
  answer(value: string | null): void;
}
export const question = signal<OpenQuestion | null>(null);

export function ask(asked: Question): Promise<string | null> {
  question.peek()?.answer(null);
  return new Promise((resolve) => {
    question.value = {
      ...asked,
      answer(value) {
        question.value = null;
        resolve(value);
      },
    };
  });
}

export async function confirm(asked: Question): Promise<boolean> {
  return (await ask(asked)) !== null;
}

export type Theme = 'dark' | 'light';
function remembered<T extends string>(key: string, values: readonly T[], otherwise: T): T {
  const value = localStorage.getItem(key) as T | null;
  return value !== null && values.includes(value) ? value : otherwise;
}
const dark = window.matchMedia('(prefers-color-scheme: light)').matches ? 'light' : 'dark';
export const theme = signal<Theme>(remembered('theme', ['dark', 'light'] as const, dark));
export const singleKeys = signal(remembered('single-keys', ['on', 'off'] as const, 'on') === 'on');

effect(() => {
  document.documentElement.dataset.theme = theme.value;
});
effect(() => localStorage.setItem('single-keys', singleKeys.value ? 'on' : 'off'));

export function toggleTheme(): void {
  theme.value = theme.value === 'dark' ? 'light' : 'dark';
  localStorage.setItem('theme', theme.value);
}

export function showPanel(name: PanelName): void {
  if (!wide.peek()) drawer.value = name;
  else if (name === 'Log' || name === 'Events') lowerPanel.value = name;
  else if (name !== 'Surface') upperPanel.value = name;
}
