// A fader without a motor: the knob is where the hand left it, the bar what is stored. Until the hand has passed
// the stored value the fader says which way and how far.
import { useSignal } from '@preact/signals';
import { useRef } from 'preact/hooks';
import { moveFader } from '../actions';
import type { SurfaceFader } from '../protocol';
import { faders } from '../state';
import { Icon } from './Icon';

interface Properties {
  which: 'group' | 'bump';
  number: number;
  group: number;
}

const KEYS: Record<string, (value: number) => number> = {
  ArrowUp: (value) => value + 1,
  ArrowRight: (value) => value + 1,
  ArrowDown: (value) => value - 1,
  ArrowLeft: (value) => value - 1,
  PageUp: (value) => value + 10,
  PageDown: (value) => value - 10,
  Home: () => 0,
  End: () => 100,
};

// Milliseconds.
const ANSWERED_BY = 400;

const between = (value: number) => Math.min(100, Math.max(0, Math.round(value)));

// Whether the stored value follows the hand, or waits for nothing.
export function follows({ stored, caught, distance }: SurfaceFader): boolean {
  return stored === undefined || !!caught || !distance;
}

function inWords(fader: SurfaceFader): string {
  const { hand, stored, way = 0, distance } = fader;
  if (stored === undefined) return `${hand} percent, drives nothing`;
  if (follows(fader)) return `${hand} percent`;
  return `hand at ${hand}, stored ${stored}: ${way > 0 ? 'up' : 'down'} ${distance} until it takes over`;
}

export function Fader({ which, number, group }: Properties) {
  const fader = faders[which][number - 1]!.value;
  // Where the finger is while it moves the knob; the workbench's own answer follows it.
  const finger = useSignal<number | null>(null);
  const frame = useRef(0);
  // Where the keys have sent it, which the workbench may not have answered yet.
  const sent = useRef({ value: 0, at: -Infinity });
  const hand = finger.value ?? fader.hand;
  const label = `${which === 'group' ? 'Group' : 'Bump'} fader ${number}`;
  const following = follows(fader);
  const stored = fader.stored ?? 0;

  const send = () => {
    frame.current = 0;
    if (finger.peek() !== null) moveFader(which, number, finger.peek()!);
  };
  const follow = (event: PointerEvent) => {
    const track = (event.currentTarget as HTMLElement).querySelector('.fader-track')!.getBoundingClientRect();
    const value = between(((track.bottom - event.clientY) / track.height) * 100);
    if (value === finger.peek()) return;
    finger.value = value;
    frame.current ||= requestAnimationFrame(send);
  };
  const take = (event: PointerEvent) => {
    if (event.button !== 0) return;
    const target = event.currentTarget as HTMLElement;
    target.setPointerCapture(event.pointerId);
    target.focus();
    event.preventDefault();
    follow(event);
  };
  const leave = () => {
    if (finger.peek() === null) return;
    if (frame.current) {
      cancelAnimationFrame(frame.current);
      send();
    }
    finger.value = null;
  };
  const keyDown = (event: KeyboardEvent) => {
    const change = KEYS[event.key];
    if (!change || event.ctrlKey || event.altKey || event.metaKey) return;
    event.preventDefault();
    event.stopPropagation();
    const from = performance.now() - sent.current.at < ANSWERED_BY ? sent.current.value : fader.hand;
    sent.current = { value: between(change(from)), at: performance.now() };
    moveFader(which, number, sent.current.value);
  };

  return (
    <div
      class="fader"
      role="slider"
      tabIndex={0}
      data-fader={which}
      data-number={number}
      data-group={group}
      data-following={following || undefined}
      data-idle={fader.stored === undefined || undefined}
      aria-orientation="vertical"
      aria-label={label}
      aria-valuemin={0}
      aria-valuemax={100}
      aria-valuenow={fader.hand}
      aria-valuetext={inWords(fader)}
      title={`${label}: ${inWords(fader)}`}
      onPointerDown={take}
      onPointerMove={(event) => finger.peek() !== null && follow(event)}
      onPointerUp={leave}
      onPointerCancel={leave}
      onLostPointerCapture={leave}
      onKeyDown={keyDown}
    >
      <span class="fader-track">
        <span class="fader-stored" style={{ height: `${stored}%` }} />
        {!following && <Gap hand={hand} stored={stored} />}
        {!following && <span class="fader-target" style={{ bottom: `${stored}%` }} />}
        <span class="fader-knob" style={{ bottom: `${hand}%` }} />
      </span>
      <span class="fader-value">
        {following ? (
          hand
        ) : (
          <>
            <Icon name={(fader.way ?? 0) > 0 ? 'up' : 'down'} />
            {fader.distance}
          </>
        )}
      </span>
    </div>
  );
}

function Gap({ hand, stored }: { hand: number; stored: number }) {
  return (
    <span class="fader-gap" style={{ bottom: `${Math.min(hand, stored)}%`, height: `${Math.abs(hand - stored)}%` }} />
  );
}
