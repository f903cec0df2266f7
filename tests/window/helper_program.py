"""Windows programs that run beside the window and answer one line after the other. They stay, because their start takes
much longer than an answer."""
import os
import queue
import subprocess
import tempfile
import threading
import time

from basics import PATIENCE, Timeout


class HelperProgram:
    """It runs until it is closed."""

    def __init__(self, machine, program):
        self._name = program.stem
        self._errors = tempfile.TemporaryFile()
        self._process = machine.start(machine.path_of(program), stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                      stderr=self._errors)
        self._parts, self._answer, self._asked = queue.Queue(), bytearray(), ""
        # A pipe can't be read with a time limit on Windows, so a thread of its own reads it.
        threading.Thread(target=self._pump, daemon=True).start()

    def _pump(self):
        with self._process.stdout as output:
            while part := os.read(output.fileno(), 1 << 20):
                self._parts.put(part)

    def ask(self, line):
        self._asked = line
        self._process.stdin.write(line.encode() + b"\n")
        self._process.stdin.flush()

    def line(self):
        """The next line of the answer."""
        while (end := self._answer.find(b"\n")) < 0:
            self._more()
        return self._take(end + 1).decode().rstrip("\n")

    def lines_until(self, *last):
        """The lines of the answer up to one of these, which is the last."""
        lines = [self.line()]
        while lines[-1] not in last:
            lines.append(self.line())
        return lines

    def bytes(self, count):
        """The next bytes of the answer."""
        while len(self._answer) < count:
            self._more()
        return self._take(count)

    def _take(self, count):
        taken = bytes(self._answer[:count])
        del self._answer[:count]
        return taken

    def _more(self):
        # Services that Wine starts with the program keep its pipe open, so its end isn't seen in the pipe.
        end = time.monotonic() + PATIENCE
        while True:
            try:
                self._answer += self._parts.get(timeout=0.5)
                return
            except queue.Empty:
                self._check(end)

    def _check(self, end):
        if self._process.poll() is not None:
            self._errors.seek(0)
            raise AssertionError(f"{self._name} ended with {self._process.returncode} when it was asked for "
                                 f"'{self._asked}':\n{self._errors.read().decode(errors='replace')}")
        if time.monotonic() > end:
            raise Timeout(f"waited {PATIENCE} seconds for {self._name}")

    def close(self):
        self._process.stdin.close()
        self._process.wait(timeout=PATIENCE)
        self._errors.close()


class Reader(HelperProgram):
    """The program that reads windows: tests/window/win32/list_reader.cpp."""

    def read(self, window_class):
        """The lines about the visible window of a class, "" for the main window. None if there is no such window. A plus
        sign before the class asks for what is in sight and how its texts are drawn."""
        self.ask(window_class)
        lines = self.lines_until("end", "none")
        return None if lines[-1] == "none" else lines[:-1]
