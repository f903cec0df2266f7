"""A link, or another user's folder, is where the real program keeps its data. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest foreign_data_window"""
import os
import unittest

import driver
import update_program

TAVIX = driver.BUILD / "tavix.exe"
SAID = "In the place of its own data Tavix has found something that others may have put there"


def state(folder):
    """The state of everything in a folder. Any write and any change of an attribute makes a difference."""

    def facts(path):
        found = path.lstat()
        content = path.read_bytes() if path.is_file() else None
        attributes = {name: os.getxattr(path, name) for name in os.listxattr(path)}
        return found.st_mode, found.st_mtime_ns, found.st_ctime_ns, attributes, content

    return {str(path.relative_to(folder)): facts(path) for path in (folder, *folder.rglob("*"))}


class ForeignData(update_program.UpdateTest):
    def setUp(self):
        super().setUp()
        self.data = self.machine.drive_c / "MORVDataPath" / "TVX"
        self.victim = self.machine.drive_c / "Victim"
        self.machine.run("cmd", "/c", "rmdir /s /q C:\\MORVDataPath C:\\Victim", allowed=(0, 1, 2))
        (self.victim / "below").mkdir(parents=True)
        (self.victim / "tvx.dll").write_text("[Duplicate Files]\r\nCommon Types=*.x\r\n", encoding="ascii")
        (self.victim / "below" / "file.txt").write_text("kept", encoding="ascii")
        self.addCleanup(self.remove_link)

    def remove_link(self):
        for place in (self.data, self.data.parent):
            if place.is_symlink():
                place.unlink()

    def refuse(self, place):
        before = state(self.victim)
        process = self.start(TAVIX)
        said = next(text for text in self.box() if text.startswith(SAID))
        self.screenshot("foreign-data")
        windows = "C:\\" + "\\".join(place.relative_to(self.machine.drive_c).parts)
        self.assertTrue(said.endswith("\\r\\n\\r\\n" + windows), said)
        self.assertEqual(state(self.victim), before)
        self.press("Cancel")
        self.assertEqual(process.wait(timeout=driver.PATIENCE), 0)
        self.assertEqual(state(self.victim), before)
        self.assertTrue(place.is_symlink())

    def test_cancel_ends_the_program_and_leaves_what_the_data_folder_leads_to(self):
        self.data.parent.mkdir()
        self.data.symlink_to("../Victim")
        self.refuse(self.data)
        self.assertEqual([path.name for path in self.data.parent.iterdir()], ["TVX"])

    def test_and_what_the_folder_above_it_leads_to(self):
        self.data.parent.symlink_to("Victim")
        self.refuse(self.data.parent)

    def test_ok_never_renames_what_a_link_leads_to(self):
        """Asked for the link itself, Wine opens its target. So the link can't be renamed and the program ends."""
        self.data.parent.mkdir()
        self.data.symlink_to("../Victim")
        before = state(self.victim)
        process = self.start(TAVIX)
        self.press("OK")
        driver.wait_for("the second box", lambda: any("could not be given another name" in text for text in self.box()))
        self.press("OK")
        self.assertEqual(process.wait(timeout=driver.PATIENCE), 0)
        self.assertEqual(state(self.victim), before)
        self.assertTrue(self.data.is_symlink())

    @unittest.skipIf(driver.ON_WINDOWS or os.geteuid() != 0, "only root can give a folder to another user")
    def test_another_users_data_folder_is_asked_about_and_left_alone(self):
        """Under Wine the program is always elevated."""
        self.data.mkdir(parents=True)
        (self.data / "tvx.dll").write_text("[Duplicate Files]\r\nCommon Types=*.x\r\n", encoding="ascii")
        os.chown(self.data, 65534, 65534)
        before = state(self.data.parent)
        process = self.start(TAVIX)
        said = next(text for text in self.box() if text.startswith(SAID))
        self.assertTrue(said.endswith("\\r\\n\\r\\nC:\\MORVDataPath\\TVX"), said)
        self.assertEqual(state(self.data.parent), before)
        self.press("Cancel")
        self.assertEqual(process.wait(timeout=driver.PATIENCE), 0)
        self.assertEqual(state(self.data.parent), before)

    def test_the_first_start_closes_the_data_folders_to_others(self):
        backup = self.machine.drive_c / "TVXBak"
        for folder in (self.data, backup):
            folder.mkdir(parents=True, exist_ok=True)
            folder.chmod(0o777)
        self.data.parent.chmod(0o777)
        process = self.start(TAVIX)
        self.wait_for_the_window_alone(process)
        for folder in (self.data.parent, self.data, backup):
            self.assertEqual(folder.stat().st_mode & 0o002, 0, folder)
        self.close_window(process)


if __name__ == "__main__":
    unittest.main(verbosity=2)
