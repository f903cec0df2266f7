#!/usr/bin/env python3
"""Compares the includes under src/ with the rooms of CMakeLists.txt.

A line `tavix_room(ROOM [ROOM...])` there declares a room, then the rooms that it may use. It may also use what these
may use. A file may include files of its own room and of those only. The build links each room with those rooms only,
which finds forbidden calls. This script finds the rest: types, constants and inline routines.
"""
import pathlib
import re
import sys


def read_rooms(text):
    """The rooms in their order, each with all rooms that it may include."""
    rooms = {}
    for line in re.findall(r"^tavix_(?:windows_)?room\(([^)]*)\)", text, re.M):
        room, *used = line.split()
        for other in used:
            if other not in rooms:
                sys.exit(f"{room} uses {other}, which is not declared above it")
        rooms[room] = {room}.union(*(rooms[other] for other in used))
    if not rooms:
        sys.exit("CMakeLists.txt declares no rooms")
    return rooms


def main(src):
    rooms = read_rooms((src.parent / "CMakeLists.txt").read_text(encoding="utf-8"))
    wrong = []
    files = sorted(p for p in src.rglob("*") if p.suffix in (".h", ".cpp"))
    if not files:
        sys.exit(f"no sources under {src}")
    for file in files:
        name = file.relative_to(src).as_posix()
        room = file.parent.relative_to(src).as_posix()
        if room not in rooms:
            wrong.append(f"{name}: lies in no room")
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            if re.match(r"\s*#\s*include\s*<windows\.h>", line, re.I) and name != "platform/windows/windows_api.h":
                wrong.append(f"{name}:{number}: windows.h belongs to platform/windows/windows_api.h")
            found = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
            if not found:
                continue
            other = found.group(1).rpartition("/")[0]
            if other not in rooms:
                wrong.append(f"{name}:{number}: {found.group(1)} lies in no room")
            elif other not in rooms[room]:
                wrong.append(f"{name}:{number}: {room} may not include {other}")
    print("\n".join(wrong) or f"{len(files)} files of {len(rooms)} rooms keep to their floors")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
