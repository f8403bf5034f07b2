// The panels beside the screen: stacks of tabs, or a drawer where the screen is narrow.
import type { Signal } from '@preact/signals';
import type { JSX } from 'preact';
import { rendered } from '../rendered';
import { transport, stage } from '../state';
import { drawer, lowerPanel, PANELS, upperPanel, type PanelName } from '../ui';
import { EventList } from './EventList';
import { Icon } from './Icon';
import { Library } from './Library';
import { Log } from './Log';
import { Stage } from './Stage';
import { Surface } from './Surface';

const CONTENTS: Record<PanelName, () => JSX.Element> = {
  Surface: () => <Surface />,
  Stage: () => <Stage />,
  Library: () => <Library />,
  Log: () => <Log />,
  Events: () => <EventList />,
};

function Count({ name }: { name: PanelName }) {
  const count = name === 'Stage' ? stage.value.length : name === 'Events' ? transport.value.events : 0;
  return count ? <span class="count">{count.toLocaleString('en')}</span> : null;
}

interface Properties {
  names: readonly PanelName[];
  current: Signal<PanelName> | Signal<PanelName | null>;
  close?: () => void;
}

function Stack({ names, current, close }: Properties) {
  const shown = current.value ?? names[0]!;
  const keyDown = (event: KeyboardEvent) => {
    const move = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (!move) return;
    const next = names[(names.indexOf(shown) + move + names.length) % names.length]!;
    current.value = next;
    event.preventDefault();
    const tabs = event.currentTarget as HTMLElement;
    void rendered().then(() => tabs.querySelector<HTMLElement>('[aria-selected="true"]')?.focus());
  };
  return (
    <section class="panel" data-panel={shown} aria-label={shown}>
      <header>
        <div role="tablist" aria-label="Panels" onKeyDown={keyDown}>
          {names.map((name) => (
            <button
              type="button"
              role="tab"
              key={name}
              id={`tab-${name}`}
              aria-selected={name === shown}
              aria-controls={name === shown ? `panel-${name}` : undefined}
              tabIndex={name === shown ? 0 : -1}
              onClick={() => (current.value = name)}
            >
              {name}
              <Count name={name} />
            </button>
          ))}
        </div>
        {close && (
          <button type="button" class="plain" aria-label="Close the panels" onClick={close}>
            <Icon name="close" />
          </button>
        )}
      </header>
      <div class="panel-body" role="tabpanel" id={`panel-${shown}`} aria-labelledby={`tab-${shown}`}>
        {CONTENTS[shown]()}
      </div>
    </section>
  );
}

export function SidePanels() {
  return (
    <aside class="side" aria-label="Panels">
      <Stack names={['Stage', 'Library']} current={upperPanel} />
      <Stack names={['Log', 'Events']} current={lowerPanel} />
    </aside>
  );
}

export function SurfacePanel() {
  return (
    <section class="panel surface-panel" data-panel="Surface" aria-label="Control surface">
      <header>
        <h2>Control surface</h2>
      </header>
      <div class="panel-body">
        <Surface />
      </div>
    </section>
  );
}

export function Drawer() {
  if (!drawer.value) return null;
  return (
    <aside class="drawer" aria-label="Panels">
      <Stack names={PANELS} current={drawer} close={() => (drawer.value = null)} />
    </aside>
  );
}
