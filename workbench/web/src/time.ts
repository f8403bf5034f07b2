// Times as text: 01:02:03.004.

const pad = (value: number, digits: number) => String(value).padStart(digits, '0');

export function timecode(ms: number): string {
  const whole = Math.trunc(ms);
  const seconds = Math.floor(whole / 1000);
  const clock = [Math.floor(seconds / 3600), Math.floor(seconds / 60) % 60, seconds % 60];
  return `${clock.map((part) => pad(part, 2)).join(':')}.${pad(whole % 1000, 3)}`;
}

export function runTime(ms: number): string {
  const seconds = Math.max(0, Math.floor(ms / 1000));
  const clock = [Math.floor(seconds / 60) % 60, seconds % 60].map((part) => pad(part, 2)).join(':');
  return seconds < 3600 ? clock : `${Math.floor(seconds / 3600)}:${clock}`;
}

// Milliseconds of "1:02:03.5", "02:03", "3.25" or "3"; null when it is no time or beyond 32 bits.
export function parseTime(text: string): number | null {
  const match = /^(?:(?:(\d{1,3}):)?(\d{1,2}):)?(\d{1,7})(?:\.(\d{1,3}))?$/.exec(text.trim());
  if (!match) return null;
  const [, hours = '0', minutes = '0', seconds = '0', fraction = ''] = match;
  const ms = ((Number(hours) * 60 + Number(minutes)) * 60 + Number(seconds)) * 1000 + Number(fraction.padEnd(3, '0'));
  return ms <= 0x7fffffff ? ms : null;
}
