// The control surface as its hardware would show it: lamps from the masks that were sent and from nothing else,
// and the faders with the way that each has to go.
import { faders, lamps } from '../state';
import { Fader, follows } from './Fader';
import { Icon } from './Icon';

export function Surface() {
  return (
    <div class="surface">
      <div class="lamp-rows">
        <LampRow code="246" first={1} count={16} name="Top lamps 1 to 16" />
        <LampRow code="247" first={17} count={16} name="Top lamps 17 to 32" />
        <LampRow code="245" first={1} count={8} name="Go lamps" prefix="G" />
      </div>
      <div class="surface-faders">
        <FaderRow which="group" title="Group faders" />
        <FaderRow which="bump" title="Bump faders" />
      </div>
      <p class="legend" aria-hidden="true">
        <span class="legend-hand" /> hand <span class="legend-stored" /> stored <Icon name="up" /> to go until it takes over
      </p>
    </div>
  );
}

interface LampRowProperties {
  code: string;
  first: number;
  count: number;
  name: string;
  prefix?: string;
}

function LampRow({ code, first, count, name, prefix = '' }: LampRowProperties) {
  const { masks, blink } = lamps.value;
  const lit = masks[code] ?? '';
  const blinking = blink[code] ?? '';
  return (
    <ul class="lamps" aria-label={name} data-row={code}>
      {Array.from({ length: count }, (_, i) => {
        const on = lit[i] === '#';
        const blinks = blinking[i] === '#';
        return (
          <li
            key={i}
            class="lamp"
            data-lit={on || undefined}
            data-blinks={blinks || undefined}
            aria-label={`${prefix}${first + i}: ${blinks ? 'blinking' : on ? 'lit' : 'off'}`}
            title={`${name}, ${prefix}${first + i}: ${blinks ? 'blinking' : on ? 'lit' : 'off'}`}
          >
            <span class="lamp-light" aria-hidden="true" />
            <span class="lamp-number" aria-hidden="true">
              {prefix}
              {first + i}
            </span>
          </li>
        );
      })}
    </ul>
  );
}

function FaderRow({ which, title }: { which: 'group' | 'bump'; title: string }) {
  return (
    <div class="fader-row" role="group" aria-label={`Surface: ${title.toLowerCase()}`}>
      <h3>{title}</h3>
      <div class="fader-row-faders">
        {faders[which].map((_, i) => (
          <div class="surface-fader" key={i}>
            <span class="surface-number" aria-hidden="true">
              {i + 1}
            </span>
            <Fader which={which} number={i + 1} group={which === 'group' ? i + 1 : 9} />
            <Way which={which} number={i + 1} />
          </div>
        ))}
      </div>
    </div>
  );
}

function Way({ which, number }: { which: 'group' | 'bump'; number: number }) {
  const fader = faders[which][number - 1]!.value;
  const following = follows(fader);
  return (
    <dl class="way" data-following={following || undefined}>
      <dt class="unseen">Where the hand left it</dt>
      <dd class="way-hand">{fader.hand}</dd>
      <dt class="unseen">Stored</dt>
      <dd class="way-stored">{fader.stored ?? '–'}</dd>
      <dt class="unseen">Until it takes over</dt>
      <dd class="way-go">
        {following ? (
          <span class="unseen">{fader.stored === undefined ? 'drives nothing' : 'follows the hand'}</span>
        ) : (
          <>
            <Icon name={(fader.way ?? 0) > 0 ? 'up' : 'down'} />
            {fader.distance}
          </>
        )}
      </dd>
    </dl>
  );
}
