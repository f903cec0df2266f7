"""Cleans the privacy traces of the registry through tavix-console, and kills it while it does."""
import random
import shutil
import signal
import subprocess
import time
import unittest

from machine_case import CONSOLE, Machine, SampleCopy, registry_text, run

USER = "HKEY_CURRENT_USER\\Software\\Microsoft\\"
EXPLORER = USER + "Windows\\CurrentVersion\\Explorer\\"
TYPED_URLS = USER + "Internet Explorer\\TypedURLs"
# The functions that find rows in the registry only.
TRACES = [option for key in ("iertu", "werh", "wesh", "ieafh", "ieaph", "weosh", "weoem", "weurah")
          for option in ("--function", key)]
# Values of every kind that no function looks for.
OTHERS = """Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer]
"url1"="not a typed one"

[HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\TypedURLs\\Below]
"url1"="stays"

[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU2]
"a"="a key whose name only begins alike"

[HKEY_LOCAL_MACHINE\\Software\\Größe]
@="default"
"number"=dword:0000002a
"bytes"=hex:00,ff,10
"expanded"=hex(2):25,00,41,00,25,00,00,00
"several"=hex(7):61,00,00,00,62,00,00,00,00,00
"quoted \\"name\\" \\\\"="C:\\\\x \\"y\\""

[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer\\TypedURLs]
"url1"="of the machine"
"""


class Cleaning(SampleCopy):
    def setUp(self):
        super().setUp()
        self.write("registry/others.reg", OTHERS)
        self.before = self.registry()

    def clean_traces(self, *arguments):
        return self.clean(*TRACES, *arguments)

    def expected(self, keep=()):
        """The registry after a full clean of the Privacy page that keeps some typed URLs."""
        after = self.before
        for value in ("url1", "url2", "url3", "url4"):
            if value not in keep:
                after = registry_text.without_value(after, TYPED_URLS, value)
        for value in ("a", "b", "c", "MRUList"):
            after = registry_text.without_value(after, EXPLORER + "RunMRU", value)
        for key, value in (("5603", "000"), ("5603", "001"), ("5604", "000")):
            after = registry_text.without_value(after, USER + "Search Assistant\\ACMru\\" + key, value)
        for key in ("ComDlg32\\OpenSaveMRU", "ComDlg32\\LastVisitedMRU", "UserAssist"):
            after = registry_text.without_key(after, EXPLORER + key)
        return after

    def test_what_was_found_goes_and_all_else_stays(self):
        found, rows, labels = self.clean_traces("--now", "2026-03-01T12:00:00")
        self.assertEqual(len(found), 16)
        self.assertEqual(rows, [])
        frame = labels["lblProgMO"]["Width"]
        self.assertEqual(labels, {
            "stage": "clean", "rows": 0, "lblProgS": "Finished.", "lblTime": "0 second.",
            "lblSum": "Sum: 16 items, 0. KB cleaned.", "lblProgMI": {"Width": frame, "Caption": "100%"},
            "lblProgMO": {"Width": frame}, "cbxAll": True})
        self.assertEqual(self.registry(), self.expected())
        self.assertEqual(sorted(p.name for p in (self.folder / "registry").iterdir()),
                         ["HKEY_CURRENT_USER.reg", "HKEY_LOCAL_MACHINE.reg"])

    def test_commands_are_run_from_the_last_row_to_the_first(self):
        self.clean_traces()
        command = "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess "
        self.assertEqual(self.journal(), [{"op": "RunTarget", "target": command + "32", "style": 3},
                                          {"op": "RunTarget", "target": command + "16", "style": 3}])

    def test_an_unticked_row_stays_with_its_item(self):
        found, rows, labels = self.clean_traces("--untick", "1", "--untick", "3", "--tick", "3", "--untick", "5")
        self.assertTrue(all(row["Checked"] for row in found))
        self.assertEqual([(row["row"], row["Name"], row["Checked"]) for row in rows],
                         [(1, "http://www.example.org/", False), (2, "Auto-fill Form History", False)])
        self.assertEqual({**rows[0], "stage": "scan", "Checked": True}, found[0])
        self.assertEqual(labels["rows"], 2)
        self.assertEqual(labels["lblSum"], "Sum: 14 items, 0. KB cleaned.")
        self.assertEqual(self.registry(), self.expected(keep=["url1"]))
        self.assertEqual([call["target"][-2:] for call in self.journal()], ["32"])

    def test_without_a_ticked_row_nothing_is_cleaned(self):
        rows = [option for row in range(1, 17) for option in ("--untick", str(row))]
        _, kept, labels = self.clean_traces(*rows)
        self.assertEqual(len(kept), 16)
        self.assertEqual(labels["lblSum"], "Sum: 0 item, 0. KB cleaned.")
        self.assertEqual(self.registry(), self.before)
        self.assertTrue((self.folder / "registry" / "user.reg").exists())
        self.assertEqual(self.journal(), [])

    def test_one_item_is_one_item(self):
        _, _, labels = self.clean("--function", "weosh")
        self.assertEqual(labels["lblSum"], "Sum: 1 item, 0. KB cleaned.")
        self.assertEqual(self.registry(), registry_text.without_key(self.before, EXPLORER + "ComDlg32\\OpenSaveMRU"))

    def test_a_second_clean_has_only_the_standing_rows(self):
        self.clean_traces()
        after = self.snapshot()
        found, _, labels = self.clean_traces()
        self.assertEqual([row["Tag"][:2] for row in found], ["Cm", "Cm", "RK", "RK", "RK"])
        self.assertEqual(labels["lblSum"], "Sum: 5 items, 0. KB cleaned.")
        again = self.snapshot()
        self.assertEqual(again.pop("journal.jsonl"), after.pop("journal.jsonl") * 2)
        self.assertEqual(again, after)

    def test_the_machine_folder_changes_only_where_it_must(self):
        before = self.snapshot()
        self.clean_traces()
        after = self.snapshot()
        data = "drives/C/MORVDataPath/TVX/"
        buckets = [chr(letter) for letter in range(ord("A"), ord("Z") + 1)] + ["other"]
        made = {"attributes.ini", "journal.jsonl", "registry/HKEY_CURRENT_USER.reg", "registry/HKEY_LOCAL_MACHINE.reg",
                "drives/C/MORVDataPath", "drives/C/TVXBak", data[:-1], data + "tvx.dll", data + "defjunk.dll",
                data + "userjunk.dll", data + "TVX data folder, please do not delete it", data + "DupeFiles",
                *(data + "DupeFiles/" + store + bucket for store in ("scanned", "compared")
                  for bucket in ("", *("/" + name for name in buckets)))}
        self.assertEqual(set(after) - set(before), made - set(before))
        self.assertEqual(set(before) - set(after), {name for name in before if name.endswith(".reg")})
        kept = set(before) & set(after) - {"attributes.ini"}
        self.assertEqual({name: after[name] for name in kept}, {name: before[name] for name in kept})

    def attributes(self):
        lines = (self.folder / "attributes.ini").read_text(encoding="utf-8").splitlines()
        return dict(line.rsplit("=", 1) for line in lines if "=" in line)

    def test_the_data_tree_is_hidden_and_of_the_system(self):
        (self.folder / "attributes.ini").unlink(missing_ok=True)
        self.scan(*TRACES)
        top = self.folder / "drives" / "C"
        tree = [top / "MORVDataPath", *(top / "MORVDataPath").rglob("*"), top / "TVXBak"]
        self.assertEqual(self.attributes(), {"C:\\" + str(p.relative_to(top)).replace("/", "\\"): "6" for p in tree})

    def test_the_table_shows_what_stays(self):
        done = run("--machine", self.folder, *TRACES, "--clean", "--untick", "2")
        self.assertEqual(done.returncode, 0)
        scanned, cleaned = done.stdout.decode().split("Sum: 16 items, 0. KB found.")
        self.assertIn("[x] Recently Typed URL", scanned)
        self.assertIn("[ ] Recently Typed URL", cleaned)
        self.assertIn("Sum: 15 items, 0. KB cleaned.", cleaned)


