#!/usr/bin/env python3
"""Builds the help file: build_help.py SOURCES Help.chm

Contents, index and project file are made from the topics. The head of a topic gives its place:

    <title>Fonts Issues</title>                        its name in the contents and in the index
    <meta name="place" content="registry 50">          its chapter, and its number in it: the order counts, not the gaps
    <meta name="keywords" content="Fonts; Typefaces">  more entries of the index, if there are any

A topic without a chapter is at the top of the contents. A chapter is named after the file of its page. Where the
page says `<!-- topics of registry -->`, a list of links to the chapter's topics takes that line's place. A chapter with
two lists has two groups, as privacy.ie and privacy.we.

The compiler writes the time into the file in two places. SOURCE_DATE_EPOCH replaces it in both, so that equal sources
give equal files."""
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile

FIRST = "welcome.htm"
PROJECT = """\
[OPTIONS]
Compatibility=1.1 or later
Compiled file=Help.chm
Contents file=contents.hhc
Index file=index.hhk
Default topic={first}
Default Window=main
Language=0x409 English (United States)
Title=TVX Help
Full-text search=Yes
Binary Index=No
Binary TOC=No

[WINDOWS]
main="TVX Help","contents.hhc","index.hhk","{first}","{first}",,,,,0x62520,,0x387e,,,,,,,,0

[FILES]
{files}"""
LIST = re.compile(r"<!-- topics of (\S+) -->\n")


class Topic:
    def __init__(self, file):
        self.file, self.text = file.name, file.read_text(encoding="ascii")
        self.title = self._head(r"<title>(.*)</title>")
        place = self._head(r'<meta name="place" content="((?:\S+ )?\d+)">').split()
        self.group, self.number = "".join(place[:-1]), int(place[-1])
        words = re.search(r'<meta name="keywords" content="(.*)">', self.text)
        self.index_words = [self.title, *(words[1].split("; ") if words else [])]

    def _head(self, pattern):
        found = re.search(pattern, self.text)
        if not found:
            raise ValueError(f"{self.file} has no {pattern}")
        return found[1]

    def chapter(self):
        """The file of its chapter's page; empty at the top."""
        return self.group and self.group.split(".")[0] + ".htm"

    def entry(self, name):
        return (f'<li><object type="text/sitemap"><param name="Name" value="{name}">'
                f'<param name="Local" value="{self.file}"></object>\n')


def site_map(body):
    return f'<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<html>\n<body>\n{body}</body>\n</html>\n'


def contents(chapters):
    body = '<object type="text/site properties"><param name="ImageType" value="Folder"></object>\n<ul>\n'
    for page in chapters[""]:
        body += page.entry(page.title)
        if page.file in chapters:
            body += "<ul>\n" + "".join("  " + topic.entry(topic.title) for topic in chapters[page.file]) + "</ul>\n"
    return site_map(body + "</ul>\n")


def index(topics):
    entries = sorted(((word, topic) for topic in topics for word in topic.index_words), key=lambda e: e[0].lower())
    return site_map("<ul>\n" + "".join(topic.entry(word) for word, topic in entries) + "</ul>\n")


def with_lists(page, topics):
    """The page with the links to its topics. They don't repeat the page's title."""

    def links(match):
        items = "".join(f'<li><a href="{topic.file}">{topic.title.removeprefix(page.title + ": ")}</a></li>\n'
                        for topic in topics if topic.group == match[1])
        return f"<ul>\n{items}</ul>\n"

    return LIST.sub(links, page.text)


def make_sources(folder):
    """{file name: text} of the compiler's input except the styles: topics, contents, index and project file."""
    topics = sorted(map(Topic, folder.glob("*.htm")), key=lambda topic: (topic.group, topic.number))
    chapters = {}
    for topic in topics:
        chapters.setdefault(topic.chapter(), []).append(topic)
    in_order = [topic for page in chapters[""] for topic in (page, *chapters.get(page.file, []))]
    if len(in_order) != len(topics):
        raise ValueError(f"pages of chapters are missing: {', '.join(chapters.keys() - {t.file for t in chapters['']} - {''})}")
    sources = {topic.file: with_lists(topic, topics) for topic in topics}
    sources["contents.hhc"] = contents(chapters)
    sources["index.hhk"] = index(topics)
    sources["help.hhp"] = PROJECT.format(
        first=FIRST, files="".join(name + "\n" for name in ("help.css", *(topic.file for topic in in_order))))
    return sources


def read_number(data, at):
    """A number in groups of seven bits, the highest first."""
    value = 0
    while True:
        value = value << 7 | data[at] & 0x7F
        at += 1
        if not data[at - 1] & 0x80:
            return value, at


def find(data, name):
    """Offset and length of an uncompressed file in the help file."""
    at = data.index(bytes([len(name)]) + name.encode()) + 1 + len(name)
    section, at = read_number(data, at)
    offset, at = read_number(data, at)
    length, _ = read_number(data, at)
    if section != 0:
        raise ValueError(f"{name} is compressed")
    content, = struct.unpack_from("<Q", data, 0x58)
    return content + offset, length


def set_time(data, time):
    if data[:4] != b"ITSF":
        raise ValueError("no help file")
    struct.pack_into(">I", data, 16, time)
    begin, length = find(data, "/#SYSTEM")
    at = begin + 4
    while at < begin + length:
        code, size = struct.unpack_from("<HH", data, at)
        if code == 10:
            struct.pack_into("<I", data, at + 4, time)
            return
        at += 4 + size
    raise ValueError("no time in it")


def main(sources, target):
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder) / "help"
        work.mkdir()
        shutil.copy(sources / "help.css", work)
        for name, text in make_sources(sources).items():
            (work / name).write_text(text, encoding="ascii")
        built = subprocess.run(["chmcmd", "help.hhp"], cwd=work, capture_output=True, text=True, check=False)
        if built.returncode != 0 or "Error" in built.stdout or not (work / "Help.chm").exists():
            sys.exit(built.stdout + built.stderr)
        data = bytearray((work / "Help.chm").read_bytes())
    set_time(data, int(os.environ.get("SOURCE_DATE_EPOCH", "0")))
    pathlib.Path(target).write_bytes(data)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), sys.argv[2])
