"""Writes junk_names.h: file names, and which built-in junk patterns fit them, worked out by Python's regular
expressions. Usage: python3 make_junk_names.py > junk_names.h"""

import random
import re
import sys

PATTERNS = """*.old *.bak *.prv *.syd *.sik *.cdr_ *.diz *.err *errorlog.txt *.xlk file0*.chk chklist.m*
file????._dd *.ftg *.fts *.%%% *.@@@ *.$$$ mscreate.dir imagedb.aid *.ilk *.aps *.ncb *.log *log.txt log*.txt
*.log? *.#res *.mch *.dmp 0???????.nch thumbs.db *.pch *exe-*.pf *.fnd *.~* ~*.* *.--- *.^* *.??~ *.??$ *.tmp
*._mp *.$* *.temp *.___ *.~mp *.$db *.?$? *.?~? *.db$ *.^ *.detmp *.gid *.wbk *.spc""".split()
LEFT_OUT = "*.pch"  # ends the first list and is in none
FIRST_LIST = PATTERNS.index(LEFT_OUT)
LISTS = PATTERNS[:FIRST_LIST], PATTERNS[FIRST_LIST + 1:]

# In a file list, a question mark matches one character except a dot, or nothing before a dot or at the end. In the
# stricter rule, a question mark is always one character and "#" is a digit. No pattern is "*.*".
LISTED = {"*": ".*", "?": r"(?:[^.]|(?=\.|\Z))"}
CONFIRMED = {"*": ".*", "?": ".", "#": "[0-9]"}


def expression(pattern, wildcards):
    return re.compile("".join(wildcards.get(c, re.escape(c)) for c in pattern), re.DOTALL)


LISTED_BY = [expression(p, LISTED) for p in PATTERNS]
CONFIRMED_BY = [expression(p, CONFIRMED) for p in PATTERNS]


def fitting(expressions, name):
    return sum(1 << i for i, e in enumerate(expressions) if e.fullmatch(name.lower()))


def rows(name):
    """The number of rows of a scan: one for each list that has the name, if a type confirms it."""
    listed = sum(any(expression(p, LISTED).fullmatch(name.lower()) for p in some) for some in LISTS)
    return listed if fitting(CONFIRMED_BY, name) else 0


def examples(pattern, draw):
    """Names that match a pattern or nearly do."""
    runs = ["", "a", "A~b", "x.y", "log", "exe-", "0", "report 1", "errorlog", "file0001", ".."]
    ones = "ax.~$0^_-"
    name = "".join(draw.choice(runs) if c == "*" else draw.choice(ones) if c == "?" else c for c in pattern)
    yield name
    yield name.upper()
    at = draw.randrange(len(name)) if name else 0
    yield name[:at] + draw.choice(ones) + name[at + 1:]
    yield name[:at] + name[at + 1:]
    yield name + draw.choice(ones)


def possible(name):
    return bool(name) and not set(name) & set('\\/:*?"<>|') and name[-1] not in ". " and name[0] != " "


def names():
    draw = random.Random(56)
    found = ["x.log", "x.log1", "x.log12", "log.txt", "catalog.txt", "ERRORLOG.TXT", "a.#res", "a.5res",
             "x.pch", "x.log.pch", "file12._dd", "file1234._dd", "file12345._dd", "chklist.ms", "chklist.m",
             "0.nch", "01234567.nch", "012345678.nch", "thumbs.db", "xthumbs.db", "x.~", "~x", "~x.", "~.x",
             "x.12~", "x.1~", "x.~1~", "x.$db", "x.db$", "x.tmp.old", "readme", "photo.jpg", ".tmp", "tmp",
             "notepad.exe-1.pf", "x.a$b", "x.$", "x.a$", "x.^", "x.^a", "FILE0000.CHK", "file1.chk"]
    for pattern in PATTERNS:
        for _ in range(2):
            found += examples(pattern, draw)
    unique = {}
    for name in found:
        if possible(name):
            unique.setdefault(name.upper(), name)
    return sorted(unique.values(), key=lambda name: name.upper())


def main():
    assert len(PATTERNS) == 56
    print("// Made by make_junk_names.py.\n#pragma once\n\n#include <cstdint>\n\n#include \"text/text.h\"\n")
    print("namespace tavix::mdlPubSelf {\n")
    print("// A file name and the built-in junk patterns that match it: bit n is line n of the table.")
    print("struct JunkName {\n  TextView name;\n  uint64_t listed;     // by the rule of file lists")
    print("  uint64_t confirmed;  // by the stricter rule")
    print("  int rows;            // of a scan with the built-in table\n};\n")
    print("// clang-format off\nconstexpr JunkName kJunkNames[] = {")
    for name in names():
        listed, confirmed = fitting(LISTED_BY, name), fitting(CONFIRMED_BY, name)
        print(f'    {{u"{name}", {listed:#x}, {confirmed:#x}, {rows(name)}}},')
    print("};\n// clang-format on\n\n}  // namespace tavix::mdlPubSelf")


if __name__ == "__main__":
    sys.exit(main())
