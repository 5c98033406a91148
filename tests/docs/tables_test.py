#!/usr/bin/env python3
"""What the guides say in tables is what the code says. Usage: tables_test.py ROOT"""
import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(sys.argv[1])
SITE = ROOT / "docs" / "site"
sys.path.insert(0, str(SITE))

import code_tables  # noqa: E402
import reference_filter  # noqa: E402


def page(name):
    return (ROOT / "docs" / "guide" / name).read_text(encoding="utf-8")


class Tables(unittest.TestCase):
    def test_tables_are_those_of_the_code(self):
        result = subprocess.run([sys.executable, "-B", SITE / "code_tables.py"], capture_output=True,
                                encoding="utf-8")
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_every_table_stands_on_a_page(self):
        shown = {match[1] for path in (ROOT / "docs").rglob("*.md")
                 for match in code_tables.PLACE.findall(path.read_text(encoding="utf-8"))}
        self.assertEqual(shown, set(code_tables.TABLES))

    def test_every_field_id_of_the_header_is_in_the_table(self):
        header = (ROOT / "frame" / "field_words.h").read_text()
        ids = re.findall(r"(KYODBC_FIELD_\w+) = (\d+)", header)
        self.assertGreater(len(ids), 30)
        for name, number in ids:
            self.assertIn(f"| {number} | `{name}` |", page("field-ids.md"))

    def test_the_header_names_the_tables_that_know_an_id(self):
        """The comments of the header and the lists of the browse sets tell the same."""
        header = (ROOT / "frame" / "field_words.h").read_text()
        known = {}
        for number, _, _, tag, _, _ in code_tables.field_id_rows():
            known.setdefault(number, set()).add(re.sub(r"^T(?=[A-Z])", "", tag.strip("`")))
        everywhere = {tag for tags in known.values() for tag in tags}
        for number, note in re.findall(r"KYODBC_FIELD_\w+ = (\d+),\s*/\* (.*?) \*/", header):
            words = note.split(": ")[-1] if note.startswith("name or") else note.split(";")[0]
            tags = set(re.findall(r"\b(?:PatEx|Pat|Dr|Stat|Unit|Img|Mak|Grp|Diag|Cfg|Test)\b", words))
            if "every table" in note:
                tags = everywhere - tags
            self.assertEqual(known[int(number)], tags | ({"Img"} if "Img names" in note else set()), note)

    def test_every_result_code_has_a_chapter_and_no_other_has(self):
        headings = re.findall(r"^## (\d+) (KYODBC_\w+)$", page("result-codes.md"), re.M)
        self.assertEqual([(int(number), name) for number, name in headings],
                         [(number, name) for number, name, _ in code_tables.result_codes()])

    def test_chapters_of_failures_tell_causes_and_cures(self):
        chapters = re.split(r"^## ", page("result-codes.md"), flags=re.M)
        for chapter in chapters:
            if re.match(r"\d", chapter) and not re.match(r"(0|57) ", chapter):
                self.assertRegex(chapter, r"(?s)\*Usual causes\.\*.*\*What to do\.\*", chapter.split("\n")[0])


class Limits(unittest.TestCase):
    @staticmethod
    def number(source, name):
        return int(re.search(rf"\b{name} = (\d+);", (ROOT / source).read_text())[1])

    @staticmethod
    def width(record, field):
        """The bytes of a text field, without the zero byte."""
        return getattr(code_tables.RECORDS[record], field).size - 1

    def setUp(self):
        rows = re.findall(r"^\| ([^|]+?) \| ([^|]+?) \|$", page("limits.md"), re.M)
        self.numbers = {what: [int(digits.replace(",", "")) for digits in re.findall(r"\d[\d,]*\b", limit)]
                        for what, limit in rows}

    def test_texts_are_as_wide_as_the_page_says(self):
        source = self.width("tagDBCONNECT", "szDSN")
        self.assertEqual(self.numbers["name of a data source"], [source, source - len("Exclusive")])
        self.assertEqual(self.numbers["user; password; owner"],
                         [self.width("tagDBCONNECT", field) for field in ("szUID", "szPWD", "szOwner")])
        self.assertEqual(self.numbers["key of a setting; its value"],
                         [self.width("tagTCONFIG", field) for field in ("szKey", "szSet")])
        columns = [self.number("recset/column_ops.h", name) for name in ("kTextMaximum", "kLongTextMaximum")]
        self.assertEqual(self.numbers["text in a column"], columns)

    def test_words_hold_as_many_entries_as_the_page_says(self):
        entries = self.number("recset/packed_word.h", "kSlots")
        self.assertEqual((self.numbers["clauses of a filter"], self.numbers["fields of a sort order"]),
                         ([entries], [entries]))
        self.assertEqual(self.numbers["statements kept prepared"],
                         [self.number("platform/kept_statements.cpp", "kMostIdle")])

    def test_things_are_given_up_when_the_page_says(self):
        running = self.number("platform/cdatabase.cpp", "kDefaultTimeout")
        self.assertEqual(self.numbers["connecting to a server that does not answer"],
                         [self.number("frame/connection.cpp", "kLoginTimeoutSeconds")])
        self.assertEqual(self.numbers["a statement that runs"], [running])
        self.assertEqual(self.numbers["a call to a server that has fallen silent"],
                         [running + self.number("platform/cdatabase.cpp", "kTimeToAnswer")])
        self.assertEqual(self.number("frame/keep_alive.cpp", "kAttempts"), 5)
        self.assertIn("five attempts", page("limits.md"))


class Reference(unittest.TestCase):
    """The headers as the generator of the reference reads them."""

    def test_every_exported_function_has_its_contract(self):
        for header, listed in (("frame/KyODBC.h", "exports.txt"), ("frame/KyODBCDiag.h", "exports_ext.txt")):
            text = reference_filter.filtered((ROOT / header).read_text())
            lines = (ROOT / "frame" / listed).read_text().splitlines()
            for name in (line for line in lines if line.startswith("DB_")):
                contract = re.search(rf"/\*\*((?:(?!\*/).)*)\*/\s*KYODBC_API [\w* ]+?\b{name}\(", text, re.S)
                self.assertTrue(contract and len(contract[1].split()) > 1, name)

    def test_a_family_s_contract_is_each_member_s_and_an_own_one_is_added(self):
        text = reference_filter.filtered(
            "/* For all. */\n/* For a. */\nKYODBC_API WORD a(void);\nKYODBC_API WORD b(void);\n"
            "/* For c. */\nKYODBC_API WORD c(int x,\n  int y);\n\nint d;\n")
        self.assertEqual(
            text, "/** For all.\n *\n * For a. */\nKYODBC_API WORD a(void);\n"
                  "/** For all. */\nKYODBC_API WORD b(void);\n"
                  "/** For all.\n *\n * For c. */\nKYODBC_API WORD c(int x,\n  int y);\n\nint d;\n")

    def test_comments_behind_members_and_before_classes_are_kept(self):
        text = reference_filter.filtered(
            "// A thing.\nclass Thing {\n  int x;  // its place\n  LONG y; /* too */\n};\n")
        self.assertEqual(
            text, "/// A thing.\nclass Thing {\n  int x;  ///< its place\n  LONG y; /**< too */\n};\n")

    def test_the_class_that_a_header_is_named_after_is_described_by_it(self):
        text = reference_filter.filtered(
            "// A thing.\n\nclass Other;  // not this\n\nclass KYODBC_API CThing {\n};\n", "room/thing.h")
        self.assertEqual(text, "/** @file\n * A thing. */\n\nclass Other;\n\n"
                               "/** A thing. */\nclass KYODBC_API CThing {\n};\n")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
