"""Reads llvm-cov's LCOV text from standard input and prints it as a table, and what tests have to reach but do not.

    coverage_table.py FOLDER...       the folders that count
"""
import collections
import os
import re
import sys

# Input of hosts, files and disks comes in here: every branch of these that it can reach has to be reached.
WATCHED = re.compile(r"storage/|platform/posix/|model/(ButtonLine|IndexList)\b|core/Convert")


class File:
    def __init__(self):
        self.lines = {}  # number: times run
        self.branches = collections.Counter()  # (line, condition, way): times taken


def read(report):
    files, current = collections.defaultdict(File), None
    for record in report:
        kind, _, values = record.strip().partition(":")
        if kind == "SF":
            current = files[os.path.relpath(values)]
        elif kind == "DA":
            line, times = values.split(",")[:2]
            current.lines[int(line)] = max(int(times), current.lines.get(int(line), 0))
        elif kind == "BRDA":
            line, condition, way, times = values.split(",")
            current.branches[int(line), int(condition), int(way)] += 0 if times == "-" else int(times)
    return files


def percent(counts):
    reached = sum(1 for times in counts if times)
    return f"{100.0 * reached / len(counts) if counts else 100.0:7.2f} {len(counts) - reached:7d} {len(counts):7d}"


def print_table(files):
    folders = collections.defaultdict(lambda: ([], []))
    for path, file in sorted(files.items()):
        for sums in (folders[path.split("/", maxsplit=1)[0] + "/"], folders["all"]):
            sums[0].extend(file.lines.values())
            sums[1].extend(file.branches.values())
    print(f"{'':14}{'lines %':>7}  missed      of  {'branch%':>7}  missed      of")
    for name in [name for name in folders if name != "all"] + ["all"]:
        print(f"{name:14}{percent(folders[name][0])}  {percent(folders[name][1])}")


def print_missed(path, file):
    """A line for each source line of which a part was not reached."""
    with open(path, encoding="utf-8") as source:
        texts = source.read().split("\n")
    missed = collections.defaultdict(list)
    for line, times in file.lines.items():
        if not times:
            missed[line].append("not run")
    for (line, condition, way), times in sorted(file.branches.items()):
        if not times and file.lines.get(line):
            missed[line].append(f"condition {condition + 1} never {'false' if way else 'true'}")
    for line, what in sorted(missed.items()):
        print(f"{path}:{line}: {', '.join(what)}: {texts[line - 1].strip()}")


def main():
    folders = sys.argv[1:]
    files = {path: file for path, file in read(sys.stdin).items() if path.split("/", maxsplit=1)[0] in folders}
    for path in sorted(filter(WATCHED.match, files)):
        print_missed(path, files[path])
    print()
    print_table(files)


if __name__ == "__main__":
    main()
