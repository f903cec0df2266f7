"""The lists of the real window: the mark of the sorted column, letters, and ticks of highlighted rows. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest lists_window"""
import unittest

import driver
from driver import FUNCTIONS, RESULT
from options_case import COMMON, DUPLICATES, EXCEPT_LIST, JUNK, JUNK_LIST, ONLY_COMMON, OTHERS, OptionsCase
from seeded import RealWindow, SeededMachine

NONE, UP, DOWN = 0, 1, 2


class SortMarks(SeededMachine):
    screen = "1280x1024"

    def setUp(self):
        super().setUp()
        # The small window has no room for the third column.
        self.machine.set_interface_size("Big")
        self.program = self.start()
        self.shown = self.program.scan()

    def marks(self, shown):
        return [column["icon"] for column in shown.columns]

    def wait_for_marks(self, *marks):
        return self.program.wait_until(f"marks {marks}", lambda s: self.marks(s) == list(marks))

    def pixels_of(self, number):
        return self.program.pixels(self.shown.columns[number - 1]["rect"])

    def click(self, number):
        self.program.click(self.shown.columns[number - 1]["rect"])

    def test_stand_at_the_sorted_column_and_stay_through_a_scan(self):
        self.assertEqual(self.marks(self.shown), [NONE] * 5)
        self.program.move(5, 5)
        plain = self.pixels_of(2)
        self.click(2)
        self.wait_for_marks(NONE, DOWN, NONE, NONE, NONE)
        self.program.move(5, 5)
        driver.wait_for("the mark", lambda: self.pixels_of(2) != plain)
        self.program.screenshot("sorted-by-name")
        # The size is sorted by a hidden column. The mark is at the one that was clicked.
        self.click(3)
        self.wait_for_marks(NONE, NONE, UP, NONE, NONE)
        driver.wait_for("the mark to go", lambda: self.pixels_of(2) == plain)
        self.click(1)
        self.wait_for_marks(DOWN, NONE, NONE, NONE, NONE)
        # The list stays sorted, also when new rows come.
        shown = self.program.scan()
        self.assertEqual(self.marks(shown), [DOWN, NONE, NONE, NONE, NONE])
        self.assertEqual([row["texts"][0].lower() for row in shown.rows],
                         sorted((row["texts"][0].lower() for row in shown.rows), reverse=True))


class Rows(RealWindow):
    def setUp(self):
        super().setUp()
        self.untick_file_functions(self.program)
        self.shown = self.program.scan()

    def row(self, number, held=()):
        self.program.click(self.shown.rows[number - 1]["rect"], x=60, held=held)

    def ticked(self, shown):
        return [row["row"] for row in shown.rows if row["checked"]]

    def selected(self, shown):
        return [row["row"] for row in shown.rows if row["selected"]]

    def test_space_gives_all_highlighted_rows_the_new_state_of_the_one_in_focus(self):
        count = self.shown.row_count
        self.program.untick(3)
        self.row(2)
        self.row(5, held=["shift"])
        self.program.wait_until("the range", lambda s: self.selected(s) == [2, 3, 4, 5])
        self.program.key("space")
        others = [1, *range(6, count + 1)]
        self.program.wait_until("the ticks to go", lambda s: self.ticked(s) == others)
        self.program.key("space")
        self.program.wait_until("the ticks to come", lambda s: self.ticked(s) == list(range(1, count + 1)))

    def test_a_range_that_turns_around_its_end_is_the_one_that_is_ticked(self):
        self.row(4)
        self.row(2, held=["shift"])
        self.program.wait_until("the range", lambda s: self.selected(s) == [2, 3, 4])
        self.row(6, held=["shift"])
        self.program.wait_until("the range", lambda s: self.selected(s) == [4, 5, 6])
        self.program.key("space")
        self.program.wait_until("the ticks to go", lambda s: [r["row"] for r in s.rows if not r["checked"]] == [4, 5, 6])

    def test_letters_lead_to_the_row(self):
        self.row(1)
        kinds = [row["texts"][0] for row in self.shown.rows]
        wanted = kinds.index("User Ran Applications History") + 1
        self.program.key("u")
        self.program.wait_until("the row", lambda s: self.selected(s) == [wanted])
        self.program.key("Home")
        self.program.wait_until("the first row", lambda s: self.selected(s) == [1])
        # The same letter again goes on to the next row. With Shift it isn't the Registry page.
        first, second = [number for number, kind in enumerate(kinds, 1) if kind.startswith("R") and number > 1][:2]
        self.program.key("shift+r")
        self.program.wait_until("the row", lambda s: self.selected(s) == [first])
        self.program.key("shift+r")
        self.program.wait_until("the next row", lambda s: self.selected(s) == [second])

    def test_letters_lead_to_functions(self):
        self.program.key("s")
        shown = self.program.wait_until("the page", lambda s: s.control(FUNCTIONS)["visible"])
        self.program.click(shown.functions[1]["rect"], x=60)
        self.program.wait_until("the focus", lambda s: s.focus() == FUNCTIONS)
        self.program.key("m", "e", "n")
        self.program.wait_until("the function", lambda s: [f["texts"] for f in s.functions if f["selected"]] == [["Menu Order Caches"]])

    def test_a_command_letter_is_a_command_in_a_list(self):
        self.row(1)
        self.program.wait_until("the focus", lambda s: s.focus() == RESULT)
        self.program.key("s")
        self.program.wait_until("the page", lambda s: s.control(FUNCTIONS)["visible"])


