"""The main window, used with keys and mouse. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest real_window"""
import json
import shutil
import unittest

import driver
from driver import BUILD, CANCEL, CHECK_ALL, CLEAN, CLOSE, MINI, PROGRESS, REPAIR, RESULT, SCAN, STATUS, SUM
from driver import TIME, TOOLBAR, TREE
from seeded import RealWindow, SeededMachine, TYPED_URLS, expected_rows


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
        shown = self.program.settle()
        self.assertTrue(self.program.is_running())
        self.assertEqual(shown.controls, before.controls)

    def test_minimise_sends_the_window_away_and_leaves_it_running(self):
        shown = self.program.read()
        self.assertFalse(shown.minimized)
        self.program.click(shown.control(MINI)["rect"])
        self.program.wait_until("the window to go", lambda s: s.minimized)
        self.assertTrue(self.program.is_running())


class Scanning(RealWindow):
    def setUp(self):
        super().setUp()
        self.untick_file_functions(self.program)

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
        self.program.untick(2)
        second = self.program.scan(has_begun=lambda s: s.row_count > 1 and s.rows[1]["checked"])
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
        self.assertTrue(shown.node("Internet Explorer")["half"])
        self.assertEqual(self.rows(self.program.scan()), expected_rows()[len(TYPED_URLS):])

    def test_a_branch_hands_its_tick_to_its_functions(self):
        self.program.click(self.program.read().node("Internet Explorer")["rect"], x=-8)
        shown = self.program.wait_until("the ticks to go", lambda s: not s.node("Recently Typed URLs")["checked"])
        self.assertEqual([node["checked"] for node in shown.nodes[:10]], [False] * 10)
        self.assertTrue(shown.node("Windows Explorer")["checked"])

    @driver.needs_wine("other programs change what is found")
    def test_the_console_finds_the_same(self):
        console = BUILD / "tavix-console.exe"
        if not console.exists():
            self.skipTest("tavix-console.exe is not built")
        # Everything ticked, as the console does.
        for _ in range(2):
            self.program.click(self.program.read().node("Internet Explorer")["rect"], x=-8)
            self.program.click(self.program.read().node("Windows Explorer")["rect"], x=-8)
        self.program.wait_until("all ticks", lambda s: all(n["checked"] and not n["half"] for n in s.nodes))
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
        # The list starts ascending, and the first click reverses that.
        self.program.click(shown.columns[1]["rect"])
        downwards = self.program.wait_until("the first order", lambda s: s.names() != names).names()
        self.program.screenshot("sorted")
        self.program.click(shown.columns[1]["rect"])
        upwards = self.program.wait_until("the second order", lambda s: s.names() != downwards).names()
        # A quick second click counts as well.
        self.program.click(shown.columns[1]["rect"])
        self.program.click(shown.columns[1]["rect"])
        self.assertEqual(self.program.settle().names(), upwards)
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
        after = self.program.settle()
        self.assertTrue(after.control(RESULT)["focus"])
        self.assertEqual(self.rows(after), self.rows(shown))


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
        self.program.settle()
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
