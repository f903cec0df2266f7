"""Checks on the disk and in the registry what help and catalogues say of a clean and the one-click run."""
import sys
import unittest

from machine_case import TOP, Machine

sys.path.insert(0, str(TOP / "tools"))
import make_windows_11_machine as windows_11

USER = "HKEY_CURRENT_USER\\Software\\"


class BinAsMethod(Machine):
    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\Windows\n[Drives]\nC=2,System\n"
                                  "[Temporary Folders]\nUser=C:\\Temp\nSystem=C:\\Windows\\Temp\n")
        self.write("drives/C/Temp/a.txt", "a")

    def kept(self, *functions):
        """The files in the bin after a clean of these functions."""
        options = [option for name in functions for option in ("--function", name)]
        self.clean("--page", "system", "--set", "Cleaning Method/Method=R", *options)
        self.assertFalse((self.folder / "drives" / "C" / "Temp" / "a.txt").exists())
        return [file.read_bytes() for file in (self.folder / "recycle").rglob("*") if file.read_bytes() == b"a"]

    def test_a_file_is_kept(self):
        self.assertEqual(self.kept("Temporary Files"), [b"a"])

    def test_nothing_is_kept_where_the_bin_is_emptied_by_the_same_clean(self):
        self.assertEqual(self.kept("Empty Recycle Bin", "Temporary Files"), [])


class OneClickAtFirst(Machine):
    def setUp(self):
        super().setUp()
        windows_11.Maker(self.folder).make()

    def test_takes_passwords_and_clears_the_event_logs(self):
        self.objects("--one-click", "--now", windows_11.NOW)
        calls = self.journal()
        self.assertIn({"op": "RunTarget", "target": "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 32", "style": 3},
                      calls)
        self.assertEqual([call["log"] for call in calls if call["op"] == "ClearEventLog"],
                         ["Security", "Application", "System"])

    def test_leaves_the_bin_and_the_log_files_of_windows(self):
        self.objects("--one-click", "--now", windows_11.NOW)
        self.assertNotIn("EmptyRecycleBin", [call["op"] for call in self.journal()])
        self.assertTrue((self.folder / "drives/C/Windows/Logs/CBS/CBS.log").exists())


class NamesThatAreCut(Machine):
    """Rows whose action reads a shorter name than the one of the entry."""
    RUN = USER + "Microsoft\\Windows\\CurrentVersion\\Run"
    UNINSTALL = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"

    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\Windows\n[Drives]\nC=2,System\n")
        self.write("drives/C/Windows/there.exe", "x")

    def test_the_key_before_a_comma_goes_with_all_below(self):
        self.write("registry/user.reg", "Windows Registry Editor Version 5.00\n\n"
                   f"[{USER}Games, Inc]\n\n[{USER}Games\\Scores]\n\"Ann\"=dword:00000001\n")
        rows, _, _ = self.clean("--page", "registry", "--function", "Obsolete Software")
        self.assertEqual([row["Name"] for row in rows], ["Games, Inc"])
        left = self.registry()
        self.assertIn((USER + "Games, Inc").upper(), left)
        self.assertNotIn((USER + "Games").upper(), left)

    def test_the_key_before_a_colon_goes_with_all_below(self):
        self.write("registry/machine.reg", "Windows Registry Editor Version 5.00\n\n"
                   f"[{self.UNINSTALL}Empire: Gold]\n\"UninstallString\"=\"C:\\\\gone.exe\"\n\n"
                   f"[{self.UNINSTALL}Empire]\n\"UninstallString\"=\"C:\\\\Windows\\\\there.exe\"\n\n"
                   f"[{self.UNINSTALL}Empire\\Parts]\n")
        rows, _, _ = self.clean("--page", "registry", "--function", "Uninstaller Issues")
        self.assertEqual([row["Tag"] for row in rows], [f"RK: {self.UNINSTALL[:-1]}\\Empire: Gold".replace(
            "MACHINE\\", "MACHINE, ", 1)])
        left = self.registry()
        self.assertIn((self.UNINSTALL + "Empire: Gold").upper(), left)
        self.assertNotIn((self.UNINSTALL + "Empire").upper(), left)
        self.assertNotIn((self.UNINSTALL + "Empire\\Parts").upper(), left)

    def test_the_key_without_the_blank_at_its_end_goes(self):
        self.write("registry/user.reg", "Windows Registry Editor Version 5.00\n\n"
                   f"[{USER}Games ]\n\n[{USER}Games]\n\"Ann\"=dword:00000001\n")
        rows, _, _ = self.clean("--page", "registry", "--function", "Obsolete Software")
        self.assertEqual([row["Name"] for row in rows], ["Games "])
        left = self.registry()
        self.assertIn((USER + "Games ").upper(), left)
        self.assertNotIn((USER + "Games").upper(), left)

    def test_the_value_of_the_shorter_name_goes(self):
        for name in ("Tool, old", "Tool: old", "Tool "):
            with self.subTest(name):
                self.setUp()
                self.write("registry/user.reg", "Windows Registry Editor Version 5.00\n\n"
                           f"[{self.RUN}]\n\"Tool\"=\"C:\\\\Windows\\\\there.exe\"\n\"{name}\"=\"C:\\\\gone.exe\"\n")
                rows, _, _ = self.clean("--page", "registry", "--function", "Run at Startup Issues")
                self.assertEqual([row["Name"] for row in rows], ["C:\\gone.exe"])
                self.assertEqual(self.registry()[self.RUN.upper()], {name: "C:\\gone.exe"})

    def test_the_entry_stays_where_there_is_none_of_the_shorter_name(self):
        self.write("registry/user.reg", "Windows Registry Editor Version 5.00\n\n"
                   f"[{self.RUN}]\n\"Tool: old\"=\"C:\\\\gone.exe\"\n")
        _, kept, _ = self.clean("--page", "registry", "--function", "Run at Startup Issues")
        self.assertEqual(kept, [])
        self.assertEqual(self.registry()[self.RUN.upper()], {"Tool: old": "C:\\gone.exe"})


