"""Keys, the mouse and pictures of the screen, in two ways: over the X display on which Wine shows its windows, and by
Windows' own calls, which a program beside the window makes. Keys have the names that `xdotool` gives them; several are
joined by plus signs. The buttons of the mouse have the numbers of X: 1 left, 3 right, 4 and 5 the wheel away from the
user and towards him, 6 and 7 the wheel to the left and to the right. Points and rectangles are in pixels of the
screen."""
import subprocess

from basics import wait_for
from helper_program import HelperProgram
from screen import Screen

# The numbers of Windows for the keys that aren't a letter or a digit.
VIRTUAL_KEYS = {"shift": 0x10, "ctrl": 0x11, "alt": 0x12, "Tab": 0x09, "Return": 0x0D, "Escape": 0x1B, "space": 0x20,
                "End": 0x23, "Home": 0x24, "Left": 0x25, "Up": 0x26, "Right": 0x27, "Down": 0x28, "Delete": 0x2E,
                **{f"F{number}": 0x6F + number for number in range(1, 13)}}


class XHands:
    """By the X display."""

    def __init__(self, environment, size):
        self._environment = environment
        self._screen = Screen(environment["DISPLAY"])
        self.size = size
        self._root = None

    def keys(self, *names):
        """Presses and releases one key after the other."""
        # Left to itself, xdotool releases the keys that are held before Wine has looked for them.
        commands = []
        for *held, last in (name.split("+") for name in names):
            commands += [*(word for key in held for word in ("keydown", key)), "key", last,
                         *(word for key in reversed(held) for word in ("keyup", key))]
        self._keyboard(*commands)

    def type(self, text):
        self._keyboard("type", "--delay", "20", text)

    def _keyboard(self, *arguments):
        """When a window has closed, no window has the keyboard for a moment, though Windows' focus is in the next one
        already: the server drops what is pressed then. Where windows are managed and nobody manages them, it is always
        the window below the mouse that has the keyboard."""
        if self._root is None:
            self._root = self._number_of("search", "--maxdepth", "0", "--name", "")
        nowhere = (0, self._root)
        wait_for("a window to have the keyboard", lambda: self._number_of("getwindowfocus", "-f") not in nowhere)
        self._run(*arguments)

    def move(self, x, y):
        self._run("mousemove", str(x), str(y))

    def press(self, button):
        self._run("mousedown", str(button))

    def release(self, button):
        self._run("mouseup", str(button))

    def click(self, button=1, held=()):
        """Presses and releases a button of the mouse, or turns the wheel, while keys are held down."""
        for name in held:
            self._keyboard("keydown", name)
        self._run("click", str(button))
        for name in held:
            self._keyboard("keyup", name)

    def _run(self, *arguments):
        subprocess.run(["xdotool", *arguments], env=self._environment, check=True)

    def _number_of(self, *command):
        # xdotool warns where the window below the mouse has the keyboard.
        return int(subprocess.run(["xdotool", *command], env=self._environment, check=True, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL).stdout)

    def bring_to_front(self):
        """X shows a new window before the others."""

    def pixels(self, rectangle):
        """The pixels of a rectangle of the screen, row by row, as bytes of red, green and blue."""
        return self._screen.pixels(checked(rectangle, self.size))

    def close(self):
        self._screen.close()


class WindowsHands:
    """By Windows' own calls: tests/window/tools/input.cpp makes them."""

    def __init__(self, machine, program):
        self._program = HelperProgram(machine, program)
        self.size = tuple(int(length) for length in self._ask("size").split())

    def keys(self, *names):
        """Presses and releases one key after the other."""
        self._wait_for_keyboard()
        for name in names:
            self._do("keys", *numbers(name.split("+")))

    def type(self, text):
        self._wait_for_keyboard()
        for character in text:
            self._do("character", ord(character))

    def _wait_for_keyboard(self):
        """Until then a key would reach another program."""
        wait_for("a window of the program to have the keyboard", self.has_keyboard)

    def has_keyboard(self):
        return self._ask("keyboard") == "yes"

    def move(self, x, y):
        self._do("move", x, y)

    def press(self, button):
        self._do("press", button)

    def release(self, button):
        self._do("release", button)

    def click(self, button=1, held=()):
        """Presses and releases a button of the mouse, or turns the wheel, while keys are held down."""
        if held:
            self._wait_for_keyboard()
        self._do("click", button, *numbers(held))

    def _ask(self, line):
        self._program.ask(line)
        return self._program.line()

    def _do(self, *command):
        line = " ".join(map(str, command))
        answer = self._ask(line)
        if answer != "done":
            raise AssertionError(f"{line}: {answer}")

    def bring_to_front(self):
        """Windows doesn't always let a program that another one has started come to the front."""
        wait_for("the window to be in front", lambda: self._ask("front") == "yes")

    def pixels(self, rectangle):
        """The pixels of a rectangle of the screen, row by row, as bytes of red, green and blue."""
        left, top, right, bottom = checked(rectangle, self.size)
        self._do("picture", left, top, right, bottom)
        return self._program.bytes(3 * (right - left) * (bottom - top))

    def close(self):
        self._program.close()


def numbers(names):
    return [VIRTUAL_KEYS.get(name) or ord(name.upper()) for name in names]


def checked(rectangle, size):
    left, top, right, bottom = rectangle
    if not (0 <= left < right <= size[0] and 0 <= top < bottom <= size[1]):
        raise ValueError(f"{rectangle} is not on the screen as a whole")
    return rectangle


