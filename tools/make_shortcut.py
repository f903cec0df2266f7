#!/usr/bin/env python3
"""Writes a shortcut file that names its target by its path: make_shortcut.py TARGET FILE

The path stands in the shortcut's location block, on a fixed volume. Nothing looks whether the target is there."""
import pathlib
import struct
import sys

CLASS = bytes.fromhex("0114020000000000c000000000000046")
HAS_LOCATION, WIDE_STRINGS = 0x2, 0x80
FIXED_DRIVE = 3


def location(target):
    """The location block: a volume without label, the path in the narrow form, and in the wide one where it needs it."""
    narrow = target.encode("cp1252", "replace") + b"\0"
    wide = target.encode("utf-16-le") + b"\0\0"
    is_wide = narrow != target.encode("cp1252", "ignore") + b"\0"
    header = 36 if is_wide else 28
    volume = struct.pack("<4I", 17, FIXED_DRIVE, 0, 16) + b"\0"
    path_at = header + len(volume)
    suffix_at = path_at + len(narrow)
    # Wide texts stand at even offsets.
    wide_at = suffix_at + 1 + (suffix_at + 1) % 2
    fields = [header, 1, header, path_at, 0, suffix_at]
    content = volume + narrow + b"\0"
    if is_wide:
        fields += [wide_at, wide_at + len(wide)]
        content = content.ljust(wide_at - header, b"\0") + wide + b"\0\0"
    block = struct.pack(f"<{len(fields)}I", *fields) + content
    return struct.pack("<I", len(block) + 4) + block


def shortcut(target):
    header = struct.pack("<I16sI", 0x4C, CLASS, HAS_LOCATION | WIDE_STRINGS).ljust(0x3C, b"\0")
    header += struct.pack("<I", 1)  # shown as a normal window
    return header.ljust(0x4C, b"\0") + location(target) + struct.pack("<I", 0)


if __name__ == "__main__":
    pathlib.Path(sys.argv[2]).write_bytes(shortcut(sys.argv[1]))
