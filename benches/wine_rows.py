"""The rows that are measured under Wine, in private prefixes."""
import contextlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import trees
from harness import MEMORY, TICKS, TOP, WINDOWS, Group, Row, run

sys.path[:0] = [str(TOP / "tools"), str(TOP / "tests" / "window")]
import wine_prefix

ROWS = 100_000
BARE = "bare FindFirstFileExW recursion"


def driver():
    os.environ["TAVIX_BUILD"] = str(WINDOWS)
    import driver as found

    return found


@contextlib.contextmanager
def prefix():
    with tempfile.TemporaryDirectory(dir=MEMORY, prefix="tavix-bench-") as place:
        made = pathlib.Path(place, "prefix")
        wine_prefix.make(made)
        try:
            yield made
        finally:
            wine_prefix.stop(made)


@contextlib.contextmanager
def machine():
    found = driver().Machine()
    try:
        yield found
    finally:
        found.close()


def walking(fill, options_of):
    """The console over a folder less a run that finds nothing, beside a bare recursion less one over nothing."""
    @contextlib.contextmanager
    def opened():
        with prefix() as made:
            drive = made / "drive_c"
            (drive / "Nothing").mkdir()
            fill(made)
            bare, console = (wine_prefix.copy_program_in(made, WINDOWS / name)
                             for name in ("bare-walk.exe", "tavix-console.exe"))
            inside = {"env": wine_prefix.environment(made), "cwd": drive}

            def seconds(*command):
                return run(["wine", *command], **inside)[0]

            options, nothing = options_of(inside)
            live = (console, "--live", "--json")
            seconds(bare, "C:\\Nothing")  # starts Wine's server
            yield {"scan": lambda: seconds(*live, *options) - seconds(*live, *nothing),
                   BARE: lambda: seconds(bare, "C:\\Work") - seconds(bare, "C:\\Nothing")}

    return opened


def fill_temporary(made):
    trees.make_tree(made / "drive_c" / "Work", 200_000)


def temporary_files(inside):
    for name in ("TEMP", "TMP"):
        subprocess.run(["wine", "reg", "add", r"HKCU\Environment", "/v", name, "/t", "REG_EXPAND_SZ", "/d",
                        "C:\\Work", "/f"], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **inside)
    return ("--page", "system", "--function", "Temporary Files"), ("--function", "iertu")


def fill_drive(made):
    with tempfile.TemporaryDirectory(dir=made.parent) as folder:
        shutil.move(trees.make_drive(pathlib.Path(folder) / "machine", 50_000, 3), made / "drive_c" / "Work")


def advanced_page(_):
    return tuple(("--page", "advanced", "--scope", scope) for scope in ("C:\\Work", "C:\\Nothing"))


@contextlib.contextmanager
def registry():
    """One run of the program measures a round of both sides."""
    with prefix() as made:
        program = wine_prefix.copy_program_in(made, WINDOWS / "tavix-bare-registry.exe")
        inside = {"env": wine_prefix.environment(made), "cwd": made / "drive_c"}
        found = {}

        def page():
            said = subprocess.run(["wine", program, "5"], check=True, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL, **inside).stdout.decode()
            taken = re.search(r"page ([\d.]+) ms, bare pass ([\d.]+) ms", said)
            found["bare"] = float(taken[2]) / 1000
            return float(taken[1]) / 1000

        yield {"page": page, "bare registry pass": lambda: found["bare"]}


@contextlib.contextmanager
def starts():
    """On one core: messages between the processes and Wine's server take very uneven times from core to core."""
    cores = os.sched_getaffinity(0)
    os.sched_setaffinity(0, {max(cores)})
    try:
        with machine() as made:
            for name in ("tavix.exe", "tavix-bare-window.exe"):
                # Strip debug information, as a release does.
                subprocess.run(["x86_64-w64-mingw32-strip", "-o", made.drive_c / name, WINDOWS / name], check=True)
            found = {}

            def start():
                said = made.run(WINDOWS / "tavix-start-time.exe", "1", "C:\\tavix.exe", "TavixMainWindow",
                                "C:\\tavix-bare-window.exe", "TavixBareWindow")
                found.update((which, float(taken) / 1000) for which, taken in map(str.split, said.splitlines()))
                return found["0"]

            start()  # makes the data folders and fills the caches
            yield {"start": start, "bare window": lambda: found["1"]}
    finally:
        os.sched_setaffinity(0, cores)


