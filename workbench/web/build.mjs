// Bundles the page into dist/, which is checked in: the workbench serves it and needs no Node.
//   node build.mjs [--watch] [--out DIR]
import { context } from 'esbuild';
import { copyFileSync, mkdirSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

const root = dirname(fileURLToPath(import.meta.url));
const out = process.argv.includes('--out') ? process.argv[process.argv.indexOf('--out') + 1] : join(root, 'dist');

mkdirSync(out, { recursive: true });
for (const file of ['index.html', 'icon.svg']) copyFileSync(join(root, 'src', file), join(out, file));

const bundler = await context({
  absWorkingDir: root,
  entryPoints: { app: 'src/main.tsx' },
  outdir: out,
  bundle: true,
  minify: true,
  charset: 'utf8',
  legalComments: 'eof',
  target: 'es2022',
  jsx: 'automatic',
  jsxImportSource: 'preact',
  logLevel: 'info',
});
if (process.argv.includes('--watch')) {
  await bundler.watch();
} else {
  await bundler.rebuild();
  await bundler.dispose();
}
