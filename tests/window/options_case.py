"""The options window and the junk type editor of the real program, for their tests."""
import json
import pathlib
import shutil

import driver
from control_ids import ids
from driver import BUILD, HELP, messages
from seeded import SeededMachine

PAGE_TREE, PICTURE, TITLE, REMARK, RECOMMEND, SAVE, CLOSE = ids(
    "PageTree", "PagePicture", "PageTitle", "PageRemark", "Recommend", "Save", "CloseOptions")
ONE_CLICK_TREE, JUNK_LIST = ids("OneClickTree", "JunkTypes")
JUNK_ADD, JUNK_EDIT, JUNK_DELETE, JUNK_CHECK_ALL = ids("JunkButtons", "JunkButtons+1", "JunkButtons+2", "JunkButtons+3")
EQUAL_NAME, EQUAL_SIZE, EQUAL_TIME, NEED_LEAST = ids(
    "DuplicateRules", "DuplicateRules+1", "DuplicateRules+2", "DuplicateRules+3")
LEAST_SIZE, UNIT, ALL_FILES, ONLY_COMMON = ids("LeastSize", "LeastSizeUnit", "Scopes", "Scopes+1")
COMMON, TYPE_ADD, TYPE_DELETE = ids("CommonTypes", "CommonTypeButtons", "CommonTypeButtons+1")
DELETE, RECYCLE, MOVE, FOLDER, BROWSE = ids("Methods", "Methods+1", "Methods+2", "BackupFolder", "Browse")
AUTO, BIG, SMALL = ids("Sizes", "Sizes+1", "Sizes+2")
FILE_DAYS, PREFETCH_DAYS = ids("Days", "Days+1")
EXCEPT_LIST, EXCEPT_ADD, EXCEPT_DELETE = ids("ExceptFolders", "ExceptFolderButtons", "ExceptFolderButtons+1")
DESCRIPTION, PATTERN = ids("TypeBoxes", "TypeBoxes+1")
SAVE_ADD, SAVE_CLOSE, CLOSE_TYPE = ids("TypeButtons", "TypeButtons+1", "TypeButtons+2")

OPTIONS_WINDOW, TYPE_WINDOW, BOX = "TavixOptionsWindow", "TavixTypeWindow", "#32770"
ABOUT_WINDOW = "TavixAboutWindow"
ONE_CLICK, JUNK, DUPLICATES, METHOD, OTHERS = range(5)
PAGE_TITLES = ("One-click Clean/Repair", "Junk Files", "Duplicate Files", "Cleaning Method", "Other Options")
PAGE_CONTROLS = (ONE_CLICK_TREE, JUNK_LIST, EQUAL_NAME, DELETE, AUTO)
DATA = pathlib.Path("MORVDataPath") / "TVX"
ACCENT = bytes((11, 110, 143))


class Dialog:
    """One reading of a modal window."""

    def __init__(self, lines):
        lines = [json.loads(line) for line in lines]
        last = lines.pop()
        self.title, self.enabled, self.rect, self.inside = (last[k] for k in ("title", "enabled", "rect", "inside"))
        self.controls, self.content = {}, {}
        for line in lines:
            if "control" in line:
                number = line["control"]
                self.controls[number] = line
            self.content.setdefault(number, []).append(line)

    def control(self, number):
        return self.controls[number]

    def text(self, number):
        return self.controls[number]["text"]

    def rows(self, number):
        return [line for line in self.content[number] if "row" in line]

    def lines(self, number):
        return [line["line"] for line in self.content[number] if "line" in line]

    def selected_lines(self, number):
        return [line["selected"] for line in self.content[number] if "line" in line]

    def nodes(self, number):
        return [line for line in self.content[number] if "node" in line]

    def node(self, text, number=ONE_CLICK_TREE):
        return next(node for node in self.nodes(number) if node["node"] == text)

    def focus(self):
        return next((number for number, line in self.controls.items() if line["focus"]), None)

    def page(self):
        return [i for i, control in enumerate(PAGE_CONTROLS) if self.control(control)["visible"]]


