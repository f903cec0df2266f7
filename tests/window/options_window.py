"""The pages of the options window, with real keys and clicks. Run by CTest, or:
TAVIX_BUILD=build/windows python3 -m unittest options_window"""
import unittest

import driver
from driver import OPTION_LINK
from options_case import ALL_FILES, AUTO, BIG, BROWSE, CLOSE, COMMON, DELETE, DESCRIPTION, DUPLICATES, EQUAL_SIZE
from options_case import EXCEPT_ADD, EXCEPT_DELETE, EXCEPT_LIST, FILE_DAYS, FOLDER, JUNK, JUNK_ADD, LEAST_SIZE, METHOD
from options_case import MOVE, NEED_LEAST, ONE_CLICK, ONE_CLICK_TREE, ONLY_COMMON, OPTIONS_WINDOW, OTHERS, PAGE_TITLES
from options_case import PAGE_TREE, PICTURE, PREFETCH_DAYS, RECOMMEND, RECYCLE, REMARK, SAVE, SMALL, TITLE, TYPE_ADD
from options_case import TYPE_DELETE, TYPE_WINDOW, OptionsCase

REMARKS = ("OC_REMARK", "JF_REMARK", "DF_REMARK", "CM_REMARK", "OO_REMARK")


class Pages(OptionsCase):
    def check(self, shown, page):
        self.assertEqual(shown.page(), [page])
        self.assertEqual(shown.text(TITLE), PAGE_TITLES[page])
        self.assertEqual(shown.text(REMARK), self.messages[REMARKS[page]])

    def test_each_opens_by_a_click_and_by_the_arrow_keys(self):
        self.check(self.open(), ONE_CLICK)
        for page in (JUNK, DUPLICATES, METHOD, OTHERS, ONE_CLICK):
            self.check(self.turn_to(page), page)
        for page in (JUNK, DUPLICATES, METHOD, OTHERS):
            self.key("Down")
            self.check(self.wait_for_window("the page", lambda w, p=page: w.page() == [p]), page)

    def test_the_window_is_modal_and_in_the_middle_of_its_owner(self):
        shown = self.open()
        main = self.program.read()
        self.assertFalse(main.enabled)
        self.assertEqual(shown.title, "Options")
        for axis in (0, 1):
            middle = (shown.rect[axis] + shown.rect[axis + 2]) / 2
            self.assertAlmostEqual(middle, (main.rect[axis] + main.rect[axis + 2]) / 2, delta=1)
        self.press(CLOSE)
        self.wait_for_close(OPTIONS_WINDOW)
        self.program.wait_until("the main window", lambda s: s.enabled)

    def test_tab_reaches_every_control_of_a_page_in_order(self):
        self.open(DUPLICATES)
        reached = []
        for _ in range(12):
            reached.append(self.window().focus())
            self.key("Tab")
        self.assertEqual(reached, [PAGE_TREE, EQUAL_SIZE, EQUAL_SIZE + 1, NEED_LEAST, LEAST_SIZE, ONLY_COMMON, COMMON,
                                   TYPE_ADD, TYPE_DELETE, RECOMMEND, SAVE, CLOSE])

    def test_escape_closes_it_and_the_link_of_a_function_opens_its_page(self):
        self.open()
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)
        self.program.key("a")
        shown = self.program.wait_until("the page", lambda s: len(s.functions) == 7)
        links = {"Junk Files": JUNK, "Duplicate Files": DUPLICATES, "Last Accessed 365 Days Before": OTHERS}
        for function, page in links.items():
            row = next(f for f in shown.functions if f["texts"] == [function])
            self.click(row["rect"], x=60)
            at = self.program.wait_until("the link", lambda s: s.control(OPTION_LINK)["visible"])
            self.click(at.control(OPTION_LINK)["rect"])
            self.check(self.wait_for_window("the options", lambda w: w.focus() == PAGE_TREE), page)
            self.key("Escape")
            self.wait_for_close(OPTIONS_WINDOW)


