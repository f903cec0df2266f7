"""Runs tavix-console as people and tools run it."""
import configparser
import fcntl
import json
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(TOP / "tests" / "support"))
import registry_text
CONSOLE = os.environ["TAVIX_CONSOLE"]
DATA = TOP.parent / "shared" / "data" / "reg"


def run(*arguments, **more):
    return subprocess.run([CONSOLE, *map(str, arguments)], capture_output=True, timeout=300, **more)


class Machine(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, text):
        file = self.folder / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(text if isinstance(text, bytes) else text.encode())

    def objects(self, *arguments):
        done = run("--machine", self.folder, "--json", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stderr, b"")
        return [json.loads(line) for line in done.stdout.splitlines()]

    def scan(self, *arguments):
        objects = self.objects(*arguments)
        return objects[:-1], objects[-1]

    def clean(self, *arguments):
        """Rows of the scan, and rows and labels of the clean behind it."""
        objects = self.objects("--clean", *arguments)
        of = lambda stage: [o for o in objects if o["stage"] == stage]
        self.assertEqual(objects, of("scan") + of("clean"))
        return of("scan")[:-1], of("clean")[:-1], of("clean")[-1]

    def refused(self, status, *arguments):
        """The one line that says why nothing was run."""
        done = run(*arguments)
        self.assertEqual(done.returncode, status, done)
        self.assertEqual(done.stdout, b"")
        lines = done.stderr.decode("utf-8", "replace").splitlines()
        self.assertEqual(len(lines), 1, lines)
        return lines[0]

    def registry(self):
        return registry_text.read_folder(self.folder / "registry")

    def journal(self):
        file = self.folder / "journal.jsonl"
        return [json.loads(line) for line in file.read_bytes().splitlines()] if file.exists() else []

    def snapshot(self):
        """Everything in the machine folder: content of files, None for folders."""
        return {str(p.relative_to(self.folder)): None if p.is_dir() else p.read_bytes()
                for p in self.folder.rglob("*")}

    def settings(self):
        file = configparser.RawConfigParser(strict=True)
        file.optionxform = str
        file.read(self.folder / "drives" / "C" / "MORVDataPath" / "TVX" / "tvx.dll", encoding="utf-8")
        return {name: dict(section) for name, section in file.items() if name != "DEFAULT"}


class SampleCopy(Machine):
    def setUp(self):
        super().setUp()
        shutil.copytree(TOP / "res" / "sample-machine", self.folder, dirs_exist_ok=True)


class SampleMachine(SampleCopy):
    def test_every_function_of_this_stage_finds_something(self):
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
        self.assertRegex(text, r"Sum: 16 items, 0\. KB found\.")
        self.assertEqual(done.stderr, b"")

    def test_a_scan_leaves_the_machine_as_it_is(self):
        before = {p: p.read_bytes() for p in self.folder.rglob("*") if p.is_file()}
        self.scan()
        kept = {p: p.read_bytes() for p in self.folder.rglob("*") if p in before}
        self.assertEqual(kept, before)


USER = "HKEY_CURRENT_USER\\Software\\Microsoft\\"
EXPLORER = USER + "Windows\\CurrentVersion\\Explorer\\"
TYPED_URLS = USER + "Internet Explorer\\TypedURLs"
# What no function looks for, of every kind of data.
OTHERS = """Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer]
"url1"="not a typed one"

[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedURLs\\Below]
"url1"="stays"

[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU2]
"a"="a key whose name only begins alike"

[HKEY_LOCAL_MACHINE\\Software\\Größe]
@="default"
"number"=dword:0000002a
"bytes"=hex:00,ff,10
"expanded"=hex(2):25,00,41,00,25,00,00,00
"several"=hex(7):61,00,00,00,62,00,00,00,00,00
"quoted \\"name\\" \\\\"="C:\\\\x \\"y\\""

[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer\\TypedURLs]
"url1"="of the machine"
"""


