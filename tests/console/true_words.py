"""Each sentence of the help, the README, the site's FAQ and the catalogue is bound to a reason why it is true.

true_words.txt lists them all. The line after a sentence gives the reason:

- names of tests, if the sentence says what the program finds, keeps, removes or brings back;
- `risk`, if it is in the tables of the Windows 11 machine with the rows that it warns of;
- `system`, if it says what Windows or another program does, which no test here can check;
- `words`, if it says what a thing is, or gives advice;
- `about`, if it uses the words of finding, keeping and removing, but claims nothing.

A sentence that is missing in the table fails the test. So does a sentence of the table that is in no text."""
import ast
import collections
import html
import re
import unittest

import windows_11_machine
from machine_case import TOP, help_pages

TABLE = TOP / "tests" / "console" / "true_words.txt"
KINDS = ("risk", "system", "words", "about")
# A sentence with one of these words usually claims something of the program.
CLAIM = re.compile(r"\b(removes?d?|deletes?d?|listed|lists|finds|found|searched|kept|keeps|stays?|goes|gone|never|"
                   r"brought back|passed over|left alone|leaves|touch(es|ed)?|clear(s|ed)?|clean(s|ed)?|loses?|lost|"
                   r"skip(s|ped)?|puts?)\b")
NATIVE_TEST = re.compile(r"^TEST(?:_[FP])?\((\w+),\s*(\w+)\)", re.M)


def blocks(page):
    """The separate texts of a page: paragraphs, list items, table rows."""
    body = page[page.index("<body>"):]
    body = re.sub(r"</th>\s*<td>", ": ", body)
    texts = re.findall(r"<(?:p|li|tr)\b[^>]*>(.*?)(?=</p>|</li>|</tr>)", body, re.S)
    return [" ".join(html.unescape(re.sub(r"<[^>]*>", "", text)).split()) for text in texts]


def split(text):
    return [sentence for sentence in re.split(r"(?<=[.?!])(?<!Accessed \?)\s+(?=[A-Z\"'*(])", text) if sentence]


def of_a_function(page):
    """What the topic of a function says of finding and cleaning. Nothing for other topics."""
    parts = re.split("<h2>What it finds</h2>|<h2>What comes back by itself</h2>", page)
    return blocks("<body>" + parts[1]) if len(parts) == 3 else []


def readme():
    """The sentences of the README, without its commands, titles and pictures."""
    lines = [line for line in (TOP / "README.md").read_text(encoding="utf-8").splitlines()
             if not line.startswith(("#", "|---", "| Page", "| |", "| !", "![", "    "))]
    for block in re.split(r"\n(?=[-|])|\n\n", "\n".join(lines)):
        plain = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", block).strip(" -|\n").replace(" | ", ": ")
        if plain:
            yield " ".join(plain.split())


def sources():
    """{name of a file: the texts that people read in it}"""
    read = {name: blocks(page) for name, page in help_pages().items()}
    read["README"] = list(readme())
    read["faq"] = blocks((TOP / "packaging" / "faq.htm").read_text(encoding="utf-8"))
    tips = (TOP / "res/lang/en/tips.dll").read_text(encoding="utf-8").split("[frmPubMain]")[0]
    read["messages"] = [line.split("=", 1)[1] for line in tips.splitlines() if re.match(r"[A-Z_]+=", line)]
    return {name: [sentence for text in texts for sentence in split(text)] for name, texts in read.items()}


def table():
    """{name of a file: {sentence: reasons}}"""
    held = {}
    for line in TABLE.read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            here = held.setdefault(line.strip("[]"), {})
        elif line.startswith(" "):
            here[sentence] = [name for name in line.strip().split(", ") if name]
        elif line:
            sentence = line
            here[sentence] = []
    return held


def python_tests(file):
    """The names of a file's tests: "file.test", or "file.Class.test" where several classes have the test."""
    of_test = collections.defaultdict(list)
    for node in ast.parse(file.read_text(encoding="utf-8")).body:
        if isinstance(node, ast.ClassDef):
            for test in node.body:
                if isinstance(test, ast.FunctionDef) and test.name.startswith("test_"):
                    of_test[test.name].append(node.name)
    for test, classes in of_test.items():
        for name in [test] if len(classes) == 1 else [f"{of}.{test}" for of in classes]:
            yield file.stem + "." + name


def tests():
    """The names of all tests. A Python test that stands in several files is left out: which one would be meant?"""
    names = set()
    for file in (TOP / "tests").rglob("*.cpp"):
        names.update(map(".".join, NATIVE_TEST.findall(file.read_text(encoding="utf-8"))))
    of_python = collections.Counter()
    for file in (TOP / "tests").rglob("*.py"):
        of_python.update(python_tests(file))
    return names | {name for name, files in of_python.items() if files == 1}


class TrueWords(unittest.TestCase):
    maxDiff = None

    def test_every_sentence_is_in_the_table_and_no_other(self):
        read = {name: sorted(set(sentences)) for name, sentences in sources().items()}
        held = {name: sorted(sentences) for name, sentences in table().items()}
        self.assertEqual(sorted(read), sorted(held))
        for name, sentences in read.items():
            self.assertEqual(sentences, held[name], name)

    def test_every_sentence_is_held(self):
        there = tests()
        for name, sentences in table().items():
            for sentence, holds in sentences.items():
                self.assertTrue(holds, f"{name}: {sentence}")
                unknown = [test for test in holds if test not in KINDS and test not in there]
                self.assertEqual(unknown, [], f"{name}: {sentence}")

    def test_the_tests_that_documents_name_exist(self):
        suites = {name.split(".")[0] for name in tests()}
        for file in [*TOP.glob("*.md"), *(TOP / "docs").glob("*.md")]:
            for name in re.findall(r"[`=']\*?(\w+)\.\*['`]", file.read_text(encoding="utf-8")):
                self.assertIn(name, suites, file.name)

    def test_a_claim_of_finding_keeping_or_removing_is_not_marked_words(self):
        for name, sentences in table().items():
            claims = [sentence for sentence, holds in sentences.items() if holds == ["words"] and CLAIM.search(sentence)]
            self.assertEqual(claims, [], name)

    def test_what_a_function_finds_and_removes_is_held_by_a_test(self):
        held = table()
        for name, page in help_pages().items():
            for text in of_a_function(page):
                for sentence in split(text):
                    self.assertNotIn(held[name][sentence], (["words"], ["about"]), f"{name}: {sentence}")

    def test_a_risk_is_one_of_the_tables(self):
        risks = {(windows_11_machine.topic_of(row.type), of.why)
                 for row, of in windows_11_machine.expected_rows().items() if of.terms == "risk"}
        for name, sentences in table().items():
            for sentence, holds in sentences.items():
                if "risk" in holds:
                    warned_of = any(name == topic and why in sentence for topic, why in risks)
                    self.assertTrue(warned_of, f"{name}: {sentence}")


if __name__ == "__main__":
    unittest.main()
