#!/usr/bin/env python3
"""Puts a machine folder's registry and drive C into a Wine prefix: seed_prefix.py MACHINE PREFIX

The profile of the machine's user becomes that of the prefix's user. Names are matched without regard to letter
case, as Windows does. Files that the prefix has already stay. The user's folders that lead to those of the host are
replaced by folders of the prefix's own."""
import configparser
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent


def place(folder, name):
    """Where `name` stands in a folder, or would stand."""
    folded = name.casefold()
    return next((entry for entry in folder.iterdir() if entry.name.casefold() == folded), folder / name)


def keep_to_itself(prefix):
    """Gives the user folders of its own, where they lead to those of the host."""
    for entry in (prefix / "drive_c" / "users").rglob("*"):
        if entry.is_symlink():
            entry.unlink()
            entry.mkdir()


def copy_tree(source, target, names):
    target.mkdir(exist_ok=True)
    for entry in sorted(source.iterdir()):
        at = place(target, names.get(entry, entry.name))
        if entry.is_dir() and not entry.is_symlink():
            copy_tree(entry, at, names)
        elif not os.path.lexists(at):
            times = entry.lstat()  # copying reads, which makes it a file that was used just now
            shutil.copy2(entry, at, follow_symlinks=False)
            os.utime(at, ns=(times.st_atime_ns, times.st_mtime_ns), follow_symlinks=False)


def profiles(machine, prefix):
    """The folder of the machine's user, with the name of the prefix's user for it."""
    facts = configparser.RawConfigParser(strict=False, allow_no_value=True)
    facts.read(machine / "machine.ini", encoding="utf-8-sig")
    user = facts.get("Environment", "USERNAME", fallback=None)
    there = [entry.name for entry in (prefix / "drive_c" / "users").iterdir() if entry.name != "Public"]
    if user is None or len(there) != 1:
        return {}
    return {machine / "drives" / "C" / "Users" / user: there[0]}


def import_registry(machine, environment):
    for reg in sorted((machine / "registry").glob("*.reg"), key=lambda p: p.name.upper()):
        raw = reg.read_bytes()
        text = raw.decode("utf-16") if raw[:2] in (b"\xff\xfe", b"\xfe\xff") else raw.decode("utf-8-sig")
        with tempfile.NamedTemporaryFile(suffix=".reg") as wide:
            wide.write(text.replace("\r\n", "\n").replace("\n", "\r\n").encode("utf-16"))
            wide.flush()
            subprocess.run([TOP / "tools" / "wine", "regedit", "/S", "Z:" + wide.name.replace("/", "\\")],
                           env=environment, check=True)
    # What was started without a display would keep programs that are started later from having one.
    subprocess.run(["wineserver", "-k"], env=environment, check=False)
    subprocess.run(["wineserver", "-w"], env=environment, check=False)


def main(machine, prefix):
    import_registry(machine, {**os.environ, "WINEPREFIX": str(prefix)})
    keep_to_itself(prefix)
    drive = machine / "drives" / "C"
    if drive.is_dir():
        copy_tree(drive, prefix / "drive_c", profiles(machine, prefix))


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve())