class Killed(Machine):
    VALUES = 20000

    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Drives]\nC=2\n")
        self.write("drives/C/kept.txt", "kept")
        self.text = ("Windows Registry Editor Version 5.00\n\n[" + TYPED_URLS + "]\n"
                     + "".join(f'"url{i}"="http://example.org/{i}"\n' for i in range(self.VALUES)))
        self.reset()
        self.old = self.registry()
        self.new = {**self.old, TYPED_URLS.upper(): {}}

    def reset(self):
        for name in ("registry", "registry~saving", "registry~old"):
            shutil.rmtree(self.folder / name, ignore_errors=True)
        self.write("registry/user.reg", self.text)

    def start(self):
        return subprocess.Popen([CONSOLE, "--machine", self.folder, "--function", "iertu", "--clean", "--json"],
                                stdout=subprocess.DEVNULL)

    def kill(self, process):
        """Whether the program was still running."""
        process.kill()
        return process.wait() == -signal.SIGKILL

    def check(self):
        """Checks the state after the kill, and after the next run."""
        left = self.registry()
        self.assertIn(left, (self.old, self.new), "half of a registry")
        found, _ = self.scan("--function", "iertu")
        self.assertEqual(len(found), self.VALUES if left == self.old else 0)
        self.assertEqual(self.registry(), left)
        self.assertEqual(sorted(p.name for p in self.folder.iterdir() if p.name.startswith("registry")), ["registry"])

    @staticmethod
    def rounds(killed):
        """At least eight, and more until one was killed before its end: on a busy machine the moments may miss."""
        for number in range(200):
            if number >= 8 and killed():
                return
            yield number

    def test_at_any_moment(self):
        begun = time.monotonic()
        self.assertEqual(self.start().wait(), 0)
        whole = time.monotonic() - begun
        self.assertEqual(self.registry(), self.new)
        moments = random.Random(4711)
        killed = 0
        for _ in self.rounds(lambda: killed):
            self.reset()
            process = self.start()
            time.sleep(moments.uniform(0, whole))
            killed += self.kill(process)
            self.check()
        self.assertGreater(killed, 0)

    def test_while_the_registry_is_written(self):
        moments = random.Random(42)
        killed = 0
        for _ in self.rounds(lambda: killed):
            self.reset()
            process = self.start()
            while process.poll() is None and not (self.folder / "registry~saving").exists():
                time.sleep(0.0005)
            time.sleep(moments.uniform(0, 0.02))
            killed += self.kill(process)
            self.check()
        self.assertGreater(killed, 0)


if __name__ == "__main__":
    unittest.main()
