"""The dialogs on fine and small screens, with large text and the longest words. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest options_looks"""
import unittest

from options_case import ABOUT_WINDOW, DESCRIPTION, DUPLICATES, JUNK, JUNK_ADD, METHOD, OPTIONS_WINDOW, OTHERS, PAGE_TREE
from options_case import REMARK, TITLE, TYPE_WINDOW, OptionsCase

BOLD = 1.25  # bold words are at most this many times as wide
TITLES = {TITLE, 330, 331, 360, 361, 362}
MARKED = {332, 333, 334, 335, 338, 339, 350, 351, 352, 363, 364, 365}
LABELS = {100, 101, 337, 366, 367, 368, 369, 370, 371, 401, 402}
BUTTONS = {2, 102, 103, 305, 306, 307, 321, 322, 323, 324, 341, 342, 354, 375, 376, 405, 406, 407}

ACCENTED = {2, 306, 406}


class Looks(OptionsCase):
    def check(self, shown, screen):
        left, top, right, bottom = shown.inside
        self.assertTrue(0 <= shown.rect[0] and 0 <= shown.rect[1] and shown.rect[2] <= screen[0]
                        and shown.rect[3] <= screen[1], shown.rect)
        for number, control in shown.controls.items():
            place = control["rect"]
            if not control["visible"]:
                continue
            self.assertTrue(left <= place[0] and top <= place[1] and place[2] <= right and place[3] <= bottom, number)
            self.check_words(number, control, place)

    def check_words(self, number, control, place):
        wide, high = control["room"]
        pixel = self.dpi / 96 * (1 if self.font is None else self.font / 12)
        if number in TITLES:
            wide *= BOLD
        elif number in MARKED:
            wide += 20 * pixel
        elif number in BUTTONS:
            wide = wide * (BOLD if number in ACCENTED else 1) + 8 * pixel
        elif number not in LABELS | {REMARK}:
            return
        self.assertLessEqual(wide, place[2] - place[0], control["text"])
        self.assertLessEqual(high, place[3] - place[1], control["text"])

    def look(self):
        screen = [int(length) for length in self.screen.split("x")]
        name = f"options-{self.catalogue}-{self.dpi if self.font is None else 'large-text'}"
        for page in range(5):
            shown = self.open() if page == 0 else self.turn_to(page)
            self.check(shown, screen)
            self.program.screenshot(f"{name}-{page + 1}")
        self.turn_to(JUNK)
        self.press(JUNK_ADD)
        self.check(self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW), screen)
        self.program.screenshot(f"{name}-type")
        self.assertEqual(len(self.window().nodes(PAGE_TREE)), 5)
        for window in (TYPE_WINDOW, OPTIONS_WINDOW):
            self.key("Escape")
            self.wait_for_close(window)
        self.check(self.open_about(), screen)
        self.program.screenshot(f"{name}-about")


class Smallest(Looks):
    screen = "800x600"

    def test_in_english(self):
        self.look()


class SmallestInGerman(Looks):
    screen = "800x600"
    catalogue = "de"

    def test_in_german(self):
        self.look()


class Finer(Looks):
    screen = "1280x1024"
    dpi = 144

    def test_at_144(self):
        self.look()


class FinerInGerman(Looks):
    screen = "1280x1024"
    dpi = 120
    catalogue = "de"

    def test_at_120_in_german(self):
        self.look()


class BetweenInGerman(Looks):
    screen = "1600x1200"
    dpi = 168
    catalogue = "de"

    def test_at_168_in_german(self):
        self.look()


class LargeText(Looks):
    """A font of 18 pixels instead of 12."""
    screen = "1280x1024"
    font = 18

    def test_in_english(self):
        self.look()


class LargeTextInGerman(Looks):
    screen = "1280x1024"
    font = 18
    catalogue = "de"

    def test_in_german(self):
        self.look()


class TooLarge(OptionsCase):
    """Dialogs larger than the screen scroll."""
    screen = "800x600"
    dpi = 144
    catalogue = "de"

    def test_each_control_comes_into_sight_with_the_focus(self):
        self.open()
        for page in (JUNK, DUPLICATES, METHOD, OTHERS):
            # The tree of pages scrolls into sight with the focus.
            shown = self.wait_for_window("the tree", lambda w: w.focus() == PAGE_TREE)
            self.key("Down")
            shown = self.wait_for_window("the page", lambda w, p=page: w.page() == [p])
            with self.subTest(page=page):
                self.assertGreater(len(self.check_reach(shown, 800, 600)), 4)
                self.program.screenshot(f"too-large-{page + 1}")


class Finest(Looks):
    screen = "1920x1440"
    dpi = 192

    def test_at_192(self):
        self.look()


class FinestInGerman(Looks):
    screen = "1920x1440"
    dpi = 192
    catalogue = "de"

    def test_at_192_in_german(self):
        self.look()


if __name__ == "__main__":
    unittest.main(verbosity=2)
