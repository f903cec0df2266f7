"""The main window as a user meets it. Run by CTest, or: TAVIX_BUILD=build/windows python3 -m unittest real_window"""
import configparser
import json
import shutil
import unittest

import driver
import registry_text
from driver import BUILD, CANCEL, CHECK_ALL, CLEAN, CLOSE, MINI, PRIVACY, PROGRESS, REPAIR, RESULT, SCAN, STATUS, SUM
from driver import TIME, TOOLBAR, TREE

TYPED_URLS = [
    ("url1", "http://zebra.example/"),
    ("url2", "http://Ärger.example/größe?q=naïve"),
    ("url3", "http://例え.example/日本語"),
    ("url4", "http://emoji.example/\U0001f600"),
    ("url5", 'C:\\Program Files\\"quoted"'),
    ("url6", "http://apple.example/"),
]
RUN_HISTORY = [("a", "notepad\\1"), ("b", "regedit\\1"), ("MRUList", "ba")]
SEARCHES = [("000", "*.doc"), ("001", "Straße")]
STANDING = {
    "before": ["Auto-fill Form History", "Auto-fill Password History"],
    "behind": ["User Ran Applications History", "Open/Save History", "Other Explorer MRUs"],
}


def values(pairs):
    def quoted(text):
        return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'

    return "".join(f"{quoted(name)}={quoted(data)}\n" for name, data in pairs)


SEED = f"""\
[-HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedUrls]
[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedUrls]
{values(TYPED_URLS)}
[-HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU]
[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU]
{values(RUN_HISTORY)}
[HKEY_CURRENT_USER\\Software\\Microsoft\\Search Assistant\\ACMru\\5603]
{values(SEARCHES)}
"""


def expected_rows():
    """The rows of the seeded machine, in the order of the tree."""

    def row(kind, name):
        return [kind, name, "N/A", "Registry", "00000000.0"]

    return ([row("Recently Typed URL", data) for _, data in TYPED_URLS]
            + [row(name, name) for name in STANDING["before"]]
            + [row("Run History (in Start menu)", data) for _, data in RUN_HISTORY]
            + [row("Search History", data) for _, data in SEARCHES]
            + [row(name, name) for name in STANDING["behind"]])


class SeededMachine(unittest.TestCase):
    seed = SEED

    def setUp(self):
        self.machine = driver.Machine()
        self.addCleanup(self.machine.close)
        self.machine.seed(self.seed)

    def start(self, **more):
        program = driver.Program(self.machine, **more)
        self.addCleanup(program.close)
        return program

    def close(self, program):
        program.click(program.read().control(CLOSE)["rect"])
        self.assertEqual(program.exit_status(), 0)

    def rows(self, shown):
        return [row["texts"] for row in shown.rows]


class RealWindow(SeededMachine):
    def setUp(self):
        super().setUp()
        self.program = self.start()


class AtStart(RealWindow):
    def test_the_privacy_page_waits_for_the_user(self):
        shown = self.program.read()
        self.program.screenshot("start")
        self.assertEqual(shown.rows, [])
        self.assertEqual(shown.text(STATUS), "Please click <Scan> or press <F3> to start current cleaning job.")
        self.assertEqual(shown.text(SUM), "Sum: ? item(s), ? KB found.")
        self.assertEqual(shown.text(TIME), "? second(s).")
        self.assertEqual([n["node"] for n in shown.nodes if n["level"] == 0], ["Internet Explorer", "Windows Explorer"])
        self.assertTrue(all(node["checked"] for node in shown.nodes))
        self.assertEqual(len(shown.nodes), 17)
        visible = {number: shown.control(number)["visible"] for number in (TREE, SCAN, CANCEL, CLEAN, REPAIR)}
        self.assertEqual(visible, {TREE: True, SCAN: True, CANCEL: False, CLEAN: True, REPAIR: False})
        self.assertEqual([c["text"].strip() for c in shown.columns], ["Type", "Name", "Size (KB)", "Location", ""])

    def test_escape_does_nothing(self):
        before = self.program.read()
        self.program.key("Escape")
        shown = self.program.read()
        self.assertTrue(self.program.is_running())
        self.assertEqual(shown.controls, before.controls)

    def test_minimise_sends_the_window_away_and_leaves_it_running(self):
        shown = self.program.read()
        self.assertFalse(shown.minimized)
        self.program.click(shown.control(MINI)["rect"])
        self.program.wait_until("the window to go", lambda s: s.minimized)
        self.assertTrue(self.program.is_running())


