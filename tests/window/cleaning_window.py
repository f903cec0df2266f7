"""Cleaning in the real window, and what a run leaves on the disk. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest cleaning_window"""
import configparser
import unittest

import driver
import registry_text
from driver import BUILD, CHECK_ALL, CLEAN, CLOSE, FUNCTIONS, PROGRESS, RESULT, SCAN, STATUS, SUM, TIME, TOOLBAR
from seeded import RUN_HISTORY, SEARCHES, SEED, STANDING, SeededMachine, TYPED_URLS

SOFTWARE = "HKEY_CURRENT_USER\\Software"
TYPED_URLS_KEY = SOFTWARE + "\\Microsoft\\Internet Explorer\\TypedUrls"
EXPLORER_KEY = SOFTWARE + "\\Microsoft\\Windows\\CurrentVersion\\Explorer"
SEARCH_KEY = SOFTWARE + "\\Microsoft\\Search Assistant\\ACMru\\5603"
# Windows itself makes the last one anew at once.
STORES = ("ComDlg32\\OpenSaveMRU", "ComDlg32\\LastVisitedMRU", "UserAssist")[:2 if driver.ON_WINDOWS else 3]
STORES_SEED = f"""\
[{EXPLORER_KEY}\\ComDlg32\\OpenSaveMRU]
"a"="C:\\\\one.doc"
[{EXPLORER_KEY}\\ComDlg32\\OpenSaveMRU\\doc]
"a"="C:\\\\one.doc"
[{EXPLORER_KEY}\\ComDlg32\\OpenSaveMRU\\doc\\below]
"a"=hex:00,01
[{EXPLORER_KEY}\\ComDlg32\\LastVisitedMRU]
"a"=hex:4e,00
[{EXPLORER_KEY}\\UserAssist\\{{75048700-EF1F-11D0-9888-006097DEACF9}}\\Count]
"HRZR"=hex:01
[{EXPLORER_KEY}\\ComDlg32\\OpenSaveMRU2]
"a"="stays"
[{TYPED_URLS_KEY}\\Below]
"url1"="stays"
"""


class Cleaning(SeededMachine):
    seed = SEED + STORES_SEED

    def setUp(self):
        super().setUp()
        self.machine.note_rundll32_calls()
        self.before = self.registry()
        self.program = self.start()
        self.untick_file_functions(self.program)

    def registry(self):
        """The user's software keys, without Wine's own, which change while programs run. On Windows other programs
        change more of them, so there it is the keys that were seeded."""
        if not driver.ON_WINDOWS:
            return registry_text.without_key(self.machine.registry(SOFTWARE), SOFTWARE + "\\Wine")
        found = {}
        for key in (TYPED_URLS_KEY, EXPLORER_KEY + "\\RunMRU", EXPLORER_KEY + "\\ComDlg32", SEARCH_KEY):
            found.update(self.machine.registry(key))
        return found

    def check_registry(self, keep=()):
        """Everything that was found is gone, except the typed URLs to keep; everything else is unchanged."""
        expected = self.before
        for key, pairs in ((TYPED_URLS_KEY, TYPED_URLS), (EXPLORER_KEY + "\\RunMRU", RUN_HISTORY),
                           (SEARCH_KEY, SEARCHES)):
            for value, _ in pairs:
                if value not in keep:
                    expected = registry_text.without_value(expected, key, value)
        for store in STORES:
            self.assertIn(f"{EXPLORER_KEY}\\{store}".upper(), self.before)
            expected = registry_text.without_key(expected, f"{EXPLORER_KEY}\\{store}")
        self.assertEqual(self.registry(), expected)

    def check_calls(self):
        calls = driver.wait_for("the commands", lambda: len(self.machine.rundll32_calls()) == 2
                                and self.machine.rundll32_calls())
        self.assertEqual(sorted(calls), [f"InetCpl.cpl,ClearMyTracksByProcess {number}" for number in (16, 32)])

    def test_f5_cleans_what_is_ticked(self):
        scanned = self.program.scan()
        self.program.untick(2)
        self.program.key("F5")
        shown = self.program.wait_for_clean()
        self.program.screenshot("cleaned")
        self.assertEqual(self.rows(shown), [self.rows(scanned)[1]])
        self.assertFalse(shown.rows[0]["checked"])
        self.assertEqual(shown.text(SUM), f"Sum: {scanned.row_count - 1} items, 0. KB cleaned.")
        self.assertRegex(shown.text(TIME), r"^(0 second|\d+ seconds)\.$")
        self.assertEqual(shown.text(PROGRESS), "100%")
        for number in (RESULT, CHECK_ALL, SCAN, CLEAN, *TOOLBAR):
            self.assertTrue(shown.control(number)["enabled"], number)
        self.check_calls()
        self.check_registry(keep=["url2"])

    def test_the_clean_button_does_as_f5(self):
        scanned = self.program.scan()
        self.program.click(scanned.control(CLEAN)["rect"])
        shown = self.program.wait_for_clean()
        self.assertEqual(shown.row_count, 0)
        self.assertEqual(shown.text(SUM), f"Sum: {scanned.row_count} items, 0. KB cleaned.")
        self.check_calls()
        self.check_registry()
        # The rows for whole stores are always found.
        self.assertEqual([row[0] for row in self.rows(self.program.scan())], STANDING["before"] + STANDING["after"])

    def test_nothing_happens_without_rows(self):
        before = self.program.read()
        self.program.key("F5")
        self.program.click(before.control(CLEAN)["rect"])
        after = self.program.settle()
        self.assertEqual(after.text(STATUS), before.text(STATUS))
        self.assertEqual(after.text(SUM), before.text(SUM))
        self.assertEqual(self.registry(), self.before)

    def test_without_a_tick_nothing_goes(self):
        shown = self.program.scan()
        self.program.click(shown.control(CHECK_ALL)["rect"], x=30)
        self.program.wait_until("the ticks to go", lambda s: not any(r["checked"] for r in s.rows))
        self.program.key("F5")
        after = self.program.wait_for_clean()
        self.assertEqual(self.rows(after), self.rows(shown))
        self.assertEqual(after.text(SUM), "Sum: 0 item, 0. KB cleaned.")
        self.assertEqual(self.registry(), self.before)


