#!/usr/bin/env python3
"""Runs clang-tidy, two files at a time, and prints the counts for ./test; findings go to standard error.

    tidy.py BUILD --changed|--all [WORD...]

--changed takes the files that differ from the branch's origin (or, without one, from the last commit); a changed
header stands for the source file of its name. A file that passed is not looked at again until it, something of
this tree that it includes, or the settings change. With WORDs only files whose path contains one are taken.
"""
import hashlib
import json
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

import check_includes

TIDY = "clang-tidy-14"
# GCC's default, which the sources are built with.
LIKE_GCC = "--extra-arg=-fsized-deallocation"


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def changed_files():
    """Files of this tree that differ from where the branch left its origin, and new ones."""
    base = output_of("git", "merge-base", "HEAD", "@{upstream}") or output_of("git", "merge-base", "HEAD", "origin/HEAD")
    names = output_of("git", "diff", "--name-only", base.strip() or "HEAD")
    names += output_of("git", "ls-files", "--others", "--exclude-standard")
    return set(names.split("\n"))


def is_changed(path, changed):
    stem = os.path.splitext(path)[0]
    return path in changed or stem + ".h" in changed


def closure(path, seen=None):
    """The file and everything of this tree that it includes."""
    seen = {path} if seen is None else seen
    for _, quoted, _ in check_includes.includes_of(path):
        if quoted and quoted not in seen and os.path.exists(quoted):
            seen.add(quoted)
            closure(quoted, seen)
    return seen


def settings_for(path):
    """The .clang-tidy files that apply."""
    folder, files = os.path.dirname(path), []
    while True:
        file = os.path.join(folder, ".clang-tidy")
        if os.path.exists(file):
            files.append(file)
        if not folder:
            return files
        folder = os.path.dirname(folder)


def fingerprint(path, command, version):
    digest = hashlib.sha256((version + LIKE_GCC + command).encode())
    for file in sorted(closure(path)) + settings_for(path):
        with open(file, "rb") as content:
            digest.update(file.encode() + b"\0" + content.read())
    return digest.hexdigest()


def tidy(build, path, stamp):
    """Whether the file is clean; a clean one leaves its stamp."""
    if os.path.exists(stamp):
        return True
    run = subprocess.run([TIDY, "-p", build, "--quiet", LIKE_GCC, path], capture_output=True, text=True, check=False)
    if run.returncode:
        sys.stderr.write(run.stdout + (run.stderr if not run.stdout else ""))
        return False
    with open(stamp, "w", encoding="utf-8"):
        return True


def commands_of(build):
    """The compile command of each source file of this tree."""
    root = os.getcwd() + "/"
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    inside = [e for e in entries if e["file"].startswith(root) and not e["file"].startswith(root + "build/")]
    return {entry["file"][len(root):]: entry["command"] for entry in inside}


def main():
    build, scope, words = sys.argv[1], sys.argv[2], sys.argv[3:]
    commands = commands_of(build)
    paths = sorted(p for p in commands if not words or any(word in p for word in words))
    if scope == "--changed":
        changed = changed_files()
        paths = [path for path in paths if is_changed(path, changed)]
    if not paths:
        print("skipped 1 tidy: no source file was changed")
        return
    stamps = os.path.join("build", "tidy")
    os.makedirs(stamps, exist_ok=True)
    version = output_of(TIDY, "--version")

    def run(path):
        clean = tidy(build, path, os.path.join(stamps, fingerprint(path, commands[path], version)))
        print(f"{'passed' if clean else 'failed'} 1 tidy: {path}", flush=True)

    with ThreadPoolExecutor(2) as pool:
        list(pool.map(run, paths))


if __name__ == "__main__":
    main()
