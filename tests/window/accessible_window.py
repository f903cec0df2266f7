"""What screen readers learn: each control that takes the focus has a name, a role, a state and, if it has one, a value,
in every window and language. Wine lacks the service that keeps what the program says beyond
the system's own knowledge, so a stand-in keeps it there. Wine gives most controls the role of a client area; on Windows the
role comes from class and style, which are looked at here. Wine doesn't answer UI Automation.

Run by CTest, or: TAVIX_BUILD=build/windows python3 -m unittest accessible_window"""
import json
import unittest

import driver
from driver import FUNCTIONS, HELP, PAGES, PRIVACY, STATUS, TREE
from options_case import (DUPLICATES, JUNK, JUNK_ADD, LEAST_SIZE, OPTIONS_WINDOW, PAGE_TITLES, TYPE_WINDOW,
                          OptionsCase)

WALK = driver.BUILD / "tavix-accessible-walk.exe"
STAND_IN = driver.BUILD / "tavix-annotations.dll"
SERVICES = "HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{b5f8350b-0548-48b1-a6ee-88bd00b4a5e7}\\InprocServer32"
MAIN_WINDOW, ABOUT_WINDOW = "TavixMainWindow", "TavixAboutWindow"

ROLE_LINK, ROLE_TEXT = 30, 42
FOCUSABLE, FOCUSED = 0x100000, 0x4
# Styles of a button by its kind.
PUSH, CHECK, RADIO, OWNER_DRAWN = (0, 1), (2, 3), (4, 9), (11,)


class Accessible(OptionsCase):
    def before(self):
        if driver.ON_WINDOWS:
            return
        path = self.machine.path_of(STAND_IN).replace("\\", "\\\\")
        self.machine.seed(f'[{SERVICES}]\n@="{path}"\n"ThreadingModel"="Both"\n')

    def walk(self, window):
        output = self.machine.run(WALK, window)
        return {line["control"]: line for line in map(json.loads, output.splitlines())}

    def name(self, control):
        return control["annotated"] or control["name"]


class Walk(Accessible):
    current = "current page"

    def check(self, window):
        found = self.walk(window)
        self.assertTrue(found)
        for control in found.values():
            with self.subTest(window=window, control=control["control"]):
                self.assertTrue(self.name(control) and self.name(control).strip())
                self.assertTrue(control["state"] & FOCUSABLE)
                kind = control["style"] & 0xF
                if control["class"] == "Button":
                    self.assertIn(kind, PUSH + CHECK + RADIO + OWNER_DRAWN)
                    self.assertEqual(control["checked"], self.shown(window, control["control"])["ticked"])
                elif control["class"] == "Edit":
                    self.assertEqual(control["role"], ROLE_TEXT)
                    self.assertEqual(control["value"], self.shown(window, control["control"])["text"])
                elif control["live"]:
                    self.assertEqual(control["control"], STATUS)
                else:
                    self.assertIn(control["class"], ("SysListView32", "SysTreeView32", "ListBox"))
        focused = [number for number, control in found.items() if control["state"] & FOCUSED]
        self.assertEqual(focused, [self.focus(window)])
        return found

    def shown(self, window, number):
        return (self.program.read() if window == MAIN_WINDOW else self.window(window)).control(number)

    def focus(self, window):
        return self.program.read().focus() if window == MAIN_WINDOW else self.window(window).focus()

    def test_the_main_window_on_each_page(self):
        for place, (key, control) in enumerate((("p", TREE), ("s", FUNCTIONS), ("r", driver.REPAIR),
                                                ("a", driver.SCOPE))):
            self.key(key)
            self.program.wait_until("the page", lambda s, c=control: s.control(c)["visible"])
            found = self.check(MAIN_WINDOW)
            current = [page for page in PAGES if self.name(found[page]).endswith(", " + self.current)]
            self.assertEqual(current, [PRIVACY + place])
        self.assertTrue(found[STATUS]["live"])
        for link in (driver.PRODUCT_LINK, driver.MAKER_LINK):
            self.assertEqual(found[link]["role" if driver.ON_WINDOWS else "annotatedRole"], ROLE_LINK)

    def test_each_page_of_the_options(self):
        for page, title in enumerate(PAGE_TITLES):
            self.open(page)
            with self.subTest(page=title):
                found = self.check(OPTIONS_WINDOW)
            if page == DUPLICATES:
                # Not what the system takes for its label, the text before it.
                self.assertEqual(self.name(found[LEAST_SIZE]).strip(), self.name(found[driver.ids(
                    "DuplicateRules+3")[0]]).strip())
            self.key("Escape")
            self.wait_for_close(OPTIONS_WINDOW)

    def test_the_junk_editor_and_the_about_window(self):
        self.open(JUNK)
        self.press(JUNK_ADD)
        self.wait_for_window("the editor", name=TYPE_WINDOW)
        self.check(TYPE_WINDOW)
        self.key("Escape")
        self.wait_for_close(TYPE_WINDOW)
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)
        self.click(self.program.read().control(HELP)["rect"])
        self.program.wait_for_menu()
        self.key("Up", "Return")
        self.wait_for_window("the about window", name=ABOUT_WINDOW)
        self.check(ABOUT_WINDOW)


class GermanWalk(Walk):
    catalogue = "de"
    current = "aktuelle Seite"


if __name__ == "__main__":
    unittest.main(verbosity=2)
