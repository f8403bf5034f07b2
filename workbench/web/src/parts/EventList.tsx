// The events of the recording: jump to one, change its time. Only the rows in sight are fetched.
import { useSignal } from '@preact/signals';
import { useCallback, useEffect, useLayoutEffect, useRef } from 'preact/hooks';
import { seekTo, setEventTime } from '../actions';
import { notify, say } from '../announce';
import { fetchEvents } from '../link';
import type { EventRow } from '../protocol';
import { transport } from '../state';
import { parseTime } from '../time';
import { keysWaitFor } from '../typeahead';
import { askClearEvents, askLoadEvents, askSaveEvents } from './editing';
import { Icon } from './Icon';
import { VirtualList } from './VirtualList';

const BLOCK = 100;
const ROW = 26;
const LIST = 'event-list';
const focusList = () => document.getElementById(LIST)?.focus();

// Rows by number, fetched in blocks and forgotten when the list changed.
function useRows(revision: number) {
  const rows = useRef(new Map<number, EventRow>());
  const asked = useRef(new Set<number>());
  const arrived = useSignal(0);
  useEffect(() => {
    asked.current.clear();
    arrived.value++;
  }, [revision]);
  const want = useCallback((first: number, last: number) => {
    for (let block = Math.floor(first / BLOCK); block * BLOCK < last; block++) {
      if (asked.current.has(block)) continue;
      asked.current.add(block);
      fetchEvents(block * BLOCK, BLOCK).then(
        (events) => {
          for (const row of events.rows) rows.current.set(row.i, row);
          arrived.value++;
        },
        () => asked.current.delete(block),
      );
    }
  }, []);
  // One row that has to be there.
  const fetchRow = async (i: number) => {
    for (const row of (await fetchEvents(i, 1)).rows) rows.current.set(row.i, row);
    arrived.value++;
  };
  return { rows: rows.current, want, fetchRow, version: arrived.value };
}

export function EventList() {
  const { events, next, revision, state } = transport.value;
  const { rows, want, fetchRow } = useRows(revision);
  const range = useRef<[number, number]>([0, 0]);
  const current = useSignal(0);
  const editing = useSignal<number | null>(null);
  const onRange = (first: number, last: number) => {
    range.current = [first, last];
    want(first, last);
  };
  useEffect(() => want(...range.current), [revision]);
  useEffect(() => {
    if (current.value >= events) current.value = Math.max(0, events - 1);
  }, [events]);

  const jump = async (index: number) => {
    if (state !== 'Stopped') return notify('refused', 'Stop the transport first: it jumps only while it is stopped.');
    if (await seekTo(index)) say(`Event ${index + 1}, ${rows.get(index)?.time ?? ''}`);
  };
  const edit = async (index: number) => {
    current.value = index;
    if (!rows.has(index)) await fetchRow(index);
    editing.value = index;
  };
  const keyDown = (event: KeyboardEvent) => {
    if (editing.peek() !== null) return;
    const moves: Record<string, number> = { ArrowDown: 1, ArrowUp: -1, PageDown: 10, PageUp: -10, Home: -events, End: events };
    const move = moves[event.key];
    if (move !== undefined && events) current.value = Math.max(0, Math.min(events - 1, current.value + move));
    else if (event.key === 'Enter' && events) void jump(current.value);
    else if ((event.key === 'F2' || event.key === 't') && events) keysWaitFor(edit(current.value));
    else return;
    event.preventDefault();
    event.stopPropagation();
  };
  const change = async (index: number, text: string) => {
    editing.value = null;
    focusList();
    const ms = parseTime(text);
    if (ms === null) return notify('refused', `“${text}” is no time. Write hours:minutes:seconds.milliseconds.`);
    if (ms !== rows.get(index)?.ms && (await setEventTime(index, ms))) say('Time changed');
  };

  return (
    <div class="events">
      <div class="panel-tools">
        <button type="button" class="small" onClick={() => void askLoadEvents()}>
          Load…
        </button>
        <button type="button" class="small" onClick={() => void askSaveEvents()} disabled={!events}>
          Save…
        </button>
        <button type="button" class="small" onClick={() => void askClearEvents()} disabled={!events}>
          Clear…
        </button>
        <span class="hint">
          <kbd>Enter</kbd> jump <kbd>F2</kbd> time
        </span>
      </div>
      {events === 0 ? (
        <p class="empty">No events. Press Record, click some buttons, press Stop.</p>
      ) : (
        <VirtualList
          count={events}
          rowHeight={ROW}
          shown={current.value}
          onRange={onRange}
          attributes={{
            class: 'event-rows',
            id: LIST,
            role: 'grid',
            tabIndex: 0,
            'aria-label': 'Events',
            'aria-rowcount': events,
            'aria-activedescendant': `event-${current.value}`,
            onKeyDown: keyDown,
          }}
          row={(i) => (
            <Row
              key={i}
              i={i}
              row={rows.get(i)}
              current={i === current.value}
              next={i === next}
              editing={editing.value === i}
              choose={() => (current.value = i)}
              jump={() => void jump(i)}
              edit={() => keysWaitFor(edit(i))}
              change={(text) => void change(i, text)}
              leave={() => {
                editing.value = null;
                focusList();
              }}
            />
          )}
        />
      )}
    </div>
  );
}

interface RowProperties {
  i: number;
  row: EventRow | undefined;
  current: boolean;
  next: boolean;
  editing: boolean;
  choose(): void;
  jump(): void;
  edit(): void;
  change(text: string): void;
  leave(): void;
}

function Row({ i, row, current, next, editing, choose, jump, edit, change, leave }: RowProperties) {
  return (
    <div
      class="event-row"
      role="row"
      id={`event-${i}`}
      aria-rowindex={i + 1}
      aria-selected={current}
      data-next={next || undefined}
      onClick={choose}
      onDblClick={jump}
    >
      <span role="gridcell" class="event-number">
        {next ? <Icon name="play" /> : null}
        {i + 1}
      </span>
      <span role="gridcell" class="event-time">
        {editing && row ? (
          <TimeField value={row.time} change={change} leave={leave} />
        ) : (
          <button type="button" tabIndex={-1} onClick={edit} aria-label={`Change time ${row?.time ?? ''}`} title="Change the time (F2)">
            {row?.time ?? '…'}
          </button>
        )}
      </span>
      <span role="gridcell" class="event-kind">
        {row?.kind}
      </span>
      <span role="gridcell" class="event-text">
        {row?.text}
      </span>
      <span role="gridcell">
        <button type="button" tabIndex={-1} class="event-jump" onClick={jump} aria-label={`Jump to event ${i + 1}`} title="Jump here (Enter)">
          <Icon name="jump" />
        </button>
      </span>
    </div>
  );
}

function TimeField({ value, change, leave }: { value: string; change(text: string): void; leave(): void }) {
  const field = useRef<HTMLInputElement>(null);
  useLayoutEffect(() => {
    field.current!.focus();
    field.current!.select();
  }, []);
  return (
    <input
      ref={field}
      class="time-field"
      aria-label="Time of the event"
      defaultValue={value}
      onBlur={leave}
      onKeyDown={(event) => {
        event.stopPropagation();
        if (event.key === 'Enter') change(event.currentTarget.value);
        else if (event.key === 'Escape') leave();
      }}
    />
  );
}
