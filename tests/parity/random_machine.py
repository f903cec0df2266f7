"""Puts random files and shortcuts where the scanners look."""
import os
import random
import time

import make_shortcut

WORDS = ["a", "Zoë", "readme", "SETUP", "straße", "файл", "文件", "e\u0301", "\U0001F5D1", "x" * 60, "with blanks in it",
         ".hidden", "#1", "100%", "a,b; c", "it's", "$x$", "~tmp", "ÅNGSTRÖM", "ångström2", "İx", "ſ", "K", "[1]", "two..dots"]
EXTENSIONS = ["", ".log", ".LOG", ".log1", ".txt", ".tmp", ".pf", ".Pf", ".chk", ".CHK", ".dat", ".lnk.txt", ".x.log", ".log.x"]
SPECIAL = {
    "fragments": ["chklist.ms", "CHKLIST.MSX", "chklist.m", "chklist.x", "file0001._dd", "FILE12._DD", "file00001._dd",
                  "file._dd", "xfile0001._dd", "chk"],
    "browser": ["index.dat", "desktop.ini"],
    "prefetch": [f"PROGRAM{number}.EXE-0A1B2C3D.pf" for number in range(20)],
}
DAY = 24 * 3600
# When files were last used: in days before today, and in seconds since 1970.
AGES = [0, 1, 29, 30, 31, 365, 10000, -1, -400]
MOMENTS = [0, 1, -1, 2**31 - 1, 2**31, 2**32 + 5, 315532800, 4102444800]
SIZES = [0, 1, 51, 52, 512, 1023, 1024, 1025, 1536, 4096, 100000, 1572762]


class RandomMachine:
    def __init__(self, live, seed):
        self.live = live
        self.random = random.Random(seed)
        self.now = time.time()
        self.folders = live.folders()

    def fill(self):
        windows, special, shell = "C:\\windows", self.folders["Special Folders"], self.folders["Folders"]
        temporary = self.folders["Temporary Folders"]
        for path in (*temporary.values(), windows + "\\SoftwareDistribution\\Download", windows + "\\Debug",
                     windows + "\\$NtUninstallKB917953$", windows + "\\$NTUNINSTALLkb2", windows + "\\$ntuninstal",
                     special["Recent"], "C:\\Keep"):
            self.tree(path)
        for _ in range(4):
            self.tree(windows + "\\Prefetch", SPECIAL["prefetch"], 1)
        for path in ("C:\\FOUND.000", "C:\\found.x\u00FC", "C:\\foundation", "C:\\found"):
            self.tree(path, SPECIAL["fragments"])
        for path in (shell["32"], shell["32"] + "\\Content.IE5", shell["33"], shell["34"] + "\\History.IE5"):
            self.tree(path, SPECIAL["browser"])
        for path in (special["0"], special["1"], special["10"], special["11"],
                     special["5"] + "\\Microsoft\\Internet Explorer\\Quick Launch"):
            self.tree(path)
            self.shortcuts(path)
        self.deep(temporary["User"], 25)
        self.deep(windows + "\\Debug", 25)
        self.file(self.live.place(windows) / "MEMORY.dmp", 123456)
        self.links(temporary["User"])

    def name(self, special=()):
        if special and self.random.random() < 0.4:
            return self.random.choice(special)
        return self.random.choice(WORDS) + self.random.choice(["", "", str(self.random.randrange(100))]) + \
            self.random.choice(EXTENSIONS)

    def file(self, path, size=None):
        size = self.random.choice(SIZES) if size is None else size
        with open(path, "wb") as file:
            file.truncate(size)
        if self.random.random() < 0.75:
            used = self.now - self.random.choice(AGES) * DAY + self.random.randrange(-DAY, DAY)
        else:
            used = self.random.choice(MOMENTS)
        os.utime(path, (used, self.random.choice([used, self.now])))
        if self.random.random() < 0.1:
            path.chmod(0o444)  # read-only

    def tree(self, path, special=(), depth=3):
        """Files and folders below a path of drive C."""
        folder = self.live.place(path)
        folder.mkdir(parents=True, exist_ok=True)
        taken = {entry.name.upper() for entry in folder.iterdir()}
        for _ in range(self.random.randrange(2, 12)):
            name = self.name(special)
            # On Windows, two names can't differ in letter case alone.
            if name.upper() in taken or name.casefold() in {other.casefold() for other in taken}:
                continue
            taken.add(name.upper())
            if depth > 0 and self.random.random() < 0.3:
                (folder / name).mkdir()
                if self.random.random() < 0.8:
                    self.tree(path + "\\" + name, special, depth - 1)
            else:
                self.file(folder / name)
        if self.random.random() < 0.1:
            self.file(folder / "big.log", 5 * 1024**3 + 7)

    def deep(self, path, depth):
        """A chain of folders whose path is much longer than 260 characters."""
        at = self.live.place(path)
        for level in range(depth):
            at = at / f"level {level} of a chain of folders with long names"
            at.mkdir(parents=True)
            if level % 6 == 5:
                self.file(at / "deep.log")

    def shortcuts(self, path):
        folder = self.live.place(path)
        targets = ["C:\\windows\\regedit.exe", "C:\\windows", "c:\\WINDOWS\\System32", "C:\\gone.exe",
                   "C:\\gone\\deep\\x.exe", "C:\\windows\\gone.exe", "C:\\файл\\нет.exe", "D:\\x.exe",
                   "\\\\server\\share\\x.exe", "", "C:\\", "C:\\windows\\notepad.exe\\x", "%windir%\\regedit.exe",
                   "%windir%\\gone.exe", "%none%\\gone.exe", "C:\\%none%\\x", "x.exe"]
        for number, target in enumerate(targets):
            inner = folder if self.random.random() < 0.5 else folder / "Programs"
            inner.mkdir(exist_ok=True)
            (inner / f"{number}.lnk").write_bytes(make_shortcut.shortcut(target))
        (folder / "broken.lnk").write_bytes(b"no shortcut")
        (folder / "empty.lnk").write_bytes(b"")

    def links(self, path):
        """A link to a folder, which both sides walk."""
        (self.live.place(path) / "to keep").symlink_to("../" * 3 + "Keep", target_is_directory=True)
