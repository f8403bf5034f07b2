// The largest show that its lists can hold, as files: as many pages as 254 bytes name, in each group as many buttons.
import { mkdirSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';

const LIST = 254;
const SIGNS = 'abcdefghijklmnopqrstuvwxyz0123456789';
const SLOTS = { 0: 32, 9: 8 };

// As many of the names as the list holds with a bar between them.
function fitting(names) {
  const held = [];
  let size = -1;
  for (const name of names) {
    size += 1 + String(name).length;
    if (size > LIST) break;
    held.push(name);
  }
  return held;
}

function pageText() {
  const sections = [];
  for (let group = 0; group <= 9; group++) {
    const indices = fitting(Array.from({ length: SLOTS[group] ?? LIST }, (_, i) => i + 1));
    sections.push(`[ButtonGroup${group}]`, 'pageOffset=0', 'faderValue=80', `usedIndices=${indices.join('|')}`);
    for (const i of indices) sections.push(`Button${i}_fields=Button ${group} ${i}|1|0|0|0|0|False`);
  }
  return `${sections.join('\r\n')}\r\n`;
}

// Answers the names of its pages.
export function writeLargestShow(data, name) {
  const folder = join(data, 'Sequences', name);
  const signs = [...SIGNS];
  const pages = fitting([...signs, ...signs.flatMap((first) => signs.map((second) => first + second))]);
  const text = pageText();
  for (const page of pages) {
    mkdirSync(join(folder, page), { recursive: true });
    writeFileSync(join(folder, page, 'pageSetting.ini'), text, 'latin1');
  }
  writeFileSync(join(folder, 'pageSetting.ini'), `[PageManager]\r\nPageList=${pages.join('|')}\r\n`, 'latin1');
  return pages;
}
