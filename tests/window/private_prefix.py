"""The prefixes that `./run`, the tests and the release's check make can't reach this machine. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest private_prefix"""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import driver  # first: it adds the folder of the tools to the path
import copy_sample
import seed_prefix
import wine_prefix
from driver import SCOPE

SAMPLE = driver.SOURCE / "res" / "sample-machine"


class Private(unittest.TestCase):
    def folder(self):
        driver.WORK.mkdir(parents=True, exist_ok=True)
        folder = pathlib.Path(tempfile.mkdtemp(prefix="private-", dir=driver.WORK))
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        return folder

    def prefix(self):
        prefix = self.folder() / "prefix"
        wine_prefix.make(prefix)
        self.addCleanup(wine_prefix.stop, prefix)
        return prefix

    def assert_has_no_way_out(self, prefix):
        devices = {device.name for device in (prefix / "dosdevices").iterdir()}
        self.assertEqual({name for name in devices if ":" in name}, {"c:"})
        links = [entry for entry in (prefix / "drive_c").rglob("*") if entry.is_symlink()]
        self.assertEqual(links, [])
        self.assertEqual(wine_prefix.ways_out(prefix), [])
        users = [entry.name for entry in (prefix / "drive_c" / "users").iterdir() if entry.name != "Public"]
        self.assertEqual(len(users), 1)
        self.assertTrue((prefix / "drive_c" / "users" / users[0] / "Documents").is_dir())

    def drives_in_the_window(self, machine):
        """The drives that the Advanced page offers."""
        program = driver.Program(machine)
        try:
            program.key("a")
            shown = program.wait_until("the drives", lambda s: s.control(SCOPE)["visible"] and any(
                "(C:)" in node["node"] for node in s.nodes))
            return [node["node"].strip() for node in shown.nodes if node["node"].endswith(":)")]
        finally:
            program.close()


class OfRun(Private):
    def test_it_has_the_sample_machine_and_drive_c_alone(self):
        prefix = self.folder() / "run"
        sample = self.folder() / "sample"
        copy_sample.copy(sample)
        seed_prefix.make_seeded(sample, prefix)
        self.assertTrue(wine_prefix.is_current(prefix))
        self.assert_has_no_way_out(prefix)
        machine = driver.Machine.on(prefix, "1024x768")
        self.addCleanup(machine.leave)
        self.assertEqual(self.drives_in_the_window(machine), ["(C:)"])
        self.assert_has_no_way_out(prefix)

        names = {path.relative_to(prefix / "drive_c").as_posix().upper() for path in (prefix / "drive_c").rglob("*")}
        user = next(entry.name for entry in (prefix / "drive_c" / "users").iterdir() if entry.name != "Public")
        wanted = {path.relative_to(SAMPLE / "drives" / "C").as_posix().replace("Users/Ann", "Users/" + user).upper()
                  for path in (SAMPLE / "drives" / "C").rglob("*")}
        self.assertGreater(len(wanted), 50)
        self.assertEqual(wanted - names, set())
        self.assertNotEqual(machine.registry("HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedURLs"), {})


class OfTheTests(Private):
    def test_a_machine_of_the_window_tests_and_of_the_release_has_none(self):
        machine = driver.Machine()
        self.addCleanup(machine.close)
        self.assert_has_no_way_out(machine.prefix)
        self.assertEqual(self.drives_in_the_window(machine), ["(C:)"])
        for drive, status in (("C:", 0), ("Z:", 2), ("D:", 2)):
            with self.subTest(drive=drive):
                machine.run(driver.BUILD / "tavix-console.exe", "--live", "--page", "advanced", "--function",
                            "Empty Folders and Files", "--scope", drive, allowed=(status,))
        self.assert_has_no_way_out(machine.prefix)

    def test_the_chooser_of_folders_offers_none_of_this_machine(self):
        machine = driver.Machine()
        self.addCleanup(machine.close)
        above, _, key = wine_prefix.HOST_IN_CHOOSER.replace("HKLM", "HKEY_LOCAL_MACHINE").rpartition("\\")
        offered = [name.upper() for name in machine.registry(above)]
        self.assertGreater(len(offered), 1)
        self.assertEqual([name for name in offered if name.endswith(key)], [])

    def test_folders_that_a_clean_removed_come_back_as_folders_and_not_as_links_into_the_home(self):
        prefix, home = self.prefix(), self.folder()
        user = next(entry for entry in (prefix / "drive_c" / "users").iterdir() if entry.name != "Public")
        for name in ("Desktop", "Documents", "Downloads", "Music", "Pictures", "Videos"):
            (home / name).mkdir()
            (user / name).rmdir()
        subprocess.run([wine_prefix.WINE, "wineboot", "-u"], check=True, stderr=subprocess.DEVNULL,
                       env={**os.environ, "WINEPREFIX": str(prefix), "HOME": str(home)})
        self.assert_has_no_way_out(prefix)

    def test_an_older_prefix_is_replaced(self):
        prefix = self.prefix()
        self.assertTrue(wine_prefix.is_current(prefix))
        (prefix / "dosdevices" / "z:").symlink_to("/")
        (prefix / "ready").write_text("", encoding="utf-8")  # as in older prefixes
        self.assertFalse(wine_prefix.is_current(prefix))
        wine_prefix.make(prefix)
        self.assertTrue(wine_prefix.is_current(prefix))
        self.assert_has_no_way_out(prefix)