class Cleaning(SampleCopy):
    def setUp(self):
        super().setUp()
        self.write("registry/others.reg", OTHERS)
        self.before = self.registry()

    def expected(self, keep=()):
        """The registry behind a full clean of the Privacy page, but for the typed URLs to keep."""
        after = self.before
        for value in ("url1", "url2", "url3", "url4"):
            if value not in keep:
                after = registry_text.without_value(after, TYPED_URLS, value)
        for value in ("a", "b", "c", "MRUList"):
            after = registry_text.without_value(after, EXPLORER + "RunMRU", value)
        for key, value in (("5603", "000"), ("5603", "001"), ("5604", "000")):
            after = registry_text.without_value(after, USER + "Search Assistant\\ACMru\\" + key, value)
        for key in ("ComDlg32\\OpenSaveMRU", "ComDlg32\\LastVisitedMRU", "UserAssist"):
            after = registry_text.without_key(after, EXPLORER + key)
        return after

    def test_what_was_found_goes_and_all_else_stays(self):
        found, rows, labels = self.clean("--now", "2026-03-01T12:00:00")
        self.assertEqual(len(found), 16)
        self.assertEqual(rows, [])
        frame = labels["lblProgMO"]["Width"]
        self.assertEqual(labels, {
            "stage": "clean", "rows": 0, "lblProgS": "Finished.", "lblTime": "0 second.",
            "lblSum": "Sum: 16 items, 0. KB cleaned.", "lblProgMI": {"Width": frame, "Caption": "100%"},
            "lblProgMO": {"Width": frame}, "cbxAll": True})
        self.assertEqual(self.registry(), self.expected())
        self.assertEqual(sorted(p.name for p in (self.folder / "registry").iterdir()),
                         ["HKEY_CURRENT_USER.reg", "HKEY_LOCAL_MACHINE.reg"])

    def test_commands_are_run_from_the_last_row_to_the_first(self):
        self.clean()
        command = "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess "
        self.assertEqual(self.journal(), [{"op": "RunTarget", "target": command + "32", "style": 3},
                                          {"op": "RunTarget", "target": command + "16", "style": 3}])

    def test_an_unticked_row_stays_with_what_it_stands_for(self):
        found, rows, labels = self.clean("--untick", "1", "--untick", "3", "--tick", "3", "--untick", "5")
        self.assertTrue(all(row["Checked"] for row in found))
        self.assertEqual([(row["row"], row["Name"], row["Checked"]) for row in rows],
                         [(1, "http://www.example.org/", False), (2, "Auto-fill Form History", False)])
        self.assertEqual({**rows[0], "stage": "scan", "Checked": True}, found[0])
        self.assertEqual(labels["rows"], 2)
        self.assertEqual(labels["lblSum"], "Sum: 14 items, 0. KB cleaned.")
        self.assertEqual(self.registry(), self.expected(keep=["url1"]))
        self.assertEqual([call["target"][-2:] for call in self.journal()], ["32"])

    def test_without_a_ticked_row_nothing_is_cleaned(self):
        rows = [option for row in range(1, 17) for option in ("--untick", str(row))]
        _, kept, labels = self.clean(*rows)
        self.assertEqual(len(kept), 16)
        self.assertEqual(labels["lblSum"], "Sum: 0 item, 0. KB cleaned.")
        self.assertEqual(self.registry(), self.before)
        self.assertTrue((self.folder / "registry" / "user.reg").exists())
        self.assertEqual(self.journal(), [])

    def test_one_item_is_one_item(self):
        _, _, labels = self.clean("--function", "weosh")
        self.assertEqual(labels["lblSum"], "Sum: 1 item, 0. KB cleaned.")
        self.assertEqual(self.registry(), registry_text.without_key(self.before, EXPLORER + "ComDlg32\\OpenSaveMRU"))

    def test_a_second_clean_has_only_the_standing_rows(self):
        self.clean()
        after = self.snapshot()
        found, _, labels = self.clean()
        self.assertEqual([row["Tag"][:2] for row in found], ["Cm", "Cm", "RK", "RK", "RK"])
        self.assertEqual(labels["lblSum"], "Sum: 5 items, 0. KB cleaned.")
        again = self.snapshot()
        self.assertEqual(again.pop("journal.jsonl"), after.pop("journal.jsonl") * 2)
        self.assertEqual(again, after)

    def test_the_machine_folder_changes_only_where_it_must(self):
        before = self.snapshot()
        self.clean()
        after = self.snapshot()
        data = "drives/C/MORVDataPath/TVX/"
        buckets = [chr(letter) for letter in range(ord("A"), ord("Z") + 1)] + ["other"]
        made = {"attributes.ini", "journal.jsonl", "registry/HKEY_CURRENT_USER.reg", "registry/HKEY_LOCAL_MACHINE.reg",
                "drives/C/MORVDataPath", "drives/C/TVXBak", data[:-1], data + "tvx.dll", data + "defjunk.dll",
                data + "userjunk.dll", data + "TVX data folder, please do not delete it", data + "DupeFiles",
                *(data + "DupeFiles/" + store + bucket for store in ("scanned", "compared")
                  for bucket in ("", *("/" + name for name in buckets)))}
        self.assertEqual(set(after) - set(before), made)
        self.assertEqual(set(before) - set(after), {"registry/user.reg", "registry/others.reg"})
        kept = set(before) & set(after)
        self.assertEqual({name: after[name] for name in kept}, {name: before[name] for name in kept})

    def test_the_data_tree_is_hidden_and_of_the_system(self):
        self.scan()
        lines = (self.folder / "attributes.ini").read_text(encoding="utf-8").splitlines()
        attributes = dict(line.rsplit("=", 1) for line in lines if "=" in line)
        top = self.folder / "drives" / "C"
        tree = [top / "MORVDataPath", *(top / "MORVDataPath").rglob("*"), top / "TVXBak"]
        self.assertEqual(attributes, {"C:\\" + str(p.relative_to(top)).replace("/", "\\"): "6" for p in tree})

    def test_the_table_shows_what_stays(self):
        done = run("--machine", self.folder, "--clean", "--untick", "2")
        self.assertEqual(done.returncode, 0)
        scanned, cleaned = done.stdout.decode().split("Sum: 16 items, 0. KB found.")
        self.assertIn("[x] Recently Typed URL", scanned)
        self.assertIn("[ ] Recently Typed URL", cleaned)
        self.assertIn("Sum: 15 items, 0. KB cleaned.", cleaned)


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
        self.before = self.snapshot()

    def tearDown(self):
        self.assertEqual(self.snapshot(), self.before)
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
        self.assertIn("'17'", self.refuse(2, "--tick", "17"))
        self.assertIn("'17'", self.refuse(2, "--untick", "1", "--untick", "17"))
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


