#!/usr/bin/env python3
"""Measures the advanced scan (all six functions, a whole drive) beside find and a public cleaner over the same tree:
advanced_scan.py CONSOLE [FOLDER [RUNS]]. Makes the trees below FOLDER, which should be in memory, and removes them
afterwards. Runs the commands in turn and prints the lowest processor time of each, user and system together."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

FILES_IN_FOLDER = 20
MACHINE = """[Folders]
9966=C:\\Windows\\system32
[Drives]
C=2
"""


def folder_paths(count, depth):
    """Relative paths of `count` folders: a tree of this depth, or chains if the depth is over 10."""
    paths = []
    if depth > 10:
        while len(paths) < count:
            path = f"c{len(paths)}"
            for level in range(min(depth, count - len(paths))):
                path += f"/d{level}"
                paths.append(path)
        return paths
    width = round(count ** (1 / depth))
    for i in range(count):
        names, rest = [], i
        for _ in range(depth):
            names.append(f"d{rest % width}")
            rest //= width
        names[-1] += f" {rest}"
        paths.append("/".join(reversed(names)))
    return paths


def make_machine(root, files, depth):
    drive = root / "drives" / "C"
    (root / "registry").mkdir(parents=True)
    (root / "machine.ini").write_text(MACHINE)
    (drive / "Windows" / "system32").mkdir(parents=True)
    (drive / "Windows" / "system32" / "known.dll").write_bytes(b"x")
    for number, path in enumerate(folder_paths(files // FILES_IN_FOLDER, depth)):
        folder = drive / path
        os.makedirs(folder, exist_ok=True)
        names = [f"report {number} {i}.doc" for i in range(FILES_IN_FOLDER - 4)]
        names += [f"work{number}.tmp", f"report{number}.bak", "known.dll" if number % 10 == 0 else "own.dll"]
        for i, name in enumerate(names):
            handle = os.open(folder / name, os.O_CREAT | os.O_WRONLY)
            os.ftruncate(handle, 1000 + 37 * i)
            os.close(handle)
        os.close(os.open(folder / "nothing.dat", os.O_CREAT | os.O_WRONLY))
    return drive


def processor_seconds(command, **options):
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = status
    assert status == 0, (command, status)
    return usage.ru_utime + usage.ru_stime


def least(runs, commands):
    """Runs the commands in turn. Returns the lowest time of each."""
    times = [[] for _ in commands]
    for _ in range(runs):
        for each, (command, options) in zip(times, commands):
            each.append(processor_seconds(command, **options))
    return [min(each) for each in times]


def main(console, parent, runs):
    for files, depth, peers in [(200_000, 3, True), (100_000, 3, False), (1_000_000, 3, False), (200_000, 300, False)]:
        root = pathlib.Path(tempfile.mkdtemp(dir=parent, prefix="advanced-"))
        try:
            drive = make_machine(root / "machine", files, depth)
            scan = ([console, "--machine", root / "machine", "--page", "advanced", "--json"], {})
            commands = [scan, (["find", drive, "-type", "f", "-printf", "%s %A@ %p\n"], {})]
            if peers and shutil.which("bleachbit"):
                home = {**os.environ, "HOME": str(drive), "XDG_CONFIG_HOME": str(root / "config")}
                preview = ["bleachbit", "--preview", "deepscan.tmp", "deepscan.backup", "deepscan.thumbs_db"]
                commands.append((preview, {"env": home}))
            times = least(runs, commands)
            print(f"{files} files, {depth} deep: {times[0]:.2f} s, {times[0] / files * 1e6:.2f} us a file; "
                  f"find {times[1]:.2f} s, ratio {times[0] / times[1]:.2f}", end="")
            if len(times) > 2:
                print(f"; bleachbit {times[2]:.2f} s, ratio {times[0] / times[2]:.2f}", end="")
            print(flush=True)
        finally:
            shutil.rmtree(root)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve(), sys.argv[2] if len(sys.argv) > 2 else "/dev/shm",
         int(sys.argv[3]) if len(sys.argv) > 3 else 5)
