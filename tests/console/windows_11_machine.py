"""Every page over the Windows 11 machine. Each row is in the tables, which give it one of these terms:

- `harmless`
- `risk`: the topic of its function warns of it, in the sentence that the table quotes
- `refused`: a clean leaves it in place
- `unticked`: it is listed without a tick"""
import collections
import html
import os
import re
import sys
import unittest

from machine_case import Machine, help_pages, singular

import make_windows_11_machine as tables

THROUGH_A_LINK = "what a link leads to stays"
PAGES = ("privacy", "system", "registry", "advanced")
TERMS = ("harmless", "risk", "refused", "unticked")
# {type of a row, or its first part: help topic of its function}. For the Registry page, see topic_of.
TOPICS = {
    "Temporary Internet Files": "ietif", "Cookies": "iec", "History": "ieh", "Recently Typed URL": "iertu",
    "Auto-fill Form History": "ieafh", "Auto-fill Password History": "ieaph", "Temporary Internet File": "ietifd",
    "Cookie": "iecd", "index.dat (": "ieif", "Recently Used Documents": "werud", "Recently Used Document": "werud",
    "Run History (in Start menu)": "werh", "User Ran Applications History": "weurah", "Open/Save History": "weosh",
    "Other Explorer MRUs": "weoem", "Recycle Bins": "empty_recycle_bin", "User Temporary File": "temporary_files",
    "System Temporary File": "temporary_files", "Memory Dumps": "memory_dumps",
    "CHKDSK File Fragment": "chkdsk_file_fragments", "Windows Log File": "windows_log_files",
    "Windows System Log": "windows_system_logs", "Invalid Shortcut (": "invalid_shortcuts_in_user_folders",
    "Windows Update Source File": "windows_update_source_files", "Menu Order Caches": "menu_order_caches",
    "Tray Notifications Cache": "tray_notifications_cache",
    "Windows Size and Location Caches": "windows_size_and_location_caches", "Old Prefetch data": "old_prefetch_data",
    "Invalid Shortcut": "advanced_invalid_shortcuts",
    "Empty Folder": "advanced_empty_folders_and_files", "Empty File": "advanced_empty_folders_and_files",
    "Last Accessed ": "advanced_last_accessed_days_before", "Redundant DLL": "advanced_redundant_dlls",
    "Junk File": "advanced_junk_files"}

Found = collections.namedtuple("Found", "type what checked")
Expected = collections.namedtuple("Expected", "artefact terms why")


def found(row):
    """The path of a row's file or folder, or its action."""
    if row["Tag"] in ("F", "P"):
        return Found(row["Type"], row["Location"].rstrip("\\") + "\\" + row["Name"], row["Checked"])
    return Found(row["Type"], row["Tag"], row["Checked"])


def terms_of(row):
    terms = [term for term in TERMS if term in row]
    if len(terms) != 1:
        raise ValueError(f"{row}: one of {TERMS}")
    return terms[0]


def through_links(rows):
    """Adds the rows that a scan finds again through links to folders. A clean refuses them."""
    links = [(tables.path_of(artefact, name), target) for artefact in tables.artefacts()
             for name, target in artefact.get("links", {}).items() if target]
    for row in list(rows):
        for link, target in links:
            if row.what.startswith(target + "\\"):
                linked = row._replace(what=link + row.what[len(target):])
                rows[linked] = Expected(rows[row].artefact, "refused", THROUGH_A_LINK)


def expected_rows():
    rows = {}
    for artefact in tables.artefacts():
        for row in artefact.get("rows", []):
            terms = terms_of(row)
            for what in row.get("tag", []) + [tables.path_of(artefact, name) for name in row.get("of", [])]:
                key = Found(row["type"], what, terms != "unticked")
                if key in rows:
                    raise ValueError(f"twice: {key}")
                rows[key] = Expected(artefact["id"], terms, row[terms])
    through_links(rows)
    return rows


def registry_topics():
    """The topics of the functions of the Registry page, by the types of their rows."""
    page = help_pages()["registry"]
    return {singular(name): topic for topic, name in re.findall(r'<li><a href="(\w+)\.htm">([^<]*)</a>', page)}


def topic_of(row_type):
    if row_type in TOPICS:
        return TOPICS[row_type]
    if singular(row_type) in REGISTRY_TOPICS:
        return REGISTRY_TOPICS[singular(row_type)]
    return next(topic for start, topic in TOPICS.items() if start[-1] in "( " and row_type.startswith(start))


