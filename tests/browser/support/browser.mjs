// The system's Chromium, started once.
import { chromium } from 'playwright-core';

const SWITCHES = [
  '--no-sandbox',
  '--disable-gpu',
  '--disable-quic',
  '--no-first-run',
  '--disable-background-networking',
  '--disable-component-update',
  '--disable-sync',
];

export const LAPTOP = { viewport: { width: 1440, height: 900 }, colorScheme: 'dark' };
export const TABLET = { viewport: { width: 1024, height: 768 }, colorScheme: 'dark', hasTouch: true };

let browser;

export async function launch() {
  browser ??= await chromium.launch({ executablePath: process.env.VESTREL_CHROMIUM ?? '/usr/bin/chromium', args: SWITCHES });
  return browser;
}

// VESTREL_PAGE=FOLDER tries another bundle than the one that the workbench was built with.
export async function useBundle(context) {
  const folder = process.env.VESTREL_PAGE;
  if (!folder) return;
  for (const file of ['app.js', 'app.css']) await context.route(`**/${file}`, (route) => route.fulfill({ path: `${folder}/${file}` }));
}
