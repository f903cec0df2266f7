"""Pictures of every window and page, at other resolutions, with a large font, in high contrast and in both languages.
Looks for what a person would complain about: texts that are cut or hardly to be read, controls over one another, marks
that tell something else than what was chosen, a focus that can't be seen. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest pictures_window

The pictures stay in <build>/pictures, with a sheet of them all, sheet.png."""
import shutil
import subprocess
import unittest

import driver
from control_ids import ids
from driver import BUILD
from options_case import ABOUT_WINDOW, ALL_FILES, AUTO, BIG, BOX, CLOSE, CLOSE_TYPE, DATA, DELETE, DESCRIPTION
from options_case import DUPLICATES, JUNK, JUNK_ADD, METHOD, MOVE, ONLY_COMMON, OPTIONS_WINDOW, OTHERS, PAGE_TREE, PICTURE
from options_case import RECYCLE, SMALL, TYPE_ADD, TYPE_WINDOW, OptionsCase
from painted import MARK, Window
from seeded import SEED

CLOSE_ABOUT, = ids("CloseAbout")
CANCEL, NO = 2, 7  # of the system's boxes
MAIN_WINDOW = "TavixMainWindow"
PAGE_KEYS = {"system": "s", "registry": "r", "advanced": "a", "privacy": "p"}
OPTION_PAGES = ("one-click", "junk", "duplicates", "method", "others")
CHOICES = {DUPLICATES: (ALL_FILES, ONLY_COMMON), METHOD: (DELETE, RECYCLE, MOVE), OTHERS: (AUTO, BIG, SMALL)}
FOLDER = BUILD / "pictures"
THUMBNAIL = 400  # pixels wide
# The usual colours of Windows, by their names in the registry. Those of Wine are paler.
USUAL = {"Window": "255 255 255", "WindowText": "0 0 0", "GrayText": "109 109 109", "Hilight": "0 120 215",
         "HilightText": "255 255 255", "HotTrackingColor": "0 102 204", "ButtonFace": "240 240 240",
         "ButtonText": "0 0 0"}
# The colours of the two high contrast schemes of Windows.
BLACK = {"Window": "0 0 0", "WindowText": "255 255 255", "GrayText": "63 242 63", "Hilight": "26 235 255",
         "HilightText": "0 0 0", "HotTrackingColor": "255 255 0", "ButtonFace": "0 0 0", "ButtonText": "255 255 255",
         "ButtonShadow": "255 255 255", "ButtonHilight": "255 255 255", "InfoWindow": "0 0 0",
         "InfoText": "255 255 255", "ActiveTitle": "0 0 0", "TitleText": "255 255 255", "Menu": "0 0 0",
         "MenuText": "255 255 255"}
WHITE = {"Window": "255 255 255", "WindowText": "0 0 0", "GrayText": "96 0 0", "Hilight": "55 0 110",
         "HilightText": "255 255 255", "HotTrackingColor": "0 0 159", "ButtonFace": "255 255 255",
         "ButtonText": "0 0 0", "ButtonShadow": "0 0 0", "ButtonHilight": "0 0 0", "InfoWindow": "255 255 255",
         "InfoText": "0 0 0", "ActiveTitle": "0 0 0", "TitleText": "255 255 255", "Menu": "255 255 255",
         "MenuText": "0 0 0"}


def setUpModule():
    """The first start writes the settings. All later ones begin with them, and have a big window where it fits."""
    shutil.rmtree(FOLDER, ignore_errors=True)
    FOLDER.mkdir(parents=True)
    machine = driver.Machine()
    try:
        program = driver.Program(machine)
        program.key("alt+F4")
        program.exit_status()
        shutil.copytree(machine.drive_c / DATA, FOLDER / "settings", ignore=shutil.ignore_patterns("DupeFiles"))
    finally:
        machine.close()


def tearDownModule():
    """All pictures as thumbnails on one sheet, where ImageMagick is installed."""
    shutil.rmtree(FOLDER / "settings")
    pictures = sorted(FOLDER.glob("*/*.png"))
    labelled = [argument for picture in pictures
                for argument in ("-label", f"{picture.parent.name}: {picture.stem}", picture)]
    if labelled and shutil.which("montage"):
        subprocess.run(["montage", *labelled, "-tile", "6x", "-geometry", f"{THUMBNAIL}x{THUMBNAIL}>+6+6",
                        FOLDER / "sheet.png"], check=True)


