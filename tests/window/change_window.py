"""Colours, fonts, resolution and screen that change while the program runs. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest change_window"""
import shutil
import unittest

import driver
from driver import BUILD, CHECK_ALL, CLEAN, HELP, PROGRESS, RESULT, SCAN, STATUS, TOOLBAR
from options_case import BOX, COMMON, DESCRIPTION, DUPLICATES, EXCEPT_LIST, JUNK, JUNK_ADD, JUNK_LIST, METHOD, ONE_CLICK
from options_case import ONE_CLICK_TREE, OPTIONS_WINDOW, OTHERS, PAGE_TREE, TYPE_WINDOW, OptionsCase
from pictures import Picture, contrast

LOOK = BUILD / "tavix-change-look.exe"
# As Windows has them: {name in the registry: red, green, blue}.
USUAL = {"Window": "255 255 255", "WindowText": "0 0 0", "GrayText": "109 109 109", "Hilight": "0 120 215",
         "HilightText": "255 255 255", "HotTrackingColor": "0 102 204", "ButtonFace": "240 240 240",
         "ButtonText": "0 0 0", "ActiveTitle": "153 180 209", "TitleText": "0 0 0"}
BLACK = {"Window": "0 0 0", "WindowText": "255 255 255", "GrayText": "63 242 63", "Hilight": "26 235 255",
         "HilightText": "0 0 0", "HotTrackingColor": "255 255 0", "ButtonFace": "0 0 0", "ButtonText": "255 255 255",
         "ActiveTitle": "0 0 0", "TitleText": "255 255 255"}
WHITE = {"Window": "255 255 255", "WindowText": "0 0 0", "GrayText": "96 0 0", "Hilight": "55 0 110",
         "HilightText": "255 255 255", "HotTrackingColor": "0 0 159", "ButtonFace": "255 255 255",
         "ButtonText": "0 0 0", "ActiveTitle": "0 0 0", "TitleText": "255 255 255"}
# Colours that a user has chosen one by one, and none of which was looked at together with another.
CARELESS = {**BLACK, "GrayText": "40 40 40", "Hilight": "200 200 60", "HilightText": "220 220 220",
            "HotTrackingColor": "0 0 120"}


@driver.needs_wine("reads settings at once that Windows takes over at the next sign-in")
class Restyled(OptionsCase):
    """The program over the system's settings as they are just then."""
    screen = "1600x1200"

    def start(self, **_):
        shutil.copy(BUILD / "tavix-restyled.exe", self.folder / "tavix.exe")
        return super().start(program=self.folder / "tavix.exe")

    def tell(self, *news):
        self.machine.run(LOOK, *news)
        self.machine.close_reader()  # it keeps what it has read of the system

    def store_colors(self, colors, high_contrast):
        lines = "\n".join(f'"{name}"="{value}"' for name, value in colors.items())
        self.machine.seed(f"[HKEY_CURRENT_USER\\Control Panel\\Colors]\n{lines}\n"
                          "[HKEY_CURRENT_USER\\Control Panel\\Accessibility\\HighContrast]\n"
                          f'"Flags"="{127 if high_contrast else 126}"\n')

    def main_picture(self):
        return Picture(self.program, self.program.read().rect)

    def rest(self, picture):
        """A picture that has stayed the same from one look to the next, with the mouse away."""
        self.program.move(1, 1)
        looks = [picture()]

        def rested():
            looks.append(picture())
            return looks[-1] == looks[-2] and looks[-1]

        return driver.wait_for("the window to rest", rested)

    def assert_same(self, one, other, what):
        self.assertEqual((one.width, one.height), (other.width, other.height), what)
        self.assertIsNone(one.difference(other), f"{what} differs here")

    def options_picture(self):
        return Picture(self.program, self.window().inside)

    def restart(self):
        self.key("alt+F4")
        self.program.exit_status()
        self.program = self.start()

    def check_size(self, shown, factor):
        for length, twips in zip((shown.rect[2] - shown.rect[0], shown.rect[3] - shown.rect[1]), (11529, 8650)):
            self.assertAlmostEqual(length, twips * factor / 15, delta=2)