class OptionsCase(SeededMachine):
    seed = "" if driver.ON_WINDOWS else r"""
[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"
"""
    dpi = 96
    font = None  # the height of the message font, if another one
    catalogue = "en"

    def setUp(self):
        super().setUp()
        self.data = self.machine.drive_c / DATA
        if self.dpi != 96:
            self.machine.set_resolution(self.dpi)
        if self.font is not None:
            self.machine.set_message_font(self.font)
        self.folder = self.machine.drive_c / "Tavix"
        self.folder.mkdir()
        shutil.copy(BUILD / "tavix.exe", self.folder)
        for name in ("tips.dll", "menus.dll"):
            shutil.copy(driver.SOURCE / "res" / "lang" / self.catalogue / name, self.folder)
        self.messages = messages(self.catalogue)
        self.before()
        self.program = self.start(program=self.folder / "tavix.exe")

    def before(self):
        """Prepares the machine before the program starts."""

    # Windows.

    def window(self, name=OPTIONS_WINDOW):
        """What a window shows, or None if it isn't on the screen."""
        lines = self.machine.look(name)
        return None if lines is None else Dialog(lines)

    def wait_for_window(self, what, condition=lambda w: True, name=OPTIONS_WINDOW):
        def look():
            window = self.window(name)
            return window if window is not None and condition(window) else None

        return driver.wait_for(what, look)

    def wait_for_close(self, name):
        driver.wait_for(f"{name} to close", lambda: self.window(name) is None)

    def open(self, page=ONE_CLICK):
        self.program.key("o")
        self.wait_for_window("the options window", lambda w: w.focus() == PAGE_TREE)
        return self.turn_to(page)

    def turn_to(self, page):
        shown = self.window()
        self.click(shown.node(PAGE_TITLES[page], PAGE_TREE)["rect"])
        return self.wait_for_window("the page", lambda w: w.page() == [page])

    # Keys and clicks.

    def key(self, *names):
        self.program.key(*names)

    def click(self, rectangle, x=None, **more):
        self.program.click(rectangle, x, **more)

    def dots(self, numbers):
        """Which option buttons have a filled ring on the screen."""
        shown = self.window()
        return [number for number in numbers if self.accented(shown.control(number)["rect"]) > 40 * (self.dpi / 96) ** 2]

    def accented(self, rectangle):
        """How many pixels have the accent colour where the mark of a box or option button is."""
        left, top, _, bottom = rectangle
        pixels = self.program.pixels((left, top, left + 16 * self.dpi // 96, bottom))
        return sum(pixels[i:i + 3] == ACCENT for i in range(0, len(pixels), 3))

    def wait_for_dot(self, numbers, chosen):
        """Waits until one option of a group is shown as chosen. Its button must have the only tick of the group, too."""
        driver.wait_for(f"the dot of {chosen}", lambda: self.dots(numbers) == [chosen])
        self.wait_for_window("the tick", lambda w: [n for n in numbers if w.control(n)["ticked"]] == [chosen])

    def open_about(self):
        """By the last entry of the help menu."""
        self.click(self.program.read().control(HELP)["rect"])
        self.program.wait_for_menu()
        self.key("Up", "Return")
        return self.wait_for_window("the about window", name=ABOUT_WINDOW)

    def check_reach(self, shown, width, height):
        """A dialog is on the screen, and shows each of its controls that gets the focus, as much of it as it has room
        for."""
        left, top, right, bottom = shown.rect
        self.assertTrue(left >= 0 and top >= 0 and right <= width and bottom <= height, shown.rect)
        first, reached = shown.focus(), set()
        while shown.focus() not in reached:
            reached.add(shown.focus())
            place, inside = shown.control(shown.focus())["frame"], shown.inside
            for start, end in ((0, 2), (1, 3)):  # across and down
                larger = place[end] - place[start] > inside[end] - inside[start]
                self.assertTrue(inside[start] <= place[start] and (place[end] <= inside[end] or larger),
                                f"control {shown.focus()} at {place} in {inside}")
            self.key("Tab")
            shown = self.wait_for_window("the focus to go on", lambda w, f=shown.focus(): w.focus() not in (f, None))
        self.assertEqual(shown.focus(), first)
        return reached

    def press(self, number, name=OPTIONS_WINDOW):
        self.click(self.window(name).control(number)["rect"])

    def type(self, text):
        self.machine.hands.type(text)

    def enter(self, number, text, name=OPTIONS_WINDOW):
        """Replaces the text of a box as a user does: the box selects its text when it gets the focus."""
        self.press(number, name)
        self.wait_for_window("the focus", lambda w: w.focus() == number, name)
        self.key("Home", "shift+End")
        if text:
            self.type(text)
        else:
            self.key("Delete")
        return self.wait_for_window(f"the text {text!r}", lambda w: w.text(number) == text, name)

    # Message boxes and input boxes.

    def box(self):
        """The texts of the box in front, or None if there is none."""
        window = self.window(BOX)
        return None if window is None else [line["text"] for line in window.controls.values()]

    def wait_for_box(self):
        return driver.wait_for("a box", self.box)

    def choose_documents(self):
        """Chooses the second folder that the chooser offers. Wine adds a separator to its path."""
        self.wait_for_box()
        self.key("Down", "Return")
        return f"C:\\users\\{self.machine.user()}\\Documents\\"

    def answer(self, key="Return"):
        """The message in front; it is answered by a key."""
        texts = self.wait_for_box()
        self.key(key)
        driver.wait_for("the message to go", lambda: self.box() != texts)
        return max(texts, key=len)

    def expect_message(self, text, key="Return"):
        self.assertEqual(self.answer(key), text)

    def expect_no_message(self):
        """Checks that no box opened: it would get the keys that move the focus on and back here."""
        before = self.window().focus()
        self.key("Tab")
        self.wait_for_window("the focus to go on", lambda w: w.focus() not in (before, None))
        self.key("shift+Tab")
        self.wait_for_window("the focus to come back", lambda w: w.focus() == before)
        self.assertIsNone(self.box())

    # Files.

    def settings(self):
        """Every key of the settings file with its value."""
        found, section = {}, ""
        for line in (self.data / "tvx.dll").read_text(encoding="utf-8-sig").splitlines():
            if line.startswith("["):
                section = line.strip("[]")
            elif "=" in line:
                key, value = line.split("=", 1)
                found[section, key] = value
        return found

    def wait_for_setting(self, key, value):
        driver.wait_for(f"{key} to be {value}", lambda: self.settings().get(key) == value)

    def lines(self, name):
        file = self.data / name
        return file.read_text(encoding="utf-8-sig").splitlines() if file.exists() else []

    def wait_for_lines(self, name, lines):
        driver.wait_for(f"{name} to have {lines}", lambda: self.lines(name) == lines)

    def users(self):
        return self.lines("userjunk.dll")

    def built_in(self):
        return self.lines("defjunk.dll")
