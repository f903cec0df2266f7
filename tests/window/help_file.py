"""The help file as it is built from its sources."""
import os
import pathlib
import struct
import subprocess
import tempfile
import time
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
SOURCES = TOP / "res" / "help"


def build(target, epoch="1700000000"):
    subprocess.run([TOP / "tools" / "build_help.py", SOURCES, target], check=True,
                   env={**os.environ, "SOURCE_DATE_EPOCH": epoch})
    return pathlib.Path(target).read_bytes()


class HelpFile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.file = cls.folder / "Help.chm"
        cls.bytes = build(cls.file)

    def content(self, name):
        target = self.folder / "content"
        target.unlink(missing_ok=True)
        subprocess.run(["chmls", "extract", self.file, name, target], check=True, capture_output=True)
        return target.read_bytes()

    def test_every_source_is_in_it_as_it_is(self):
        sources = [s for s in sorted(SOURCES.iterdir()) if s.suffix in (".htm", ".css", ".hhc", ".hhk")]
        self.assertGreater(len(sources), 60)
        for source in sources:
            self.assertEqual(self.content("/" + source.name), source.read_bytes(), source.name)

    def test_its_window_has_the_title_by_which_the_program_finds_it(self):
        windows, texts = self.content("/#WINDOWS"), self.content("/#STRINGS")
        count, size = struct.unpack_from("<II", windows)
        self.assertEqual(count, 1)
        self.assertGreaterEqual(size, 0x60)

        def text(offset):
            at, = struct.unpack_from("<I", windows, 8 + offset)
            return texts[at:texts.index(b"\0", at)].decode()

        self.assertEqual(text(8), "main")
        self.assertEqual(text(20), "TVX Help")
        self.assertEqual([text(o) for o in (0x60, 0x64, 0x68, 0x6C)],
                         ["contents.hhc", "index.hhk", "welcome.htm", "welcome.htm"])

    def test_equal_sources_give_equal_files(self):
        time.sleep(1.1)
        self.assertEqual(build(self.folder / "again.chm"), self.bytes)
        self.assertNotEqual(build(self.folder / "later.chm", "1700000001"), self.bytes)


if __name__ == "__main__":
    unittest.main(verbosity=2)