class ThereAndListed(Machine):
    """Entries that are listed although their targets exist."""
    WINDOWS = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\"

    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\Windows\n[Drives]\nC=2,System\n")
        for name in ("Windows/Help/a.chm", "Windows/System32/a.dll", "Tools/My Tool.exe", "Tools/tool.exe",
                     "My Files/a", "A - B/a"):
            self.write("drives/C/" + name, "x")

    def listed(self, function, key, **values):
        """The value names that the function lists of a key with these values."""
        quoted = lambda text: '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'
        lines = [quoted(name) + "=" + quoted(data) for name, data in values.items()]
        self.write("registry/all.reg", f"Windows Registry Editor Version 5.00\n\n[{key}]\n" + "\n".join(lines) + "\n")
        rows, _ = self.scan("--page", "registry", "--function", function)
        return [row["Tag"].rsplit(", ", 1)[1] for row in rows]

    def names_listed(self, function, key, *names):
        return self.listed(function, key, **dict.fromkeys(names, ""))

    def test_names_of_programs(self):
        blank = ["C:\\Tools\\My Tool.exe,-101", "C:\\Tools\\My Tool.exe.FriendlyAppName"]
        key = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache"
        self.assertEqual(self.names_listed("MUI Cache Issues", key, "C:\\Tools\\My Tool.exe", "C:\\Tools\\tool.exe,-101",
                                           *blank), blank)

    def test_folders_of_installers(self):
        blank = ["C:\\A - B\\", "C:\\My Files"]
        key = self.WINDOWS + "CurrentVersion\\Installer\\Folders"
        self.assertEqual(self.names_listed("Redundant Installers", key, "C:\\My Files\\", "C:\\Tools", *blank), blank)

    def test_help_files(self):
        self.assertEqual(self.listed("Help Files Issues", self.WINDOWS + "Html Help", **{
            "a.chm": "%windir%\\Help", "C:\\Windows\\Help\\a.chm": ""}), ["a.chm", "C:\\Windows\\Help\\a.chm"])
        self.assertEqual(self.listed("Help Files Issues", self.WINDOWS + "Html Help", **{"a.chm": "C:\\Windows\\Help"}),
                         [])

    def test_shared_libraries(self):
        key = self.WINDOWS + "CurrentVersion\\SharedDlls"
        self.assertEqual(self.names_listed("Missing Shared DLLs", key, "a.dll", '"C:\\Windows\\System32\\a.dll"',
                                           "C:\\Windows\\System32\\a.dll"), ["a.dll", '"C:\\Windows\\System32\\a.dll"'])