REGISTRY_TOPICS = registry_topics()


def text_of(topic):
    """The text of a topic, without markup."""
    text = help_pages()[topic]
    return " ".join(html.unescape(re.sub(r"<[^>]*>", "", text)).split())


class Windows11(Machine):
    def setUp(self):
        super().setUp()
        tables.Maker(self.folder).make()

    def rows(self, page, *arguments):
        rows, _ = self.scan("--page", page, "--now", tables.NOW, *arguments)
        return rows


class Tables(unittest.TestCase):
    def test_name_at_least_sixty_artefacts_by_an_id_of_their_own(self):
        ids = [artefact["id"] for artefact in tables.artefacts()]
        self.assertEqual(len(set(ids)), len(ids))
        self.assertGreaterEqual(len(ids), 60)

    def test_give_each_artefact_its_rows_or_the_reason_for_none(self):
        for artefact in tables.artefacts():
            self.assertTrue(artefact["what"], artefact["id"])
            self.assertNotEqual("rows" in artefact, "unlisted" in artefact, artefact["id"])

    def test_every_risk_is_explained_in_the_topic_of_its_function(self):
        untold = [(row.type, of.artefact, topic_of(row.type), of.why) for row, of in expected_rows().items()
                  if of.terms == "risk" and of.why not in text_of(topic_of(row.type))]
        self.assertEqual(sorted(set(untold)), [])

    def test_every_function_of_the_window_has_an_artefact(self):
        """Except those whose stores Windows 11 no longer has."""
        without = {"advanced_duplicate_files", "appearance_schemes", "mui_cache_issues", "start_menu_ordering_issues",
                   "uninstall_files_for_windows_update", "wesh"}
        pages = help_pages()
        functions = {name for page in PAGES for name in re.findall(r'<li><a href="(\w+)\.htm">', pages[page])}
        self.assertEqual({topic_of(row.type) for row in expected_rows()}, functions - without)


class Scan(Windows11):
    def test_gives_the_rows_of_the_tables_and_no_more(self):
        rows = [found(row) for page in PAGES for row in self.rows(page)]
        self.assertEqual([row for row, times in collections.Counter(rows).items() if times > 1], [])
        expected = expected_rows()
        self.assertEqual(sorted(set(rows) - set(expected)), [], "rows that no artefact names")
        self.assertEqual(sorted(set(expected) - set(rows)), [], "rows that the tables promise")


class Safeguards(Windows11):
    """Ticked rows that a clean leaves in place."""

    def clean_page(self, page, *arguments):
        """The ticked rows that are left after a clean of the page."""
        _, kept, _ = self.clean("--page", page, "--now", tables.NOW, *arguments)
        return sorted(found(row) for row in kept if row["Checked"])

    def is_there(self, path):
        return os.path.lexists(tables.Maker(self.folder).host(path))

    def test_without_refusals_no_ticked_row_stays(self):
        for page in ("privacy", "system", "registry"):
            with self.subTest(page):
                self.setUp()
                self.assertEqual(self.clean_page(page), [])

    def test_rows_that_are_refused_stay_ticked_and_their_targets_on_the_disk(self):
        kept = self.clean_page("advanced")
        expected = expected_rows()
        refused = [row for row, of in expected.items() if of.terms == "refused" and of.why != THROUGH_A_LINK]
        self.assertGreater(len(refused), 8)
        self.assertEqual([row for row in refused if row not in kept or not self.is_there(row.what)], [])
        self.assertEqual([row for row in kept if expected[row].terms != "refused"], [])

    def test_what_is_reached_through_a_link_stays(self):
        rows = self.rows("advanced")
        expected = expected_rows()
        linked = [row for row in rows if expected[found(row)].why == THROUGH_A_LINK]
        self.assertGreater(len(linked), 1)
        others = [option for row in rows if row not in linked for option in ("--untick", row["row"])]
        self.assertEqual(self.clean_page("advanced", *others), sorted(map(found, linked)))
        self.assertEqual([row for row in linked if not self.is_there(found(row).what)], [])

    def test_own_data_and_the_backup_folder_are_whole(self):
        self.clean_page("advanced")
        for path in ('C:\\TVXBak', 'C:\\MORVDataPath\\TVX\\DupeFiles\\scanned\\A', 'C:\\MORVDataPath\\TVX\\tvx.dll',
                     'C:\\MORVDataPath\\TVX\\TVX data folder, please do not delete it'):
            self.assertTrue(self.is_there(path), path)


if __name__ == "__main__":
    unittest.main()
