#!/usr/bin/env python3
"""counts.py FOLDER COUNTS [--renew]: compares what callgrind counted in FOLDER with the file COUNTS, or writes it.

Answers 1 when a path needs over a tenth more than it did or is not in the file, 3 when the file's counts are of another
compiler.
"""
import pathlib
import re
import sys

ALLOWED = 1.1
HEAD = "# Instructions of the hot paths, counted by callgrind; bench/instructions/count --renew writes this file."


def counted(folder):
    """Each dump's trigger names its path, and its totals are the count."""
    counts = {}
    for path in sorted(folder.glob("out*")):
        text = path.read_text(errors="replace")
        name = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.MULTILINE)
        total = re.search(r"^totals: (\d+)$", text, re.MULTILINE)
        if name and total:
            counts[name[1].strip()] = int(total[1])
    return counts


def read(path):
    compiler, counts = "", {}
    for line in path.read_text().splitlines():
        if line.startswith("compiler: "):
            compiler = line
        elif line and not line.startswith("#"):
            name, _, count = line.rpartition(": ")
            counts[name] = int(count)
    return compiler, counts


def compare(before, now):
    """A line for each path that got longer, went or came."""
    for name in sorted(before.keys() | now.keys()):
        if name not in now:
            yield f"{name}: is no longer counted"
        elif name not in before:
            yield f"{name}: has no count to compare with"
        elif now[name] > before[name] * ALLOWED:
            yield f"{name}: {now[name]} instructions, {now[name] / before[name] - 1:.0%} more than {before[name]}"


def main(folder, file, *options):
    folder, file = pathlib.Path(folder), pathlib.Path(file)
    compiler, now = (folder / "compiler").read_text().splitlines()[0], counted(folder)
    if not now:
        print("callgrind counted nothing")
        return 2
    if options == ("--renew",):
        lines = [HEAD, compiler, *(f"{name}: {count}" for name, count in now.items())]
        file.write_text("\n".join(lines) + "\n")
        return 0
    written_with, before = read(file)
    if written_with != compiler:
        print(f"the counts are of another compiler: {written_with}; this is {compiler}")
        return 3
    faults = list(compare(before, now))
    print("\n".join(faults) if faults else f"{len(now)} paths, none longer")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
