// The transport bar: timecode, play, record, stop, and how takes are combined.
import { play, record, setRecordMode, stop } from '../actions';
import { edit, transport } from '../state';
import { Icon } from './Icon';
import { Waiting } from './Waiting';

const STATE_NAMES: Record<string, string> = { Stopped: 'Stopped', playing: 'Playing', Paused: 'Paused' };

export function Transport() {
  const { state, recording, mode } = transport.value;
  const playing = state === 'playing';
  return (
    <section class="transport" aria-label="Transport" data-state={state} data-recording={recording || undefined}>
      <div class="keys" role="group" aria-label="Transport keys">
        <button type="button" aria-pressed={playing} onClick={() => void play()} title="Play or pause (P)">
          <Icon name={playing ? 'pause' : 'play'} />
          <span>{playing ? 'Pause' : 'Play'}</span>
        </button>
        <button type="button" class="record" aria-pressed={recording} onClick={() => void record()} title="Record a take (R)">
          <Icon name="record" />
          <span>{recording ? 'End take' : 'Record'}</span>
        </button>
        <button type="button" onClick={() => void stop()} title="Stop and rewind (S)">
          <Icon name="stop" />
          <span>Stop</span>
        </button>
      </div>
      <Timecode />
      <span class="transport-state">
        {STATE_NAMES[state] ?? state}
        {recording && <strong> recording</strong>}
      </span>
      <fieldset class="segments">
        <legend class="unseen">Record mode</legend>
        {['Merge', 'Overwrite'].map((name) => (
          <label key={name} title={`${name} takes with what was recorded (M)`}>
            <input type="radio" name="record-mode" checked={mode === name} onChange={() => void setRecordMode(name)} />
            <span>{name}</span>
          </label>
        ))}
      </fieldset>
      {edit.value.mode === 'None' ? <EventCount /> : <Waiting />}
    </section>
  );
}

function Timecode() {
  return (
    <output class="timecode" aria-label="Timecode" aria-live="off">
      {transport.value.timecode}
    </output>
  );
}

function EventCount() {
  const { events, next } = transport.value;
  return (
    <span class="event-count">
      {events === 0 ? 'no events' : `event ${Math.min(next + 1, events).toLocaleString('en')} of ${events.toLocaleString('en')}`}
    </span>
  );
}
