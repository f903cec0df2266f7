#!/usr/bin/env python3
"""Measures the real window and the console finding 100,000 typed URLs in the same Wine prefix:
window_rows.py BUILD [ROWS]. Prints seconds; those of the console include its start and its output."""
import os
import pathlib
import subprocess
import sys
import time

TOP = pathlib.Path(__file__).resolve().parents[1]


def main(build, rows):
    os.environ["TAVIX_BUILD"] = build
    sys.path.insert(0, str(TOP / "tests" / "window"))
    import driver

    machine = driver.Machine()
    try:
        values = "".join(f'"url{i}"="http://host-{i % 977}.example/page/{i}"\n' for i in range(rows))
        machine.seed("[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedURLs]\n" + values)
        start = time.monotonic()
        lines = machine.run(driver.BUILD / "tavix-console.exe", "--live", "--json", "--function", "iertu").count("\n")
        console = time.monotonic() - start
        assert lines == rows + 1, lines
        program = driver.Program(machine)
        try:
            for _ in range(3):
                start = time.monotonic()
                program.key("F3")
                # The window answers only after the scan, when the list is painted.
                shown = program.read()
                scan = time.monotonic() - start
                assert shown.row_count > rows, shown.row_count
                start = time.monotonic()
                program.read()
                reading = time.monotonic() - start
                print(f"window: {scan - reading:.2f} s and {reading:.2f} s to read its state, {shown.row_count} rows")
        finally:
            program.close()
        print(f"console --live: {console:.2f} s, {rows} rows")
    finally:
        machine.close()


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 100_000)
