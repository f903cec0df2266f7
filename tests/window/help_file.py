"""The help file, built from its topics. Run by CTest, or: python3 -m unittest help_file"""
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import time
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(TOP / "tools"))
import build_help

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
        cls.built = time.time()
        cls.topics = {file.name: file.read_text(encoding="ascii") for file in SOURCES.glob("*.htm")}

    def content(self, name):
        target = self.folder / "content"
        target.unlink(missing_ok=True)
        subprocess.run(["chmls", "extract", self.file, name, target], check=True, capture_output=True)
        return target.read_bytes()

    def text(self, name):
        return self.content("/" + name).decode("ascii")

    def entries(self, name):
        """The entries of contents or index: depth, name and file."""
        found = re.findall(r'(?m)^( *)<li>.*name="Name" value="(.*?)">.* value="(.*?)"></object>$', self.text(name))
        return [(len(indent) // 2, title, file) for indent, title, file in found]

    def test_every_topic_is_in_it_unchanged_except_its_lists(self):
        self.assertGreater(len(self.topics), 60)
        for name, source in self.topics.items():
            parts = re.split("<!-- topics of .* -->\n", source)
            pattern = "<ul>\n(?:<li>.*</li>\n)+</ul>\n".join(map(re.escape, parts))
            self.assertRegex(self.text(name), re.compile(rf"\A{pattern}\Z"), name)
        self.assertEqual(self.content("/help.css"), (SOURCES / "help.css").read_bytes())

    def test_every_topic_is_in_the_contents_once_and_in_the_index_by_its_title(self):
        contents, index = self.entries("contents.hhc"), self.entries("index.hhk")
        self.assertEqual(sorted(file for _, _, file in contents), sorted(self.topics))
        for _, title, file in contents:
            self.assertIn(f"<title>{title}</title>\n", self.topics[file])
            self.assertIn(f"<h1>{title}</h1>\n", self.topics[file])
            self.assertIn((0, title, file), index)

    def test_the_contents_list_a_page_s_topics_below_it_in_the_order_of_its_links(self):
        below = {}
        for depth, _, file in self.entries("contents.hhc"):
            if depth == 0:
                page = file
            else:
                below.setdefault(page, []).append(file)
        self.assertEqual(list(below), ["privacy.htm", "system.htm", "registry.htm", "advanced.htm", "options.htm"])
        for page, files in below.items():
            links = re.findall(r'<li><a href="(.*?)">', self.text(page))
            self.assertEqual([file for file in links if file in files], files, page)

    def test_the_index_has_the_keywords_of_the_topics_and_is_sorted(self):
        index = self.entries("index.hhk")
        names = [name for _, name, _ in index]
        self.assertEqual(names, sorted(names, key=str.lower))
        words = [(0, word, file) for file, source in self.topics.items()
                 for line in re.findall('<meta name="keywords" content="(.*)">', source) for word in line.split("; ")]
        self.assertGreater(len(words), 15)
        self.assertLessEqual(set(words), set(index))
        self.assertEqual(len(index), len(self.topics) + len(words))

    def test_every_link_leads_to_something_in_it(self):
        there = {*self.topics, "help.css"}
        links = [(name, link) for name in (*self.topics, "contents.hhc", "index.hhk")
                 for link in re.findall(r'(?:href|src|name="Local" value)="(.*?)"', self.text(name))]
        self.assertGreater(len(links), 200)
        self.assertEqual([(name, link) for name, link in links if link not in there], [])

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

    def test_equal_sources_give_equal_files_at_any_time(self):
        # The compiler writes the time in seconds: wait for the next second.
        while time.time() < self.built + 1:
            time.sleep(0.05)
        self.assertEqual(build(self.folder / "again.chm"), self.bytes)
        self.assertNotEqual(build(self.folder / "later.chm", "1700000001"), self.bytes)


class Sources(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def add(self, name, title, place):
        (self.folder / f"{name}.htm").write_text(
            f'<title>{title}</title>\n<meta name="place" content="{place}">\n<!-- topics of {name} -->\n', "ascii")

    def test_a_new_topic_is_one_file(self):
        self.add("page", "Page", "10")
        self.add("old", "Old", "page 20")
        before = build_help.make_sources(self.folder)
        self.add("new", "New", "page 15")
        after = build_help.make_sources(self.folder)
        self.assertEqual({name for name in after if after[name] != before.get(name)},
                         {"new.htm", "page.htm", "contents.hhc", "index.hhk", "help.hhp"})
        self.assertIn('<ul>\n<li><a href="new.htm">New</a></li>\n<li><a href="old.htm">Old</a></li>\n</ul>\n',
                      after["page.htm"])

    def test_a_topic_without_a_place_or_a_page_is_refused(self):
        self.add("page", "Page", "10")
        self.add("lost", "Lost", "elsewhere 10")
        with self.assertRaisesRegex(ValueError, "elsewhere.htm"):
            build_help.make_sources(self.folder)
        self.add("lost", "Lost", "")
        with self.assertRaisesRegex(ValueError, "lost.htm has no"):
            build_help.make_sources(self.folder)


if __name__ == "__main__":
    unittest.main(verbosity=2)
