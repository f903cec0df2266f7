#!/usr/bin/env python3
"""Measures walks over big trees beside other programs. Prints medians, and whether each ratio is within its limit.

    python3 benches/walk.py CONSOLE                    natively, over trees in memory
    python3 benches/walk.py --real CONSOLE             a copy of this machine's /usr: compares the rows with `find`
    python3 benches/walk.py --wine WINDOWS-BUILD       under Wine, over drive C: of a private prefix in memory
"""
import argparse
import json
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

ROUNDS = 5
FILES_IN_FOLDER = 50
FOLDERS_IN_FOLDER = 10
INI = "[Environment]\nWinDir=C:\\{tree}\n[Temporary Folders]\nUser=C:\\{tree}\n[Drives]\nC=2,System\n"
PLACE = "/dev/shm" if os.path.isdir("/dev/shm") else None


def make_tree(root, files):
    """Makes files of several sizes in a tree of folders. Every tenth file is a log."""
    pending, made = [root], 0
    os.makedirs(root)
    while made < files:
        folder = pending.pop(0)
        handle = os.open(folder, os.O_RDONLY)
        for _ in range(min(FILES_IN_FOLDER, files - made)):
            start = "report" if made % 3 else "Session data "
            name = f"{start}{made:06}.{'log' if made % 10 == 0 else 'tmp'}"
            file = os.open(name, os.O_CREAT | os.O_WRONLY, dir_fd=handle)
            os.ftruncate(file, made * 7919 % 300000)
            os.close(file)
            made += 1
        for number in range(FOLDERS_IN_FOLDER):
            if len(pending) * FILES_IN_FOLDER >= files - made:
                break
            below = os.path.join(folder, f"folder{number:02}")
            os.mkdir(below)
            pending.append(below)
        os.close(handle)


def make_machine(root, files):
    make_tree(os.path.join(root, "drives/C/Temp"), files)
    pathlib.Path(root, "machine.ini").write_text(INI.format(tree="Temp"))


def run(command, **options):
    """Runs a command. Returns seconds, peak memory in bytes, and the output."""
    with open(os.path.join(PLACE or tempfile.gettempdir(), f"walk-{os.getpid()}.out"), "w+b") as out:
        os.unlink(out.name)
        start = time.perf_counter()
        process = subprocess.Popen(command, stdout=out, **options)
        _, status, used = os.wait4(process.pid, 0)
        seconds = time.perf_counter() - start
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            sys.exit(f"{command} ended with {process.returncode}")
        out.seek(0)
        return seconds, used.ru_maxrss * 1024, out.read()


def alternating(commands, rounds=ROUNDS, **options):
    """Median seconds of each command. Each round runs every command once."""
    seconds = {name: [] for name in commands}
    for _ in range(rounds):
        for name, command in commands.items():
            seconds[name].append(run(command, **options)[0])
    return {name: statistics.median(times) for name, times in seconds.items()}


class Limits:
    def __init__(self):
        self.kept = True

    def show(self, what, value, limit, unit=""):
        kept = value <= limit
        self.kept = self.kept and kept
        print(f"{what}: {value:.2f}{unit}, at most {limit:g}{unit}{'' if kept else '  NOT KEPT'}")


def scan(console, machine, function):
    return [console, "--machine", machine, "--page", "system", "--function", function, "--json"]


OS_WALK = """import os, sys
for folder, _, files in os.walk(sys.argv[1]):
    for file in files:
        os.stat(os.path.join(folder, file))
"""


