"""The junk type editor, with real keys and clicks and a look at the files afterwards. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest junk_editor_window"""
import unittest

from options_case import CLOSE, CLOSE_TYPE, DESCRIPTION, JUNK, JUNK_ADD, JUNK_CHECK_ALL, JUNK_DELETE, JUNK_EDIT
from options_case import JUNK_LIST, OPTIONS_WINDOW, PATTERN, SAVE, SAVE_ADD, SAVE_CLOSE, TYPE_WINDOW, OptionsCase

USERS = ["Mine\t*.mine\tY\tY\tU", "Old\t*.older\tY\tN\tU", "Third\t*.3rd\tY\tY\tU"]
BUILT_IN = 56


class JunkCase(OptionsCase):
    def before(self):
        self.data.mkdir(parents=True)
        (self.data / "userjunk.dll").write_bytes("".join(line + "\r\n" for line in USERS).encode())

    def setUp(self):
        super().setUp()
        self.shown = self.open(JUNK)
        self.assertEqual(len(self.shown.rows(JUNK_LIST)), BUILT_IN + len(USERS))

    def patterns(self, shown=None):
        return [row["texts"][1] for row in (shown or self.window()).rows(JUNK_LIST)]

    def to_the_end(self):
        """Scrolls to the last row, which then has the focus."""
        self.click(self.window().rows(JUNK_LIST)[0]["rect"], x=60)
        self.key("End")
        return self.wait_for_window("the last row", lambda w: w.rows(JUNK_LIST)[-1]["selected"])

    def ask_for_type(self, button=JUNK_ADD):
        self.press(button)
        return self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)

    def fill(self, description, pattern):
        self.enter(DESCRIPTION, description, TYPE_WINDOW)
        self.enter(PATTERN, pattern, TYPE_WINDOW)


class Adding(JunkCase):
    def test_each_fault_has_its_message_and_the_box_in_question_the_focus(self):
        self.assertEqual(self.ask_for_type().title, self.messages["ADD_JUNK"])
        faults = ((" ", "*.x", "NEED_DESC", "", DESCRIPTION), ("New", "", "NEED_PATTERN", "", PATTERN),
                  ("New", "*.a;*.b", "PATTERN_ERR", "", PATTERN), ("New", "*.OLD", "EXIST", "'*.old' ", PATTERN))
        for description, pattern, key, front, box in faults:
            self.fill(description, pattern)
            self.key("Return")
            self.expect_message(front + self.messages[key])
            shown = self.wait_for_window("the focus", lambda w, b=box: w.focus() == b, TYPE_WINDOW)
            if key == "NEED_DESC":
                self.assertEqual(shown.text(DESCRIPTION), "")
        self.assertEqual(self.users(), USERS)

    def test_enter_saves_and_closes_at_once(self):
        self.ask_for_type()
        self.fill(" New ", "*.New")
        self.key("Return")
        self.wait_for_close(TYPE_WINDOW)
        self.assertEqual(self.users(), [*USERS, "New\t*.New\tY\tY\tU"])
        shown = self.window()
        self.assertEqual(self.patterns(shown)[-1], "*.New")
        self.assertTrue(shown.rows(JUNK_LIST)[-1]["checked"] and shown.rows(JUNK_LIST)[-1]["selected"])
        # Closing the options doesn't undo it.
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)
        self.assertEqual(self.users(), [*USERS, "New\t*.New\tY\tY\tU"])
        self.assertEqual(self.patterns(self.open(JUNK))[-1], "*.New")

    def test_save_and_add_goes_on_with_empty_boxes(self):
        self.ask_for_type()
        for number in (1, 2):
            self.fill(f"New {number}", f"*.new{number}")
            self.press(SAVE_ADD, TYPE_WINDOW)
            shown = self.wait_for_window("empty boxes", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)
            self.assertEqual((shown.text(DESCRIPTION), shown.text(PATTERN)), ("", ""))
        self.press(CLOSE_TYPE, TYPE_WINDOW)
        self.wait_for_close(TYPE_WINDOW)
        self.assertEqual(self.users(), [*USERS, "New 1\t*.new1\tY\tY\tU", "New 2\t*.new2\tY\tY\tU"])

    def test_escape_adds_nothing_and_the_options_come_back(self):
        self.ask_for_type()
        self.assertFalse(self.window().enabled)
        self.fill("New", "*.new")
        self.key("Escape")
        self.wait_for_close(TYPE_WINDOW)
        self.assertTrue(self.wait_for_window("the options", lambda w: w.focus() == JUNK_ADD).enabled)
        self.assertEqual(self.users(), USERS)


