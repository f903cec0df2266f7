"""Drives tavix.exe under Wine on a separate display. Presses real keys and clicks, and reads the window by messages.

TAVIX_BUILD names the build folder with the programs. Prefixes, displays and screenshots are made below
<build>/window.
"""
import itertools
import json
import os
import pathlib
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time

SOURCE = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(SOURCE / "tests" / "support"), str(SOURCE / "tools")]
import registry_text
import wine_prefix
from control_ids import ids

BUILD = pathlib.Path(os.environ["TAVIX_BUILD"]).resolve()
WORK = BUILD / "window"
READER = BUILD / "tavix-list-reader.exe"
WINE = wine_prefix.WINE
# The folder of drive C: for the programs that a test runs beside the window.
TESTS = "Tests"
# In seconds. No test expects anything within a time: this only ends a test whose program hangs.
PATIENCE = 600

MINI, CLOSE, HELP, COMMEND, VERSION = ids("Mini", "Close", "TitleHelp", "TitleCommend", "Version")
PAGES = PRIVACY, SYSTEM, REGISTRY, ADVANCED, OPTIONS, ONE_CLICK = ids("Privacy", "System", "Registry", "Advanced",
                                                                      "Options", "OneClick")
TREE, SCOPE, FUNCTIONS, RESULT, CHECK_ALL = ids("PrivacyTree", "ScopeTree", "Functions", "Result", "CheckAll")
TOOLBAR = ids("Toolbar", "Toolbar+1", "Toolbar+2", "Toolbar+3")
STATUS, OPTION_LINK, OPTION_PROMPT, PROGRESS, TIME_WORD, TIME, SUM = ids(
    "Status", "OptionLink", "OptionPrompt", "Progress", "TimePrefix", "Time", "Sum")
SCAN, CANCEL, CLEAN, REPAIR = ids("Scan", "Cancel", "Clean", "Repair")
PRODUCT_LINK, MAKER_LINK = ids("ProductLink", "MakerLink")


class Timeout(AssertionError):
    pass


def messages(catalogue="en"):
    """The messages of the program's catalogue by key."""
    file = SOURCE / "res" / "lang" / catalogue / "tips.dll"
    section = file.read_text(encoding="utf-8").split("[Message & Text]")[1].split("\n[")[0]
    return dict(line.split("=", 1) for line in section.splitlines() if "=" in line)


def wait_for(what, condition):
    """Calls condition() until it is true; returns that value."""
    end = time.monotonic() + PATIENCE
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Timeout(f"waited {PATIENCE} seconds for {what}")
        time.sleep(0.05)


def environment(prefix, display):
    """The environment of the prefix's programs. Wine's errors are shown: a test that fails says what Wine said."""
    return {"WINEDEBUG": "-all,err+all", **os.environ, "WINEPREFIX": str(prefix), "DISPLAY": display}


def stand_in():
    """A rundll32.exe that only notes its calls. Wine's own can't run what the program asks for, and opens a crash
    dialog."""
    program = WORK / "rundll32.exe"
    if not program.exists():
        made = WORK / f"rundll32-{os.getpid()}.exe"
        source = pathlib.Path(__file__).resolve().parent / "stand_in" / "rundll32.c"
        subprocess.run(["x86_64-w64-mingw32-gcc-posix", "-municode", "-mwindows", "-Wall", "-Wextra", "-Werror", source,
                        "-o", made], check=True)
        made.rename(program)
    return program


class Display:
    """An X server of its own."""

    def __init__(self, size="1024x768"):
        read, write = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            self.name = ":" + answer.readline().strip()
        if self.name == ":":
            raise RuntimeError("Xvfb did not start")

    def close(self):
        self._server.terminate()
        self._server.wait()


class Reader:
    """The program that reads windows. It runs until it is closed."""

    def __init__(self, machine):
        self._errors = tempfile.TemporaryFile()
        self._process = subprocess.Popen([WINE, machine.tool(READER)], env=machine.environment, stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, stderr=self._errors)

    def read(self, window_class):
        """The lines about the visible window of a class, "" for the main window. None if there is no such window. A plus
        sign before the class asks for what is in sight and how its texts are drawn."""
        self._process.stdin.write(window_class.encode() + b"\n")
        self._process.stdin.flush()
        answer = b""
        while not answer.endswith((b"\nend\n", b"none\n")):
            answer += self._more(window_class)
        return None if answer.endswith(b"none\n") else answer.decode().splitlines()[:-1]

    def _more(self, window_class):
        # Services that Wine starts with the reader keep its pipe open, so its end isn't seen in the pipe.
        end = time.monotonic() + PATIENCE
        while not select.select([self._process.stdout], [], [], 0.5)[0]:
            if self._process.poll() is not None:
                self._errors.seek(0)
                raise AssertionError(f"the reader ended with {self._process.returncode} when it was asked for "
                                     f"'{window_class}':\n{self._errors.read().decode(errors='replace')}")
            if time.monotonic() > end:
                raise Timeout(f"waited {PATIENCE} seconds for the reader")
        return os.read(self._process.stdout.fileno(), 1 << 20)

    def is_running(self):
        return self._process.poll() is None

    def close(self):
        self._process.stdin.close()
        self._process.wait(timeout=PATIENCE)
        self._process.stdout.close()
        self._errors.close()


