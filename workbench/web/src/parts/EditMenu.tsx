// The menu of the button that was chosen for editing. It is open on every page that shows the workbench; the one
// that opened it gets the focus.
import { cancelEdit, editOpen, type EditCommand } from '../actions';
import { FADER_MODES } from '../protocol';
import { dialog, edit, groupName, isFilled, groups } from '../state';
import { question } from '../ui';
import { beginCue, beginFadeTimes, deleteOpen } from './editing';
import { Icon, TypeIcon, type IconName } from './Icon';
import { Menu, type MenuEntry } from './Menu';

const close = () => void cancelEdit();

export function EditMenu() {
  const { popup, mode } = edit.value;
  if (!popup || mode !== 'EditEnabled' || dialog.value || question.value) return null;
  const slot = groups[popup.group]!.value.slots.find((candidate) => candidate.index === popup.index);
  const anchor = document.querySelector<HTMLElement>(`.slot[data-group="${popup.group}"][data-index="${popup.index}"]`);
  if (!isFilled(slot) || !anchor) return null;

  const entry = (label: string, command: EditCommand, keys?: string, icon?: IconName): MenuEntry => ({
    label,
    keys,
    icon: icon && <Icon name={icon} />,
    action: () => void editOpen(command),
  });
  const entries: MenuEntry[] = [
    entry('Rename…', 'rename', 'F2', 'edit'),
    entry('Move', 'move', 'V', 'jump'),
    entry('Copy', 'copy', 'C', 'copy'),
    { label: 'Delete…', keys: 'Del', dangerous: true, icon: <Icon name="close" />, action: () => void deleteOpen(popup.name) },
    'line',
    entry('Make a mark button', 'mark', 'K'),
    entry('Make a fade button', 'fade', 'J'),
    'line',
    entry(slot.locked ? 'Unlock' : 'Lock', 'lock', 'L', 'lock'),
    entry(slot.bump ? 'Bump off' : 'Bump on', 'bump', 'B', 'bump'),
    'line',
    ...FADER_MODES.map((fader) => ({
      label: `${fader} fader`,
      chosen: slot.fader === fader,
      action: () => void editOpen(fader),
    })),
    'line',
    { label: 'Adjust fade in and out', action: () => void beginFadeTimes(popup.name) },
    { label: 'Edit cue', action: () => void beginCue(popup.name) },
  ];
  const head = (
    <>
      <TypeIcon type={slot.type} />
      <strong>{slot.name}</strong>
      <span>
        {groupName(popup.group)}, {popup.index}
      </span>
    </>
  );
  return (
    <Menu
      key={`${popup.group}/${popup.index}`}
      label={`Edit ${slot.name}`}
      entries={entries}
      anchor={anchor}
      head={head}
      beside
      takeFocus={document.activeElement === anchor || document.activeElement === document.body}
      close={close}
    />
  );
}
