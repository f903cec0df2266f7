#!/usr/bin/env python3
"""Measures the time from the start of the process to the window on the screen, under Wine: start_time.py BUILD [RUNS].
The peer of tavix.exe is a bare window of the same size with as many controls of each kind. The two run in turn, on one
core. Prints the medians and their ratio."""
import os
import pathlib
import statistics
import subprocess
import sys

ROUNDS_AT_ONCE = 10
TOP = pathlib.Path(__file__).resolve().parents[1]


def main(build, runs):
    # One core: messages between the processes and Wine's server take very uneven times from core to core.
    os.sched_setaffinity(0, {max(os.sched_getaffinity(0))})
    os.environ["TAVIX_BUILD"] = build
    sys.path.insert(0, str(TOP / "tests" / "window"))
    import driver

    machine = driver.Machine()
    try:
        for name in ("tavix.exe", "tavix-bare-window.exe"):
            # Strip debug information, as a release does.
            subprocess.run(["x86_64-w64-mingw32-strip", "-o", machine.drive_c / name, driver.BUILD / name], check=True)
        command = ("C:\\tavix.exe", "TavixMainWindow", "C:\\tavix-bare-window.exe", "TavixBareWindow")

        def timed(rounds):
            printed = machine.run(driver.BUILD / "tavix-start-time.exe", str(rounds), *command)
            return [line.split() for line in printed.splitlines()]

        # The first run makes the data folders and fills the caches.
        timed(1)
        lines = []
        for done in range(0, runs, ROUNDS_AT_ONCE):
            lines += timed(min(ROUNDS_AT_ONCE, runs - done))
    finally:
        machine.close()
    times = [[float(taken) for which, taken in lines if which == program] for program in ("0", "1")]
    ours, bare = map(statistics.median, times)
    print(f"tavix.exe: {ours:.0f} ms ({min(times[0]):.0f} to {max(times[0]):.0f})")
    print(f"bare window: {bare:.0f} ms ({min(times[1]):.0f} to {max(times[1]):.0f})")
    print(f"ratio {ours / bare:.2f}, medians of {runs} runs each")


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 15)
