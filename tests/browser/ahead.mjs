// Keys that come before the page is ready for them: they wait and act in their order, and Escape always finds what
// is open. The workbench is frozen, so that the keys are ahead whatever the machine does.
import { strict as assert } from 'node:assert';
import { expect } from './support/expect.mjs';
import { stand } from './support/stand.mjs';

const transport = (o) => o.page.locator('.transport').getAttribute('data-state');
const blur = (o) => o.page.evaluate(() => document.activeElement.blur());

// What is pressed reaches the page before the workbench can answer the first of it.
async function ahead(workbench, press) {
  workbench.freeze();
  try {
    await press();
  } finally {
    workbench.thaw();
  }
}

const OPENED = {
  'the keys': [(o) => o.press('?'), (o) => o.page.locator('.help')],
  'the palette': [(o) => o.press('Control+k'), (o) => o.page.locator('.palette')],
  'a question of the page': [(o) => o.press('Shift+P'), (o) => o.box],
  'a question of the workbench': [(o) => o.press('1', 'F2'), (o) => o.box],
  'the menu of a button': [(o) => o.slot(1, 2).click({ button: 'right' }), (o) => o.editMenu],
  'the menu of the show': [(o) => o.page.locator('.show-name').click(), (o) => o.page.locator('.menu')],
};

const AHEAD = {
  'a name typed before the workbench asks for it goes into its question': async ({ open, workbench }) => {
    const o = await open();
    await o.focus(1, 2);
    await ahead(workbench, async () => {
      await o.press('F2');
      await o.keyboard.type('Warm Prosper', { delay: 0 });
      await o.press('Backspace', 'Enter');
    });
    await o.holds(1, 2, 'Warm Prospe');
    await expect(() => o.box.count()).toBe(0);
    assert.equal(await transport(o), 'Stopped');
  },
  'a copy is placed where the keys went before it was under way': async ({ open, workbench }) => {
    const o = await open();
    await o.focus(1, 2);
    await ahead(workbench, () => o.press('c', '7', 'ArrowDown', 'ArrowDown', 'Enter'));
    await o.holds(7, 3, 'Cool Front copy');
    await o.holds(1, 2, 'Cool Front');
    await expect(() => o.page.locator('.waiting').count()).toBe(0);
  },
  'a key after the one for another page means the button there': async ({ open, workbench }) => {
    const o = await open();
    await o.pageTab('Finale').click();
    await o.currentPage('Finale');
    const there = await o.slot(1, 1).locator('.slot-name').textContent();
    await o.press(']');
    await o.currentPage('Overture');
    await o.focus(1, 1);
    assert.notEqual(await o.slot(1, 1).locator('.slot-name').textContent(), there);
    await ahead(workbench, () => o.press('[', 'Delete'));
    await expect(() => o.box.getByRole('heading').textContent()).toMatch(there);
    await o.press('Escape');
  },
  'a letter after the key for the palette and its choice goes into the question': async ({ open, workbench }) => {
    const o = await open();
    await o.focus(1, 2);
    await o.press('Control+k');
    await o.keyboard.type('rename this button');
    await ahead(workbench, async () => {
      await o.press('Enter');
      await o.keyboard.type('Warm Front');
      await o.press('Enter');
    });
    await o.holds(1, 2, 'Warm Front');
  },
  'Enter before the results are there goes to the button that was typed': async ({ open, workbench }) => {
    const o = await open();
    await o.press('/');
    await o.keyboard.type('cyc');
    await o.page.getByRole('option', { name: /Cyc/ }).first().waitFor();
    await o.page.locator('#find').fill('');
    await ahead(workbench, async () => {
      await o.keyboard.type('old sailor');
      await o.press('Enter');
    });
    await o.currentPage('Act One');
    await expect(() => o.page.evaluate(() => document.activeElement.textContent)).toMatch(/Old Sailor/);
  },
  'letters after the key of a panel go into its field': async ({ open }) => {
    const o = await open();
    await o.press('a', 'p', 'E');
    assert.equal(await o.page.locator('#new-item-name').inputValue(), 'pE');
    assert.equal(await transport(o), 'Stopped');
  },
  'keys of a lost connection are not done later': async ({ open, workbench, expectComplaint }) => {
    expectComplaint(/WebSocket|ERR_CONNECTION/);
    const o = await open();
    await o.focus(1, 2);
    workbench.freeze();
    await o.press('c', '7', 'p');
    await workbench.kill();
    await o.page.locator('.lost').waitFor();
    await workbench.start();
    await o.page.locator('.link[data-status="open"]').waitFor();
    await o.slot(3, 1).click();
    await o.isOn(3, 1);
    assert.equal(await transport(o), 'Stopped');
  },
  'everything off does not wait, and works over what is open': async ({ open }) => {
    const o = await open();
    await o.slot(1, 1).click();
    await o.isOn(1, 1);
    await o.press('?', 'Shift+Escape');
    await o.isOn(1, 1, false);
    await expect(() => o.page.locator('.help').count()).toBe(1);
  },
  'a name that cannot be is refused in its question, with the reason': async ({ open }) => {
    const o = await open();
    await o.focus(1, 2);
    await o.press('F2');
    await o.box.getByRole('textbox').fill('Act|Two');
    await o.press('Enter');
    await expect(() => o.box.getByRole('alert').textContent()).toMatch(/.{10,}/);
    await o.box.getByRole('textbox').fill('Warm Front');
    await o.press('Enter');
    await o.holds(1, 2, 'Warm Front');
  },
  'what the browser closes of itself goes': async ({ open }) => {
    const o = await open();
    for (const name of ['the keys', 'the palette', 'a question of the page', 'a question of the workbench']) {
      const [show, shown] = OPENED[name];
      await show(o);
      await shown(o).waitFor();
      await o.page.evaluate(() => document.querySelector('dialog').close());
      await expect(() => shown(o).count()).toBe(0);
    }
    await o.holds(1, 1, 'Amber Front');
  },
};

for (const [name, [show, shown]] of Object.entries(OPENED)) {
  AHEAD[`Escape closes ${name} wherever the focus is`] = async ({ open }) => {
    const o = await open();
    await show(o);
    await shown(o).waitFor();
    await blur(o);
    await o.press('Escape');
    await expect(() => shown(o).count()).toBe(0);
  };
}

export function aheadTests(only) {
  for (const [name, body] of Object.entries(AHEAD).filter(([title]) => only.test(title))) stand(name, body);
}
