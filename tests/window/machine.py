"""A Windows for the tests of the window: its screen, its drive C:, its registry, and what runs on it. Here is what all
kinds of it have in common."""
import os
import pathlib
import re
import subprocess
import tempfile

import basics
import registry_text
from basics import BUILD, PATIENCE
from helper_program import Reader

READER, INPUT, CHANGE_LOOK = (BUILD / f"tavix-{name}.exe" for name in ("list-reader", "input", "change-look"))


class Machine:
    """`drive_c` is the folder of its drive C:, `environment` that of its programs, `hands` presses its keys."""
    _reader = _hands = None

    @property
    def hands(self):
        if self._hands is None:
            self._hands = self._new_hands()
        return self._hands

    def look(self, window_class=""):
        """What a visible window shows, by its class; "" is the main window. None if there is no such window."""
        if self._reader is None:
            self._reader = Reader(self, READER)
        return self._reader.read(window_class)

    def close_reader(self):
        if self._reader is not None:
            self._reader.close()
        self._reader = None

    def close_helpers(self):
        """Ends the programs that run beside the window, until they are needed again."""
        self.close_reader()
        if self._hands is not None:
            self._hands.close()
        self._hands = None

    def key(self, *names):
        self.hands.keys(*names)

    def start(self, program, *arguments, **more):
        """Starts a Windows program, given by its path, or one of the system by its name. Returns its process."""
        raise NotImplementedError

    def path_of(self, program):
        """The path of a program or library of the build folder, as the programs of the machine have it."""
        raise NotImplementedError

    def user(self):
        """The name of the folder of the user."""
        raise NotImplementedError

    def run(self, *command, allowed=(0,)):
        """Runs a Windows program to its end. Returns its output if its exit status is 0, or None if the status is
        another allowed one."""
        program, *arguments = command
        if isinstance(program, pathlib.Path):
            command = (self.path_of(program), *arguments)
        # Use files, not pipes: Wine services that start during the call inherit a pipe and keep it open.
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
            process = self.start(*command, stdin=subprocess.DEVNULL, stdout=output, stderr=errors)
            try:
                status = process.wait(timeout=PATIENCE)
            finally:
                process.kill()
                process.wait()
            output.seek(0)
            errors.seek(0)
            if status not in allowed:
                said = (output.read() + errors.read()).decode(errors="replace")
                raise AssertionError(f"{command} gave {status}:\n{said}")
            return output.read().decode("utf-8") if status == 0 else None

    def seed(self, text):
        """Imports an export of the registry editor, given without its first line."""
        file = self.drive_c / "seed.reg"
        text = "Windows Registry Editor Version 5.00\n\n" + text
        file.write_bytes(text.replace("\n", "\r\n").encode("utf-16"))
        self.run("regedit", "/S", "C:\\seed.reg")

    def registry(self, key):
        """The branch below a key, as registry_text gives it."""
        file = self.drive_c / "export.reg"
        file.unlink(missing_ok=True)
        self.run("regedit", "/E", "C:\\export.reg", key)
        return registry_text.read(file.read_bytes())

    def set_message_font(self, pixels):
        """The height of the system's message font at 96 DPI, for the next start. Returns what it was before."""
        before = self.run(CHANGE_LOOK, "font", str(pixels))
        self.close_reader()  # it would measure texts in the former font
        return abs(int(before.split()[0]))

    def set_interface_size(self, size):
        """Auto, Big or Small, for the next start."""
        file = self.drive_c / "MORVDataPath" / "TVX" / "tvx.dll"
        if file.exists():
            text = re.sub(rb"(?m)^Interface Size=[^\r\n]*", b"Interface Size=" + size.encode(), file.read_bytes())
        else:
            file.parent.mkdir(parents=True)
            text = f"[Duplicate Files]\r\nCommon Types=*.txt\r\n[Other Options]\r\nInterface Size={size}\r\n".encode()
        basics.write_over(file, text)

    def rundll32_calls(self):
        """The arguments of each call of the stand-in."""
        file = self.drive_c / "rundll32-calls.txt"
        return file.read_text(encoding="utf-8").splitlines() if file.exists() else []


def compiled(source, name, *options):
    """A program or library of tests/window/stand_in/, compiled into the folder of the tests."""
    compiler = "gcc" if basics.ON_WINDOWS else "x86_64-w64-mingw32-gcc-posix"
    made = basics.WORK / f"{os.getpid()}-{name}"
    source = pathlib.Path(__file__).resolve().parent / "stand_in" / source
    subprocess.run([compiler, "-Wall", "-Wextra", "-Werror", *options, source, "-o", made], check=True)
    return made.replace(basics.WORK / name)