class Highlights(SeededMachine):
    """What is painted, and what other programs are told, of the highlights of a list with room below its rows."""
    screen = "1280x1024"

    def setUp(self):
        super().setUp()
        self.machine.set_interface_size("Big")
        self.program = self.start()
        self.untick_file_functions(self.program)
        self.shown = self.program.scan()
        self.bottom = self.shown.rows[-1]["rect"][3]
        self.assertLess(self.bottom + 60, self.shown.control(RESULT)["rect"][3])

    def row(self, number, held=()):
        self.program.click(self.shown.rows[number - 1]["rect"], x=60, held=held)

    def painted(self):
        """The rows whose ground, above their texts, isn't that of the list."""
        left = self.shown.rows[0]["rect"][0] + 100
        column = self.program.pixels((left, 0, left + 1, self.bottom + 60))
        return [row["row"] for row in self.shown.rows if column[3 * row["rect"][1] + 6:][:3] != column[-3:]]

    def wait_for_highlights(self, *rows):
        self.program.wait_until(f"rows {rows} to be highlighted",
                                lambda s: [row["row"] for row in s.rows if row["selected"]] == list(rows))
        driver.wait_for(f"rows {rows} to be painted so", lambda: self.painted() == list(rows))

    def test_by_keys_and_clicks(self):
        count = self.shown.row_count
        self.row(2)
        self.wait_for_highlights(2)
        self.program.key("ctrl+a")
        self.wait_for_highlights(*range(1, count + 1))
        self.program.key("Down")
        self.wait_for_highlights(3)
        self.program.key("shift+End")
        self.wait_for_highlights(*range(3, count + 1))
        self.program.key("shift+Home")
        self.wait_for_highlights(1, 2, 3)
        self.program.key("ctrl+Down", "Up")
        self.wait_for_highlights(1)
        self.row(4, held=["shift"])
        self.wait_for_highlights(1, 2, 3, 4)
        self.row(6, held=["ctrl"])
        self.wait_for_highlights(1, 2, 3, 4, 6)
        self.row(5)
        self.wait_for_highlights(5)

    def test_they_follow_their_rows_through_sorting(self):
        self.row(1)
        self.row(3, held=["shift"])
        self.wait_for_highlights(1, 2, 3)
        texts = [row["texts"] for row in self.shown.rows[:3]]
        self.program.click(self.shown.columns[1]["rect"])
        shown = self.program.wait_until("the rows to be sorted", lambda s: s.rows[0]["texts"] != texts[0])
        self.wait_for_highlights(*(row["row"] for row in shown.rows if row["texts"] in texts))

    def test_by_a_frame(self):
        count = self.shown.row_count
        left, top = self.shown.rows[-3]["rect"][:2]
        start = (left + 200, self.bottom + 30)
        self.row(1)
        self.wait_for_highlights(1)
        self.program.frame(start, (left + 150, top + 5), lambda s: any(row["selected"] for row in s.rows))
        self.wait_for_highlights(count - 2, count - 1, count)
        self.row(3, held=["shift"])
        self.wait_for_highlights(1, 2, 3)
        self.program.click((*start, *start))
        self.wait_for_highlights()


class OptionLists(OptionsCase):
    def columns(self, shown, number):
        return [line for line in shown.content[number] if "column" in line][:2]

    def marks(self, shown, number):
        return [column["icon"] for column in self.columns(shown, number)]

    def selected(self, shown, number):
        return [row["texts"][0] for row in shown.rows(number) if row["selected"]]

    def check_sort_marks(self, number):
        columns = self.columns(self.window(), number)
        self.program.click(columns[0]["rect"])
        self.wait_for_window("the mark", lambda w: self.marks(w, number) == [DOWN, NONE])
        self.program.click(columns[1]["rect"])
        self.wait_for_window("the mark", lambda w: self.marks(w, number) == [NONE, UP])

    def test_sort_marks(self):
        self.open()
        self.turn_to(JUNK)
        self.check_sort_marks(JUNK_LIST)
        self.program.screenshot("junk-sorted")
        self.turn_to(OTHERS)
        self.check_sort_marks(EXCEPT_LIST)

    def test_letters_and_space(self):
        self.open()
        shown = self.turn_to(JUNK)
        names = [row["texts"][0] for row in shown.rows(JUNK_LIST)]
        self.click(shown.rows(JUNK_LIST)[0]["rect"], x=60)
        wanted = next(name for name in names[1:] + names[:1] if name.lower().startswith("in"))
        self.program.key("i", "n")
        self.wait_for_window("the row", lambda w: self.selected(w, JUNK_LIST) == [wanted])

    def test_letters_in_the_common_types(self):
        self.open()
        shown = self.turn_to(DUPLICATES)
        self.click(shown.control(ONLY_COMMON)["rect"])
        shown = self.wait_for_window("the list", lambda w: w.control(COMMON)["enabled"])
        lines = shown.lines(COMMON)
        wanted = next(line for line in lines if line.startswith("*.m"))
        self.click(shown.control(COMMON)["rect"])
        self.wait_for_window("the focus", lambda w: w.focus() == COMMON)
        self.program.key("m")
        shown = self.wait_for_window("the line", lambda w: any(line.startswith("*.m") for line, on in zip(w.lines(COMMON), w.selected_lines(COMMON)) if on))
        self.assertEqual(sum(shown.selected_lines(COMMON)), 1)
        self.assertIn(wanted, lines)


if __name__ == "__main__":
    unittest.main(verbosity=2)
