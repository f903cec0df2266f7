#!/usr/bin/env python3
"""Prepares a machine for the tests that need what only Windows has: links, short names, long paths, denied folders,
drives with FAT and with NTFS, a file in the recycle bin. What can be made elsewhere is made there, too.

    prepare_windows.py settings        short names, long paths and links for everybody (Windows, as administrator)
    prepare_windows.py make FOLDER     makes the folder; names what this system can't make, and why
    prepare_windows.py remove FOLDER   removes it, with the drives; the file in the bin stays

FOLDER/scanned has files that the Advanced page finds as junk, and ways that lead out to FOLDER/kept."""
import ctypes
import os
import pathlib
import shutil
import subprocess
import sys

ON_WINDOWS = sys.platform == "win32"
FAT, NTFS = "V:", "W:"  # drives in virtual disks
DISK_SIZE = 64  # MiB
EVERYBODY = "*S-1-1-0"
JUNK = b"of no use"
POLICIES = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\FileSystem"
DEVELOPERS = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\AppModelUnlock"


class CannotBeMade(Exception):
    pass


def only_on_windows():
    if not ON_WINDOWS:
        raise CannotBeMade("only Windows has it")


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          check=False)
    if done.returncode != 0:
        raise CannotBeMade(f"{' '.join(map(str, command))}: {' '.join(done.stdout.split())}")
    return done.stdout


def partition(folder, *commands):
    """Has the system's program for disks carry out commands. It ends at the first that fails."""
    script = folder / "disk.txt"
    script.write_text("\n".join(commands) + "\n", encoding="ascii")
    run("diskpart", "/s", str(script))


def extended(path):
    """The path in the form in which Windows takes more than 260 characters."""
    return pathlib.Path("\\\\?\\" + str(path.absolute()).replace("/", "\\")) if ON_WINDOWS else path


# What is made, by routines that return the files that a scan finds. Each has one argument, the folder.

def plain_file(folder):
    file = folder / "scanned" / "plain.bak"
    file.write_bytes(JUNK)
    return [file]


def read_only_file(folder):
    file = folder / "scanned" / "read only.bak"
    file.write_bytes(JUNK)
    file.chmod(0o444)
    return [file]


def long_path(folder):
    below = extended(folder / "scanned").joinpath(*(["a folder of a long path " + "x" * 60] * 4))
    below.mkdir(parents=True)
    (below / "deep.bak").write_bytes(JUNK)
    return [below / "deep.bak"]


def short_name(folder):
    only_on_windows()
    file = folder / "scanned" / "a name that is not short.bak"
    file.write_bytes(JUNK)
    room = ctypes.create_unicode_buffer(1024)
    ctypes.windll.kernel32.GetShortPathNameW(str(file), room, len(room))
    if "~" not in pathlib.Path(room.value).name:
        file.unlink()
        raise CannotBeMade("this drive keeps no short names: `prepare_windows.py settings` turns them on")
    return [file]


def junction(folder):
    only_on_windows()
    run("cmd", "/c", "mklink", "/J", str(folder / "scanned" / "junction"), str(folder / "kept"))
    return []


def link_to_a_folder(folder):
    (folder / "scanned" / "link to a folder").symlink_to(folder / "kept", target_is_directory=True)
    return []


def denied_folder(folder):
    denied = folder / "scanned" / "denied"
    denied.mkdir()
    (denied / "secret.bak").write_bytes(JUNK)
    if ON_WINDOWS:
        run("icacls", str(denied), "/inheritance:r", "/deny", EVERYBODY + ":(OI)(CI)(RD,X)")
        return []
    if os.geteuid() == 0:
        shutil.rmtree(denied)
        raise CannotBeMade("nothing is denied to root")
    denied.chmod(0)
    return []


