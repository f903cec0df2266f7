#!/usr/bin/env python3
"""Opens tavix.exe on a display without a screen, scans by keys, and prints where the screenshots are and what
was found: show_window.py BUILD SCREENSHOTS, in the prefix that WINEPREFIX names."""
import os
import pathlib
import shutil
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parents[1]


def main(build, screenshots):
    os.environ["TAVIX_BUILD"] = build
    sys.path.insert(0, str(TOP / "tests" / "window"))
    import driver

    machine = driver.Machine.__new__(driver.Machine)
    machine.display = driver.Display()
    machine.prefix = pathlib.Path(os.environ["WINEPREFIX"])
    machine.environment = driver.environment(machine.prefix, machine.display.name)
    program = None
    try:
        program = driver.Program(machine)
        shown = program.scan()
        picture = program.screenshot("privacy")
        screenshots.mkdir(parents=True, exist_ok=True)
        shutil.copy(picture, screenshots / "privacy.png")
        print(f"Privacy page: {shown.row_count} rows")
        for row in shown.rows:
            print("  " + "  |  ".join(text for text in row["texts"][:4] if text))
        print(shown.text(driver.STATUS))
        print(shown.text(driver.SUM))
        print(f"Screenshots are in {screenshots}")
        # Alt+F4 closes the window as a user would.
        program.key("alt+F4")
        return program.exit_status()
    finally:
        if program is not None:
            program.close()
        subprocess.run(["wineserver", "-k"], env=machine.environment, check=False)
        machine.display.close()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], pathlib.Path(sys.argv[2]).resolve()))
