// Every call into the library and every callback out of it, nested as they happened.
import { useSignal } from '@preact/signals';
import { useMemo } from 'preact/hooks';
import { notify } from '../announce';
import { asText, clearLog, entries, held, logVersion, paused, setPaused, stood } from '../log';
import type { LogEntry } from '../protocol';
import { timecode } from '../time';
import { Icon } from './Icon';
import { VirtualList } from './VirtualList';

const ROW = 19;
const KINDS = ['call', 'callback', 'result', 'error'] as const;
const KIND_NAMES: Record<string, string> = { call: 'Calls', callback: 'Callbacks', result: 'Results', error: 'Errors' };
const KIND_SIGNS: Record<string, string> = { call: '→', callback: '←', result: '=', error: '!' };

const TICK = /^(record|leds)\.TimerTick/;
const OF_EVERY_TICK = /^(UpdateTimecodeDisplay|setLED)\(/;

interface Wanted {
  words: string[];
  hidden: ReadonlySet<string>;
  ticks: boolean;
  onlyFiles: boolean;
}

function matches(entry: LogEntry, { words, hidden, onlyFiles }: Wanted): boolean {
  if (hidden.has(entry.kind)) return false;
  if (onlyFiles && !entry.files?.length) return false;
  if (!words.length) return true;
  const text = asText(entry).toLowerCase();
  return words.every((word) => text.includes(word));
}

function select(from: LogEntry[], wanted: Wanted): LogEntry[] {
  let inTick = false;
  return from.filter((entry) => {
    if (entry.depth === 0 && entry.kind === 'call') inTick = TICK.test(entry.text);
    // What else happens in a tick, an event that is played back for one, is worth a line.
    const everyTick = inTick && (TICK.test(entry.text) || OF_EVERY_TICK.test(entry.text));
    return (wanted.ticks || !everyTick) && matches(entry, wanted);
  });
}

async function copy(shown: LogEntry[]): Promise<void> {
  const text = shown.map((entry) => `${timecode(entry.ms)} ${asText(entry)}`).join('\n');
  try {
    await navigator.clipboard.writeText(text);
    notify('info', `${shown.length} lines copied`);
  } catch {
    notify('refused', 'The browser did not let the text be copied.');
  }
}

export function Log() {
  const filter = useSignal('');
  const hidden = useSignal<ReadonlySet<string>>(new Set());
  const onlyFiles = useSignal(false);
  const ticks = useSignal(false);
  const version = logVersion.value;

  const shown = useMemo(() => {
    const words = filter.value.toLowerCase().split(/\s+/).filter(Boolean);
    return select(stood.value ?? entries, { words, hidden: hidden.value, ticks: ticks.value, onlyFiles: onlyFiles.value });
  }, [stood.value ? 0 : version, stood.value, filter.value, hidden.value, ticks.value, onlyFiles.value]);

  const toggle = (kind: string) => {
    const next = new Set(hidden.peek());
    if (!next.delete(kind)) next.add(kind);
    hidden.value = next;
  };

  return (
    <div class="log">
      <div class="panel-tools">
        <input
          type="search"
          class="filter"
          placeholder="Filter"
          aria-label="Filter the log"
          value={filter.value}
          onInput={(event) => (filter.value = event.currentTarget.value)}
        />
        <button type="button" class="small" aria-pressed={paused.value} onClick={() => setPaused(!paused.peek())}>
          <Icon name={paused.value ? 'play' : 'pause'} />
          {paused.value ? `Go on${held.value ? ` (${held.value})` : ''}` : 'Pause'}
        </button>
        <button type="button" class="small" onClick={() => void copy(shown)}>
          <Icon name="copy" />
          Copy
        </button>
        <button type="button" class="small" onClick={clearLog} disabled={paused.value}>
          Clear
        </button>
      </div>
      <div class="panel-tools kinds" role="group" aria-label="What the log shows">
        {KINDS.map((kind) => (
          <button type="button" key={kind} class="chip" data-kind={kind} aria-pressed={!hidden.value.has(kind)} onClick={() => toggle(kind)}>
            <span aria-hidden="true">{KIND_SIGNS[kind]}</span> {KIND_NAMES[kind]}
          </button>
        ))}
        <button type="button" class="chip" data-kind="tick" title="Ticks of the blink timer and the transport" aria-pressed={ticks.value} onClick={() => (ticks.value = !ticks.value)}>
          Ticks
        </button>
        <button type="button" class="chip" title="Only what wrote files" aria-pressed={onlyFiles.value} onClick={() => (onlyFiles.value = !onlyFiles.value)}>
          Files
        </button>
      </div>
      <VirtualList
        count={shown.length}
        rowHeight={ROW}
        follow={!paused.value}
        attributes={{ class: 'log-rows', role: 'log', 'aria-live': 'off', tabIndex: 0, 'aria-label': `Log, ${shown.length} lines` }}
        row={(i) => <Row key={shown[i]!.n} entry={shown[i]!} />}
      />
    </div>
  );
}

function Row({ entry }: { entry: LogEntry }) {
  return (
    <div class="log-row" data-kind={entry.kind} title={`${timecode(entry.ms)}  ${asText(entry).trim()}`}>
      <span class="log-depth" style={{ width: `${entry.depth * 12}px` }} aria-hidden="true" />
      <span class="log-sign" aria-label={entry.kind}>
        {KIND_SIGNS[entry.kind] ?? '·'}
      </span>
      <span class="log-text">{entry.text}</span>
      {entry.files?.map((file) => (
        <span class="log-file" key={file}>
          {file}
        </span>
      ))}
    </div>
  );
}