class Killed(Machine):
    VALUES = 20000

    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Drives]\nC=2\n")
        self.write("drives/C/kept.txt", "kept")
        self.text = ("Windows Registry Editor Version 5.00\n\n[" + TYPED_URLS + "]\n"
                     + "".join(f'"url{i}"="http://example.org/{i}"\n' for i in range(self.VALUES)))
        self.reset()
        self.old = self.registry()
        self.new = {**self.old, TYPED_URLS.upper(): {}}

    def reset(self):
        for name in ("registry", "registry~saving", "registry~old"):
            shutil.rmtree(self.folder / name, ignore_errors=True)
        self.write("registry/user.reg", self.text)

    def start(self):
        return subprocess.Popen([CONSOLE, "--machine", self.folder, "--function", "iertu", "--clean", "--json"],
                                stdout=subprocess.DEVNULL)

    def kill(self, process):
        """Whether it came before the program's end."""
        process.kill()
        return process.wait() == -signal.SIGKILL

    def check(self):
        """What the kill left, and what the next run makes of it."""
        left = self.registry()
        self.assertIn(left, (self.old, self.new), "half of a registry")
        found, _ = self.scan("--function", "iertu")
        self.assertEqual(len(found), self.VALUES if left == self.old else 0)
        self.assertEqual(self.registry(), left)
        self.assertEqual(sorted(p.name for p in self.folder.iterdir() if p.name.startswith("registry")), ["registry"])

    def test_at_any_moment(self):
        begun = time.monotonic()
        self.assertEqual(self.start().wait(), 0)
        whole = time.monotonic() - begun
        self.assertEqual(self.registry(), self.new)
        moments = random.Random(4711)
        killed = 0
        for _ in range(8):
            self.reset()
            process = self.start()
            time.sleep(moments.uniform(0, whole))
            killed += self.kill(process)
            self.check()
        self.assertGreater(killed, 0)

    def test_while_the_registry_is_written(self):
        moments = random.Random(42)
        killed = 0
        for _ in range(8):
            self.reset()
            process = self.start()
            while process.poll() is None and not (self.folder / "registry~saving").exists():
                time.sleep(0.0005)
            time.sleep(moments.uniform(0, 0.02))
            killed += self.kill(process)
            self.check()
        self.assertGreater(killed, 0)


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
    """What the exports say, read by a few lines of Python that know nothing of our reader."""

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
