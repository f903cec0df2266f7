"""The Advanced page in the real window: a scan over a drive, its rows, and the clean. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest advanced_window"""
import unittest

from driver import FUNCTIONS, SCAN, SCOPE, STATUS, SUM
from seeded import SeededMachine

# The name, its content, and the row that it makes.
FILES = [
    ("old notes.bak", b"notes", "Junk File"),
    ("session.tmp", b"scratch", "Junk File"),
    ("nothing.txt", b"", "Empty File"),
    ("letter.txt", b"kept", None),
]


class Advanced(SeededMachine):
    seed = None

    def setUp(self):
        super().setUp()
        # Only this folder is scanned: other files of a fresh prefix depend on Wine's version.
        self.folder = self.machine.drive_c / "Archive"
        self.folder.mkdir()
        (self.folder / "Empty").mkdir()
        for name, content, _ in FILES:
            (self.folder / name).write_bytes(content)
        self.program = self.start()
        self.program.key("a")
        shown = self.program.wait_until("the page", lambda s: s.control(FUNCTIONS)["visible"])
        self.assertTrue(shown.control(SCOPE)["visible"])
        # Untick the drive, open it, and tick the one folder.
        drive = next(node["node"] for node in shown.nodes if node["node"].endswith("(C:)"))
        self.program.click(shown.node("My Computer")["box"])
        shown = self.program.wait_until("the ticks to go", lambda s: not s.node(drive)["checked"])
        self.program.click(shown.node(drive)["rect"])
        shown = self.program.wait_until("the folders", lambda s: any(node["node"] == "Archive" and node["rect"] for node in s.nodes))
        self.program.click(shown.node("Archive")["box"])
        self.program.wait_until("the tick", lambda s: s.node("Archive")["checked"])

    def test_a_folder_is_scanned_and_cleaned(self):
        self.program.key("F3")
        shown = self.program.wait_until(
            "the scan", lambda s: s.control(SCAN)["visible"] and s.text(STATUS).startswith("Finished, "))
        found = sorted((row["texts"][0], row["texts"][1]) for row in shown.rows)
        wanted = [(kind, name) for name, _, kind in FILES if kind] + [("Empty Folder", "Empty")]
        self.assertEqual(found, sorted(wanted))
        self.assertTrue(all(row["texts"][3] == "C:\\Archive" for row in shown.rows))
        self.program.key("F5")
        self.program.wait_until("the clean", lambda s: s.text(SUM).endswith("cleaned."))
        self.assertEqual([entry.name for entry in self.folder.iterdir()], ["letter.txt"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
