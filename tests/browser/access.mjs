// An accessibility audit of the page in the states it can be in: nothing serious or critical may be found.
import { strict as assert } from 'node:assert';
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { LAPTOP, TABLET } from './support/browser.mjs';
import { stand } from './support/stand.mjs';

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const LIGHT = { ...LAPTOP, colorScheme: 'light' };

const STATES = {
  'the screen, dark': [LAPTOP, (o) => o.slot(1, 1).click()],
  'the screen, light': [LIGHT, (o) => o.slot(1, 1).click()],
  'the drawer on a tablet': [TABLET, (o) => o.button('Panels').tap()],
  'the library': [LAPTOP, (o) => o.press('a')],
  'the library, light': [LIGHT, (o) => o.press('a')],
  'the events': [
    LAPTOP,
    async (o) => {
      await o.command('record.Record');
      await o.command('controlClicked 33 1 0 0 0');
      await o.command('record.Stop_');
      await o.events(1);
    },
  ],
  'a button’s menu': [
    LAPTOP,
    async (o) => {
      await o.focus(1, 2);
      await o.press('e');
      await o.editMenu.waitFor();
    },
  ],
  'an assignment that waits': [
    LIGHT,
    async (o) => {
      await o.command('setModeAssign "Evening Star" ButtonType_Sequence host');
      await o.page.locator('.slot[data-waiting]').first().waitFor();
    },
  ],
  'a question': [LAPTOP, (o) => o.press('Shift+P')],
  'the palette': [LAPTOP, (o) => o.press('Control+k')],
  'the keys': [LIGHT, (o) => o.press('?')],
  'search results': [
    LAPTOP,
    async (o) => {
      await o.press('/');
      await o.keyboard.type('sail');
      await o.page.getByRole('option', { name: /Old Sailor/ }).waitFor();
    },
  ],
  'a refusal': [
    LIGHT,
    async (o) => {
      await o.press('Shift+P');
      await o.answer('Act|Two');
      await o.page.locator('.notice').waitFor();
    },
  ],
  'a lost connection': [
    LAPTOP,
    async (o, workbench) => {
      await workbench.kill();
      await o.page.locator('.lost').waitFor();
    },
  ],
};

async function findings(page) {
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => window.axe.run(document, { resultTypes: ['violations'] }));
  return violations
    .filter(({ impact }) => impact === 'serious' || impact === 'critical')
    .map(({ id, nodes }) => `${id}: ${nodes.slice(0, 4).map((node) => `${node.target.join(' ')} (${node.failureSummary?.split('\n')[1]?.trim()})`).join('; ')}`);
}

export function accessTests(only) {
  for (const [name, [options, reach]] of Object.entries(STATES).filter(([title]) => only.test(title))) {
    stand(`the audit finds nothing serious: ${name}`, async ({ open, workbench, expectComplaint }) => {
      expectComplaint(/WebSocket|ERR_CONNECTION/);
      const o = await open(options);
      await reach(o, workbench);
      await new Promise((resolve) => setTimeout(resolve, 150));
      assert.deepEqual(await findings(o.page), []);
    });
  }
}