class Machine:
    """A Windows machine: a private prefix on a display."""

    def __init__(self, size="1024x768"):
        WORK.mkdir(parents=True, exist_ok=True)
        prefix = pathlib.Path(tempfile.mkdtemp(prefix="prefix-", dir=WORK))
        wine_prefix.make(prefix)
        self._open(prefix, size)

    @classmethod
    def on(cls, prefix, size):
        """A machine over an existing prefix, which leave() keeps."""
        machine = cls.__new__(cls)
        machine._open(prefix, size)
        return machine

    def _open(self, prefix, size):
        self.display = Display(size)
        self.prefix = prefix
        self.environment = environment(prefix, self.display.name)
        self.drive_c = prefix / "drive_c"
        self._tools = {}
        self._reader = None
        self._root = None

    def look(self, window_class=""):
        """What a visible window shows, by its class; "" is the main window. None if there is no such window."""
        if self._reader is None:
            self._reader = Reader(self)
        return self._reader.read(window_class)

    def pointer(self, *arguments):
        """Moves, presses and releases the mouse, as `xdotool` takes it."""
        subprocess.run(["xdotool", *arguments], env=self.environment, check=True)

    def keyboard(self, *arguments):
        """Presses and releases keys, as `xdotool` takes it. When a window has closed, no window has the keyboard for a
        moment, though Windows' focus is in the next one already: the server drops what is pressed then. Where windows
        are managed and nobody manages them, it is always the window below the mouse that has the keyboard."""
        if self._root is None:
            self._root = self._number_of("search", "--maxdepth", "0", "--name", "")
        nowhere = (0, self._root)
        wait_for("a window to have the keyboard", lambda: self._number_of("getwindowfocus", "-f") not in nowhere)
        subprocess.run(["xdotool", *arguments], env=self.environment, check=True)

    def _number_of(self, *command):
        # xdotool warns where the window below the mouse has the keyboard.
        return int(subprocess.run(["xdotool", *command], env=self.environment, check=True, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL).stdout)

    def key(self, *names):
        self.keyboard("key", *names)

    def close_reader(self):
        if self._reader is not None:
            self._reader.close()
        self._reader = None

    def set_resolution(self, dpi):
        """For the programs that start next. Windows reads it when it starts, so all programs end."""
        self.run("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(dpi), "/f")
        self.close_reader()
        wine_prefix.stop(self.prefix)

    def leave(self):
        self.close_reader()
        wine_prefix.stop(self.prefix)
        self.display.close()

    def close(self):
        self.leave()
        wine_prefix.remove(self.prefix)

    def tool(self, program):
        """The path on drive C: of a host program. The first call copies it there."""
        if program not in self._tools:
            self._tools[program] = wine_prefix.copy_program_in(self.prefix, program, TESTS)
        return self._tools[program]

    def run(self, *command, allowed=(0,)):
        """Runs a Windows program to its end. Returns its output if its exit status is 0, or None if the status is
        another allowed one. A program of this machine is copied into the prefix first."""
        program, *arguments = command
        if isinstance(program, pathlib.Path):
            program = wine_prefix.windows_path(self.prefix, program) or self.tool(program)
        command = (program, *arguments)
        # Use files, not pipes: Wine services that start during the call inherit a pipe and keep it open.
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
            status = subprocess.run([WINE, *command], env=self.environment, stdin=subprocess.DEVNULL, stdout=output,
                                    stderr=errors, check=False, timeout=PATIENCE).returncode
            output.seek(0)
            errors.seek(0)
            if status not in allowed:
                said = (output.read() + errors.read()).decode(errors="replace")
                raise AssertionError(f"{command} gave {status}:\n{said}")
            return output.read().decode("utf-8") if status == 0 else None

    def seed(self, registry_text):
        """Imports an export of the registry editor, given without its first line."""
        file = self.drive_c / "seed.reg"
        text = "Windows Registry Editor Version 5.00\n\n" + registry_text
        file.write_bytes(text.replace("\n", "\r\n").encode("utf-16"))
        self.run("regedit", "/S", "C:\\seed.reg")

    def registry(self, key):
        """The branch below a key, as registry_text gives it."""
        file = self.drive_c / "export.reg"
        file.unlink(missing_ok=True)
        self.run("regedit", "/E", "C:\\export.reg", key)
        return registry_text.read(file.read_bytes())

    def set_message_font(self, pixels):
        """The height of the system's message font at 96 DPI, for the next start. It is 11 in a new prefix."""
        self.run(BUILD / "tavix-change-look.exe", "font", str(pixels))
        self.close_reader()  # it would measure texts in the former font

    def set_interface_size(self, size):
        """Auto, Big or Small, for the next start."""
        file = self.drive_c / "MORVDataPath" / "TVX" / "tvx.dll"
        if file.exists():
            text = re.sub(rb"(?m)^Interface Size=[^\r\n]*", b"Interface Size=" + size.encode(), file.read_bytes())
        else:
            file.parent.mkdir(parents=True)
            text = f"[Duplicate Files]\r\nCommon Types=*.txt\r\n[Other Options]\r\nInterface Size={size}\r\n".encode()
        file.write_bytes(text)

    def note_rundll32_calls(self):
        """Replaces the system's rundll32.exe by the stand-in."""
        self.run("reg", "add", "HKCU\\Software\\Wine\\DllOverrides", "/v", "rundll32.exe", "/d", "native", "/f")
        target = self.drive_c / "windows" / "system32" / "rundll32.exe"
        target.unlink(missing_ok=True)
        shutil.copy(stand_in(), target)

    def rundll32_calls(self):
        file = self.drive_c / "rundll32-calls.txt"
        return file.read_text(encoding="utf-8").splitlines() if file.exists() else []


class Program:
    """The running tavix.exe."""

    def __init__(self, machine, program=BUILD / "tavix.exe"):
        self.machine = machine
        self._process = subprocess.Popen([WINE, program], env=machine.environment)
        wait_for("the window", self._opened)

    def _opened(self):
        if self._process.poll() is not None:
            raise AssertionError(f"tavix.exe ended with {self._process.returncode}")
        lines = self.machine.look()
        scan = Shown.of(lines).controls.get(SCAN) if lines is not None else None
        return scan is not None and scan["visible"]

    def _tool(self, *command):
        subprocess.run(command, env=self.machine.environment, check=True)

    def key(self, *names):
        self.machine.key(*names)

    def click(self, rectangle, x=None, button=1, held=()):
        """Clicks into the middle of a rectangle, or `x` pixels from its left end, with the keys `held` down."""
        left, top, right, bottom = rectangle
        at = (left + right) // 2 if x is None else left + x
        for key in held:
            self.machine.keyboard("keydown", key)
        self.machine.pointer("mousemove", str(at), str((top + bottom) // 2), "click", str(button))
        for key in held:
            self.machine.keyboard("keyup", key)

    def move(self, x, y):
        self.machine.pointer("mousemove", str(x), str(y))

    def move_onto(self, rectangle):
        self.move((rectangle[0] + rectangle[2]) // 2, (rectangle[1] + rectangle[3]) // 2)

    def drag(self, start, by):
        """Drags the window by a point of it, and waits until it has moved by `by`, or by one pixel more. The first move
        after the press begins the drag; over a tree it must exceed a threshold. The window follows the later moves."""
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
        self.machine.pointer("mousedown", "1")

    def _move_in_steps(self, start, by):
        for step in range(1, 6):
            self.move(start[0] + by[0] * step // 5, start[1] + by[1] * step // 5)

    def _release(self):
        self.machine.pointer("mouseup", "1")

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
        """The pixels of a rectangle of the screen, as bytes."""
        left, top, right, bottom = rectangle
        shot = subprocess.run(["import", "-window", "root", "-crop", f"{right - left}x{bottom - top}+{left}+{top}",
                               "+repage", "-depth", "8", "rgb:-"], env=self.machine.environment, check=True,
                              stdout=subprocess.PIPE)
        return shot.stdout

    def screenshot(self, name):
        folder = WORK / "screenshots"
        folder.mkdir(parents=True, exist_ok=True)
        self._tool("import", "-window", "root", str(folder / f"{name}.png"))
        return folder / f"{name}.png"

    def painted(self, file):
        """Takes a picture of the window alone, when all of it has been painted: the picture before was the same."""
        before = None
        while True:
            left, top, right, bottom = self.read().rect
            self._tool("import", "-window", "root", "-crop", f"{right - left}x{bottom - top}+{left}+{top}", "+repage",
                       str(file))
            if (now := file.read_bytes()) == before:
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
