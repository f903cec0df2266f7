"""The trees of the real window: pictures, marks of branches, sideways scrolling, cut names and letters. Run by CTest,
or: TAVIX_BUILD=build/windows python3 -m unittest trees_window"""
import json
import unittest

import driver
from driver import FUNCTIONS, SCOPE, STATUS, TREE
from seeded import SeededMachine

TIP = "tooltips_class32"
DEEP = [f"level {number} of the deep folders" for number in range(1, 10)]


class Trees(SeededMachine):
    seed = None

    def tip(self):
        """The text of the tool tip that is shown; None without one."""
        lines = self.machine.look(TIP)
        return None if lines is None else json.loads(lines[-1])["title"]

    def colors(self, rectangle):
        data = self.program.pixels(rectangle)
        return {data[at:at + 3] for at in range(0, len(data), 3)}

    def selected(self, tree):
        return next((n["node"] for n in self.program.read().nodes if n["tree"] == tree and n["selected"]), None)

    def wait_for_selected(self, tree, name):
        driver.wait_for(f"{name} to be selected", lambda: self.selected(tree) == name)


class Scope(Trees):
    def setUp(self):
        super().setUp()
        folder = self.machine.drive_c / "Deep"
        for name in DEEP:
            folder = folder / name
        folder.mkdir(parents=True)
        (self.machine.drive_c / "Empty").mkdir()
        (self.machine.drive_c / "Hollow").mkdir()
        self.program = self.start()
        self.program.key("a")
        shown = self.program.wait_until("the page", lambda s: s.control(SCOPE)["visible"])
        self.drive = next(n["node"] for n in shown.nodes if "(C:)" in n["node"])

    def open(self, name, child):
        self.program.click(self.program.read().node(name)["rect"])
        return self.wait_for_child(child)

    def wait_for_child(self, name):
        return self.program.wait_until(name, lambda s: any(n["node"] == name and n["rect"] for n in s.nodes))

    def picture(self, name):
        node = self.program.read().node(name)
        return (node["box"][2], node["rect"][1], node["rect"][0], node["rect"][3])

    def mark(self, name):
        """Where a branch has its mark."""
        box = self.program.read().node(name)["box"]
        return (box[0] - 14, box[1], box[0] - 2, box[3])

    def has_mark(self, name):
        return len(self.colors(self.mark(name))) > 1

    def bring_into_sight(self, name):
        """Turns the wheel until a node is in the tree."""
        def seen():
            shown = self.program.read()
            tree, node = shown.control(SCOPE)["rect"], shown.node(name)["rect"]
            if node[1] >= tree[1] and node[3] <= tree[3]:
                return True
            self.program.click(tree, button=5 if node[3] > tree[3] else 4)
            return False
        driver.wait_for(f"{name} in sight", seen)

    def test_drives_and_folders_have_pictures_of_the_system(self):
        self.open(self.drive, "Empty")
        self.bring_into_sight("Empty")
        self.program.screenshot("scope-pictures")
        pictures = {}
        for name in ("My Computer", self.drive, "Empty", "Hollow"):
            self.bring_into_sight(name)
            self.assertGreater(len(self.colors(self.picture(name))), 4, name)
            pictures[name] = self.program.pixels(self.picture(name))
        self.assertEqual(pictures["Empty"], pictures["Hollow"])
        self.assertEqual(len(set(pictures.values())), 3)

    def test_a_folder_that_was_not_opened_has_a_mark_and_one_without_folders_loses_it(self):
        shown = self.open(self.drive, "Empty")
        # What lies below a folder is read when it is opened.
        self.assertFalse([n["node"] for n in shown.nodes if n["node"] == DEEP[0]])
        for name in ("Deep", "Empty"):
            self.bring_into_sight(name)
            self.assertTrue(self.has_mark(name), name)
        # The mark opens as the name does.
        mark = self.mark("Empty")
        self.program.click(mark)
        driver.wait_for("the mark to go", lambda: not self.has_mark("Empty"))
        self.bring_into_sight("Deep")
        self.program.click(self.mark("Deep"))
        shown = self.wait_for_child(DEEP[0])
        self.assertTrue(shown.node("Deep")["expanded"])
        self.assertTrue(shown.node(DEEP[0])["checked"], "ticked as its parent is")
        self.assertFalse([n["node"] for n in shown.nodes if n["node"] == DEEP[1]])
        self.program.click(self.mark("Deep"))
        self.program.wait_until("the folder to close", lambda s: not s.node("Deep")["expanded"])

    def go_down(self):
        """Opens all levels by keys. A folder is opened by the right arrow key, and a second one goes into it."""
        self.program.click(self.program.read().node(self.drive)["rect"])
        self.wait_for_child("Deep")
        self.program.key("d")
        self.wait_for_selected(SCOPE, "Deep")
        for name in DEEP:
            self.program.key("Right")
            self.wait_for_child(name)
            self.program.key("Right")
            self.wait_for_selected(SCOPE, name)

    def in_sight(self, shown, rectangle):
        tree = shown.control(SCOPE)["rect"]
        return tree[0] <= rectangle[0] and rectangle[2] <= tree[2] and tree[1] <= rectangle[1] and rectangle[3] <= tree[3]

    def test_the_deepest_folder_is_reached_by_keys_and_ticked_by_mouse(self):
        self.go_down()
        last = DEEP[-1]
        shown = self.program.wait_until("the box", lambda s: s.node(last)["box"] and self.in_sight(s, s.node(last)["box"]))
        self.program.screenshot("scope-deep")
        self.assertTrue(shown.node(last)["checked"])
        self.program.click(shown.node(last)["box"])
        self.program.wait_until("the tick to go", lambda s: not s.node(last)["checked"])
        self.program.key("space")
        self.program.wait_until("the tick to come", lambda s: s.node(last)["checked"])

    def left(self, shown):
        return shown.node(self.drive)["rect"][0]

    def test_it_scrolls_sideways_by_wheel_and_keys(self):
        self.go_down()
        self.program.key("Home")
        shown = self.program.wait_until("the left end", lambda s: s.node("My Computer")["box"] and self.in_sight(s, s.node("My Computer")["box"]))
        tree, rest = shown.control(SCOPE)["rect"], self.left(shown)
        self.program.click(tree, button=5, held=["shift"])
        self.program.wait_until("to the right", lambda s: self.left(s) < rest)
        self.program.click(tree, button=4, held=["shift"])
        self.program.wait_until("back", lambda s: self.left(s) == rest)
        self.program.click(tree, button=7)
        self.program.wait_until("to the right", lambda s: self.left(s) < rest)
        self.program.click(tree, button=6)
        self.program.wait_until("back", lambda s: self.left(s) == rest)
        self.program.key("ctrl+Right")
        self.program.wait_until("to the right", lambda s: self.left(s) < rest)
        self.program.key("ctrl+Left")
        self.program.wait_until("back", lambda s: self.left(s) == rest)

    def test_a_cut_name_has_a_tool_tip_over_it(self):
        self.go_down()
        self.program.key("Home")
        shown = self.program.wait_until("the left end", lambda s: s.node("My Computer")["box"] and self.in_sight(s, s.node("My Computer")["box"]))
        tree, name = shown.control(SCOPE)["rect"], shown.node(DEEP[1])["rect"]
        self.assertGreater(name[2], tree[2])
        self.program.move(tree[2] - 10, (name[1] + name[3]) // 2)
        driver.wait_for("the tip", lambda: self.tip() == DEEP[1])
        self.program.screenshot("scope-tip")
        # A name that is all in sight has none.
        whole = shown.node("My Computer")["rect"]
        self.program.move_onto(whole)
        driver.wait_for("no tip", lambda: self.tip() is None)


class Privacy(Trees):
    """A big message font cuts captions: the width of the tree is fixed."""
    CUT = "Temporary Internet Files Detail"

    def setUp(self):
        super().setUp()
        self.machine.set_message_font(18)
        self.program = self.start()

    def test_a_cut_caption_ends_in_an_ellipsis_and_has_a_tool_tip(self):
        shown = self.program.read()
        self.program.screenshot("privacy-big-font")
        tree, label = shown.control(TREE)["rect"], shown.node(self.CUT)["rect"]
        # The name that others read is whole, and the text is wider than its place.
        self.assertGreater(label[2], tree[2])
        middle = (label[1] + label[3]) // 2
        # Left of the edge the upper half of the row is empty, and the points stand in the lower half.
        self.assertEqual(len(self.colors((tree[2] - 22, label[1] + 1, tree[2] - 2, middle))), 1)
        self.assertGreater(len(self.colors((tree[2] - 22, middle, tree[2] - 2, label[3]))), 1)
        self.program.move(label[0] + 20, middle)
        driver.wait_for("the tip", lambda: self.tip() == self.CUT)
        self.program.screenshot("privacy-tip")
        self.program.move_onto(shown.node("Cookies")["rect"])
        driver.wait_for("no tip", lambda: self.tip() is None)


class Letters(Trees):
    def setUp(self):
        super().setUp()
        self.program = self.start()
        self.program.click(self.program.read().node("Internet Explorer")["rect"])
        self.program.wait_until("the focus", lambda s: s.focus() == TREE)

    def test_lead_to_the_node_and_show_its_description(self):
        self.program.key("u")
        self.wait_for_selected(TREE, "User Ran Applications History")
        said = self.program.read().text(STATUS)
        self.assertIn("most used programs", said)

    def test_a_word_goes_on_through_letters_that_are_commands_elsewhere(self):
        # "o" opens the options and "r" the Registry page, but not within a word.
        self.program.key("c", "o", "o", "k", "i", "e", "s", "space")
        shown = self.program.wait_until("the node", lambda s: s.node("Cookies")["selected"] and not s.node("Cookies")["checked"])
        self.assertTrue(shown.enabled)
        self.assertTrue(shown.control(TREE)["visible"])

    def test_with_shift_every_letter_searches(self):
        self.program.key("shift+s")
        self.wait_for_selected(TREE, "Search History")
        self.assertFalse(self.program.read().control(FUNCTIONS)["visible"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
