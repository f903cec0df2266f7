"""The mouse in the main window: icons that light up, drags, ticks, highlights and menus. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest mouse_window"""
import unittest

import driver
from driver import CLOSE, FUNCTIONS, MINI, PAGES, PRIVACY, RESULT, SCOPE, SYSTEM, TREE
from seeded import RealWindow


class MouseCase(RealWindow):
    def open(self, key, control):
        self.program.key(key)
        return self.program.wait_until("the page", lambda s: s.control(control)["visible"])

    def ground(self, shown):
        """A point of the background, left of the icons."""
        return shown.rect[0] + 4, shown.rect[3] - 30


class Icons(MouseCase):
    def setUp(self):
        super().setUp()
        self.shown = self.program.read()
        self.leave()

    def leave(self):
        """Moves to the background and waits for tool tips to go."""
        self.program.move(*self.ground(self.shown))
        driver.wait_for("the tool tip to go", lambda: not self.program.shows("tooltips_class32"))

    def picture(self, control):
        return self.program.pixels(self.shown.control(control)["rect"])

    def test_light_up_under_the_mouse_and_stay_lit_until_it_reaches_the_background(self):
        pictures = {control: self.picture(control) for control in (*PAGES[1:], MINI, CLOSE)}
        for control, at_rest in pictures.items():
            self.program.move_onto(self.shown.control(control)["rect"])
            lit = driver.wait_for(f"control {control} lit", lambda: (p := self.picture(control)) != at_rest and p)
            if control == SYSTEM:
                self.program.screenshot("lit")
            # The menu of the list shows that the mouse has arrived there.
            self.program.click(self.shown.control(RESULT)["rect"], button=3)
            self.program.wait_for_menu()
            self.program.key("Escape")
            self.program.wait_until("the menu to go", lambda s: not s.menu)
            if control in PAGES:
                driver.wait_for(f"control {control} still lit", lambda: self.picture(control) == lit)
            self.leave()
            driver.wait_for(f"control {control} at rest", lambda: self.picture(control) == at_rest)

    def test_the_title_puts_them_to_rest_too(self):
        at_rest = self.picture(SYSTEM)
        self.program.move_onto(self.shown.control(SYSTEM)["rect"])
        driver.wait_for("the lit picture", lambda: self.picture(SYSTEM) != at_rest)
        self.program.move(self.shown.rect[0] + 400, self.shown.rect[1] + 40)
        driver.wait_for("the picture at rest", lambda: self.picture(SYSTEM) == at_rest)

    def test_the_page_in_use_keeps_its_picture(self):
        self.program.settle()  # the first key makes Windows mark the focus
        before = self.picture(PRIVACY)
        self.program.move_onto(self.shown.control(PRIVACY)["rect"])
        self.program.settle()
        # Leave the icon, so that no tool tip covers it. The result list leaves lit pictures lit.
        self.program.move_onto(self.shown.control(RESULT)["rect"])
        driver.wait_for("the same picture", lambda: self.picture(PRIVACY) == before)

    def test_a_click_opens_the_page_and_leaves_its_picture_at_rest(self):
        at_rest = self.picture(SYSTEM)
        self.program.click(self.shown.control(SYSTEM)["rect"])
        self.program.wait_until("the page", lambda s: s.control(FUNCTIONS)["visible"])
        self.leave()
        # Only the edge differs: it has the mark of the current page.
        left, top, right, bottom = self.shown.control(SYSTEM)["rect"]
        inside = (left + 5, top + 5, right - 5, bottom - 5)
        now = self.program.pixels(inside)
        self.assertNotEqual(self.picture(SYSTEM), at_rest)
        self.program.key("p")
        self.program.wait_until("the first page", lambda s: s.control(TREE)["visible"])
        driver.wait_for("the same picture", lambda: self.program.pixels(inside) == now)

    def test_the_right_button_opens_nothing(self):
        self.program.click(self.shown.control(SYSTEM)["rect"], button=3)
        self.assertFalse(self.program.settle().control(FUNCTIONS)["visible"])


