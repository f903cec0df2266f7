#!/usr/bin/env python3
"""Runs the C++ tests in a private Wine prefix: run_under_wine.py TAVIX-TESTS.EXE [ARGUMENT]...

The prefix, build/wine/tests, is replaced each time. Program and sources are copied into its folder C:\\Tests, and so
is `shared` beside the sources. The report is copied into the current folder as tavix-tests.xml.

If this machine has a second volume, the tests get an empty folder on it, so that they can move files from volume to
volume. They see it as a network share, not as a drive. It is deleted after them."""
import os
import pathlib
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(TOP / "tools"))
import wine_prefix

PREFIX = TOP / "build" / "wine" / "tests"
OTHER_VOLUME = pathlib.Path("/dev/shm")
FOLDER = "Tests"
REPORT = "tavix-tests.xml"


def copy_sources_in(prefix):
    """Copies what tests read into the prefix. Returns the folder that SourceFolder() gives there."""
    sources = FOLDER + "/tavix"
    wine_prefix.copy_in(prefix, TOP / "res", sources)
    data = TOP.parent / "shared" / "data"
    if data.is_dir():
        wine_prefix.copy_in(prefix, data, FOLDER + "/shared")
    return "C:/" + sources


def lend(prefix, folder):
    """Makes a folder of this machine a network share of the prefix. Returns its path there."""
    server = prefix / "dosdevices" / "unc" / "tests"
    server.mkdir(parents=True)
    (server / "volume").symlink_to(folder)
    return "\\\\tests\\volume"


def main(program, *arguments):
    wine_prefix.make(PREFIX)
    settings = {**wine_prefix.environment(PREFIX), "TAVIX_SOURCES": copy_sources_in(PREFIX)}
    program = wine_prefix.copy_program_in(PREFIX, program, FOLDER)
    has_other = OTHER_VOLUME.is_dir() and OTHER_VOLUME.stat().st_dev != PREFIX.stat().st_dev
    with tempfile.TemporaryDirectory(dir=OTHER_VOLUME if has_other else None, prefix="tavix-volume-") as volume:
        if has_other:
            settings["TAVIX_OTHER_VOLUME"] = lend(PREFIX, volume)
        try:
            status = subprocess.run([wine_prefix.WINE, program, *arguments, "--gtest_output=xml:" + REPORT],
                                    env=settings, cwd=PREFIX / "drive_c" / FOLDER, check=False).returncode
            wine_prefix.copy_out(PREFIX, f"{FOLDER}/{REPORT}", pathlib.Path.cwd())
        finally:
            wine_prefix.stop(PREFIX)
    left = wine_prefix.ways_out(PREFIX)
    if left:
        print("The tests have left ways out of their prefix:", *left, sep="\n", file=sys.stderr)
    return 1 if left else status


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
