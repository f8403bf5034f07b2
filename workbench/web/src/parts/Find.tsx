// Finds a button by name on any page and goes to it.
import { useSignal } from '@preact/signals';
import { useRef } from 'preact/hooks';
import { goTo } from '../actions';
import { say } from '../announce';
import { find } from '../link';
import type { FoundButton } from '../protocol';
import { groupName } from '../state';
import { keysWaitFor } from '../typeahead';
import { markFound } from './found';
import { Icon } from './Icon';

const WAIT = 80;

export function Find() {
  const text = useSignal('');
  const results = useSignal<FoundButton[] | null>(null);
  const current = useSignal(0);
  const timer = useRef(0);
  const latest = useRef(0);
  // What the results are for, or are on their way for.
  const searched = useRef('');
  const underWay = useRef<Promise<void>>(Promise.resolve());

  const search = async () => {
    clearTimeout(timer.current);
    searched.current = text.peek();
    const number = ++latest.current;
    const wanted = text.peek().trim();
    const found = wanted ? await find(wanted).catch(() => []) : null;
    // An answer that comes after a later question is of no use.
    if (number !== latest.current) return;
    results.value = found;
    current.value = 0;
    if (found) say(found.length === 1 ? '1 button found' : `${found.length} buttons found`);
  };
  const close = () => {
    latest.current++;
    text.value = '';
    results.value = null;
  };
  const goToResult = async (result: FoundButton | undefined) => {
    if (!result) return;
    close();
    if (await goTo(result)) markFound(result.group, result.index);
  };
  // Enter may come before the results of what was typed last.
  const goToCurrent = async () => {
    if (searched.current !== text.peek()) underWay.current = search();
    await underWay.current;
    await goToResult(results.peek()?.[current.peek()]);
  };
  const keyDown = (event: KeyboardEvent) => {
    const count = results.peek()?.length ?? 0;
    if (event.key === 'ArrowDown' && count) current.value = (current.peek() + 1) % count;
    else if (event.key === 'ArrowUp' && count) current.value = (current.peek() + count - 1) % count;
    else if (event.key === 'Enter') keysWaitFor(goToCurrent());
    else if (event.key === 'Escape') {
      close();
      (event.currentTarget as HTMLElement).blur();
    } else return;
    event.preventDefault();
    event.stopPropagation();
  };
  const shown = results.value;

  return (
    <div class="find" onFocusOut={(event) => !event.currentTarget.contains(event.relatedTarget as Node) && (results.value = null)}>
      <Icon name="search" />
      <input
        id="find"
        type="text"
        role="combobox"
        placeholder="Find a button"
        aria-label="Find a button on any page"
        aria-expanded={!!shown?.length}
        aria-controls="find-results"
        aria-autocomplete="list"
        aria-activedescendant={shown?.length ? `found-${current.value}` : undefined}
        autocomplete="off"
        spellcheck={false}
        value={text.value}
        onInput={(event) => {
          text.value = event.currentTarget.value;
          clearTimeout(timer.current);
          timer.current = window.setTimeout(() => (underWay.current = search()), WAIT);
        }}
        onFocus={() => (underWay.current = search())}
        onKeyDown={keyDown}
      />
      <kbd>/</kbd>
      <ul id="find-results" role="listbox" aria-label="Buttons found" hidden={!shown}>
        {shown?.map((result, i) => (
          <li
            key={i}
            id={`found-${i}`}
            role="option"
            aria-selected={i === current.value}
            onPointerDown={(event) => event.preventDefault()}
            onClick={() => void goToResult(result)}
          >
            <strong>{result.name}</strong>
            <span>
              {result.page} · {groupName(result.group)} · {result.index}
            </span>
          </li>
        ))}
        {shown?.length === 0 && (
          <li class="none" role="option" aria-selected={false} aria-disabled>
            No button has this name.
          </li>
        )}
      </ul>
    </div>
  );
}
