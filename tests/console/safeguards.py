"""What a clean leaves alone, seen on the disk: links, the program's own data, backup folders, folders that were filled."""
import os
import unittest

from machine_case import Machine, SampleCopy

METHODS = ("D", "R", "S")


def files(folder):
    """The content of each file below, links not followed."""
    found = {}
    for path, _, names in os.walk(folder):
        for name in names:
            file = os.path.join(path, name)
            if not os.path.islink(file):
                with open(file, "rb") as content:
                    found[os.path.relpath(file, folder)] = content.read()
    return found


class Links(SampleCopy):
    def test_a_one_click_run_takes_nothing_through_a_link_in_the_temporary_folder(self):
        temp = self.folder / "drives/C/WINDOWS/Temp"
        temp.mkdir(exist_ok=True)
        for i in range(20):
            self.write(f"drives/C/Precious/deep/{i}.txt", str(i))
        (temp / "x").symlink_to("../..")
        (temp / "y").symlink_to("../../Precious")
        before = files(self.folder / "drives/C/Precious")
        rows = [o for o in self.objects("--one-click") if o["stage"] == "clean"][:-1]
        self.assertEqual(files(self.folder / "drives/C/Precious"), before)
        self.assertTrue((temp / "y").is_symlink())
        linked = [row for row in rows if "\\Temp\\y" in row["Location"]]
        self.assertEqual(len(linked), 20, "the rows stay, ticked")
        self.assertTrue(all(row["Checked"] for row in linked))

    def test_the_temporary_folder_itself_may_be_a_link(self):
        self.write("drives/C/Far/a.txt", "a")
        (self.folder / "drives/C/Moved").symlink_to("Far")
        facts = (self.folder / "machine.ini").read_text(encoding="utf-8")
        lines = [r"System=C:\Moved" if line.startswith("System=C:") else line for line in facts.splitlines()]
        self.write("machine.ini", "\n".join(lines) + "\n")
        _, left, _ = self.clean("--page", "system", "--function", "Temporary Files",
                                "--set", "Cleaning Method/Method=D")
        self.assertFalse((self.folder / "drives/C/Far/a.txt").exists())
        self.assertFalse([row for row in left if row["Location"] == r"C:\Moved"])


class OwnFolders(Machine):
    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\WINDOWS\nUSERNAME=Ann\n[Drives]\nC=2,System\n")
        self.write("drives/C/Desk/a.tmp", "saved")

    def advanced(self, *arguments):
        return self.clean("--page", "advanced", *arguments)

    def test_the_backup_folder_survives_the_run_that_saves_into_it(self):
        self.advanced("--set", "Cleaning Method/Method=S")
        self.assertEqual(files(self.folder / "drives/C/TVXBak"), {"a.tmp": b"saved"})

    def test_the_programs_data_survives_a_clean_of_everything(self):
        for method in METHODS:
            rows, left, _ = self.advanced("--set", f"Cleaning Method/Method={method}")
            data = self.folder / "drives/C/MORVDataPath/TVX"
            names = sorted(p.name for p in data.iterdir() if p.is_file())
            self.assertEqual(names, ["TVX data folder, please do not delete it", "defjunk.dll", "tvx.dll",
                                     "userjunk.dll"], method)
            listed = [row["Name"] for row in rows if "MORVDataPath" in row["Location"]]
            kept = [row["Name"] for row in left if "MORVDataPath" in row["Location"] and row["Checked"]]
            self.assertEqual(kept, listed, method)
            self.assertTrue(listed)

    def test_a_saved_file_is_not_taken_by_the_next_clean(self):
        self.advanced("--set", "Cleaning Method/Method=S")
        for method in METHODS:
            self.advanced("--set", f"Cleaning Method/Method={method}")
            self.assertEqual(files(self.folder / "drives/C/TVXBak"), {"a.tmp": b"saved"}, method)


if __name__ == "__main__":
    unittest.main()
