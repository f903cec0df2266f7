#!/usr/bin/env python3
"""Builds the help file: build_help.py SOURCES Help.chm

The compiler notes the time in two places; both get that of SOURCE_DATE_EPOCH, so that equal sources give equal files."""
import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile


def read_number(data, at):
    """A number in groups of seven bits, the highest first."""
    value = 0
    while True:
        value = value << 7 | data[at] & 0x7F
        at += 1
        if not data[at - 1] & 0x80:
            return value, at


def find(data, name):
    """Where a file that is not compressed begins, and its length."""
    at = data.index(bytes([len(name)]) + name.encode()) + 1 + len(name)
    section, at = read_number(data, at)
    offset, at = read_number(data, at)
    length, _ = read_number(data, at)
    if section != 0:
        raise ValueError(f"{name} is compressed")
    content, = struct.unpack_from("<Q", data, 0x58)
    return content + offset, length


def set_time(data, time):
    if data[:4] != b"ITSF":
        raise ValueError("no help file")
    struct.pack_into(">I", data, 16, time)
    begin, length = find(data, "/#SYSTEM")
    at = begin + 4
    while at < begin + length:
        code, size = struct.unpack_from("<HH", data, at)
        if code == 10:
            struct.pack_into("<I", data, at + 4, time)
            return
        at += 4 + size
    raise ValueError("no time in it")


def main(sources, target):
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder) / "help"
        shutil.copytree(sources, work)
        built = subprocess.run(["chmcmd", "help.hhp"], cwd=work, capture_output=True, text=True, check=False)
        if built.returncode != 0 or "Error" in built.stdout or not (work / "Help.chm").exists():
            sys.exit(built.stdout + built.stderr)
        data = bytearray((work / "Help.chm").read_bytes())
    set_time(data, int(os.environ.get("SOURCE_DATE_EPOCH", "0")))
    pathlib.Path(target).write_bytes(data)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), sys.argv[2])
