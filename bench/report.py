#!/usr/bin/env python3
"""Makes what the benchmarks measured readable.

  report.py FILE                     prints the table
  report.py FILE --document PAGE --curves FOLDER
                                     also puts it into PAGE between its markers, and draws the curves into FOLDER

FILE has a line for each row of the table and each point of a curve, cells parted by tabs, as bench/support and
bench/windows write them:
  row    FIGURE  OURS  PEER  FLOOR  RATIO  TARGET  RESULT
  point  WHAT  WHO  SIZE  NANOSECONDS
"""
import argparse
import pathlib
import re
import sys
from collections import defaultdict

HEAD = ["Figure", "Vestrel", "Peer", "Floor", "Ratio", "Target", ""]
BEGIN, END = "<!-- what follows is written by bench/run -->", "<!-- here it ends -->"


def read(path):
    """The rows, and the points of each piece of work by contender: {what: {who: [(size, nanoseconds)]}}."""
    rows, points = [], defaultdict(lambda: defaultdict(list))
    for line in pathlib.Path(path).read_text().splitlines():
        kind, *cells = line.split("\t")
        if kind == "row":
            rows.append(cells)
        elif kind == "point":
            what, who, size, nanoseconds = cells
            points[what][who].append((int(size), float(nanoseconds)))
    return rows, points


def text_table(rows):
    widths = [max(len(row[i]) for row in [HEAD, *rows]) for i in range(len(HEAD))]
    return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip() for row in [HEAD, *rows])


def markdown_table(rows):
    return "\n".join("| " + " | ".join(row) + " |" for row in [HEAD, ["---"] * len(HEAD), *rows])


def file_name(what):
    return re.sub(r"[^a-z0-9]+", "-", what.lower()) + ".svg"


def curves_of(points):
    """What was measured at more than one size, contenders in the order in which they were added."""
    for what, contenders in points.items():
        if any(len(sizes) > 1 for sizes in contenders.values()):
            yield what, {who: sorted(sizes) for who, sizes in contenders.items() if len(sizes) > 1}


def draw(what, contenders, path):
    import matplotlib

    matplotlib.use("svg")
    # The same points give the same file.
    matplotlib.rcParams.update({"svg.hashsalt": "vestrel", "font.size": 9})
    from matplotlib import pyplot

    figure, axes = pyplot.subplots(figsize=(6.4, 4))
    for who, points in contenders.items():
        sizes, nanoseconds = zip(*points)
        ours, floor = who.startswith("Vestrel"), who.startswith("floor")
        axes.loglog(
            sizes,
            [each / 1000 for each in nanoseconds],
            label=who,
            marker="o",
            markersize=3,
            linewidth=2.2 if ours else 1.2,
            linestyle="--" if floor else "-",
            zorder=3 if ours else 2,
        )
    axes.set_title(what)
    axes.set_xlabel("size")
    axes.set_ylabel("microseconds")
    axes.grid(True, which="major", linewidth=0.4)
    axes.legend(frameon=False)
    figure.tight_layout()
    figure.savefig(path, format="svg", metadata={"Date": None})
    pyplot.close(figure)


def write_document(page, rows, drawn):
    page = pathlib.Path(page)
    before, _, rest = page.read_text().partition(BEGIN)
    _, marker, after = rest.partition(END)
    if not marker:
        sys.exit(f"{page}: lacks the markers")
    parts = [BEGIN, markdown_table(rows)]
    parts += [f"![{what}: cost against size]({path})" for what, path in drawn]
    page.write_text(before + "\n\n".join([*parts, END]) + after)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("file")
    parser.add_argument("--document")
    parser.add_argument("--curves")
    arguments = parser.parse_args()
    rows, points = read(arguments.file)
    print(text_table(rows))
    if not arguments.document:
        return
    folder = pathlib.Path(arguments.curves)
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("*.svg"):
        old.unlink()
    drawn = []
    for what, contenders in curves_of(points):
        path = folder / file_name(what)
        draw(what, contenders, path)
        drawn.append((what, path.relative_to(pathlib.Path(arguments.document).parent)))
    write_document(arguments.document, rows, drawn)


if __name__ == "__main__":
    main()