class AsAtAStart(Restyled):
    """After a change, the windows look as they do when the program is started with it."""

    def look(self):
        """The main window and a page of the options. The first key makes Windows mark the focus."""
        self.open(DUPLICATES)
        options = self.rest(self.options_picture)
        self.leave()
        return self.rest(self.main_picture), options

    def leave(self):
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)

    def change(self, *news):
        """Changes the look of the open windows, and compares them with those of a start."""
        self.open(DUPLICATES)
        self.tell(*news)
        options = self.rest(self.options_picture)
        self.leave()
        main = self.rest(self.main_picture)
        self.program.screenshot(f"changed-{'-'.join(news)}")
        self.restart()
        wanted = self.look()
        self.assert_same(main, wanted[0], "the main window")
        self.assert_same(options, wanted[1], "the options")

    def test_a_larger_font_and_the_usual_one_again(self):
        before = self.look()
        self.machine.set_message_font(18)
        self.change("tell", "fonts")
        self.check_size(self.program.read(), 1.5)
        self.machine.set_message_font(11)
        self.tell("tell", "fonts")
        after = self.look()
        self.assert_same(after[0], before[0], "the main window")
        self.assert_same(after[1], before[1], "the options")

    def test_high_contrast_on_and_off(self):
        self.store_colors(BLACK, True)
        self.change("tell", "colors")
        self.store_colors(USUAL, False)
        self.change("tell", "scheme")
        self.store_colors(WHITE, True)
        self.change("tell", "theme")


class Resolution(Restyled):
    def test_the_windows_grow_with_that_of_their_monitor(self):
        self.open()
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)
        before = self.rest(self.main_picture)
        self.open(OTHERS)
        small = self.window()
        for dpi in (120, 144, 168, 192):
            with self.subTest(dpi=dpi):
                self.tell("dpi", str(dpi))
                self.check_size(self.program.read(), dpi / 96)
                shown = self.window()
                self.program.screenshot(f"moved-to-{dpi}")
                left, top, right, bottom = shown.inside
                self.assertAlmostEqual(bottom - top, 500 * dpi / 96, delta=2)
                self.assertGreater(right - left, (small.inside[2] - small.inside[0]) * dpi / 96 * 0.85)
                for number, control in shown.controls.items():
                    place = control["frame"]
                    if control["visible"]:
                        self.assertTrue(left <= place[0] and top <= place[1] and place[2] <= right
                                        and place[3] <= bottom, f"control {number} at {place} in {shown.inside}")
                self.assertLessEqual(shown.rect[3], 1200)
        self.tell("dpi", "96")
        self.assertEqual(self.window().inside[3] - self.window().inside[1], small.inside[3] - small.inside[1])
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)
        self.assert_same(self.rest(self.main_picture), before, "the main window")


