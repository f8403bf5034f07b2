// Starts and stops the workbench that is under test, each time on a data folder of its own.
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { createInterface } from 'node:readline';
import { fileURLToPath } from 'node:url';

const root = resolve(fileURLToPath(new URL('../../..', import.meta.url)));
export const program = resolve(process.env.VESTREL_WORKBENCH ?? join(root, 'build/linux-release/workbench/vestrel_workbench'));
const READY = /^Vestrel workbench: (http:\/\/\S+)$/;

export class Workbench {
  constructor({ keepsJournal = false } = {}) {
    this.folder = mkdtempSync(join(tmpdir(), 'vestrel-browser-'));
    this.data = join(this.folder, 'data');
    this.journal = join(this.folder, 'journal');
    // The least that there is, in megabytes.
    this.args = keepsJournal ? ['--journal', this.journal, '--journal-size', '1'] : [];
  }

  async start() {
    const args = ['--no-browser', '--data', this.data, '--examples', join(root, 'examples'), ...this.args];
    if (this.port) args.push('--port', String(this.port));
    this.process = spawn(program, args, { stdio: ['ignore', 'pipe', 'inherit'] });
    await once(this.process, 'spawn');
    for await (const line of createInterface({ input: this.process.stdout })) {
      const ready = READY.exec(line);
      if (!ready) continue;
      this.url = ready[1];
      this.port = Number(new URL(this.url).port);
      return this;
    }
    throw new Error('the workbench ended before it was ready');
  }

  async kill(signal = 'SIGKILL') {
    if (this.process.exitCode !== null || this.process.signalCode !== null) return;
    const ended = once(this.process, 'exit');
    this.process.kill(signal);
    await ended;
  }

  // The process stays but answers nothing until it may go on.
  freeze() {
    this.process.kill('SIGSTOP');
  }

  thaw() {
    this.process.kill('SIGCONT');
  }

  async stop() {
    await this.kill('SIGTERM');
    rmSync(this.folder, { recursive: true, force: true });
  }
}
