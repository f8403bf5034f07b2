// Reaches everything by name: what the page does, and every command of the workbench with its arguments.
import { useComputed, useSignal } from '@preact/signals';
import { useRef } from 'preact/hooks';
import { loadShow, setPage, setPageSize, setReleaseOnPlay } from '../actions';
import { ACTIONS } from '../keys';
import { quietly, reasonOf } from '../link';
import type { Command } from '../protocol';
import { rendered } from '../rendered';
import { commands, layout, show } from '../state';
import { keysWaitFor } from '../typeahead';
import { overlay } from '../ui';
import { useModal } from './modal';

interface Entry {
  title: string;
  detail: string;
  keys?: string | undefined;
  choose(): void;
}

interface Outcome {
  line: string;
  ok: boolean;
  text: string;
}

const MOST = 60;

function usage({ name, args }: Command): string {
  return [name, ...args.map((arg) => (arg.optional ? `[${arg.name}]` : arg.name))].join(' ');
}

// Some commands are explained by their arguments alone.
function helpOf(command: Command): string {
  return command.help && command.help !== usage(command) ? command.help : '';
}

// How well all words of the search fit: 0 is not at all.
function fits(entry: Entry, words: string[]): number {
  const title = entry.title.toLowerCase();
  const all = `${title} ${entry.detail.toLowerCase()}`;
  if (!words.every((word) => all.includes(word))) return 0;
  const inTitle = words.every((word) => title.includes(word));
  return 1 + (inTitle ? 2 : 0) + (title.startsWith(words.join(' ')) ? 2 : 0) + (title.startsWith(words[0]!) ? 1 : 0);
}

function pageEntries(close: () => void): Entry[] {
  const doing = (title: string, detail: string, act: () => unknown, keys?: string): Entry => ({
    title,
    detail,
    keys,
    choose() {
      close();
      // First the focus goes back to where it was, which many of them act on.
      keysWaitFor(rendered().then(act));
    },
  });
  const { pages, shows, page, name } = show.value;
  const { sizes, releaseOnPlay } = layout.value;
  return [
    ...ACTIONS.filter((action) => !action.keys?.includes('…') && !/ and |, /.test(action.keys ?? '') && action.keys !== '← → ↑ ↓').map(
      (action) => doing(action.text, action.section, () => action.run(), action.keys),
    ),
    ...pages.filter((other) => other !== page).map((other) => doing(`Go to page ${other}`, 'Show and pages', () => setPage(other))),
    ...shows.filter((other) => other !== name).map((other) => doing(`Load the show ${other}`, 'Show and pages', () => loadShow(other))),
    ...sizes.map((size) => doing(`Show ${size} slots of each group`, 'This page', () => setPageSize(size))),
    doing(releaseOnPlay ? 'A button that starts leaves the others on' : 'A button that starts releases its group', 'Play', () => setReleaseOnPlay(!releaseOnPlay)),
  ];
}

export function Palette() {
  const field = useRef<HTMLInputElement>(null);
  const text = useSignal('');
  const current = useSignal(0);
  const outcome = useSignal<Outcome | null>(null);
  const close = () => (overlay.value = 'none');
  const box = useModal(close);

  const complete = (command: Command) => {
    text.value = `${command.name} `;
    field.current?.focus();
  };
  const perform = async (line: string) => {
    const done = await quietly(line);
    const results = Object.entries(done.results ?? {}).map(([name, value]) => (name ? `${name} = ${value}` : `= ${value}`));
    outcome.value = { line, ok: done.ok, text: done.ok ? results.join('\n') || 'done' : reasonOf(done) };
    if (done.ok) text.value = '';
  };
  const known = useComputed(() => new Map(commands.value.map((command) => [command.name, command])));
  const typed = useComputed(() => known.value.get(/^(\S+)\s/.exec(text.value)?.[1] ?? ''));
  const shown = useComputed(() => {
    if (typed.value) return [];
    const words = text.value.toLowerCase().split(/\s+/).filter(Boolean);
    const entries: Entry[] = [
      ...pageEntries(close),
      ...commands.value.map((command) => ({
        title: command.name,
        detail: helpOf(command),
        keys: command.args.map((arg) => (arg.optional ? `[${arg.name}]` : arg.name)).join(' '),
        choose: () => (command.args.length ? complete(command) : void perform(command.name)),
      })),
    ];
    return entries
      .map((entry, i) => ({ entry, fit: words.length ? fits(entry, words) : 1, i }))
      .filter(({ fit }) => fit)
      .sort((a, b) => b.fit - a.fit || a.i - b.i)
      .slice(0, MOST)
      .map(({ entry }) => entry);
  });

  const enter = () => {
    if (typed.value) void perform(text.peek().trim());
    else shown.value[current.peek()]?.choose();
  };
  const keyDown = (event: KeyboardEvent) => {
    const count = shown.value.length;
    if (event.key === 'ArrowDown' && count) current.value = (current.peek() + 1) % count;
    else if (event.key === 'ArrowUp' && count) current.value = (current.peek() + count - 1) % count;
    else if (event.key === 'Enter') enter();
    else return;
    event.preventDefault();
    document.getElementById(`palette-${current.peek()}`)?.scrollIntoView({ block: 'nearest' });
  };

  return (
    <dialog ref={box} class="palette" aria-label="Any command" onClick={(event) => event.target === box.current && close()}>
      <input
        ref={field}
        role="combobox"
        aria-label="Command"
        aria-expanded={shown.value.length > 0}
        aria-controls="palette-list"
        aria-activedescendant={shown.value.length ? `palette-${current.value}` : undefined}
        placeholder="What shall be done? Type words, or a command with its arguments"
        autocomplete="off"
        spellcheck={false}
        value={text.value}
        onInput={(event) => {
          text.value = event.currentTarget.value;
          current.value = 0;
        }}
        onKeyDown={keyDown}
      />
      {typed.value && <ArgumentHelp command={typed.value} text={text.value} perform={() => void perform(text.peek().trim())} />}
      <ul id="palette-list" role="listbox" aria-label="Commands" hidden={!shown.value.length}>
        {shown.value.map((entry, i) => (
          <li key={`${entry.title}${i}`} id={`palette-${i}`} role="option" aria-selected={i === current.value} onClick={entry.choose}>
            <span class="palette-title">{entry.title}</span>
            <span class="palette-detail">{entry.detail}</span>
            {entry.keys && <kbd>{entry.keys}</kbd>}
          </li>
        ))}
      </ul>
      {outcome.value && (
        <pre class="outcome" data-ok={outcome.value.ok} role="status">
          {`${outcome.value.line}\n${outcome.value.ok ? '' : '! '}${outcome.value.text}`}
        </pre>
      )}
    </dialog>
  );
}

function ArgumentHelp({ command, text, perform }: { command: Command; text: string; perform(): void }) {
  // The argument under way: words so far, texts in quotes counted as one.
  const words = text.match(/"(?:[^"]|"")*"?|\S+/g) ?? [];
  const now = Math.max(0, words.length - (text.endsWith(' ') ? 1 : 2));
  return (
    <div class="usage">
      <code aria-label={usage(command)}>
        {command.name}
        {command.args.map((arg, i) => (
          <span key={arg.name} data-now={i === now || undefined}>
            {' '}
            {arg.optional ? `[${arg.name}]` : arg.name}
            <small> {arg.type}</small>
          </span>
        ))}
      </code>
      {helpOf(command) && <p>{helpOf(command)}</p>}
      <button type="button" class="small primary" onClick={perform}>
        Perform <kbd>Enter</kbd>
      </button>
    </div>
  );
}