class WhatTheUserHasChanged(Restyled):
    def width(self, shown):
        return shown.columns[0]["width"]

    def test_stays(self):
        shown = self.program.read()
        before, header = self.width(shown), shown.columns[0]["rect"]
        self.program.drag_without_effect((header[2] - 1, (header[1] + header[3]) // 2), (-60, 0))
        shown = self.program.wait_until("the narrower column", lambda s: self.width(s) < before)
        pulled = self.width(shown)
        self.tell("dpi", "144")
        shown = self.program.read()
        self.assertAlmostEqual(self.width(shown), pulled * 1.5, delta=2)
        self.assertAlmostEqual(shown.columns[1]["width"], 3528 / 10, delta=1)
        self.tell("dpi", "96")
        # A window that the user has pulled half off the screen stays there, whatever else changes.
        shown = self.program.drag((shown.rect[0] + 300, shown.rect[1] + 10), (-600, 0))
        self.assertLess(shown.rect[0], 0)
        for news in ("colors", "scheme", "fonts", "theme"):
            self.tell("tell", news)
            self.assertEqual(self.program.read().rect, shown.rect, news)


@driver.needs_x("clicks by Windows' calls don't arrive in a desktop of Wine's own that has become smaller")
class Screen(Restyled):
    seed = Restyled.seed + r"""
[HKEY_CURRENT_USER\Software\Wine\Explorer]
"Desktop"="Default"
[HKEY_CURRENT_USER\Software\Wine\Explorer\Desktops]
"Default"="1280x1024"
"""

    def check_inside(self, width, height):
        def inside(shown):
            left, top, right, bottom = shown.rect
            return left >= 0 and top >= 0 and right <= width and bottom <= height

        shown = self.program.wait_until(f"the window to be inside {width}x{height}", inside)
        for number in (SCAN, CLEAN, HELP, *TOOLBAR):
            place = shown.control(number)["frame"]
            self.assertTrue(0 <= place[0] and 0 <= place[1] and place[2] <= width and place[3] <= height, number)
        return shown

    def test_a_smaller_one_holds_the_whole_window(self):
        before = self.program.read()
        self.assertGreater(before.rect[3], 768)
        for width, height in ((1024, 768), (800, 600), (640, 480)):
            self.tell("screen", str(width), str(height))
            shown = self.check_inside(width, height)
            self.program.screenshot(f"screen-{width}")
        self.assertLess(shown.rect[2] - shown.rect[0], before.rect[2] - before.rect[0])
        # What is smaller still works.
        self.program.click(shown.control(SCAN)["rect"])
        self.program.wait_until("the end of the scan", lambda s: s.text(STATUS).startswith("Finished"))
        # A dialog has scroll bars, and shows what has the focus.
        shown = self.open(OTHERS)
        self.assertGreater(len(self.check_reach(shown, 640, 480)), 7)
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)
        self.tell("screen", "1280", "1024")
        after = self.program.wait_until("the usual size", lambda s: s.rect[2] - s.rect[0] > 640)
        self.assertEqual(after.rect[2] - after.rect[0], before.rect[2] - before.rect[0])


class Contrast(Restyled):
    def check(self, name, picture, rectangle):
        """The text in a rectangle stands out from the ground around it."""
        colors = picture.colors(rectangle)
        ground = colors.most_common(1)[0][0]
        best = max(contrast(color, ground) for color, count in colors.items() if count > 1)
        self.assertGreaterEqual(best, 4.5, f"{name} at {rectangle}: on {ground}")

    def check_texts(self, shown, picture):
        """Each text that a window shows; returns how many."""
        checked = 0
        # The maker's link shows its words only while it has the focus or the mouse is over it.
        places = [(control["text"], control["rect"]) for number, control in shown.controls.items()
                  if control["visible"] and control["text"] and (number != driver.MAKER_LINK or control["focus"])]
        if isinstance(shown, driver.Shown):
            content = shown.columns + shown.rows + [n for n in shown.nodes if shown.control(n["tree"])["visible"]]
        else:
            content = [line for number, lines in shown.content.items() if shown.control(number)["visible"]
                       for line in lines]
        for line in content:
            text = line.get("node") or line.get("texts") or line.get("text")
            if text and line.get("rect") and "control" not in line:
                places.append((text, line["rect"]))
        for text, place in places:
            inner = (max(place[0] + 2, picture.left), max(place[1] + 2, picture.top),
                     min(place[2] - 2, picture.right), min(place[3] - 2, picture.bottom))
            if inner[2] - inner[0] < 20 or inner[3] - inner[1] < 8:
                continue  # scrolled away
            with self.subTest(text=text):
                self.check(text, picture, inner)
                checked += 1
        return checked

    def check_windows(self, colors, name):
        self.store_colors(colors, True)
        self.tell("tell", "colors")
        self.program.scan()
        shown = self.program.read()
        self.assertEqual(shown.text(PROGRESS), "100%")
        picture = self.rest(self.main_picture)
        self.program.screenshot(f"contrast-{name}")
        self.assertGreater(self.check_texts(shown, picture), 30)
        self.open()
        for page in (ONE_CLICK, JUNK, DUPLICATES, METHOD, OTHERS):
            shown = self.turn_to(page)
            picture = self.rest(self.options_picture)
            self.program.screenshot(f"contrast-{name}-options-{page + 1}")
            self.assertGreater(self.check_texts(shown, picture), 10)
        self.turn_to(JUNK)
        self.press(JUNK_ADD)
        shown = self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)
        self.assertGreater(self.check_texts(shown, Picture(self.program, shown.inside)), 4)
        self.key("Escape")
        self.wait_for_close(TYPE_WINDOW)
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)

    def test_every_text_stands_out(self):
        self.check_windows(BLACK, "black")
        self.check_windows(WHITE, "white")

    def test_every_text_of_ours_stands_out_from_careless_colours(self):
        self.store_colors(CARELESS, True)
        self.tell("tell", "colors")
        self.program.scan()
        shown = self.program.read()
        picture = self.rest(self.main_picture)
        self.program.screenshot("contrast-careless")
        for number in (STATUS, PROGRESS, SCAN, CLEAN, CHECK_ALL, *TOOLBAR):
            left, top, right, bottom = shown.control(number)["rect"]
            self.check(shown.text(number), picture, (left + 2, top + 2, right - 2, bottom - 2))


if __name__ == "__main__":
    unittest.main(verbosity=2)
