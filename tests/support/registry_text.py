"""Reads exports of the registry editor. Shares no code with the program's own reader."""
import re

NAMED = re.compile(r'^(@|"(?:[^"\\]|\\.)*")=(.*)$', re.S)


def plain(quoted):
    return "" if quoted == "@" else re.sub(r"\\(.)", r"\1", quoted[1:-1])


def read(raw):
    """{key: {value name: data as written}} of one file. Keys are in capitals. Their parent keys are included."""
    wide = raw[:2] in (b"\xff\xfe", b"\xfe\xff")
    text = (raw.decode("utf-16") if wide else raw.decode("utf-8-sig")).replace("\r\n", "\n")
    keys, values = {}, None
    for line in text.replace("\\\n", "").split("\n")[1:]:
        if line.startswith("["):
            path = line.strip()[1:-1].upper().split("\\")
            for depth in range(1, len(path) + 1):
                values = keys.setdefault("\\".join(path[:depth]), {})
        elif line and not line.startswith(";"):
            name, data = NAMED.match(line).groups()
            values[plain(name)] = plain(data) if data.startswith('"') else re.sub(r"\s", "", data.lower())
    return keys


def read_folder(folder):
    """The whole registry of a machine folder."""
    keys = {}
    for file in sorted(folder.glob("*.reg")):
        for key, values in read(file.read_bytes()).items():
            keys.setdefault(key, {}).update(values)
    return keys


def without_key(keys, key):
    """What is left after a key and everything below it is deleted."""
    key = key.upper()
    return {name: values for name, values in keys.items() if name != key and not name.startswith(key + "\\")}


def without_value(keys, key, value):
    key = key.upper()
    assert value in keys[key]
    return {**keys, key: {name: data for name, data in keys[key].items() if name != value}}
