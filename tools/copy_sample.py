#!/usr/bin/env python3
"""Copies the sample machine to run on: copy_sample.py TARGET

A checkout has only new files. In the copy, the files listed in this script get old times of last access; all others
get the current time."""
import os
import pathlib
import shutil
import sys
import time

SAMPLE = pathlib.Path(__file__).resolve().parent.parent / "res" / "sample-machine"
DAY = 24 * 3600
OLD = {
    "drives/C/WINDOWS/Prefetch/OLDGAME.EXE-0A1B2C3D.pf": 200,
    "drives/C/Users/Ann/Documents/copies/letter.txt": 500,
}


def copy(target):
    shutil.copytree(SAMPLE, target, symlinks=True, dirs_exist_ok=True)
    set_times(target)


def set_times(target):
    now = time.time()
    for entry in pathlib.Path(target).rglob("*"):
        if entry.is_file() and not entry.is_symlink():
            used = now - OLD.get(entry.relative_to(target).as_posix(), 0) * DAY
            os.utime(entry, (used, min(used, entry.stat().st_mtime)))


if __name__ == "__main__":
    copy(pathlib.Path(sys.argv[1]))
