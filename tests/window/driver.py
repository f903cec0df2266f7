"""Drives tavix.exe. Presses real keys and clicks, and reads the window by messages. On Linux it runs under Wine on a
display of its own, and on Windows on the machine itself.

TAVIX_BUILD names the build folder with the programs. Prefixes, displays and screenshots are made below
<build>/window. TAVIX_INPUT=windows presses keys, moves the mouse and takes pictures under Wine as on Windows, by
Windows' own calls."""
import itertools
import json
import os
import unittest

from basics import BUILD, ON_WINDOWS, PATIENCE, SOURCE, WORK, Timeout, wait_for, write_over
from control_ids import ids
from machine import compiled
from pictures import save_png

if ON_WINDOWS:
    from spare_machine import SpareMachine as Machine
else:
    from wine_machine import WineMachine as Machine, stand_in

MINI, CLOSE, HELP, COMMEND, VERSION = ids("Mini", "Close", "TitleHelp", "TitleCommend", "Version")
PAGES = PRIVACY, SYSTEM, REGISTRY, ADVANCED, OPTIONS, ONE_CLICK = ids("Privacy", "System", "Registry", "Advanced",
                                                                      "Options", "OneClick")
TREE, SCOPE, FUNCTIONS, RESULT, CHECK_ALL = ids("PrivacyTree", "ScopeTree", "Functions", "Result", "CheckAll")
TOOLBAR = ids("Toolbar", "Toolbar+1", "Toolbar+2", "Toolbar+3")
STATUS, OPTION_LINK, OPTION_PROMPT, PROGRESS, TIME_WORD, TIME, SUM = ids(
    "Status", "OptionLink", "OptionPrompt", "Progress", "TimePrefix", "Time", "Sum")
SCAN, CANCEL, CLEAN, REPAIR = ids("Scan", "Cancel", "Clean", "Repair")
PRODUCT_LINK, MAKER_LINK = ids("ProductLink", "MakerLink")


def messages(catalogue="en"):
    """The messages of the program's catalogue by key."""
    file = SOURCE / "res" / "lang" / catalogue / "tips.dll"
    section = file.read_text(encoding="utf-8").split("[Message & Text]")[1].split("\n[")[0]
    return dict(line.split("=", 1) for line in section.splitlines() if "=" in line)


def needs_wine(reason):
    """Leaves a test or a class of tests out on Windows."""
    return unittest.skipIf(ON_WINDOWS, reason)


# Whether Windows' own calls press the keys under Wine.
BESIDE_X = not ON_WINDOWS and os.environ.get("TAVIX_INPUT") == "windows"


def needs_x(reason):
    """Leaves a test or a class of tests out where Windows' own calls press the keys under Wine."""
    return unittest.skipIf(BESIDE_X, reason)


def screenshot(machine, name):
    """Keeps a picture of the whole screen. Returns its file."""
    file = WORK / "screenshots" / f"{name}.png"
    file.parent.mkdir(parents=True, exist_ok=True)
    width, height = machine.hands.size
    save_png(file, width, height, machine.hands.pixels((0, 0, width, height)))
    return file


