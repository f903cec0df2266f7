"""The functions that look at folders and files find, and remove, the same on both sides.

The trees have no names that are invalid on Windows, and nothing that the two hosts see differently. Under Wine:
- a link to a file is that file
- a link without a target doesn't exist
- a path through a link to itself ends one link earlier, since drive C is a link, too
- the size of a folder includes the targets of its links"""
import os
import pathlib
import tempfile
import time
import unittest

import sides
import copy_sample
import random_machine
import seed_prefix

PRIVACY = [word for key in ("ietif", "iec", "ieh", "ietifd", "iecd", "ieif", "werud") for word in ("--function", key)]
PAGES = {"privacy": PRIVACY, "system": ["--page", "system"]}
# The functions to clean. Of the Privacy page, only those that run no command.
CLEANED = {"privacy": [*PRIVACY[6:]], "system": PAGES["system"]}
SEEDS = [int(seed) for seed in os.environ.get("TAVIX_PARITY_SEEDS", "1 2 3").split()]
# Time zones in which it is about noon, so that no midnight passes between two runs: without summer time, with it, and
# with that of the southern hemisphere.
NOON = time.gmtime().tm_hour - 12
ZONES = [f"AAA{NOON}", f"AAA{NOON}BBB,M3.2.0,M11.1.0", f"AAA{NOON}BBB,M10.1.0,M4.1.0/3"]
# Every type that a row of these functions can have.
TYPES = {
    "Temporary Internet Files", "Cookies", "History", "Temporary Internet File", "Cookie", "index.dat (Cache)",
    "index.dat (Cookies)", "index.dat (History)", "Recently Used Documents", "Recently Used Document", "Recycle Bins",
    "User Temporary File", "System Temporary File", "Memory Dumps", "CHKDSK File Fragment", "Windows Log File",
    "Windows System Log", "Invalid Shortcut (All User's Start Menu)", "Invalid Shortcut (All User's Desktop)",
    "Invalid Shortcut ({user}'s Start Menu)", "Invalid Shortcut ({user}'s Desktop)", "Invalid Shortcut (Quick Launch)",
    "Uninstall File for Windows Update", "Windows Update Source File", "Menu Order Caches", "Tray Notifications Cache",
    "Windows Size and Location Caches", "Old Prefetch data"}


# The time of a run, and the width that depends on the screen, differ.
OF_THE_HOST = ("lblTime", "lblProgMI", "lblProgMO")


def comparable(objects):
    return [{key: value for key, value in entry.items() if key not in OF_THE_HOST} for entry in objects]


def files(drive):
    """Every file and folder of a drive with its size, except what the program makes when it runs."""
    found = {}
    for folder, folders, names in os.walk(drive):
        for name in (*folders, *names):
            path = os.path.join(folder, name)
            found[os.path.relpath(path, drive)] = os.path.getsize(path) if name in names else None
    return {name: size for name, size in found.items() if not name.startswith(("MORVDataPath", "TVXBak"))}


class FilePages(unittest.TestCase):
    maxDiff = 4000

    @classmethod
    def setUpClass(cls):
        cls.console = sides.native_console()

    def sides_of(self, zone, fill):
        live = sides.Live(zone)
        self.addCleanup(live.close)
        fill(live)
        native = sides.Native(live, self.console)
        self.addCleanup(native.close)
        return live, native

    def assert_same(self, on_live, on_native):
        on_live, on_native = comparable(on_live), comparable(on_native)
        for one, other in zip(on_live, on_native):
            self.assertEqual(one, other)
        self.assertEqual(len(on_live), len(on_native))

    def test_the_sample_machine_has_something_for_every_function(self):
        with tempfile.TemporaryDirectory() as folder:
            sample = pathlib.Path(folder)
            copy_sample.copy(sample)
            live, native = self.sides_of(ZONES[0], lambda live: seed_prefix.copy_tree(
                sample / "drives" / "C", live.drive_c, seed_prefix.profiles(sample, live.machine.prefix)))
        rows = []
        for arguments in PAGES.values():
            on_live = live.run(*arguments)
            self.assert_same(on_live, native.run(*arguments))
            rows += on_live[:-1]
        self.assertEqual({row["Type"].replace(live.user, "{user}") for row in rows}, TYPES)
        print(f"the sample machine: {len(rows)} rows on both sides")

    def test_both_sides_find_and_remove_the_same(self):
        types = set()
        for seed in SEEDS:
            with self.subTest(seed=seed):
                live, native = self.sides_of(ZONES[seed % len(ZONES)],
                                             lambda live: random_machine.RandomMachine(live, seed).fill())
                for page, arguments in PAGES.items():
                    on_live, on_native = live.run(*arguments), native.run(*arguments)
                    self.assert_same(on_live, on_native)
                    types.update(row["Type"].replace(live.user, "{user}") for row in on_live[:-1])
                    print(f"seed {seed}, {page}: {len(on_live) - 1} rows on both sides")
                for page, arguments in CLEANED.items():
                    self.assert_same(live.run("--clean", "--yes", *arguments), native.run("--clean", *arguments))
                left = files(live.drive_c)
                self.assertEqual(left, files(native.drive_c))
                print(f"seed {seed}: {len(left)} files and folders left on both sides")
        self.assertEqual(types, TYPES)


if __name__ == "__main__":
    unittest.main(verbosity=2)
