"""Runs the tests that hold the real window within their own program."""
import unittest

import driver


class WindowProgram(unittest.TestCase):
    def test_all(self):
        machine = driver.Machine()
        self.addCleanup(machine.close)
        # Without a window manager the closing of a managed window is waited for in vain.
        machine.run("reg", "add", r"HKCU\Software\Wine\X11 Driver", "/v", "Managed", "/d", "N", "/f")
        print(machine.run(driver.BUILD / "tavix-window-tests.exe", "--gtest_brief=1"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
