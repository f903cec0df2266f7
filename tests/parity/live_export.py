#!/usr/bin/env python3
"""A machine that `tavix-console --live --export` wrote gives the same rows as the machine itself, page for page.

Run by CTest over Wine prefixes of several shapes. On Windows: live_export.py CONSOLE [FOLDER] exports the computer it
runs on, scans both and compares; it removes nothing. FOLDER keeps the export; it must be missing."""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

PAGES = ["privacy", "system", "registry", "advanced"]
# They differ from run to run.
OF_THE_RUN = ("lblTime", "lblProgMI", "lblProgMO")


def comparable(objects):
    return [{key: value for key, value in entry.items() if key not in OF_THE_RUN} for entry in objects]


def difference(on_live, on_export):
    """The first row that only one side has, in words; None if all are the same."""
    for one, other in zip(on_live, on_export):
        if one != other:
            return f"live: {one}\nexport: {other}"
    if len(on_live) != len(on_export):
        return f"live: {len(on_live)} lines, export: {len(on_export)}"
    return None


def on_this_computer(console, folder):
    def run(*arguments):
        done = subprocess.run([console, *arguments], stdout=subprocess.PIPE, check=True)
        return comparable(json.loads(line) for line in done.stdout.splitlines())

    now = "2030-01-01T12:00:00"
    subprocess.run([console, "--live", "--export", folder, "--now", now], check=True)
    # The export must not be among the files that are scanned.
    failed = 0
    for page in PAGES:
        on_live = run("--live", "--json", "--now", now, "--page", page)
        on_export = run("--machine", folder, "--json", "--now", now, "--page", page)
        found = difference([row for row in on_live if str(folder) not in json.dumps(row, ensure_ascii=False)], on_export)
        print(f"{page}: {len(on_live) - 1} rows" + (f", but not the same:\n{found}" if found else " on both sides"))
        failed += found is not None
    return failed


if "TAVIX_BUILD" in os.environ:
    import sides
    import copy_sample
    import random_machine
    import registry_page
    import seed_prefix
    from advanced_page import AdvancedMachine
    from file_pages import ZONES

    class WithoutLinks(random_machine.RandomMachine):
        """Wine can make no links, so that an export leaves them out."""

        def links(self, path):
            pass

    class LiveExport(unittest.TestCase):
        maxDiff = 4000

        def export_and_compare(self, live, *more):
            """Exports the prefix, and compares the rows of all pages. Returns the rows."""
            native = sides.native_console()
            now = "2030-01-01T12:00:00"
            out = live.machine.run(live.CONSOLE, "--live", "--export", "C:\\export", "--now", now, *more)
            self.assertIn(b"files written", out if isinstance(out, bytes) else out.encode())
            folder = pathlib.Path(tempfile.mkdtemp(prefix="exported-", dir=sides.driver.WORK)) / "machine"
            self.addCleanup(shutil.rmtree, folder.parent)
            shutil.move(live.drive_c / "export", folder)
            # A run over a machine changes it: the program's settings are written.
            rows = []
            zone = {name: value for name, value in os.environ.items() if name != "TZ"}
            for page in PAGES:
                on_live = comparable(live.run("--now", now, "--page", page))
                done = subprocess.run([native, "--machine", folder, "--json", "--now", now, "--page", page], check=True,
                                      stdout=subprocess.PIPE, env=zone)
                on_export = comparable(json.loads(line) for line in done.stdout.splitlines())
                self.assertIsNone(difference(on_live, on_export), page)
                rows += on_live[:-1]
                print(f"{page}: {len(on_live) - 1} rows on both sides")
            return rows

        def live(self, zone="UTC0"):
            live = sides.Live(zone)
            self.addCleanup(live.close)
            return live

        def test_a_fresh_prefix(self):
            self.assertGreater(len(self.export_and_compare(self.live())), 100)

        def test_a_prefix_with_the_sample_machine(self):
            live = self.live(ZONES[1])
            with tempfile.TemporaryDirectory() as folder:
                sample = pathlib.Path(folder)
                copy_sample.copy(sample)
                seed_prefix.copy_tree(sample / "drives" / "C", live.drive_c,
                                      seed_prefix.profiles(sample, live.machine.prefix))
            registry_page.seed(live)
            rows = self.export_and_compare(live)
            self.assertGreater(len({row["Type"] for row in rows}), 50)

        def test_a_prefix_with_random_files_and_shortcuts(self):
            live = self.live(ZONES[2])
            WithoutLinks(live, 11).fill()
            AdvancedMachine(live, 12).fill()
            self.assertGreater(len(self.export_and_compare(live)), 200)


if __name__ == "__main__":
    if len(sys.argv) > 1 and not sys.argv[1].startswith("-"):
        target = sys.argv[2] if len(sys.argv) > 2 else str(pathlib.Path(tempfile.mkdtemp()) / "machine")
        sys.exit(1 if on_this_computer(sys.argv[1], target) else 0)
    unittest.main(verbosity=2)
