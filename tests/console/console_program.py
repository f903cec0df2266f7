"""Runs tavix-console as people and tools run it."""
import json
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
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

    def scan(self, *arguments):
        done = run("--machine", self.folder, "--json", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stderr, b"")
        objects = [json.loads(line) for line in done.stdout.splitlines()]
        return objects[:-1], objects[-1]


class SampleMachine(Machine):
    def setUp(self):
        super().setUp()
        shutil.copytree(TOP / "res" / "sample-machine", self.folder, dirs_exist_ok=True)

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
        self.assertIn("http://例え.example/世界", text)
        self.assertIn("Finished, please click <Clean>", text)
        self.assertRegex(text, r"Sum: 16 items, 0\. KB found\.")
        self.assertEqual(done.stderr, b"")

    def test_a_scan_leaves_the_machine_as_it_is(self):
        before = {p: p.read_bytes() for p in self.folder.rglob("*") if p.is_file()}
        self.scan()
        kept = {p: p.read_bytes() for p in self.folder.rglob("*") if p in before}
        self.assertEqual(kept, before)


class Arguments(Machine):
    def refused(self, status, *arguments):
        done = run(*arguments)
        self.assertEqual(done.returncode, status, done)
        self.assertEqual(done.stdout, b"")
        lines = done.stderr.decode("utf-8", "replace").splitlines()
        self.assertEqual(len(lines), 1, lines)
        return lines[0]

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
