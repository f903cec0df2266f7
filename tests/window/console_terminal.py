"""The Windows console on a terminal: what it shows there, and the question before it cleans the computer it runs on. Run
by CTest, or: TAVIX_BUILD=build/windows python3 -m unittest console_terminal"""
import os
import pty
import select
import shutil
import signal
import time
import unittest

import driver  # first: it adds the folder of the tools to the path
import wine_prefix

# The question, then codes of the terminal: the rest of the line is cleared, the cursor moves and is shown.
PROMPT_DRAWN = b"[y/N]\x1b[K\x1b[1C\x1b[?25h"
NAMES = ["файл ü.tmp", "日本.tmp"]


class ConsoleTerminal(unittest.TestCase):
    def setUp(self):
        self.machine = driver.Machine()
        self.addCleanup(self.machine.close)
        shutil.copy(driver.BUILD / "tavix-console.exe", self.machine.drive_c)
        user = next(entry.name for entry in (self.machine.drive_c / "users").iterdir() if entry.name != "Public")
        self.temporary = self.machine.drive_c / "users" / user / "Temp"
        self.temporary.mkdir(exist_ok=True)
        for name in NAMES:
            (self.temporary / name).write_text("x")

    def clean(self, answer):
        """Cleans the temporary files and answers the question. Returns what the terminal showed, and the exit status."""
        process, terminal = pty.fork()
        if process == 0:
            os.execvpe(wine_prefix.WINE, [wine_prefix.WINE, "C:\\tavix-console.exe", "--live", "--page", "system",
                                          "--function", "Temporary Files", "--clean"],
                       {**self.machine.environment, "TERM": "xterm"})
        shown, end = b"", time.monotonic() + driver.PATIENCE
        while time.monotonic() < end:
            if not select.select([terminal], [], [], 1)[0]:
                # Wine's console loses what is typed while it draws, so it is typed when nothing is drawn any more.
                if shown.rstrip().endswith(PROMPT_DRAWN):
                    os.write(terminal, answer)
                continue
            try:
                shown += os.read(terminal, 4096)
            except OSError:  # the other end is closed
                break
        else:
            os.kill(process, signal.SIGKILL)
        status = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
        os.close(terminal)
        return shown.decode("utf-8", "replace"), status

    def left(self):
        return sorted(entry.name for entry in self.temporary.iterdir()) if self.temporary.exists() else []

    def test_names_of_every_script_are_shown_and_no_removes_nothing(self):
        shown, status = self.clean(b"n\r")
        for name in NAMES:
            self.assertIn(name, shown)
        self.assertIn("Remove what the 2 ticked rows name from this computer? [y/N]", shown)
        self.assertIn("Nothing was removed.", shown)
        self.assertEqual((status, self.left()), (0, sorted(NAMES)))

    def test_yes_removes_the_ticked_rows(self):
        shown, status = self.clean(b"y\r")
        self.assertIn("Sum: 2 items, 0. KB cleaned.", shown)
        self.assertEqual((status, self.left()), (0, []))


if __name__ == "__main__":
    unittest.main(verbosity=2)
