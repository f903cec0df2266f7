#!/usr/bin/env python3
"""Measures the console deleting 50,000 files of a machine folder in memory, beside `xargs rm -f` over the same list:
clean_console.py CONSOLE [ROUNDS]. The time of a clean is that of a run with --clean less that of a run without."""
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

FOLDERS, FILES = 500, 100
MACHINE = """[Environment]
WinDir=C:\\WINDOWS
[Temporary Folders]
User=C:\\Temp
System=C:\\None
[Drives]
C=2
"""


def timed(*command, **more):
    start = time.perf_counter()
    subprocess.run(command, check=True, **more)
    return time.perf_counter() - start


def make(root):
    shutil.rmtree(root, ignore_errors=True)
    temp = root / "drives" / "C" / "Temp"
    for number in range(FOLDERS):
        folder = temp / f"folder {number}"
        folder.mkdir(parents=True)
        for file in range(FILES):
            (folder / f"file{file}.tmp").write_bytes(b"x" * 100)
    (root / "machine.ini").write_text(MACHINE, encoding="ascii")
    return sorted(temp.rglob("*.tmp"))


def main(console, rounds):
    with tempfile.TemporaryDirectory(dir="/dev/shm") as scratch:
        root, output = pathlib.Path(scratch) / "machine", pathlib.Path(scratch) / "rows"
        run = (console, "--machine", str(root), "--json", "--page", "system", "--function", "Temporary Files")
        cleans, peers = [], []
        for _ in range(rounds):
            files = make(root)
            with open(output, "wb") as rows:
                scan = timed(*run, stdout=rows)
                cleans.append(timed(*run, "--clean", stdout=rows) - scan)
            if any(file.exists() for file in files):
                sys.exit("the clean left files")
            names = "\0".join(map(str, make(root))).encode()
            peers.append(timed("xargs", "-0", "rm", "-f", input=names))
    clean, peer = statistics.median(cleans), statistics.median(peers)
    print(f"{FOLDERS * FILES:,} files: clean {clean * 1000:.0f} ms, xargs rm -f {peer * 1000:.0f} ms, ratio {clean / peer:.2f}, "
          f"medians of {rounds} rounds")


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 5)
