"""The numbers of the window's controls, read from the headers that define them for the program."""
import pathlib
import re

HEADERS = pathlib.Path(__file__).resolve().parents[2] / "src" / "window" / "win32"
VALUE = re.compile(r"kId(\w+)(?:\s*=\s*(?:kId(\w+)\s*\+\s*)?(\d+))?")


def read(texts):
    """{name without kId: number} of the enumerations in the texts of headers."""
    found = {}
    for text in texts:
        for body in re.findall(r"\benum\s+\w+\s*:\s*int\s*\{(.*?)\}", re.sub(r"//.*", "", text), re.S):
            number = -1
            for entry in filter(None, map(str.strip, body.split(","))):
                value = VALUE.fullmatch(entry)
                if value is None:
                    break  # another kind of enumeration
                name, base, offset = value.groups()
                number = number + 1 if offset is None else int(offset) + (found[base] if base else 0)
                found[name] = number
    return found


ALL = read(file.read_text(encoding="utf-8") for file in sorted(HEADERS.glob("*.h")))


def ids(*names):
    """The numbers of some controls, in the order of their names. `Save+1` is the next after kIdSave."""
    found = []
    for name in names:
        name, _, offset = name.partition("+")
        found.append(ALL[name] + int(offset or 0))
    return found
