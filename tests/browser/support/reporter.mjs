// Counts for the suite: a line "passed 1 TEXT" or "failed 1 TEXT" for each test, to the file named by
// VESTREL_RESULTS; what failed is told on the terminal.
import { appendFileSync } from 'node:fs';

export default async function* report(source) {
  for await (const { type, data } of source) {
    if ((type !== 'test:pass' && type !== 'test:fail') || data.details?.type === 'suite' || data.nesting > 0) continue;
    if (data.name.endsWith('.mjs')) continue;
    const passed = type === 'test:pass';
    if (process.env.VESTREL_RESULTS) {
      appendFileSync(process.env.VESTREL_RESULTS, `${passed ? 'passed' : 'failed'} 1 browser: ${data.name}\n`);
    }
    if (!passed) yield `   FAILED: ${data.name}\n${data.details.error?.cause?.stack ?? data.details.error}\n`;
  }
}
