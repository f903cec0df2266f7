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
        self.assertAlmostEqual(right - left, size[0] * dpi / 1440, delta=1)
        self.assertAlmostEqual(bottom - top, size[1] * dpi / 1440, delta=1)
        for number, control in shown.controls.items():
            place = control["rect"]
            self.assertTrue(left <= place[0] and top <= place[1] and place[2] <= right and place[3] <= bottom, number)

    def check_words(self, shown):
        for number in ONE_LINE:
            control = shown.control(number)
            place, room = control["rect"], control["room"]
            self.assertLessEqual(room[0], place[2] - place[0], control["text"])
            self.assertLessEqual(room[1], place[3] - place[1], control["text"])
        status = shown.control(STATUS)
        self.assertLessEqual(status["room"][1], status["rect"][3] - status["rect"][1])
        # The box is left of the words.
        box = shown.control(CHECK_ALL)
        self.assertLessEqual(box["room"][0] + box["room"][1], box["rect"][2] - box["rect"][0])

    def look_at(self, program, dpi, size, name):
        self.check_places(program.read(), dpi, size)
        for key in ("s", "r", "a", "p"):
            program.key(key)
        program.scan()
        shown = program.read()
        program.screenshot(name)
        self.check_places(shown, dpi, size)
        self.check_words(shown)


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
