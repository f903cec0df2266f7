"""Keys, mouse and pictures by Windows' own calls do what they say. Under Wine the X display is the witness. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest input_window"""
import unittest

import driver
from driver import CLOSE, FUNCTIONS
from hands import WindowsHands
from machine import INPUT
from options_case import DESCRIPTION, JUNK, JUNK_ADD, TYPE_WINDOW, OptionsCase


class Input(OptionsCase):
    def before(self):
        self.hands = WindowsHands(self.machine, INPUT)
        self.addCleanup(self.hands.close)

    def test_the_program_has_the_keyboard_while_it_is_in_front_and_only_then(self):
        self.assertTrue(self.hands.has_keyboard())
        self.program.click(self.program.read().control(CLOSE)["rect"])
        self.program.exit_status()
        self.assertFalse(self.hands.has_keyboard())

    def test_the_mouse_comes_to_each_corner(self):
        width, height = self.hands.size
        for place in ((0, 0), (width - 1, 0), (0, height - 1), (width - 1, height - 1), (width // 3, height // 7)):
            self.hands.move(*place)  # fails if it has not come there

    def test_a_click_and_a_key_open_pages(self):
        left, top, right, bottom = self.program.read().control(driver.SYSTEM)["rect"]
        self.hands.move((left + right) // 2, (top + bottom) // 2)
        self.hands.click()
        self.program.wait_until("the page", lambda s: s.control(FUNCTIONS)["visible"])
        self.hands.keys("p")
        self.program.wait_until("the page", lambda s: not s.control(FUNCTIONS)["visible"])

    def test_text_is_typed_as_it_is(self):
        self.open(JUNK)
        self.press(JUNK_ADD)
        self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)
        text = "Old files (Größe 3 %, naïve) & more_"
        self.hands.type(text)
        self.wait_for_window("the text", lambda w: w.text(DESCRIPTION) == text, TYPE_WINDOW)
        self.hands.keys("Home", "shift+End", "Delete")
        self.wait_for_window("an empty box", lambda w: w.text(DESCRIPTION) == "", TYPE_WINDOW)

    @driver.needs_wine("compares with the X display")
    def test_a_picture_has_the_pixels_of_the_screen(self):
        self.program.scan()
        self.machine.hands.move(1, 1)
        width, height = self.hands.size
        self.assertEqual((width, height), self.machine.hands.size)
        for rectangle in ((0, 0, width, height), (100, 150, 101, 153), tuple(self.program.read().rect)):
            with self.subTest(rectangle):
                driver.wait_for("the same picture",
                                lambda r=rectangle: self.hands.pixels(r) == self.machine.hands.pixels(r))
        self.assertGreater(len(set(self.hands.pixels((0, 0, width, height)))), 50)

    def test_a_picture_beyond_the_screen_is_refused(self):
        width, height = self.hands.size
        for rectangle in ((-1, 0, 5, 5), (0, 0, width + 1, 5), (0, height - 5, 5, height + 1), (5, 5, 5, 9)):
            with self.assertRaises(ValueError):
                self.hands.pixels(rectangle)


if __name__ == "__main__":
    unittest.main(verbosity=2)
