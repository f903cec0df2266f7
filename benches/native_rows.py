"""The rows that are measured on this machine itself, over machine folders in memory."""
import contextlib
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import trees
from harness import CONSOLE, MEMORY, NATIVE, Group, Row, run, timed

FIND = "find -printf '%s %A@ %p\\n'"
BFS, FD, RMLINT, BLEACHBIT = "bfs, the same", "fd, files by size", "rmlint", "bleachbit --preview"
CLEANED_INI = "[Environment]\nWinDir=C:\\WINDOWS\n[Temporary Folders]\nUser=C:\\Temp\nSystem=C:\\None\n[Drives]\nC=2\n"
CLEANED_FOLDERS, CLEANED_FILES = 500, 100


def console(machine, *options):
    return [CONSOLE, "--machine", machine, "--json", *options]


def system_page(machine, function):
    return console(machine, "--page", "system", "--function", function)


def listing_peers(tree):
    """Programs that list the files of a tree with their sizes, as far as they are installed."""
    commands = {
        FIND: ["find", tree, "-type", "f", "-printf", "%s %A@ %p\n"],
        BFS: ["bfs", tree, "-type", "f", "-printf", "%s %A@ %p\n"],
        FD: ["fdfind", "--unrestricted", "--type", "f", "--size", "+0b", ".", tree],
    }
    return {name: timed(command) for name, command in commands.items() if shutil.which(command[0])}


@contextlib.contextmanager
def scratch():
    with tempfile.TemporaryDirectory(dir=MEMORY, prefix="tavix-bench-") as place:
        yield pathlib.Path(place)


@contextlib.contextmanager
def walks():
    with scratch() as place:
        machine = trees.make_walked_machine(place, 200_000)
        yield {**{function: timed(system_page(machine, function))
                  for function in ("Temporary Files", "Windows Log Files")},
               **listing_peers(machine / "drives")}


# A process counts the memory of the one that started it. So a small one starts the console.
SMALL_STARTER = """import os, sys
nothing = [(os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0)]
started = os.posix_spawn(sys.argv[1], sys.argv[1:], os.environ, file_actions=nothing)
print(os.wait4(started, 0)[2].ru_maxrss * 1024)
"""


def peak_memory(machine):
    """In millions of bytes."""
    command = [sys.executable, "-S", "-c", SMALL_STARTER, *map(str, system_page(machine, "Temporary Files"))]
    return int(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout) / 1e6


@contextlib.contextmanager
def memory():
    with scratch() as place:
        machine = trees.make_walked_machine(place / "many", 1_000_000)
        few = trees.make_walked_machine(place / "few", 1_000)
        yield {"memory": lambda: peak_memory(machine) - peak_memory(few)}


def advanced(files):
    @contextlib.contextmanager
    def opened():
        with scratch() as place:
            drive = trees.make_drive(place / "machine", files, 3)
            sides = {"scan": timed(console(place / "machine", "--page", "advanced")), **listing_peers(drive)}
            if shutil.which("rmlint"):
                sides[RMLINT] = timed(["rmlint", "-T", "emptyfiles,emptydirs,badlinks", "-o", "summary:stdout", drive])
            if shutil.which("bleachbit"):
                home = {**os.environ, "HOME": str(drive), "XDG_CONFIG_HOME": str(place / "config")}
                sides[BLEACHBIT] = timed(["bleachbit", "--preview", "deepscan.tmp", "deepscan.backup",
                                          "deepscan.thumbs_db"], env=home)
            yield sides

    return opened


@contextlib.contextmanager
def depths():
    with scratch() as place:
        for depth in (3, 300):
            trees.make_drive(place / str(depth), 200_000, depth)
        yield {f"{depth} deep": timed(console(place / str(depth), "--page", "advanced")) for depth in (3, 300)}


def make_cleaned(root):
    shutil.rmtree(root, ignore_errors=True)
    temp = root / "drives" / "C" / "Temp"
    for number in range(CLEANED_FOLDERS):
        folder = temp / f"folder {number}"
        folder.mkdir(parents=True)
        for file in range(CLEANED_FILES):
            (folder / f"file{file}.tmp").write_bytes(b"x" * 100)
    (root / "machine.ini").write_text(CLEANED_INI, encoding="ascii")
    return sorted(temp.rglob("*.tmp"))


@contextlib.contextmanager
def cleaning():
    """A clean is a run with --clean less one without, which prints the same rows."""
    with scratch() as place:
        root = place / "machine"
        command = system_page(root, "Temporary Files")

        def clean():
            files = make_cleaned(root)
            scan = run(command)[0]
            taken = run([*command, "--clean"])[0] - scan
            if any(file.exists() for file in files):
                raise RuntimeError("the clean left files")
            return taken

        def remove():
            names = place / "names"
            names.write_bytes("\0".join(map(str, make_cleaned(root))).encode())
            with open(names, "rb") as given:
                return run(["xargs", "-0", "rm", "-f"], stdin=given)[0]

        yield {"clean": clean, "xargs rm -f": remove}


@contextlib.contextmanager
def registry():
    def seconds(name):
        def side():
            output = subprocess.run([NATIVE / "tavix-bench", f"--benchmark_filter=^RegistryPage/{name}/100000$",
                                     "--benchmark_format=json"], check=True, stdout=subprocess.PIPE,
                                    stderr=subprocess.DEVNULL).stdout
            return json.loads(output)["benchmarks"][0]["real_time"] / 1000

        return side

    yield {"page": seconds("ScanInFolder"), "bare pass": seconds("BarePassInFolder")}


GROUPS = (
    Group(walks, (
        Row("Every file a row: Temporary Files, 200,000", "Temporary Files", FIND, 0.9),
        Row("Every file a row beside bfs", "Temporary Files", BFS),
        Row("Every file a row beside fd", "Temporary Files", FD),
        Row("One in ten a row: Windows Log Files, 200,000", "Windows Log Files", FIND, 0.35),
    )),
    Group(advanced(200_000), (
        Row("Advanced scan, six functions, 200,000 files", "scan", FIND, 0.9),
        Row("Advanced scan beside bfs", "scan", BFS),
        Row("Advanced scan beside fd", "scan", FD),
        Row("Advanced scan beside rmlint", "scan", RMLINT),
        Row("Advanced scan beside bleachbit", "scan", BLEACHBIT),
    )),
    Group(advanced(1_000_000), (Row("Advanced scan, six functions, 1,000,000 files", "scan", FIND, 0.9),), rounds=3),
    Group(depths, (Row("Advanced scan, 200,000 files, 300 deep", "300 deep", "3 deep", 1.1),)),
    Group(cleaning, (Row("Cleaning 50,000 files, method D", "clean", "xargs rm -f", 1.0),)),
    Group(registry, (Row("Registry page, 100,000 classes, machine folder", "page", "bare pass", 1.15),), rounds=3),
    Group(memory, (Row("Memory of the rows: 1,000,000 files", "memory", goal=97, unit="MB"),), rounds=1),
)
