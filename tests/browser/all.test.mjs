// All tests, in one process and with one browser. ONLY=PATTERN takes those whose name it matches.
import { accessTests } from './access.mjs';
import { aheadTests } from './ahead.mjs';
import { endureTests } from './endure.mjs';
import { OPERATIONS } from './operations.mjs';
import { stand } from './support/stand.mjs';
import { touchTests } from './touch.mjs';
import { wholeTests } from './whole.mjs';

const only = new RegExp(process.env.ONLY ?? '.');

for (const { name, before, pointer, keyboard, check } of OPERATIONS.filter((operation) => only.test(operation.name))) {
  for (const [means, act] of Object.entries({ pointer, keyboard })) {
    stand(`${name}, by ${means}`, async ({ open, workbench }) => {
      const operator = await open();
      await before?.(operator);
      await act(operator);
      await check(operator, workbench);
    });
  }
}
touchTests(only);
aheadTests(only);
wholeTests(only);
accessTests(only);
endureTests(only);
