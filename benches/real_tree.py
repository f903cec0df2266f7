#!/usr/bin/env python3
"""Compares the rows of "Temporary Files" over a copy of this machine's /usr with what `find` lists: real_tree.py CONSOLE.
It's a check of a big real tree, not a benchmark. Ends with 1 if a file is missing or has another size."""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

INI = "[Environment]\nWinDir=C:\\usr\n[Temporary Folders]\nUser=C:\\usr\n[Drives]\nC=2,System\n"


def can_be_on_windows(name):
    try:
        name.encode("utf-8")
    except UnicodeEncodeError:
        return False
    return not (set(name) & set('<>:"|?*\\') or min(name) < " " or name[-1] in " .")


def goes_through_link(root, path):
    while path != root:
        if os.path.islink(path):
            return True
        path = os.path.dirname(path)
    return False


def main(console):
    """Compares the rows with `find` over a copy of /usr: hard links if it is on the same disk, else a plain copy."""
    usr = "/usr"
    place = tempfile.mkdtemp(dir="/var/tmp", prefix="tavix-usr-")
    try:
        drive = os.path.join(place, "drives/C")
        os.makedirs(drive)
        links = ["-l"] if os.stat(usr).st_dev == os.stat(place).st_dev else []
        subprocess.run(["cp", "-a", "-x", *links, usr, drive], check=True)
        pathlib.Path(place, "machine.ini").write_text(INI)
        listed = subprocess.run(["find", os.path.join(drive, "usr"), "-type", "f", "-printf", "%P\\0%s\\0"],
                                check=True, stdout=subprocess.PIPE).stdout.split(b"\0")
        expected = {}
        for name, size in zip(listed[::2], listed[1::2]):
            parts = os.fsdecode(name).split("/")
            if all(can_be_on_windows(part) for part in parts):
                kilobytes = round(int(size) / 1024, 1)
                text = f"{kilobytes:,.1f}"
                expected["\\".join(["C:\\usr", *parts])] = text[:-1] if text.endswith(".0") else text
        if len(expected) < 100_000:
            print(f"skipped: /usr has {len(expected):,} files only")
            return True
        out = subprocess.run([console, "--machine", place, "--page", "system", "--function", "Temporary Files", "--json"],
                             check=True, stdout=subprocess.PIPE).stdout
        found, through_links = {}, 0
        for line in out.splitlines():
            row = json.loads(line)
            if "Name" not in row:
                continue
            path = row["Location"] + "\\" + row["Name"]
            if path in expected:
                if path in found:
                    sys.exit(f"twice: {path}")
                found[path] = row["Size"]
            elif goes_through_link(drive, os.path.join(drive, path[3:].replace("\\", "/"))):
                through_links += 1
            else:
                sys.exit(f"not listed by find: {path}")
        wrong = [path for path in expected if found.get(path) != expected[path]]
        print(f"/usr: {len(expected):,} files listed by find, {len(wrong)} of them missing or of another size among "
              f"the rows; {through_links:,} more rows are links or were found through links")
        for path in wrong[:5]:
            print(f"  {path}: {expected[path]} and {found.get(path)}")
        return not wrong
    finally:
        shutil.rmtree(place)


if __name__ == "__main__":
    sys.exit(0 if main(os.path.abspath(sys.argv[1])) else 1)
