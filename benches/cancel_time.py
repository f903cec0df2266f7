#!/usr/bin/env python3
"""Measures the time from Esc to the closing line, in the real window under Wine, during a scan of a big tree:
cancel_time.py BUILD [RUNS]. Prints the median and the longest time. Needs the target tavix-cancel-time."""
import os
import pathlib
import statistics
import sys

TOP = pathlib.Path(__file__).resolve().parents[1]
FOLDERS, FILES = 3000, 25


def main(build, runs):
    os.environ["TAVIX_BUILD"] = build
    sys.path.insert(0, str(TOP / "tests" / "window"))
    import driver

    machine = driver.Machine()
    try:
        for number in range(FOLDERS):
            folder = machine.drive_c / "windows" / "temp" / f"folder-{number:04d}"
            folder.mkdir(parents=True)
            for file in range(FILES):
                (folder / f"file {file}.tmp").write_bytes(b"")
        program = driver.Program(machine)
        program.key("s")
        program.wait_until("the page", lambda s: s.control(driver.FUNCTIONS)["visible"])
        said = machine.run(driver.BUILD / "tavix-cancel-time.exe", str(runs))
        program.close()
    finally:
        machine.close()
    times = [float(line) for line in said.split()]
    print(f"{FOLDERS * FILES:,} files: {statistics.median(times):.0f} ms, the longest {max(times):.0f} ms, "
          f"of {len(times)} presses")


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 10)
