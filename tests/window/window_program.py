"""Runs the C++ tests that open the real window in their own process."""
import unittest

import driver


class WindowProgram(unittest.TestCase):
    def test_all(self):
        machine = driver.Machine()
        self.addCleanup(machine.close)
        if not driver.ON_WINDOWS:
            # Without a window manager, Wine would wait forever for a managed window to close.
            machine.run("reg", "add", r"HKCU\Software\Wine\X11 Driver", "/v", "Managed", "/d", "N", "/f")
        print(machine.run(driver.BUILD / "tavix-window-tests.exe", "--gtest_brief=1"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
