"""What the windows look like when they are opened again. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest looks_window"""
import unittest

import driver
from options_case import ABOUT_WINDOW, DESCRIPTION, DUPLICATES, FILE_DAYS, FOLDER, JUNK, JUNK_ADD, LEAST_SIZE, METHOD, MOVE
from options_case import NEED_LEAST, OPTIONS_WINDOW, OTHERS, PAGE_TREE, PATTERN, PREFETCH_DAYS, TYPE_WINDOW, OptionsCase
from pictures import Picture, contrast

LABEL_OF = {FILE_DAYS: 370, PREFETCH_DAYS: 371, LEAST_SIZE: 337, DESCRIPTION: 401, PATTERN: 402}


class Opened(OptionsCase):
    def picture(self, name=OPTIONS_WINDOW):
        return Picture(self.program, self.window(name).inside)

    def wait_for_picture(self, what, wanted, name=OPTIONS_WINDOW):
        driver.wait_for(f"{what} to look as before", lambda: self.picture(name) == wanted)

    def leave(self, name=OPTIONS_WINDOW):
        self.key("Escape")
        self.wait_for_close(name)

    def rest(self, name=OPTIONS_WINDOW):
        """A picture that has stayed the same from one look to the next, with the mouse away."""
        self.program.move(1, 1)
        looks = [self.picture(name)]

        def rested():
            looks.append(self.picture(name))
            return looks[-1] == looks[-2] and looks[-1]

        return driver.wait_for("the window to rest", rested)


class Again(Opened):
    """From the second time on, a window is made in its final size."""

    def check_frame(self, number, name=OPTIONS_WINDOW):
        """A box has a frame of one colour, and room between it and the text."""
        shown = self.window(name)
        place = shown.control(number)["frame"]
        picture = Picture(self.program, place)
        edges = [*picture.row(place[1]), *picture.row(place[3] - 1), *picture.column(place[0]),
                 *picture.column(place[2] - 1)]
        self.assertEqual(len(set(edges)), 1, f"the frame of box {number}")
        inside = picture.at(place[0] + 1, place[1] + 1)
        self.assertNotEqual(edges[0], inside, f"box {number} has no frame")
        self.assertGreaterEqual(shown.control(number)["rect"][0] - place[0], 3, f"box {number}: the text touches the frame")
        return edges[0]

    def test_the_pages_of_the_options_look_the_same(self):
        before = {}
        for turn in range(3):
            self.open()
            for page in range(5):
                self.turn_to(page)
                if turn == 0:
                    before[page] = self.rest()
                else:
                    self.program.move(1, 1)
                    self.wait_for_picture(f"page {page + 1}", before[page])
            self.leave()

    def test_each_box_has_its_frame_and_the_one_in_focus_another(self):
        boxes = {DUPLICATES: (LEAST_SIZE,), METHOD: (FOLDER,), OTHERS: (FILE_DAYS, PREFETCH_DAYS)}
        for turn in range(2):
            self.open()
            for page, mark, box in ((DUPLICATES, NEED_LEAST, LEAST_SIZE), (METHOD, MOVE, FOLDER)):
                if not self.turn_to(page).control(box)["enabled"]:
                    self.press(mark)
                self.wait_for_window("the box", lambda w, b=box: w.control(b)["enabled"])
            for page, numbers in boxes.items():
                self.turn_to(page)
                for number in numbers:
                    with self.subTest(turn=turn, box=number):
                        self.rest()
                        at_rest = self.check_frame(number)
                        if number == FOLDER:
                            continue  # it keeps the focus while its folder doesn't exist
                        self.press(number)
                        self.wait_for_window("the focus", lambda w, n=number: w.focus() == n)
                        driver.wait_for("the frame of the focus", lambda n=number, r=at_rest: self.check_frame(n) != r)
                        self.press(PAGE_TREE)
            self.leave()

    def test_the_editor_and_the_about_window_look_the_same(self):
        self.open(JUNK)
        for turn in range(3):
            self.press(JUNK_ADD)
            self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)
            self.check_frame(PATTERN, TYPE_WINDOW)
            focused = self.check_frame(DESCRIPTION, TYPE_WINDOW)
            self.assertNotEqual(focused, self.check_frame(PATTERN, TYPE_WINDOW))
            # The caret blinks in a box: a button has the focus while the pictures are taken.
            self.key("Tab", "Tab", "Tab")
            self.wait_for_window("the focus on a button", lambda w: w.focus() not in (DESCRIPTION, PATTERN), TYPE_WINDOW)
            if turn == 0:
                before = self.rest(TYPE_WINDOW)
            else:
                self.program.move(1, 1)
                self.wait_for_picture("the editor", before, TYPE_WINDOW)
            self.leave(TYPE_WINDOW)
        self.leave()
        for turn in range(2):
            self.open_about()
            if turn == 0:
                before = self.rest(ABOUT_WINDOW)
            else:
                self.program.move(1, 1)
                self.wait_for_picture("the about window", before, ABOUT_WINDOW)
            self.leave(ABOUT_WINDOW)


class Words(Opened):
    def test_a_number_in_a_box_stands_on_the_line_of_the_words_beside_it(self):
        self.open(OTHERS)
        self.rest()
        shown = self.window()
        picture = Picture(self.program, shown.inside)
        for box in (FILE_DAYS, PREFETCH_DAYS):
            frame = shown.control(box)["frame"]
            digits = picture.lines_of_ink((frame[0] + 2, frame[1] + 2, frame[2] - 2, frame[3] - 2))
            label = shown.control(LABEL_OF[box])["rect"]
            # "For" has no letter below the line, and is as high as a digit.
            words = picture.lines_of_ink((label[0], label[1], label[0] + 14 * self.dpi // 96, label[3]))
            self.assertIsNotNone(digits)
            self.assertLessEqual(abs(digits[1] - words[1]), 1, f"box {box}: {digits}, words: {words}")
            above, below = digits[0] - frame[1], frame[3] - 1 - digits[1]
            self.assertLessEqual(abs(above - below), 2, f"box {box}: {above} above, {below} below")


if __name__ == "__main__":
    unittest.main(verbosity=2)
