// What the page says: the connection, work under way, notices, and the live regions for screen readers.
import { assertive, dismiss, notices, polite } from '../announce';
import { connectionStatus } from '../connection';
import { connection } from '../link';
import { progress, workName } from '../state';
import { Icon } from './Icon';

export function ConnectionBanner() {
  if (connectionStatus.value !== 'lost') return null;
  return (
    <div class="lost" role="alert">
      <span class="lost-sign" aria-hidden="true">
        !
      </span>
      <strong>Connection lost.</strong>
      <span>What you see may be out of date, and nothing you do is sent. Trying again …</span>
      <button type="button" class="small" onClick={() => connection.retryNow()}>
        Try now
      </button>
    </div>
  );
}

export function ProgressBar() {
  const now = progress.value;
  if (!now) return null;
  const what = workName(now.what);
  const part = now.total > 0 ? Math.min(100, Math.floor((now.done / now.total) * 100)) : undefined;
  const count = part === undefined ? (now.done ? now.done.toLocaleString('en') : '') : `${part} %`;
  return (
    <div class="progress">
      <span>{what} …</span>
      <div class="progress-bar" role="progressbar" aria-label={what} aria-valuenow={part} aria-valuetext={count || undefined}>
        <span style={part === undefined ? undefined : { width: `${part}%` }} />
      </div>
      <span class="progress-count">{count}</span>
    </div>
  );
}

export function Notices() {
  return (
    <div class="notices">
      {notices.value.map(({ id, kind, text }) => (
        <div key={id} class="notice" data-kind={kind}>
          <strong>{kind === 'refused' ? 'Not done' : 'Done'}</strong>
          <span>{text}</span>
          <button type="button" class="plain" aria-label="Dismiss" onClick={() => dismiss(id)}>
            <Icon name="close" />
          </button>
        </div>
      ))}
    </div>
  );
}

export function LiveRegions() {
  return (
    <>
      <div class="unseen" role="status" aria-live="polite">
        {polite.value}
      </div>
      <div class="unseen" role="alert" aria-live="assertive">
        {assertive.value}
      </div>
    </>
  );
}
