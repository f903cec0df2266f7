"""The advanced scan finds the same on both sides, over random trees with random settings.

The trees have nothing that the two hosts see differently (see file_pages.py). Under Wine a scan may change times of
access, so these are far from the limits."""
import os
import unittest

import sides
import random_machine
from file_pages import ZONES, comparable

SEEDS = [int(seed) for seed in os.environ.get("TAVIX_PARITY_SEEDS", "1 2 3").split()]
FUNCTIONS = ["Invalid Shortcuts", "Duplicate Files", "Empty Folders and Files", "Last Accessed 30 Days Before",
             "Redundant DLLs", "Junk Files"]
TYPES = {"Invalid Shortcut", "Empty Folder", "Empty File", "Last Accessed 30 Days Before", "Redundant DLL", "Junk File"}
JUNK = ["x.old", "X.BAK", "errorlog.txt", "file0001.chk", "chklist.ms", "file12._dd", "a.%%%", "a.@@@", "a.$$$", "mscreate.dir",
        "a.log", "A.LOG1", "catalog.txt", "a.5res", "a.#res", "01234567.nch", "Thumbs.db", "a.pch", "b.~x", "~b.c", "c.12~",
        "c.12$", "c._mp", "c.a$b", "c.^", "kernel32.dll", "user32.DLL", "own.dll", "My.mine", "ДЕЛО.дело", "two.mine.tmp"]
USER_TYPES = "Joined\t*.joined\tY\tY\tU\r\nMine\t*.mine\tY\tN\tU\r\nLetters\t*.дел?\tN\tN\tU\r\n\r\nSet\t[a-c]*.[!t]mp\tY\tY\tU\r\n"


class AdvancedMachine(random_machine.RandomMachine):
    """Trees below C:\\Work and C:\\Other, with empty and deep folders among them."""

    def fill(self):
        for path in ("C:\\Work", "C:\\Work\\Sub", "C:\\Work\\RECYCLER", "C:\\Other", "C:\\RECYCLED"):
            for _ in range(3):
                self.tree(path, JUNK)
        self.shortcuts("C:\\Work\\Sub")
        self.deep("C:\\Work", 25)
        for number in range(8):
            path = "C:\\Work\\hollow %d" % number
            for _ in range(self.random.randrange(4)):
                path += self.random.choice(["\\a", "\\b", "\\Ä"])
            folder = self.live.place(path)
            folder.mkdir(parents=True, exist_ok=True)
            if self.random.random() < 0.6:
                self.file(folder / "zero.log", self.random.choice([0, 0, 0, 7]))
        data = self.live.place("C:\\MORVDataPath\\TVX")
        data.mkdir(parents=True)
        (data / "userjunk.dll").write_bytes(USER_TYPES.encode())

    def arguments(self):
        """Settings, functions and scope of one scan."""
        chosen = self.random.sample(FUNCTIONS, self.random.choice([1, 3, 6, 6]))
        words = ["--set", "Other Options/Last Accessed File=30"]
        words += ["--set", "Duplicate Files/Only Common=" + self.random.choice("YNx")]
        words += ["--set", "Other Options/Except Folders=" + self.random.choice(
            ["", "Recycle Bin/All Recycle Bins", "c:\\WORK\\s?b/text|C:\\None/x", "C:\\Other\\/text|Recycle Bin/All Recycle Bins"])]
        for function in chosen:
            words += ["--function", function]
        scope = self.random.choice([["C:\\Work", "C:\\Other"], ["C:\\Work\\Sub", "C:\\Work\\RECYCLER"],
                                    ["C:\\Work\\Sub", "C:\\RECYCLED", "C:\\MORVDataPath"], ["C:"]])
        for key in scope:
            words += ["--scope", key]
        return words


class AdvancedPage(unittest.TestCase):
    maxDiff = 4000

    def test_both_sides_find_the_same(self):
        console, types = sides.native_console(), set()
        for seed in SEEDS:
            with self.subTest(seed=seed):
                live = sides.Live(ZONES[seed % len(ZONES)])
                self.addCleanup(live.close)
                machine = AdvancedMachine(live, seed)
                machine.fill()
                native = sides.Native(live, console)
                self.addCleanup(native.close)
                scans = [machine.arguments() for _ in range(6)]
                scans.append([word for function in FUNCTIONS for word in ("--function", function)] + ["--scope", "C:\\Work"])
                for arguments in scans:
                    arguments = ["--page", "advanced", *arguments]
                    on_live, on_native = comparable(live.run(*arguments)), comparable(native.run(*arguments))
                    for one, other in zip(on_live, on_native):
                        self.assertEqual(one, other, arguments)
                    self.assertEqual(len(on_live), len(on_native), arguments)
                    types.update(row["Type"] for row in on_live[:-1])
                    print(f"seed {seed}: {len(on_live) - 1} rows on both sides")
        self.assertEqual(types, TYPES)


if __name__ == "__main__":
    unittest.main(verbosity=2)
