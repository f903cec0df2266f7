"""The Registry page finds the same in a prefix's own registry as natively in an export of that registry.

The native side has the files of drive C as hard links, and neither side has another drive. Some files are on one side
only (the console itself, files that the runs make), but no registry entry names them. Both sides ignore letter case in
file names."""
import collections
import pathlib
import tempfile
import unittest

import sides
import registry_text
import seed_prefix

BRANCH = "WOW6432NODE\\"
OF_WINE = ("HKEY_LOCAL_MACHINE\\SYSTEM", "HKEY_LOCAL_MACHINE\\HARDWARE")
HIVES = ["HKEY_LOCAL_MACHINE", "HKEY_CURRENT_USER"]


def export(live, folder):
    """Puts the prefix's registry into a machine folder."""
    folder.mkdir()
    for hive in HIVES:
        live.machine.run("regedit", "/E", f"C:\\{hive}.reg", hive)
        (live.drive_c / f"{hive}.reg").rename(folder / f"{hive}.reg")


def seed(live):
    """Puts the sample machine's registry and files into the prefix."""
    sample = sides.SOURCE / "res" / "sample-machine"
    for file in sorted((sample / "registry").glob("*.reg")):
        live.machine.seed(file.read_text(encoding="utf-8-sig").partition("\n")[2])
    seed_prefix.copy_tree(sample / "drives" / "C", live.drive_c, seed_prefix.profiles(sample, live.machine.prefix))


def without(keys, tag):
    """The registry after the repair of a row. Its key or value may have gone with another row."""
    kind, _, payload = tag.partition(": ")
    hive, key, *name = payload.split(", ")
    places = [hive + "\\" + key]
    if hive == "HKEY_CLASSES_ROOT":
        places = [root + "\\Software\\Classes\\" + key for root in ("HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE")]
    there = [place for place in places if place.upper() in keys]
    if not there:
        return keys
    return registry_text.without_value(keys, there[0], name[0]) if name else registry_text.without_key(keys, there[0])


def without_time(objects):
    return [{key: value for key, value in entry.items() if key != "lblTime"} for entry in objects]


class RegistryPage(unittest.TestCase):
    maxDiff = 4000

    def both(self, live, *arguments):
        native = sides.Native(live, sides.native_console())
        self.addCleanup(native.close)
        export(live, native.folder / "registry")
        on_live, on_native = (without_time(side.run("--page", "registry", *arguments)) for side in (live, native))
        rows = lambda objects: [row for row in objects if "Type" in row]
        for one, other in zip(on_live, on_native):
            self.assertEqual(one, other)
        self.assertEqual(len(on_live), len(on_native))
        print(dict(collections.Counter(row["Type"] for row in rows(on_live) if row["stage"] == "scan")))
        return rows(on_live)

    def live(self):
        live = sides.Live("UTC")
        self.addCleanup(live.close)
        return live

    def test_a_fresh_prefix(self):
        self.assertGreater(len(self.both(self.live())), 100)

    def test_a_prefix_with_the_sample_machine(self):
        live = self.live()
        seed(live)
        found = self.both(live)
        self.assertEqual(len({row["Type"] for row in found}), 17)

    def test_repair_takes_exactly_the_ticked_keys_and_values_of_the_prefix(self):
        live = self.live()
        seed(live)
        found = self.both(live)
        before = self.registry(live)
        left = [row for row in live.run("--page", "registry", "--clean", "--yes") if row["stage"] == "clean" and "Type" in row]
        self.assertEqual(left, [{**row, "row": number, "stage": "clean"} for number, row in
                                enumerate((row for row in found if not row["Checked"]), 1)])
        expected = before
        for row in found:
            if row["Checked"]:
                expected = without(expected, row["Tag"])
        after = self.registry(live)
        # The branch for 32-bit programs has links to some keys: what goes from these keys goes from the branch, too.
        twin = lambda key: key.replace(BRANCH, "")
        linked = {key for key in before if twin(key) != key and after.get(key) == after.get(twin(key))}
        gone = {key for key in before if key not in after and key not in linked}
        self.assertEqual(sorted(gone), sorted(set(before) - set(expected)))
        self.assertEqual({key: after[key] for key in set(expected) - linked if after.get(key) != expected[key]}, {})
        self.assertEqual(sorted(set(after) - set(before)), [])
        print(f"{len(before)} keys before, {len(after)} after")
        self.both(live)

    @staticmethod
    def registry(live):
        """The registry without the branches that Wine's services rewrite at each start. No row names these."""
        with tempfile.TemporaryDirectory() as folder:
            export(live, pathlib.Path(folder) / "registry")
            keys = registry_text.read_folder(pathlib.Path(folder) / "registry")
        return {key: values for key, values in keys.items() if not key.startswith(OF_WINE)}


if __name__ == "__main__":
    unittest.main(verbosity=2)
