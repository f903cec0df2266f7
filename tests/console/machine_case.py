"""Base of the tests that run tavix-console, each on a machine folder of its own."""
import configparser
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(TOP / "tests" / "support"), str(TOP / "tools")]
import build_help
import registry_text
CONSOLE = os.environ["TAVIX_CONSOLE"]


def run(*arguments, **more):
    return subprocess.run([CONSOLE, *map(str, arguments)], capture_output=True, timeout=300, **more)


def help_pages():
    """{topic: page} of the help file."""
    made = build_help.make_sources(TOP / "res" / "help")
    return {name.removesuffix(".htm"): page for name, page in made.items() if name.endswith(".htm")}


def singular(name):
    """A name without plural endings. A function and the type of its rows then have the same name."""
    return re.sub(r"s\b", "", re.sub(r"ies\b", "y", name))


class Machine(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, text):
        file = self.folder / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(text if isinstance(text, bytes) else text.encode())

    def objects(self, *arguments):
        done = run("--machine", self.folder, "--json", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stderr, b"")
        return [json.loads(line) for line in done.stdout.splitlines()]

    def scan(self, *arguments):
        objects = self.objects(*arguments)
        return objects[:-1], objects[-1]

    def clean(self, *arguments):
        """Rows of the scan, then rows and labels of the clean after it."""
        objects = self.objects("--clean", *arguments)
        of = lambda stage: [o for o in objects if o["stage"] == stage]
        self.assertEqual(objects, of("scan") + of("clean"))
        return of("scan")[:-1], of("clean")[:-1], of("clean")[-1]

    def refused(self, status, *arguments):
        """The line that says why nothing was run."""
        done = run(*arguments)
        self.assertEqual(done.returncode, status, done)
        self.assertEqual(done.stdout, b"")
        lines = done.stderr.decode("utf-8", "replace").splitlines()
        self.assertEqual(len(lines), 1, lines)
        return lines[0]

    def registry(self):
        return registry_text.read_folder(self.folder / "registry")

    def journal(self):
        """The calls on the shell, except the update check that begins each start."""
        file = self.folder / "journal.jsonl"
        calls = [json.loads(line) for line in file.read_bytes().splitlines()] if file.exists() else []
        return [call for call in calls if call["op"] != "Fetch"]

    def snapshot(self):
        """Everything in the machine folder: content of files, None for folders."""
        return {str(p.relative_to(self.folder)): None if p.is_dir() else p.read_bytes()
                for p in self.folder.rglob("*")}

    def settings(self):
        file = configparser.RawConfigParser(strict=True)
        file.optionxform = str
        file.read(self.folder / "drives" / "C" / "MORVDataPath" / "TVX" / "tvx.dll", encoding="utf-8")
        return {name: dict(section) for name, section in file.items() if name != "DEFAULT"}


class SampleCopy(Machine):
    def setUp(self):
        super().setUp()
        shutil.copytree(TOP / "res" / "sample-machine", self.folder, dirs_exist_ok=True)