def native(console):
    limits = Limits()
    with tempfile.TemporaryDirectory(dir=PLACE, prefix="tavix-walk-") as place:
        machine = {count: os.path.join(place, str(count)) for count in (100_000, 200_000, 1_000_000)}
        for count, root in machine.items():
            make_machine(root, count)
        tree = os.path.join(machine[200_000], "drives")
        times = alternating({
            "find": ["find", tree, "-type", "f", "-printf", "%s %A@ %p\n"],
            "os.walk": [sys.executable, "-c", OS_WALK, tree],
            "Temporary Files": scan(console, machine[200_000], "Temporary Files"),
            "Windows Log Files": scan(console, machine[200_000], "Windows Log Files"),
        })
        for name, seconds in times.items():
            print(f"{name}, 200,000 files: {seconds * 1000:.0f} ms")
        limits.show("Temporary Files to find", times["Temporary Files"] / times["find"], 2)
        limits.show("Temporary Files to os.walk", times["Temporary Files"] / times["os.walk"], 0.8)
        limits.show("Windows Log Files to find", times["Windows Log Files"] / times["find"], 1.5)
        growth = alternating({count: scan(console, machine[count], "Temporary Files")
                              for count in (100_000, 1_000_000)}, 3)
        for count, seconds in growth.items():
            print(f"Temporary Files, {count:,} files: {seconds * 1000:.0f} ms, {seconds / count * 1e6:.2f} us a file")
        limits.show("A file among 1,000,000 to one among 100,000",
                    growth[1_000_000] / 10 / growth[100_000], 1.15)
        memory = {count: run(scan(console, machine[count], "Temporary Files"))[1] for count in (100_000, 1_000_000)}
        limits.show("Peak memory a row, 1,000,000 rows", memory[1_000_000] / 1_000_000, 600, " bytes")
    return limits.kept


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


def real(console):
    """Compares the rows with `find` over a copy of /usr: hard links if it is on the same disk, else a plain copy."""
    usr = "/usr"
    place = tempfile.mkdtemp(dir="/var/tmp", prefix="tavix-usr-")
    try:
        drive = os.path.join(place, "drives/C")
        os.makedirs(drive)
        links = ["-l"] if os.stat(usr).st_dev == os.stat(place).st_dev else []
        subprocess.run(["cp", "-a", "-x", *links, usr, drive], check=True)
        pathlib.Path(place, "machine.ini").write_text(INI.format(tree="usr"))
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
        seconds, _, out = run(scan(console, place, "Temporary Files"))
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
              f"the rows; {through_links:,} more rows are links or were found through links; {seconds:.2f} s")
        for path in wrong[:5]:
            print(f"  {path}: {expected[path]} and {found.get(path)}")
        return not wrong
    finally:
        shutil.rmtree(place)


def wine(build):
    """The time of each program over the full tree less its time over an empty folder."""
    sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tools"))
    import wine_prefix

    limits = Limits()
    with tempfile.TemporaryDirectory(dir=PLACE, prefix="tavix-walk-") as place:
        prefix = pathlib.Path(place, "prefix")
        drive_c = prefix / "drive_c"
        wine_prefix.make(prefix)
        make_tree(str(drive_c / "full"), 200_000)
        (drive_c / "empty").mkdir()
        bare, program = (wine_prefix.copy_program_in(prefix, pathlib.Path(build, name))
                         for name in ("bare-walk.exe", "tavix-console.exe"))
        inside = {"env": wine_prefix.environment(prefix), "cwd": drive_c}

        def point_at(folder):
            for name in ("TEMP", "TMP"):
                subprocess.run(["wine", "reg", "add", r"HKCU\Environment", "/v", name, "/t", "REG_EXPAND_SZ", "/d",
                                folder, "/f"], check=True, stdout=subprocess.DEVNULL, **inside)

        console = ["wine", program, "--live", "--page", "system", "--function", "Temporary Files", "--json"]
        seconds = {}
        for folder in ("empty", "full"):
            path = "C:\\" + folder
            point_at(path)
            peers = {"bare": ["wine", bare, path], "console": console}
            if folder == "full":
                peers["dir"] = ["wine", "cmd", "/c", "dir", "/s", path]
            times = alternating(peers, 3, **inside)
            seconds = {name: time - seconds.get(name, 0) for name, time in times.items()}
        wine_prefix.stop(prefix)
        for name, time in seconds.items():
            print(f"{name}, 200,000 files: {time:.2f} s")
        limits.show("Temporary Files under Wine to a bare walk", seconds["console"] / seconds["bare"], 1.5)
        limits.show("Temporary Files under Wine to dir /s", seconds["console"] / seconds["dir"], 0.5)
    return limits.kept


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--real", action="store_true")
    parser.add_argument("--wine", action="store_true")
    parser.add_argument("program")
    arguments = parser.parse_args()
    measure = real if arguments.real else wine if arguments.wine else native
    return 0 if measure(os.path.abspath(arguments.program)) else 1


if __name__ == "__main__":
    sys.exit(main())
