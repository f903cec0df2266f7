"""Runs tavix-console as people and tools run it."""
import fcntl
import os
import pathlib
import re
import shutil
import tempfile
import unittest

from machine_case import TOP, Machine, SampleCopy, run

DATA = TOP.parent / "shared" / "data" / "reg"


class SampleMachine(SampleCopy):
    def test_each_trace_in_the_registry_is_found(self):
        for key, rows in {"iertu": 4, "werh": 4, "wesh": 3, "ieafh": 1, "ieaph": 1, "weosh": 1, "weoem": 1,
                          "weurah": 1}.items():
            found, labels = self.scan("--function", key)
            self.assertEqual(len(found), rows, key)
            self.assertEqual(labels["rows"], rows)
            self.assertTrue(all(row["Checked"] for row in found))

    def test_rows_and_labels_have_all_their_fields_in_order(self):
        found, labels = self.scan("--function", "iertu", "--now", "2026-03-01T12:00:00")
        self.assertEqual(list(found[1]), ["stage", "row", "Type", "Name", "Size", "Location", "SizeKey", "Tag",
                                          "Checked", "ForeColor"])
        self.assertEqual(found[1], {
            "stage": "scan", "row": 2, "Type": "Recently Typed URL",
            "Name": "http://bücher.example/katalog?seite=2, 3", "Size": "N/A", "Location": "Registry",
            "SizeKey": "00000000.0",
            "Tag": "RI: HKEY_CURRENT_USER, Software\\Microsoft\\Internet Explorer\\TypedUrls, url2",
            "Checked": True, "ForeColor": None})
        frame = labels["lblProgMO"]["Width"]
        self.assertGreater(frame, 1000)
        self.assertEqual(labels, {
            "stage": "scan", "rows": 4,
            "lblProgS": "Finished, please click <Clean> or press <F5> to clean the checked items.",
            "lblTime": "0 second.", "lblSum": "Sum: 4 items, 0. KB found.",
            "lblProgMI": {"Width": frame, "Caption": "100%"}, "lblProgMO": {"Width": frame}, "cbxAll": True})
        self.assertEqual(list(labels), ["stage", "rows", "lblProgS", "lblTime", "lblSum", "lblProgMI", "lblProgMO",
                                        "cbxAll"])

    def test_the_table_names_every_row_and_the_closing_lines(self):
        done = run("--machine", self.folder)
        self.assertEqual(done.returncode, 0)
        text = done.stdout.decode()
        self.assertIn("http://пример.example/мир", text)
        self.assertIn("Finished, please click <Clean>", text)
        found, labels = self.scan()
        self.assertGreaterEqual(len(found), 16)
        for row in found:
            self.assertIn(f"{row['row']:4} [x] {row['Type'][:20]}", text)
        self.assertIn(labels["lblSum"], text)
        self.assertEqual(done.stderr, b"")

    def test_a_scan_leaves_the_machine_as_it_is(self):
        before = self.snapshot()
        for page in ("privacy", "system", "registry", "advanced"):
            self.scan("--page", page)
        after = self.snapshot()
        kept = {name: after.get(name) for name in before}
        # The start makes the data tree and adds its attributes to attributes.ini.
        lines = before.pop("attributes.ini", b"").splitlines()
        self.assertLessEqual(set(lines), set(kept.pop("attributes.ini", b"").splitlines()))
        self.assertEqual(kept, before)


class Settings(SampleCopy):
    def test_the_first_start_writes_every_setting(self):
        self.scan()
        written = self.settings()
        self.assertEqual({name: len(keys) for name, keys in written.items()},
                         {"Duplicate Files": 6, "One-click Clean/Repair": 1, "Cleaning Method": 2, "Other Options": 4})
        self.assertEqual(written["Cleaning Method"], {"Method": "D", "Backup Folder": "C:\\TVXBak"})
        self.assertEqual(written["Other Options"]["Except Folders"],
                         "Recycle Bin/All Recycle Bins|C:\\WINDOWS/Windows System Folder|"
                         "C:\\WINDOWS\\Temp/Windows Temporary Folder|C:\\Users\\Ann\\Temp/User Temporary Folder|"
                         "C:\\Users\\Ann\\AppData\\Local\\Microsoft\\Windows\\INetCache/Internet Temporary Folder|"
                         "C:\\Users\\Ann\\AppData\\Local\\Microsoft\\Windows\\INetCookies/Cookies Folder")

    def test_a_setting_is_written_and_kept(self):
        self.scan()
        expected = self.settings()
        self.scan("--set", "Cleaning Method/Method=R", "--set", "Other Options/Except Folders=C:\\a=b/ü|")
        expected["Cleaning Method"]["Method"] = "R"
        expected["Other Options"]["Except Folders"] = "C:\\a=b/ü|"
        self.assertEqual(self.settings(), expected)
        self.scan()
        self.assertEqual(self.settings(), expected)

    def test_a_section_whose_name_has_a_slash(self):
        self.scan("--set", "One-click Clean/Repair/Functions=|iec|")
        self.assertEqual(self.settings()["One-click Clean/Repair"], {"Functions": "|iec|"})