class Drags(MouseCase):
    BY = (24, 12)

    def check(self, shown, start):
        before, after = shown.rect, self.program.drag(start, self.BY).rect
        moved = (after[0] - before[0], after[1] - before[1])
        self.assertIn(moved, (self.BY, (self.BY[0] + 1, self.BY[1] + 1)))
        self.assertEqual((after[2] - after[0], after[3] - after[1]), (before[2] - before[0], before[3] - before[1]))

    def inside(self, rectangle):
        left, top, right, bottom = rectangle
        return (left + right) // 2, bottom - 12

    def test_by_the_title(self):
        shown = self.program.read()
        self.check(shown, (shown.rect[0] + 400, shown.rect[1] + 40))

    def test_by_the_background(self):
        shown = self.program.read()
        self.check(shown, self.ground(shown))

    def test_by_the_panel(self):
        shown = self.program.read()
        self.check(shown, (shown.rect[0] + 100, shown.rect[3] - 30))

    def test_by_the_privacy_tree(self):
        shown = self.program.read()
        self.check(shown, self.inside(shown.control(TREE)["rect"]))

    def test_by_a_row_of_the_function_list(self):
        shown = self.open("s", FUNCTIONS)
        left, top, right, bottom = shown.functions[3]["rect"]
        self.check(shown, ((left + right) // 2, (top + bottom) // 2))

    def test_by_the_scope_tree(self):
        shown = self.open("a", SCOPE)
        self.check(shown, self.inside(shown.control(SCOPE)["rect"]))

    def test_not_by_the_result_list(self):
        shown = self.program.read()
        self.program.drag_without_effect(self.inside(shown.control(RESULT)["rect"]), self.BY)
        self.assertEqual(self.program.settle().rect, shown.rect)


class Ticks(MouseCase):
    def box(self, node):
        self.program.click(self.program.read().node(node)["box"])

    def test_a_branch_shows_that_it_is_half_ticked(self):
        self.box("Cookies")
        shown = self.program.wait_until("the half tick", lambda s: s.node("Internet Explorer")["half"])
        self.program.screenshot("half-ticked")
        self.assertFalse(shown.node("Cookies")["checked"])
        self.assertTrue(shown.node("Internet Explorer")["checked"])
        self.assertFalse(shown.node("Windows Explorer")["half"])
        self.box("Cookies")
        shown = self.program.wait_until("the whole tick", lambda s: not s.node("Internet Explorer")["half"])
        self.assertTrue(shown.node("Internet Explorer")["checked"])

    def test_a_branch_without_any_tick_stays_half_ticked_until_it_is_clicked(self):
        names = [n["node"] for n in self.program.read().nodes if n["tree"] == TREE][11:]
        self.assertEqual(len(names), 6)
        for name in names:
            self.box(name)
        shown = self.program.wait_until("all to go", lambda s: not any(s.node(n)["checked"] for n in names))
        self.assertTrue(shown.node("Windows Explorer")["half"])
        self.box("Windows Explorer")
        shown = self.program.wait_until("the branch to go", lambda s: not s.node("Windows Explorer")["checked"])
        self.assertFalse(shown.node("Windows Explorer")["half"])
        self.box("Windows Explorer")
        self.program.wait_until("all to come", lambda s: all(s.node(n)["checked"] for n in names))

    def test_the_master_row_turns_all_rows_and_its_own_words(self):
        shown = self.open("s", FUNCTIONS)
        master = shown.functions[0]["rect"]
        for caption, ticked in (("Check All", False), ("Uncheck All", True)):
            self.program.click(master, x=8)
            shown = self.program.wait_until("the words", lambda s, c=caption: s.functions[0]["texts"] == [c])
            self.assertEqual({function["checked"] for function in shown.functions}, {ticked})

    def test_another_row_turns_itself_alone(self):
        shown = self.open("r", FUNCTIONS)
        self.program.click(shown.functions[3]["rect"], x=8)
        shown = self.program.wait_until("the tick to go", lambda s: not s.functions[3]["checked"])
        self.assertEqual([f["checked"] for f in shown.functions].count(False), 1)
        self.assertEqual(shown.functions[0]["texts"], ["Uncheck All"])

    def test_a_click_on_a_drive_opens_and_closes_it_and_its_box_ticks_what_is_below(self):
        (self.machine.drive_c / "below").mkdir()
        shown = self.open("a", SCOPE)
        drive = next(n["node"] for n in shown.nodes if "C:" in n["node"])
        self.program.click(shown.node(drive)["rect"])
        shown = self.program.wait_until("its folders", lambda s: any(n["node"] == "below" for n in s.nodes))
        self.assertTrue(shown.node(drive)["expanded"])
        self.assertTrue(shown.node("below")["checked"])
        self.box(drive)
        shown = self.program.wait_until("the tick to go", lambda s: not s.node(drive)["checked"])
        self.assertFalse(shown.node("below")["checked"])
        self.program.click(shown.node(drive)["rect"])
        self.program.wait_until("it to close", lambda s: not s.node(drive)["expanded"])


class Rows(MouseCase):
    def setUp(self):
        super().setUp()
        self.shown = self.program.scan()

    def row(self, number, held=()):
        self.program.click(self.shown.rows[number - 1]["rect"], x=60, held=held)

    def wait_for_selected(self, *rows):
        self.program.wait_until(f"rows {rows} to be selected",
                                lambda s: [row["row"] for row in s.rows if row["selected"]] == list(rows))

    def test_ctrl_and_shift_highlight_more(self):
        self.row(2)
        self.wait_for_selected(2)
        self.row(4, held=["ctrl"])
        self.wait_for_selected(2, 4)
        self.row(2, held=["ctrl"])
        self.wait_for_selected(4)
        self.row(3)
        self.row(7, held=["shift"])
        self.wait_for_selected(3, 4, 5, 6, 7)
        self.program.key("ctrl+a")
        self.wait_for_selected(*range(1, self.shown.row_count + 1))
        self.program.screenshot("all-selected")
        self.row(1)
        self.wait_for_selected(1)

    def test_the_right_button_shows_the_menu(self):
        self.program.click(self.shown.rows[1]["rect"], x=60, button=3)
        self.program.wait_for_menu()
        self.program.screenshot("menu")
        self.program.key("i")
        self.program.wait_until("the ticks to turn", lambda s: not any(row["checked"] for row in s.rows))

    def test_the_menu_key_shows_it_too(self):
        self.row(3)
        self.program.key("shift+F10")
        self.program.wait_for_menu()
        self.program.key("i")
        self.program.wait_until("the ticks to turn", lambda s: not any(row["checked"] for row in s.rows))

    def test_escape_closes_the_menu_and_nothing_else(self):
        self.program.click(self.shown.rows[1]["rect"], x=60, button=3)
        self.program.wait_for_menu()
        self.program.key("Escape")
        self.program.wait_until("the menu to go", lambda s: not s.menu)
        after = self.program.settle()
        self.assertEqual(self.rows(after), self.rows(self.shown))
        self.assertTrue(all(row["checked"] for row in after.rows))

    def test_the_menu_shows_on_the_empty_part_of_the_list(self):
        left, top, right, bottom = self.shown.control(RESULT)["rect"]
        self.program.click((left, bottom - 40, right, bottom - 30), button=3)
        self.program.wait_for_menu()
        self.program.key("i")
        self.program.wait_until("the ticks to turn", lambda s: not any(row["checked"] for row in s.rows))


if __name__ == "__main__":
    unittest.main(verbosity=2)
