// A box that has the page for itself from the moment it is drawn until it goes.
import type { RefObject } from 'preact';
import { useLayoutEffect, useRef } from 'preact/hooks';
import { onEscape } from '../escape';

// `close` makes it go, by whatever means the operator asks for it. The focus returns to where it was.
export function useModal(close: () => void): RefObject<HTMLDialogElement> {
  const box = useRef<HTMLDialogElement>(null);
  const latest = useRef(close);
  latest.current = close;
  useLayoutEffect(() => {
    const dialog = box.current!;
    const leave = () => latest.current();
    const cancel = (event: Event) => {
      event.preventDefault();
      leave();
    };
    dialog.addEventListener('cancel', cancel);
    // The browser may close it without asking.
    dialog.addEventListener('close', leave);
    dialog.showModal();
    dialog.querySelector<HTMLInputElement>('input:not([type=checkbox])')?.select();
    const forget = onEscape(leave);
    return () => {
      forget();
      dialog.removeEventListener('close', leave);
      dialog.close();
    };
  }, []);
  return box;
}
