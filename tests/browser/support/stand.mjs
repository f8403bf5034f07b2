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
// On a busy machine a key may overtake the page, so what fails is tried once more; what fails twice is a fault.
export function stand(name, body) {
  test(name, { timeout: 60000 }, async () => {
    try {
      await attempt(body);
    } catch (error) {
      console.error(`   once more: ${name}: ${error.message}`);
      await attempt(body);
    }
  });
}

async function attempt(body) {
  const workbench = await new Workbench().start();
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
