"""Where the window tests find things, and how they wait. TAVIX_BUILD names the build folder with the programs."""
import os
import pathlib
import sys
import time

ON_WINDOWS = sys.platform == "win32"
SOURCE = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(SOURCE / "tests" / "support"), str(SOURCE / "tools")]

BUILD = pathlib.Path(os.environ["TAVIX_BUILD"]).resolve()
WORK = BUILD / "window"
# In seconds. No test expects anything within a time: this only ends a test whose program hangs.
PATIENCE = 600


class Timeout(AssertionError):
    pass


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


def write_over(file, content):
    """Replaces the content of a file. Windows opens a hidden file for writing only as it is, not to be made anew."""
    with open(file, "r+b" if file.exists() else "wb") as opened:
        opened.write(content)
        opened.truncate()
