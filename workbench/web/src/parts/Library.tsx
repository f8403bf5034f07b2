// Items to assign to buttons: those that the show has files for, and new ones.
import { useComputed, useSignal } from '@preact/signals';
import { assign, readMulti, writeMulti } from '../actions';
import { notify } from '../announce';
import { ITEM_TYPES, type ItemType, type LibraryItem } from '../protocol';
import { edit, groups, isFilled, items, show } from '../state';
import { TypeIcon } from './Icon';

const isItemType = (type: string): type is ItemType => (ITEM_TYPES as readonly string[]).includes(type);

async function begin(name: string, type: string): Promise<void> {
  if (isItemType(type)) await assign(name, type);
}

export function Library() {
  const filter = useSignal('');
  const type = useSignal<string>('All');
  const shown = useComputed(() => {
    const words = filter.value.toLowerCase().split(/\s+/).filter(Boolean);
    return items.value.filter(
      (item) =>
        (type.value === 'All' || item.type === type.value) &&
        words.every((word) => `${item.name} ${item.page ?? ''}`.toLowerCase().includes(word)),
    );
  });
  return (
    <div class="items-library">
      <NewItem />
      <div class="panel-tools">
        <input
          type="search"
          class="filter"
          placeholder="Filter items"
          aria-label="Filter the items"
          value={filter.value}
          onInput={(event) => (filter.value = event.currentTarget.value)}
        />
        <div class="chips" role="group" aria-label="Type of the items">
          {['All', ...ITEM_TYPES].map((name) => (
            <button type="button" key={name} class="chip" aria-pressed={type.value === name} onClick={() => (type.value = name)}>
              {name === 'All' ? 'All' : <TypeIcon type={name} />}
              {name !== 'All' && <span class="unseen">{name}</span>}
            </button>
          ))}
        </div>
      </div>
      {shown.value.length === 0 ? (
        <p class="empty">{items.value.length ? 'No item matches.' : 'This show has no item files yet.'}</p>
      ) : (
        <ul class="items" aria-label={`Items: ${shown.value.length}`}>
          {shown.value.map((item) => (
            <Item key={item.id} item={item} />
          ))}
        </ul>
      )}
    </div>
  );
}

function Item({ item }: { item: LibraryItem }) {
  const contents = useSignal<string | null>(null);
  const look = async () => {
    contents.value = contents.peek() === null ? await readMulti(item.page ?? show.peek().page, item.name) : null;
  };
  return (
    <li data-type={item.type}>
      <TypeIcon type={item.type} />
      <span class="item-name">
        {item.name}
        <small>
          {item.page}
          {item.multi && ` · ${item.multi}`}
        </small>
      </span>
      {item.multi && (
        <button type="button" class="small" aria-expanded={contents.value !== null} aria-label={`Sequences of ${item.name}`} onClick={() => void look()}>
          Sequences
        </button>
      )}
      <button type="button" class="small" aria-label={`Assign ${item.name}`} onClick={() => void begin(item.name, item.type)}>
        Assign
      </button>
      {contents.value !== null && <pre class="multi-contents">{contents.value || 'none'}</pre>}
    </li>
  );
}

// Names of the sequences on the current page, of which a multi can be made.
function sequenceNames(): string[] {
  const names = new Set<string>();
  for (const group of groups) {
    for (const slot of group.value.slots) if (isFilled(slot) && slot.type === 'Sequence') names.add(slot.name);
  }
  for (const item of items.value) if (item.type === 'Sequence') names.add(item.name);
  return [...names].sort((a, b) => a.localeCompare(b));
}

function NewItem() {
  const name = useSignal('');
  const type = useSignal<ItemType>('Sequence');
  const parts = useSignal<ReadonlySet<string>>(new Set());
  const ready = !!show.value.page && edit.value.mode === 'None';

  const make = async () => {
    const wanted = name.peek().trim();
    if (!wanted) return notify('refused', 'Give the item a name first.');
    if (type.peek() === 'Multi') {
      if (!parts.peek().size) return notify('refused', 'Choose the sequences of the multi first.');
      if (!(await writeMulti(wanted, [...parts.peek()]))) return;
    }
    if (await assign(wanted, type.peek())) name.value = '';
  };
  return (
    <form
      class="new-item"
      aria-label="New item"
      onSubmit={(event) => {
        event.preventDefault();
        void make();
      }}
    >
      <fieldset class="segments">
        <legend class="unseen">Type of the new item</legend>
        {ITEM_TYPES.map((choice) => (
          <label key={choice} title={choice}>
            <input type="radio" name="item-type" checked={type.value === choice} onChange={() => (type.value = choice)} />
            <span>
              <TypeIcon type={choice} />
              {choice}
            </span>
          </label>
        ))}
      </fieldset>
      <div class="new-item-row">
        <input
          id="new-item-name"
          aria-label="Name of the new item"
          placeholder="Name of the new item"
          autocomplete="off"
          spellcheck={false}
          value={name.value}
          onInput={(event) => (name.value = event.currentTarget.value)}
        />
        <button type="submit" class="primary" disabled={!ready}>
          Assign
        </button>
      </div>
      {type.value === 'Multi' && (
        <fieldset class="multi-parts">
          <legend>Sequences of the multi</legend>
          {sequenceNames().map((sequence) => (
            <label key={sequence}>
              <input
                type="checkbox"
                checked={parts.value.has(sequence)}
                onChange={() => {
                  const next = new Set(parts.peek());
                  if (!next.delete(sequence)) next.add(sequence);
                  parts.value = next;
                }}
              />
              {sequence}
            </label>
          ))}
        </fieldset>
      )}
    </form>
  );
}
