"""Tests the installer under Wine: install, run, scan, uninstall, and what is left. Tests the update check of an older
build against the files of the release."""
import http.server
import json
import os
import pathlib
import sys
import threading
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "window"))
import driver
from driver import wait_for

DIST = pathlib.Path(os.environ["TAVIX_DIST"]).resolve()
SETUP = DIST / "tavix-setup.exe"
VERSION = (DIST / "latestver.txt").read_text(encoding="ascii")
UNINSTALL = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"
INSTALLED = {"tavix.exe", "uninstall.exe", "Help.chm", "LICENSE.txt", "NOTICES.txt", "tips.dll", "menus.dll", "res", "res/scan.htm", "res/scan.gif",
             "lang",
             *(f"lang/{name}" for name in ("de", "de/tips.dll", "de/menus.dll", "en", "en/tips.dll", "en/menus.dll"))}
CATALOGUES = ("tips.dll", "menus.dll")
BOX = "#32770"  # the class of the installer's windows


def content(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*")}


class Installing(unittest.TestCase):
    def setUp(self):
        self.machine = driver.Machine()
        self.addCleanup(self.machine.close)
        self.programs = self.machine.drive_c / "Program Files"
        self.folder = self.programs / "Tavix"
        self.menu = (self.machine.drive_c / "ProgramData" / "Microsoft" / "Windows" / "Start Menu" / "Programs")
        self.data = self.machine.drive_c / "MORVDataPath" / "TVX"
        self.backup = self.machine.drive_c / "TVXBak"

    def install(self, *arguments):
        self.machine.run(SETUP, "/S", *arguments)

    def uninstall(self, *arguments):
        self.machine.run(self.folder / "uninstall.exe", "/S", *arguments)
        # The uninstaller continues as a copy of itself, which removes the original last.
        wait_for("the uninstaller to go", lambda: not (self.folder / "uninstall.exe").exists())
        wait_for("the entry to go", lambda: self.entry() == {})

    def run_as_typed(self, line, status=0):
        """Runs a command line unchanged, without added quotes around its arguments."""
        (self.machine.drive_c / "line.cmd").write_text(f"@{line}\r\n@exit %errorlevel%\r\n", encoding="ascii")
        self.machine.run("cmd", "/c", "C:\\line.cmd", allowed=(status,))

    def entry(self):
        """The values of the uninstaller's registry entry, with keys and names in capitals."""
        found = {}
        for key, values in self.machine.registry(UNINSTALL).items():
            if key.upper().endswith("\\UNINSTALL\\TAVIX"):
                found = values
        return found

    def run_program(self):
        program = driver.Program(self.machine, self.folder / "tavix.exe")
        self.addCleanup(program.close)
        return program

    def scan_and_close(self):
        program = self.run_program()
        shown = program.scan()
        self.assertGreater(shown.row_count, 0)
        self.assertEqual(shown.text(105), "v" + VERSION)
        program.click(shown.control(driver.CLOSE)["rect"])
        self.assertEqual(program.exit_status(), 0)

    def test_installed_used_and_uninstalled_only_what_is_the_users_stays(self):
        before = content(self.programs), content(self.menu)
        self.install()
        self.assertEqual(content(self.folder), INSTALLED)
        self.assertEqual({p.name for p in (self.menu / "Tavix").iterdir()}, {"Tavix.lnk", "Tavix Help.lnk"})
        self.assertIn(VERSION, str(self.entry()))
        self.scan_and_close()
        (self.backup / "kept.txt").write_text("of the user", encoding="ascii")
        (self.folder / "own.txt").write_text("of the user", encoding="ascii")
        settings = (self.data / "tvx.dll").read_bytes()
        # `_?=` runs the uninstaller in place, so that its end can be waited for. It can't remove itself then.
        self.run_as_typed('"C:\\Program Files\\Tavix\\uninstall.exe" /S _?=C:\\Program Files\\Tavix')
        self.assertEqual(content(self.folder), {"own.txt", "uninstall.exe"})
        (self.folder / "own.txt").unlink()
        (self.folder / "uninstall.exe").unlink()
        self.folder.rmdir()
        self.assertEqual((content(self.programs), content(self.menu)), before)
        self.assertEqual(self.entry(), {})
        self.assertEqual((self.data / "tvx.dll").read_bytes(), settings)
        self.assertEqual(content(self.backup), {"kept.txt"})

    def test_with_the_settings_only_the_backup_stays(self):
        self.install()
        self.scan_and_close()
        (self.backup / "kept.txt").write_text("of the user", encoding="ascii")
        self.uninstall("/RemoveSettings")
        wait_for("the settings to go", lambda: not (self.machine.drive_c / "MORVDataPath").exists())
        self.assertFalse(self.folder.exists())
        self.assertEqual(content(self.backup), {"kept.txt"})

    def test_what_others_put_among_the_settings_stays(self):
        self.install()
        self.scan_and_close()
        strangers = [self.data / "notes.txt", self.data / "DupeFiles" / "scanned" / "Q" / "x.txt",
                     self.data.parent / "other.txt"]
        for stranger in strangers:
            stranger.write_text("of somebody", encoding="ascii")
        self.uninstall("/RemoveSettings")
        wait_for("the settings to go", lambda: not (self.data / "DupeFiles" / "compared").exists())
        self.assertTrue(all(stranger.exists() for stranger in strangers))
        self.assertFalse((self.data / "tvx.dll").exists())

    def test_over_an_older_one_the_files_are_replaced_and_the_settings_stay(self):
        self.install()
        self.scan_and_close()
        settings = (self.data / "tvx.dll").read_bytes()
        (self.folder / "tips.dll").write_text("old", encoding="ascii")
        (self.folder / "tavix.exe").write_bytes(b"old")
        self.install()
        self.assertEqual(content(self.folder), INSTALLED)
        self.scan_and_close()
        self.assertEqual((self.data / "tvx.dll").read_bytes(), settings)

    def test_installed_again_it_mends_what_was_damaged(self):
        self.install()
        whole = {name: (self.folder / name).read_bytes() for name in sorted(INSTALLED) if (self.folder / name).is_file()}
        (self.folder / "tips.dll").unlink()
        (self.folder / "tavix.exe").write_bytes(whole["tavix.exe"][:1000])
        (self.menu / "Tavix" / "Tavix.lnk").unlink()
        self.machine.run("reg", "delete", UNINSTALL + "\\Tavix", "/f")
        self.install()
        # The uninstaller is made on the machine, with the time of its making.
        del whole["uninstall.exe"]
        for name, data in whole.items():
            self.assertEqual((self.folder / name).read_bytes(), data, name)
        self.assertTrue((self.menu / "Tavix" / "Tavix.lnk").exists())
        self.assertIn(VERSION, str(self.entry()))

    def catalogues(self):
        """The language whose catalogues lie beside the program."""
        return [language for language in ("en", "de") if all(
            (self.folder / name).read_bytes() == (driver.SOURCE / "res" / "lang" / language / name).read_bytes()
            for name in CATALOGUES)]

    def shown_words(self):
        """The captions of two buttons of the installed program."""
        program = self.run_program()
        shown = program.read()
        words = shown.text(driver.SCAN), shown.text(driver.CLEAN)
        program.click(shown.control(driver.CLOSE)["rect"])
        self.assertEqual(program.exit_status(), 0)
        return words

    def entries(self):
        return {entry.name for entry in (self.menu / "Tavix").iterdir()}

    def test_a_silent_installation_takes_the_language_that_is_asked_for_and_keeps_it(self):
        before = content(self.programs), content(self.menu)
        self.install("/Language=de")
        self.assertEqual(content(self.folder), INSTALLED)
        self.assertEqual(self.catalogues(), ["de"])
        self.assertEqual(self.shown_words(), ("Suchen", "Bereinigen"))
        self.assertEqual(self.entries(), {"Tavix.lnk", "Tavix Hilfe (englisch).lnk"})
        self.install()
        self.assertEqual(self.catalogues(), ["de"], "an update keeps the language")
        self.install("/Language=en")
        self.assertEqual(self.catalogues(), ["en"])
        self.assertEqual(self.entries(), {"Tavix.lnk", "Tavix Help.lnk"})
        self.assertEqual(self.shown_words(), ("Scan", "Clean"))
        self.install("/Language=de")
        self.uninstall()
        wait_for("the folder to go", lambda: (content(self.programs), content(self.menu)) == before)

    def texts(self, title):
        """The texts of the installer's window whose title begins with `title`, or none."""
        lines = [json.loads(line) for line in self.machine.look(BOX) or ()]
        if not lines or not lines[-1]["title"].startswith(title):
            return []
        return [line["text"] for line in lines if "control" in line and line["visible"]]

    def test_it_asks_for_the_language_and_shows_itself_in_it(self):
        process = self.machine.start(self.machine.path_of(SETUP))
        self.addCleanup(lambda: process.poll() is None and process.kill())
        asked = wait_for("the question", lambda: self.texts("Tavix"))
        self.assertTrue(any("Bitte wählen Sie eine Sprache." in text for text in asked), asked)
        self.screenshot("installer-language")
        # The list has the focus. It holds Deutsch and English.
        self.machine.key("d", "Return")
        wait_for("the licence", lambda: "Lizenzabkommen" in self.texts("Installation von Tavix"))
        self.screenshot("installer-licence")
        self.machine.key("alt+a")
        wait_for("the folder's page", lambda: "Zielverzeichnis auswählen" in self.texts("Installation von Tavix"))
        self.screenshot("installer-german")
        self.assertIn("&Installieren", self.texts("Installation von Tavix"))
        self.machine.key("alt+i")
        wait_for("the end", lambda: "Die Installation ist vollständig" in self.texts("Installation von Tavix"))
        self.machine.key("Return")
        self.assertEqual(process.wait(timeout=driver.PATIENCE), 0)
        self.assertEqual(self.catalogues(), ["de"])
        self.assertEqual(self.shown_words(), ("Suchen", "Bereinigen"))
        # The uninstaller speaks it too.
        process = self.machine.start(self.folder / "uninstall.exe")
        self.addCleanup(lambda: process.poll() is None and process.kill())
        wait_for("the uninstaller", lambda: "Deinstallation von Tavix" in self.texts("Deinstallation von Tavix"))
        self.screenshot("uninstaller-german")

    def screenshot(self, name):
        driver.screenshot(self.machine, name)

    def test_while_the_program_runs_nothing_is_done(self):
        self.install()
        self.run_program()
        (self.folder / "tips.dll").write_text("old", encoding="ascii")
        self.assertIsNone(self.machine.run(SETUP, "/S", allowed=(2,)))
        self.assertEqual((self.folder / "tips.dll").read_text(encoding="ascii"), "old")
        self.run_as_typed('"C:\\Program Files\\Tavix\\uninstall.exe" /S _?=C:\\Program Files\\Tavix', status=2)
        self.assertEqual(content(self.folder), INSTALLED)

    def test_the_data_folders_are_closed_to_others_and_what_a_link_leads_to_stays_as_it_is(self):
        elsewhere = self.machine.drive_c / "elsewhere"
        for folder in (self.data.parent, elsewhere):
            folder.mkdir()
            folder.chmod(0o777)
        self.backup.symlink_to("elsewhere")
        self.install()
        for folder in (self.data.parent, self.data):
            self.assertEqual(folder.stat().st_mode & 0o002, 0, folder)
        self.assertTrue(self.backup.is_symlink())
        self.assertEqual(elsewhere.stat().st_mode & 0o777, 0o777)

    def test_behind_a_link_in_the_place_of_the_data_folders_nothing_is_made_or_closed(self):
        for there in ((), ("TVX",)):
            with self.subTest(there):
                machine = driver.Machine()
                self.addCleanup(machine.close)
                elsewhere = machine.drive_c / "elsewhere"
                for folder in (elsewhere, *(elsewhere / name for name in there)):
                    folder.mkdir()
                    folder.chmod(0o777)
                (machine.drive_c / "MORVDataPath").symlink_to("elsewhere")
                machine.run(SETUP, "/S")
                self.assertTrue((machine.drive_c / "Program Files" / "Tavix" / "tavix.exe").exists())
                self.assertEqual(content(elsewhere), set(there))
                for folder in (elsewhere, *(elsewhere / name for name in there)):
                    self.assertEqual(folder.stat().st_mode & 0o777, 0o777, folder)

    def test_into_another_folder_and_again_into_it(self):
        setup = self.machine.path_of(SETUP)
        self.run_as_typed(f'"{setup}" /S /D=C:\\Tools\\My Tavix')
        other = self.machine.drive_c / "Tools" / "My Tavix"
        self.assertEqual(content(other), INSTALLED)
        (other / "tips.dll").unlink()
        self.install()
        self.assertEqual(content(other), INSTALLED)
        self.assertFalse(self.folder.exists())


class Updating(unittest.TestCase):
    """An older build asks a site that serves the release."""

    def setUp(self):
        import update_program

        class Quiet(http.server.SimpleHTTPRequestHandler):
            def __init__(self, *arguments):
                super().__init__(*arguments, directory=DIST)

            def log_message(self, *_):
                pass

        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Quiet)
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{server.server_port}"
        update_program.UpdateTest.setUpClass()
        self.addCleanup(update_program.UpdateTest.doClassCleanups)
        self.help = update_program.UpdateTest()
        self.help.setUp()
        self.addCleanup(self.help.doCleanups)
        self.help.machine.environment["TAVIX_TEST_SITE"] = self.address

    def test_the_older_build_is_offered_the_release(self):
        process = self.help.start()
        texts = " ".join(self.help.box())
        self.assertIn(f"Tavix {VERSION}\\r\\n", texts)
        self.help.press("Cancel")
        self.help.close_window(process)
        self.assertEqual(self.help.machine.rundll32_calls(), [])
        process = self.help.start()
        self.help.press("OK")
        self.assertEqual(process.wait(timeout=driver.PATIENCE), 0)
        calls = wait_for("the browser", self.help.machine.rundll32_calls)
        self.assertEqual([call.strip('"') for call in calls], [self.address + "/tavix-setup.exe"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
