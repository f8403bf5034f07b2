#!/usr/bin/env python3
"""Counts the cases of one CTest run for ./test.

    count_cases.py BUILD REPORTS

REPORTS holds CTest's own report, ctest.junit, and the report that each GoogleTest program wrote, NAME.xml. A
program without a report counts as one case; one that failed without naming a failed case, as when it crashed, as
one failure more.
"""
import os
import sys
import xml.etree.ElementTree as ElementTree


def case_lines(build, report):
    """One line for each failed or skipped case of a GoogleTest report, and the number that passed."""
    passed, lines = 0, []
    for case in ElementTree.parse(report).getroot().iter("testcase"):
        name = f"{build}: {case.get('classname')}.{case.get('name')}"
        skip = case.find("skipped")
        if case.get("status") != "run":
            lines.append(f"skipped 1 {name}: disabled")
        elif case.find("failure") is not None:
            lines.append(f"failed 1 {name}")
        elif skip is not None:
            reason = " ".join((skip.get("message") or "no reason given").split())
            lines.append(f"skipped 1 {name}: {reason}")
        else:
            passed += 1
    return passed, lines


def count(build, folder):
    """The result lines of a whole CTest run."""
    lines = []
    for program in ElementTree.parse(os.path.join(folder, "ctest.junit")).getroot().iter("testcase"):
        name, ran_well = program.get("name"), program.get("status") == "run"
        report = os.path.join(folder, name + ".xml")
        try:
            passed, cases = case_lines(build, report)
        except (FileNotFoundError, ElementTree.ParseError):
            passed, cases = (1, []) if ran_well else (0, [])
        lines.append(f"passed {passed} {build}: {name}")
        lines += cases
        if not ran_well and not any(line.startswith("failed") for line in cases):
            lines.append(f"failed 1 {build}: {name} ended early")
    return lines


if __name__ == "__main__":
    print("\n".join(count(sys.argv[1], sys.argv[2])))
