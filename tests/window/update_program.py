"""The update check of the real program against a server on this machine. An older build of the program, whose site is
the server, runs under Wine."""
import http.server
import shutil
import threading
import time
import unittest

import driver
from driver import BUILD, STATUS, wait_for

OLDER = BUILD / "tavix-older.exe"


class Site:
    """A web site on this machine. An answer is bytes, or a routine that gets the connection. Other paths give 404."""

    def __init__(self, answers):
        self.answers = answers
        self.requests = []
        site = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                site.requests.append(self.path)
                answer = site.answers.get(self.path)
                if callable(answer):
                    answer(self)
                    return
                self.send_response(404 if answer is None else 200)
                self.send_header("Content-Length", str(len(answer or b"")))
                self.end_headers()
                self.wfile.write(answer or b"")

            def log_message(self, *_):
                pass

        self.ending = threading.Event()
        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        self._server.block_on_close = False
        self.address = f"http://127.0.0.1:{self._server.server_port}"
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    def close(self):
        self.ending.set()
        self._server.shutdown()
        self._server.server_close()


@driver.needs_wine("works on the files of a prefix and on settings of Wine")
class UpdateTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.machine = driver.Machine()
        cls.addClassCleanup(cls.machine.close)
        cls.box_reader = driver.compiled("box_reader.c", "box_reader.exe")
        # The stand-in for the browser only notes its call.
        shutil.copy(driver.stand_in(), cls.machine.drive_c / "browser.exe")
        cls.machine.seed('[HKEY_CLASSES_ROOT\\http\\shell\\open\\command]\n@="C:\\\\browser.exe \\"%1\\""\n'
                         '[-HKEY_CLASSES_ROOT\\http\\shell\\open\\ddeexec]\n')
        shutil.copy(driver.stand_in(), cls.machine.drive_c / "windows" / "hh.exe")
        cls.machine.run("reg", "add", "HKCU\\Software\\Wine\\DllOverrides", "/v", "hh.exe", "/d", "native", "/f")

    def setUp(self):
        (self.machine.drive_c / "rundll32-calls.txt").unlink(missing_ok=True)

    def serve(self, **answers):
        site = Site({f"/{name}.txt": answer for name, answer in answers.items()})
        self.addCleanup(site.close)
        self.machine.environment["TAVIX_TEST_SITE"] = site.address
        self.site = site
        return site

    def start(self, program=OLDER):
        process = self.machine.start(program)
        self.addCleanup(self.end, process)
        return process

    def end(self, process):
        if process.poll() is None:
            process.kill()
            process.wait()

    def box(self):
        """{text: rectangle} of the message box. Its title comes first."""
        return wait_for("a message box", self.try_box)

    def try_box(self, window_class="#32770"):
        output = self.machine.run(self.box_reader, window_class, allowed=(0, 1))
        if output is None:
            return None
        lines = [line.split("|", 1) for line in output.splitlines()]
        return {text: [int(n) for n in place.split()] for place, text in lines}

    def press(self, button):
        """Clicks a button of the message box."""
        place = self.box()[button]
        self.assertTrue(0 <= place[0] and 0 <= place[1] and place[2] <= 1024 and place[3] <= 768, place)
        self.click(place)

    def try_window(self):
        shown = self.machine.look()
        shown = shown and driver.Shown.of(shown)
        scan = shown and shown.controls.get(driver.SCAN)
        return shown if scan and scan["visible"] else None

    def window(self):
        return wait_for("the window", self.try_window)

    def wait_for_menu(self):
        wait_for("the menu", lambda: self.window().menu)

    def key(self, *names):
        self.machine.key(*names)

    def click(self, rectangle):
        left, top, right, bottom = rectangle
        self.machine.hands.move((left + right) // 2, (top + bottom) // 2)
        self.machine.hands.click()

    def screenshot(self, name):
        driver.screenshot(self.machine, name)

    def close_window(self, process):
        self.click(self.window().control(driver.CLOSE)["rect"])
        self.assertEqual(process.wait(timeout=driver.PATIENCE), 0)

    def wait_for_the_window_alone(self, process):
        """Waits for the window. No box may show before it."""

        def look():
            self.assertIsNone(self.try_box())
            return self.try_window()

        self.assertIsNone(process.poll())
        return wait_for("the window", look)


class AtStart(UpdateTest):
    def test_ok_opens_the_download_and_ends_the_program(self):
        site = self.serve(latestver=b"2.19.630", update="* quicker\r\n* caf\u00e9".encode())
        process = self.start()
        texts = self.box()
        self.screenshot("update")
        self.assertEqual(next(iter(texts)), "Tavix")
        self.assertIn(driver.messages()["UPGRADE"] + "\\r\\n\\r\\n* quicker\\r\\n* caf\u00e9", texts)
        self.assertIsNone(self.try_window())
        self.press("OK")
        self.assertEqual(process.wait(timeout=driver.PATIENCE), 0)
        self.assertEqual(site.requests, ["/latestver.txt", "/update.txt"])
        calls = wait_for("the browser", self.machine.rundll32_calls)
        self.assertEqual([call.strip('"') for call in calls], [site.address + "/tavix-setup.exe"])

    def test_cancel_goes_on_and_the_next_start_asks_again(self):
        site = self.serve(latestver=b"2.19.630", update=b"notes")
        for _ in range(2):
            process = self.start()
            self.box()
            self.press("Cancel")
            self.assertTrue(self.window().text(STATUS).startswith("Please click <Scan>"))
            self.close_window(process)
        self.assertEqual(site.requests, ["/latestver.txt", "/update.txt"] * 2)
        self.assertEqual(self.machine.rundll32_calls(), [])

    def test_the_same_version_is_silent(self):
        site = self.serve(latestver=b"2.18.601")
        process = self.start()
        self.wait_for_the_window_alone(process)
        self.assertEqual(site.requests, ["/latestver.txt"])

    def test_a_site_that_refuses_is_silent(self):
        self.serve().close()
        process = self.start()
        self.wait_for_the_window_alone(process)

    def test_a_site_that_says_nothing_is_given_up_after_six_seconds_at_least(self):
        site = self.serve(latestver=lambda handler: site.ending.wait())
        begin = time.monotonic()
        process = self.start()
        # The site never answers: only the end of the six seconds lets the window come. How long that takes beyond
        # them depends on the machine; the deadline itself is held by the tests of the network (NetworkOfWindows).
        self.wait_for_the_window_alone(process)
        took = time.monotonic() - begin
        self.assertGreater(took, 5.9)
        self.assertEqual(site.requests, ["/latestver.txt"])

    def test_a_site_that_sends_a_byte_now_and_then_is_given_up_after_six_seconds_at_least(self):
        def drip(handler):
            handler.send_response(200)
            handler.end_headers()
            try:
                while not site.ending.wait(0.3):
                    handler.wfile.write(b"9")
            except OSError:
                pass

        site = self.serve(latestver=drip)
        begin = time.monotonic()
        process = self.start()
        # The site sends until the test ends.
        self.wait_for_the_window_alone(process)
        took = time.monotonic() - begin
        self.assertGreater(took, 5.9)
        self.assertEqual(site.requests, ["/latestver.txt"])

    def test_a_login_page_of_the_network_is_silent(self):
        self.serve(latestver=b"<html><title>Welcome</title></html>", update=b"notes")
        process = self.start()
        self.wait_for_the_window_alone(process)
        self.assertEqual(self.site.requests, ["/latestver.txt"])

    def test_a_site_that_leads_to_another_host_is_silent(self):
        other = Site({"/latestver.txt": b"9.0.1"})
        self.addCleanup(other.close)

        def lead(handler):
            handler.send_response(302)
            handler.send_header("Location", other.address.replace("127.0.0.1", "localhost") + "/latestver.txt")
            handler.send_header("Content-Length", "0")
            handler.end_headers()

        self.serve(latestver=lead)
        process = self.start()
        self.wait_for_the_window_alone(process)
        self.assertEqual(other.requests, [])

    def test_a_site_that_never_ends_is_silent(self):
        def pour(handler):
            handler.send_response(200)
            handler.end_headers()
            try:
                while not site.ending.is_set():
                    handler.wfile.write(b"9" * 65536)
            except OSError:
                pass

        site = self.serve(latestver=pour)
        process = self.start()
        self.wait_for_the_window_alone(process)

    def test_notes_of_a_megabyte_leave_the_box_usable(self):
        self.serve(latestver=b"9.0.1", update=b"line of the notes\r\n" * 50000)
        process = self.start()
        self.box()
        self.screenshot("update-huge")
        self.press("Cancel")
        self.window()
        self.close_window(process)


class ByHand(UpdateTest):
    def test_the_menu_asks_and_says_that_there_is_none(self):
        site = self.serve(latestver=b"2.18.601")
        process = self.start()
        shown = self.wait_for_the_window_alone(process)
        self.click(shown.control(driver.HELP)["rect"])
        self.wait_for_menu()
        self.screenshot("help-menu")
        self.key("u")
        self.assertIn(driver.messages()["NO_NEWVER"], self.box())
        self.assertEqual(site.requests, ["/latestver.txt"] * 2)
        self.press("OK")
        self.close_window(process)

    def test_the_about_window_shows_the_version_and_closes_by_escape(self):
        self.serve(latestver=b"2.18.601")
        process = self.start()
        shown = self.wait_for_the_window_alone(process)
        self.click(shown.control(driver.HELP)["rect"])
        self.wait_for_menu()
        self.key("a")
        about = wait_for("the about window", lambda: self.try_box("TavixAboutWindow"))
        self.screenshot("about")
        self.assertEqual(list(about)[0], "About Tavix")
        self.assertEqual(list(about)[1:],
                         ["Tavix v2.18.601", "Copyright \u00a9 2026 the makers of Tavix", "Contact &Support", "&Web Site",
                          "&Close"])
        self.click(about["&Web Site"])
        self.assertEqual(wait_for("the browser", self.machine.rundll32_calls), [f'"{self.site.address}"'])
        self.key("Escape")
        wait_for("the about window to go", lambda: self.try_box("TavixAboutWindow") is None)
        # The main window takes keys again.
        self.key("F3")
        wait_for("the scan", lambda: self.window().text(STATUS).startswith("Finished"))
        self.close_window(process)

    def test_f1_opens_the_help_file(self):
        self.serve(latestver=b"2.18.601")
        process = self.start()
        self.wait_for_the_window_alone(process)
        self.key("F1")
        calls = wait_for("the viewer", self.machine.rundll32_calls)
        self.assertEqual(len(calls), 1)
        self.assertTrue(calls[0].endswith("\\Help.chm"), calls)
        self.close_window(process)


if __name__ == "__main__":
    unittest.main(verbosity=2)
