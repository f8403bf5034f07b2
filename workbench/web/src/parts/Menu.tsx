// A menu at an element: arrows, Home, End and first letters move in it, Escape and a click outside close it.
import type { ComponentChildren, JSX } from 'preact';
import { useLayoutEffect, useRef } from 'preact/hooks';
import { onEscape } from '../escape';

export interface MenuItem {
  label: string;
  action(): void;
  icon?: JSX.Element;
  keys?: string;
  // Present: one of several choices, and whether it is the one in force.
  chosen?: boolean;
  dangerous?: boolean;
}

export type MenuEntry = MenuItem | 'line';

interface Properties {
  label: string;
  entries: MenuEntry[];
  anchor: HTMLElement;
  head?: ComponentChildren;
  takeFocus?: boolean;
  // Beside the anchor rather than below it.
  beside?: boolean;
  close(): void;
}

const GAP = 6;

function place(menu: HTMLElement, anchor: HTMLElement, beside: boolean): void {
  const at = anchor.getBoundingClientRect();
  const { offsetWidth, offsetHeight } = menu;
  const right = at.right + GAP;
  const sideways = right + offsetWidth <= window.innerWidth ? right : at.left - GAP - offsetWidth;
  const left = beside ? sideways : at.left;
  const top = Math.min(beside ? at.top : at.bottom + GAP, window.innerHeight - offsetHeight - GAP);
  menu.style.left = `${Math.max(GAP, Math.min(left, window.innerWidth - offsetWidth - GAP))}px`;
  menu.style.top = `${Math.max(GAP, top)}px`;
}

export function Menu({ label, entries, anchor, head, takeFocus = true, beside, close }: Properties) {
  const menu = useRef<HTMLDivElement>(null);
  const items = () => [...menu.current!.querySelectorAll<HTMLElement>('[role^="menuitem"]')];

  useLayoutEffect(() => {
    place(menu.current!, anchor, !!beside);
    if (!takeFocus) return;
    const before = document.activeElement as HTMLElement | null;
    items()[0]?.focus();
    return () => {
      if (menu.current?.contains(document.activeElement) || document.activeElement === document.body) before?.focus();
    };
  }, [anchor]);
  useLayoutEffect(() => onEscape(close), [close]);
  useLayoutEffect(() => {
    const outside = (event: PointerEvent) => {
      const target = event.target as Node;
      if (!menu.current?.contains(target) && !anchor.contains(target)) close();
    };
    window.addEventListener('pointerdown', outside, true);
    window.addEventListener('resize', close);
    return () => {
      window.removeEventListener('pointerdown', outside, true);
      window.removeEventListener('resize', close);
    };
  }, [close]);

  const keyDown = (event: KeyboardEvent) => {
    const all = items();
    const now = all.indexOf(document.activeElement as HTMLElement);
    const to = (index: number) => all[(index + all.length) % all.length]?.focus();
    if (event.key === 'ArrowDown') to(now + 1);
    else if (event.key === 'ArrowUp') to(now - 1);
    else if (event.key === 'Home') to(0);
    else if (event.key === 'End') to(-1);
    else if (event.key === 'Tab') close();
    else if (/^[a-z]$/i.test(event.key) && !event.ctrlKey && !event.altKey && !event.metaKey) {
      const letter = event.key.toLowerCase();
      const order = [...all.slice(now + 1), ...all.slice(0, now + 1)];
      order.find((item) => item.textContent!.trim().toLowerCase().startsWith(letter))?.focus();
    } else return;
    if (event.key !== 'Tab') event.preventDefault();
    event.stopPropagation();
  };

  return (
    <div class="menu" ref={menu} role="menu" aria-label={label} onKeyDown={keyDown}>
      {head && (
        <div class="menu-head" role="presentation">
          {head}
        </div>
      )}
      {entries.map((entry, i) =>
        entry === 'line' ? (
          <hr key={i} />
        ) : (
          <button
            key={i}
            type="button"
            role={entry.chosen === undefined ? 'menuitem' : 'menuitemradio'}
            aria-checked={entry.chosen}
            class={entry.dangerous ? 'dangerous' : undefined}
            tabIndex={-1}
            onClick={entry.action}
          >
            <span class="menu-icon">{entry.icon ?? (entry.chosen ? '✓' : '')}</span>
            <span class="menu-label">{entry.label}</span>
            {entry.keys && <kbd>{entry.keys}</kbd>}
          </button>
        ),
      )}
    </div>
  );
}