class Scanning(RealWindow):
    def test_f3_finds_what_was_seeded(self):
        shown = self.program.scan()
        self.program.screenshot("scanned")
        expected = expected_rows()
        self.assertEqual(self.rows(shown), expected)
        self.assertTrue(all(row["checked"] for row in shown.rows))
        self.assertEqual(shown.text(STATUS), "Finished, please click <Clean> or press <F5> to clean the checked items.")
        self.assertEqual(shown.text(SUM), f"Sum: {len(expected)} items, 0. KB found.")
        self.assertRegex(shown.text(TIME), r"^(0 second|\d+ seconds)\.$")
        self.assertRegex(shown.text(PROGRESS), r"^\d+%$")
        for number in (RESULT, CHECK_ALL, CLEAN, *TOOLBAR):
            self.assertTrue(shown.control(number)["enabled"], number)

    def test_a_second_f3_finds_the_same(self):
        first = self.program.scan()
        self.program.key("F3")
        second = self.program.scan()
        self.assertEqual(self.rows(second), self.rows(first))

    def test_the_scan_button_does_as_f3(self):
        self.program.click(self.program.read().control(SCAN)["rect"])
        shown = self.program.wait_until("the end of the scan", lambda s: s.text(STATUS).startswith("Finished"))
        self.assertEqual(self.rows(shown), expected_rows())

    def test_an_unticked_function_is_left_out(self):
        node = self.program.read().node("Recently Typed URLs")
        self.program.click(node["rect"], x=-8)
        shown = self.program.wait_until("the tick to go", lambda s: not s.node("Recently Typed URLs")["checked"])
        self.assertTrue(shown.node("Internet Explorer")["checked"])
        self.program.screenshot("unticked")
        self.assertEqual(self.rows(self.program.scan()), expected_rows()[len(TYPED_URLS):])

    def test_a_branch_hands_its_tick_to_its_functions(self):
        self.program.click(self.program.read().node("Internet Explorer")["rect"], x=-8)
        shown = self.program.wait_until("the ticks to go", lambda s: not s.node("Cookies")["checked"])
        ticks = [node["checked"] for node in shown.nodes]
        self.assertEqual(ticks, [False] * 10 + [True] * 7)

    def test_the_console_finds_the_same(self):
        console = BUILD / "tavix-console.exe"
        if not console.exists():
            self.skipTest("tavix-console.exe is not built")
        shown = self.program.scan()
        # Only one copy of the program runs at a time.
        self.program.click(shown.control(CLOSE)["rect"])
        self.assertEqual(self.program.exit_status(), 0)
        lines = [json.loads(line) for line in self.machine.run(console, "--live", "--json").splitlines()]
        rows = [line for line in lines if "row" in line]
        fields = ("Type", "Name", "Size", "Location", "SizeKey")
        self.assertEqual(self.rows(shown), [[row[field] for field in fields] for row in rows])
        self.assertEqual([row["checked"] for row in shown.rows], [row["Checked"] for row in rows])
        labels = next(line for line in lines if "lblSum" in line)
        self.assertEqual(shown.text(SUM), labels["lblSum"])
        self.assertEqual(shown.text(STATUS), labels["lblProgS"])
        self.assertEqual(shown.text(PROGRESS), labels["lblProgMI"]["Caption"])


class Results(RealWindow):
    def test_a_header_sorts_and_turns(self):
        shown = self.program.scan()
        names = shown.names()
        # The first click ever turns the direction that the list starts with, which is ascending.
        self.program.click(shown.columns[1]["rect"])
        downwards = self.program.wait_until("the first order", lambda s: s.names() != names).names()
        self.program.screenshot("sorted")
        self.program.click(shown.columns[1]["rect"])
        upwards = self.program.wait_until("the second order", lambda s: s.names() != downwards).names()
        # However quickly it comes after the click before.
        self.program.click(shown.columns[1]["rect"])
        self.program.click(shown.columns[1]["rect"])
        self.assertEqual(self.program.read().names(), upwards)
        self.assertEqual(upwards, sorted(names, key=str.upper))
        self.assertEqual(downwards, sorted(names, key=str.upper, reverse=True))

    def test_check_all_turns_every_row(self):
        shown = self.program.scan()
        self.program.click(shown.control(CHECK_ALL)["rect"], x=30)
        shown = self.program.wait_until("the ticks to go", lambda s: not any(r["checked"] for r in s.rows))
        self.assertFalse(shown.control(CHECK_ALL)["ticked"])
        self.program.click(shown.control(CHECK_ALL)["rect"], x=30)
        self.program.wait_until("the ticks to come", lambda s: all(r["checked"] for r in s.rows))

    def test_a_row_is_ticked_by_click_and_by_space(self):
        shown = self.program.scan()
        self.program.click(shown.rows[2]["rect"], x=8)
        shown = self.program.wait_until("the tick to go", lambda s: not s.rows[2]["checked"])
        self.assertEqual([r["checked"] for r in shown.rows].count(False), 1)
        self.program.click(shown.rows[4]["rect"], x=60)
        self.program.key("space")
        shown = self.program.wait_until("the second tick to go", lambda s: not s.rows[4]["checked"])
        self.assertEqual([r["checked"] for r in shown.rows].count(False), 2)

    def test_a_letter_in_the_list_leaves_the_list_alone(self):
        shown = self.program.scan()
        self.program.click(shown.rows[0]["rect"], x=60)
        self.program.key("p")
        after = self.program.read()
        self.assertTrue(after.control(RESULT)["focus"])
        self.assertEqual(self.rows(after), self.rows(shown))


