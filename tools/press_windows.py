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


def steps(build, results):
    """(name, command, what the environment has besides)."""
    tests, console = str(build / "tavix-tests.exe"), str(build / "tavix-console.exe")
    fat, ntfs = prepare_windows.FAT + "\\scanned", prepare_windows.NTFS + "\\scanned"
    yield "tests", [tests, f"--gtest_output=xml:{results / 'tests.xml'}"], {"TAVIX_OTHER_VOLUME": ntfs}
    yield "fat", [tests, f"--gtest_filter={ON_FAT}"], {"TEMP": fat, "TMP": fat}
    yield "race", [tests, f"--gtest_filter={RACE}"], {"TAVIX_RACE": "1"}
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


def press(build, results, disks):
    """{name of the step: what it gave}"""
    _, missing = prepare_windows.make(disks, [prepare_windows.fat_drive, prepare_windows.ntfs_drive])
    given = {prepare_windows.words(kind): f"FAILED: {reason}" for kind, reason in missing.items()}
    for name, command, more in steps(build, results):
        if name == "window":
            prepare_windows.remove(disks)  # these tests make the drives themselves
        print(f"== {name}", flush=True)
        given[name] = run(name, command, more, results)
    return given


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    build = pathlib.Path(arguments[0]).resolve()
    results = build / "results"
    results.mkdir(parents=True, exist_ok=True)
    try:
        prepare_windows.settings()
    except prepare_windows.CannotBeMade as reason:
        print(reason, file=sys.stderr)
        return 1
    given = press(build, results, build / "disks")
    for name, what in given.items():
        print(f"{name}: {what}")
    return 0 if all(what == "passed" for what in given.values()) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
