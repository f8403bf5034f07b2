// What the next click does while an edit waits; beside the transport, so that nothing moves under the pointer.
import { cancelAssignment } from '../actions';
import { edit } from '../state';

const MODE_NAMES: Record<string, string> = { EditEnabled: 'Edit', AdjFadeInOut: 'Fade times' };

export function Waiting() {
  const { mode, waiting } = edit.value;
  if (mode === 'None') return null;
  return (
    <div class="waiting" data-mode={mode}>
      <span class="waiting-dot" aria-hidden="true" />
      <strong>{MODE_NAMES[mode] ?? mode}</strong>
      <span class="waiting-text">{waiting}</span>
      <button type="button" class="small" onClick={() => void cancelAssignment()}>
        Cancel <kbd>Esc</kbd>
      </button>
    </div>
  );
}
