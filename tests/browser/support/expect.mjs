// What is expected of a page that may still be on its way there: looked at again until it holds or time is up.
import assert from 'node:assert/strict';

const PATIENCE = 5000;
const PAUSE = 20;

export function expect(read) {
  const until = async (check) => {
    const end = Date.now() + PATIENCE;
    for (;;) {
      const value = await read();
      try {
        check(value);
        return value;
      } catch (error) {
        if (Date.now() > end) throw error;
      }
      await new Promise((resolve) => setTimeout(resolve, PAUSE));
    }
  };
  return {
    toBe: (wanted) => until((value) => assert.equal(value, wanted)),
    toEqual: (wanted) => until((value) => assert.deepEqual(value, wanted)),
    toMatch: (pattern) => until((value) => assert.match(String(value), pattern instanceof RegExp ? pattern : new RegExp(pattern))),
    toHold: (holds) => until((value) => assert.ok(holds(value), `not with ${JSON.stringify(value)}`)),
  };
}