class Pictures(OptionsCase):
    seed = OptionsCase.seed + SEED
    colors = USUAL
    every_choice = False  # whether each option is chosen, and the focus is moved around each window

    def before(self):
        shutil.copytree(FOLDER / "settings", self.data)
        self.machine.set_interface_size("Auto")
        if not driver.ON_WINDOWS:
            self.store_colors()
        self.pictures = FOLDER / self.id().split(".")[-1].removeprefix("test_")
        self.pictures.mkdir()
        self.found = []
        self.display = self.machine.hands, tuple(int(length) for length in self.screen.split("x"))

    def store_colors(self):
        text = "[HKEY_CURRENT_USER\\Control Panel\\Colors]\n"
        text += "".join(f'"{name}"="{value}"\n' for name, value in self.colors.items())
        if self.high_contrast():
            text += '[HKEY_CURRENT_USER\\Control Panel\\Accessibility\\HighContrast]\n"Flags"="127"\n'
        self.machine.seed(text)

    def start(self, **more):
        """Wine doesn't say that high contrast is on. The program that asks the registry is the same but for this."""
        if self.high_contrast():
            shutil.copy(BUILD / "tavix-restyled.exe", self.folder / "tavix.exe")
        return super().start(**more)

    def high_contrast(self):
        return self.colors is not USUAL

    def scale(self):
        return self.dpi / 96

    # Pictures.

    def rest(self, name):
        """The window once it has nothing more to paint and has stopped changing, with the mouse away."""
        self.program.move(1, 1)
        windows = [self.look_into(name).take(*self.display)]

        def rested():
            windows.append(self.look_into(name).take(*self.display))
            one, other = windows[-2:]
            return other.painted and one.rect == other.rect and one.picture.pixels == other.picture.pixels

        driver.wait_for("the window to rest", rested)
        return windows[-1]

    def look_into(self, name):
        return driver.wait_for(f"the window {name}", lambda: self.painted_window(name))

    def painted_window(self, name):
        lines = self.machine.look("+" + name)
        return None if lines is None else Window(lines, self.scale())

    def take(self, scene, name):
        """Keeps a picture of a window and notes its defects."""
        window = self.rest(name)
        window.picture.save(self.pictures / f"{scene}.png")
        self.note(scene, window.defects())
        if window.focus() is None:
            self.note(scene, ["no control has the focus"])
        left, top, right, bottom = window.rect
        width, height = self.display[1]
        # The main window stands a little above the middle, also where that is two pixels over the edge.
        highest = -2 if name == MAIN_WINDOW else 0
        if left < 0 or top < highest or right > width or bottom > height:
            self.note(scene, [f"the window at {window.rect} is not on the screen as a whole"])
        return window

    def note(self, scene, defects):
        self.found += [f"{self.pictures.name}/{scene}: {defect}" for defect in defects]

    def check(self):
        self.assertEqual(self.found, [], f"{len(self.found)} defects:\n" + "\n".join(self.found))

    # Scenes.

    def look_at_the_main_window(self):
        for page, key in PAGE_KEYS.items():
            self.key(key)
            self.take(page, MAIN_WINDOW)
        self.program.scan()
        self.take("scanned", MAIN_WINDOW)

    def look_at_boxes(self):
        self.key("1")
        driver.wait_for("the question", lambda: self.box() is not None)
        window = self.take("question", BOX)
        buttons = {control["text"] for _, control, kind in window.shown() if kind == "push"}
        wanted = {self.messages[key] for key in ("BUTTON_YES", "BUTTON_NO")}
        self.note("question", [] if buttons == wanted else [f"the buttons say {buttons}, not {wanted}"])
        self.leave(BOX, NO, MAIN_WINDOW)

    def look_at_the_about_window(self):
        self.look_twice("about", ABOUT_WINDOW, self.open_about, CLOSE_ABOUT, MAIN_WINDOW)

    def look_twice(self, scene, name, open_it, close, back):
        """Takes a picture of a dialog at its second opening. It looks as at the first."""
        open_it()
        first = self.rest(name)
        self.leave(name, close, back)
        open_it()
        self.compare(scene, first, self.take(scene, name))
        self.leave(name, close, back)

    def leave(self, name, close, back):
        """Closes a window by a button of it. A control of the window behind it has the focus then."""
        self.click(self.look_into(name).control(close)["rect"])
        self.wait_for_close(name)
        driver.wait_for("the window behind", lambda: self.look_into(back).enabled)
        if self.rest(back).focus() is None:
            self.note(name, [f"after it was closed, no control of {back} has the focus"])

    def compare(self, scene, first, second):
        """The second opening looks as the first."""
        if first.rect != second.rect:
            self.note(scene, [f"it opened at {first.rect}, and again at {second.rect}"])
        elif first.picture.pixels != second.picture.pixels:
            count = first.picture.differing(second.picture, first.inside)
            changed = sorted({control["control"] for _, control, _ in first.shown()
                              if first.picture.differing(second.picture, control["rect"])})
            self.note(scene, [f"it looks different when it is opened again: {count} pixels, in {changed or 'no control'}"])

    def look_at_the_options(self):
        self.open()
        first = {}
        for page in range(len(OPTION_PAGES) if self.every_choice else 0):
            self.turn_to(page)
            first[page] = self.rest(OPTIONS_WINDOW)
        self.leave(OPTIONS_WINDOW, CLOSE, MAIN_WINDOW)
        self.open()
        for page, name in enumerate(OPTION_PAGES):
            self.turn_to(page)
            scene = f"options-{page + 1}-{name}"
            window = self.take(scene, OPTIONS_WINDOW)
            if not self.high_contrast():
                self.look_at_the_page_picture(scene, window)
            self.look_at_the_page_tree(scene, window)
            if page in first:
                self.compare(scene, first[page], window)
                self.look_at_choices(page)
        self.turn_to(METHOD)
        self.choose(DELETE)
        self.look_at_the_editor()
        self.look_at_an_input_box()
        self.leave(OPTIONS_WINDOW, CLOSE, MAIN_WINDOW)

    def look_at_the_page_tree(self, scene, window):
        right = window.control(PAGE_TREE)["rect"][2]
        for page in window.content[window.controls.index(window.control(PAGE_TREE))]:
            if page["rect"][2] > right:
                self.note(scene, [f"{page['node']!r} is cut in the tree of pages"])

    def look_at_the_page_picture(self, scene, window):
        """The picture of a page stands on the ground of the window. In high contrast it keeps the ground that it is drawn
        on: its lines are dark."""
        left, top, right, bottom = window.control(PICTURE)["rect"]
        ground = window.picture.at(left - 1, top)
        corners = {window.picture.at(x, y) for x in (left, right - 1) for y in (top, bottom - 1)}
        if corners != {ground}:
            self.note(scene, [f"the picture of the page stands on {corners}, and the window is {ground}"])

    def choose(self, number):
        self.click(self.window().control(number)["rect"], x=round(6 * self.scale()))
        return self.rest(OPTIONS_WINDOW)

    def look_at_choices(self, page):
        for number in CHOICES.get(page, ()):
            window = self.choose(number)
            scene = f"options-{page + 1}-choice-{number}"
            window.picture.save(self.pictures / f"{scene}.png")
            self.note(scene, window.pale_texts())
            self.check_choice(scene, window, page, number)

    def check_choice(self, scene, window, page, number):
        """Seen from its ring alone, one option is chosen: that one."""
        inked = {}
        for option in CHOICES[page]:
            left, top, _, bottom = window.control(option)["rect"]
            inked[option] = window.picture.ink((left, top, left + window.pixels(MARK - 4), bottom))
        hollow = min(inked.values())
        filled = [option for option, ink in inked.items() if ink > 1.2 * hollow]
        if filled != [number]:
            self.note(scene, [f"{number} was chosen, and {filled or 'no other than the rest'} is filled: {inked}"])

    def look_at_the_editor(self):
        self.turn_to(JUNK)

        def open_it():
            self.press(JUNK_ADD)
            self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)
            # The caret blinks in a box: a button has the focus while the pictures are taken.
            self.key("Tab", "Tab")
            self.wait_for_window("a button", lambda w: w.focus() not in (DESCRIPTION, DESCRIPTION + 1), TYPE_WINDOW)

        self.look_twice("editor", TYPE_WINDOW, open_it, CLOSE_TYPE, OPTIONS_WINDOW)

    def look_at_an_input_box(self):
        self.turn_to(DUPLICATES)
        self.choose(ONLY_COMMON)
        self.press(TYPE_ADD)
        driver.wait_for("the input box", lambda: self.box() is not None)
        self.key("Tab")  # away from the box whose caret blinks
        window = self.take("input-box", BOX)
        buttons = {control["text"] for _, control, kind in window.shown() if kind == "push"}
        wanted = {self.messages[key] for key in ("BUTTON_OK", "BUTTON_CANCEL")}
        self.note("input-box", [] if buttons == wanted else [f"the buttons say {buttons}, not {wanted}"])
        self.leave(BOX, CANCEL, OPTIONS_WINDOW)

    def look(self):
        self.look_at_the_main_window()
        self.look_at_the_about_window()
        self.look_at_boxes()
        self.look_at_the_options()
        if self.every_choice:
            self.look_for_the_focus()
        self.check()

    # The focus.

    def look_at_the_focus(self, scene, name):
        """Goes once around a window by Tab. Each control that has the focus looks different from when it has not."""
        self.key("Tab")
        windows = [self.rest(name)]
        while True:
            before = windows[-1].focus()
            self.key("Tab")
            driver.wait_for("the focus to go on", lambda: self.look_into(name).focus() not in (None, before))
            windows.append(self.rest(name))
            focus = windows[-1].focus()
            self.assertLess(len(windows), 40, f"{scene}: the focus never comes around")
            if focus["control"] == windows[0].focus()["control"]:
                break
        for had, has_not in zip(windows, windows[1:]):
            control = had.focus()
            frame = had.inset(control["rect"], -2, -2)
            # A mark of one line around a small picture has more pixels than this.
            if had.picture.differing(has_not.picture, frame) < 20:
                self.note(scene, [f"the focus on {control['control']} {control['text']!r} can't be seen"])

    def look_for_the_focus(self):
        self.key("p")
        self.look_at_the_focus("focus-privacy", MAIN_WINDOW)
        self.key("a")
        self.look_at_the_focus("focus-advanced", MAIN_WINDOW)
        self.open()
        for page, name in enumerate(OPTION_PAGES):
            self.turn_to(page)
            self.look_at_the_focus(f"focus-options-{name}", OPTIONS_WINDOW)