class Looks(OptionsCase):
    def test_the_picture_of_a_page_stands_on_the_ground_of_the_window(self):
        shown = self.open()
        for page in range(5):
            shown = self.turn_to(page) if page else shown
            left, top, right, bottom = shown.control(PICTURE)["rect"]
            ground = self.program.pixels((left - 2, top, left - 1, top + 1))
            for x, y in ((left, top), (right - 1, top), (left, bottom - 1), (right - 1, bottom - 1)):
                self.assertEqual(self.program.pixels((x, y, x + 1, y + 1)), ground, page)

    def test_recommended_tells_what_it_does(self):
        shown = self.open()
        self.assertEqual(shown.text(RECOMMEND).replace("&", ""), "Recommended")
        self.program.move_onto(shown.control(RECOMMEND)["rect"])
        driver.wait_for("the tool tip", lambda: self.program.shows("tooltips_class32"))
        tip = self.window("tooltips_class32")
        self.assertIn("recommended ones", tip.title)
        self.assertLess(tip.rect[2], 1024)
        self.program.screenshot("recommended")


class Ending(OptionsCase):
    def test_the_program_can_be_ended_while_both_windows_are_open(self):
        before = (self.data / "tvx.dll").read_bytes()
        self.open(JUNK)
        self.press(JUNK_ADD)
        self.wait_for_window("the editor", lambda w: w.focus() == DESCRIPTION, TYPE_WINDOW)
        self.machine.run("taskkill", "/im", "tavix.exe")
        self.assertEqual(self.program.exit_status(), 0)
        self.assertEqual((self.data / "tvx.dll").read_bytes(), before)


class OneClickTree(OptionsCase):
    def test_a_heading_ticks_all_below_and_does_not_follow_them(self):
        shown = self.open()
        below = [node["node"] for node in shown.nodes(ONE_CLICK_TREE)][1:18]
        self.assertEqual((below[0], below[-1]), ("Internet Explorer", "Other Explorer MRUs"))
        self.click(shown.node("Privacy")["rect"], x=-8)
        self.wait_for_window("all ticks", lambda w: all(w.node(n)["checked"] for n in below))
        self.click(shown.node("Cookies")["rect"], x=-8)
        shown = self.wait_for_window("the tick to go", lambda w: not w.node("Cookies")["checked"])
        for heading in ("Privacy", "Internet Explorer", "Windows Explorer"):
            self.assertTrue(shown.node(heading)["checked"])
            self.assertFalse(shown.node(heading)["half"])

    def test_none_ticked_by_keys_is_saved_as_a_bar(self):
        self.open()
        self.key("Tab", "Home", "Left", "Down", "Left", "Down", "Left")
        for _ in range(3):
            # A heading starts without a tick, whatever is ticked below it.
            self.key("space", "space", "Up")
        shown = self.wait_for_window("no ticks", lambda w: not any(n["checked"] for n in w.nodes(ONE_CLICK_TREE)))
        self.assertEqual(len(shown.nodes(ONE_CLICK_TREE)), 50)
        self.key("alt+v")
        self.wait_for_window("Save", lambda w: w.focus() == SAVE)
        self.assertEqual(self.settings()["One-click Clean/Repair", "Functions"], "|")


