"""An exported machine gives the rows of the machine itself, masked or not, and holds no more than it should.

Export needs no Windows: a machine folder can be exported, too. tests/parity/live_export.py does it with a live one."""
import collections
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

import machine_case
from machine_case import CONSOLE, TOP

import copy_sample
import make_windows_11_machine

NOW = make_windows_11_machine.NOW
PAGES = ["privacy", "system", "registry", "advanced"]


def bytes_of(folder):
    """What a folder holds, names included. Files that read as zeros are left out."""
    for path in sorted(folder.rglob("*")):
        yield str(path.relative_to(folder)).encode()
        if path.is_file() and not path.is_symlink() and path.stat().st_blocks > 0:
            yield path.read_bytes()


class Export(machine_case.Machine):
    def setUp(self):
        super().setUp()
        self.outside = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.outside)
        self.target = self.outside / "exported"

    def export(self, *more):
        done = machine_case.run("--machine", self.folder, "--export", self.target, "--now", NOW, *more)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return done.stdout.decode()

    def rows(self, folder):
        """The rows of all pages. It works on a copy, as each run changes a machine."""
        with tempfile.TemporaryDirectory() as copy:
            machine = pathlib.Path(copy) / "machine"
            shutil.copytree(folder, machine, symlinks=True)
            found = []
            for page in PAGES:
                done = machine_case.run("--machine", machine, "--json", "--now", NOW, "--page", page)
                self.assertEqual((done.returncode, done.stderr), (0, b""))
                found += [json.loads(line) for line in done.stdout.splitlines()]
        for entry in found:
            entry.pop("lblTime", None)
        return found

    def start_once(self):
        """A first start writes the program's data."""
        self.objects("--now", NOW)


class OfTheSampleMachine(Export):
    def setUp(self):
        super().setUp()
        copy_sample.copy(self.folder)
        self.start_once()

    def test_it_gives_the_same_rows(self):
        self.export()
        rows = self.rows(self.folder)
        self.assertGreater(len(rows), 120)
        self.assertEqual(self.rows(self.target), rows)

    def test_an_export_of_an_export_is_equal(self):
        self.export()
        first = self.target
        self.folder, self.target = self.outside / "copy", self.outside / "again"
        shutil.copytree(first, self.folder, symlinks=True)
        self.export()
        self.assertEqual(list(bytes_of(self.target)), list(bytes_of(first)))

    def test_the_machine_stays_as_it_is(self):
        before = self.snapshot()
        self.export()
        after = self.snapshot()
        for name in ("journal.jsonl",):  # each start notes its update check
            before.pop(name, None), after.pop(name, None)
        self.assertEqual(after, before)

    def test_files_have_no_content_but_what_the_program_reads(self):
        self.write("drives/C/Users/Ann/Documents/diary.txt", b"a secret" * 1000)
        self.export()
        diary = self.target / "drives/C/Users/Ann/Documents/diary.txt"
        self.assertEqual(diary.read_bytes(), b"\0" * 8000)
        self.assertEqual(diary.stat().st_blocks, 0)
        shortcut = "drives/C/Users/Ann/Desktop/Old Game.lnk"
        self.assertEqual((self.target / shortcut).read_bytes(), (self.folder / shortcut).read_bytes())

    def test_it_has_the_keys_that_the_program_reads_and_no_others(self):
        self.write("registry/zz.reg", 'Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Secret\\Bank]\n"pin"="4711"\n'
                   '[HKEY_CURRENT_USER\\Software\\Other\\Inside]\n"token"="abc"\n')
        self.export()
        keys = machine_case.registry_text.read_folder(self.target / "registry")
        self.assertFalse([key for key in keys if "SECRET" in key])
        # Whether a key of Software is empty is looked at; what its keys hold is not.
        self.assertEqual(keys["HKEY_CURRENT_USER\\SOFTWARE\\OTHER\\INSIDE"], {})

    def test_a_scope_limits_the_files_and_not_the_rows_of_the_other_pages(self):
        self.export("--scope", "C:\\Users\\Ann\\Documents")
        self.assertTrue((self.target / "drives/C/Users/Ann/Documents/notes.txt").exists())
        self.assertFalse((self.target / "drives/C/Users/Ann/Pictures/garden.jpg").exists())
        scope = ["--scope", "C:\\Users\\Ann\\Documents"]
        for page in PAGES:
            more = scope if page == "advanced" else []
            one, other = [[json.loads(line) for line in machine_case.run(
                "--machine", folder, "--json", "--now", NOW, "--page", page, *more).stdout.splitlines()]
                for folder in (self.folder, self.target)]
            one[-1].pop("lblTime"), other[-1].pop("lblTime")
            self.assertEqual(other, one, page)

    def test_links_are_links_and_lead_to_the_same_place(self):
        documents = self.folder / "drives/C/Users/Ann/Documents"
        (documents / "to pictures").symlink_to("../Pictures")
        (documents / "to nothing").symlink_to("../None")
        (documents / "round").symlink_to(".")
        self.start_once()
        self.export()
        exported = self.target / "drives/C/Users/Ann/Documents"
        self.assertTrue((exported / "to pictures").is_symlink())
        self.assertEqual(sorted(p.name for p in (exported / "to pictures").iterdir()), ["Thumbs.db", "garden.jpg"])
        self.assertTrue((exported / "to nothing").is_symlink())
        self.assertFalse((exported / "to nothing").exists())
        self.assertTrue((exported / "round").is_symlink())
        self.assertEqual(self.rows(self.target), self.rows(self.folder))

    def test_times_and_attributes_are_kept(self):
        file = self.folder / "drives/C/Users/Ann/Documents/notes.txt"
        os.utime(file, (1_000_000_000.25, 1_100_000_000.5))
        self.write("attributes.ini", "C:\\Users\\Ann\\Documents\\notes.txt=3\n")
        self.export()
        facts = (self.target / "drives/C/Users/Ann/Documents/notes.txt").stat()
        self.assertEqual((facts.st_atime, facts.st_mtime, facts.st_size),
                         (1_000_000_000.25, 1_100_000_000.5, file.stat().st_size))
        self.assertIn("C:\\Users\\Ann\\Documents\\notes.txt=3\n", (self.target / "attributes.ini").read_text())