class SeveralRowsOfAnItem(Machine):
    """An item without a tick goes if another row of it has one."""

    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\Windows\n[Drives]\nC=2,System\n")
        self.write("drives/C/Windows/x", "x")

    def clean_but(self, unticked, *arguments):
        """Cleans all rows but those of a type. Returns the types of all rows."""
        rows, _ = self.scan(*arguments)
        without = [option for row in rows if row["Type"] == unticked or row["Tag"] == unticked
                   for option in ("--untick", row["row"])]
        self.assertTrue(without)
        self.clean(*arguments, *without)
        return sorted(row["Type"] for row in rows)

    def test_a_file_goes_if_one_of_its_rows_is_ticked(self):
        for unticked in ("Empty File", "Junk File"):
            with self.subTest(unticked):
                self.setUp()
                self.write("drives/C/Desk/a.bak", "")
                self.write("drives/C/Desk/letter.doc", "x")
                self.assertEqual(self.clean_but(unticked, "--page", "advanced", "--scope", "C:\\Desk", "--function",
                                                "Junk Files", "--function", "Empty Folders and Files"),
                                 ["Empty File", "Junk File"])
                self.assertFalse((self.folder / "drives/C/Desk/a.bak").exists())

    def test_a_class_goes_if_one_of_its_rows_is_ticked(self):
        key = "CLSID\\{3D9A6B57-11C8-4E2F-8B6A-9F0C7D2E5A02}"
        tags = ("RK: HKEY_CLASSES_ROOT, " + key, "RK: HKEY_LOCAL_MACHINE, Software\\Classes\\" + key)
        for unticked in tags:
            with self.subTest(unticked):
                self.setUp()
                self.write("registry/all.reg", "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\Software\\"
                           f"Classes\\{key}\\InprocServer32]\n@=\"C:\\\\gone.dll\"\n")
                rows = self.clean_but(unticked, "--page", "registry", "--function", "ActiveX and Class Issues")
                self.assertEqual(len(rows), 2)
                self.assertNotIn(("HKEY_LOCAL_MACHINE\\Software\\Classes\\" + key).upper(), self.registry())


class ListsOfExplorer(Machine):
    def test_lists_of_newer_windows_stay(self):
        dialogs = USER + "Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\"
        older, newer = ("OpenSaveMRU", "LastVisitedMRU"), ("OpenSavePidlMRU\\*", "LastVisitedPidlMRU", "CIDSizeMRU")
        self.write("registry/all.reg", "Windows Registry Editor Version 5.00\n" + "".join(
            f"\n[{dialogs}{name}]\n\"0\"=\"x\"\n" for name in older + newer))
        self.clean("--page", "privacy", "--function", "weosh", "--function", "weoem")
        left = self.registry()
        self.assertEqual([name for name in older + newer if (dialogs + name).upper() in left], list(newer))


class JunkTypes(Machine):
    OWN = "First\t*.abc\tY\tY\r\nSecond\t*.def\tY\tN\r\nSign\t*.#12\tY\tY\r\nSet\t*.[x]\tY\tY\r\n"

    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\Windows\n[Drives]\nC=2,System\n")
        for name in ("a.abc", "a.def", "a.#12", "a.512", "a.[x]", "a.x", "a.spc", "a.pch", "a.bak"):
            self.write("drives/C/Desk/" + name, "x")

    def names(self):
        rows, _ = self.scan("--page", "advanced", "--function", "Junk Files")
        return sorted(row["Name"] for row in rows)

    def test_types_without_a_tick_are_looked_for(self):
        self.assertEqual(self.names(), ["a.bak", "a.spc"])

    def test_with_types_of_the_users_own_the_first_and_the_last_built_in_one_find_nothing(self):
        self.write("drives/C/MORVDataPath/TVX/userjunk.dll", self.OWN)
        self.assertEqual(self.names(), ["a.bak", "a.def"])


class MovedTempFolder(Machine):
    def test_the_folder_where_a_search_begins_may_be_a_link(self):
        self.write("machine.ini", "[Environment]\nWinDir=C:\\Windows\n[Drives]\nC=2,System\nD=2,Data\n"
                                  "[Temporary Folders]\nUser=C:\\Temp\nSystem=C:\\Windows\\Temp\n")
        self.write("drives/D/Moved/below/a.txt", "a")
        (self.folder / "drives" / "C").mkdir()
        (self.folder / "drives" / "C" / "Temp").symlink_to("../D/Moved")
        _, kept, _ = self.clean("--page", "system", "--function", "Temporary Files")
        self.assertEqual(kept, [])
        self.assertFalse((self.folder / "drives/D/Moved/below/a.txt").exists())


class SafeguardsOfTheBackupFolder(Machine):
    """What a clean leaves of the backup folders."""

    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\Windows\n[Drives]\nC=2,System\nD=2,Data\n")
        for name in ("C/TVXBak/a.bak", "D/Saved/b.bak", "D/c.bak"):
            self.write("drives/" + name, name)

    def left(self, backup_folder, method):
        """Cleans by this method. Returns the names of the files that are left."""
        self.clean("--page", "advanced", "--function", "Junk Files", "--set", "Cleaning Method/Method=" + method,
                   "--set", "Cleaning Method/Backup Folder=" + backup_folder)
        return [path.name for path in sorted((self.folder / "drives").rglob("*.bak"))]

    def test_files_in_one_stay_under_every_method(self):
        for method in "DRS":
            with self.subTest(method):
                self.setUp()
                self.assertEqual(self.left("D:\\Saved", method),
                                 ["a.bak", "b.bak", "c.bak"] if method == "S" else ["a.bak", "b.bak"])

    def test_a_drive_as_backup_folder_is_cleaned_like_any_other(self):
        self.assertEqual(self.left("D:\\", "D"), ["a.bak"])


if __name__ == "__main__":
    unittest.main()