class Numbers(OptionsCase):
    TABLE = ((DUPLICATES, LEAST_SIZE, ("0", ""), "1", " 0."), (OTHERS, FILE_DAYS, ("59", "", "40000"), "60", " 59."),
             (OTHERS, PREFETCH_DAYS, ("5",), "6", " 5."))

    def refused(self, page, number, end):
        self.expect_message(self.messages["LBOUND_ERR"] + end)
        self.wait_for_window("the focus to come back", lambda w: w.focus() == number and w.page() == [page])

    def test_a_refused_number_keeps_the_focus_and_a_good_one_lets_it_go(self):
        self.open()
        for page, number, bad, good, end in self.TABLE:
            self.turn_to(page)
            for text in bad:
                self.enter(number, text)
                self.key("Tab")
                self.refused(page, number, end)
            self.enter(number, good)
            self.key("Tab")
            self.wait_for_window("the next control", lambda w, n=number: w.focus() not in (n, None))
            self.expect_no_message()

    def test_a_click_or_key_that_leaves_a_refused_number_has_no_other_effect(self):
        before = (self.machine.drive_c / "MORVDataPath/TVX/tvx.dll").read_bytes()
        shown = self.open(OTHERS)
        self.enter(FILE_DAYS, "7")
        for act in (lambda: self.press(SAVE), lambda: self.key("alt+v"), lambda: self.key("Return"),
                    lambda: self.click(shown.node("Junk Files", PAGE_TREE)["rect"]), lambda: self.press(PREFETCH_DAYS)):
            act()
            self.refused(OTHERS, FILE_DAYS, " 59.")
        self.assertEqual((self.machine.drive_c / "MORVDataPath/TVX/tvx.dll").read_bytes(), before)
        # Two boxes with refused numbers don't pass the focus back and forth.
        self.key("Escape")
        self.wait_for_close(OPTIONS_WINDOW)

    def test_only_digits_are_typed_and_the_text_is_marked(self):
        self.open(OTHERS)
        self.press(FILE_DAYS)
        self.wait_for_window("the focus", lambda w: w.focus() == FILE_DAYS)
        self.key("Tab", "shift+Tab")
        self.type("6x-,0")
        self.wait_for_window("the digits", lambda w: w.text(FILE_DAYS) == "60")

    def test_the_least_size_can_be_entered_where_it_counts(self):
        self.open(DUPLICATES)
        self.enter(LEAST_SIZE, "23")
        self.press(NEED_LEAST)
        shown = self.wait_for_window("the box to be off", lambda w: not w.control(LEAST_SIZE)["enabled"])
        self.assertEqual(shown.text(LEAST_SIZE), "23")


class CommonTypes(OptionsCase):
    def add(self, text, prompt="INPUT_EXT"):
        texts = self.wait_for_box()
        self.assertIn(self.messages[prompt], texts)
        self.key("Home", "shift+End")
        self.type(text)
        self.key("Return")
        driver.wait_for("the box to go", lambda: self.messages[prompt] not in (self.box() or ()))

    def test_an_extension_is_asked_for_until_it_is_good(self):
        self.open(DUPLICATES)
        self.press(TYPE_ADD)
        self.add("*.doc")
        self.expect_message(self.messages["EXT_ERR"])
        self.assertIn("*.doc", self.wait_for_box())
        self.add("doc")
        self.expect_message("'*.doc' " + self.messages["EXIST"])
        self.add("xyz")
        shown = self.wait_for_window("the type", lambda w: w.lines(COMMON)[-1] == "*.xyz")
        self.assertTrue(shown.enabled)

    def test_all_files_switch_the_list_off(self):
        self.open(DUPLICATES)
        self.press(ALL_FILES)
        self.wait_for_window("the list to be off", lambda w: not any(
            w.control(number)["enabled"] for number in (COMMON, TYPE_ADD, TYPE_DELETE)))
        self.key("Down")
        self.wait_for_window("the list to be on", lambda w: w.control(COMMON)["enabled"] and w.focus() == ONLY_COMMON)

    def test_without_any_the_settings_are_not_saved(self):
        before = (self.data / "tvx.dll").read_bytes()
        self.open(METHOD)
        self.press(RECYCLE)
        self.turn_to(DUPLICATES)
        self.press(COMMON)
        self.key("ctrl+a")
        self.wait_for_window("all selected", lambda w: all(w.selected_lines(COMMON)))
        self.press(TYPE_DELETE)
        self.wait_for_window("an empty list", lambda w: not w.lines(COMMON))
        self.press(SAVE)
        self.expect_message(self.messages["NEED_COMM"])
        self.assertEqual((self.data / "tvx.dll").read_bytes(), before)
        self.assertIsNotNone(self.window())


