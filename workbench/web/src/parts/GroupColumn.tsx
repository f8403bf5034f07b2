// One of the eight groups: its caption, the steps through its buttons, the visible slots, the fader, and go.
import { assignToNextFree, go, highlight, step } from '../actions';
import { edit, groups, isFilled } from '../state';
import { Fader } from './Fader';
import { tabStops } from './focus';
import { Icon } from './Icon';
import { SlotButton } from './SlotButton';

export function GroupColumn({ group }: { group: number }) {
  const { caption, slots, step: now, steps } = groups[group]!.value;
  const stop = Math.min(tabStops[group]!.value, Math.max(0, slots.length - 1));
  const title = caption || `Group ${group}`;
  return (
    <section class="group" data-group={group} aria-label={title}>
      <header>
        <h3>
          <b>{group}</b>
          {title !== `Group ${group}` && ` ${title}`}
        </h3>
        <button type="button" class="step" aria-label={`${title}: previous step`} disabled={now === 0} onClick={() => void step(group, 'Prev')}>
          <Icon name="left" />
        </button>
        <span class="steps" aria-label={`Step ${now + 1} of ${steps}`}>
          {now + 1}/{steps}
        </span>
        <button type="button" class="step" aria-label={`${title}: next step`} disabled={now + 1 >= steps} onClick={() => void step(group, 'Next')}>
          <Icon name="right" />
        </button>
      </header>
      <div class="group-body">
        <div class="slots" role="group" aria-label={`${title} buttons`}>
          {slots.map((slot, i) => (
            <SlotButton key={i} slot={slot} group={group} position={i} tabStop={i === stop} />
          ))}
        </div>
        <Fader which="group" number={group} group={group} />
      </div>
      <GoRow group={group} title={title} />
    </section>
  );
}

function GoRow({ group, title }: { group: number; title: string }) {
  if (edit.value.mode === 'Assign') {
    return (
      <footer>
        <button type="button" class="go" onClick={() => void assignToNextFree(group)}>
          Next free slot
        </button>
      </footer>
    );
  }
  const next = groups[group]!.value.slots.find((slot) => slot.highlight);
  const name = isFilled(next) ? next.name : '';
  return (
    <footer>
      <button type="button" class="step" aria-label={`${title}: mark the previous button for go`} onClick={() => void highlight(group, 'Prev')}>
        <Icon name="up" />
      </button>
      <button type="button" class="go" aria-label={`${title}: go${name && `, ${name}`}`} onClick={() => void go(group)}>
        <strong>GO</strong>
      </button>
      <button type="button" class="step" aria-label={`${title}: mark the next button for go`} onClick={() => void highlight(group, 'Next')}>
        <Icon name="down" />
      </button>
    </footer>
  );
}