class Program:
    """The running tavix.exe."""

    def __init__(self, machine, program=BUILD / "tavix.exe"):
        self.machine = machine
        self._process = machine.start(program)
        wait_for("the window", self._opened)
        machine.hands.bring_to_front()

    def _opened(self):
        if self._process.poll() is not None:
            raise AssertionError(f"tavix.exe ended with {self._process.returncode}")
        lines = self.machine.look()
        scan = Shown.of(lines).controls.get(SCAN) if lines is not None else None
        return scan is not None and scan["visible"]

    def key(self, *names):
        self.machine.key(*names)

    def click(self, rectangle, x=None, button=1, held=()):
        """Clicks into the middle of a rectangle, or `x` pixels from its left end, with the keys `held` down."""
        left, top, right, bottom = rectangle
        at = (left + right) // 2 if x is None else left + x
        self.move(at, (top + bottom) // 2)
        if held:
            self.read()  # hearing of a move, Wine lets go of the keys that aren't down for the X display
        self.machine.hands.click(button, held)

    def move(self, x, y):
        self.machine.hands.move(x, y)

    def move_onto(self, rectangle):
        self.move((rectangle[0] + rectangle[2]) // 2, (rectangle[1] + rectangle[3]) // 2)

    def drag(self, start, by):
        """Drags the window by a point of it, and waits until it has moved by `by`, or by one pixel more. The first move
        after the press begins the drag; over a tree it must exceed a threshold. The window follows the later moves."""
        if BESIDE_X:
            raise unittest.SkipTest("Wine hears of each move again from the X display, and begins drags at an earlier one")
        before = self.read().rect
        near, far = ((start[0] + away, start[1] + away) for away in (8, 9))
        nudges = itertools.cycle((near, far))
        self._press(start)

        def begun():
            self.move(*next(nudges))
            return self.read().moving

        wait_for("the drag", begun)
        self._move_in_steps(far, by)
        self.wait_until("the window to arrive", lambda s: all(
            by[i] <= s.rect[i] - before[i] <= by[i] + 1 for i in (0, 1)))
        self._release()
        return self.wait_until("the end of the drag", lambda s: not s.moving)

    def drag_without_effect(self, start, by):
        """Presses, moves and releases as drag() does, at a point that doesn't move the window."""
        self._press(start)
        self._move_in_steps(start, by)
        self._release()

    def frame(self, start, end, is_shown):
        """Pulls a frame in a list from a point to another until `is_shown` of the content, and releases the button. The
        list begins a frame at one move and looks for its rows at a later one."""
        self._press(start)
        self._move_in_steps(start, (end[0] - start[0], end[1] - start[1]))
        nudges = itertools.cycle(((end[0] - 1, end[1]), end))

        def shown():
            self.move(*next(nudges))
            return is_shown(self.read())

        wait_for("the frame", shown)
        self._release()

    def _press(self, point):
        self.move(*point)
        self.read()  # Wine may hear of this move twice, the second time from the X display: not after the press
        self.machine.hands.press(1)

    def _move_in_steps(self, start, by):
        for step in range(1, 6):
            self.move(start[0] + by[0] * step // 5, start[1] + by[1] * step // 5)

    def _release(self):
        self.machine.hands.release(1)

    def settle(self):
        """Waits until all keys and clicks so far have been handled. Input is handled in order: once a Tab has moved the
        focus on and another has moved it back, everything before has been handled."""
        before = self.read().focus()
        self.key("Tab")
        self.wait_until("the focus to go on", lambda s: s.focus() != before)
        self.key("shift+Tab")
        return self.wait_until("the focus to come back", lambda s: s.focus() == before)

    def shows(self, window_class):
        """Whether there is a window of a class on the screen."""
        return self.machine.look(window_class) is not None

    def wait_for_menu(self):
        return self.wait_until("the menu", lambda s: s.menu)

    def pixels(self, rectangle):
        """The pixels of the part of a rectangle that is on the screen, as bytes."""
        return self.machine.hands.pixels(self._on_screen(rectangle))

    def _on_screen(self, rectangle):
        width, height = self.machine.hands.size
        return max(rectangle[0], 0), max(rectangle[1], 0), min(rectangle[2], width), min(rectangle[3], height)

    def screenshot(self, name):
        return screenshot(self.machine, name)

    def painted(self, file):
        """Takes a picture of the window alone, when all of it has been painted: the picture before was the same."""
        before = None
        while True:
            left, top, right, bottom = self._on_screen(self.read().rect)
            now = self.pixels((left, top, right, bottom))
            if now == before:
                save_png(file, right - left, bottom - top, now)
                return
            before = now

    def read(self):
        """What the window shows."""
        return Shown.of(self.machine.look())

    def wait_until(self, what, condition):
        """Waits until `condition` of the window's content is true, and returns the content."""

        def look():
            shown = self.read()
            return shown if condition(shown) else None

        return wait_for(what, look)

    def scan(self, has_begun=lambda shown: True):
        """Presses F3 and waits for the closing line. After an earlier scan, `has_begun` must tell the content of this
        one from that of the earlier one."""
        self.key("F3")
        return self.wait_until("the end of the scan", lambda s: s.text(STATUS).startswith(("Finished", "Canceled"))
                               and s.control(SCAN)["visible"] and not s.text(SUM).endswith("cleaned.") and has_begun(s))

    def untick(self, row):
        """Clicks into the box of a result row, counted from 1."""
        shown = self.read()
        self.click(shown.rows[row - 1]["rect"], x=8)
        return self.wait_until("the tick to go", lambda s: not s.rows[row - 1]["checked"])

    def wait_for_clean(self):
        return self.wait_until("the end of the clean", lambda s: s.text(STATUS) == "Finished."
                               and s.text(SUM).endswith("cleaned."))

    def exit_status(self):
        """Waits for the end of the program."""
        return self._process.wait(timeout=PATIENCE)

    def is_running(self):
        return self._process.poll() is None

    def close(self):
        if self.is_running():
            self._process.kill()
            self._process.wait()


class Shown:
    """One reading of the window."""

    def __init__(self, lines):
        self.controls = {line["control"]: line for line in lines if "control" in line}
        window = next(line for line in lines if "minimized" in line)
        self.minimized, self.enabled, self.rect = window["minimized"], window["enabled"], window["rect"]
        self.moving, self.menu = window["moving"], window["menu"]
        self.columns = [line for line in lines if "column" in line]
        self.row_count = next(line["rows"] for line in lines if "rows" in line)
        self.rows = [line for line in lines if "row" in line]  # the first thousand
        self.functions = [line for line in lines if "function" in line]
        self.nodes = [line for line in lines if "node" in line]

    @classmethod
    def of(cls, lines):
        return cls([json.loads(line) for line in lines])

    def control(self, number):
        return self.controls[number]

    def text(self, number):
        return self.controls[number]["text"]

    def focus(self):
        return next((number for number, control in self.controls.items() if control["focus"]), None)

    def names(self):
        return [row["texts"][1] for row in self.rows]

    def node(self, text):
        return next(node for node in self.nodes if node["node"] == text)