class Method(OptionsCase):
    def refused(self, folder):
        self.expect_message(f"'{folder}' does not exists, please specify another.")
        self.wait_for_window("the page to come back", lambda w: w.focus() == FOLDER and w.page() == [METHOD])

    def test_a_folder_that_does_not_exist_brings_the_page_back(self):
        shown = self.open(METHOD)
        self.assertFalse(shown.control(FOLDER)["enabled"])
        self.press(MOVE)
        self.wait_for_window("the box", lambda w: w.control(FOLDER)["enabled"])
        self.enter(FOLDER, "C:\\nowhere")
        self.key("Tab")
        self.refused("C:\\nowhere")
        self.click(shown.node("Other Options", PAGE_TREE)["rect"])
        self.refused("C:\\nowhere")
        self.press(SAVE)
        self.refused("C:\\nowhere")
        self.type("C:\\windows")
        self.turn_to(OTHERS)
        self.press(SAVE)
        self.wait_for_setting(("Cleaning Method", "Method"), "S")
        self.wait_for_setting(("Cleaning Method", "Backup Folder"), "C:\\windows")

    def test_another_method_lets_the_box_go(self):
        self.open(METHOD)
        for choose in (lambda: self.press(DELETE), lambda: self.key("alt+b")):
            self.press(MOVE)
            self.enter(FOLDER, "C:\\nowhere")
            choose()
            self.wait_for_window("the box to be off", lambda w: not w.control(FOLDER)["enabled"])
            self.expect_no_message()

    @driver.needs_wine("chooses in the chooser of Wine")
    def test_the_folder_chooser_can_be_left_and_gives_what_is_chosen(self):
        self.open(METHOD)
        self.press(MOVE)
        before = self.wait_for_window("the box", lambda w: w.control(FOLDER)["enabled"]).text(FOLDER)
        self.press(BROWSE)
        self.assertIn("Specify Backup Folder", self.wait_for_box())
        self.key("Escape")
        self.wait_for_window("the options", lambda w: w.enabled)
        self.assertEqual(self.window().text(FOLDER), before)
        self.press(BROWSE)
        folder = self.choose_documents()
        self.wait_for_window("the folder", lambda w: w.enabled and w.text(FOLDER) == folder)


