// The shortcut screen: 32 top buttons, eight groups, eight bump buttons with their faders.
import { groups, show } from '../state';
import { moveFocus, noteFocus, tabStops } from './focus';
import { Fader } from './Fader';
import { GroupColumn } from './GroupColumn';
import { Icon } from './Icon';
import { SlotButton } from './SlotButton';

function slotOf(event: Event): HTMLElement | null {
  return (event.target as HTMLElement).closest<HTMLElement>('.slot');
}

function keyDown(event: KeyboardEvent): void {
  const slot = slotOf(event);
  if (!slot || event.ctrlKey || event.altKey || event.metaKey) return;
  if (moveFocus(slot, event.key)) event.preventDefault();
}

export function Screen() {
  return (
    <section
      class="screen"
      id="screen"
      aria-label={`Screen, page ${show.value.page || 'none'}`}
      onKeyDown={keyDown}
      onFocusCapture={(event) => {
        const slot = slotOf(event);
        if (slot) noteFocus(slot);
      }}
    >
      <TopButtons />
      <div class="groups">
        {[1, 2, 3, 4, 5, 6, 7, 8].map((group) => (
          <GroupColumn key={group} group={group} />
        ))}
      </div>
      <BumpRow />
    </section>
  );
}

function TopButtons() {
  const { slots } = groups[0]!.value;
  const stop = Math.min(tabStops[0]!.value, slots.length - 1);
  return (
    <div class="tops" role="group" aria-label="Top buttons">
      {slots.map((slot, i) => (
        <SlotButton key={i} slot={slot} group={0} position={i} tabStop={i === stop} />
      ))}
    </div>
  );
}

function BumpRow() {
  const { slots } = groups[9]!.value;
  const stop = Math.min(tabStops[9]!.value, 7);
  return (
    <div class="bumps" role="group" aria-label="Bump faders and buttons">
      {slots.slice(0, 8).map((slot, i) => (
        <div class="bump" key={i}>
          <SlotButton slot={slot} group={9} position={i} tabStop={i === stop} />
          <Fader which="bump" number={i + 1} group={9} />
        </div>
      ))}
      {slots.length === 0 && (
        <p class="empty">
          <Icon name="bump" /> No page is loaded.
        </p>
      )}
    </div>
  );
}
