"""Cleans whole pages of the sample machine through tavix-console. What was found goes, everything else stays."""
import configparser
import sys
import unittest

from machine_case import TOP, Machine
sys.path.insert(0, str(TOP / "tools"))
import copy_sample
import registry_text

EXPLORER = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
WINDOWS = "C:\\WINDOWS\\"
BROWSER = "C:\\Users\\Ann\\AppData\\Local\\Microsoft\\Windows\\"
INDEXES = [BROWSER + "INetCache\\Content.IE5\\index.dat", BROWSER + "INetCookies\\index.dat",
           BROWSER + "History\\History.IE5\\index.dat"]
MY_TRACKS = "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess "
# Files and folders that a start of the program makes.
DATA = "drives/C/MORVDataPath"
MADE = (DATA, "drives/C/TVXBak", "journal.jsonl", "restart.txt")


def host(path):
    """The path in the machine folder of a file on the machine."""
    return "drives/" + path[0] + path[2:].replace("\\", "/")


class CleanedPage(Machine):
    def setUp(self):
        super().setUp()
        copy_sample.copy(self.folder)
        self.before, self.keys_before = self.snapshot(), self.registry()
        # Reading the files has changed their times of last access.
        copy_sample.set_times(self.folder)

    def left(self):
        """Everything in the machine folder now, except the data tree, the registry and the table of attributes."""
        return {name: content for name, content in self.snapshot().items()
                if not name.startswith((*MADE, "registry/")) and name != "attributes.ini"}

    def expected(self, gone):
        kept = {name: content for name, content in self.before.items()
                if not name.startswith("registry/") and name != "attributes.ini"}
        for name in gone:
            del kept[name]
        return kept

    def assert_only_these_went(self, gone):
        left, expected = self.left(), self.expected(gone)
        self.assertEqual(sorted(left), sorted(expected))
        self.assertEqual(left, expected)

    def attributes(self):
        lines = (self.folder / "attributes.ini").read_text(encoding="utf-8").splitlines()
        table = dict(line.rsplit("=", 1) for line in lines if "=" in line)
        return {path: number for path, number in table.items()
                if not path.startswith(("C:\\MORVDataPath", "C:\\TVXBak"))}

    def facts(self):
        file = configparser.RawConfigParser()
        file.read(self.folder / "machine.ini", encoding="utf-8")
        return {name: dict(section) for name, section in file.items()}


class PrivacyPage(CleanedPage):
    GONE = {
        *(BROWSER + "INetCache\\" + name for name in (
            "welcome.htm", "Content.IE5\\0TYF2KJB\\logo[1].png", "Content.IE5\\0TYF2KJB\\start[1].htm",
            "Content.IE5\\QX7N5D2E\\katalog[2].htm")),
        *(BROWSER + "INetCookies\\" + name for name in ("ann@bücher.example[2].txt", "ann@example[1].txt")),
        *("C:\\Users\\Ann\\AppData\\Roaming\\Microsoft\\Windows\\Recent\\" + name for name in (
            "notepad.lnk", "report.doc.lnk")),
    }

    def test_files_go_and_all_else_stays(self):
        found, rows, labels = self.clean("--page", "privacy")
        self.assertEqual(rows, [])
        self.assertEqual({row["Tag"].split(": ")[0] for row in found}, {"F", "DUR", "Cmd", "RK", "RI"})
        self.assertEqual(labels["lblProgS"], "Finished.")
        self.assertEqual(labels["lblSum"].split(", ")[0], f"Sum: {len(found)} items")
        self.assert_only_these_went(host(path) for path in self.GONE)
        self.assertEqual({host(row["Location"] + "\\" + row["Name"]) for row in found if row["Tag"] == "F"},
                         {host(path) for path in self.GONE})

    def test_indexes_are_marked_for_the_restart_and_the_browser_is_told_to_forget(self):
        self.clean("--page", "privacy")
        # The location of such a row is the whole path, so the shown path has the name twice.
        marked = [path + "\\index.dat" for path in reversed(INDEXES)]
        self.assertEqual((self.folder / "restart.txt").read_text(encoding="utf-8").splitlines(), marked)
        commands = [MY_TRACKS + number for number in ("32", "16", "1", "2", "8")]
        # From the last row to the first.
        self.assertEqual(self.journal(),
                         [{"op": "DeleteAtRestart", "path": path} for path in marked] +
                         [{"op": "RunTarget", "target": command, "style": 3} for command in commands])

    def test_keys_and_values_go_and_all_other_keys_stay(self):
        found, _, _ = self.clean("--page", "privacy")
        after = self.keys_before
        for row in found:
            kind, _, payload = row["Tag"].partition(": ")
            fields = payload.split(", ")
            if kind == "RI":
                after = registry_text.without_value(after, "\\".join(fields[:2]), fields[2])
            elif kind == "RK":
                after = registry_text.without_key(after, "\\".join(fields))
        self.assertNotIn((EXPLORER + "RecentDocs\\.doc").upper(), after)
        self.assertIn((EXPLORER + "StreamMRU").upper(), after)
        self.assertEqual(self.registry(), after)

    def test_a_whole_store_is_left_to_the_command(self):
        for key, number in {"ietif": "8", "iec": "2", "ieh": "1"}.items():
            self.clean("--function", key)
            self.assert_only_these_went(())
            self.assertEqual(self.journal()[-1], {"op": "RunTarget", "target": MY_TRACKS + number, "style": 3})


