// Makes the pictures of docs/pictures/ from the sample show.
//   node tests/browser/tools/pictures.mjs [NAME...]
import { mkdirSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { launch, LAPTOP, TABLET, useBundle } from '../support/browser.mjs';
import { Operator } from '../support/operator.mjs';
import { Workbench } from '../support/workbench.mjs';

const folder = fileURLToPath(new URL('../../../docs/pictures/', import.meta.url));
const LIGHT = { ...LAPTOP, colorScheme: 'light' };
const pause = (ms) => new Promise((resolve) => setTimeout(resolve, ms));

// An evening under way: things play, faders wait to be picked up, a take was recorded.
async function evening(o) {
  for (const line of [
    'host.bump 1 30',
    'host.group 1 85',
    'host.group 1 80',
    'host.group 2 40',
    'host.group 3 100',
    'host.group 8 55',
    'record.Record',
    'controlClicked 33 1 0 10 10',
    'controlClicked 4 1 0 10 10',
  ])
    await o.command(line);
  await pause(700);
  await o.command('controlClicked 67 1 0 10 10');
  await o.command('controlClicked 51 1 0 10 10');
  await pause(400);
  await o.command('controlClicked 51 1 0 10 10');
  await o.command('record.Record');
  await pause(600);
}

const PICTURES = {
  workbench: [LAPTOP, async () => undefined],
  'workbench-light': [LIGHT, async () => undefined],
  tablet: [
    TABLET,
    async (o) => {
      await o.button('Panels').tap();
      await o.page.locator('.drawer .lamp').first().waitFor();
    },
  ],
  edit: [
    LAPTOP,
    async (o) => {
      await o.focus(3, 2);
      await o.press('e');
      await o.editMenu.waitFor();
    },
  ],
  assign: [
    LAPTOP,
    async (o) => {
      await o.press('a');
      await o.page.locator('#new-item-name').fill('Evening Star');
      await o.press('Enter');
      await o.page.locator('.slot[data-waiting]').first().waitFor();
      await o.slot(4, 4).hover();
    },
  ],
  events: [
    LIGHT,
    async (o) => {
      await o.events(5);
      await o.page.locator('#event-1 .event-time button').click();
      await o.page.locator('.time-field').waitFor();
    },
  ],
  find: [
    LAPTOP,
    async (o) => {
      await o.press('/');
      await o.keyboard.type('front');
      await o.page.getByRole('option').first().waitFor();
    },
  ],
  palette: [
    LAPTOP,
    async (o) => {
      await o.press('Control+k');
      await o.keyboard.type('button');
      await pause(100);
    },
  ],
  lost: [
    LAPTOP,
    async (o, workbench) => {
      await workbench.kill();
      await o.page.locator('.lost').waitFor();
    },
  ],
};

const wanted = process.argv.slice(2);
mkdirSync(folder, { recursive: true });
const browser = await launch();
for (const [name, [options, act]] of Object.entries(PICTURES)) {
  if (wanted.length && !wanted.includes(name)) continue;
  const workbench = await new Workbench().start();
  const context = await browser.newContext({ ...options, reducedMotion: 'reduce' });
  await useBundle(context);
  const operator = new Operator(await context.newPage());
  await operator.open(workbench.url);
  await evening(operator);
  await act(operator, workbench);
  await pause(250);
  await operator.page.screenshot({ path: `${folder}${name}.png` });
  await context.close();
  await workbench.stop();
}
await browser.close();
