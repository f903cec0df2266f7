"""Every key of the main window, pressed in the real one. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest keys_window"""
import unittest

import driver
from driver import CANCEL, CLEAN, FUNCTIONS, ONE_CLICK, OPTIONS, PAGES, PRIVACY, REPAIR, RESULT, SCAN, SCOPE, STATUS, SUM, TREE
from seeded import RealWindow, SeededMachine, TYPED_URLS

ACCENT = bytes((11, 110, 143))  # as src/window/win32/palette.h has it
WHITE = bytes((255, 255, 255))
WHOLE_PAGES = {
    "p": ({TREE: True, FUNCTIONS: False, SCOPE: False, CLEAN: True, REPAIR: False}, 0),
    "s": ({TREE: False, FUNCTIONS: True, SCOPE: False, CLEAN: True, REPAIR: False}, 14),
    "r": ({TREE: False, FUNCTIONS: True, SCOPE: False, CLEAN: False, REPAIR: True}, 18),
    "a": ({TREE: False, FUNCTIONS: True, SCOPE: True, CLEAN: True, REPAIR: False}, 7),
}


class KeysCase(RealWindow):
    def current(self):
        """The page pictures with the mark of the current page."""
        shown = self.program.read()

        def marked(page):
            left, top, _, bottom = shown.control(page)["rect"]
            middle = (top + bottom) // 2
            return self.program.pixels((left + 2, middle, left + 3, middle + 1)) == ACCENT

        return [page for page in PAGES if marked(page)]

    def visible(self, shown):
        return {number: shown.control(number)["visible"] for number in (TREE, FUNCTIONS, SCOPE, CLEAN, REPAIR)}

    def open(self, key):
        self.program.key(key)
        return self.program.wait_until(f"page {key}", lambda s: self.visible(s) == WHOLE_PAGES[key][0])


class Pages(KeysCase):
    def test_letters_open_the_pages(self):
        for place, key in ((1, "s"), (2, "r"), (3, "a"), (0, "p")):
            shown = self.open(key)
            if key != "p":
                self.assertEqual(len(shown.functions), WHOLE_PAGES[key][1])
                self.assertEqual(shown.functions[0]["texts"], ["Uncheck All"])
                self.assertTrue(all(function["checked"] for function in shown.functions))
            self.assertEqual(self.current(), [PRIVACY + place])
            self.assertTrue(shown.control(RESULT)["visible"])

    def test_a_letter_with_another_key_held_does_nothing(self):
        self.program.key("shift+s", "alt+s", "ctrl+s", "ctrl+shift+s", "ctrl+r")
        self.assertEqual(self.visible(self.program.settle()), WHOLE_PAGES["p"][0])

    def test_letters_work_wherever_the_focus_is(self):
        for _ in range(6):
            self.program.key("Tab")
            self.open("s")
            self.open("p")

    def test_o_comes_back_to_the_page_in_use(self):
        self.open("s")
        self.program.key("o")
        self.program.wait_until("the options window", lambda s: not s.enabled)
        self.program.key("Escape")
        self.program.wait_until("the options window to close", lambda s: s.enabled)
        self.assertEqual(self.current(), [PRIVACY + 1])
        self.assertNotIn(OPTIONS, self.current())

    def test_the_rows_stay_when_another_page_is_opened(self):
        rows = self.rows(self.program.scan())
        self.assertEqual(self.rows(self.open("r")), rows)


class ToolbarKeys(KeysCase):
    def test_ctrl_i_turns_every_tick(self):
        shown = self.program.scan()
        self.program.untick(2)
        self.program.key("ctrl+i")
        shown = self.program.wait_until("the ticks to turn", lambda s: s.rows[1]["checked"])
        self.assertEqual([row["checked"] for row in shown.rows], [i == 1 for i in range(shown.row_count)])

    def test_the_others_do_nothing_without_a_row(self):
        before = self.program.scan()
        self.program.key("ctrl+x", "ctrl+o", "ctrl+p")
        after = self.program.settle()
        self.assertEqual(self.rows(after), self.rows(before))
        self.assertTrue(after.enabled)

    def test_ctrl_o_leads_the_registry_editor_to_the_row(self):
        self.untick_file_functions(self.program)
        shown = self.program.scan()
        self.assertEqual(shown.rows[0]["texts"][1], TYPED_URLS[0][1])
        self.program.click(shown.rows[0]["rect"], x=60)
        if driver.ON_WINDOWS:
            self.addCleanup(self.machine.run, "taskkill", "/im", "regedit.exe", "/f", allowed=(0, 128))
        self.program.key("ctrl+o")
        editor = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Regedit"

        def leads_there():
            said = self.machine.run("reg", "query", editor, "/v", "LastKey", allowed=(0, 1)) or ""
            return "HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\Typed" in said

        driver.wait_for("the editor's key", leads_there)


