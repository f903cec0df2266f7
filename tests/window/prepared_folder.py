"""The Advanced page over a folder with links, long paths, short names, denied folders and other drives, as far as the
machine has them (tools/prepare_windows.py). Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest prepared_folder"""
import json
import unittest

import driver  # first: it adds the folder of the tools to the path
import prepare_windows


LINKS = {prepare_windows.junction: "junction", prepare_windows.link_to_a_folder: "link to a folder"}

DRIVES = {prepare_windows.fat_drive: prepare_windows.FAT, prepare_windows.ntfs_drive: prepare_windows.NTFS}


class Prepared(unittest.TestCase):
    FOLDER = "Prepared"

    def setUp(self):
        self.machine = driver.Machine()
        self.addCleanup(self.machine.close)
        self.folder = self.machine.drive_c / self.FOLDER
        # Wine shows a link as what it leads to.
        kinds = [kind for kind in prepare_windows.KINDS if driver.ON_WINDOWS or kind not in LINKS]
        self.made, missing = prepare_windows.make(self.folder, kinds)
        self.addCleanup(prepare_windows.remove, self.folder)
        for kind, reason in missing.items():
            print(f"not made: {prepare_windows.words(kind)} ({reason})")

    def console(self, *arguments):
        """The rows of a scan for junk, as (name, folder)."""
        scopes = [f"C:\\{self.FOLDER}\\scanned"]
        scopes += [drive + "\\scanned" for kind, drive in DRIVES.items() if kind in self.made]
        said = self.machine.run(driver.BUILD / "tavix-console.exe", "--live", "--json", "--page", "advanced", "--function",
                                "Junk Files", *(word for scope in scopes for word in ("--scope", scope)), *arguments)
        lines = [json.loads(line) for line in said.splitlines()]
        return sorted((line["Name"], line["Location"]) for line in lines if "row" in line)

    def windows_path(self, file):
        """The path of a file on drive C: or on another drive of the machine."""
        plain = str(file).removeprefix("\\\\?\\")
        if not driver.ON_WINDOWS:
            plain = "C:\\" + str(file.relative_to(self.machine.drive_c))
        return plain.replace("/", "\\")

    def test_all_files_go_but_not_those_that_links_lead_to(self):
        files = [file for found in self.made.values() for file in found]
        self.assertGreaterEqual(len(files), 3)
        links = [self.folder / "scanned" / name for kind, name in LINKS.items() if kind in self.made]
        behind_links = sorted(("kept.bak", self.windows_path(link)) for link in links)
        self.assertEqual(bool(links), driver.ON_WINDOWS)
        found = sorted((file.name, self.windows_path(file.parent)) for file in files)
        self.assertEqual(self.console(), sorted(found + behind_links))
        self.assertEqual([file for file in files if not file.exists()], [], "a scan removes nothing")
        self.console("--clean", "--yes")
        self.assertEqual([file for file in files if file.exists()], [])
        self.assertTrue((self.folder / "kept" / "kept.bak").exists())
        self.assertEqual([link for link in links if not link.exists()], [])
        if prepare_windows.denied_folder in self.made:
            self.assertTrue((self.folder / "scanned" / "denied").exists())
        self.assertEqual(self.console(), behind_links)


if __name__ == "__main__":
    unittest.main(verbosity=2)