def drive(folder, letter, file_system):
    only_on_windows()
    disk = folder / f"{letter[0]}.vhd"
    partition(folder, f'create vdisk file="{disk}" maximum={DISK_SIZE}', f'select vdisk file="{disk}"', "attach vdisk",
              "create partition primary", f"format fs={file_system} quick", f"assign letter={letter[0]}")
    place = pathlib.Path(letter + "/scanned")
    place.mkdir(parents=True)
    (place / "of another drive.bak").write_bytes(JUNK)
    return [place / "of another drive.bak"]


def fat_drive(folder):
    return drive(folder, FAT, "fat32")


def ntfs_drive(folder):
    return drive(folder, NTFS, "ntfs")


class Operation(ctypes.Structure):
    """SHFILEOPSTRUCTW: what the shell is asked to do with a file."""
    _fields_ = [("window", ctypes.c_void_p), ("what", ctypes.c_uint), ("source", ctypes.c_wchar_p),
                ("target", ctypes.c_wchar_p), ("flags", ctypes.c_uint16), ("aborted", ctypes.c_int),
                ("names", ctypes.c_void_p), ("title", ctypes.c_wchar_p)]


def recycled_file(folder):
    only_on_windows()
    file = folder / "thrown away.txt"
    file.write_bytes(b"in the bin")
    delete, to_the_bin_without_a_word = 3, 0x40 | 0x10 | 0x4 | 0x400
    asked = Operation(what=delete, source=str(file) + "\0", flags=to_the_bin_without_a_word)
    if ctypes.windll.shell32.SHFileOperationW(ctypes.byref(asked)) != 0 or file.exists():
        raise CannotBeMade("the shell takes no file into the bin")
    return []


KINDS = (plain_file, read_only_file, long_path, short_name, junction, link_to_a_folder, denied_folder, fat_drive,
         ntfs_drive, recycled_file)


def make(folder, kinds=KINDS):
    """Makes the folder. Returns ({kind: the files that a scan finds}, {kind: why it can't be made})."""
    folder = pathlib.Path(folder).absolute()
    (folder / "scanned").mkdir(parents=True)
    (folder / "kept").mkdir()
    (folder / "kept" / "kept.bak").write_bytes(b"what links lead to")
    made, missing = {}, {}
    for kind in kinds:
        try:
            made[kind] = kind(folder)
        except (CannotBeMade, OSError) as reason:
            missing[kind] = str(reason)
    return made, missing


def remove(folder):
    folder = pathlib.Path(folder).absolute()
    denied = folder / "scanned" / "denied"
    for disk in folder.glob("*.vhd"):
        partition(folder, f'select vdisk file="{disk}"', "detach vdisk")
    if denied.exists() and ON_WINDOWS:
        run("icacls", str(denied), "/reset", "/t")
    elif denied.exists():
        denied.chmod(0o755)
    if ON_WINDOWS and (folder / "scanned" / "junction").exists():
        (folder / "scanned" / "junction").rmdir()  # the link alone
    shutil.rmtree(extended(folder), onerror=remove_read_only)


def remove_read_only(delete, path, _):
    """Windows deletes no file that is read-only."""
    os.chmod(path, 0o666)
    delete(path)


def settings():
    only_on_windows()
    run("fsutil", "8dot3name", "set", os.environ["SystemDrive"], "0")
    run("reg", "add", POLICIES, "/v", "LongPathsEnabled", "/t", "REG_DWORD", "/d", "1", "/f")
    run("reg", "add", DEVELOPERS, "/v", "AllowDevelopmentWithoutDevLicense", "/t", "REG_DWORD", "/d", "1", "/f")


def words(kind):
    return kind.__name__.replace("_", " ")


def main(arguments):
    try:
        if arguments == ["settings"]:
            settings()
        elif len(arguments) == 2 and arguments[0] == "make":
            made, missing = make(arguments[1])
            for kind in made:
                print(f"made: {words(kind)}")
            for kind, reason in missing.items():
                print(f"not made: {words(kind)} ({reason})")
        elif len(arguments) == 2 and arguments[0] == "remove":
            remove(arguments[1])
        else:
            print(__doc__, file=sys.stderr)
            return 2
    except CannotBeMade as reason:
        print(reason, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