class OneClick(KeysCase):
    def ask(self):
        self.program.key("1")
        self.program.wait_until("the question", lambda s: not s.enabled)

    def test_its_mark_stands_while_the_question_does(self):
        shown = self.program.read()
        self.program.move_onto(shown.control(ONE_CLICK)["rect"])
        left, top, _, _ = shown.control(ONE_CLICK)["rect"]
        card = (left + 12, top + 12, left + 13, top + 13)
        driver.wait_for("the lit picture", lambda: self.program.pixels(card) == ACCENT)
        self.program.click(shown.control(ONE_CLICK)["rect"])
        self.program.wait_until("the question", lambda s: not s.enabled)
        self.assertEqual(self.current(), [ONE_CLICK])
        self.assertEqual(self.program.pixels(card), WHITE, "its picture is the one at rest")
        self.program.key("Escape", "Tab", "Return")
        self.program.wait_until("the question to go", lambda s: s.enabled)
        driver.wait_for("the page's mark", lambda: self.current() == [PRIVACY])

    def test_no_leaves_all_as_it_was(self):
        before = self.program.read()
        self.ask()
        self.program.key("Tab", "Return")
        after = self.program.wait_until("the question to go", lambda s: s.enabled)
        self.assertEqual(after.text(STATUS), before.text(STATUS))
        self.assertEqual(after.row_count, 0)
        self.assertEqual(self.current(), [PRIVACY])

    @driver.needs_wine("cleans all that it finds on the System page")
    def test_yes_scans_and_cleans(self):
        self.machine.note_rundll32_calls()
        self.open("s")
        self.ask()
        self.program.key("Return")
        # The reader asks one control after the other, so the wait names every text that is looked at.
        self.program.wait_until("the end of the clean", lambda s: s.enabled and s.text(SUM).endswith("cleaned.")
                                and s.text(STATUS) == "Finished.")
        self.assertEqual(self.current(), [PRIVACY + 1])
        typed = "HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedUrls"
        self.assertNotIn("zebra", str(self.machine.registry(typed)))


class ScanCase(SeededMachine):
    """The temporary folder has enough folders to press keys during the scan."""
    FOLDERS = 40000

    def setUp(self):
        super().setUp()
        folders = [self.machine.drive_c / "windows" / "temp" / f"folder-{number:05d}" for number in range(self.FOLDERS)]
        if driver.ON_WINDOWS:
            self.addCleanup(lambda: [folder.rmdir() for folder in folders if folder.exists()])
        for folder in folders:
            folder.mkdir(parents=True, exist_ok=True)
        self.program = self.start()
        self.program.key("s")
        self.program.wait_until("the page", lambda s: s.control(FUNCTIONS)["visible"])
        self.begin()
        self.program.wait_until("the scan", lambda s: s.control(CANCEL)["visible"])

    def begin(self):
        self.program.key("F3")

    def finish(self):
        return self.program.wait_until("the end", lambda s: s.control(SCAN)["visible"])


class DuringAScan(ScanCase):
    def test_a_page_is_opened(self):
        self.program.key("r")
        shown = self.program.wait_until("the page", lambda s: s.control(REPAIR)["visible"])
        self.assertEqual(len(shown.functions), 18)
        self.assertTrue(shown.control(CANCEL)["visible"], "the scan was over before the page was opened")
        self.assertFalse(shown.control(RESULT)["enabled"])
        self.program.key("Escape")
        shown = self.finish()
        self.assertTrue(shown.text(STATUS).startswith("Canceled, "))
        self.assertTrue(shown.control(REPAIR)["enabled"])

    def test_the_window_moves(self):
        before = self.program.read()
        title = (before.rect[0] + 300, before.rect[1] + 30)
        moved = self.program.drag(title, (60, 40))
        self.assertTrue(moved.control(CANCEL)["visible"], "the scan was over before the window was moved")
        self.program.key("Escape")
        self.finish()

    def test_f3_does_not_start_another(self):
        self.program.key("F3", "F5", "F3")
        self.assertTrue(self.program.read().control(CANCEL)["visible"])
        self.program.key("Escape")
        self.assertTrue(self.finish().text(STATUS).startswith("Canceled, "))


class DuringAScanBegunByMouse(ScanCase):
    def begin(self):
        self.program.click(self.program.read().control(SCAN)["rect"])

    def test_space_presses_cancel(self):
        self.program.wait_until("the focus on Cancel", lambda s: s.focus() == CANCEL)
        self.program.key("space")
        shown = self.finish()
        self.assertTrue(shown.text(STATUS).startswith("Canceled, "))
        self.program.wait_until("the focus on Scan", lambda s: s.focus() == SCAN)


if __name__ == "__main__":
    unittest.main(verbosity=2)