class NothingCleaned(SampleCopy):
    def setUp(self):
        super().setUp()
        self.scan()
        self.before = self.state()

    def state(self):
        """Everything in the folder, with the parsed calls on the shell in place of their file."""
        return {**self.snapshot(), "journal.jsonl": self.journal()}

    def tearDown(self):
        after = self.state()
        self.assertEqual(sorted(after), sorted(self.before))
        for name, content in after.items():
            self.assertEqual(content, self.before[name], name)
        super().tearDown()

    def refuse(self, status, *arguments):
        return self.refused(status, "--machine", self.folder, "--clean", "--json", *arguments)

    def test_a_setting_that_is_none(self):
        self.assertIn("'Cleaning Method/Colour' is no setting", self.refuse(2, "--set", "Cleaning Method/Colour=R"))
        self.assertIn("'Cleaning/Method' is no setting", self.refuse(2, "--set", "Cleaning/Method=R"))
        self.assertIn("'Method' is not of the form", self.refuse(2, "--set", "Method"))

    def test_a_right_setting_beside_a_wrong_one(self):
        self.refuse(2, "--set", "Cleaning Method/Method=S", "--set", "Cleaning Method/Colour=R")

    def test_a_row_that_is_not_there(self):
        self.assertIn("'9999'", self.refuse(2, "--tick", "9999"))
        self.assertIn("'9999'", self.refuse(2, "--untick", "1", "--untick", "9999"))
        self.assertIn("'5'", self.refuse(2, "--function", "iertu", "--untick", "5"))
        self.assertIn("'0' is no row", self.refuse(2, "--untick", "0"))
        self.assertIn("'-1' is no row", self.refuse(2, "--tick", "-1"))
        self.assertIn("'1x' is no row", self.refuse(2, "--tick", "1x"))

    def test_a_function_that_is_none(self):
        self.assertIn("'nosuch' is no function", self.refuse(2, "--function", "iertu", "--function", "nosuch"))


class TwoCopies(SampleCopy):
    def setUp(self):
        super().setUp()
        lock = os.open(self.folder, os.O_RDONLY)
        self.addCleanup(os.close, lock)
        fcntl.flock(lock, fcntl.LOCK_EX)

    def refuse(self):
        before = self.snapshot()
        line = self.refused(3, "--machine", self.folder, "--clean", "--set", "Cleaning Method/Method=R")
        after = self.snapshot()
        self.assertEqual(sorted(after), sorted(before))
        self.assertEqual(after, before)
        return line

    def test_the_second_is_refused_and_touches_nothing(self):
        self.assertIn("another copy", self.refuse())

    def test_the_second_leaves_alone_what_the_first_is_saving(self):
        self.write("registry~saving/~saving", "")
        self.write("registry~saving/HKEY_CURRENT_USER.reg", "Windows Registry Editor Version 5.00\n")
        self.assertIn("another copy", self.refuse())


