"""Tests what tavix-console prints: the schema of its lines, the progress on a terminal, and the completions of shells."""
import json
import os
import pty
import re
import subprocess
import sys
import unittest

sys.path.append("/usr/lib/python3/dist-packages")  # Debian's packages, also for another Python
import jsonschema
from machine_case import CONSOLE, TOP, SampleCopy, run

COMPLETIONS = TOP / "packaging" / "completions"
PAGES = ("privacy", "system", "registry", "advanced")


class Schema(SampleCopy):
    def test_every_line_keeps_it(self):
        check = jsonschema.Draft7Validator(json.loads((TOP / "docs" / "console-output.schema.json").read_text()))
        stages = []
        for page in PAGES:
            for line in self.objects("--page", page, "--clean"):
                self.assertEqual([error.message for error in check.iter_errors(line)], [], line)
                stages.append((line["stage"], "row" in line))
        self.assertEqual(set(stages), {(stage, row) for stage in ("scan", "clean") for row in (False, True)})
        self.assertNotEqual(list(check.iter_errors({**line, "other": 1})), [])


class OnATerminal(SampleCopy):
    def test_the_progress_is_one_line_that_is_cleared_at_the_end(self):
        ours, theirs = pty.openpty()
        done = subprocess.run([CONSOLE, "--machine", self.folder, "--page", "system"], stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=theirs, check=True)
        os.close(theirs)
        shown = os.read(ours, 1 << 20).decode()
        os.close(ours)
        lines = shown.split("\r")
        self.assertNotIn("\n", shown)
        self.assertTrue(any("Please click <Scan>" in line or re.match(r" *\d+% ", line) for line in lines), lines)
        self.assertLess(max(map(len, lines)), 80)
        self.assertEqual(lines[-2].strip(), "", "the line is cleared before the table")
        self.assertIn("Temporary Files".encode()[:9], done.stdout)

    def test_without_a_terminal_there_is_no_progress(self):
        self.assertEqual(run("--machine", self.folder, "--page", "system").stderr, b"")


class Completions(unittest.TestCase):
    def setUp(self):
        told = run("--help").stdout.decode().split("Exit status")[0]
        self.options = set(re.findall(r"--[a-z-]+", told))

    def complete(self, *words):
        """What bash offers in place of the last word."""
        script = (f'source "{COMPLETIONS}/tavix-console.bash"; COMP_WORDS=(tavix-console "$@"); COMP_CWORD=$#; '
                  'COMPREPLY=(); _tavix_console; printf "%s\\n" "${COMPREPLY[@]}"')
        done = subprocess.run(["bash", "-c", script, "bash", *words], capture_output=True, text=True, check=True)
        return set(done.stdout.split())

    def test_bash_offers_every_option_and_page(self):
        self.assertEqual(self.complete("--"), self.options)
        self.assertEqual(self.complete("--live", "--pa"), {"--page"})
        self.assertEqual(self.complete("--page", ""), set(PAGES))
        self.assertEqual(self.complete("--set", ""), set())

    def test_the_other_shells_know_the_same_options(self):
        for name in ("_tavix-console", "tavix-console.ps1"):
            text = (COMPLETIONS / name).read_text(encoding="utf-8")
            self.assertEqual(set(re.findall(r"'\*?(--[a-z-]+)", text)), self.options, name)
            for page in PAGES:
                self.assertIn(page, text)


if __name__ == "__main__":
    unittest.main(verbosity=2)