class Choices(OptionsCase):
    """What the pictures of option buttons and boxes show, after the mouse and after keys."""

    def reopen(self, page):
        """Saves, closes the window and opens it again."""
        self.press(SAVE)
        self.press(CLOSE)
        self.wait_for_close(OPTIONS_WINDOW)
        self.program.wait_until("the main window", lambda s: s.enabled)
        self.open(page)

    def check_tab_stop(self, before, numbers, chosen):
        """Tab from the control before a group goes to the chosen option, and Tab from there leaves the group."""
        self.press(before)
        self.wait_for_window("the focus before", lambda w: w.focus() == before)
        self.key("Tab")
        self.wait_for_window("the chosen option", lambda w: w.focus() == chosen)
        self.wait_for_dot(numbers, chosen)
        self.key("Tab")
        self.wait_for_window("the next control", lambda w: w.focus() not in (*numbers, None))
        self.wait_for_dot(numbers, chosen)

    def walk(self, page, numbers, letters):
        for chosen in reversed(numbers):
            self.press(chosen)
            self.wait_for_dot(numbers, chosen)
        around = (*numbers, numbers[0])
        for key, order in (("Down", around[1:]), ("Up", around[::-1][1:])):
            for chosen in order:
                self.key(key)
                self.wait_for_window("the focus", lambda w, c=chosen: w.focus() == c)
                self.wait_for_dot(numbers, chosen)
        for letter, chosen in reversed([*zip(letters, numbers)]):
            self.key(f"alt+{letter}")
            self.wait_for_dot(numbers, chosen)
        # Space chooses an option that has the focus, which stays on it.
        self.key("space")
        self.wait_for_dot(numbers, numbers[0])
        self.press(numbers[-1])
        self.reopen(page)
        self.wait_for_dot(numbers, numbers[-1])

    def test_the_dot_follows_on_cleaning_method(self):
        methods = (DELETE, RECYCLE, MOVE)
        self.open(METHOD)
        self.wait_for_dot(methods, DELETE)
        self.walk(METHOD, methods, "dbm")
        self.press(RECYCLE)
        self.check_tab_stop(PAGE_TREE, methods, RECYCLE)

    def test_the_dot_follows_on_other_options(self):
        sizes = (AUTO, BIG, SMALL)
        self.open(OTHERS)
        self.wait_for_dot(sizes, SMALL)
        self.walk(OTHERS, sizes, "abs")
        self.check_tab_stop(PAGE_TREE, sizes, SMALL)

    def test_the_dot_follows_on_duplicate_files(self):
        scopes = (ALL_FILES, ONLY_COMMON)
        self.open(DUPLICATES)
        self.wait_for_dot(scopes, ONLY_COMMON)
        self.walk(DUPLICATES, scopes, "ao")
        self.press(ALL_FILES)
        self.check_tab_stop(LEAST_SIZE, scopes, ALL_FILES)

    def test_an_option_chosen_from_a_box_and_by_recommend_is_shown(self):
        methods = (DELETE, RECYCLE, MOVE)
        self.open(METHOD)
        self.press(MOVE)
        self.wait_for_dot(methods, MOVE)
        self.press(FOLDER)
        self.wait_for_window("the box", lambda w: w.focus() == FOLDER)
        self.press(RECYCLE)
        self.wait_for_dot(methods, RECYCLE)
        self.press(RECOMMEND)
        self.wait_for_dot(methods, DELETE)

    def test_a_tick_follows_mouse_and_keys(self):
        self.open(DUPLICATES)
        ticked = self.window().control(EQUAL_SIZE)["ticked"]
        self.assertTrue(ticked)
        for turn in (lambda: self.press(EQUAL_SIZE), lambda: self.key("space"), lambda: self.key("alt+s")):
            turn()
            ticked = not ticked
            driver.wait_for("the tick", lambda: (self.accented(self.window().control(EQUAL_SIZE)["rect"]) > 60) == ticked)
            self.assertEqual(self.window().control(EQUAL_SIZE)["ticked"], ticked)


class NoChoice(OptionsCase):
    def before(self):
        self.machine.set_interface_size("Small")
        file = self.data / "tvx.dll"
        file.write_bytes(file.read_bytes() + b"[Cleaning Method]\r\nMethod=X\r\n")

    def test_tab_goes_to_the_first_option_of_a_group_without_a_choice(self):
        methods = (DELETE, RECYCLE, MOVE)
        shown = self.open(METHOD)
        self.assertEqual(self.dots(methods), [])
        self.assertFalse(any(shown.control(number)["ticked"] for number in methods))
        self.key("Tab")
        self.wait_for_window("the first option", lambda w: w.focus() == DELETE)
        self.assertEqual(self.dots(methods), [])
        self.key("space")
        self.wait_for_dot(methods, DELETE)


