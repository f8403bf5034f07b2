// The bar at the top: show, pages, find, and what concerns the page itself.
import { allOff, enableEditing, loadShow, setPage, setPageSize, setReleaseOnPlay } from '../actions';
import { connectionStatus } from '../connection';
import { clients, edit, layout, show } from '../state';
import { drawer, overlay, theme, toggleTheme, wide } from '../ui';
import { askDeletePage, askDeleteShow, askNewPage, askNewShow, askRenamePage, askRenameShow } from './editing';
import { Find } from './Find';
import { Icon } from './Icon';
import type { MenuEntry } from './Menu';
import { MenuButton } from './MenuButton';

function showEntries(): MenuEntry[] {
  const { name, shows } = show.peek();
  const others: MenuEntry[] = shows.map((other) => ({
    label: other,
    chosen: other === name,
    action: () => void loadShow(other),
  }));
  if (others.length) others.push('line');
  others.push({ label: 'New show…', icon: <Icon name="plus" />, action: () => void askNewShow() });
  if (name) {
    others.push(
      { label: 'Rename show…', icon: <Icon name="edit" />, action: () => void askRenameShow() },
      { label: 'Delete show…', icon: <Icon name="close" />, dangerous: true, action: () => void askDeleteShow() },
    );
  }
  return others;
}

function pageEntries(): MenuEntry[] {
  return [
    { label: 'New page…', keys: 'Shift+P', icon: <Icon name="plus" />, action: () => void askNewPage() },
    { label: 'Rename page…', icon: <Icon name="edit" />, action: () => void askRenamePage() },
    { label: 'Delete page…', icon: <Icon name="close" />, dangerous: true, action: () => void askDeletePage() },
  ];
}

function screenEntries(): MenuEntry[] {
  const { pageSize, sizes, releaseOnPlay } = layout.peek();
  return [
    ...sizes.map((size) => ({ label: `${size} slots a group`, chosen: size === pageSize, action: () => void setPageSize(size) })),
    'line',
    { label: 'Starting releases the group', chosen: !!releaseOnPlay, action: () => void setReleaseOnPlay(!releaseOnPlay) },
    { label: 'Everything off', keys: 'Shift+Esc', icon: <Icon name="off" />, dangerous: true, action: () => void allOff() },
  ];
}

function Pages() {
  const { pages, page } = show.value;
  const keyDown = (event: KeyboardEvent) => {
    const tabs = [...(event.currentTarget as HTMLElement).querySelectorAll<HTMLElement>('[role="tab"]')];
    const now = tabs.indexOf(document.activeElement as HTMLElement);
    const move = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (!move || now < 0) return;
    tabs[(now + move + tabs.length) % tabs.length]!.focus();
    event.preventDefault();
  };
  return (
    <div class="pages">
      <div role="tablist" aria-label="Pages" onKeyDown={keyDown}>
        {pages.map((name) => (
          <button
            type="button"
            role="tab"
            key={name}
            aria-selected={name === page}
            aria-controls="screen"
            tabIndex={name === page ? 0 : -1}
            onClick={() => name !== page && void setPage(name)}
          >
            {name}
          </button>
        ))}
      </div>
      <MenuButton label="Page menu" class="plain" entries={pageEntries}>
        <Icon name="more" />
      </MenuButton>
    </div>
  );
}

export function Header() {
  const { name } = show.value;
  const editing = edit.value.mode === 'EditEnabled';
  return (
    <header class="bar">
      <h1>
        <svg class="mark" viewBox="0 0 32 32" aria-hidden="true">
          <path d="M5 6h6v6H5zM13 6h6v6h-6zM5 14h6v12H5zM21 14h6v12h-6z" fill="currentColor" opacity=".35" />
          <path d="M21 6h6v6h-6zM13 14h6v12h-6z" fill="var(--amber)" />
        </svg>
        <span class="unseen">Vestrel workbench</span>
      </h1>
      <MenuButton label={`Show ${name || 'none'}`} class="show-name" entries={showEntries}>
        {name || 'No show'} <Icon name="down" />
      </MenuButton>
      <Pages />
      <Find />
      <div class="bar-tools">
        <button type="button" aria-pressed={editing} onClick={() => void enableEditing(!editing)} title="Edit mode (Shift+E)">
          <Icon name="edit" />
          <span>Edit</span>
        </button>
        <MenuButton label="Screen menu" entries={screenEntries}>
          <Icon name="more" />
          <span>Screen</span>
        </MenuButton>
        <button type="button" onClick={() => (overlay.value = 'palette')} title="Any command (Ctrl+K)" aria-label="Any command">
          <Icon name="command" />
        </button>
        {!wide.value && (
          <button type="button" aria-pressed={drawer.value !== null} aria-label="Panels" onClick={() => (drawer.value = drawer.value ? null : 'Surface')}>
            <Icon name="panels" />
          </button>
        )}
        <button type="button" onClick={toggleTheme} aria-label={theme.value === 'dark' ? 'Light colours' : 'Dark colours'} title="Light or dark (Shift+T)">
          <Icon name={theme.value === 'dark' ? 'sun' : 'moon'} />
        </button>
        <button type="button" onClick={() => (overlay.value = 'help')} aria-label="Keys" title="Keys (?)">
          <Icon name="help" />
        </button>
        <Link />
      </div>
    </header>
  );
}

const STATUS: Record<string, string> = { open: 'Connected', connecting: 'Connecting', lost: 'Lost' };

function Link() {
  const status = connectionStatus.value;
  const count = clients.value;
  return (
    <span class="link" data-status={status} title={status === 'open' ? `${count} ${count === 1 ? 'page sees' : 'pages see'} this workbench` : STATUS[status]}>
      <span class="link-light" aria-hidden="true" />
      {STATUS[status]}
      {status === 'open' && count > 1 && <span aria-label={`${count} pages`}> ×{count}</span>}
    </span>
  );
}