class ForeignData(SampleCopy):
    """A link is in the place of the program's data."""

    def refuse(self, place, target):
        link = self.folder / "drives" / "C" / place
        link.parent.mkdir(parents=True, exist_ok=True)
        link.symlink_to(target)
        before = self.snapshot()
        line = self.refused(3, "--machine", self.folder, "--one-click", "--json",
                            "--set", "Cleaning Method/Method=D")
        self.assertIn("'C:\\" + place.replace("/", "\\") + "'", line)
        after = self.snapshot()
        after.pop("journal.jsonl")
        self.assertEqual(after, before)
        calls = self.journal()
        self.assertEqual([(call["op"], call["style"]) for call in calls], [("MsgBox", 49)])
        self.assertIn("others may have put there", calls[0]["text"])
        self.assertTrue(link.is_symlink())

    def test_nothing_is_run_when_the_data_folder_leads_to_windows(self):
        self.refuse("MORVDataPath/TVX", "../WINDOWS")

    def test_nor_when_the_folder_above_it_leads_elsewhere(self):
        self.refuse("MORVDataPath", "Users")

    def test_nor_when_it_leads_out_of_the_machine(self):
        outside = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, outside)
        self.refuse("MORVDataPath/TVX", outside)
        self.assertEqual(list(outside.iterdir()), [])

    def test_nor_when_the_settings_are_elsewhere(self):
        self.write("drives/C/Users/Bob/planted.txt", "[Duplicate Files]\nCommon Types=*.x\n")
        self.refuse("MORVDataPath/TVX/tvx.dll", "../../Users/Bob/planted.txt")

    def test_nor_when_the_scratch_folder_leads_elsewhere(self):
        self.refuse("MORVDataPath/TVX/DupeFiles", "../../Users")


class Arguments(Machine):
    def test_wrong_arguments_say_which_and_why(self):
        self.write("machine.ini", "")
        self.assertIn("unknown option '--nope'", self.refused(2, "--machine", self.folder, "--nope"))
        self.assertIn("'nosuch' is no function", self.refused(2, "--machine", self.folder, "--function", "nosuch"))
        self.assertIn("'ie' is no function", self.refused(2, "--machine", self.folder, "--function", "ie"))
        self.assertIn("Windows build", self.refused(2, "--live"))

    def test_a_folder_that_is_no_machine(self):
        self.refused(3, "--machine", self.folder)
        self.refused(3, "--machine", self.folder / "missing")

    def test_a_registry_line_that_cannot_be_read_names_file_line_and_reason(self):
        self.write("registry/bad.reg", "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\a]\n\"x\"=dword:zz\n")
        line = self.refused(3, "--machine", self.folder)
        self.assertIn("bad.reg:4:", line)

    def test_help_and_version(self):
        self.assertIn(b"--machine DIR", run("--help").stdout)
        self.assertRegex(run("--version").stdout.decode(), r"^tavix-console \d+\.\d+\.\d+\n$")


class RealHives(Machine):
    """The exports, read without the program's own reader."""

    def values(self, text, key):
        section = re.search(r"\[HKEY_CURRENT_USER\\%s\]\r?\n(.*?)(?:\r?\n\r?\n|\Z)" % re.escape(key), text, re.S | re.I)
        if section is None:
            return []
        pairs = re.findall(r'^"((?:[^"\\]|\\.)*)"="((?:[^"\\]|\\.)*)"\r?$', section.group(1), re.M)
        plain = lambda s: re.sub(r"\\(.)", r"\1", s)
        return [(plain(name), plain(data)) for name, data in pairs if data]

    def check(self, file):
        if not DATA.is_dir():
            self.skipTest("the registry exports of real machines are not beside the project")
        raw = (DATA / file).read_bytes()
        self.write("registry/user.reg", raw)
        text = raw.decode("utf-16")
        software = "Software\\Microsoft\\"
        for function, key in (("iertu", software + "Internet Explorer\\TypedUrls"),
                              ("werh", software + "Windows\\CurrentVersion\\Explorer\\RunMRU")):
            expected = self.values(text, key)
            self.assertTrue(expected)
            found, _ = self.scan("--function", function)
            self.assertEqual([(row["Tag"].rsplit(", ", 1)[1], row["Name"]) for row in found], expected)
        subkeys = re.findall(r"\[HKEY_CURRENT_USER\\Software\\Microsoft\\Search Assistant\\ACMru\\([^\]\\]+)\]", text, re.I)
        expected = [pair for sub in sorted(subkeys, key=str.upper)
                    for pair in self.values(text, software + "Search Assistant\\ACMru\\" + sub)]
        found, _ = self.scan("--function", "wesh")
        self.assertEqual([(row["Tag"].rsplit(", ", 1)[1], row["Name"]) for row in found], expected)

    def test_windows_7(self):
        self.check("windows-7-user.reg")

    def test_windows_8_1(self):
        self.check("windows-8.1-user.reg")


if __name__ == "__main__":
    unittest.main()