class English(Pictures):
    every_choice = True

    def test_en_96(self):
        self.look()


class German(Pictures):
    catalogue = "de"

    def test_de_96(self):
        self.look()


class GermanSmall(Pictures):
    screen = "800x600"
    catalogue = "de"

    def test_de_96_small(self):
        self.look()


class At144(Pictures):
    screen = "1600x1200"
    dpi = 144

    def test_en_144(self):
        self.look()


class GermanAt192(Pictures):
    screen = "2048x1536"
    dpi = 192
    catalogue = "de"

    def test_de_192(self):
        self.look()


class LargeFont(Pictures):
    screen = "1600x1200"
    font = 18

    def test_en_96_font_18(self):
        self.look()


class GermanLargeFont(Pictures):
    screen = "1600x1200"
    font = 18
    catalogue = "de"

    def test_de_96_font_18(self):
        self.look()


@driver.needs_wine("reads settings at once that Windows takes over at the next sign-in")
class BlackContrast(Pictures):
    colors = BLACK
    every_choice = True

    def test_en_96_black(self):
        self.look()


@driver.needs_wine("reads settings at once that Windows takes over at the next sign-in")
class WhiteContrast(Pictures):
    colors = WHITE
    catalogue = "de"

    def test_de_96_white(self):
        self.look()


if __name__ == "__main__":
    unittest.main(verbosity=2)