class Editing(JunkCase):
    def test_built_in_types_are_out_of_reach(self):
        self.click(self.shown.rows(JUNK_LIST)[1]["rect"], x=60)
        shown = self.wait_for_window("the row", lambda w: w.rows(JUNK_LIST)[1]["selected"])
        self.assertFalse(shown.control(JUNK_EDIT)["enabled"] or shown.control(JUNK_DELETE)["enabled"])
        self.click(shown.rows(JUNK_LIST)[1]["rect"], x=60)
        self.click(shown.rows(JUNK_LIST)[1]["rect"], x=60)
        self.assertIsNone(self.window(TYPE_WINDOW))
        self.to_the_end()
        self.wait_for_window("the buttons", lambda w: w.control(JUNK_EDIT)["enabled"] and w.control(JUNK_DELETE)["enabled"])

    def test_a_new_description_puts_the_type_at_the_end(self):
        self.to_the_end()
        self.key("Up", "Up")
        self.wait_for_window("the row", lambda w: w.rows(JUNK_LIST)[BUILT_IN]["selected"])
        shown = self.ask_for_type(JUNK_EDIT)
        self.assertEqual(shown.title, "Edit Junk File Type - 'Mine'")
        self.assertEqual((shown.text(DESCRIPTION), shown.text(PATTERN)), ("Mine", "*.mine"))
        self.enter(DESCRIPTION, "Ours", TYPE_WINDOW)
        self.press(SAVE_CLOSE, TYPE_WINDOW)
        self.wait_for_close(TYPE_WINDOW)
        self.assertEqual(self.users(), [*USERS[1:], "Ours\t*.mine\tY\tY\tU"])
        self.assertEqual(self.patterns()[BUILT_IN:], ["*.older", "*.3rd", "*.mine"])

    def test_a_double_click_edits_and_another_letter_case_stores_nothing(self):
        row = self.to_the_end().rows(JUNK_LIST)[-1]["rect"]
        self.click(row, x=60)
        self.click(row, x=60)
        self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)
        self.enter(PATTERN, "*.3RD", TYPE_WINDOW)
        self.key("Return")
        self.wait_for_close(TYPE_WINDOW)
        self.assertEqual(self.users(), USERS)


class Deleting(JunkCase):
    def test_no_and_cancel_delete_nothing(self):
        self.to_the_end()
        for key in ("n", "Escape"):
            self.press(JUNK_DELETE)
            self.expect_message(self.messages["DEL_TYPE_PROMPT"], key)
        self.assertEqual(self.users(), USERS)

    def test_yes_deletes_the_selected_ones_but_no_built_in_one(self):
        # The row in focus is the user's, and a built-in one is selected with the users'.
        self.to_the_end()
        self.key("Home", "End", "Up", "Up", "Up")
        self.key("shift+Down", "shift+Down", "shift+Down")
        self.wait_for_window("four rows", lambda w: sum(r["selected"] for r in w.rows(JUNK_LIST)) == 4)
        self.key("Delete")
        self.expect_message(self.messages["DEL_TYPE_PROMPT"], "y")
        shown = self.wait_for_window("them to go", lambda w: len(w.rows(JUNK_LIST)) == BUILT_IN)
        self.assertEqual(self.users(), [])
        self.assertTrue(shown.rows(JUNK_LIST)[0]["selected"])
        self.assertEqual(shown.focus(), JUNK_LIST)


