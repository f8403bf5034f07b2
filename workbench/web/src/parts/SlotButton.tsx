// One button of the screen. In bump mode it is pressed and released as the pointer or the key is, and released
// whenever the hold is lost; a press of another one would say nothing and is not sent.
import { useSignal } from '@preact/signals';
import { useLayoutEffect, useRef } from 'preact/hooks';
import { choose, click, describe, placing, press, release, type Pointer } from '../actions';
import type { FilledSlot, Slot } from '../protocol';
import { edit, groupName, isFilled, meantControls } from '../state';
import { wasFound } from './found';
import { Icon, TypeIcon } from './Icon';

interface Properties {
  slot: Slot;
  group: number;
  // Where on the screen it is, from 0; the slot's index moves with the group's steps.
  position: number;
  tabStop: boolean;
}

function pointerOf(event: MouseEvent): Pointer {
  const shift = (event.shiftKey ? 1 : 0) + (event.ctrlKey ? 2 : 0) + (event.altKey ? 4 : 0);
  return { button: event.button + 1, shift, x: Math.round(event.offsetX), y: Math.round(event.offsetY) };
}

function useHold(control: number | null) {
  const held = useSignal<number | null>(null);
  const letGo = () => {
    if (held.peek() === null) return;
    release(held.peek()!);
    held.value = null;
  };
  // Another button in the same place, or none: the hold was of the one before.
  useLayoutEffect(() => letGo, [control]);
  useLayoutEffect(() => {
    const hidden = () => document.visibilityState === 'hidden' && letGo();
    window.addEventListener('blur', letGo);
    document.addEventListener('visibilitychange', hidden);
    return () => {
      window.removeEventListener('blur', letGo);
      document.removeEventListener('visibilitychange', hidden);
    };
  }, []);
  const hold = () => {
    if (control !== null && held.peek() === null && edit.peek().mode === 'None' && press(control)) held.value = control;
  };
  return { held, hold, letGo };
}

// Milliseconds.
const LONG_PRESS = 500;
// Pixels that a resting finger may wander.
const REST = 10;

// A finger that rests: not every browser makes a context menu of it. The click that ends it is no click.
function useLongPress(act: () => void) {
  const timer = useRef(0);
  const happened = useRef(false);
  const end = () => clearTimeout(timer.current);
  useLayoutEffect(() => end, []);
  const from = useRef([0, 0]);
  const begin = ({ clientX, clientY }: PointerEvent) => {
    end();
    from.current = [clientX, clientY];
    happened.current = false;
    timer.current = window.setTimeout(() => {
      happened.current = true;
      act();
    }, LONG_PRESS);
  };
  const wasClick = () => {
    const click = !happened.current;
    happened.current = false;
    return click;
  };
  const moved = ({ clientX, clientY }: PointerEvent) => {
    if (Math.hypot(clientX - from.current[0]!, clientY - from.current[1]!) > REST) end();
  };
  return { begin, moved, end, wasClick };
}

export function SlotButton({ slot, group, position, tabStop }: Properties) {
  const { control } = slot;
  const filled = isFilled(slot);
  const { held, hold, letGo } = useHold(control);
  const byTouch = useRef(false);
  const openMenu = () => {
    if (filled && control !== null && !placing()) void choose(control);
  };
  const rest = useLongPress(openMenu);
  const stop = () => {
    rest.end();
    letGo();
  };
  const waiting = control !== null && meantControls.value.has(control);

  const clicked = (event: MouseEvent) => {
    if (!rest.wasClick() || control === null) return;
    // A click by keyboard or by assistive technology has no position.
    void click(control, event.detail === 0 ? undefined : pointerOf(event));
  };
  const pointerDown = (event: PointerEvent) => {
    byTouch.current = event.pointerType === 'touch';
    if (byTouch.current && event.isPrimary && filled && !slot.bump) rest.begin(event);
    if (event.button !== 0 || !filled || !slot.bump) return;
    (event.currentTarget as HTMLElement).setPointerCapture(event.pointerId);
    hold();
  };
  const keyDown = (event: KeyboardEvent) => {
    if (event.key !== ' ' && event.key !== 'Enter') return;
    // The browser clicks again for every repeat of Enter.
    if (event.repeat) event.preventDefault();
    else if (filled && slot.bump) hold();
  };
  const contextMenu = (event: MouseEvent) => {
    event.preventDefault();
    if (byTouch.current) return;
    letGo();
    openMenu();
  };

  return (
    <button
      type="button"
      class="slot"
      data-group={group}
      data-position={position}
      data-index={slot.index}
      data-control={control ?? undefined}
      data-filled={filled || undefined}
      data-on={slot.on || undefined}
      data-held={held.value !== null || undefined}
      data-highlight={slot.highlight || undefined}
      data-waiting={waiting || undefined}
      data-found={wasFound(group, slot.index) || undefined}
      data-type={slot.type}
      tabIndex={tabStop ? 0 : -1}
      aria-pressed={filled ? !!slot.on : undefined}
      aria-disabled={control === null || (!filled && !placing()) || undefined}
      aria-label={`${describe(slot)}, ${groupName(group).toLowerCase()} ${slot.index}${waiting && placing() ? ', place here' : ''}`}
      title={filled ? describe(slot) : control === null ? 'No control reaches this slot' : undefined}
      onClick={clicked}
      onPointerDown={pointerDown}
      onPointerMove={rest.moved}
      onPointerUp={stop}
      onPointerCancel={stop}
      onLostPointerCapture={letGo}
      onPointerLeave={stop}
      onKeyDown={keyDown}
      onKeyUp={letGo}
      onBlur={letGo}
      onContextMenu={contextMenu}
    >
      {filled ? <Face slot={slot} /> : <span class="slot-number">{slot.index}</span>}
      {waiting && placing() && <span class="slot-place" aria-hidden="true" data-text="place here" />}
    </button>
  );
}

// The marks repeat what the label says, so their texts are drawn by the style sheet and not read out again.
function Face({ slot }: { slot: FilledSlot }) {
  return (
    <>
      <span class="slot-name">{slot.name}</span>
      <span class="slot-marks" aria-hidden="true">
        <TypeIcon type={slot.type} />
        {slot.locked && <Icon name="lock" />}
        {slot.bump && <Icon name="bump" />}
        {slot.fader && <span class="slot-mode" data-text={slot.fader[0]} />}
        {slot.highlight && <span class="slot-next" data-text="next" />}
        {slot.on && (
          <span class="slot-level" data-text={slot.level}>
            <Icon name="play" />
          </span>
        )}
      </span>
      <span class="slot-bar" style={{ width: `${slot.on ? (slot.level ?? 0) : 0}%` }} />
    </>
  );
}
