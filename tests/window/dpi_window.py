"""The main window on screens of other resolutions and with the longest words. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest dpi_window"""
import shutil
import unittest

import driver
from driver import BUILD, CANCEL, CHECK_ALL, CLEAN, OPTION_LINK, OPTION_PROMPT, REPAIR, SCAN, STATUS, SUM, TIME, TIME_WORD
from driver import TOOLBAR, VERSION
from seeded import SeededMachine

ONE_LINE = (*TOOLBAR, OPTION_LINK, OPTION_PROMPT, TIME_WORD, TIME, SUM, SCAN, CANCEL, CLEAN, REPAIR, VERSION)
SMALL, BIG = (11529, 8650), (14895, 11175)  # twips


class Resolution(SeededMachine):
    def open_at(self, dpi, catalogue=None):
        if dpi != 96:
            self.machine.set_resolution(dpi)
        self.machine.set_interface_size("Auto")
        if catalogue is None:
            return self.start()
        folder = self.machine.drive_c / "Tavix"
        folder.mkdir()
        shutil.copy(BUILD / "tavix.exe", folder)
        shutil.copy(driver.SOURCE / "res" / "lang" / catalogue / "tips.dll", folder)
        return self.start(program=folder / "tavix.exe")

    def check_places(self, shown, dpi, size):
        left, top, right, bottom = shown.rect
        # A window shown smaller has a whole number of pixels to the inch.
        slack = 1 if dpi == int(dpi) else max(size) / 1440 + 1
        self.assertAlmostEqual(right - left, size[0] * dpi / 1440, delta=slack)
        self.assertAlmostEqual(bottom - top, size[1] * dpi / 1440, delta=slack)
        for number, control in shown.controls.items():
            place = control["rect"]
            self.assertTrue(left <= place[0] and top <= place[1] and place[2] <= right and place[3] <= bottom, number)

    def check_words(self, shown, smaller=1):
        """No text is cut. `smaller` is how many times as large the window's font is as that of the system."""
        def room(control):
            return [length * smaller for length in control["room"]]

        for number in ONE_LINE:
            control = shown.control(number)
            place, (wide, high) = control["rect"], room(control)
            self.assertLessEqual(wide, place[2] - place[0], control["text"])
            self.assertLessEqual(high, place[3] - place[1], control["text"])
        status = shown.control(STATUS)
        self.assertLessEqual(room(status)[1], status["rect"][3] - status["rect"][1])
        # The box is left of the words.
        box = shown.control(CHECK_ALL)
        self.assertLessEqual(sum(room(box)), box["rect"][2] - box["rect"][0])

    def look_at(self, program, dpi, size, name, smaller=1):
        self.check_places(program.read(), dpi, size)
        for key in ("s", "r", "a", "p"):
            program.key(key)
        program.scan()
        shown = program.read()
        program.screenshot(name)
        self.check_places(shown, dpi, size)
        self.check_words(shown, smaller)
        return shown


class Small(Resolution):
    screen = "800x600"

    def test_at_96(self):
        self.look_at(self.open_at(96), 96, SMALL, "small-96")

    def test_in_german(self):
        self.look_at(self.open_at(96, "de"), 96, SMALL, "small-german")


class Big(Resolution):
    def test_at_96(self):
        self.look_at(self.open_at(96), 96, BIG, "big-96")

    def test_in_german(self):
        self.look_at(self.open_at(96, "de"), 96, BIG, "big-german")


class Finer(Resolution):
    screen = "1280x1024"

    def test_at_120_the_big_size_fits(self):
        self.look_at(self.open_at(120), 120, BIG, "big-120")

    def test_at_144_the_small_size_fits(self):
        self.look_at(self.open_at(144), 144, SMALL, "small-144")

    def test_at_120_in_german(self):
        self.look_at(self.open_at(120, "de"), 120, BIG, "big-120-german")

    def test_with_large_text_the_small_size_fits(self):
        """A font of 18 pixels instead of 12 is as large as that at 144 DPI, and so is the window."""
        self.machine.set_message_font(18)
        self.look_at(self.open_at(96), 144, SMALL, "small-large-text")

    def test_with_large_text_in_german(self):
        self.machine.set_message_font(18)
        self.look_at(self.open_at(96, "de"), 144, SMALL, "small-large-text-german")


class Short(Resolution):
    """A screen wide enough for the big size, and not high enough."""
    screen = "1280x720"

    def test_has_the_small_size(self):
        self.look_at(self.open_at(96), 96, SMALL, "short")

    def test_shows_a_window_that_is_too_large_smaller(self):
        """At 150 percent, both sizes are higher than the screen. All is as much smaller."""
        program = self.open_at(144)
        factor = 720 / (8650 * 144 / 1440)
        shown = self.look_at(program, 144 * factor, SMALL, "short-144", factor)
        self.assertTrue(shown.rect[0] >= 0 and shown.rect[1] >= 0 and shown.rect[2] <= 1280 and shown.rect[3] <= 720)
        middle = (shown.rect[0] + shown.rect[2]) / 2
        self.assertAlmostEqual(middle, 640, delta=2)


class Between(Resolution):
    screen = "1600x1200"

    def test_at_168_in_german(self):
        self.look_at(self.open_at(168, "de"), 168, SMALL, "small-168-german")


class Finest(Resolution):
    screen = "2048x1536"

    def test_at_192(self):
        self.look_at(self.open_at(192), 192, BIG, "big-192")


class FinestAndNarrow(Resolution):
    screen = "1920x1440"

    def test_at_192_the_small_size_fits(self):
        self.look_at(self.open_at(192), 192, SMALL, "small-192")

    def test_at_192_in_german(self):
        self.look_at(self.open_at(192, "de"), 192, SMALL, "small-192-german")


if __name__ == "__main__":
    unittest.main(verbosity=2)
