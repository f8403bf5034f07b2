// What an operator does, each by pointer and by keyboard, and what the page then shows. `before` prepares.
import { strict as assert } from 'node:assert';
import { existsSync, readFileSync } from 'node:fs';
import { join } from 'node:path';
import { expect } from './support/expect.mjs';

const overture = (workbench, file) => join(workbench.data, 'Sequences/Harbour Lights/Overture', file);

async function newItem(operator, type, name) {
  await operator.page.getByRole('tab', { name: 'Library' }).click();
  const form = operator.page.locator('.new-item');
  await form.locator('label', { hasText: type }).click();
  await form.getByRole('textbox').fill(name);
  await operator.button('Assign', form).click();
}

async function newItemByKey(operator, type, name) {
  await operator.press('a');
  await expect(() => operator.page.evaluate(() => document.activeElement.id)).toBe('new-item-name');
  await operator.keyboard.type(name);
  await operator.press('Shift+Tab');
  const steps = ['Sequence', 'Multi', 'Timeline', 'Auto'].indexOf(type);
  for (let i = 0; i < steps; i++) await operator.press('ArrowRight');
  await operator.press('Tab');
}

const assigning = (type) => ({
  name: `assigns a ${type.toLowerCase()} to a slot`,
  async pointer(o) {
    await newItem(o, type, 'Evening Star');
    await o.slot(4, 5).click();
  },
  async keyboard(o) {
    await newItemByKey(o, type, 'Evening Star');
    await o.press('Enter');
    await expect(() => o.page.locator('.waiting').count()).toBe(1);
    await o.page.evaluate(() => document.activeElement.blur());
    await o.focus(4, 5);
    await o.press('Enter');
  },
  async check(o) {
    await o.holds(4, 5, 'Evening Star');
    await expect(() => o.slot(4, 5).getAttribute('data-type')).toBe(type);
  },
});

// An edit by the menu of the button, opened with the right button, or by the button's key.
const edit = (name, label, key, check, answer) => ({
  name,
  async pointer(o) {
    await o.slot(1, 2).click({ button: 'right' });
    await o.editMenu.getByRole(/fader$/.test(label) ? 'menuitemradio' : 'menuitem', { name: label }).click();
    if (answer) await answer(o);
  },
  async keyboard(o) {
    await o.focus(1, 2);
    for (const one of [key].flat()) await o.press(one);
    if (answer) await answer(o);
  },
  check,
});

async function beginsWithTheButtonOn(o) {
  await o.isOn(1, 2);
  await expect(() => o.page.locator('.notice[data-kind="info"]').textContent()).toMatch(/Cool Front/);
  await expect(() => o.editMenu.count()).toBe(0);
  await expect(() => o.page.locator('.waiting').count()).toBe(0);
}

async function showMenu(o, entry) {
  await o.page.locator('.show-name').click();
  await o.page.getByRole('menuitem', { name: entry }).click();
}

async function pageMenu(o, entry) {
  await o.button('Page menu').click();
  await o.page.getByRole('menuitem', { name: entry }).click();
}

async function recordTwo(o) {
  await o.command('record.Record');
  await o.command('controlClicked 33 1 0 0 0');
  await new Promise((resolve) => setTimeout(resolve, 120));
  await o.command('controlClicked 34 1 0 0 0');
  await o.command('record.Stop_');
}

async function dragFader(o, fader, from, to) {
  const box = await fader.locator('.fader-track').boundingBox();
  const at = (value) => box.y + box.height * (1 - value / 100);
  const x = box.x + box.width / 2;
  await o.page.mouse.move(x, at(from));
  await o.page.mouse.down();
  await o.page.mouse.move(x, at(to), { steps: 12 });
  await o.page.mouse.up();
}

const value = (o, which, number) => o.fader(which, number).getAttribute('aria-valuenow').then(Number);
const near = (wanted) => (now) => Math.abs(now - wanted) <= 1;
const transport = (o) => o.page.locator('.transport').getAttribute('data-state');