class Masked(Export):
    # Names of files and users on the two machines that nobody else has.
    NAMES = {"sample": ["Ann", "budget", "garden", "drafts", "Draw Things", "oldgame"], "windows 11": ["Ann", "Contoso", "holiday"]}

    def masked(self, name):
        """Exports with a mask. Returns the rows of the machine and of the export."""
        self.start_once()
        self.export("--mask")
        return self.rows(self.folder), self.rows(self.target)

    def assert_same_but_for_names(self, plain, masked):
        """The same rows, where words are replaced one for one. Rows of a folder come in the order of its names."""
        def shape(row):
            """A row with the words of a mask left out."""
            if "Type" not in row:
                return json.dumps(row, sort_keys=True)
            kind = row["Type"].split(" (")[0]
            letters = lambda text: re.sub(r"[a-z]", "a", re.sub(r"[A-Z]", "A", re.sub(r"\d", "0", re.sub(r"[^\x00-\x7f]", "a", text))))
            return kind, row["Size"], row["SizeKey"], row["Checked"], str(row["ForeColor"]), letters(row["Name"]).lower(), \
                letters(row["Location"]).lower(), letters(row["Tag"]).lower()
        self.assertEqual(collections.Counter(map(shape, masked)), collections.Counter(map(shape, plain)))

    def assert_hidden(self, names):
        """As whole words, in any letter case, in names and contents, in bytes and in UTF-16."""
        held = b"\n".join(bytes_of(self.target))
        # Without zeros UTF-16 reads like bytes.
        for text in (held, held.replace(b"\0", b"")):
            found = [name for name in names if re.search(rb"(?i)(?<![a-z0-9])" + name.encode() + rb"(?![a-z0-9])", text)]
            self.assertEqual(found, [])

    def test_the_sample_machine_gives_the_same_rows_and_shows_no_names(self):
        copy_sample.copy(self.folder)
        plain, masked = self.masked("sample")
        self.assertGreater(len(plain), 120)
        self.assert_same_but_for_names(plain, masked)
        self.assert_hidden(self.NAMES["sample"])

    def test_the_windows_11_machine_gives_the_same_rows(self):
        shutil.rmtree(self.folder)
        make_windows_11_machine.Maker(self.folder).make()
        plain, masked = self.masked("windows 11")
        self.assertGreater(len(plain), 150)
        self.assert_same_but_for_names(plain, masked)

    def test_equal_names_stay_equal_and_no_two_become_one(self):
        copy_sample.copy(self.folder)
        for number in range(676):
            self.write(f"drives/C/Users/Ann/Temp/{chr(97 + number // 26)}{chr(97 + number % 26)}.q{number}", b"")
        self.start_once()
        self.export("--mask")
        profile = next(path for path in (self.target / "drives/C/Users").iterdir() if path.name != "Public")
        count = lambda folder: len(list((folder / "Temp").rglob("*")))
        self.assertEqual(count(profile), count(self.folder / "drives/C/Users/Ann"))

    def test_a_mask_is_another_one_each_time(self):
        copy_sample.copy(self.folder)
        self.start_once()
        self.export("--mask")
        names = {path.name for path in (self.target / "drives/C/Users").iterdir()}
        self.target = self.outside / "again"
        self.export("--mask")
        self.assertNotEqual({path.name for path in (self.target / "drives/C/Users").iterdir()}, names)

    def test_names_that_only_look_like_junk_after_masking_are_kept_from_it(self):
        """Three-letter endings could become "tmp" or "log"."""
        self.write("machine.ini", "[Environment]\nWinDir=C:\\WINDOWS\n[Drives]\nC=2\n")
        for first in "abcdefghijklmnopqrstuvwxyz":
            for second in "abcdefghijklmnopqrstuvwxyz":
                self.write(f"drives/C/Data/x.{first}{second}q", b"12345")
        self.start_once()
        self.export("--mask")
        rows = [row for row in self.rows(self.target) if "Type" in row]
        self.assertEqual([row for row in rows if row["Type"] == "Junk File"], [])
        self.assertEqual(len([path for path in (self.target / "drives/C").glob("*/x.*")]), 676)


