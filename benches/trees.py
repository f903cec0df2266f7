"""The trees of files that the benchmarks walk."""
import os
import pathlib

FILES_IN_FOLDER = 50
FOLDERS_IN_FOLDER = 10
WALK_INI = "[Environment]\nWinDir=C:\\Temp\n[Temporary Folders]\nUser=C:\\Temp\n[Drives]\nC=2,System\n"
DRIVE_INI = "[Folders]\n9966=C:\\Windows\\system32\n[Drives]\nC=2\n"
FILES_IN_DRIVE_FOLDER = 20


def make_tree(root, files):
    """Makes files of several sizes in a tree of folders. Every tenth file is a log."""
    pending, made = [str(root)], 0
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


def make_walked_machine(root, files):
    """A machine folder whose temporary folder holds such a tree."""
    make_tree(pathlib.Path(root) / "drives/C/Temp", files)
    pathlib.Path(root, "machine.ini").write_text(WALK_INI)
    return pathlib.Path(root)


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


def make_drive(root, files, depth):
    """A machine folder with a drive of documents and a few junk files, 20 in each folder. Returns the drive."""
    root = pathlib.Path(root)
    drive = root / "drives" / "C"
    (root / "registry").mkdir(parents=True)
    (root / "machine.ini").write_text(DRIVE_INI)
    (drive / "Windows" / "system32").mkdir(parents=True)
    (drive / "Windows" / "system32" / "known.dll").write_bytes(b"x")
    for number, path in enumerate(folder_paths(files // FILES_IN_DRIVE_FOLDER, depth)):
        folder = drive / path
        os.makedirs(folder, exist_ok=True)
        names = [f"report {number} {i}.doc" for i in range(FILES_IN_DRIVE_FOLDER - 4)]
        names += [f"work{number}.tmp", f"report{number}.bak", "known.dll" if number % 10 == 0 else "own.dll"]
        for i, name in enumerate(names):
            handle = os.open(folder / name, os.O_CREAT | os.O_WRONLY)
            os.ftruncate(handle, 1000 + 37 * i)
            os.close(handle)
        os.close(os.open(folder / "nothing.dat", os.O_CREAT | os.O_WRONLY))
    return drive
