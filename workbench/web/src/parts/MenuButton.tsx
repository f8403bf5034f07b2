// A button that opens a menu below it.
import { useSignal } from '@preact/signals';
import type { ComponentChildren } from 'preact';
import { useCallback, useRef } from 'preact/hooks';
import { Menu, type MenuEntry } from './Menu';

interface Properties {
  label: string;
  class?: string;
  entries(): MenuEntry[];
  children: ComponentChildren;
}

export function MenuButton({ label, class: extra, entries, children }: Properties) {
  const button = useRef<HTMLButtonElement>(null);
  const open = useSignal(false);
  const close = useCallback(() => (open.value = false), []);
  // A choice closes the menu before it acts, so that what it opens gets the focus.
  const closing = (entry: MenuEntry): MenuEntry =>
    entry === 'line' ? entry : { ...entry, action: () => (close(), button.current?.focus(), entry.action()) };
  return (
    <>
      <button
        type="button"
        ref={button}
        class={extra}
        aria-haspopup="menu"
        aria-expanded={open.value}
        aria-label={label}
        onClick={() => (open.value = !open.value)}
        onKeyDown={(event) => {
          if (event.key !== 'ArrowDown') return;
          event.preventDefault();
          open.value = true;
        }}
      >
        {children}
      </button>
      {open.value && <Menu label={label} entries={entries().map(closing)} anchor={button.current!} close={close} />}
    </>
  );
}
