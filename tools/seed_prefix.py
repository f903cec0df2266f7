#!/usr/bin/env python3
"""Puts a machine folder's registry and drive C into a Wine prefix: seed_prefix.py MACHINE PREFIX"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent


def main(machine, prefix):
    environment = {**os.environ, "WINEPREFIX": str(prefix)}
    for reg in sorted((machine / "registry").glob("*.reg"), key=lambda p: p.name.upper()):
        raw = reg.read_bytes()
        text = raw.decode("utf-16") if raw[:2] in (b"\xff\xfe", b"\xfe\xff") else raw.decode("utf-8-sig")
        with tempfile.NamedTemporaryFile(suffix=".reg") as wide:
            wide.write(text.replace("\r\n", "\n").replace("\n", "\r\n").encode("utf-16"))
            wide.flush()
            subprocess.run([TOP / "tools" / "wine", "regedit", "/S", "Z:" + wide.name.replace("/", "\\")],
                           env=environment, check=True)
    drive = machine / "drives" / "C"
    if drive.is_dir():
        shutil.copytree(drive, prefix / "drive_c", symlinks=True, dirs_exist_ok=True)
    # What was started without a display would keep programs that are started later from having one.
    subprocess.run(["wineserver", "-k"], env=environment, check=False)
    subprocess.run(["wineserver", "-w"], env=environment, check=False)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve())
