#!/usr/bin/env python3
"""Checks that includes only ever point down through the folders, in no circle, and at nothing foreign.

    check_includes.py ROOT

prints one line for each fault and exits with 1 when there is any.
"""
import os
import re
import sys
from fnmatch import fnmatchcase


def pair(folder, *names):
    """The header and the source file of each name."""
    return [f"{folder}/{name}{ending}" for name in names for ending in (".h", ".cpp")]


# The layers from bottom to top: name, files, and the layers it knows. What those know is known with them.
# A file belongs to the layer that names it, otherwise to the first whose pattern fits.
LAYERS = [
    ("platform", ["platform/*"], []),
    ("core ground",
     pair("core", "Object", "Ref", "BackRef", "Error", "FileError", "Cast", "Checked", "Version", "Variant", "HasValue",
          "Convert", "ConvertText", "ConvertVariant"),
     ["platform"]),
    ("util ground", ["util/*"], ["core ground"]),
    ("core", ["core/*"] + pair("util", "clsFormatCapture", "clsFormatCaptureItem"), ["util ground"]),
    ("controller interfaces", ["controller/interfaces/*"], ["core"]),
    ("storage", ["storage/*"], ["core"]),
    ("model", ["model/*"], ["storage", "controller interfaces"]),
    ("leds", ["leds/*"], ["controller interfaces"]),
    ("recording", ["recording/*"], ["model"]),
    ("controller", ["controller/*"], ["leds", "recording"]),
    ("util", pair("util", "VestrelStatic", "GlobalButtons"), ["controller"]),
    ("component", ["component/*"], ["util", "recording"]),
    ("workbench", ["workbench/*"], ["component"]),
    ("examples", ["examples/*"], ["component"]),
    ("tests", ["tests/*"], ["workbench", "examples"]),
    ("bench", ["bench/*"], ["tests"]),
    ("fuzz", ["fuzz/*"], ["tests"]),
]

# Up to and including this one, layers are the library: standard headers only, but for the seams below.
TOP_OF_LIBRARY = "component"
SYSTEM_SEAMS = ("platform/posix/", "platform/windows/", "component/")

# Folders that may see the Windows interface.
WINDOWS_SEAMS = ("platform/windows/", "component/", "examples/", "tests/component/host/", "tests/windows/",
                 "bench/")
WINDOWS_HEADERS = re.compile(
    r"(?i)^(windows|windef|winbase|winuser|winnls|winreg|winver|objbase|ole2|oleauto|oleidl|oaidl|objidl|ocidl|olectl"
    r"|unknwn|dispex|activscp|activdbg|combaseapi|comdef|shlobj|shlwapi|tchar|propidl|wtypes|winerror|guiddef|initguid)\.h$")

SOURCE = re.compile(r"\.(h|hpp|inc|cpp|cc|c)$")
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
SKIPPED_FOLDERS = {"build", "data", "node_modules", "dist"}


def layer_of(path, layers=LAYERS):
    """The index of the layer that the file belongs to, or None."""
    for fits in (str.__eq__, fnmatchcase):
        for index, (_, patterns, _) in enumerate(layers):
            if any(fits(path, pattern) for pattern in patterns):
                return index
    return None


def known_layers(layers=LAYERS):
    """For each layer the set of those it may include: itself, those it names, and what they know."""
    index = {name: number for number, (name, _, _) in enumerate(layers)}
    known = []
    for number, (name, _, names) in enumerate(layers):
        reach = {number}
        for other in names:
            if index[other] >= number:
                raise ValueError(f"layer '{name}' knows '{other}', which is not below it")
            reach |= known[index[other]]
        known.append(reach)
    return known


def source_files(root):
    for folder, folders, files in os.walk(root):
        folders[:] = sorted(f for f in folders if not f.startswith(".") and f not in SKIPPED_FOLDERS)
        for name in sorted(files):
            if SOURCE.search(name):
                yield os.path.relpath(os.path.join(folder, name), root).replace(os.sep, "/")


def includes_of(path):
    """Pairs (line number, quoted file or None, angle-bracket file or None)."""
    with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            match = INCLUDE.match(line)
            if match:
                yield number, match.group(1), match.group(2)


def circle_in(graph):
    """Some circle of the graph as a list that starts and ends with the same file, or None."""
    done, path = set(), []

    def visit(node):
        if node in path:
            return path[path.index(node):] + [node]
        if node in done:
            return None
        path.append(node)
        for target in graph.get(node, ()):
            found = visit(target)
            if found:
                return found
        path.pop()
        done.add(node)
        return None

    for node in graph:
        found = visit(node)
        if found:
            return found
    return None


def foreign_fault(path, layer, header, layers):
    """Why the file may not include the system header, or None."""
    if WINDOWS_HEADERS.match(header) and not path.startswith(WINDOWS_SEAMS):
        return "a Windows header outside " + " and ".join(WINDOWS_SEAMS)
    top = next(n for n, (name, _, _) in enumerate(layers) if name == TOP_OF_LIBRARY)
    if layer <= top and re.search(r"[./]", header) and not path.startswith(SYSTEM_SEAMS):
        return "the library includes standard headers only"
    return None


def faults_in(root, layers=LAYERS):
    sys.setrecursionlimit(10000)
    known = known_layers(layers)
    files = list(source_files(root))
    present, graph, faults = set(files), {}, []
    for path in files:
        layer = layer_of(path, layers)
        if layer is None:
            faults.append(f"{path}: belongs to no layer")
            continue
        graph[path] = []
        for number, quoted, angled in includes_of(os.path.join(root, path)):
            where = f"{path}:{number}: "
            if angled:
                fault = foreign_fault(path, layer, angled, layers)
                if fault:
                    faults.append(f"{where}<{angled}>: {fault}")
            elif quoted not in present:
                faults.append(f'{where}"{quoted}" is no file of the tree (includes start at its root)')
            else:
                target = layer_of(quoted, layers)
                if target is not None and target not in known[layer]:
                    faults.append(f'{where}"{quoted}": {layers[layer][0]} does not know {layers[target][0]}')
                graph[path].append(quoted)
    circle = circle_in(graph)
    if circle:
        faults.append("circle: " + " -> ".join(circle))
    return faults


def main():
    faults = faults_in(sys.argv[1])
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
