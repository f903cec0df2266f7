#!/usr/bin/env python3
"""Adds up JUnit results: count_tests.py FILE... prints 'N passed, N failed, N skipped' and fails when one
failed or none ran. With --failures FILE it prints the failing tests of one run instead."""
import sys
import xml.etree.ElementTree as ET


def cases(path):
    try:
        # Skip runs of many tests in one process: their own reports list the tests.
        found = ET.parse(path).getroot().iter("testcase")
        whole = ("UnderWine.", "Sanitized.")
        return [case for case in found if not case.get("name").startswith(whole) or state(case) == "failed"]
    except (ET.ParseError, OSError):
        return []


def state(case):
    if case.find("failure") is not None or case.get("status") == "fail":
        return "failed"
    if case.find("skipped") is not None or case.get("status") in ("notrun", "disabled"):
        return "skipped"
    return "passed"


def main(arguments):
    if arguments[0] == "--failures":
        for case in cases(arguments[1]):
            if state(case) == "failed":
                print(f"failed: {case.get('name')}\n{(case.findtext('system-out') or '')[-4000:]}")
        return 0
    counts = {"passed": 0, "failed": 0, "skipped": 0}
    for path in arguments:
        for case in cases(path):
            counts[state(case)] += 1
    print("{passed} passed, {failed} failed, {skipped} skipped".format(**counts))
    return 1 if counts["failed"] or not counts["passed"] else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
