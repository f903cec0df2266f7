"""Machines with something to find in their registry, for the tests of the real window."""
import unittest

import driver
from driver import CLOSE

TYPED_URLS = [
    ("url1", "http://zebra.example/"),
    ("url2", "http://Ärger.example/größe?q=naïve"),
    ("url3", "http://例え.example/日本語"),
    ("url4", "http://emoji.example/\U0001f600"),
    ("url5", 'C:\\Program Files\\"quoted"'),
    ("url6", "http://apple.example/"),
]
RUN_HISTORY = [("a", "notepad\\1"), ("b", "regedit\\1"), ("MRUList", "ba")]
SEARCHES = [("000", "*.doc"), ("001", "Straße")]
STANDING = {
    "before": ["Auto-fill Form History", "Auto-fill Password History"],
    "after": ["User Ran Applications History", "Open/Save History", "Other Explorer MRUs"],
}
# Functions that search files. What they find depends on the prefix.
FILE_FUNCTIONS = ("Temporary Internet Files", "Cookies", "History", "Temporary Internet Files Detail", "Cookies Detail",
                  "Index.dat Files", "Recently Used Documents")


def values(pairs):
    def quoted(text):
        return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'

    return "".join(f"{quoted(name)}={quoted(data)}\n" for name, data in pairs)


SEED = f"""\
[-HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedUrls]
[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedUrls]
{values(TYPED_URLS)}
[-HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU]
[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU]
{values(RUN_HISTORY)}
[HKEY_CURRENT_USER\\Software\\Microsoft\\Search Assistant\\ACMru\\5603]
{values(SEARCHES)}
"""


def expected_rows():
    """The rows of the seeded registry, in the order of the tree."""

    def row(kind, name):
        return [kind, name, "N/A", "Registry", "00000000.0"]

    return ([row("Recently Typed URL", data) for _, data in TYPED_URLS]
            + [row(name, name) for name in STANDING["before"]]
            + [row("Run History (in Start menu)", data) for _, data in RUN_HISTORY]
            + [row("Search History", data) for _, data in SEARCHES]
            + [row(name, name) for name in STANDING["after"]])


class SeededMachine(unittest.TestCase):
    seed = SEED
    screen = "1024x768"

    def setUp(self):
        self.machine = driver.Machine(self.screen)
        self.addCleanup(self.machine.close)
        if self.seed:
            self.machine.seed(self.seed)

    def start(self, **more):
        program = driver.Program(self.machine, **more)
        self.addCleanup(program.close)
        return program

    def close(self, program):
        program.click(program.read().control(CLOSE)["rect"])
        self.assertEqual(program.exit_status(), 0)

    def rows(self, shown):
        return [row["texts"] for row in shown.rows]

    def untick_file_functions(self, program):
        """Unticks every function that searches files."""
        shown = program.read()
        for name in FILE_FUNCTIONS:
            program.click(shown.node(name)["rect"], x=-8)
        program.wait_until("the ticks to go", lambda s: not any(s.node(name)["checked"] for name in FILE_FUNCTIONS))


class RealWindow(SeededMachine):
    def setUp(self):
        super().setUp()
        self.program = self.start()