class Folders(OptionsCase):
    def folders(self, shown):
        return [row["texts"][0] for row in shown.rows(EXCEPT_LIST)]

    def test_selected_ones_are_deleted_and_a_header_sorts(self):
        shown = self.open(OTHERS)
        before = self.folders(shown)
        self.assertEqual(before[0], "Recycle Bin")
        self.click(shown.rows(EXCEPT_LIST)[0]["rect"], x=40)
        self.click(shown.rows(EXCEPT_LIST)[2]["rect"], x=40, held=["ctrl"])
        self.press(EXCEPT_DELETE)
        left = [before[1], *before[3:]]
        shown = self.wait_for_window("them to go", lambda w: self.folders(w) == left)
        column = next(line for line in shown.content[EXCEPT_LIST] if line.get("column") == 1)
        for expected in (sorted(left, key=str.lower, reverse=True), sorted(left, key=str.lower)):
            self.click(column["rect"])
            self.wait_for_window("the order", lambda w, e=expected: self.folders(w) == e)

    def test_no_folder_chosen_adds_none(self):
        before = self.folders(self.open(OTHERS))
        self.press(EXCEPT_ADD)
        self.assertIn(self.messages["EXCEPT_FOLDER"], self.wait_for_box())
        self.key("Escape")
        self.assertEqual(self.folders(self.wait_for_window("the options", lambda w: w.enabled)), before)

    @driver.needs_wine("chooses in the chooser of Wine")
    def test_a_chosen_folder_is_described_and_saved(self):
        before = self.folders(self.open(OTHERS))
        self.press(EXCEPT_ADD)
        folder = self.choose_documents()
        driver.wait_for("the question", lambda: self.messages["INPUT_DESC"] in (self.box() or []))
        self.type(" My papers ")
        self.key("Return")
        shown = self.wait_for_window("the row", lambda w: self.folders(w) == [*before, folder])
        self.assertEqual(shown.rows(EXCEPT_LIST)[-1]["texts"], [folder, "My papers"])
        old = self.settings()["Other Options", "Except Folders"]
        self.press(SAVE)
        self.wait_for_setting(("Other Options", "Except Folders"), f"{old}|{folder}/My papers")


class Saving(OptionsCase):
    def change_all(self):
        """Changes something on each page except that of junk types."""
        self.open(DUPLICATES)
        self.press(EQUAL_SIZE)
        self.turn_to(METHOD)
        self.press(RECYCLE)
        self.turn_to(OTHERS)
        self.enter(PREFETCH_DAYS, "77")

    def test_what_was_changed_is_saved_and_nothing_else(self):
        self.open()
        self.press(CLOSE)
        before = self.settings()
        self.change_all()
        self.press(SAVE)
        changed = {("Duplicate Files", "Size"): "N", ("Cleaning Method", "Method"): "R",
                   ("Other Options", "Last Accessed Prefetch"): "77"}
        self.wait_for_setting(("Other Options", "Last Accessed Prefetch"), "77")
        self.assertEqual(self.settings(), {**before, **changed})
        self.assertIsNotNone(self.window())

    def test_without_a_change_the_file_stays_as_it_is(self):
        before = (self.data / "tvx.dll").read_bytes()
        self.open()
        self.key("Return")
        self.expect_no_message()
        self.assertEqual((self.data / "tvx.dll").read_bytes(), before)

    def test_recommend_brings_the_defaults_back(self):
        before = (self.data / "tvx.dll").read_bytes()
        self.change_all()
        self.press(SAVE)
        self.wait_for_setting(("Other Options", "Last Accessed Prefetch"), "77")
        self.press(RECOMMEND)
        self.wait_for_window("the default", lambda w: w.text(PREFETCH_DAYS) == "30")
        self.assertEqual((self.data / "tvx.dll").read_bytes(), before)

    def test_close_loses_what_was_not_saved(self):
        before = (self.data / "tvx.dll").read_bytes()
        self.change_all()
        self.press(CLOSE)
        self.wait_for_close(OPTIONS_WINDOW)
        self.assertEqual((self.data / "tvx.dll").read_bytes(), before)
        shown = self.open(OTHERS)
        self.assertEqual(shown.text(PREFETCH_DAYS), "30")
        self.assertFalse(self.turn_to(METHOD).control(RECYCLE)["ticked"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
