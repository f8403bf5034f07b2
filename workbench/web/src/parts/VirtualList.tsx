// A list of any length that draws only the rows in sight. All rows have one height.
import { useSignal } from '@preact/signals';
import type { ComponentChildren, JSX } from 'preact';
import { useEffect, useLayoutEffect, useRef } from 'preact/hooks';

interface Properties {
  count: number;
  rowHeight: number;
  row(index: number): ComponentChildren;
  // Kept in sight when it changes.
  shown?: number;
  // Whether the end stays in sight as rows are added, until the operator scrolls away from it.
  follow?: boolean;
  onRange?(first: number, last: number): void;
  attributes: JSX.HTMLAttributes<HTMLDivElement>;
}

const MARGIN = 6;

export function VirtualList({ count, rowHeight, row, shown, follow, onRange, attributes }: Properties) {
  const box = useRef<HTMLDivElement>(null);
  const top = useSignal(0);
  const height = useSignal(400);
  const atEnd = useRef(true);

  useEffect(() => {
    const list = box.current!;
    const observer = new ResizeObserver(() => (height.value = list.clientHeight));
    observer.observe(list);
    return () => observer.disconnect();
  }, []);
  useLayoutEffect(() => {
    if (box.current && follow && atEnd.current) box.current.scrollTop = count * rowHeight;
  }, [count, follow]);
  useLayoutEffect(() => {
    const list = box.current;
    if (!list || shown === undefined || shown < 0) return;
    const above = shown * rowHeight;
    if (above < list.scrollTop) list.scrollTop = above;
    else if (above + rowHeight > list.scrollTop + list.clientHeight) list.scrollTop = above + rowHeight - list.clientHeight;
  }, [shown]);

  const first = Math.max(0, Math.floor(top.value / rowHeight) - MARGIN);
  const last = Math.min(count, Math.ceil((top.value + height.value) / rowHeight) + MARGIN);
  useEffect(() => onRange?.(first, last), [first, last, count]);

  const rows = [];
  for (let i = first; i < last; i++) rows.push(row(i));
  return (
    <div
      {...attributes}
      ref={box}
      onScroll={(event) => {
        const { scrollTop, clientHeight, scrollHeight } = event.currentTarget;
        atEnd.current = scrollTop + clientHeight >= scrollHeight - rowHeight;
        top.value = scrollTop;
      }}
    >
      <div class="virtual" role="presentation" style={{ height: `${count * rowHeight}px` }}>
        <div class="virtual-rows" role="presentation" style={{ transform: `translateY(${first * rowHeight}px)` }}>
          {rows}
        </div>
      </div>
    </div>
  );
}
