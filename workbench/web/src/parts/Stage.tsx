// What the host plays: level, mode and run time of every item.
import { useSignal } from '@preact/signals';
import { useEffect } from 'preact/hooks';
import { sessionNow, stage } from '../state';
import { runTime } from '../time';
import { TypeIcon } from './Icon';

export function Stage() {
  const items = stage.value;
  const now = useSignal(sessionNow());
  useEffect(() => {
    if (!items.length) return;
    const timer = setInterval(() => (now.value = sessionNow()), 250);
    now.value = sessionNow();
    return () => clearInterval(timer);
  }, [items]);
  if (!items.length) {
    return (
      <p class="empty">
        Nothing plays. Click a button of the screen, or raise the fader of an idle group from the bottom.
      </p>
    );
  }
  return (
    <ul class="stage" aria-label={`Playing: ${items.length}`}>
      {items.map((item) => (
        <li key={item.id} data-type={item.type} data-name={item.name}>
          <TypeIcon type={item.type} />
          <span class="stage-name">{item.name}</span>
          <span class="stage-mode">{item.mode}</span>
          <span class="stage-time">{runTime(now.value - item.since)}</span>
          <span class="stage-meter" role="meter" aria-label={`Level of ${item.name}`} aria-valuemin={0} aria-valuemax={100} aria-valuenow={item.level}>
            <span style={{ width: `${item.level}%` }} />
          </span>
          <span class="stage-level">{item.level}%</span>
          <span class="stage-place">{item.button}</span>
        </li>
      ))}
    </ul>
  );
}
