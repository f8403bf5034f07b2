// An operator at one page of the workbench: finds what is on the page, and does things by pointer, keyboard or
// touch as a person would.
import { expect } from './expect.mjs';

export class Operator {
  constructor(page) {
    this.page = page;
    this.keyboard = page.keyboard;
  }

  async open(url) {
    await this.page.goto(url);
    await this.page.locator('.link[data-status="open"]').waitFor();
    await this.slot(0, 1).waitFor();
  }

  // ---- What is on the page

  slot(group, index) {
    return this.page.locator(`.slot[data-group="${group}"][data-index="${index}"]`);
  }

  named(name) {
    return this.page.locator('.slot', { has: this.page.locator('.slot-name', { hasText: new RegExp(`^${name}$`) }) });
  }

  group(number) {
    return this.page.locator(`.group[data-group="${number}"]`);
  }

  fader(which, number) {
    return this.page.locator(`.screen [data-fader="${which}"][data-number="${number}"]`);
  }

  button(name, inside = this.page) {
    return inside.getByRole('button', { name, exact: true });
  }

  pageTab(name) {
    return this.page.locator('.pages').getByRole('tab', { name, exact: true });
  }

  playing(name) {
    return this.page.locator(`.stage li[data-name="${name}"]`);
  }

  get editMenu() {
    return this.page.locator('.menu[aria-label^="Edit"]');
  }

  get box() {
    return this.page.locator('dialog.box');
  }

  async isOn(group, index, on = true) {
    await expect(() => this.slot(group, index).getAttribute('aria-pressed')).toBe(String(on));
  }

  async holds(group, index, name) {
    if (name) await expect(() => this.slot(group, index).locator('.slot-name').textContent()).toBe(name);
    else await expect(() => this.slot(group, index).getAttribute('data-filled')).toBe(null);
  }

  async has(group, index, attribute) {
    await expect(() => this.slot(group, index).getAttribute('aria-label')).toMatch(attribute);
  }

  async currentPage(name) {
    await expect(() => this.pageTab(name).getAttribute('aria-selected')).toBe('true');
  }

  async currentShow(name) {
    await expect(() => this.page.locator('.show-name').textContent()).toMatch(name);
  }

  async events(count) {
    await this.page.getByRole('tab', { name: /^Events/ }).click();
    await expect(() => this.page.locator('.event-row').count()).toBe(count);
  }

  eventRow(number) {
    return this.page.locator(`#event-${number - 1}`);
  }

  // ---- By keyboard

  async press(...keys) {
    for (const key of keys) await this.keyboard.press(key);
  }

  async focus(group, index) {
    await this.press(String(group));
    const first = await this.page.evaluate(() => Number(document.activeElement.dataset.index));
    for (let i = first; i < index; i++) await this.press(group % 9 === 0 ? 'ArrowRight' : 'ArrowDown');
    await expect(() => this.page.evaluate(() => document.activeElement.dataset.index)).toBe(String(index));
  }

  async palette(words) {
    await this.press('Control+k');
    await this.page.locator('.palette').waitFor();
    await this.keyboard.type(words);
    await this.press('Enter');
  }

  // Fills the open dialog and sends it, by keyboard; without a text to its last button, which says yes.
  async answer(text) {
    await this.box.waitFor();
    const title = await this.box.getByRole('heading').textContent();
    if (text !== undefined) await this.box.getByRole('textbox').fill(text);
    else await this.box.getByRole('button').last().focus();
    await this.press('Enter');
    await this.box.filter({ hasText: title }).waitFor({ state: 'detached' });
  }

  // ---- Without the page: over a connection of its own, to prepare and to look.

  command(line) {
    return this.commands([line]);
  }

  // In turn, up to the first that fails.
  async commands(lines) {
    const done = await this.page.evaluate(
      (cmds) =>
        new Promise((resolve, reject) => {
          const socket = new WebSocket(new URL('ws', location.href.replace('http', 'ws')));
          socket.onerror = reject;
          socket.onmessage = ({ data }) => {
            const frame = JSON.parse(data);
            if (frame.t === 'hello') socket.send(JSON.stringify({ t: 'do', id: 1, cmds }));
            if (frame.t !== 'done') return;
            socket.close();
            resolve(frame);
          };
        }),
      lines,
    );
    if (!done.ok) throw new Error(`${lines.join('; ')}: ${done.error}`);
    return done.results;
  }
}
