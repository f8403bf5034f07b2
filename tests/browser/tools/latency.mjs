// How long it takes from a click to the changed button on the page, over 1,000 clicks with a full page, and how much
// of that is the library's own time, which the workbench tells with its answer.
//   node tests/browser/tools/latency.mjs [CLICKS]
import { Operator } from '../support/operator.mjs';
import { launch, LAPTOP, useBundle } from '../support/browser.mjs';
import { Workbench } from '../support/workbench.mjs';
import { fillPage } from './fullPage.mjs';

const clicks = Number(process.argv[2] ?? 1000);
const FRAME = 1000 / 60;

function quantile(values, part) {
  const sorted = [...values].sort((a, b) => a - b);
  return sorted[Math.min(sorted.length - 1, Math.floor(sorted.length * part))];
}

// In the page: notes for each click when its button changed, and when a frame with it had been drawn.
function watch() {
  window.times = [];
  let clicked = 0;
  document.addEventListener('click', (event) => (clicked = event.timeStamp), true);
  new MutationObserver((changes) => {
    if (!clicked || !changes.some(({ attributeName }) => attributeName === 'aria-pressed')) return;
    const entry = { changed: performance.now() - clicked };
    const from = clicked;
    clicked = 0;
    requestAnimationFrame(() => {
      const { port1, port2 } = new MessageChannel();
      port1.onmessage = () => window.times.push({ ...entry, drawn: performance.now() - from });
      port2.postMessage(0);
    });
  }).observe(document.querySelector('.screen'), { subtree: true, attributes: true, attributeFilter: ['aria-pressed'] });
}

const workbench = await new Workbench().start();
const browser = await launch();
const context = await browser.newContext(LAPTOP);
await useBundle(context);
const page = await context.newPage();
const library = [];
page.on('websocket', (socket) =>
  socket.on('framereceived', ({ payload }) => {
    const frame = JSON.parse(payload);
    if (frame.t === 'done' && frame.us !== undefined) library.push(frame.us / 1000);
  }),
);
const operator = new Operator(page);
await operator.open(workbench.url);
await fillPage(operator);
await operator.slot(8, 8).locator('.slot-name').waitFor();
await page.evaluate(watch);
library.length = 0;
for (let i = 0; i < clicks; i++) {
  const box = await operator.slot(1 + (i % 8), 1 + (Math.floor(i / 8) % 8)).boundingBox();
  await page.mouse.click(box.x + box.width / 2, box.y + box.height / 2);
  await page.waitForFunction((count) => window.times.length > count, i, { polling: 'raf' });
}
const times = await page.evaluate(() => window.times);
await browser.close();
await workbench.stop();

const changed = times.map((time) => time.changed);
const drawn = times.map((time) => time.drawn);
const ms = (value) => `${value.toFixed(2)} ms`;
console.log(`clicks:                          ${times.length}`);
console.log(`library’s own time of a click:   ${quantile(library, 0.5).toFixed(3)} ms`);
console.log(`click to changed button, median: ${ms(quantile(changed, 0.5))}, 95 of 100 within ${ms(quantile(changed, 0.95))}`);
console.log(`click to drawn frame, median:    ${ms(quantile(drawn, 0.5))}, 95 of 100 within ${ms(quantile(drawn, 0.95))}`);
const beyond = quantile(changed, 0.5) - quantile(library, 0.5);
console.log(`beyond the library, median:      ${ms(beyond)} (one frame of 60 Hz: ${ms(FRAME)})`);
process.exitCode = beyond <= FRAME ? 0 : 1;
