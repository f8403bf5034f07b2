#!/usr/bin/env python3
"""Runs the *_test.py files of a folder and prints the counts for ./test; what failed is told on standard error.

    run_unittests.py FOLDER
"""
import sys
import unittest


def main():
    folder = sys.argv[1]
    suite = unittest.defaultTestLoader.discover(folder, pattern="*_test.py", top_level_dir=folder)
    result = unittest.TextTestRunner(stream=sys.stderr, verbosity=0).run(suite)
    failed = result.failures + result.errors
    for case, _ in failed:
        print(f"failed 1 {case.id()}")
    for case, reason in result.skipped:
        print(f"skipped 1 {case.id()}: {reason}")
    print(f"passed {result.testsRun - len(failed) - len(result.skipped)} tests of {folder}")


if __name__ == "__main__":
    main()
