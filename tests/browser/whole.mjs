// What holds for the page as a whole: several pages at once, the connection, the lamps, refusals, what is announced.
import { strict as assert } from 'node:assert';
import { writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { LAPTOP, TABLET } from './support/browser.mjs';
import { expect } from './support/expect.mjs';
import { writeLargestShow } from './support/largest.mjs';
import { stand } from './support/stand.mjs';

const NETWORK = /WebSocket|ERR_CONNECTION|Failed to load resource/;
const notice = (o) => o.page.locator('.notice[data-kind="refused"]').last();

// What the masks that were sent make of the lamps, folded from the frames that the page received.
function followMasks(page) {
  const rows = { 245: '.'.repeat(8), 246: '.'.repeat(16), 247: '.'.repeat(16) };
  const seen = { frames: 0 };
  const apply = (text) => {
    const sent = /^setLED\((\d+), ([#.]+)\) (on|off)$/.exec(text);
    if (!sent) return;
    seen.frames++;
    const [, row, mask, state] = sent;
    rows[row] = [...rows[row]].map((lamp, i) => (mask[i] === '#' ? (state === 'on' ? '#' : '.') : lamp)).join('');
  };
  page.on('websocket', (socket) =>
    socket.on('framereceived', ({ payload }) => {
      const frame = JSON.parse(payload);
      for (const entry of frame.t === 'hello' ? frame.log : frame.t === 'log' ? frame.entries : []) apply(entry.text);
    }),
  );
  return { rows, seen };
}

function lampsShown(page) {
  return page.evaluate(() =>
    Object.fromEntries(
      [...document.querySelectorAll('.lamps')].map((row) => [
        row.dataset.row,
        [...row.querySelectorAll('.lamp')].map((lamp) => ('lit' in lamp.dataset ? '#' : '.')).join(''),
      ]),
    ),
  );
}

// Notes in the page how long it stood still, and what it showed of work under way.
function followWork(o) {
  return o.page.evaluate(() => {
    window.longest = 0;
    window.work = [];
    let before = performance.now();
    const look = (now) => {
      window.longest = Math.max(window.longest, now - before);
      before = now;
      const bar = document.querySelector('[role="progressbar"]');
      if (bar) window.work.push([bar.getAttribute('aria-label'), bar.getAttribute('aria-valuenow') ?? bar.getAttribute('aria-valuetext')]);
      requestAnimationFrame(look);
    };
    requestAnimationFrame(look);
  });
}

async function shownOfWork(o, name) {
  const work = await o.page.evaluate(() => window.work);
  return work.filter(([label]) => label === name).map(([, part]) => Number(part));
}

async function pageStoodAtHand(o) {
  const longest = await o.page.evaluate(() => window.longest);
  assert.ok(longest < 500, `the page stood still for ${Math.round(longest)} ms`);
}

const WHOLE = {
  'two pages see the same at once': async ({ open }) => {
    const one = await open();
    const two = await open(TABLET);
    await expect(() => one.page.locator('.link').textContent()).toMatch(/×2/);
    await one.slot(1, 2).click();
    await two.isOn(1, 2);
    await two.slot(1, 2).tap();
    await one.isOn(1, 2, false);
    await one.pageTab('Act One').click();
    await two.currentPage('Act One');
    await two.named('Old Sailor').waitFor();
  },
  'a question appears on both pages and the first answer holds': async ({ open }) => {
    const one = await open();
    const two = await open();
    await one.focus(1, 2);
    await one.press('F2');
    await one.box.waitFor();
    await two.box.waitFor();
    await two.answer('Warm Front');
    await one.box.waitFor({ state: 'detached' });
    await one.holds(1, 2, 'Warm Front');
  },
  'a page that goes lets go of the button it held': async ({ open }) => {
    const one = await open();
    const two = await open();
    await one.slot(9, 2).hover();
    await one.page.mouse.down();
    await two.isOn(9, 2);
    await one.page.close();
    await two.isOn(9, 2, false);
  },
  'a window that loses the focus lets go of the button it held': async ({ open }) => {
    const o = await open();
    await o.slot(9, 2).hover();
    await o.page.mouse.down();
    await o.isOn(9, 2);
    await o.page.evaluate(() => window.dispatchEvent(new Event('blur')));
    await o.isOn(9, 2, false);
  },
  'a pointer released beside its button lets go of it': async ({ open }) => {
    const o = await open();
    await o.slot(9, 2).hover();
    await o.page.mouse.down();
    await o.isOn(9, 2);
    await o.page.mouse.move(700, 20);
    await o.page.mouse.up();
    await o.isOn(9, 2, false);
  },
  'a lost connection shows at once, refuses what is done, and comes back up to date': async ({ open, workbench, expectComplaint }) => {
    expectComplaint(NETWORK);
    const o = await open();
    await o.pageTab('Act One').click();
    await o.currentPage('Act One');
    const killed = Date.now();
    await workbench.kill();
    await o.page.locator('.lost[role="alert"]').waitFor();
    assert.ok(Date.now() - killed < 1000, `shown after ${Date.now() - killed} ms`);
    await o.slot(1, 1).click();
    await expect(() => notice(o).textContent()).toMatch(/Not connected/);
    await workbench.start();
    await o.page.locator('.link[data-status="open"]').waitFor();
    await expect(() => o.page.locator('.lost').count()).toBe(0);
    // The workbench begins with the first page again, and so does what is shown.
    await o.currentPage('Overture');
    await o.slot(1, 1).click();
    await o.isOn(1, 1);
  },
  'a connection that falls silent counts as lost and comes back': async ({ open, workbench, expectComplaint }) => {
    expectComplaint(NETWORK);
    const o = await open();
    workbench.freeze();
    await o.page.locator('.lost').waitFor({ timeout: 9000 });
    workbench.thaw();
    await o.page.locator('.link[data-status="open"]').waitFor({ timeout: 9000 });
    await o.slot(1, 1).click();
    await o.isOn(1, 1);
  },
  'the lamps are those of the masks sent': async ({ open }) => {
    const o = await open();
    const { rows, seen } = followMasks(o.page);
    await o.page.reload();
    await o.slot(0, 1).waitFor();
    await o.slot(0, 4).click();
    await o.slot(0, 18).click();
    await o.slot(3, 1).click();
    const begun = seen.frames;
    const phases = new Set();
    for (let i = 0; i < 12; i++) {
      await expect(async () => JSON.stringify([await lampsShown(o.page)])).toBe(JSON.stringify([{ ...rows }])).catch(async () => {
        // The blink timer may tick between the two looks.
        assert.deepEqual(await lampsShown(o.page), { ...rows });
      });
      phases.add(rows[246][3]);
      await new Promise((resolve) => setTimeout(resolve, 180));
    }
    assert.ok(seen.frames > begun, 'masks were sent while lamps blinked');
    assert.deepEqual([...phases].sort(), ['#', '.'], 'the lamp of a playing button was seen lit and dark');
    await expect(() => o.page.locator('.lamps[data-row="246"] .lamp').nth(3).getAttribute('aria-label')).toBe('4: blinking');
  },
  'after a page change each fader tells which way and how far it has to go': async ({ open }) => {
    const o = await open();
    await o.command('host.group 1 80');
    await o.pageTab('Act One').click();
    await o.currentPage('Act One');
    const text = await o.fader('group', 1).getAttribute('aria-valuetext');
    const found = /hand at 80, stored (\d+): (up|down) (\d+) until it takes over/.exec(text);
    assert.ok(found, text);
    const stored = Number(found[1]);
    assert.equal(found[2], stored > 80 ? 'up' : 'down');
    assert.equal(Number(found[3]), Math.abs(stored - 80));
    await o.command(`host.group 1 ${stored}`);
    await expect(() => o.fader('group', 1).getAttribute('aria-valuetext')).toBe(`${stored} percent`);
  },
  'a page name that no folder can have is refused with a reason': async ({ open }) => {
    const o = await open();
    await o.press('Shift+P');
    await o.answer('Act|Two');
    await expect(() => notice(o).textContent()).toMatch(/Not done.{10,}/);
    await expect(() => o.page.getByRole('tab', { name: /Act.Two/ }).count()).toBe(0);
  },
  'a second button on an occupied top slot is refused with a reason': async ({ open }) => {
    const o = await open();
    await o.command('setModeAssign "Evening Star" ButtonType_Sequence host');
    await o.page.locator('.slot[data-waiting]').first().waitFor();
    await o.slot(0, 1).click();
    await expect(() => notice(o).textContent()).toMatch(/Not done.{10,}/);
    await o.holds(0, 1, 'House Open');
  },
  'a million events are listed, and the page stays at hand': async ({ open, workbench }) => {
    const lines = ['1000000'];
    for (let i = 0; i < 1000000; i++) lines.push(`${i * 10},"Amber Front",${i % 2},1,0,0,0`);
    writeFileSync(join(workbench.data, 'million.evt'), `${lines.join('\r\n')}\r\n`);
    const o = await open();
    await o.page.getByRole('tab', { name: /^Events/ }).click();
    await o.button('Load…').click();
    await followWork(o);
    await o.answer('million.evt');
    await o.page.locator('.event-count', { hasText: 'event 1 of 1,000,000' }).waitFor({ timeout: 15000 });
    const parts = await shownOfWork(o, 'Loading the events');
    assert.ok(parts.some((part) => part > 0 && part < 100), `shown of the work: ${parts}`);
    assert.deepEqual(parts, [...parts].sort((a, b) => a - b));
    await o.page.locator('.event-rows').focus();
    await o.press('End');
    await expect(() => o.eventRow(1000000).locator('.event-time').textContent()).toBe('02:46:39.990');
    await o.slot(1, 1).click();
    await o.isOn(1, 1);
    await pageStoodAtHand(o);
  },
  'the largest show is loaded with its progress shown, and the page stays at hand': async ({ open, workbench }) => {
    const pages = writeLargestShow(workbench.data, 'Largest');
    const o = await open();
    await followWork(o);
    await o.palette('LoadShow Largest');
    await o.page.locator('.outcome').waitFor({ timeout: 30000 });
    await o.press('Escape');
    await o.currentShow('Largest');
    assert.equal(await o.page.locator('.pages').getByRole('tab').count(), pages.length);
    assert.ok((await shownOfWork(o, 'Loading the show')).length > 0, 'work was shown');
    await o.press('[');
    await o.currentPage(pages.at(-1));
    await o.press('/');
    await o.keyboard.type('Button 8 88');
    await o.page.getByRole('option', { name: /Button 8 88/ }).first().waitFor({ timeout: 15000 });
    await o.press('Escape');
    await o.slot(1, 2).click();
    await o.isOn(1, 2);
    await pageStoodAtHand(o);
  },
  'changes are announced': async ({ open }) => {
    const o = await open();
    const status = () => o.page.locator('[role="status"][aria-live="polite"]').textContent();
    await o.press('p');
    await expect(status).toMatch(/Transport playing/);
    await o.press('s');
    await expect(status).toMatch(/Transport stopped/);
    await o.focus(1, 2);
    await o.press('v');
    await expect(status).toMatch(/slot/);
  },
  'single letters do nothing when they are switched off': async ({ open }) => {
    const o = await open();
    await o.press('?');
    await o.page.getByRole('checkbox', { name: 'Single keys act' }).uncheck();
    await o.press('Escape');
    await o.press('p');
    await o.press('Control+k');
    await o.page.locator('.palette').waitFor();
    assert.equal(await o.page.locator('.transport').getAttribute('data-state'), 'Stopped');
  },
  'letters typed into a field are no keys': async ({ open }) => {
    const o = await open();
    await o.press('/');
    await o.keyboard.type('pprs');
    assert.equal(await o.page.locator('#find').inputValue(), 'pprs');
    assert.equal(await o.page.locator('.transport').getAttribute('data-state'), 'Stopped');
  },
  'nothing needs more than the window at 1440x900 and 1024x768': async ({ open }) => {
    for (const options of [LAPTOP, TABLET]) {
      const o = await open(options);
      const over = await o.page.evaluate(() => ({
        sideways: document.documentElement.scrollWidth - innerWidth,
        slots: [...document.querySelectorAll('.slot')].filter((slot) => slot.getBoundingClientRect().bottom > innerHeight - 40).length,
      }));
      assert.deepEqual(over, { sideways: 0, slots: 0 });
    }
  },
};

export function wholeTests(only) {
  for (const [name, body] of Object.entries(WHOLE).filter(([title]) => only.test(title))) stand(name, body);
}
