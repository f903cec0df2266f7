#!/usr/bin/env python3
"""Private Wine prefixes: Windows machines whose programs can't reach the machine that they run on.

Drive C: is the only drive, the user's folders are folders of the prefix, and no link on the drive leads out of it. So
files are handed in and out by copying, and a program that is to run is copied in as well.

    wine_prefix.py make PREFIX       makes it, in place of an older one
    wine_prefix.py current PREFIX    succeeds if it is there and was made the way it is made now
"""
import fcntl
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent
WINE = TOP / "tools" / "wine"
TEMPLATE = TOP / "build" / "wine" / "template"
# Counts up with each change of how prefixes are made: older ones are made anew then.
MAKE = 3
# Wine's chooser of folders offers those of this machine beside the drives, as long as this key is there.
HOST_IN_CHOOSER = ("HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Desktop\\Namespace\\"
                   "{9D20AAE8-0625-44B0-9CA7-71889C2254D9}")
# What lies beside our programs and is looked for there.
COMPANIONS = ("tips.dll", "menus.dll", "Help.chm", "res", "lang")
# The folder of drive C: into which programs are copied.
PROGRAMS = "Tavix"


def data_folder(prefix):
    """Where Wine keeps what belongs on the host's desktop: the recycle bin above all. It lies beside the prefix."""
    return pathlib.Path(f"{prefix}.tavix-data")


def environment(prefix):
    """What a program needs to run in a prefix and to stay in it."""
    data = data_folder(prefix)
    home = pathlib.Path(os.environ.get("HOME", "/"))
    return {
        "WINEDEBUG": "-all",  # without Wine's chatter
        "XAUTHORITY": str(home / ".Xauthority"),
        **os.environ,
        # Without the installers of its engines, and without entries in the menus of the host's desktop.
        "WINEDLLOVERRIDES": "mscoree,mshtml,winemenubuilder.exe=",
        "WINEPREFIX": str(prefix),
        # Wine would make the user's folders links into a home that is there.
        "HOME": "/dev/null",
        "XDG_DATA_HOME": str(data),
        "XDG_CONFIG_HOME": str(data),
        "XDG_CACHE_HOME": str(data),
        # From here Wine would hear of sticks and disks, and make them drives.
        "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/dev/null",
    }


def stop(prefix):
    """Ends what runs in a prefix, and waits for its registry to be written."""
    settings = {**os.environ, "WINEPREFIX": str(prefix)}
    subprocess.run(["wineserver", "-k"], env=settings, check=False, stderr=subprocess.DEVNULL)
    subprocess.run(["wineserver", "-w"], env=settings, check=False, stderr=subprocess.DEVNULL)


def mark():
    """What stands in the file "ready" of a prefix that is made as prefixes are made now, by the Wine that is here."""
    version = subprocess.run(["wine", "--version"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                             check=True).stdout
    return f"{MAKE} {version}"


def is_current(prefix):
    ready = pathlib.Path(prefix) / "ready"
    return ready.exists() and ready.read_text(encoding="utf-8") == mark()


def set_current(prefix):
    (pathlib.Path(prefix) / "ready").write_text(mark(), encoding="utf-8")


def unset_current(prefix):
    (pathlib.Path(prefix) / "ready").unlink()


def remove(prefix):
    if pathlib.Path(prefix).exists():
        stop(prefix)
    for folder in (prefix, data_folder(prefix)):
        shutil.rmtree(folder, ignore_errors=True)


def make_template():
    remove(TEMPLATE)
    # Wine makes drive Z: along with the folder of the devices. This one is there already.
    (TEMPLATE / "dosdevices").mkdir(parents=True)
    (TEMPLATE / "drive_c").mkdir()
    (TEMPLATE / "dosdevices" / "c:").symlink_to("../drive_c")
    settings = environment(TEMPLATE)
    settings.pop("DISPLAY", None)
    for command in (("wineboot", "--init"), ("reg", "delete", HOST_IN_CHOOSER, "/f")):
        subprocess.run([WINE, *command], env=settings, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    subprocess.run(["wineserver", "-w"], env=settings, check=True)
    found = ways_out(TEMPLATE)
    if found:
        raise RuntimeError(f"Wine has made ways out of the prefix: {', '.join(found)}")
    set_current(TEMPLATE)


def make(prefix):
    """A fresh prefix, in place of an older one: a copy of a template that is made once."""
    prefix = pathlib.Path(prefix)
    TEMPLATE.parent.mkdir(parents=True, exist_ok=True)
    with open(TEMPLATE.parent / "template.lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not is_current(TEMPLATE):
            make_template()
        remove(prefix)
        prefix.mkdir(parents=True)
        # The last of all is the mark, so that half a copy isn't taken for a prefix.
        subprocess.run(["cp", "-a", *(entry for entry in TEMPLATE.iterdir() if entry.name != "ready"), prefix],
                       check=True)
    set_current(prefix)


def ways_out(prefix):
    """What leads out of a prefix: drives besides C:, and links on drive C: to other places. None in a private one."""
    prefix = pathlib.Path(prefix)
    drive_c = (prefix / "drive_c").resolve()
    devices = prefix / "dosdevices"
    if not devices.is_dir():
        return [f"{devices} is missing: Wine would make it with a drive Z:"]
    found = []
    for device in devices.iterdir():
        # Other names than letters with a colon are ports, which are no drives.
        if re.fullmatch("[A-Za-z]::?", device.name) and (device.name != "c:" or device.resolve() != drive_c):
            found.append(str(device))
    for folder, folders, files in os.walk(drive_c):
        for entry in (pathlib.Path(folder) / name for name in folders + files):
            if entry.is_symlink() and not pathlib.Path(os.path.realpath(entry)).is_relative_to(drive_c):
                found.append(str(entry))
    return found


def windows_path(prefix, file):
    """The path within a prefix of a file on its drive C:; None of one elsewhere."""
    drive_c = (pathlib.Path(prefix) / "drive_c").resolve()
    file = pathlib.Path(file).absolute()
    file = file.parent.resolve() / file.name
    if not file.is_relative_to(drive_c):
        return None
    return "C:\\" + "\\".join(file.relative_to(drive_c).parts)


def copy_in(prefix, source, folder=""):
    """Copies a file, or a folder with all it holds, into a folder of drive C:, which is made; its path there."""
    source = pathlib.Path(source)
    target = pathlib.Path(prefix) / "drive_c" / folder / source.name
    target.parent.mkdir(parents=True, exist_ok=True)
    if source.is_dir():
        shutil.copytree(source, target, dirs_exist_ok=True)
    else:
        # A program that runs from there goes on with the file it was started from.
        with tempfile.TemporaryDirectory(dir=target.parent) as place:
            copy = shutil.copy2(source, place)
            os.replace(copy, target)
    return windows_path(prefix, target)


def copy_program_in(prefix, program, folder=PROGRAMS):
    """Copies a program and what it looks for beside itself; its path there."""
    for name in COMPANIONS:
        companion = pathlib.Path(program).parent / name
        if companion.exists():
            copy_in(prefix, companion, folder)
    return copy_in(prefix, program, folder)


def copy_out(prefix, name, target):
    """Copies a file of drive C:, named by its path below the drive's folder, into a folder of the host or over a
    file of it."""
    shutil.copy(pathlib.Path(prefix) / "drive_c" / name, target)


def main(arguments):
    if len(arguments) == 2 and arguments[0] == "make":
        make(pathlib.Path(arguments[1]).absolute())
        return 0
    if len(arguments) == 2 and arguments[0] == "current":
        return 0 if is_current(arguments[1]) else 1
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