class LongClean(SeededMachine):
    """Enough rows to look at the window while they are cleaned. It is looked at by its pixels alone: a message to it
    would wait for the clean."""
    ROWS = 40000
    ACCENT, FILL = bytes((11, 110, 143)), bytes((124, 199, 222))  # as src/window/win32/palette.h has them
    seed = (f"[{TYPED_URLS_KEY}]\n" + "".join(f'"url{i}"="http://example.org/{i:06d}"\n' for i in range(ROWS)))

    def setUp(self):
        super().setUp()
        self.machine.note_rundll32_calls()
        self.program = self.start()
        self.untick_file_functions(self.program)

    def count(self, color, rectangle):
        pixels = self.program.pixels(rectangle)
        return sum(pixels[i:i + 3] == color for i in range(0, len(pixels), 3))

    def test_it_is_seen(self):
        scanned = self.program.scan()
        self.assertGreaterEqual(scanned.row_count, self.ROWS)
        left, top, right, _ = scanned.control(PROGRESS)["rect"]
        line = (left + 1, top + 2, right - 1, top + 3)
        whole = self.count(self.FILL, line)
        status, clean = (scanned.control(number)["rect"] for number in (STATUS, CLEAN))
        before = self.program.pixels(status)
        self.assertEqual(whole, line[2] - line[0])
        self.assertGreater(self.count(self.ACCENT, clean), 1000)
        fills = set()

        def partly_filled():
            filled = self.count(self.FILL, line)
            if not 0 < filled < whole:
                return False
            fills.add(filled)
            return len(fills) >= 3

        self.program.key("F5")
        driver.wait_for("a bar that grows", partly_filled)
        # Both are looked at before the bar is: it isn't full yet.
        disabled, said = self.count(self.ACCENT, clean), self.program.pixels(status)
        self.program.screenshot("cleaning")
        self.assertLess(self.count(self.FILL, line), whole, "the clean was over before it was looked at")
        self.assertEqual(disabled, 0)
        self.assertNotEqual(said, before)
        # This key waits for the end.
        self.program.key("s")
        self.program.wait_for_clean()
        self.program.wait_until("the page", lambda s: s.control(FUNCTIONS)["visible"])
        self.assertGreater(self.count(self.ACCENT, clean), 1000)


class DataTree(SeededMachine):
    def setUp(self):
        super().setUp()
        self.data = self.machine.drive_c / "MORVDataPath" / "TVX"
        self.settings_file = self.data / "tvx.dll"

    def settings(self):
        file = configparser.RawConfigParser(strict=True)
        file.optionxform = str
        file.read(self.settings_file, encoding="utf-8")
        return {name: dict(file[name]) for name in file.sections()}

    def attributes(self, path):
        return set(self.machine.run("attrib", path)[:12].replace(" ", ""))


