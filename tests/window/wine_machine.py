"""A private Wine prefix on an X display of its own."""
import os
import pathlib
import shutil
import subprocess
import tempfile

import wine_prefix
from basics import WORK
from hands import WindowsHands, XHands
from machine import INPUT, Machine, compiled

WINE = wine_prefix.WINE
# The folder of drive C: for the programs that a test runs beside the window.
TESTS = "Tests"


def environment(prefix, display):
    """The environment of the prefix's programs. Wine's errors are shown: a test that fails says what Wine said."""
    return {"WINEDEBUG": "-all,err+all", **os.environ, "WINEPREFIX": str(prefix), "DISPLAY": display}


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


class WineMachine(Machine):
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
        self._size = tuple(int(length) for length in size.split("x"))
        self._display = Display(size)
        self.prefix = prefix
        self.environment = environment(prefix, self._display.name)
        self.drive_c = prefix / "drive_c"
        self._tools = {}

    def _new_hands(self):
        by_windows = os.environ.get("TAVIX_INPUT") == "windows"
        return WindowsHands(self, INPUT) if by_windows else XHands(self.environment, self._size)

    def start(self, program, *arguments, **more):
        return subprocess.Popen([WINE, program, *arguments], env=self.environment, **more)

    def path_of(self, program):
        """The first call copies the program to drive C:."""
        if program not in self._tools:
            self._tools[program] = (wine_prefix.windows_path(self.prefix, program)
                                    or wine_prefix.copy_program_in(self.prefix, program, TESTS))
        return self._tools[program]

    def user(self):
        return next(folder.name for folder in (self.drive_c / "users").iterdir() if folder.name != "Public")

    def set_resolution(self, dpi):
        """For the programs that start next. Windows reads it when it starts, so all programs end."""
        self.run("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(dpi), "/f")
        self.close_helpers()
        wine_prefix.stop(self.prefix)

    def note_rundll32_calls(self):
        """Replaces the system's rundll32.exe by a stand-in that only notes its calls. Wine's own can't run what the
        program asks for, and opens a crash dialog."""
        self.run("reg", "add", "HKCU\\Software\\Wine\\DllOverrides", "/v", "rundll32.exe", "/d", "native", "/f")
        target = self.drive_c / "windows" / "system32" / "rundll32.exe"
        target.unlink(missing_ok=True)
        shutil.copy(stand_in(), target)

    def leave(self):
        self.close_helpers()
        wine_prefix.stop(self.prefix)
        self._display.close()

    def close(self):
        self.leave()
        wine_prefix.remove(self.prefix)


def stand_in():
    program = WORK / "rundll32.exe"
    return program if program.exists() else compiled("rundll32.c", program.name, "-municode", "-mwindows")