export const OPERATIONS = [
  {
    name: 'clicks a top button',
    pointer: (o) => o.slot(0, 1).click(),
    async keyboard(o) {
      await o.focus(0, 1);
      await o.press('Enter');
    },
    async check(o) {
      await o.isOn(0, 1);
      await expect(() => o.playing('House Open').count()).toBe(1);
    },
  },
  {
    name: 'clicks a button of a group on and off again',
    async pointer(o) {
      await o.slot(1, 2).click();
      await o.isOn(1, 2);
      await o.slot(1, 1).click();
      await o.slot(1, 2).click();
    },
    async keyboard(o) {
      await o.focus(1, 2);
      await o.press('Space');
      await o.isOn(1, 2);
      await o.press('ArrowUp', 'Space', 'ArrowDown', 'Space');
    },
    async check(o) {
      await o.isOn(1, 1);
      await o.isOn(1, 2, false);
      await expect(() => o.playing('Amber Front').count()).toBe(1);
      await expect(() => o.playing('Cool Front').count()).toBe(0);
    },
  },
  {
    name: 'leaves a locked button alone',
    pointer: (o) => o.slot(0, 5).click(),
    async keyboard(o) {
      await o.focus(0, 5);
      await o.press('Enter');
    },
    async check(o) {
      await expect(() => o.page.locator('.log-row', { hasText: 'controlClicked 5 ' }).count()).toBe(1);
      await o.isOn(0, 5, false);
      await o.has(0, 5, /locked/);
    },
  },
  {
    name: 'steps a group forth and back',
    async pointer(o) {
      await o.button('Group 1: next step').click();
      await o.slot(1, 9).waitFor();
      await o.button('Group 1: next step').click();
      await o.slot(1, 17).waitFor();
      await o.button('Group 1: previous step').click();
    },
    async keyboard(o) {
      await o.focus(1, 1);
      await o.press('PageDown');
      await o.slot(1, 9).waitFor();
      await o.press('PageDown');
      await o.slot(1, 17).waitFor();
      await o.press('PageUp');
    },
    async check(o) {
      await o.slot(1, 9).waitFor();
      await expect(() => o.group(1).locator('.steps').textContent()).toBe('2/10');
    },
  },
  {
    name: 'goes in a group',
    pointer: (o) => o.button('Group 3: go, Cyc Dawn').click(),
    keyboard: (o) => o.press('Shift+3'),
    async check(o) {
      await o.isOn(3, 1);
      await o.has(3, 2, /next on go/);
    },
  },
  {
    name: 'marks the next and the previous button for go',
    async pointer(o) {
      await o.button('Group 3: mark the next button for go').click();
      await o.has(3, 2, /next on go/);
      await o.button('Group 3: mark the next button for go').click();
      await o.has(3, 3, /next on go/);
      await o.button('Group 3: mark the previous button for go').click();
    },
    async keyboard(o) {
      await o.focus(3, 1);
      await o.press('n');
      await o.has(3, 2, /next on go/);
      await o.press('n');
      await o.has(3, 3, /next on go/);
      await o.press('Shift+N');
    },
    async check(o) {
      await o.has(3, 2, /next on go/);
      await expect(() => o.slot(3, 3).getAttribute('data-highlight')).toBe(null);
    },
  },
  {
    name: 'moves a group fader until it takes over',
    async pointer(o) {
      await dragFader(o, o.fader('group', 1), 0, 40);
      await expect(() => o.fader('group', 1).getAttribute('aria-valuetext')).toMatch(/stored 80: up \d+/);
      await dragFader(o, o.fader('group', 1), 40, 90);
    },
    async keyboard(o) {
      await o.focus(1, 1);
      await o.press('f');
      for (let i = 0; i < 4; i++) await o.press('PageUp');
      await expect(() => value(o, 'group', 1)).toBe(40);
      await expect(() => o.fader('group', 1).getAttribute('aria-valuetext')).toMatch(/stored 80: up 40/);
      for (let i = 0; i < 5; i++) {
        await o.press('PageUp');
        await expect(() => value(o, 'group', 1)).toBe(50 + 10 * i);
      }
    },
    async check(o) {
      await expect(() => value(o, 'group', 1)).toHold(near(90));
      await expect(() => o.fader('group', 1).getAttribute('aria-valuetext')).toMatch(/^(89|90|91) percent$/);
    },
  },
  {
    name: 'raises the fader of an idle group, which starts its marked button',
    pointer: (o) => dragFader(o, o.fader('group', 4), 0, 60),
    async keyboard(o) {
      await o.focus(4, 1);
      await o.press('f', 'PageUp', 'ArrowUp');
    },
    check: (o) => o.isOn(4, 1),
  },
  {
    name: 'moves a bump fader, which turns its button on and off',
    async pointer(o) {
      await dragFader(o, o.fader('bump', 1), 0, 50);
      await o.isOn(9, 1);
      await dragFader(o, o.fader('bump', 1), 50, 0);
    },
    async keyboard(o) {
      await o.focus(9, 1);
      await o.press('f', 'End');
      await o.isOn(9, 1);
      await o.press('Home');
    },
    async check(o) {
      await o.isOn(9, 1, false);
      await expect(() => value(o, 'bump', 1)).toBe(0);
    },
  },
  {
    name: 'holds a bump button and lets it go',
    async pointer(o) {
      await o.slot(9, 2).hover();
      await o.page.mouse.down();
      await o.isOn(9, 2);
      await o.page.mouse.up();
    },
    async keyboard(o) {
      await o.focus(9, 2);
      await o.keyboard.down('Space');
      await o.isOn(9, 2);
      await o.keyboard.up('Space');
    },
    check: (o) => o.isOn(9, 2, false),
  },
  {
    name: 'holds a top button in bump mode and lets it go',
    async pointer(o) {
      await o.slot(0, 9).hover();
      await o.page.mouse.down();
      await o.isOn(0, 9);
      await o.page.mouse.up();
    },
    async keyboard(o) {
      await o.focus(0, 9);
      await o.keyboard.down('Enter');
      await o.isOn(0, 9);
      await o.keyboard.up('Enter');
    },
    check: (o) => o.isOn(0, 9, false),
  },
  {
    name: 'turns everything off',
    async before(o) {
      await o.slot(1, 1).click();
      await o.slot(0, 1).click();
      await o.isOn(0, 1);
    },
    async pointer(o) {
      await o.button('Screen menu').click();
      await o.page.getByRole('menuitem', { name: /Everything off/ }).click();
    },
    keyboard: (o) => o.press('Shift+Escape'),
    async check(o) {
      await o.isOn(1, 1, false);
      await o.isOn(0, 1, false);
      await expect(() => o.page.locator('.stage li').count()).toBe(0);
    },
  },
  {
    name: 'shows more slots of each group',
    async pointer(o) {
      await o.button('Screen menu').click();
      await o.page.getByRole('menuitemradio', { name: '10 slots a group' }).click();
    },
    keyboard: (o) => o.palette('show 10 slots'),
    check: (o) => expect(() => o.page.locator('.slot[data-group="8"]').count()).toBe(10),
  },
  {
    name: 'lets a button that starts release its group',
    async pointer(o) {
      await o.button('Screen menu').click();
      await o.page.getByRole('menuitemradio', { name: 'Starting releases the group' }).click();
    },
    keyboard: (o) => o.palette('releases its group'),
    async check(o) {
      await expect(() => o.page.locator('.log-row', { hasText: 'releaseOnPlay' }).count()).toHold((count) => count > 0);
      await o.slot(1, 1).click();
      await o.isOn(1, 1);
      await o.slot(1, 2).click();
      await o.isOn(1, 2);
      await o.isOn(1, 1, false);
    },
  },

  // ---- Shows and pages
  {
    name: 'makes a show',
    async pointer(o) {
      await showMenu(o, 'New show…');
      await o.answer('Gala');
    },
    async keyboard(o) {
      await o.palette('new show');
      await o.answer('Gala');
    },
    async check(o, workbench) {
      await o.currentShow('Gala');
      await o.holds(1, 1, null);
      assert.ok(existsSync(join(workbench.data, 'Sequences/Gala/pageSetting.ini')));
    },
  },
  {
    name: 'loads a show',
    async before(o) {
      await o.command('CreateNewShow "Gala"');
      await o.currentShow('Gala');
    },
    async pointer(o) {
      await o.page.locator('.show-name').click();
      await o.page.getByRole('menuitemradio', { name: 'Harbour Lights' }).click();
    },
    keyboard: (o) => o.palette('load the show harbour'),
    async check(o) {
      await o.currentShow('Harbour Lights');
      await o.holds(1, 1, 'Amber Front');
    },
  },
  {
    name: 'renames a show',
    async pointer(o) {
      await showMenu(o, 'Rename show…');
      await o.answer('Harbour Nights');
    },
    async keyboard(o) {
      await o.palette('rename this show');
      await o.answer('Harbour Nights');
    },
    async check(o, workbench) {
      await o.currentShow('Harbour Nights');
      await o.holds(1, 1, 'Amber Front');
      assert.ok(existsSync(join(workbench.data, 'Sequences/Harbour Nights/pageSetting.ini')));
      assert.ok(!existsSync(join(workbench.data, 'Sequences/Harbour Lights')));
    },
  },
  {
    name: 'deletes a show',
    async before(o) {
      await o.command('CreateNewShow "Gala"');
      await o.currentShow('Gala');
    },
    async pointer(o) {
      await showMenu(o, 'Delete show…');
      await o.answer();
    },
    async keyboard(o) {
      await o.palette('delete this show');
      await o.answer();
    },
    async check(o, workbench) {
      await expect(() => existsSync(join(workbench.data, 'Sequences/Gala'))).toBe(false);
      await expect(() => o.page.locator('.show-name').textContent()).toHold((text) => !/Gala/.test(text));
    },
  },
  {
    name: 'adds a page',
    async pointer(o) {
      await pageMenu(o, 'New page…');
      await o.answer('Encore');
    },
    async keyboard(o) {
      await o.press('Shift+P');
      await o.answer('Encore');
    },
    async check(o, workbench) {
      await o.currentPage('Encore');
      assert.ok(existsSync(join(workbench.data, 'Sequences/Harbour Lights/Encore')));
    },
  },
  {
    name: 'goes to another page',
    pointer: (o) => o.pageTab('Act One').click(),
    keyboard: (o) => o.press(']'),
    async check(o) {
      await o.currentPage('Act One');
      await o.named('Old Sailor').waitFor();
    },
  },
  {
    name: 'renames a page',
    async pointer(o) {
      await pageMenu(o, 'Rename page…');
      await o.answer('Prologue');
    },
    async keyboard(o) {
      await o.palette('rename this page');
      await o.answer('Prologue');
    },
    check: (o) => o.currentPage('Prologue'),
  },
  {
    name: 'deletes a page',
    async pointer(o) {
      await pageMenu(o, 'Delete page…');
      await o.answer();
    },
    async keyboard(o) {
      await o.palette('delete this page');
      await o.answer();
    },
    check: (o) => expect(() => o.pageTab('Overture').count()).toBe(0),
  },

  // ---- Assigning and editing
  assigning('Sequence'),
  assigning('Timeline'),
  assigning('Auto'),
  {
    name: 'assigns a multi with its multi file',
    async pointer(o) {
      await o.page.getByRole('tab', { name: 'Library' }).click();
      const form = o.page.locator('.new-item');
      await form.locator('label', { hasText: 'Multi' }).first().click();
      await form.getByRole('textbox').fill('All Blue');
      await form.getByLabel('Harbour Blue').check();
      await form.getByLabel('Moonlight').check();
      await o.button('Assign', form).click();
      await o.slot(4, 5).click();
    },
    async keyboard(o) {
      await newItemByKey(o, 'Multi', 'All Blue');
      for (const sequence of ['Harbour Blue', 'Moonlight']) {
        await o.page.locator('.multi-parts').getByLabel(sequence).focus();
        await o.press('Space');
      }
      await o.page.locator('#new-item-name').focus();
      await o.press('Enter');
      await expect(() => o.page.locator('.waiting').count()).toBe(1);
      await o.page.evaluate(() => document.activeElement.blur());
      await o.focus(4, 5);
      await o.press('Enter');
    },
    async check(o, workbench) {
      await o.holds(4, 5, 'All Blue');
      await expect(() => o.slot(4, 5).getAttribute('data-type')).toBe('Multi');
      const file = readFileSync(overture(workbench, 'All Blue.MUL'), 'latin1');
      assert.match(file, /"Harbour Blue","All Blue"/);
      assert.match(file, /"Moonlight","All Blue"/);
    },
  },
  {
    name: 'assigns an item of the library to the next free slot',
    async pointer(o) {
      await o.command('SetPage "Act One"');
      await o.page.getByRole('tab', { name: 'Library' }).click();
      await o.button('Assign Moonlight').click();
      await o.group(6).getByRole('button', { name: 'Next free slot' }).click();
    },
    async keyboard(o) {
      await o.press(']');
      await o.press('a');
      await o.button('Assign Moonlight').focus();
      await o.press('Enter');
      await expect(() => o.page.locator('.waiting').count()).toBe(1);
      await o.group(6).getByRole('button', { name: 'Next free slot' }).focus();
      await o.press('Enter');
    },
    async check(o) {
      await o.named('Moonlight').waitFor();
      await expect(() => o.named('Moonlight').getAttribute('data-group')).toBe('6');
    },
  },
  {
    name: 'flashes the slots while an assignment waits, and cancels it',
    async pointer(o) {
      await newItem(o, 'Sequence', 'Evening Star');
      await expect(() => o.page.locator('.slot[data-waiting]').count()).toHold((count) => count > 60);
      await expect(() => o.page.locator('.waiting').textContent()).toMatch(/slot/);
      await o.page.locator('.waiting').getByRole('button', { name: /Cancel/ }).click();
    },
    async keyboard(o) {
      await newItemByKey(o, 'Sequence', 'Evening Star');
      await o.press('Enter');
      await expect(() => o.page.locator('.slot[data-waiting]').count()).toHold((count) => count > 60);
      await o.page.evaluate(() => document.activeElement.blur());
      await o.press('Escape');
    },
    async check(o) {
      await expect(() => o.page.locator('.slot[data-waiting]').count()).toBe(0);
      await o.slot(1, 1).click();
      await o.isOn(1, 1);
      await o.holds(1, 1, 'Amber Front');
    },
  },
  {
    name: 'moves a button to another page',
    async pointer(o) {
      await o.slot(1, 2).click({ button: 'right' });
      await o.editMenu.getByRole('menuitem', { name: 'Move' }).click();
      await o.page.locator('.slot[data-waiting]').first().waitFor();
      await o.pageTab('Finale').click();
      await o.currentPage('Finale');
      await o.slot(7, 3).click();
    },
    async keyboard(o) {
      await o.focus(1, 2);
      await o.press('v');
      await o.page.locator('.slot[data-waiting]').first().waitFor();
      await o.press('[');
      await o.currentPage('Finale');
      await o.focus(7, 3);
      await o.press('Enter');
    },
    async check(o) {
      await o.holds(7, 3, 'Cool Front');
      await expect(() => o.page.locator('.waiting').count()).toBe(0);
      await o.pageTab('Overture').click();
      await o.holds(1, 2, 'Rose Front');
    },
  },
  {
    name: 'copies a button',
    async pointer(o) {
      await o.slot(1, 2).click({ button: 'right' });
      await o.editMenu.getByRole('menuitem', { name: 'Copy' }).click();
      await o.page.locator('.slot[data-waiting]').first().waitFor();
      await o.slot(7, 3).click();
    },
    async keyboard(o) {
      await o.focus(1, 2);
      await o.press('c');
      await o.page.locator('.slot[data-waiting]').first().waitFor();
      await o.focus(7, 3);
      await o.press('Enter');
    },
    async check(o) {
      await o.holds(7, 3, 'Cool Front copy');
      await o.holds(1, 2, 'Cool Front');
    },
  },
  edit('deletes a button', 'Delete…', 'Delete', (o) => o.holds(1, 2, 'Rose Front'), async (o) => {
    await o.answer();
    // The workbench asks whether the item's files go as well.
    await o.answer();
  }),
  edit('renames a button', 'Rename…', 'F2', (o) => o.holds(1, 2, 'Warm Front'), (o) => o.answer('Warm Front')),
  edit('makes a mark button', 'Make a mark button', 'k', async (o) => {
    await o.holds(1, 2, 'Cool Front Mark');
    await o.holds(1, 3, 'Cool Front');
  }),
  edit('makes a fade button', 'Make a fade button', 'j', async (o) => {
    await o.holds(1, 2, 'Cool Front');
    await o.holds(1, 3, 'Cool Front Fade');
  }),
  edit('locks a button', 'Lock', 'l', async (o) => {
    await o.has(1, 2, /locked/);
    await o.slot(1, 2).click();
    await o.slot(1, 1).click();
    await o.isOn(1, 1);
    await o.isOn(1, 2, false);
  }),
  edit('sets a button to bump', 'Bump on', 'b', (o) => o.has(1, 2, /, bump/)),
  edit('sets a button’s fader mode', 'Speed fader', 'd', (o) => o.has(1, 2, /speed fader/)),
  // Both begin with the button playing; the rest is the host's.
  edit('begins to adjust the fade times of a button', 'Adjust fade in and out', ['e', 'a', 'Enter'], beginsWithTheButtonOn),
  edit('begins to edit the cue of a button', 'Edit cue', ['e', 'e', 'Enter'], beginsWithTheButtonOn),
  {
    name: 'chooses a button in edit mode and leaves it',
    async pointer(o) {
      await o.button('Edit', o.page.locator('.bar')).click();
      await o.page.locator('.waiting').waitFor();
      await o.slot(1, 2).click();
      await o.editMenu.waitFor();
      await o.page.locator('.timecode').click();
    },
    async keyboard(o) {
      await o.press('Shift+E');
      await o.page.locator('.waiting').waitFor();
      await o.focus(1, 2);
      await o.press('Enter');
      await o.editMenu.waitFor();
      await o.press('ArrowDown', 'Escape');
    },
    async check(o) {
      await expect(() => o.editMenu.count()).toBe(0);
      await expect(() => o.page.locator('.waiting').count()).toBe(0);
      await o.isOn(1, 2, false);
    },
  },

  // ---- Transport
  {
    name: 'plays, pauses and stops the transport',
    async pointer(o) {
      await o.button('Play').click();
      await expect(() => transport(o)).toBe('playing');
      await o.button('Pause', o.page.locator('.transport')).click();
      await expect(() => transport(o)).toBe('Paused');
      await o.button('Stop').click();
    },
    async keyboard(o) {
      await o.press('p');
      await expect(() => transport(o)).toBe('playing');
      await o.press('p');
      await expect(() => transport(o)).toBe('Paused');
      await o.press('s');
    },
    async check(o) {
      await expect(() => transport(o)).toBe('Stopped');
      await expect(() => o.page.locator('.timecode').textContent()).toBe('00:00:00.000');
    },
  },
  {
    name: 'records a take',
    async pointer(o) {
      await o.button('Record').click();
      await expect(() => transport(o)).toBe('playing');
      await o.slot(1, 1).click();
      await o.slot(1, 2).click();
      await o.isOn(1, 2);
      await o.button('End take').click();
      await o.button('Stop').click();
    },
    async keyboard(o) {
      await o.press('r');
      await expect(() => transport(o)).toBe('playing');
      await o.focus(1, 1);
      await o.press('Enter', 'ArrowDown', 'Enter');
      await o.isOn(1, 2);
      await o.press('r', 's');
    },
    async check(o) {
      await expect(() => transport(o)).toBe('Stopped');
      await o.events(2);
      await expect(() => o.eventRow(1).textContent()).toMatch(/Amber Front/);
      await expect(() => o.eventRow(2).textContent()).toMatch(/Cool Front/);
    },
  },
  {
    name: 'sets the record mode',
    pointer: (o) => o.page.locator('.transport label', { hasText: 'Overwrite' }).click(),
    keyboard: (o) => o.press('m'),
    check: (o) => expect(() => o.page.getByRole('radio', { name: 'Overwrite' }).isChecked()).toBe(true),
  },
  {
    name: 'jumps to an event',
    before: recordTwo,
    async pointer(o) {
      await o.events(2);
      await o.button('Jump to event 2').click();
    },
    async keyboard(o) {
      await o.press('i');
      await expect(() => o.page.evaluate(() => document.activeElement.id)).toBe('event-list');
      await expect(() => o.page.locator('.event-row').count()).toBe(2);
      await o.press('ArrowDown', 'Enter');
    },
    async check(o) {
      const time = await o.eventRow(2).locator('.event-time').textContent();
      assert.notEqual(time, '00:00:00.000');
      await expect(() => o.page.locator('.timecode').textContent()).toBe(time);
    },
  },
  {
    name: 'changes the time of an event',
    before: recordTwo,
    async pointer(o) {
      await o.events(2);
      await o.eventRow(2).locator('.event-time button').click();
      await o.page.locator('.time-field').fill('1:02.5');
      await o.press('Enter');
    },
    async keyboard(o) {
      await o.press('i');
      await expect(() => o.page.evaluate(() => document.activeElement.id)).toBe('event-list');
      await expect(() => o.page.locator('.event-row').count()).toBe(2);
      await o.press('ArrowDown', 'F2');
      await o.page.locator('.time-field').waitFor();
      await o.keyboard.type('1:02.5');
      await o.press('Enter');
    },
    check: (o) => expect(() => o.eventRow(2).locator('.event-time').textContent()).toBe('00:01:02.500'),
  },
  {
    name: 'saves the events, clears them and loads them again',
    before: recordTwo,
    async pointer(o) {
      await o.events(2);
      await o.button('Save…').click();
      await o.answer('two.evt');
      await o.button('Clear…').click();
      await o.answer();
      await o.events(0);
      await o.button('Load…').click();
      await o.answer('two.evt');
    },
    async keyboard(o) {
      await o.palette('save the events');
      await o.answer('two.evt');
      await o.palette('clear the events');
      await o.answer();
      await o.events(0);
      await o.palette('load events');
      await o.answer('two.evt');
    },
    async check(o, workbench) {
      await o.events(2);
      assert.match(readFileSync(join(workbench.data, 'two.evt'), 'latin1'), /^2\r\n/);
    },
  },

  // ---- Looking
  {
    name: 'finds a button on another page and goes to it',
    async pointer(o) {
      await o.page.locator('#find').click();
      await o.keyboard.type('sail');
      await o.page.getByRole('option', { name: /Old Sailor/ }).click();
    },
    async keyboard(o) {
      await o.press('/');
      await o.keyboard.type('old sail');
      await o.page.getByRole('option', { name: /Old Sailor/ }).waitFor();
      await o.press('Enter');
    },
    async check(o) {
      await o.currentPage('Act One');
      await expect(() => o.page.evaluate(() => document.activeElement.textContent)).toMatch(/Old Sailor/);
    },
  },
  {
    name: 'filters the log by words and by kind',
    before: (o) => o.slot(1, 1).click(),
    async pointer(o) {
      await o.page.locator('.log .filter').fill('buttonstate');
      await o.page.locator('.log').getByRole('button', { name: /Results/ }).click();
    },
    async keyboard(o) {
      await o.press('o');
      await expect(() => o.page.evaluate(() => document.activeElement.className)).toBe('filter');
      await o.keyboard.type('buttonstate');
      await o.page.locator('.log').getByRole('button', { name: /Results/ }).focus();
      await o.press('Space');
    },
    async check(o) {
      await expect(() => o.page.locator('.log-row').count()).toBe(1);
      await expect(() => o.page.locator('.log-row').textContent()).toMatch(/ButtonStateChanged\(Amber Front@1\/1/);
    },
  },
  {
    name: 'pauses the log and lets it go on',
    async pointer(o) {
      await o.button('Pause', o.page.locator('.log')).click();
      const lines = await o.page.locator('.log-rows').getAttribute('aria-label');
      await o.slot(1, 1).click();
      await o.isOn(1, 1);
      assert.equal(await o.page.locator('.log-rows').getAttribute('aria-label'), lines);
      await o.page.locator('.log').getByRole('button', { name: /^Go on \(\d+\)/ }).click();
    },
    async keyboard(o) {
      await o.press('Shift+O');
      const lines = await o.page.locator('.log-rows').getAttribute('aria-label');
      await o.focus(1, 1);
      await o.press('Enter');
      await o.isOn(1, 1);
      assert.equal(await o.page.locator('.log-rows').getAttribute('aria-label'), lines);
      await o.press('Shift+O');
    },
    check: (o) => expect(() => o.page.locator('.log-row', { hasText: 'controlClicked 33 ' }).count()).toBe(1),
  },
  {
    name: 'copies the log as text',
    async before(o) {
      await o.page.context().grantPermissions(['clipboard-read', 'clipboard-write']);
      await o.slot(1, 1).click();
      await o.isOn(1, 1);
    },
    pointer: (o) => o.button('Copy', o.page.locator('.log')).click(),
    async keyboard(o) {
      await o.button('Copy', o.page.locator('.log')).focus();
      await o.press('Enter');
    },
    check: (o) =>
      expect(() => o.page.evaluate(() => navigator.clipboard.readText())).toMatch(
        /controlClicked 33 .*\n.* {2}ButtonStateChanged\(Amber Front@1\/1/,
      ),
  },
  {
    name: 'performs any command with its arguments',
    async pointer(o) {
      await o.button('Any command').click();
      await o.page.locator('.palette input').fill('ToggleButton');
      await o.page.getByRole('option', { name: /ToggleButtonAt/ }).click();
      await o.keyboard.type('1 7');
      await o.page.locator('.palette').getByRole('button', { name: /Perform/ }).click();
      await o.page.locator('.outcome[data-ok="true"]').waitFor();
      await o.press('Escape');
    },
    async keyboard(o) {
      await o.palette('ToggleButtonAt 1 7');
      await o.page.locator('.outcome[data-ok="true"]').waitFor();
      await o.press('Escape');
    },
    check: (o) => o.isOn(1, 7),
  },
  {
    name: 'switches between light and dark',
    pointer: (o) => o.button('Light colours').click(),
    keyboard: (o) => o.press('Shift+T'),
    check: (o) => expect(() => o.page.evaluate(() => document.documentElement.dataset.theme)).toBe('light'),
  },
  {
    name: 'shows the keys and closes them',
    async pointer(o) {
      await o.button('Keys').click();
      await expect(() => o.page.locator('.help kbd').count()).toHold((count) => count > 30);
      await o.page.locator('.help').getByRole('button', { name: 'Close' }).click();
    },
    async keyboard(o) {
      await o.press('?');
      await expect(() => o.page.locator('.help kbd').count()).toHold((count) => count > 30);
      await o.press('Escape');
    },
    check: (o) => expect(() => o.page.locator('.help').count()).toBe(0),
  },
];
