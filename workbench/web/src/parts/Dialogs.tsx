// Questions: the workbench's own, which every page shows and any may answer, and those of this page.
import { useSignal } from '@preact/signals';
import type { ComponentChildren } from 'preact';
import { answerDialog } from '../link';
import { dialog } from '../state';
import { question } from '../ui';
import { useModal } from './modal';

interface BoxProperties {
  title: string;
  text?: string | undefined;
  dangerous?: boolean | undefined;
  leave(): void;
  send(form: HTMLFormElement): void;
  children: ComponentChildren;
}

function Box({ title, text, dangerous, leave, send, children }: BoxProperties) {
  const box = useModal(leave);
  return (
    <dialog
      ref={box}
      class="box"
      aria-labelledby="box-title"
      aria-describedby={text ? 'box-text' : undefined}
      data-dangerous={dangerous || undefined}
    >
      <form
        method="dialog"
        onSubmit={(event) => {
          event.preventDefault();
          send(event.currentTarget);
        }}
      >
        <h2 id="box-title">{title}</h2>
        {text && <p id="box-text">{text}</p>}
        {children}
      </form>
    </dialog>
  );
}

function Field({ label, value }: { label: string; value: string }) {
  return (
    <label class="field">
      <span>{label}</span>
      <input name="value" autocomplete="off" spellcheck={false} defaultValue={value} />
    </label>
  );
}

const fieldOf = (form: HTMLFormElement) => (form.elements.namedItem('value') as HTMLInputElement | null)?.value ?? '';

function ServerBox() {
  const { id, kind, title, text, value } = dialog.value!;
  const refused = useSignal('');
  const answer = async (given: boolean | string | null) => {
    refused.value = await answerDialog(id, given);
  };
  const no = kind === 'yesno' ? false : kind === 'message' ? true : null;
  return (
    <Box key={id} title={title} text={kind === 'text' ? undefined : text} leave={() => answer(no)} send={(form) => answer(kind === 'text' ? fieldOf(form) : true)}>
      {kind === 'text' && <Field label={text || title} value={value ?? ''} />}
      <p class="box-refused" role="alert" hidden={!refused.value}>
        {refused.value}
      </p>
      <div class="box-buttons">
        {kind !== 'message' && (
          <button type="button" onClick={() => answer(no)}>
            {kind === 'yesno' ? 'No' : 'Cancel'}
          </button>
        )}
        <button type="submit" class="primary">
          {kind === 'yesno' ? 'Yes' : 'OK'}
        </button>
      </div>
    </Box>
  );
}

function PageBox() {
  const { title, text, value, label, action, dangerous, answer } = question.value!;
  const asksText = value !== undefined;
  return (
    <Box key={title} title={title} text={text} dangerous={dangerous} leave={() => answer(null)} send={(form) => answer(asksText ? fieldOf(form) : '')}>
      {asksText && <Field label={label ?? title} value={value} />}
      <div class="box-buttons">
        <button type="button" onClick={() => answer(null)}>
          Cancel
        </button>
        <button type="submit" class={dangerous ? 'primary dangerous' : 'primary'}>
          {action}
        </button>
      </div>
    </Box>
  );
}

export function Dialogs() {
  if (dialog.value) return <ServerBox key={dialog.value.id} />;
  return question.value && <PageBox key={question.value.title} />;
}
