"""Opens pages, ticks functions and runs the one-click job through tavix-console."""
import unittest

from machine_case import Machine, run

RUN_HISTORY = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU"
STARTUP = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"
FUNCTIONS = "One-click Clean/Repair/Functions="


class OwnMachine(Machine):
    """Two temporary files, a log file, a run history entry and a start-up entry of a missing program."""

    def setUp(self):
        super().setUp()
        self.write("machine.ini", "[Environment]\nWinDir=C:\\WINDOWS\n[Drives]\nC=2,System\nD=2\n"
                                  "[Temporary Folders]\nUser=C:\\Temp\nSystem=C:\\WINDOWS\\Temp\n")
        self.write("drives/C/Temp/a.tmp", "a" * 2048)
        self.write("drives/C/Temp/b.tmp", "b" * 1024)
        self.write("drives/C/WINDOWS/setup.log", "log")
        self.write("drives/D/Empty/kept.txt", "kept")
        self.write("app/tips.dll", "[Message & Text]\nONE_CLICK=Really?\n")
        text = "Windows Registry Editor Version 5.00\n"
        for key, data in ((RUN_HISTORY, "calc\\\\1"), (STARTUP, "C:\\\\gone.exe")):
            text += f'\n[{key}]\n"a"="{data}"\n'
        self.write("registry/user.reg", text)

    def there(self, name):
        return (self.folder / "drives" / "C" / name).exists()

    def values(self, key):
        return self.registry()[key.upper()]

    def types(self, *arguments):
        rows, _ = self.scan(*arguments)
        return [row["Type"] for row in rows]


class Pages(OwnMachine):
    def test_privacy_is_the_page_of_the_start(self):
        self.assertEqual(self.types(), self.types("--page", "privacy"))
        self.assertIn("Run History (in Start menu)", self.types())

    def test_each_page_scans_its_own_functions(self):
        system = self.types("--page", "system")
        self.assertEqual(system.count("User Temporary File"), 2)
        self.assertNotIn("Run History (in Start menu)", system)
        rows, _ = self.scan("--page", "registry")
        self.assertTrue(all(row["Location"].startswith("Registry: ") for row in rows))
        self.assertIn("C:\\gone.exe", [row["Name"] for row in rows])

    def test_the_registry_page_speaks_of_issues_and_the_others_of_items(self):
        for page, word in (("privacy", "item"), ("system", "item"), ("registry", "issue")):
            _, labels = self.scan("--page", page)
            self.assertRegex(labels["lblProgS"], word + r"s?\.$")

    def test_clean_repairs_on_the_registry_page(self):
        rows, kept, labels = self.clean("--page", "registry", "--function", "Run at Startup Issues")
        self.assertEqual(len(rows), 1)
        self.assertEqual(kept, [])
        self.assertEqual(self.values(STARTUP), {})
        self.assertEqual(self.values(RUN_HISTORY), {"a": "calc\\1"})

    def test_the_advanced_page_without_a_finding(self):
        rows, labels = self.scan("--page", "advanced", "--scope", "D:\\Empty", "--function", "Invalid Shortcuts")
        self.assertEqual(rows, [])
        self.assertEqual(labels["lblProgS"], "Finished, no item found.")

    def test_a_page_that_is_none(self):
        self.assertIn("'System' is no page", self.refused(2, "--machine", self.folder, "--page", "System"))


class Functions(OwnMachine):
    def test_only_these_are_ticked(self):
        self.assertEqual(self.types("--page", "system", "--function", "Temporary Files"), ["User Temporary File"] * 2)
        self.assertEqual(self.types("--function", "werh"), ["Run History (in Start menu)"])

    def test_two_functions_keep_the_order_of_the_page(self):
        found = self.types("--page", "system", "--function", "Windows Log Files", "--function", "Temporary Files")
        self.assertEqual(found, ["User Temporary File"] * 2 + ["Windows Log File"])
        again = self.types("--function", "weosh", "--function", "werh", "--function", "werh")
        self.assertEqual(again, ["Run History (in Start menu)", "Open/Save History"])

    def test_the_words_of_each_page(self):
        """Captions of another page, keys instead of captions, and rows that are no functions."""
        for page, name, wrong in (("privacy", "Privacy", ["Cookies", "ie", "we", "Temporary Files", ""]),
                                  ("system", "System", ["iec", "Fonts Issues", "temporary files", "Uncheck All", ""]),
                                  ("registry", "Registry", ["Memory Dumps", "Check All"]),
                                  ("advanced", "Advanced", ["Old Prefetch data", "Uncheck All"])):
            for function in wrong:
                line = self.refused(2, "--machine", self.folder, "--page", page, "--function", function, "--clean")
                self.assertEqual(line, f"tavix-console: --function '{function}' is no function of the {name} page")
        self.assertTrue(self.there("Temp/a.tmp"))

    def test_a_caption_follows_a_setting_of_the_same_run(self):
        scope = ("--page", "advanced", "--scope", "D:\\Empty", "--set", "Other Options/Last Accessed File=90")
        self.scan(*scope, "--function", "Last Accessed 90 Days Before")
        self.refused(2, "--machine", self.folder, *scope, "--function", "Last Accessed 365 Days Before")


