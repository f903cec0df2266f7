#!/usr/bin/env python3
"""Runs on Windows, as administrator, what can't be tested elsewhere: press_windows.py BUILD. BUILD is the folder of the
build. The machine must be a spare one: the tests use its C:\\MORVDataPath, its keyboard and its mouse.

Each step leaves its output in BUILD/results, and BUILD/results/machine is this machine as tavix-console exports it, with
names masked. What each step gave stands at the end; the exit status is 0 if all have passed."""
import os
import pathlib
import subprocess
import sys

import prepare_windows

TOP = pathlib.Path(__file__).resolve().parents[1]
PATIENCE = 3 * 3600  # seconds, for one step
LAST_LINES = 60  # of the output of a step that has failed
ON_FAT = "*FileSystemContract.*:FileFactsOfWindows.*"
RACE = "FoundItemInARace.*"


def steps(build, results, drive):
    """(name, command, what the environment has besides). `drive` is one with FAT, or None."""
    tests, console = str(build / "tavix-tests.exe"), str(build / "tavix-console.exe")
    folder = f"{drive}\\tests"
    other = {"TAVIX_OTHER_VOLUME": folder} if drive else {}
    yield "tests", [tests, f"--gtest_output=xml:{results / 'tests.xml'}"], other
    yield "race", [tests, f"--gtest_filter={RACE}"], {"TAVIX_RACE": "1"}
    if drive:
        yield "fat", [tests, f"--gtest_filter={ON_FAT}"], {"TEMP": folder, "TMP": folder}
    yield "parity", [sys.executable, str(TOP / "tests" / "parity" / "live_export.py"), console], {}
    yield "export", [console, "--live", "--export", str(results / "machine"), "--mask"], {}
    yield "window", ["ctest", "--test-dir", str(build), "--label-regex", "Window", "--output-on-failure",
                     "--output-junit", str(results / "window.xml")], {"TAVIX_SPARE_MACHINE": "1"}


def run(name, command, more, results):
    """Runs a step. Returns what it gave."""
    with open(results / f"{name}.log", "wb") as log:
        try:
            status = subprocess.run(command, env={**os.environ, **more}, stdin=subprocess.DEVNULL, stdout=log,
                                    stderr=subprocess.STDOUT, timeout=PATIENCE, check=False).returncode
        except (OSError, subprocess.TimeoutExpired) as reason:
            return f"FAILED: {reason}"
    if status == 0:
        return "passed"
    lines = (results / f"{name}.log").read_text(encoding="utf-8", errors="replace").splitlines()
    print(*lines[-LAST_LINES:], sep="\n", flush=True)
    return f"FAILED with {status}"


def press(build, results, disk):
    """{name of the step: what it gave}"""
    given = {}
    made, missing = prepare_windows.make(disk, [prepare_windows.fat_drive])
    try:
        for reason in missing.values():
            given["a drive with FAT"] = f"FAILED: {reason}"
        drive = prepare_windows.FAT_DRIVE if made else None
        if drive:
            pathlib.Path(drive + "/tests").mkdir()
        for name, command, more in steps(build, results, drive):
            print(f"== {name}", flush=True)
            given[name] = run(name, command, more, results)
    finally:
        prepare_windows.remove(disk)
    return given


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    build = pathlib.Path(arguments[0]).resolve()
    results = build / "results"
    results.mkdir(parents=True, exist_ok=True)
    prepare_windows.settings()
    given = press(build, results, build / "disk")
    for name, what in given.items():
        print(f"{name}: {what}")
    return 0 if all(what == "passed" for what in given.values()) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
