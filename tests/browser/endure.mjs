// What the workbench as a program endures: clients that mean no good, and a journal that fills up.
import { strict as assert } from 'node:assert';
import { spawnSync } from 'node:child_process';
import { existsSync, readFileSync, statSync, writeFileSync } from 'node:fs';
import { connect } from 'node:net';
import { join } from 'node:path';
import { expect } from './support/expect.mjs';
import { stand } from './support/stand.mjs';
import { program } from './support/workbench.mjs';

const MIB = 1024 * 1024;
const MOST_FOR_A_CROWD = 48 * MIB;
// 16 MiB wait for a page at most.
const MOST_FOR_AN_IDLER = 20 * MIB;

function memory(workbench, field) {
  const status = readFileSync(`/proc/${workbench.process.pid}/status`, 'utf8');
  return Number(new RegExp(`^${field}:\\s+(\\d+) kB`, 'm').exec(status)[1]) * 1024;
}

// How much more memory than before the program held at most while something happened.
async function peakBeyond(workbench, happens) {
  writeFileSync(`/proc/${workbench.process.pid}/clear_refs`, '5');
  const before = memory(workbench, 'VmRSS');
  await happens();
  return memory(workbench, 'VmHWM') - before;
}

function raw(workbench) {
  const socket = connect(workbench.port, '127.0.0.1');
  socket.on('error', () => undefined);
  return socket;
}

const handshake = (workbench) =>
  `GET /ws HTTP/1.1\r\nHost: 127.0.0.1:${workbench.port}\r\nOrigin: http://127.0.0.1:${workbench.port}\r\n` +
  'Upgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n';

// A text frame as a page sends it; the mask of zeros leaves the text as it is.
function frame(text, length = text.length) {
  if (length < 126) return Buffer.concat([Buffer.from([0x81, 0x80 | length, 0, 0, 0, 0]), Buffer.from(text)]);
  const header = Buffer.alloc(14);
  header.writeUInt8(0x81, 0);
  header.writeUInt8(0x80 | 127, 1);
  header.writeBigUInt64BE(BigInt(length), 2);
  return Buffer.concat([header, Buffer.from(text)]);
}

const closed = (socket) => new Promise((resolve) => (socket.destroyed ? resolve() : socket.once('close', resolve)));
const drained = (socket) => socket.on('data', () => undefined);

const ENDURED = {
  'a thousand connections with oversized frames take no more memory than is set aside': async ({ open, workbench }) => {
    const o = await open();
    await o.slot(1, 1).click();
    await o.isOn(1, 1);
    const junk = 'x'.repeat(MIB);
    const beyond = await peakBeyond(workbench, async () => {
      const crowd = [];
      for (let i = 0; i < 1000; i++) {
        const socket = drained(raw(workbench));
        crowd.push(socket);
        if (i % 4 === 0) socket.write('GET / HTTP/1.1\r\nX: ' + junk);
        else if (i % 2 === 1) {
          socket.write(handshake(workbench));
          // A megabyte, or one byte of a terabyte.
          socket.once('data', () => socket.write(i % 4 === 1 ? frame(junk) : frame('x', 2 ** 40)));
        }
        // The others say nothing at all.
        if (i % 50 === 49) await o.slot(1, 2).click();
      }
      await new Promise((resolve) => setTimeout(resolve, 500));
      for (const socket of crowd) socket.destroy();
      await Promise.all(crowd.map(closed));
    });
    assert.ok(beyond < MOST_FOR_A_CROWD, `${(beyond / MIB).toFixed(1)} MiB more`);
    await o.isOn(1, 1);
    await o.isOn(1, 2, false);
    await o.slot(1, 2).click();
    await o.isOn(1, 2);
  },
  'pages that never read are sent away before they take much memory': async ({ open, workbench }) => {
    const o = await open();
    writeFileSync(join(workbench.data, 'many.evt'), `1000\r\n${'0,"Amber Front",0,1,0,0,0\r\n'.repeat(1000)}`);
    await o.command('record.LoadEventsFrom many.evt');
    const idlers = [];
    const beyond = await peakBeyond(workbench, async () => {
      for (let i = 0; i < 4; i++) {
        const socket = raw(workbench);
        idlers.push(socket);
        socket.write(handshake(workbench));
        await new Promise((resolve) => socket.once('data', resolve));
        socket.pause();
        // Each asks for far more than it would ever be sent.
        for (let n = 0; n < 1000; n++) socket.write(frame(`{"t":"events","id":${n},"from":0,"count":500}`));
      }
      await new Promise((resolve) => setTimeout(resolve, 4000));
      await o.slot(1, 2).click();
      await o.isOn(1, 2);
    });
    assert.ok(beyond > 8 * MIB, 'answers waited to be sent');
    for (const socket of idlers) socket.destroy();
    assert.ok(beyond < 4 * MOST_FOR_AN_IDLER, `${(beyond / MIB).toFixed(1)} MiB more`);
  },
};

const JOURNALLED = {
  'a journal that is full begins anew unseen, and both parts replay': async ({ open, workbench, expectComplaint }) => {
    // At its end.
    expectComplaint(/WebSocket|ERR_CONNECTION/);
    const { journal } = workbench;
    const o = await open();
    await o.command('host.group 1 35');
    await o.pageTab('Act One').click();
    await o.currentPage('Act One');
    const seen = () =>
      o.page.evaluate(() =>
        [...document.querySelectorAll('.screen .slot, .screen .fader')]
          .map((element) => element.getAttribute('aria-label') + (element.getAttribute('aria-valuetext') ?? ''))
          .join('\n'),
      );
    const before = await seen();
    // Every click and its callbacks are journalled; two in a row leave everything off.
    for (let i = 0; i < 200 && !existsSync(`${journal}.1`); i++) {
      await o.commands(Array(50).fill(['controlClicked 33 1 0 0 0', 'controlClicked 33 1 0 0 0']).flat());
    }
    await expect(() => existsSync(`${journal}.1`)).toBe(true);
    assert.ok(statSync(`${journal}.1`).size > MIB);
    await expect(seen).toBe(before);
    await o.slot(1, 1).click();
    await o.isOn(1, 1);
    await workbench.kill('SIGTERM');
    for (const part of [journal, `${journal}.1`]) {
      const { status, stdout, stderr } = spawnSync(program, ['--replay', part], { encoding: 'utf8' });
      assert.equal(status, 0, stdout + stderr);
      assert.match(stdout, /Replayed \d{2,} calls with \d+ callbacks: the same/);
    }
  },
};

export function endureTests(only) {
  for (const [name, body] of Object.entries(ENDURED).filter(([title]) => only.test(title))) stand(name, body);
  for (const [name, body] of Object.entries(JOURNALLED).filter(([title]) => only.test(title))) {
    stand(name, body, { keepsJournal: true });
  }
}