SOFTWARE = "HKEY_CURRENT_USER\\Software"
TYPED_URLS_KEY = SOFTWARE + "\\Microsoft\\Internet Explorer\\TypedUrls"
EXPLORER_KEY = SOFTWARE + "\\Microsoft\\Windows\\CurrentVersion\\Explorer"
SEARCH_KEY = SOFTWARE + "\\Microsoft\\Search Assistant\\ACMru\\5603"
STORES = ("ComDlg32\\OpenSaveMRU", "ComDlg32\\LastVisitedMRU", "UserAssist")
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

    def registry(self):
        """The user's software, without what Wine keeps there for itself while programs run."""
        return registry_text.without_key(self.machine.registry(SOFTWARE), SOFTWARE + "\\Wine")

    def check_registry(self, keep=()):
        """All that was found has gone but for the typed URLs to keep, and all else is as it was."""
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
        # What stands for a whole store is found again.
        self.assertEqual([row[0] for row in self.rows(self.program.scan())], STANDING["before"] + STANDING["behind"])

    def test_nothing_happens_without_rows(self):
        before = self.program.read()
        self.program.key("F5")
        self.program.click(before.control(CLEAN)["rect"])
        self.assertEqual(self.program.read().text(STATUS), before.text(STATUS))
        self.assertEqual(self.program.read().text(SUM), before.text(SUM))
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

    def test_a_second_copy_ends_at_once_and_touches_nothing(self):
        program = self.start()
        left = self.data / "DupeFiles" / "scanned" / "A" / "left.txt"
        left.write_text("of the first copy", encoding="ascii")
        settings = self.settings_file.read_bytes()
        self.machine.run(BUILD / "tavix.exe")
        self.assertTrue(left.exists())
        self.assertEqual(self.settings_file.read_bytes(), settings)
        self.assertTrue(program.is_running())
        self.close(program)
        # The scratch folders are emptied at the end.
        self.assertFalse(left.exists())
        self.assertTrue(left.parent.is_dir())
        # Now there is no other.
        self.close(self.start())

    def test_settings_are_kept_as_they_stand(self):
        self.close(self.start())
        kept = self.settings_file.read_bytes().replace(b"Method=D", b"Method=S") + b"Unknown=kept\r\n"
        self.settings_file.write_bytes(kept)
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
        self.settings_file.write_bytes(kept)
        close = program.read().control(CLOSE)["rect"]
        program.key("F3")
        program.click(close)
        self.assertEqual(program.exit_status(), 0)
        self.assertEqual(self.settings_file.read_bytes(), kept)
        self.assertEqual(len(list((self.data / "DupeFiles" / "scanned").iterdir())), 27)


class Languages(SeededMachine):
    def start_from_a_folder_of_its_own(self, catalogue=None):
        folder = self.machine.drive_c / "Tavix"
        folder.mkdir(exist_ok=True)
        shutil.copy(BUILD / "tavix.exe", folder)
        if catalogue is not None:
            shutil.copy(driver.SOURCE / "res" / "lang" / catalogue / "tips.dll", folder)
        return self.start(program=folder / "tavix.exe")

    def test_without_a_catalogue_the_captions_are_the_built_in_ones(self):
        shown = self.start_from_a_folder_of_its_own().read()
        self.assertEqual([shown.text(number) for number in (SCAN, CANCEL, CLEAN, REPAIR)],
                         ["Scan", "Cancel", "Clean", "Repair"])

    def test_a_catalogue_beside_the_program_gives_the_captions(self):
        program = self.start_from_a_folder_of_its_own("de")
        shown = program.read()
        program.screenshot("german")
        self.assertEqual([shown.text(number) for number in (SCAN, CANCEL, CLEAN, REPAIR)],
                         ["Suchen", "Abbrechen", "Bereinigen", "Reparieren"])


class Closing(RealWindow):
    def test_the_close_button_ends_the_program(self):
        self.program.click(self.program.read().control(CLOSE)["rect"])
        self.assertEqual(self.program.exit_status(), 0)

    def test_the_right_button_does_not(self):
        self.program.click(self.program.read().control(CLOSE)["rect"], button=3)
        self.program.read()
        self.assertTrue(self.program.is_running())

    def test_alt_f4_ends_the_program(self):
        self.program.key("alt+F4")
        self.assertEqual(self.program.exit_status(), 0)


class ManyRows(RealWindow):
    COUNT = 20000
    seed = (f"[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedUrls]\n"
            + "".join(f'"url{i}"="http://example.org/{i:06d}"\n' for i in range(COUNT)))

    def test_closing_during_a_run_ends_the_program(self):
        close = self.program.read().control(CLOSE)["rect"]
        self.program.key("F3")
        self.program.click(close)
        self.assertEqual(self.program.exit_status(), 0)

    def test_escape_during_a_run_leaves_the_window_usable(self):
        self.program.key("F3", "Escape")
        shown = self.program.wait_until("the end of the scan", lambda s: s.control(SCAN)["visible"]
                                        and s.text(STATUS).startswith(("Finished", "Canceled")))
        self.program.screenshot("many")
        self.assertTrue(shown.control(RESULT)["enabled"])
        self.assertGreater(shown.row_count, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
