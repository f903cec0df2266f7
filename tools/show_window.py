#!/usr/bin/env python3
"""Takes screenshots of tavix.exe: show_window.py BUILD SCREENSHOTS, in the prefix that WINEPREFIX names. Opens it on
virtual displays, goes through its pages by keys and scans. Prints the paths of the screenshots and what was found.
Takes both sizes of the window at 96 DPI, and the big one at 192 DPI."""
import os
import pathlib
import shutil
import sys
import time

TOP = pathlib.Path(__file__).resolve().parents[1]
PAGES = (("s", "system"), ("r", "registry"), ("a", "advanced"), ("p", "privacy"))
# The very first start always has the small window, so that comes first. The last screen leaves the prefix at 96 DPI.
SCREENS = (("small", "800x600", 96), ("big-192", "2048x1536", 192), ("big", "1024x768", 96))


def tour(driver, program, take):
    """Takes screenshots of each page, a scan, and an icon under the mouse. Returns what was found."""
    for key, page in PAGES:
        program.key(key)
        time.sleep(0.5)
        take(page)
    shown = program.scan()
    take("scanned")
    program.move_onto(shown.control(driver.SYSTEM)["rect"])
    time.sleep(0.3)
    take("lit")
    return shown


def main(build, screenshots):
    os.environ["TAVIX_BUILD"] = build
    sys.path.insert(0, str(TOP / "tests" / "window"))
    import driver

    prefix = pathlib.Path(os.environ["WINEPREFIX"])
    screenshots.mkdir(parents=True, exist_ok=True)
    status = 0
    for name, size, dpi in SCREENS:
        machine = driver.Machine.on(prefix, size)
        program = None
        try:
            machine.set_resolution(dpi)
            # The first start writes all settings by itself.
            if (machine.drive_c / "MORVDataPath" / "TVX" / "tvx.dll").exists():
                machine.set_interface_size("Auto")
            program = driver.Program(machine)
            shown = tour(driver, program, lambda what: shutil.copy(program.screenshot(f"{name}-{what}"), screenshots))
            # Alt+F4 closes the window as a user would.
            program.key("alt+F4")
            status = program.exit_status() or status
        finally:
            if program is not None:
                program.close()
            machine.leave()
    print(f"Privacy page: {shown.row_count} rows")
    for row in shown.rows:
        print("  " + "  |  ".join(text for text in row["texts"][:4] if text))
    print(shown.text(driver.STATUS))
    print(shown.text(driver.SUM))
    print(f"Screenshots are in {screenshots}")
    return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], pathlib.Path(sys.argv[2]).resolve()))
