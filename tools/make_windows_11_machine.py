#!/usr/bin/env python3
"""Makes the Windows 11 machine to run on: make_windows_11_machine.py TARGET

The tables in res/windows-11-machine/ list what is on it. Files are sparse: they read as zeros and take no space. Times
count back from NOW, which the console must get as --now."""
import datetime
import os
import pathlib
import re
import shutil
import sys
import tomllib

from make_shortcut import shortcut, shortcut_without_a_path

TABLES = pathlib.Path(__file__).resolve().parent.parent / "res" / "windows-11-machine"
NOW = "2026-03-01T12:00:00"
# Days since the last use of a file, if its artefact doesn't give them.
USED = 1


def artefacts():
    return [artefact for table in sorted(TABLES.glob("*.toml"))
            for artefact in tomllib.loads(table.read_text(encoding="utf-8"))["artefact"]]


def path_of(artefact, name):
    """The path of a name in an artefact. Without a folder the names are paths."""
    folder = artefact.get("folder")
    return name if folder is None else folder.rstrip("\\") + "\\" + name


class Maker:
    def __init__(self, target):
        self.target = pathlib.Path(target)
        self.attributes, self.links, self.registry = {}, [], []

    def host(self, path):
        drive, rest = path.split(":\\", 1)
        return self.target.joinpath("drives", drive, *rest.split("\\"))

    def make(self):
        self.target.mkdir(parents=True, exist_ok=True)
        shutil.copy(TABLES / "machine.ini", self.target)
        for artefact in artefacts():
            self.put(artefact)
        # Links come last, so that no file is made through a link.
        for link, target in self.links:
            self.put_link(link, target)
        self.write("registry/machine.reg", "Windows Registry Editor Version 5.00\n" + "".join(self.registry))
        self.write("attributes.ini", "".join(f"{path}={value}\n" for path, value in sorted(self.attributes.items())))

    def write(self, name, text):
        file = self.target / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def put(self, artefact):
        for name in artefact.get("folders", []):
            self.host(path_of(artefact, name)).mkdir(parents=True, exist_ok=True)
        for name, size in artefact.get("files", {}).items():
            self.put_file(artefact, name, size)
        for name, target in artefact.get("shortcuts", {}).items():
            content = shortcut_without_a_path() if target == "shell" else shortcut(target)
            self.put_file(artefact, name, len(content)).write_bytes(content)
        for name, target in artefact.get("links", {}).items():
            self.links.append((path_of(artefact, name), target))
        self.registry.append(re.sub(r'expand:"(.*)"$', expandable, artefact.get("registry", ""), flags=re.M))

    def put_file(self, artefact, name, size):
        path = path_of(artefact, name)
        file = self.host(path)
        file.parent.mkdir(parents=True, exist_ok=True)
        with open(file, "xb") as made:
            made.truncate(size)
        now = datetime.datetime.fromisoformat(NOW).replace(tzinfo=datetime.UTC).timestamp()
        used = now - artefact.get("used", USED) * 24 * 3600
        os.utime(file, (used, used))
        if "attributes" in artefact:
            self.attributes[path] = artefact["attributes"]
        return file

    def put_link(self, link, target):
        """Makes a link of the machine. Without a target it leads nowhere."""
        place = self.host(link)
        place.parent.mkdir(parents=True, exist_ok=True)
        place.symlink_to(os.path.relpath(self.host(target), place.parent) if target else "nowhere")


def expandable(text):
    """A REG_EXPAND_SZ value as the registry editor exports it."""
    content = re.sub(r"\\(.)", r"\1", text[1]).encode("utf-16-le") + b"\0\0"
    return "hex(2):" + content.hex(",")


if __name__ == "__main__":
    Maker(sys.argv[1]).make()
