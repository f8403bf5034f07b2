// One browser for all tests; for each test a workbench on fresh data and as many pages as it asks for.
import { after, test } from 'node:test';
import { launch, LAPTOP, useBundle } from './browser.mjs';
import { Operator } from './operator.mjs';
import { Workbench } from './workbench.mjs';

after(async () => {
  await (await launch()).close();
});

// A test with a workbench of its own. The body gets `open(options)`, which opens a page and answers its operator,
// and the workbench. Whatever a page complains about in its console fails the test, unless it is expected.
// On a busy machine what fails is tried once more; what fails twice is a fault. To look for what fails now and then:
// VESTREL_TIMES=30 repeats each test, VESTREL_TRIES=1 tries nothing again, VESTREL_THROTTLE=6 slows the page down.
const times = Number(process.env.VESTREL_TIMES ?? 1);
const tries = Number(process.env.VESTREL_TRIES ?? 2);
const throttle = Number(process.env.VESTREL_THROTTLE ?? 1);

export function stand(name, body, options = {}) {
  for (let i = 0; i < times; i++) test(name, { timeout: 60000 }, () => tryTo(name, body, options));
}

async function tryTo(name, body, options) {
  for (let left = tries - 1; ; left--) {
    try {
      return await attempt(body, options);
    } catch (error) {
      if (left <= 0) throw error;
      console.error(`   once more: ${name}: ${error.message}`);
    }
  }
}

async function attempt(body, options) {
  const workbench = await new Workbench(options).start();
  const contexts = [];
  const complaints = [];
  const expected = [];
  const open = async (options = LAPTOP) => {
    const context = await (await launch()).newContext(options);
    contexts.push(context);
    context.setDefaultTimeout(5000);
    await useBundle(context);
    const page = await context.newPage();
    page.on('pageerror', (error) => complaints.push(String(error)));
    page.on('console', (message) => message.type() === 'error' && complaints.push(message.text()));
    if (throttle > 1) await (await context.newCDPSession(page)).send('Emulation.setCPUThrottlingRate', { rate: throttle });
    const operator = new Operator(page);
    await operator.open(workbench.url);
    return operator;
  };
  try {
    await body({ open, workbench, expectComplaint: (pattern) => expected.push(pattern) });
    const unexpected = complaints.filter((text) => !expected.some((pattern) => pattern.test(text)));
    if (unexpected.length) throw new Error(`the page complained: ${unexpected.join('; ')}`);
  } finally {
    for (const context of contexts) await context.close();
    await workbench.stop();
  }
}
