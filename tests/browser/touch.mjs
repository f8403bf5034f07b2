// The ten most used operations with a finger, on a tablet.
import { TABLET } from './support/browser.mjs';
import { expect } from './support/expect.mjs';
import { stand } from './support/stand.mjs';

async function finger(operator) {
  const session = await operator.page.context().newCDPSession(operator.page);
  const send = (type, touchPoints) => session.send('Input.dispatchTouchEvent', { type, touchPoints });
  return {
    down: (x, y) => send('touchStart', [{ x, y }]),
    move: (x, y) => send('touchMove', [{ x, y }]),
    up: () => send('touchEnd', []),
    lose: () => send('touchCancel', []),
  };
}

async function middle(locator) {
  const box = await locator.boundingBox();
  return [box.x + box.width / 2, box.y + box.height / 2];
}

const TOUCHES = {
  'taps a button of a group': async (o) => {
    await o.slot(1, 2).tap();
    await o.isOn(1, 2);
  },
  'taps a top button on and off': async (o) => {
    await o.slot(0, 1).tap();
    await o.isOn(0, 1);
    await o.slot(0, 1).tap();
    await o.isOn(0, 1, false);
  },
  'taps a group to its next step': async (o) => {
    await o.button('Group 1: next step').tap();
    await o.slot(1, 9).waitFor();
  },
  'taps go': async (o) => {
    await o.button('Group 3: go, Cyc Dawn').tap();
    await o.isOn(3, 1);
  },
  'slides a group fader until it takes over': async (o) => {
    const track = await o.fader('group', 1).locator('.fader-track').boundingBox();
    const x = track.x + track.width / 2;
    const touch = await finger(o);
    await touch.down(x, track.y + track.height);
    for (let part = 1; part > 0.1; part -= 0.05) await touch.move(x, track.y + track.height * part);
    await touch.up();
    await expect(() => o.fader('group', 1).getAttribute('aria-valuetext')).toMatch(/^(8[4-9]|9\d) percent$/);
  },
  'holds a bump button and lifts the finger': async (o) => {
    const touch = await finger(o);
    await touch.down(...(await middle(o.slot(9, 2))));
    await o.isOn(9, 2);
    await touch.up();
    await o.isOn(9, 2, false);
  },
  'holds a bump button that the system takes the finger from': async (o) => {
    const touch = await finger(o);
    await touch.down(...(await middle(o.slot(9, 2))));
    await o.isOn(9, 2);
    await touch.lose();
    await o.isOn(9, 2, false);
  },
  'taps another page': async (o) => {
    await o.pageTab('Act One').tap();
    await o.currentPage('Act One');
  },
  'taps record, a button, and stop': async (o) => {
    await o.button('Record').tap();
    await o.button('End take').waitFor();
    await o.slot(1, 1).tap();
    await o.isOn(1, 1);
    await o.button('Stop').tap();
    await expect(() => o.page.locator('.event-count').textContent()).toBe('event 1 of 1');
  },
  'taps edit, a button, and rename': async (o) => {
    await o.page.locator('.bar').getByRole('button', { name: 'Edit' }).tap();
    await o.page.locator('.waiting').waitFor();
    await o.slot(1, 2).tap();
    await o.editMenu.getByRole('menuitem', { name: 'Rename…' }).tap();
    await o.answer('Warm Front');
    await o.holds(1, 2, 'Warm Front');
  },
  'presses a button long for its menu, and nothing plays': async (o) => {
    const touch = await finger(o);
    await touch.down(...(await middle(o.slot(1, 2))));
    await o.editMenu.waitFor();
    await touch.up();
    await o.editMenu.getByRole('menuitem', { name: 'Lock' }).tap();
    await o.has(1, 2, /locked/);
    await o.isOn(1, 2, false);
  },
  'slides off a button before a press is long, and nothing happens': async (o) => {
    const touch = await finger(o);
    const [x, y] = await middle(o.slot(1, 2));
    await touch.down(x, y);
    await touch.move(x, y + 60);
    await new Promise((resolve) => setTimeout(resolve, 700));
    await touch.up();
    await expect(() => o.page.locator('.waiting').count()).toBe(0);
    await expect(() => o.editMenu.count()).toBe(0);
    await o.isOn(1, 2, false);
    await o.isOn(1, 3, false);
  },
  'opens the surface in the drawer': async (o) => {
    await o.button('Panels').tap();
    await expect(() => o.page.locator('.drawer .lamp').count()).toBe(40);
    await o.button('Close the panels').tap();
    await expect(() => o.page.locator('.drawer').count()).toBe(0);
  },
};

export function touchTests(only) {
  for (const [name, act] of Object.entries(TOUCHES).filter(([title]) => only.test(title))) {
    stand(`${name}, by touch`, async ({ open }) => act(await open(TABLET)));
  }
}
