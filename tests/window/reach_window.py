"""What is reached by keys: every control in the order of the eye, the controls that labels name by their letters, the
help menu and the links of the title; and what the status line tells about rows and commands. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest reach_window"""
import json
import shutil
import unittest

import driver
from driver import HELP, MAKER_LINK, PRODUCT_LINK, RESULT, SCAN, STATUS
from options_case import (DESCRIPTION, FILE_DAYS, JUNK, JUNK_ADD, OPTIONS_WINDOW, OTHERS, PAGE_TITLES, PAGE_TREE,
                          PATTERN, PREFETCH_DAYS, TYPE_WINDOW, Dialog, OptionsCase)
from reading_order import reading_order
from seeded import RealWindow, TYPED_URLS

DAYS_LABELS, TYPE_LABELS = driver.ids("DaysLabels", "DaysLabels+1"), driver.ids("TypeLabels", "TypeLabels+1")
MAIN_WINDOW, ABOUT_WINDOW, MENU = "TavixMainWindow", "TavixAboutWindow", "#32768"
WALK = driver.BUILD / "tavix-accessible-walk.exe"


def mark(caption):
    """The letter that an ampersand marks, or None."""
    at = caption.replace("&&", "  ").find("&")
    return caption[at + 1].lower() if at >= 0 else None


class Tour(OptionsCase):
    """Walks through a window by Tab."""

    def stops(self, window):
        """{control: rectangle} of all that can take the focus by Tab."""
        lines = self.machine.run(WALK, window).splitlines()
        found = [json.loads(line) for line in lines]
        return {line["control"]: line["rect"] for line in found if line["tabStop"]}

    def focus_in(self, window):
        return self.program.read().focus() if window == MAIN_WINDOW else self.window(window).focus()

    def tour(self, window):
        """The controls that Tab leads to, until it comes round."""
        seen = [self.focus_in(window)]
        while True:
            before = seen[-1]
            self.key("Tab")
            after = driver.wait_for("the focus to go on",
                                    lambda b=before: (f := self.focus_in(window)) not in (b, None) and f)
            if after == seen[0]:
                return seen
            self.assertNotIn(after, seen)
            seen.append(after)

    def check(self, window):
        stops = self.stops(window)
        expected = reading_order(stops)
        toured = self.tour(window)
        first = expected.index(toured[0])
        self.assertEqual(toured, expected[first:] + expected[:first])

    def test_through_the_main_window_on_each_page(self):
        for page, control in (("p", driver.TREE), ("s", driver.FUNCTIONS), ("r", driver.REPAIR), ("a", driver.SCOPE)):
            self.key(page)
            self.program.wait_until("the page", lambda s, c=control: s.control(c)["visible"])
            with self.subTest(page=page):
                self.check(MAIN_WINDOW)

    def test_through_each_page_of_the_options(self):
        for page, title in enumerate(PAGE_TITLES):
            self.open(page)
            with self.subTest(page=title):
                self.check(OPTIONS_WINDOW)
            self.key("Escape")
            self.wait_for_close(OPTIONS_WINDOW)

    def test_through_the_junk_editor_and_the_about_window(self):
        self.open(JUNK)
        self.press(JUNK_ADD)
        self.wait_for_window("the editor", name=TYPE_WINDOW)
        self.check(TYPE_WINDOW)
        self.key("Escape", "Escape")
        self.wait_for_close(OPTIONS_WINDOW)
        self.click(self.program.read().control(HELP)["rect"])
        self.program.wait_for_menu()
        self.key("a")
        self.wait_for_window("the about window", name=ABOUT_WINDOW)
        self.check(ABOUT_WINDOW)


class Letters(OptionsCase):
    def go(self, window, label, named):
        """Presses Alt and the letter of a label. It leads to the control that the label names."""
        letter = mark(self.window(window).text(label))
        self.assertIsNotNone(letter)
        self.key(f"alt+{letter}")
        self.wait_for_window(f"the control of {letter}", lambda w: w.focus() == named, window)

    def test_of_the_other_options_lead_to_the_boxes(self):
        self.open(OTHERS)
        self.go(OPTIONS_WINDOW, DAYS_LABELS[1], PREFETCH_DAYS)
        self.go(OPTIONS_WINDOW, DAYS_LABELS[0], FILE_DAYS)
        # The text is selected, as after Tab: typing replaces it.
        self.type("77")
        self.wait_for_window("the number", lambda w: w.text(FILE_DAYS) == "77")
        self.go(OPTIONS_WINDOW, DAYS_LABELS[1], PREFETCH_DAYS)

    def test_of_the_junk_editor_lead_to_the_boxes(self):
        self.open(JUNK)
        self.press(JUNK_ADD)
        self.wait_for_window("the editor", name=TYPE_WINDOW)
        self.go(TYPE_WINDOW, TYPE_LABELS[1], PATTERN)
        self.go(TYPE_WINDOW, TYPE_LABELS[0], DESCRIPTION)

    def test_of_no_label_leave_the_focus_alone(self):
        self.open(OTHERS)
        self.key("alt+q", "alt+y")
        self.key("Tab")
        shown = self.wait_for_window("the focus to go on", lambda w: w.focus() != PAGE_TREE)
        self.assertEqual(shown.focus(), driver.ids("Sizes+2")[0])


