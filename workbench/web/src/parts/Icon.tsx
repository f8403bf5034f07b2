// The page's own signs, drawn in the colour of the text around them.
const PATHS = {
  Sequence: <path d="M2.5 12.5V9h3v3.5zM6.5 12.5V6h3v6.5zM10.5 12.5v-10h3v10z" />,
  Multi: <path d="M2 5.5h8v8H2zM6 2.5h8v8h-2.5V4H6z" fill-rule="evenodd" />,
  Timeline: <path d="M1.5 3.5h8v2.4h-8zM5 6.9h9.5v2.4H5zM3 10.3h7v2.4H3z" />,
  Auto: <path d="M8 1.5l1.6 4.9 4.9 1.6-4.9 1.6L8 14.5 6.4 9.6 1.5 8l4.9-1.6z" />,
  play: <path d="M4 2.5v11l9-5.5z" />,
  pause: <path d="M3.5 2.5h3.2v11H3.5zM9.3 2.5h3.2v11H9.3z" />,
  stop: <path d="M3 3h10v10H3z" />,
  record: <circle cx="8" cy="8" r="5.5" />,
  lock: <path d="M4.5 7V5a3.5 3.5 0 0 1 7 0v2H13v7H3V7zM6.2 7h3.6V5a1.8 1.8 0 0 0-3.6 0z" fill-rule="evenodd" />,
  bump: <path d="M9.5 1L3 9h4.2L6 15l7-8.6H8.5z" />,
  up: <path d="M8 3l5.5 7.5h-11z" />,
  down: <path d="M8 13L2.5 5.5h11z" />,
  left: <path d="M3.5 8L11 2.5v11z" />,
  right: <path d="M12.5 8L5 13.5v-11z" />,
  more: <path d="M3.2 6.6a1.4 1.4 0 1 1 0 2.8 1.4 1.4 0 0 1 0-2.8zm4.8 0a1.4 1.4 0 1 1 0 2.8 1.4 1.4 0 0 1 0-2.8zm4.8 0a1.4 1.4 0 1 1 0 2.8 1.4 1.4 0 0 1 0-2.8z" />,
  close: <path d="M3.9 2.5L8 6.6l4.1-4.1 1.4 1.4L9.4 8l4.1 4.1-1.4 1.4L8 9.4l-4.1 4.1-1.4-1.4L6.6 8 2.5 3.9z" />,
  plus: <path d="M7 2.5h2V7h4.5v2H9v4.5H7V9H2.5V7H7z" />,
  search: <path d="M7 1.8a5.2 5.2 0 0 1 4.1 8.4l3.2 3.2-1.3 1.3-3.2-3.2A5.2 5.2 0 1 1 7 1.8zm0 1.9a3.3 3.3 0 1 0 0 6.6 3.3 3.3 0 0 0 0-6.6z" fill-rule="evenodd" />,
  command: <path d="M2 2.5h12v11H2zm1.8 1.8v7.4h8.4V4.3zM5 5.6L8 8l-3 2.4zm3.5 3.9H11v1.2H8.5z" fill-rule="evenodd" />,
  help: <path d="M8 1.5a6.5 6.5 0 1 1 0 13 6.5 6.5 0 0 1 0-13zM5.6 6.3h1.7c0-.6.3-.9.8-.9s.8.3.8.7c0 .9-1.8.9-1.8 2.7h1.7c0-1.2 1.9-1.2 1.9-2.8 0-1.2-1-2.1-2.6-2.1S5.6 4.900 5.600 6.300zm1.500 3.500v1.800h1.800V9.800z" fill-rule="evenodd" />,
  sun: <path d="M8 4.500a3.500 3.500 0 1 1 0 7 3.500 3.500 0 0 1 0-7zM7.200 0h1.600v3H7.200zM7.200 13h1.600v3H7.200zM0 7.200h3v1.600H0zM13 7.200h3v1.600h-3z" />,
  moon: <path d="M9.500 1.500A6.700 6.700 0 1 0 14.500 10 5.400 5.400 0 0 1 9.500 1.500z" />,
  edit: <path d="M2 14l.8-3.600L10.500 2.700l2.800 2.800-7.700 7.700zM11.300 1.900l1-1 2.800 2.800-1 1z" />,
  panels: <path d="M1.500 2.500h13v11h-13zm1.600 1.600v7.800h6V4.100zm7.400 0v7.800h2.400V4.100z" fill-rule="evenodd" />,
  jump: <path d="M2 7h7V3.500L14.500 8 9 12.500V9H2z" />,
  copy: <path d="M5 1.500h9v9.500h-9zM6.600 3.100v6.300h5.800V3.100zM2 5h1.600v7.900H11v1.600H2z" fill-rule="evenodd" />,
  off: <path d="M7.100 1.500h1.800v6H7.100zM4.700 3.200l1.100 1.500a4 4 0 1 0 4.400 0l1.100-1.500a5.800 5.800 0 1 1-6.600 0z" />,
};

export type IconName = keyof typeof PATHS;

export function Icon({ name, class: extra }: { name: IconName; class?: string }) {
  return (
    <svg class={extra ? `icon ${extra}` : 'icon'} viewBox="0 0 16 16" aria-hidden="true" focusable="false">
      {PATHS[name]}
    </svg>
  );
}

export function TypeIcon({ type }: { type: string | undefined }) {
  return type !== undefined && type in PATHS ? <Icon name={type as IconName} class="type-icon" /> : null;
}
