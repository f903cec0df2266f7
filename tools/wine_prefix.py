#!/usr/bin/env python3
"""Private Wine prefixes: Windows machines whose programs can't reach the host.

Drive C: is the only drive, the user's folders are folders of the prefix, and no link on the drive leads out of it. So
programs and other files must be copied in and out.

    wine_prefix.py make PREFIX       makes it, replacing an older one
    wine_prefix.py current PREFIX    succeeds if it exists and was made by the current version of this script
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
# Increase it with each change of how prefixes are made. Prefixes with a lower number are replaced.
MAKE = 3
# While this key exists, Wine's folder chooser offers the host's folders beside the drives.
HOST_IN_CHOOSER = ("HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Desktop\\Namespace\\"
                   "{9D20AAE8-0625-44B0-9CA7-71889C2254D9}")
# Files and folders that our programs look for beside themselves.
COMPANIONS = ("tips.dll", "menus.dll", "Help.chm", "res", "lang")
# The folder of drive C: into which programs are copied.
PROGRAMS = "Tavix"


def data_folder(prefix):
    """The folder beside the prefix for what Wine would put on the host's desktop, mainly the recycle bin."""
    return pathlib.Path(f"{prefix}.tavix-data")


def environment(prefix):
    """The environment in which a program runs in a prefix and can't leave it."""
    data = data_folder(prefix)
    home = pathlib.Path(os.environ.get("HOME", "/"))
    return {
        "WINEDEBUG": "-all",  # no debug messages
        "XAUTHORITY": str(home / ".Xauthority"),
        **os.environ,
        # No installers of Wine's engines, and no entries in the menus of the host's desktop.
        "WINEDLLOVERRIDES": "mscoree,mshtml,winemenubuilder.exe=",
        "WINEPREFIX": str(prefix),
        # If the home folder exists, Wine makes the user's folders links into it.
        "HOME": "/dev/null",
        "XDG_DATA_HOME": str(data),
        "XDG_CONFIG_HOME": str(data),
        "XDG_CACHE_HOME": str(data),
        # Over this bus Wine learns of removable disks, and makes them drives.
        "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/dev/null",
    }


def stop(prefix):
    """Ends all programs in a prefix, and waits until Wine has written its registry."""
    settings = {**os.environ, "WINEPREFIX": str(prefix)}
    subprocess.run(["wineserver", "-k"], env=settings, check=False, stderr=subprocess.DEVNULL)
    subprocess.run(["wineserver", "-w"], env=settings, check=False, stderr=subprocess.DEVNULL)


def mark():
    """The content of the file "ready" of a current prefix: the number above and the version of Wine."""
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
    # Wine makes drive Z: when it makes the folder of devices. So make that folder before.
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
    """Makes a fresh prefix, replacing an older one: a copy of a template that is made once."""
    prefix = pathlib.Path(prefix)
    TEMPLATE.parent.mkdir(parents=True, exist_ok=True)
    with open(TEMPLATE.parent / "template.lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not is_current(TEMPLATE):
            make_template()
        remove(prefix)
        prefix.mkdir(parents=True)
        # Copy the mark last, so that an incomplete copy isn't taken as ready.
        subprocess.run(["cp", "-a", *(entry for entry in TEMPLATE.iterdir() if entry.name != "ready"), prefix],
                       check=True)
    set_current(prefix)


def ways_out(prefix):
    """The ways from a prefix to the host: drives besides C:, and links from drive C: to other places. A private prefix
    has none."""
    prefix = pathlib.Path(prefix)
    drive_c = (prefix / "drive_c").resolve()
    devices = prefix / "dosdevices"
    if not devices.is_dir():
        return [f"{devices} is missing: Wine would make it with a drive Z:"]
    found = []
    for device in devices.iterdir():
        # Other names are ports, not drives.
        if re.fullmatch("[A-Za-z]::?", device.name) and (device.name != "c:" or device.resolve() != drive_c):
            found.append(str(device))
    for folder, folders, files in os.walk(drive_c):
        for entry in (pathlib.Path(folder) / name for name in folders + files):
            if entry.is_symlink() and not pathlib.Path(os.path.realpath(entry)).is_relative_to(drive_c):
                found.append(str(entry))
    return found


def windows_path(prefix, file):
    """The Windows path of a file on drive C: of a prefix. None for a file elsewhere."""
    drive_c = (pathlib.Path(prefix) / "drive_c").resolve()
    file = pathlib.Path(file).absolute()
    file = file.parent.resolve() / file.name
    if not file.is_relative_to(drive_c):
        return None
    return "C:\\" + "\\".join(file.relative_to(drive_c).parts)


def copy_in(prefix, source, folder=""):
    """Copies a file or a whole folder into a folder of drive C:, which is made if missing. Returns the new path."""
    source = pathlib.Path(source)
    target = pathlib.Path(prefix) / "drive_c" / folder / source.name
    target.parent.mkdir(parents=True, exist_ok=True)
    if source.is_dir():
        shutil.copytree(source, target, dirs_exist_ok=True)
    else:
        # Replace the file, don't write into it: a program that runs from it keeps the old one.
        with tempfile.TemporaryDirectory(dir=target.parent) as place:
            copy = shutil.copy2(source, place)
            os.replace(copy, target)
    return windows_path(prefix, target)


def copy_program_in(prefix, program, folder=PROGRAMS):
    """Copies a program with the files that it looks for beside itself. Returns its new path."""
    if not pathlib.Path(program).is_file():
        raise ValueError(f"{program} is no program")
    for name in COMPANIONS:
        companion = pathlib.Path(program).parent / name
        if companion.exists():
            copy_in(prefix, companion, folder)
    return copy_in(prefix, program, folder)


def copy_out(prefix, name, target):
    """Copies a file of drive C:, named by its path below the drive, into a folder of the host or over a file there."""
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