class StartAndStop(DataTree):
    def test_the_first_start_makes_the_data_tree(self):
        self.assertFalse(self.data.exists())
        self.close(self.start())
        settings = self.settings()
        self.assertEqual({name: len(keys) for name, keys in settings.items()},
                         {"Duplicate Files": 6, "One-click Clean/Repair": 1, "Cleaning Method": 2, "Other Options": 4})
        self.assertEqual(settings["Cleaning Method"], {"Method": "D", "Backup Folder": "C:\\TVXBak"})
        marker = "TVX data folder, please do not delete it"
        self.assertEqual({p.name for p in self.data.iterdir()},
                         {"DupeFiles", "tvx.dll", "defjunk.dll", "userjunk.dll", marker})
        self.assertEqual({p.name for p in (self.data / "DupeFiles").iterdir()}, {"scanned", "compared"})
        buckets = {*map(chr, range(ord("A"), ord("Z") + 1)), "other"}
        for store in ("scanned", "compared"):
            self.assertEqual({p.name for p in (self.data / "DupeFiles" / store).iterdir()}, buckets)
        self.assertEqual(list((self.machine.drive_c / "TVXBak").iterdir()), [])
        for path in ("C:\\MORVDataPath", "C:\\MORVDataPath\\TVX", "C:\\MORVDataPath\\TVX\\tvx.dll", "C:\\TVXBak",
                     "C:\\MORVDataPath\\TVX\\DupeFiles\\scanned\\other"):
            self.assertLessEqual({"S", "H"}, self.attributes(path), path)

    def contents(self):
        """The files in the folders of the program: names, times of change, bytes and attributes."""
        found = {}
        for top in (self.data.parent, self.machine.drive_c / "TVXBak"):
            for path in (top, *top.rglob("*")):
                content = path.read_bytes() if path.is_file() else None
                found[path] = (path.stat().st_mtime_ns, content)
        for line in self.machine.run("attrib", "C:\\MORVDataPath\\TVX\\*").splitlines():
            found[line[12:].strip()] = line[:12]
        return found

    def test_a_second_copy_ends_at_once_and_touches_nothing(self):
        program = self.start()
        # Prepare everything that a start changes: it deletes scratch files, makes missing files, replaces settings
        # without types by the defaults, and hides files.
        left = self.data / "DupeFiles" / "scanned" / "A" / "left.txt"
        left.write_text("of the first copy", encoding="ascii")
        (self.data / "userjunk.dll").unlink()
        (self.data / "seen.txt").write_text("not hidden", encoding="ascii")
        driver.write_over(self.settings_file, b"[Cleaning Method]\r\nMethod=S\r\n")
        before = self.contents()
        self.machine.run(BUILD / "tavix.exe")
        after = self.contents()
        self.assertEqual([str(name) for name in before | after if before.get(name) != after.get(name)], [])
        self.assertTrue(program.is_running())
        self.close(program)
        # The program empties the scratch folders when it ends.
        self.assertFalse(left.exists())
        self.assertTrue(left.parent.is_dir())
        self.assertEqual(self.settings_file.read_bytes(), b"[Cleaning Method]\r\nMethod=S\r\n")
        # The first copy has ended, so this one starts.
        self.close(self.start())

    def test_settings_are_kept_unchanged(self):
        self.close(self.start())
        kept = self.settings_file.read_bytes().replace(b"Method=D", b"Method=S") + b"Unknown=kept\r\n"
        driver.write_over(self.settings_file, kept)
        program = self.start()
        program.scan()
        self.close(program)
        self.assertEqual(self.settings_file.read_bytes(), kept)


class ClosedDuringAScan(DataTree):
    seed = (f"[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedUrls]\n"
            + "".join(f'"url{i}"="http://example.org/{i:06d}"\n' for i in range(20000)))

    def test_no_setting_is_lost(self):
        program = self.start()
        kept = self.settings_file.read_bytes().replace(b"Method=D", b"Method=R")
        driver.write_over(self.settings_file, kept)
        close = program.read().control(CLOSE)["rect"]
        program.key("F3")
        program.click(close)
        self.assertEqual(program.exit_status(), 0)
        self.assertEqual(self.settings_file.read_bytes(), kept)
        self.assertEqual(len(list((self.data / "DupeFiles" / "scanned").iterdir())), 27)


if __name__ == "__main__":
    unittest.main(verbosity=2)
