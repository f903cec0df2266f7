"""Programs and libraries named like the system's own lie beside the program and in the current folder. None is run."""
import shutil
import subprocess
import unittest

import driver
import update_program
from driver import wait_for

PROGRAMS = ("HH.exe", "hh.com", "RunDll32.exe", "regedit.exe", "ntsd.exe")
# Not version.dll: Wine's own user32 loads it before the program's first instruction, and from these folders.
LIBRARIES = ("uxtheme.dll", "winhttp.dll", "shell32.dll", "shlwapi.dll", "oleaut32.dll")


class Planted(update_program.UpdateTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.beside = cls.machine.drive_c / "Planted"
        cls.current = cls.machine.drive_c / "Current"
        program, library = (driver.compiled("planted.c", name, "-municode", "-mwindows", *options) for name, *options in (
            ("planted.exe",), ("planted.dll", "-DPLANTED_LIBRARY", "-shared")))
        for folder in (cls.beside, cls.current):
            folder.mkdir()
            for name in PROGRAMS:
                shutil.copy(program, folder / name)
            for name in LIBRARIES:
                shutil.copy(library, folder / name)
        # Without these settings, Wine uses its own libraries and ignores the planted ones.
        cls.machine.seed("".join(
            f"[HKEY_CURRENT_USER\\Software\\Wine\\AppDefaults\\{program}\\DllOverrides]\n"
            + "".join(f'"{library[:-4]}"="native,builtin"\n' for library in LIBRARIES)
            for program in ("tavix-older.exe", "tavix-console.exe", "HH.exe")))
        for name in ("tavix-older.exe", "tavix-console.exe", "tips.dll", "menus.dll"):
            shutil.copy(driver.BUILD / name, cls.beside)
        shutil.copytree(driver.BUILD / "res", cls.beside / "res")

    def setUp(self):
        super().setUp()
        self.note = self.machine.drive_c / "planted.txt"
        self.note.unlink(missing_ok=True)

    def start_among_them(self, program, *arguments):
        process = self.machine.start(program, *arguments, cwd=self.current, stdout=subprocess.DEVNULL)
        self.addCleanup(self.end, process)
        return process

    def wait_for_every_program(self):
        """Waits until no program runs in the prefix. A program that was started late has then left its note, too."""
        self.machine.close_helpers()
        subprocess.run(["wineserver", "-w"], env=self.machine.environment, check=True, timeout=driver.PATIENCE)

    def notes(self):
        return self.note.read_text() if self.note.exists() else ""

    def test_a_planted_program_and_library_leave_their_notes(self):
        for library in LIBRARIES:
            self.note.unlink(missing_ok=True)
            process = self.start_among_them(self.current / "HH.exe", library)
            process.wait(timeout=driver.PATIENCE)
            self.assertEqual(self.notes(), f"C:\\Current\\HH.exe\nC:\\Current\\{library}\n")

    def test_start_update_check_and_help_run_none(self):
        site = self.serve(latestver=b"2.18.601")
        process = self.start_among_them(self.beside / "tavix-older.exe")
        self.wait_for_the_window_alone(process)
        self.assertEqual(site.requests, ["/latestver.txt"])
        self.key("F1")
        wait_for("the system's viewer", self.machine.rundll32_calls)
        self.close_window(process)
        self.wait_for_every_program()
        calls = self.machine.rundll32_calls()
        self.assertEqual(len(calls), 1)
        self.assertTrue(calls[0].endswith("\\Help.chm"), calls)
        self.assertEqual(self.notes(), "")

    def test_a_clean_runs_the_system_s_own_command(self):
        self.assertFalse((self.machine.prefix / "dosdevices" / "z:").is_symlink(), "a clean could reach this machine")
        self.machine.note_rundll32_calls()
        process = self.start_among_them(self.beside / "tavix-console.exe", "--live", "--function", "ieafh", "--clean",
                                          "--yes")
        self.assertEqual(process.wait(timeout=driver.PATIENCE), 0)
        wait_for("the command", self.machine.rundll32_calls)
        self.wait_for_every_program()
        self.assertEqual(self.machine.rundll32_calls(), ["InetCpl.cpl,ClearMyTracksByProcess 16"])
        self.assertEqual(self.notes(), "")


if __name__ == "__main__":
    unittest.main(verbosity=2)
