#!/usr/bin/env python3
"""Writes a shortcut file that names its target by its path: make_shortcut.py TARGET FILE

The path goes into the shortcut's location block: as one on a fixed volume, or on a share if it begins with two
backslashes. A path that begins with a variable goes into the block for such paths. The target need not exist."""
import pathlib
import struct
import sys

CLASS = bytes.fromhex("0114020000000000c000000000000046")
HAS_ITEMS, HAS_LOCATION, WIDE_STRINGS, HAS_VARIABLE_PATH = 0x1, 0x2, 0x80, 0x200
FIXED_DRIVE = 3
DISK_SHARE = 0x20000
VARIABLE_PATH = 0xA0000001
# The identifier of a shell object that is no file: the control panel.
CONTROL_PANEL = bytes.fromhex("2020ec21ea3a6910a2dd08002b30309d")
END = struct.pack("<I", 0)


def location(target):
    """The location block: a volume without label, the path in bytes, and in UTF-16 if bytes can't express it."""
    narrow = target.encode("cp1252", "replace") + b"\0"
    wide = target.encode("utf-16-le") + b"\0\0"
    is_wide = narrow != target.encode("cp1252", "ignore") + b"\0"
    header = 36 if is_wide else 28
    volume = struct.pack("<4I", 17, FIXED_DRIVE, 0, 16) + b"\0"
    path_at = header + len(volume)
    suffix_at = path_at + len(narrow)
    # UTF-16 texts start at even offsets.
    wide_at = suffix_at + 1 + (suffix_at + 1) % 2
    fields = [header, 1, header, path_at, 0, suffix_at]
    content = volume + narrow + b"\0"
    if is_wide:
        fields += [wide_at, wide_at + len(wide)]
        content = content.ljust(wide_at - header, b"\0") + wide + b"\0\0"
    block = struct.pack(f"<{len(fields)}I", *fields) + content
    return struct.pack("<I", len(block) + 4) + block


def network_location(target):
    """The location block of a file or folder on a share."""
    parts = target.split("\\")
    share = "\\".join(parts[:4]).encode("cp1252") + b"\0"
    suffix = "\\".join(parts[4:]).encode("cp1252") + b"\0"
    network = struct.pack("<5I", 20 + len(share), 2, 20, 0, DISK_SHARE) + share
    fields = struct.pack("<6I", 28, 2, 0, 0, 28, 28 + len(network))
    return struct.pack("<I", 4 + len(fields) + len(network) + len(suffix)) + fields + network + suffix


def variable_path(target):
    content = target.encode("cp1252").ljust(260, b"\0") + target.encode("utf-16-le").ljust(520, b"\0")
    return struct.pack("<2I", 8 + len(content), VARIABLE_PATH) + content


def header(flags):
    start = struct.pack("<I16sI", 0x4C, CLASS, flags | WIDE_STRINGS).ljust(0x3C, b"\0")
    return (start + struct.pack("<I", 1)).ljust(0x4C, b"\0")  # shown as a normal window


def shortcut(target):
    if target.startswith("%"):
        return header(HAS_VARIABLE_PATH) + variable_path(target) + END
    place = network_location(target) if target.startswith("\\\\") else location(target)
    return header(HAS_LOCATION) + place + END


def shortcut_without_a_path():
    """A shortcut to a shell object that is no file."""
    item = struct.pack("<H", 4 + len(CONTROL_PANEL)) + b"\x1f\x50" + CONTROL_PANEL
    items = item + struct.pack("<H", 0)
    return header(HAS_ITEMS) + struct.pack("<H", len(items)) + items + END


if __name__ == "__main__":
    pathlib.Path(sys.argv[2]).write_bytes(shortcut(sys.argv[1]))