class Refused(Export):
    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Drives]\nC=2\n")

    def test_a_folder_with_something_in_it_stays_as_it_is(self):
        self.target.mkdir()
        (self.target / "mine.txt").write_text("mine")
        line = self.refused(2, "--machine", self.folder, "--export", self.target)
        self.assertIn("is no new or empty folder", line)
        self.assertEqual([path.name for path in self.target.iterdir()], ["mine.txt"])

    def test_a_folder_that_cant_be_made(self):
        self.assertIn("is no new or empty folder",
                      self.refused(2, "--machine", self.folder, "--export", self.outside / "none" / "deep"))

    def test_a_folder_inside_the_machine(self):
        self.assertIn("lies in the machine folder", self.refused(2, "--machine", self.folder, "--export", self.folder / "drives"))
        self.assertFalse((self.folder / "drives").exists())

    def test_a_scope_that_isnt_there_leaves_nothing_behind(self):
        line = self.refused(2, "--machine", self.folder, "--export", self.target, "--scope", "C:\\None")
        self.assertIn("is no drive or folder", line)
        self.assertFalse(self.target.exists())

    def test_options_of_a_single_page(self):
        for option in (["--page", "system"], ["--one-click"], ["--function", "x"], ["--set", "A/b=c"], ["--tick", "1"],
                       ["--clean"], ["--json"]):
            line = self.refused(2, "--machine", self.folder, "--export", self.target, *option)
            self.assertIn("exclude each other", line)
            self.assertFalse(self.target.exists())
        self.assertIn("--mask needs --export", self.refused(2, "--machine", self.folder, "--mask"))


class Stopped(Export):
    def test_ctrl_c_leaves_nothing_behind(self):
        self.write("machine.ini", "[Drives]\nC=2\n")
        for number in range(20_000):
            file = self.folder / "drives/C" / str(number % 100) / f"{number}.txt"
            file.parent.mkdir(parents=True, exist_ok=True)
            file.touch()
        process = subprocess.Popen([CONSOLE, "--machine", self.folder, "--export", self.target, "--now", NOW],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        # It runs in small steps, so that it is met while it writes, however busy the machine is.
        while process.poll() is None and not (self.target / "drives" / "C").exists():
            process.send_signal(signal.SIGCONT)
            time.sleep(0.002)
            process.send_signal(signal.SIGSTOP)
        process.send_signal(signal.SIGINT)
        process.send_signal(signal.SIGCONT)
        output, errors = process.communicate(timeout=300)
        self.assertEqual((process.returncode, output), (1, b""))
        self.assertEqual(errors, b"tavix-console: stopped; nothing was written\n")
        self.assertFalse(self.target.exists())


if __name__ == "__main__":
    unittest.main()