class Guarded(Private):
    """Nothing is started in a prefix with a way out."""

    def start(self, prefix):
        done = subprocess.run([wine_prefix.WINE, "cmd", "/c", "echo started>C:\\started.txt"], check=False,
                              env={**os.environ, "WINEPREFIX": str(prefix)}, capture_output=True, text=True)
        started = (prefix / "drive_c" / "started.txt").exists()
        self.assertEqual(done.returncode, 0 if started else 125, done.stderr)
        return started

    def assert_refused(self, prefix, way):
        self.assertEqual(wine_prefix.ways_out(prefix), [str(way)])
        self.assertFalse(self.start(prefix))
        way.unlink()

    def test_by_a_drive_or_by_a_link(self):
        prefix = self.prefix()
        outside = self.folder()
        drive_c = prefix / "drive_c"
        for place, target in (
                (prefix / "dosdevices" / "z:", "/"), (prefix / "dosdevices" / "d:", outside),
                (drive_c / "users" / "mine", outside), (drive_c / "up", "../.."),
                (drive_c / "windows" / "temp" / "file", outside / "missing")):
            with self.subTest(place=place.name):
                place.symlink_to(target)
                self.assert_refused(prefix, place)
        (drive_c / "Links").mkdir()
        (drive_c / "Links" / "inside").symlink_to("../windows")
        (drive_c / "Links" / "whole").symlink_to(drive_c / "users")
        self.assertEqual(wine_prefix.ways_out(prefix), [])
        self.assertTrue(self.start(prefix))

    def test_without_the_folder_of_devices_that_wine_would_make(self):
        prefix = self.folder()
        (prefix / "drive_c").mkdir()
        self.assertFalse(self.start(prefix))
        self.assertFalse((prefix / "dosdevices").exists())


class Copying(Private):
    def test_files_and_folders_go_in_and_come_out(self):
        prefix, outside = self.prefix(), self.folder()
        (outside / "tree" / "below").mkdir(parents=True)
        (outside / "tree" / "below" / "file.txt").write_text("content", encoding="ascii")
        self.assertEqual(wine_prefix.copy_in(prefix, outside / "tree", "A/B"), "C:\\A\\B\\tree")
        wine_prefix.copy_out(prefix, "A/B/tree/below/file.txt", outside / "back.txt")
        self.assertEqual((outside / "back.txt").read_text(encoding="ascii"), "content")
        self.assertIsNone(wine_prefix.windows_path(prefix, outside / "back.txt"))

    def test_a_program_of_this_machine_runs_from_drive_c_with_its_texts_beside_it(self):
        prefix = self.prefix()
        done = subprocess.run([wine_prefix.WINE, driver.BUILD / "tavix-console.exe", "--live", "--json", "--function",
                               "iertu"], env={**os.environ, "WINEPREFIX": str(prefix)}, check=True,
                              stdout=subprocess.PIPE)
        self.assertIn("lblSum", json.loads(done.stdout.splitlines()[-1]))
        beside = {entry.name for entry in (prefix / "drive_c" / wine_prefix.PROGRAMS).iterdir()}
        self.assertLessEqual({"tavix-console.exe", "tips.dll", "menus.dll", "res"}, beside)


if __name__ == "__main__":
    unittest.main(verbosity=2)
