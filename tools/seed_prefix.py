#!/usr/bin/env python3
"""Makes a private Wine prefix with a machine folder's registry and drive C in it: seed_prefix.py MACHINE PREFIX

The profile of the machine's user becomes that of the prefix's user. Names are matched without regard to letter
case, as Windows does. Files that a fresh prefix has already stay."""
import configparser
import os
import pathlib
import shutil
import subprocess
import sys

import wine_prefix


def place(folder, name):
    """The path of `name` in a folder, in the letter case of the existing entry if there is one."""
    folded = name.casefold()
    return next((entry for entry in folder.iterdir() if entry.name.casefold() == folded), folder / name)


def copy_tree(source, target, names):
    target.mkdir(exist_ok=True)
    for entry in sorted(source.iterdir()):
        at = place(target, names.get(entry, entry.name))
        if entry.is_dir() and not entry.is_symlink():
            copy_tree(entry, at, names)
        elif not os.path.lexists(at):
            times = entry.lstat()  # copying would set its time of last access
            shutil.copy2(entry, at, follow_symlinks=False)
            os.utime(at, ns=(times.st_atime_ns, times.st_mtime_ns), follow_symlinks=False)


def profiles(machine, prefix):
    """{profile folder of the machine's user: name of the prefix's user}"""
    facts = configparser.RawConfigParser(strict=False, allow_no_value=True)
    facts.read(machine / "machine.ini", encoding="utf-8-sig")
    user = facts.get("Environment", "USERNAME", fallback=None)
    there = [entry.name for entry in (prefix / "drive_c" / "users").iterdir() if entry.name != "Public"]
    if user is None or len(there) != 1:
        return {}
    return {machine / "drives" / "C" / "Users" / user: there[0]}


def import_registry(machine, prefix):
    file = prefix / "drive_c" / "seed.reg"
    for reg in sorted((machine / "registry").glob("*.reg"), key=lambda p: p.name.upper()):
        raw = reg.read_bytes()
        text = raw.decode("utf-16") if raw[:2] in (b"\xff\xfe", b"\xfe\xff") else raw.decode("utf-8-sig")
        file.write_bytes(text.replace("\r\n", "\n").replace("\n", "\r\n").encode("utf-16"))
        subprocess.run([wine_prefix.WINE, "regedit", "/S", wine_prefix.windows_path(prefix, file)],
                       env=wine_prefix.environment(prefix), check=True)
        file.unlink()
    # Wine started without a display here: stop it, or later programs would get no display either.
    wine_prefix.stop(prefix)


def make_seeded(machine, prefix):
    """Replaces an older prefix by a fresh one with the content of the machine."""
    wine_prefix.make(prefix)
    # Clear the mark until the end, so that a half-seeded prefix isn't taken as ready.
    wine_prefix.unset_current(prefix)
    import_registry(machine, prefix)
    drive = machine / "drives" / "C"
    if drive.is_dir():
        copy_tree(drive, prefix / "drive_c", profiles(machine, prefix))
    wine_prefix.set_current(prefix)


if __name__ == "__main__":
    make_seeded(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve())
