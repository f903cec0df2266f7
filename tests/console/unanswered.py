"""Files whose existence can't be checked: no right to look, or no handle left."""
import json
import os
import resource
import shutil
import subprocess
import unittest

from machine_case import CONSOLE, Machine

NOBODY = 65534
WINDOWS = "Software\\Microsoft\\Windows\\CurrentVersion\\"
# Entries of each function whose files are in one folder, as key, name and data. Another entry's file is missing.
FOLDER = "C:\\Program Files\\App"
SOUND = [
    ("HKEY_LOCAL_MACHINE\\" + WINDOWS + "SharedDlls", FOLDER + "\\a.dll", "1"),
    ("HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{1}\\InprocServer32", "", FOLDER + "\\a.dll"),
    ("HKEY_LOCAL_MACHINE\\Software\\Classes\\Applications\\a.exe\\shell\\open\\command", "", f'"{FOLDER}\\a.exe" "%1"'),
    ("HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", "A", "a.ttf"),
    ("HKEY_LOCAL_MACHINE\\" + WINDOWS + "App Paths\\a.exe", "", FOLDER + "\\a.exe"),
    ("HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\Help", "a.hlp", FOLDER),
    ("HKEY_LOCAL_MACHINE\\" + WINDOWS + "Run", "a", f'"{FOLDER}\\a.exe" -x'),
    ("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache", FOLDER + "\\a.exe", "A"),
    ("HKEY_LOCAL_MACHINE\\" + WINDOWS + "Uninstall\\A", "UninstallString", FOLDER + "\\a.exe /x"),
    ("HKEY_CURRENT_USER\\" + WINDOWS + "Explorer\\MenuOrder\\Start Menu2\\Programs\\A", "Order", ""),
    ("HKEY_LOCAL_MACHINE\\" + WINDOWS + "Installer\\Folders", FOLDER + "\\Sub\\", ""),
    ("HKEY_LOCAL_MACHINE\\" + WINDOWS + "Installer\\UserData\\S-1\\Patches\\1", "LocalPackage", FOLDER + "\\a.msp"),
]
GONE = "C:\\Gone\\b.dll"


class Unanswered(Machine):
    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\WINDOWS\n[Special Folders]\nFonts=%s\n"
                   "AllUsersPrograms=%s\nPrograms=%s\n" % ((FOLDER,) * 3))
        for name in ("a.dll", "a.exe", "a.ttf", "a.hlp", "a.msp", "A.lnk", "Sub/x"):
            self.write("drives/C/Program Files/App/" + name, "x")
        quote = lambda text: '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'
        lines = ["Windows Registry Editor Version 5.00", ""]
        for key, name, data in SOUND + [("HKEY_LOCAL_MACHINE\\" + WINDOWS + "SharedDlls", GONE, "1")]:
            lines += [f"[{key}]", (quote(name) if name else "@") + "=" + quote(data), ""]
        self.write("registry/all.reg", "\r\n".join(lines))

    def names(self, **more):
        """The names of the rows of a run, and its exit status."""
        done = subprocess.run([CONSOLE, "--machine", self.folder, "--json", "--page", "registry"],
                              capture_output=True, timeout=300, **more)
        rows = [json.loads(line) for line in done.stdout.splitlines()]
        return [row["Name"] for row in rows if "Name" in row], done.returncode

    def test_with_every_right_only_the_missing_file_is_an_issue(self):
        self.assertEqual(self.names(), ([GONE], 0))
        shutil.rmtree(self.folder / "drives/C/Program Files")
        self.assertEqual(len(self.names()[0]), len(SOUND) + 2, "a class of the machine is shown twice")

    def test_a_folder_without_the_right_to_it_makes_no_entry_an_issue(self):
        locked = self.folder / "drives/C/Program Files"
        self.addCleanup(locked.chmod, 0o700)
        if os.geteuid() == 0:
            # The user who runs the program owns everything on the machine except the folder.
            for path in [self.folder, *self.folder.rglob("*")]:
                if locked not in [path, *path.parents]:
                    os.chown(path, NOBODY, NOBODY)
            locked.chmod(0o700)
            more = {"user": NOBODY, "group": NOBODY, "extra_groups": []}
        else:
            locked.chmod(0)
            more = {}
        self.assertEqual(self.names(**more), ([GONE], 0))

    def test_few_handles_make_no_sound_entry_an_issue(self):
        ran, least = 0, None
        for limit in range(3, 64):
            names, status = self.names(
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (limit, limit)))
            if status == 0:
                self.assertIn(names, ([], [GONE]), f"{limit} handles")
                ran += 1
                if names and least is None:
                    least = limit
        self.assertGreater(ran, 0)
        self.assertIsNotNone(least, "the one that is gone was never found")
        print(f"{ran} runs with few handles; the missing file is found from {least} on")


if __name__ == "__main__":
    unittest.main()