class SystemPage(CleanedPage):
    GONE = {
        *("C:\\Users\\Ann\\Temp\\" + name for name in (
            "empty.tmp", "setup.log", "~DF3A1.tmp", "Über uns.htm", "extracted\\readme.txt")),
        *(WINDOWS + name for name in (
            "Temp\\msi4c21.tmp", "Temp\\service.log", "MEMORY.DMP", "setupact.log", "WindowsUpdate.log",
            "Debug\\PASSWD.LOG", "system32\\wbem\\Logs\\wmiprov.log", "$NtUninstallKB917953$\\tcpip.sys",
            "$NtUninstallKB917953$\\spuninst\\spuninst.inf", "SoftwareDistribution\\Download\\3f5c\\update.cab",
            "Prefetch\\OLDGAME.EXE-0A1B2C3D.pf")),
        *("C:\\FOUND.000\\" + name for name in (
            "CHKLIST.MS", "FILE0000.CHK", "FILE0001.CHK", "file0002._dd", "dir0000.chk\\FILE0003.CHK")),
        "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\Games\\Old Game.lnk",
        "C:\\Users\\Public\\Desktop\\Old Game.lnk",
        "C:\\Users\\Ann\\Desktop\\Old Game.lnk",
        "C:\\Users\\Ann\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\日本語.lnk",
        "C:\\Users\\Ann\\AppData\\Roaming\\Microsoft\\Internet Explorer\\Quick Launch\\Old Player.lnk",
    }
    # Read-only files of the list go as well.
    READ_ONLY = WINDOWS + "WindowsUpdate.log"

    def test_files_go_and_all_else_stays(self):
        self.assertEqual(self.attributes()[self.READ_ONLY], "1")
        found, rows, labels = self.clean("--page", "system")
        self.assertEqual(rows, [])
        self.assertEqual({row["Tag"].split(": ")[0] for row in found}, {"F", "FT", "RE", "WSL", "RK", "RIs"})
        self.assertEqual(labels["lblSum"].split(", ")[0], f"Sum: {len(found)} items")
        self.before["machine.ini"] = self.snapshot()["machine.ini"]  # checked in a test of its own
        self.assert_only_these_went([*map(host, self.GONE), "recycle/shopping list.txt"])
        self.assertEqual({host(row["Location"] + "\\" + row["Name"]) for row in found if row["Tag"] == "F"},
                         {host(path) for path in self.GONE - {WINDOWS + "MEMORY.DMP"}})

    def test_attributes_of_what_went_go_too(self):
        self.clean("--page", "system")
        self.assertEqual(self.attributes(), {BROWSER + "INetCache\\Content.IE5\\index.dat": "6",
                                             "C:\\WINDOWS\\$NtUninstallKB917953$": "2"})

    def test_logs_are_cleared_and_the_bin_is_emptied_from_the_last_row_to_the_first(self):
        before = self.facts()
        self.clean("--page", "system")
        # The third log can't be opened, but the program still tries.
        self.assertEqual(self.journal(), [{"op": "ClearEventLog", "log": "Security"},
                                          {"op": "ClearEventLog", "log": "Application"},
                                          {"op": "ClearEventLog", "log": "System"}, {"op": "EmptyRecycleBin"}])
        self.assertFalse((self.folder / "restart.txt").exists())
        self.assertEqual(self.facts(), {**before, "Event Logs": {"system": "0", "application": "0", "security": "-"}})

    def test_keys_go_and_the_values_of_the_tray_stay(self):
        self.clean("--page", "system")
        after = registry_text.without_key(self.keys_before, EXPLORER + "MenuOrder")
        after = registry_text.without_key(after, EXPLORER + "StreamMRU")
        # The row of the tray has blanks around a value's name and a hive's name, so it names neither.
        self.assertEqual(set(after[(EXPLORER + "TrayNotify").upper()]), {"IconStreams", "PastIconsStream"})
        self.assertEqual(self.registry(), after)

    def test_an_unticked_file_stays(self):
        found, _ = self.scan("--page", "system")
        dump = next(row for row in found if row["Tag"].startswith("FT: "))
        rows = [row["row"] for row in found if row is not dump]
        self.clean("--page", "system", *(word for row in rows for word in ("--untick", str(row))))
        self.assert_only_these_went([host(WINDOWS + "MEMORY.DMP")])
        self.assertEqual(self.registry(), self.keys_before)
        self.assertEqual(self.journal(), [])

    def test_a_second_clean_finds_only_the_standing_rows(self):
        self.clean("--page", "system")
        left = self.left()
        found, rows, _ = self.clean("--page", "system")
        self.assertEqual(rows, [])
        self.assertEqual([row["Name"] for row in found],
                         ["Recycle Bins (0 Items)", "System Memory Dumps (0 File)", "System Category (0 Items)",
                          "Application Category (0 Items)", "Security Category (0 Items)",
                          "in Start Menu and Favorites", "Tray Notifications Cache", "Windows Size and Location Caches"])
        self.assertEqual(self.left(), left)

    def test_links_go_and_what_they_lead_to_stays(self):
        outside = self.folder / "drives" / "C" / "Keep"
        outside.mkdir()
        (outside / "kept.tmp").write_text("kept")
        temp = self.folder / "drives" / "C" / "Users" / "Ann" / "Temp"
        (temp / "file link").symlink_to("../../../Keep/kept.tmp")
        found, rows, _ = self.clean("--function", "Temporary Files", "--page", "system")
        self.assertIn("file link", [row["Name"] for row in found])
        self.assertEqual(rows, [])
        self.assertFalse((temp / "file link").is_symlink())
        self.assertEqual((outside / "kept.tmp").read_text(), "kept")


