// The keys of the page, over everything else.
import { ACTIONS } from '../keys';
import { serverVersion } from '../state';
import { overlay, singleKeys } from '../ui';
import { Icon } from './Icon';
import { useModal } from './modal';

const SECTIONS = [...new Set(ACTIONS.map((action) => action.section))];

export function Help() {
  const close = () => (overlay.value = 'none');
  const box = useModal(close);
  return (
    <dialog ref={box} class="help" aria-labelledby="help-title" onClick={(event) => event.target === box.current && close()}>
      <header>
        <h2 id="help-title">Keys</h2>
        <label class="check">
          <input type="checkbox" checked={singleKeys.value} onChange={() => (singleKeys.value = !singleKeys.value)} />
          Single keys act
        </label>
        <button type="button" class="plain" aria-label="Close" onClick={close}>
          <Icon name="close" />
        </button>
      </header>
      <div class="help-sections" tabIndex={0} role="region" aria-label="All keys">
        {SECTIONS.map((section) => (
          <section key={section}>
            <h3>{section}</h3>
            <dl>
              {ACTIONS.filter((action) => action.section === section && action.keys).map((action) => (
                <div key={action.text}>
                  <dt>
                    <kbd>{action.keys}</kbd>
                  </dt>
                  <dd>{action.text}</dd>
                </div>
              ))}
            </dl>
          </section>
        ))}
      </div>
      <footer>
        Everything else is in the palette (<kbd>Ctrl+K</kbd>). Vestrel {serverVersion.value}
      </footer>
    </dialog>
  );
}
