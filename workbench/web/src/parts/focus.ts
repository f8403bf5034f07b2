// Where the keyboard is: one tab stop a group, arrows to the next button in that direction.
import { signal, type Signal } from '@preact/signals';

// By group, the position that Tab reaches.
export const tabStops: Signal<number>[] = Array.from({ length: 10 }, () => signal(0));

// Parts of the page in the order of F6.
const REGIONS = '.groups, .tops, .bumps, .transport, .panel, .bar';

const slots = () => [...document.querySelectorAll<HTMLElement>('.slot')];

export function noteFocus(target: HTMLElement): void {
  const { group, position } = target.dataset;
  if (group !== undefined && position !== undefined) tabStops[Number(group)]!.value = Number(position);
}

export function focusSlot(group: number, which: { index: number } | { position: number }): boolean {
  const wanted = 'index' in which ? `[data-index="${which.index}"]` : `[data-position="${which.position}"]`;
  const slot = document.querySelector<HTMLElement>(`.slot[data-group="${group}"]${wanted}`);
  slot?.focus();
  return !!slot;
}

export function focusGroup(group: number): void {
  if (!focusSlot(group, { position: tabStops[group]!.peek() })) focusSlot(group, { position: 0 });
}

export function focusedSlot(): HTMLElement | null {
  return document.activeElement?.closest<HTMLElement>('.slot') ?? null;
}

// The group that the focus is in, by its button, fader or go button.
export function focusedGroup(): number | null {
  const holder = document.activeElement?.closest<HTMLElement>('[data-group]');
  return holder ? Number(holder.dataset.group) : null;
}

export function focusFader(group: number): void {
  const which = group === 9 ? 'bump' : 'group';
  const number = group === 9 ? Number(focusedSlot()?.dataset.index ?? 1) : group;
  document.querySelector<HTMLElement>(`.screen [data-fader="${which}"][data-number="${number}"]`)?.focus();
}

const DIRECTIONS: Record<string, [number, number]> = {
  ArrowLeft: [-1, 0],
  ArrowRight: [1, 0],
  ArrowUp: [0, -1],
  ArrowDown: [0, 1],
};

function centre(element: HTMLElement): [number, number] {
  const box = element.getBoundingClientRect();
  return [box.x + box.width / 2, box.y + box.height / 2];
}

// The nearest button that way: what lies aside counts threefold.
export function moveFocus(from: HTMLElement, key: string): boolean {
  const direction = DIRECTIONS[key];
  if (!direction) return false;
  const [x, y] = centre(from);
  let best: HTMLElement | null = null;
  let least = Infinity;
  for (const slot of slots()) {
    const [slotX, slotY] = centre(slot);
    const ahead = (slotX - x) * direction[0] + (slotY - y) * direction[1];
    const aside = Math.abs((slotX - x) * direction[1]) + Math.abs((slotY - y) * direction[0]);
    if (ahead < 4) continue;
    const distance = ahead + 3 * aside;
    if (distance < least) [best, least] = [slot, distance];
  }
  best?.focus();
  return !!best;
}

export function focusNextRegion(backwards: boolean): void {
  const regions = [...document.querySelectorAll<HTMLElement>(REGIONS)].filter((region) => region.offsetParent);
  const now = regions.findIndex((region) => region.contains(document.activeElement));
  const next = regions[(now + (backwards ? -1 : 1) + regions.length) % regions.length];
  const target = next?.querySelector<HTMLElement>(
    'button[tabindex="0"], [role="slider"], [tabindex="0"], button:not([tabindex="-1"]), input',
  );
  target?.focus();
}