class ByOtherMethods(CleanedPage):
    def test_files_go_to_the_bin(self):
        found, rows, _ = self.clean("--page", "system", "--function", "Windows Log Files", "--set",
                                    "Cleaning Method/Method=R")
        self.assertEqual(rows, [])
        self.assertEqual(sorted(p.name for p in (self.folder / "recycle").iterdir()),
                         sorted([*(row["Name"] for row in found), "shopping list.txt"]))
        self.assertEqual([call["op"] for call in self.journal()], ["DeleteToRecycleBin"] * len(found))

    def test_files_of_one_name_go_to_the_backup_folder_as_far_as_there_is_room(self):
        found, rows, _ = self.clean("--page", "system", "--function", "Invalid Shortcuts in User Folders", "--set",
                                    "Cleaning Method/Method=S")
        # Of three old games, the last two rows have a name.
        self.assertEqual([row["Name"] for row in rows], ["Old Game.lnk"])
        self.assertEqual(rows[0]["Location"],
                         "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\Games")
        backup = self.folder / "drives" / "C" / "TVXBak"
        self.assertEqual(sorted(p.name for p in backup.iterdir()),
                         ["Old Game.lnk", "Old Game.lnk.1", "Old Player.lnk", "日本語.lnk"])
        for name in ("Old Game.lnk", "Old Player.lnk"):
            moved = next(row for row in reversed(found) if row["Name"] == name)
            self.assertEqual((backup / name).read_bytes(), self.before[host(moved["Location"] + "\\" + name)])


if __name__ == "__main__":
    unittest.main()
