// The connection to the workbench: frames out with their answers, state in. A connection that is silent for too
// long counts as lost; a lost one is made again until it succeeds, and every new one begins with the whole state.
import { signal } from '@preact/signals';
import type { ClientFrame, Done, Events, Found, ServerFrame } from './protocol';

export type Answer = Done | Found | Events | { t: 'pong'; id: number };

export interface Receiver {
  hello(frame: Extract<ServerFrame, { t: 'hello' }>): void;
  patch(frame: Extract<ServerFrame, { t: 'patch' }>): void;
  log(frame: Extract<ServerFrame, { t: 'log' }>): void;
  problem(text: string): void;
  lost(): void;
}

export class NotConnected extends Error {
  constructor() {
    super('Not connected: nothing was sent.');
  }
}

const PING_EVERY = 2000;
const SILENCE = 5000;
const WAITS = [200, 400, 800, 1500, 2500];

export const connectionStatus = signal<'connecting' | 'open' | 'lost'>('connecting');

export class Connection {
  private socket: WebSocket | null = null;
  private lastId = 0;
  private seq = 0;
  private attempts = 0;
  private heardAt = 0;
  private retryTimer = 0;
  private waiting = new Map<number, { resolve(answer: Answer): void; reject(reason: Error): void }>();

  constructor(
    private readonly url: string,
    private readonly receiver: Receiver,
  ) {
    setInterval(() => this.watch(), PING_EVERY);
    window.addEventListener('online', () => this.retryNow());
    document.addEventListener('visibilitychange', () => {
      if (document.visibilityState === 'visible') this.retryNow();
    });
  }

  open(): void {
    clearTimeout(this.retryTimer);
    const socket = new WebSocket(this.url);
    this.socket = socket;
    this.heardAt = performance.now();
    socket.onmessage = (event) => {
      if (socket === this.socket) this.receive(JSON.parse(event.data as string) as ServerFrame);
    };
    socket.onclose = () => {
      if (socket === this.socket) this.lose();
    };
  }

  retryNow(): void {
    if (connectionStatus.value === 'lost' && !this.socket) this.open();
  }

  // The answer to a frame. Rejects when there is no connection or it goes before the answer comes.
  ask<A extends Answer>(frame: ClientFrame): Promise<A> {
    if (connectionStatus.value !== 'open' || !this.socket) return Promise.reject(new NotConnected());
    const id = ++this.lastId;
    this.socket.send(JSON.stringify({ ...frame, id }));
    return new Promise<A>((resolve, reject) => {
      this.waiting.set(id, { resolve: resolve as (answer: Answer) => void, reject });
    });
  }

  // For frames whose answer nobody waits for. Answers whether it was sent.
  tell(frame: ClientFrame): boolean {
    if (connectionStatus.value !== 'open' || !this.socket) return false;
    this.socket.send(JSON.stringify({ ...frame, id: ++this.lastId }));
    return true;
  }

  private receive(frame: ServerFrame): void {
    this.heardAt = performance.now();
    switch (frame.t) {
      case 'hello':
        this.seq = frame.seq;
        this.attempts = 0;
        connectionStatus.value = 'open';
        this.receiver.hello(frame);
        break;
      case 'patch':
        // A gap means that something was missed: the whole state is asked for by connecting again.
        if (frame.seq !== this.seq + 1) return this.drop();
        this.seq = frame.seq;
        this.receiver.patch(frame);
        break;
      case 'log':
        this.receiver.log(frame);
        break;
      case 'error':
        if (frame.id !== undefined) this.settle({ t: 'done', id: frame.id, ok: false, error: frame.text });
        else this.receiver.problem(frame.text);
        break;
      default:
        this.settle(frame);
    }
  }

  private settle(answer: Answer): void {
    const waiting = this.waiting.get(answer.id);
    this.waiting.delete(answer.id);
    waiting?.resolve(answer);
  }

  private watch(): void {
    if (!this.socket) return;
    if (performance.now() - this.heardAt > SILENCE) return this.drop();
    this.tell({ t: 'ping' });
  }

  private drop(): void {
    const socket = this.socket;
    this.lose();
    socket?.close();
  }

  private lose(): void {
    this.socket = null;
    for (const { reject } of this.waiting.values()) reject(new NotConnected());
    this.waiting.clear();
    const wait = WAITS[Math.min(this.attempts++, WAITS.length - 1)]!;
    this.retryTimer = window.setTimeout(() => this.open(), wait);
    if (connectionStatus.value !== 'lost') {
      connectionStatus.value = 'lost';
      this.receiver.lost();
    }
  }
}

export function socketUrl(): string {
  const url = new URL('ws', document.baseURI);
  url.protocol = url.protocol === 'https:' ? 'wss:' : 'ws:';
  return url.href;
}
