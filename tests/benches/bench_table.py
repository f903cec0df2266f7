"""The rules of the table that ./bench prints. Run by CTest, or: python3 -m unittest bench_table"""
import contextlib
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "benches"))
import harness
from harness import Group, Measured, Row


def measured(ours, peer=(), goal=1.0, by_others=0.0):
    return Measured(Row("what", "ours", "peer" if peer else "", goal), list(ours), list(peer), by_others)


class Figures(unittest.TestCase):
    def test_the_ratio_is_the_median_of_the_rounds_ratios(self):
        self.assertEqual(measured([2, 9, 4], [1, 3, 4]).middle, 2)

    def test_the_scatter_is_the_middle_half(self):
        self.assertEqual(measured([5, 1, 2, 4, 3]).scatter, (2, 4))
        self.assertEqual(measured([7]).scatter, (7, 7))

    def test_a_figure_without_peer_stands_for_itself(self):
        self.assertEqual(measured([80, 90, 100]).middle, 90)


class Verdicts(unittest.TestCase):
    def test_a_goal_is_kept_or_not(self):
        self.assertEqual(measured([0.8, 0.9, 1.0]).verdict, "kept")
        self.assertEqual(measured([1.2, 1.3, 1.4]).verdict, "NOT KEPT")
        self.assertEqual(measured([1.0, 1.0, 1.0]).verdict, "kept")

    def test_nobody_can_tell_if_the_goal_lies_within_the_scatter(self):
        self.assertEqual(measured([0.8, 0.9, 1.2, 1.3]).verdict, "can't tell")

    def test_a_busy_machine_tells_nothing(self):
        self.assertEqual(measured([0.5], by_others=0.3).verdict, "too busy (30%)")

    def test_a_row_without_goal_has_none(self):
        self.assertEqual(measured([3], goal=0).verdict, "")


class Others(unittest.TestCase):
    def test_their_share_is_the_work_that_is_not_ours_and_what_the_host_took(self):
        self.assertEqual(harness.share_of_others(10, 2, worked=8, own=8, stolen=0), 0)
        self.assertEqual(harness.share_of_others(10, 2, worked=12, own=8, stolen=1), 0.25)

    def test_clocks_that_differ_a_little_are_nobody(self):
        self.assertEqual(harness.share_of_others(10, 2, worked=8, own=8.1, stolen=0), 0)


class Rounds(unittest.TestCase):
    def test_the_sides_run_in_turn(self):
        order = []

        def side(name):
            return lambda: order.append(name) or len(order)

        self.assertEqual(harness.in_turn({"a": side("a"), "b": side("b")}, 2), {"a": [1, 3], "b": [2, 4]})
        self.assertEqual(order, ["a", "b", "a", "b"])

    def test_only_wanted_sides_run_and_a_row_without_its_peer_is_left_out(self):
        ran = []

        @contextlib.contextmanager
        def opened():
            yield {name: lambda name=name: ran.append(name) or 1 for name in ("ours", "peer", "other")}

        rows = (Row("with", "ours", "peer"), Row("without", "ours", "not installed"))
        found = list(harness.measure(Group(opened, rows, rounds=1), rows))
        self.assertEqual([one.row.what for one in found], ["with"])
        self.assertEqual(ran, ["ours", "peer"])


class Table(unittest.TestCase):
    def test_markdown_has_a_line_for_each_row(self):
        line = harness.cells(measured([0.1], [0.2], goal=0.9))
        self.assertEqual(line, ("what", "100 ms", "peer, 200 ms", "0.50", "0.50 to 0.50", "0.9", "kept"))
        self.assertEqual(harness.as_markdown([line]).splitlines()[2],
                         "| what | 100 ms | peer, 200 ms | 0.50 | 0.50 to 0.50 | 0.9 | kept |")

    def test_names_select_rows_whatever_their_case(self):
        row = Row("Under Wine: Registry page", "page")
        self.assertTrue(harness.matches(row, []))
        self.assertTrue(harness.matches(row, ["none", "registry"]))
        self.assertFalse(harness.matches(row, ["none"]))


if __name__ == "__main__":
    unittest.main(verbosity=2)
