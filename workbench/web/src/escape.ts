// What Escape closes, wherever the focus is: the newest of what is open.
const open: (() => void)[] = [];

// Answers what takes it out again.
export function onEscape(close: () => void): () => void {
  open.push(close);
  return () => {
    open.splice(open.lastIndexOf(close), 1);
  };
}

// Answers whether something was open.
export function closeNewest(): boolean {
  const close = open.at(-1);
  close?.();
  return !!close;
}
