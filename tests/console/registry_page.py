"""The Registry page over real exports and the sample machine, compared with a count that doesn't use the program."""
import collections
import shutil
import sys
import unittest

from machine_case import TOP, Machine, SampleCopy, singular
sys.path.insert(0, str(TOP / "tools"))
import count_registry_issues
import registry_text

EXPORTS = TOP.parent / "shared" / "data" / "reg"
UNTICKED = ("Appearance Schemes", "Cursor Schemes", "Internet Country Codes", "Time Zones")


def function_of(row, functions):
    return next(function for function in functions if singular(function) == singular(row["Type"]))


def per_function(rows, functions):
    found = collections.Counter(function_of(row, functions) for row in rows)
    return {function: found[function] for function in functions}


class Counted(Machine):
    def check(self, name):
        """Checks that every function has as many rows as were counted. Returns the rows."""
        counted = count_registry_issues.count(self.folder)
        rows, _ = self.scan("--page", "registry")
        self.assertEqual(per_function(rows, counted), counted, name)
        print(f"{name}: {list(counted.values())}")
        return rows


@unittest.skipUnless(EXPORTS.is_dir(), f"the exports of real machines are not there: {EXPORTS}")
class RealExports(Counted):
    def machine(self, exports):
        self.write("machine.ini", "[Environment]\nWinDir=C:\\WINDOWS\n[Special Folders]\nFonts=C:\\WINDOWS\\Fonts\n"
                   "AllUsersPrograms=C:\\All\nPrograms=C:\\Mine\n")
        (self.folder / "registry").mkdir(exist_ok=True)
        for export in exports:
            shutil.copy(EXPORTS / export, self.folder / "registry")

    def make_files(self, rows):
        """Makes every second one of the files and folders that were found missing."""
        made = set()
        for row in rows:
            name = row["Name"]
            if row["Type"] == "Font Issue":
                continue
            if len(name) > 3 and name[1:3] == ":\\" and not set('<>"|?*:') & set(name[3:]):
                made.add(name.upper().rstrip("\\"))
        for name in sorted(made)[::2]:
            at = self.folder / "drives" / name[0]
            at = at.joinpath(*name[3:].split("\\"))
            if not at.exists():
                at.parent.mkdir(parents=True, exist_ok=True)
                at.touch()
        return len(made)

    def test_each_export(self):
        for export in sorted(EXPORTS.glob("*.reg")):
            with self.subTest(export=export.name):
                shutil.rmtree(self.folder / "registry", ignore_errors=True)
                shutil.rmtree(self.folder / "drives", ignore_errors=True)
                self.machine([export.name])
                rows = self.check(export.name)
                if self.make_files(rows) > 0:
                    fewer = self.check(export.name + ", half of the files there")
                    self.assertLess(len(fewer), len(rows))

    def test_two_together(self):
        self.machine(["windows-nt4-machine.reg", "windows-7-user.reg"])
        self.check("a machine's and a user's")


class Sample(Counted, SampleCopy):
    def test_every_function_finds_something(self):
        self.check("sample machine")
        found = count_registry_issues.count(self.folder)
        self.assertEqual([function for function, rows in found.items() if rows == 0], [])

    def test_a_function_alone_finds_what_it_finds_among_the_others(self):
        rows, _ = self.scan("--page", "registry")
        functions = count_registry_issues.count(self.folder)
        for function in functions:
            alone, _ = self.scan("--page", "registry", "--function", function)
            without_number = lambda found: [{**row, "row": 0} for row in found]
            self.assertEqual(without_number(alone),
                             without_number(row for row in rows if function_of(row, functions) == function))

    def test_the_four_lists_start_without_ticks(self):
        rows, labels = self.scan("--page", "registry")
        self.assertIs(labels["cbxAll"], True)
        functions = count_registry_issues.count(self.folder)
        for row in rows:
            self.assertEqual(row["Checked"], function_of(row, functions) not in UNTICKED)
            self.assertEqual((row["Size"], row["SizeKey"]), ("N/A", "00000000.0"))
            self.assertTrue(row["Location"].startswith("Registry: "))
        self.assertEqual(labels["lblSum"], f"Sum: {len(rows)} items  found.")

    def test_repair_takes_exactly_the_keys_and_values_of_the_ticked_rows(self):
        # The first run writes everything in the program's own form.
        self.clean("--page", "privacy", "--function", "iertu")
        before, files = self.registry(), self.snapshot()
        found, left, labels = self.clean("--page", "registry")
        self.assertEqual({function_of(row, UNTICKED) for row in left}, set(UNTICKED))
        expected = before
        for row in found:
            if row["Checked"]:
                expected = self.without(expected, row["Tag"])
        self.assertLess(len(expected), len(before))
        self.assertEqual(self.registry(), expected)
        # The start checks the product's site for an update.
        same = lambda snapshot: {name: content for name, content in snapshot.items()
                                 if not name.startswith(("registry", "journal.jsonl"))}
        self.assertEqual(same(self.snapshot()), same(files))
        self.assertEqual(labels["lblSum"], f"Sum: {len(found) - len(left)} items, 0. KB cleaned.")

    @staticmethod
    def without(keys, tag):
        kind, _, payload = tag.partition(": ")
        hive, key, *name = payload.split(", ")
        path = hive + "\\" + key
        if hive == "HKEY_CLASSES_ROOT":
            user = "HKEY_CURRENT_USER\\Software\\Classes\\" + key
            path = user if user.upper() in keys else "HKEY_LOCAL_MACHINE\\Software\\Classes\\" + key
        if kind == "RI":
            return registry_text.without_value(keys, path, name[0])
        return registry_text.without_key(keys, path)

    def test_a_row_ticked_by_hand_goes(self):
        rows, _ = self.scan("--page", "registry")
        zone = next(row for row in rows if row["Type"] == "Time Zone")
        ticked = [word for row in rows if row["Checked"] for word in ("--untick", row["row"])]
        before = self.registry()
        _, left, _ = self.clean("--page", "registry", *ticked, "--tick", zone["row"])
        self.assertEqual(len(left), len(rows) - 1)
        self.assertEqual(self.registry(), self.without(before, zone["Tag"]))


if __name__ == "__main__":
    unittest.main()