class Sorting(JunkCase):
    def test_a_header_sorts_descending_first(self):
        patterns = self.patterns()
        column = next(line for line in self.shown.content[JUNK_LIST] if line.get("column") == 2)
        self.click(column["rect"])
        self.wait_for_window("another order", lambda w: self.patterns(w)[-1] != patterns[-1])
        falling = self.patterns()
        self.assertNotEqual(falling, patterns)
        self.click(column["rect"])
        self.wait_for_window("the other order", lambda w: self.patterns(w) == falling[::-1])
        self.assertEqual(sorted(falling), sorted(patterns))


class Ticking(JunkCase):
    def test_check_all_is_written_by_save(self):
        self.press(JUNK_CHECK_ALL)
        self.wait_for_window("all ticks", lambda w: all(row["checked"] for row in w.rows(JUNK_LIST)))
        before = self.built_in()
        self.press(SAVE)
        self.wait_for_lines("userjunk.dll", ["Mine\t*.mine\tY\tY", "Old\t*.older\tY\tY", "Third\t*.3rd\tY\tY"])
        self.assertEqual(self.built_in(), [line[:-1] + "Y" for line in before])

    def test_an_unticked_built_in_type_keeps_its_recommendation(self):
        self.click(self.shown.rows(JUNK_LIST)[0]["rect"], x=8)
        self.wait_for_window("the tick to go", lambda w: not w.rows(JUNK_LIST)[0]["checked"])
        self.assertEqual(self.built_in()[0], "Backup Files\t*.old\tY\tY")
        self.press(SAVE)
        self.wait_for_lines("userjunk.dll", [line[:-2] for line in USERS])
        self.assertEqual(self.built_in()[0], "Backup Files\t*.old\tY\tN")

    def test_close_loses_ticks(self):
        before = self.built_in()
        self.press(JUNK_CHECK_ALL)
        self.press(CLOSE)
        self.wait_for_close(OPTIONS_WINDOW)
        self.assertEqual((self.built_in(), self.users()), (before, USERS))


class WithoutTypes(OptionsCase):
    """A folder is in the place of the file of built-in types, so they can't be read or written."""

    def before(self):
        (self.data / "defjunk.dll" / "in the way").mkdir(parents=True)

    def setUp(self):
        super().setUp()
        self.assertEqual(self.open(JUNK).rows(JUNK_LIST), [])

    def test_there_is_nothing_to_edit_or_delete(self):
        for button, key in ((JUNK_EDIT, "NO_TYPE_EDIT"), (JUNK_DELETE, "NO_TYPE_DEL")):
            self.press(button)
            self.expect_message(self.messages[key])
        self.assertIsNone(self.window(TYPE_WINDOW))
        self.click(self.window().control(JUNK_LIST)["rect"])
        self.key("Delete")
        self.expect_message(self.messages["NO_TYPE_DEL"])

    def test_the_first_type_is_added_and_deleted_again(self):
        self.press(JUNK_ADD)
        self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)
        self.enter(DESCRIPTION, "Only", TYPE_WINDOW)
        self.enter(PATTERN, "*.only", TYPE_WINDOW)
        self.key("Return")
        self.wait_for_close(TYPE_WINDOW)
        self.assertEqual(self.users(), ["Only\t*.only\tY\tY\tU"])
        self.press(JUNK_DELETE)
        self.expect_message(self.messages["DEL_TYPE_PROMPT"], "y")
        self.wait_for_window("it to go", lambda w: w.rows(JUNK_LIST) == [])
        self.assertEqual(self.users(), [])
        self.press(JUNK_DELETE)
        self.expect_message(self.messages["NO_TYPE_DEL"])
        self.assertTrue((self.data / "defjunk.dll" / "in the way").is_dir())


if __name__ == "__main__":
    unittest.main(verbosity=2)
