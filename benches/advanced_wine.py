#!/usr/bin/env python3
"""Measures the advanced scan under Wine (all six functions, 50,000 files) beside a bare recursion over the same tree:
advanced_wine.py CONSOLE.EXE BARE_WALK.EXE PREFIX. Replaces PREFIX by a private prefix with the tree on its drive C.
Prints processor seconds of program and Wine server together, the lowest of some runs less those of an empty walk, and
their ratio."""
import glob
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import advanced_scan

TOP = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TOP / "tools"))
import wine_prefix

FILES, RUNS = 50_000, 4
TICKS = os.sysconf("SC_CLK_TCK")


def server_seconds(prefix):
    for process in map(pathlib.Path, glob.glob("/proc/[0-9]*")):
        try:
            if (process / "comm").read_text().strip() == "wineserver" and \
                    str(prefix).encode() in (process / "environ").read_bytes():
                fields = (process / "stat").read_text().rsplit(")", 1)[1].split()
                return (int(fields[11]) + int(fields[12])) / TICKS
        except OSError:
            pass
    return 0


def main(console, bare, prefix):
    wine_prefix.make(prefix)
    console, bare = (wine_prefix.copy_program_in(prefix, program) for program in (console, bare))
    with tempfile.TemporaryDirectory(dir=prefix.parent) as folder:
        drive = advanced_scan.make_machine(pathlib.Path(folder) / "machine", FILES, 3)
        shutil.move(drive, prefix / "drive_c" / "Work")
    (prefix / "drive_c" / "Nothing").mkdir()
    (prefix / "drive_c" / "Nothing" / "file").write_text("x")
    environment = wine_prefix.environment(prefix)

    def least(*command):
        times = []
        for _ in range(RUNS):
            before = server_seconds(prefix)
            used = advanced_scan.processor_seconds(["wine", *command], env=environment, cwd=prefix / "drive_c")
            times.append(used + server_seconds(prefix) - before)
        return min(times)

    def scan(scope):
        return least(console, "--live", "--json", "--page", "advanced", "--scope", scope)

    least(bare, "C:\\Nothing")  # starts the server
    scanned = scan("C:\\Work") - scan("C:\\Nothing")
    walked = least(bare, "C:\\Work") - least(bare, "C:\\Nothing")
    print(f"{FILES} files: {scanned:.2f} s, bare recursion {walked:.2f} s, ratio {scanned / walked:.2f}")
    wine_prefix.stop(prefix)


if __name__ == "__main__":
    main(*(pathlib.Path(value).resolve() for value in sys.argv[1:4]))