class GermanLetters(Letters):
    catalogue = "de"


class Title(RealWindow):
    def tab_to(self, control):
        while self.program.read().focus() != control:
            before = self.program.read().focus()
            self.program.key("Tab")
            self.program.wait_until("the focus to go on", lambda s, b=before: s.focus() not in (b, None))

    def menu(self):
        """The rectangle of the menu in sight."""
        return driver.wait_for("the menu", lambda: (lines := self.machine.look(MENU)) and Dialog(lines).rect)

    def test_enter_and_space_open_the_help_menu_at_its_picture(self):
        self.tab_to(HELP)
        left, _, right, bottom = self.program.read().control(HELP)["rect"]
        for key in ("Return", "space"):
            # Wherever the mouse is, the menu is at the picture.
            self.program.move(self.program.read().rect[0] + 300, self.program.read().rect[3] - 40)
            self.program.key(key)
            self.program.wait_for_menu()
            menu = self.menu()
            self.assertEqual((menu[0], menu[1]), (left, bottom))
            self.program.screenshot(f"help-menu-{key}")
            self.program.key("Escape")
            self.program.wait_until("the menu to go", lambda s: not s.menu)
            self.assertEqual(self.program.read().focus(), HELP)

    def test_its_links_are_reached_have_names_and_show_the_focus(self):
        shown = self.program.read()
        for link, name in ((PRODUCT_LINK, "Website of Tavix"), (MAKER_LINK, "Website of the maker")):
            place = shown.control(link)["rect"]
            before = self.program.pixels(place)
            self.tab_to(link)
            self.assertEqual(self.program.read().text(link), name)
            driver.wait_for("the mark of the focus", lambda p=place, b=before: self.program.pixels(p) != b)
            self.program.screenshot(f"title-link-{link}")
            self.program.key("Tab")
            driver.wait_for("the mark to go", lambda p=place, b=before: self.program.pixels(p) == b)


class StatusLine(RealWindow):
    """What it tells about rows, and about commands that can't work on them."""

    def told(self, text):
        shown = self.program.wait_until(text, lambda s: s.text(STATUS) == text)
        return shown

    def value(self, name):
        return (f'Deletes the value "{name}" of the key HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\'
                "TypedUrls from the registry.")

    def test_tells_what_cleaning_the_row_in_focus_does(self):
        self.untick_file_functions(self.program)
        shown = self.program.scan()
        self.assertEqual(shown.rows[0]["texts"][1], TYPED_URLS[0][1])
        self.program.click(shown.rows[0]["rect"], x=60)
        self.told(self.value("url1"))
        self.program.key("Down")
        self.told(self.value("url2"))
        self.program.screenshot("row-words")
        self.program.key("End")
        self.program.wait_until("a key", lambda s: s.text(STATUS).startswith("Deletes the key HKEY_CURRENT_USER\\"))
        # A scan has the line for itself, and for the words at its end.
        self.program.scan(lambda s: s.text(STATUS).startswith("Finished, please click <Clean>"))

    def test_tells_why_a_command_does_nothing(self):
        self.untick_file_functions(self.program)
        self.program.key("ctrl+x")
        self.told("No row of the list is highlighted, so this command has nothing to work on.")
        shown = self.program.scan()
        self.program.click(shown.rows[0]["rect"], x=60)
        self.told(self.value("url1"))
        self.program.key("ctrl+x")
        self.told("Only files and folders can be executed, and no highlighted row is one.")
        self.program.click(self.program.read().control(driver.TOOLBAR[2])["rect"])
        self.told("Only files and folders have properties, and no highlighted row is one.")

    def test_breaks_long_paths_and_shows_all_of_them(self):
        folder = self.machine.drive_c / "windows" / "temp" / ("long" * 15) / ("path" * 15) / ("below" * 12)
        if driver.ON_WINDOWS:
            self.addCleanup(shutil.rmtree, folder.parents[1])
        folder.mkdir(parents=True)
        (folder / ("file" * 6 + ".tmp")).write_bytes(b"x")
        self.program.key("s")
        self.program.wait_until("the page", lambda s: s.control(driver.FUNCTIONS)["visible"])
        shown = self.program.scan()
        row = next(row for row in shown.rows if row["texts"][1].startswith("filefile"))
        self.program.click(row["rect"], x=60)
        text = self.program.wait_until("its words", lambda s: "filefile" in s.text(STATUS)).text(STATUS)
        self.assertGreater(len(text), 200)
        picture = self.program.screenshot("long-path")
        self.assertTrue(picture.exists())
        # The end of the text is on the last line in use: there is ink on the second and third line.
        left, top, right, bottom = self.program.read().control(STATUS)["rect"]
        third = (bottom - top) // 3
        for line in (1, 2):
            pixels = self.program.pixels((left, top + line * third, right, top + (line + 1) * third))
            self.assertGreater(len(set(zip(*[iter(pixels)] * 3))), 1, f"line {line + 1} is empty")


if __name__ == "__main__":
    unittest.main(verbosity=2)