class Scopes(OwnMachine):
    def test_a_scope_that_is_there(self):
        for key in ("Root", "D:", "D:\\Empty", "d:\\empty"):
            self.scan("--page", "advanced", "--function", "Invalid Shortcuts", "--scope", "D:", "--scope", key)

    def test_a_scope_that_is_not(self):
        for key in ("E:", "D:\\", "D:\\Empty\\", "D:\\Missing", "D:\\Missing\\Below", "D:\\Empty\\kept.txt", "Empty", ""):
            line = self.refused(2, "--machine", self.folder, "--page", "advanced", "--scope", "C:", "--scope", key,
                                "--clean")
            self.assertEqual(line, f"tavix-console: --scope '{key}' is no drive or folder of the Advanced page")
        self.assertTrue(self.there("Temp/a.tmp"))


class OneClick(OwnMachine):
    def one_click(self, *arguments):
        objects = self.objects("--one-click", *arguments)
        scan = [o for o in objects if o["stage"] == "scan"]
        clean = [o for o in objects if o["stage"] == "clean"]
        self.assertEqual(objects, scan + clean)
        return scan, clean

    def test_scans_and_cleans_what_the_setting_names(self):
        scan, clean = self.one_click("--set", FUNCTIONS + "|werh|Temporary Files|")
        self.assertEqual([row["Type"] for row in scan[:-1]],
                         ["Run History (in Start menu)", "User Temporary File", "User Temporary File"])
        self.assertTrue(all(row["Checked"] for row in scan[:-1]))
        self.assertEqual(scan[-1]["lblSum"], "Sum: 3 items, 3. KB found.")
        self.assertEqual(clean[:-1], [])
        self.assertEqual(clean[-1]["lblSum"], "Sum: 3 items, 3. KB cleaned.")
        self.assertFalse(self.there("Temp/a.tmp"))
        self.assertFalse(self.there("Temp/b.tmp"))
        self.assertTrue(self.there("WINDOWS/setup.log"))
        self.assertEqual(self.values(RUN_HISTORY), {})
        self.assertEqual(self.values(STARTUP), {"a": "C:\\gone.exe"})

    def test_asks_once_and_is_answered_with_yes(self):
        self.one_click("--set", FUNCTIONS + "|werh|")
        self.assertEqual(self.journal(), [{"op": "MsgBox", "text": "Really?", "style": 68}])

    def test_the_page_on_screen_does_not_matter(self):
        for page in ("system", "registry", "advanced"):
            scan, clean = self.one_click("--page", page, "--set", FUNCTIONS + "|weosh|")
            self.assertEqual([row["Type"] for row in scan[:-1]], ["Open/Save History"])
            self.assertEqual(scan[-1]["lblSum"], "Sum: 1 item, 0. KB found.")

    def test_the_default_leaves_log_files_alone(self):
        scan, clean = self.one_click()
        self.assertTrue(self.there("WINDOWS/setup.log"))
        self.assertFalse(self.there("Temp/a.tmp"))
        self.assertEqual(self.values(STARTUP), {})

    def test_an_unticked_row_stays(self):
        scan, clean = self.one_click("--set", FUNCTIONS + "|Temporary Files|", "--untick", "1")
        self.assertTrue(scan[0]["Checked"])
        self.assertEqual([(row["Name"], row["Checked"]) for row in clean[:-1]], [("a.tmp", False)])
        self.assertTrue(self.there("Temp/a.tmp"))
        self.assertFalse(self.there("Temp/b.tmp"))

    def test_a_row_that_is_not_there_cleans_nothing(self):
        line = self.refused(2, "--machine", self.folder, "--one-click", "--set", FUNCTIONS + "|Temporary Files|",
                            "--untick", "3")
        self.assertIn("--untick '3' is not there, the scan found 2", line)
        self.assertTrue(self.there("Temp/b.tmp"))

    def test_no_functions_at_all(self):
        for keys in ("", "|"):
            scan, clean = self.one_click("--set", FUNCTIONS + keys)
            self.assertEqual(len(scan), 1)
            self.assertEqual(len(clean), 1)
            self.assertEqual(clean[0]["lblProgS"], "Finished, no item found.")

    def test_clean_beside_it_changes_nothing(self):
        one = self.one_click("--set", FUNCTIONS + "|weosh|", "--clean")
        self.assertEqual(one, self.one_click("--set", FUNCTIONS + "|weosh|"))

    def test_the_table_shows_both_stages(self):
        done = run("--machine", self.folder, "--one-click", "--set", FUNCTIONS + "|Temporary Files|")
        self.assertEqual(done.returncode, 0)
        text = done.stdout.decode()
        self.assertLess(text.index("2 items, 3. KB found."), text.index("2 items, 3. KB cleaned."))

    def test_functions_beside_it_are_refused(self):
        line = self.refused(2, "--machine", self.folder, "--one-click", "--function", "werh")
        self.assertIn("--one-click and --function exclude each other", line)
        self.assertEqual(self.values(RUN_HISTORY), {"a": "calc\\1"})


if __name__ == "__main__":
    unittest.main()
