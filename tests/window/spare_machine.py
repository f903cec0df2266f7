"""The Windows on which the tests themselves run. They work on its real C:\\MORVDataPath and on the registry of the user,
press keys and move the mouse. So they only run where TAVIX_SPARE_MACHINE=1 says that the machine is kept for that."""
import contextlib
import ctypes
import os
import pathlib
import re
import shutil
import subprocess
import unittest

from basics import WORK
from hands import WindowsHands
from machine import CHANGE_LOOK, INPUT, Machine, compiled

# What the program makes on drive C:, and what the tests make there.
DATA = ("MORVDataPath", "TVXBak")
FOLDERS = ("Tavix", "Archive", "Deep", "Empty", "Hollow", "below")
FILES = ("seed.reg", "export.reg", "rundll32-calls.txt")
# Keys of the user that the tests fill.
INTERNET = r"HKCU\Software\Microsoft\Internet Explorer\TypedURLs"
EXPLORER = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer"
SEEDED = (INTERNET, EXPLORER + r"\RunMRU", EXPLORER + r"\ComDlg32\OpenSaveMRU2",
          r"HKCU\Software\Microsoft\Search Assistant\ACMru\5603")
# Windows starts the program of this key's value `Debugger` in the place of rundll32.exe, with its whole command line.
INSTEAD = r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\Image File Execution Options\rundll32.exe"
USUAL_RESOLUTION = 96
GET_BAR_STATE, SET_BAR_STATE, HIDDEN_BAR = 4, 10, 1


class Bar(ctypes.Structure):
    """APPBARDATA, by which the state of the taskbar is read and set."""
    _fields_ = [("size", ctypes.c_uint32), ("window", ctypes.c_void_p), ("message", ctypes.c_uint32),
                ("edge", ctypes.c_uint32), ("rect", ctypes.c_int32 * 4), ("state", ctypes.c_ssize_t)]


def bar(message, state=0):
    data = Bar(state=state)
    data.size = ctypes.sizeof(data)
    tell = ctypes.windll.shell32.SHAppBarMessage
    tell.restype, tell.argtypes = ctypes.c_size_t, [ctypes.c_uint32, ctypes.POINTER(Bar)]
    return tell(message, ctypes.byref(data))


def check_the_machine():
    if os.environ.get("TAVIX_SPARE_MACHINE") != "1":
        raise unittest.SkipTest("works on C:\\MORVDataPath and the user's registry: TAVIX_SPARE_MACHINE=1 allows it")
    if not ctypes.windll.shell32.IsUserAnAdmin():
        raise RuntimeError("the program runs as administrator, so the tests have to: open the shell as administrator")
    ctypes.windll.user32.SetProcessDPIAware()
    if ctypes.windll.user32.GetDpiForSystem() != USUAL_RESOLUTION:
        raise RuntimeError("set the scale of the display to 100 percent, and sign in again")


class SpareMachine(Machine):
    drive_c = pathlib.Path("C:/")

    def __init__(self, size="1024x768"):
        check_the_machine()
        WORK.mkdir(parents=True, exist_ok=True)
        self.environment = dict(os.environ)
        in_the_way = [name for name in FOLDERS if (self.drive_c / name).exists()]
        if in_the_way:
            raise RuntimeError(f"the tests make these folders on drive C: and remove them: {', '.join(in_the_way)}")
        self._undo = contextlib.ExitStack()
        self._clear()
        self._undo.callback(self._clear)
        try:
            self._set_up(size)
        except BaseException:
            self.close()
            raise

    def _set_up(self, size):
        self._set_screen(*size.split("x"))
        # The windows lie over where it was.
        self._undo.callback(bar, SET_BAR_STATE, bar(GET_BAR_STATE))
        bar(SET_BAR_STATE, HIDDEN_BAR)

    def _new_hands(self):
        return WindowsHands(self, INPUT)

    def _set_screen(self, width, height):
        metric = ctypes.windll.user32.GetSystemMetrics
        before = str(metric(0)), str(metric(1))
        if before == (width, height):
            return
        if self.run(CHANGE_LOOK, "screen", width, height, allowed=(0, 1)) is None:
            raise unittest.SkipTest(f"the screen has no mode of {width}x{height}")
        self._undo.callback(self.run, CHANGE_LOOK, "screen", *before)

    def _clear(self):
        for name in DATA + FOLDERS:
            shutil.rmtree(self.drive_c / name, ignore_errors=True)
        for name in FILES:
            (self.drive_c / name).unlink(missing_ok=True)
        for key in SEEDED:
            self.run("reg", "delete", key, "/f", allowed=(0, 1))

    def start(self, program, *arguments, **more):
        return subprocess.Popen([str(program), *arguments], env=self.environment, **more)

    def path_of(self, program):
        return str(program)

    def user(self):
        return pathlib.Path(os.environ["USERPROFILE"]).name

    def set_resolution(self, dpi):
        if dpi != USUAL_RESOLUTION:
            raise unittest.SkipTest(f"the scale of {dpi * 100 // 96} percent holds from the next sign-in on")

    def set_message_font(self, pixels):
        before = super().set_message_font(pixels)
        self._undo.callback(super().set_message_font, before)

    def note_rundll32_calls(self):
        program = WORK / "rundll32-calls.exe"
        if not program.exists():
            compiled("rundll32.c", program.name, "-municode", "-mwindows")
        self.run("reg", "add", INSTEAD, "/v", "Debugger", "/d", str(program), "/f")
        self._undo.callback(self.run, "reg", "delete", INSTEAD, "/f")

    def rundll32_calls(self):
        """Windows itself uses rundll32.exe, too."""
        calls = [re.sub(r'^("[^"]*"|\S+)\s+', "", line) for line in super().rundll32_calls()]
        return [call for call in calls if call.startswith("InetCpl.cpl")]

    def close(self):
        self.close_helpers()
        self._undo.close()