def cancel(folders, files):
    @contextlib.contextmanager
    def opened():
        with machine() as made:
            for number in range(folders):
                folder = made.drive_c / "windows" / "temp" / f"folder-{number:04d}"
                folder.mkdir(parents=True)
                for file in range(files):
                    os.close(os.open(folder / f"file {file}.tmp", os.O_CREAT | os.O_WRONLY))
            program = driver().Program(made)
            try:
                program.key("s")
                program.wait_until("the page", lambda s: s.control(driver().FUNCTIONS)["visible"])
                yield {"cancel": lambda: float(made.run(WINDOWS / "tavix-cancel-time.exe", "1"))}
            finally:
                program.close()

    return opened


def processor_seconds(found):
    """Of the program `found` of a machine, so far."""
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if (process / "comm").read_text().strip() == "tavix.exe" and \
                    str(found.prefix).encode() in (process / "environ").read_bytes():
                fields = (process / "stat").read_text().rsplit(")", 1)[1].split()
                return (int(fields[11]) + int(fields[12])) / TICKS
        except OSError:
            pass
    raise RuntimeError("tavix.exe isn't running")


@contextlib.contextmanager
def window_rows():
    """Processor time of the program alone: Wine's server, which reads the registry, isn't in it. The window's scan,
    from the key to the painted list, less that of the console, of whose run one that finds a row is taken off."""
    with machine() as made:
        console = wine_prefix.copy_program_in(made.prefix, WINDOWS / "tavix-console.exe")
        inside = {"env": {**wine_prefix.environment(made.prefix), **made.environment}, "cwd": made.drive_c}

        def used(function):
            return run(["wine", console, "--live", "--json", "--function", function], **inside)[1]

        values = "".join(f'"url{i}"="http://host-{i % 977}.example/page/{i}"\n' for i in range(ROWS))
        made.seed("[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedURLs]\n" + values)

        # The console and the window refuse to run at the same time.
        def scan():
            by_console = used("iertu") - used("ieafh")
            program = driver().Program(made)
            try:
                begun = processor_seconds(made)
                program.key("F3")
                # The window answers only after the scan, when the list is painted.
                shown = program.read()
                with_reading = processor_seconds(made)
                program.read()
                reading = processor_seconds(made) - with_reading
            finally:
                program.close()
            if shown.row_count < ROWS:
                raise RuntimeError(f"{shown.row_count} rows")
            return with_reading - begun - reading - by_console

        yield {"rows": scan}


GROUPS = (
    Group(walking(fill_temporary, temporary_files),
          (Row("Under Wine: Temporary Files, 200,000 files", "scan", BARE, 1.1),), rounds=3, windows=True),
    Group(walking(fill_drive, advanced_page),
          (Row("Under Wine: advanced scan, 50,000 files", "scan", BARE, 1.1),), rounds=4, windows=True),
    Group(registry, (Row("Under Wine: Registry page", "page", "bare registry pass", 1.1),), windows=True),
    Group(starts, (Row("Start of the window", "start", "bare window", 1.1),), rounds=15, windows=True),
    Group(cancel(3000, 25), (Row("From Esc to the closing line, 75,000 files", "cancel", goal=100, unit="ms"),),
          windows=True),
    Group(cancel(1, 200_000),
          (Row("From Esc to the closing line, one folder of 200,000", "cancel", goal=100, unit="ms"),), windows=True),
    Group(window_rows, (Row("100,000 rows into the window, beyond the scan", "rows", goal=0.2),), rounds=3,
          windows=True),
)
