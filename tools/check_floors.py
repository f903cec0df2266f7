#!/usr/bin/env python3
"""Holds the floors of the house: a file under src/ includes only from its own room or from a lower floor."""
import pathlib
import re
import sys

# From the ground up; rooms on one line share a floor and don't know each other.
FLOORS = [
    ["text"],
    ["controls", "platform"],
    ["forms", "frame/support"],
    ["frame"],
    ["junk", "scan"],
    ["catalogue"],
    ["advanced"],
    ["clean"],
    ["options"],
    ["window"],
    # Leaves: nobody includes them but the mains, which put a platform behind the interfaces.
    ["platform/windows", "platform/machine", "window/win32"],
    ["app", "console"],
]
FLOOR_OF = {room: floor for floor, rooms in enumerate(FLOORS) for room in rooms}
# platform/windows serves the real windows too: handles and text conversions.
ALLOWED = {("window/win32", "platform/windows")}


def room_of(path):
    parts = path.split("/")[:-1]
    for depth in range(len(parts), 0, -1):
        room = "/".join(parts[:depth])
        if room in FLOOR_OF:
            return room
    return None


def main(src):
    wrong = []
    files = sorted(p for p in src.rglob("*") if p.suffix in (".h", ".cpp"))
    if not files:
        sys.exit(f"no sources under {src}")
    for file in files:
        name = file.relative_to(src).as_posix()
        room = room_of(name)
        if room is None:
            wrong.append(f"{name}: lies in no room of the house")
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            if re.match(r"\s*#\s*include\s*<windows\.h>", line, re.I) and name != "platform/windows/windows_api.h":
                wrong.append(f"{name}:{number}: windows.h belongs to platform/windows/windows_api.h")
            found = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
            if not found:
                continue
            other = room_of(found.group(1))
            if other is None:
                wrong.append(f"{name}:{number}: {found.group(1)} lies in no room")
            elif other != room and FLOOR_OF[other] >= FLOOR_OF[room] and (room, other) not in ALLOWED:
                wrong.append(f"{name}:{number}: {room} may not include {other}")
    print("\n".join(wrong) or f"{len(files)} files keep to their floors")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
