#!/usr/bin/env python3
"""The house rules find what they are for."""
import pathlib
import tempfile
import unittest

import house_rules
from cpp_text import functions


class HouseRules(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = pathlib.Path(self.folder.name)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def offences(self, rule):
        return list(rule(self.root))

    def test_an_include_of_a_higher_room_is_found(self):
        self.write("frame/connection.h", "")
        self.write("tables/station.h", "")
        self.write("recset/kyrecset.cpp", '#include "frame/connection.h"\n#include "../tables/station.h"\n')
        self.write("recset/stat_rec.cpp", '#include "tables/station.h"\n// #include "frame/connection.h"\n')
        self.assertEqual(len(self.offences(house_rules.layers)), 2)

    def test_a_program_that_includes_an_internal_header_is_found(self):
        self.write("frame/connection.h", "")
        self.write("examples/walk.cpp", '#include "../frame/connection.h"\n#include <KyODBC.h>\n')
        self.assertEqual(len(self.offences(house_rules.programs_use_the_public_interface)), 1)

    def test_odbc_calls_are_found_only_in_code(self):
        self.write("platform/odbc.cpp", "void F() { SQLFetch(0); }\n")
        self.write("platform/other.cpp", '// SQLFetch(\nconst char* k = "SQLFetch(";\n')
        self.write("recset/bad.cpp", "void F() { SQLFetch(0); }\n")
        self.assertEqual(self.offences(house_rules.one_file_calls_odbc),
                         ["recset/bad.cpp:1: void F() { SQLFetch(0); }"])

    def test_the_native_type_is_found_only_in_code(self):
        self.write("recset/a.cpp",
                   "// too long\nunsigned long n = 0;\nconst char* k = \"long\";\nint longer;\n")
        self.assertEqual(self.offences(house_rules.no_native_long), ["recset/a.cpp:2: unsigned long n = 0;"])

    def test_the_native_type_may_be_read_into(self):
        self.write("frame/dynamic_rec.h", "void GetFieldValue(short column, long& value);\n")
        self.write("frame/dynamic_rec.cpp", "void GetFieldValue(short column, long& value) {}\n")
        self.assertEqual(self.offences(house_rules.no_native_long), [])

    def test_functions_are_measured_from_signature_to_brace(self):
        source = (
            "namespace a {\n"
            "constexpr int kRows[] = {\n1,\n2,\n};\n"
            "class B : public C {\n public:\n  B() : m_c{1}, m_d(2) {\n    F();\n  }\n  int m_c;\n};\n"
            "int Long(int a,\n         int b) {\n  if (a) {\n    return b;\n  }\n  return '{';\n}\n"
            "}\n")
        measured = {head.split("(")[0].split()[-1]: length for _, length, head in functions(source) if head}
        self.assertEqual(measured["Long"], 7)
        self.assertNotIn("kRows", measured)

    def test_a_function_above_the_limit_is_found(self):
        self.write("recset/a.cpp", "void Fits() {\n" + "  F();\n" * 58 + "}\n")
        self.write("recset/b.cpp", "class A {\n  void TooLong() const {\n" + "  F();\n" * 59 + "}\n};\n")
        self.write("recset/c.cpp", "A::A() : m_b{1} {\n" + "  F();\n" * 60 + "}\n")
        found = self.offences(house_rules.function_length)
        self.assertEqual([offence.split(":")[0] for offence in found], ["recset/b.cpp", "recset/c.cpp"])

    def test_a_wrong_guard_is_found(self):
        self.write("frame/a.h", "// text\n#ifndef KYODBC_FRAME_A_H\n#define KYODBC_FRAME_A_H\n#endif\n")
        self.write("frame/b.h", "#pragma once\n")
        self.assertEqual(self.offences(house_rules.include_guards),
                         ["frame/b.h: the guard must be KYODBC_FRAME_B_H"])

    def test_an_exported_name_must_be_declared_defined_once_and_tested(self):
        self.write("frame/exports.txt", "DB_Good\nDB_Twice\nDB_Untested\nDB_Undeclared\n")
        self.write("frame/KyODBC.h",
                   "WORD DB_Good(void);\nWORD DB_Twice(void);\nWORD DB_Untested(int a,\n  int b);\n")
        self.write("frame/a.cpp",
                   "WORD DB_Good() {}\nWORD DB_Twice() {}\nWORD DB_Undeclared() { return DB_Good(); }\n")
        self.write("frame/b.cpp", "WORD DB_Twice() {}\nWORD DB_Untested(int a,\n    int b) {\n}\n")
        self.write("tests/a_test.cpp", "// DB_Untested()\nDB_Good(); DB_Twice(); DB_Undeclared();\n")
        self.assertEqual(self.offences(house_rules.exported_names), [
            "DB_Twice: 2 definitions", "DB_Untested: in no test", "DB_Undeclared: not in frame/KyODBC.h"])

    def test_an_extension_has_a_list_and_a_header_of_its_own(self):
        self.write("frame/exports_ext.txt", "DB_Good\nDB_Undeclared\n")
        self.write("frame/KyODBCDiag.h", "WORD DB_Good(void);\n")
        self.write("frame/a.cpp", "WORD DB_Good() {}\nWORD DB_Undeclared() {}\n")
        self.write("tests/a_test.cpp", "DB_Good(); DB_Undeclared();\n")
        self.assertEqual(self.offences(house_rules.exported_names),
                         ["DB_Undeclared: not in frame/KyODBCDiag.h"])

    def test_what_the_headers_do_not_tell_is_found(self):
        self.write("frame/KyODBC.h",
                   "/* ---- Section ---- */\nKYODBC_API WORD DB_Bare(void);\n\n/* Told.\n * More. */\n"
                   "KYODBC_API WORD DB_Told(int a,\n                        int b);\n"
                   "KYODBC_API WORD DB_InTheRun(void);\n/* Own. */\nKYODBC_API WORD DB_Own(void);\n\n"
                   "KYODBC_API WORD DB_Apart(void);\n")
        self.write("tables/records.h", "  LONG lKey; /* key */\n  char szName[33];\n  LONG a;\n")
        self.write("platform/result_codes.h", "  /* Success. */\n  KYODBC_OK = 0,\n  KYODBC_BAD = 1,\n")
        offences = self.offences(house_rules.header_tells_everything)
        self.assertEqual([offence.split(": ")[0] for offence in offences],
                         ["frame/KyODBC.h:2", "frame/KyODBC.h:12", "tables/records.h:2", "tables/records.h:3",
                          "platform/result_codes.h:3"])

    def test_a_page_that_names_what_is_not_there_is_found(self):
        self.write("frame/exports.txt", "DB_Good\n")
        self.write("frame/exports_ext.txt", "DB_Extra\n")
        self.write("docs/page.md", "`DB_Good`, `DB_Extra()`, `DB_Get...ByPos`, `DB_*`, `DB_Gone`.\nDB_Bad.\n")
        self.assertEqual(self.offences(house_rules.documents_name_what_exists),
                         ["docs/page.md:1: DB_Gone is not exported",
                          "docs/page.md:2: DB_Bad is not exported"])

    def test_differences_that_are_not_held_not_listed_or_none_are_found(self):
        self.write("docs/databases.md", "## What differs\n\n| what | SQLite | PostgreSQL | MariaDB |\n"
                   "|---|---|---|---|\n| `held` | a | b | b |\n| `stale` | a | b | b |\n"
                   "| `equal` | a | a | a |\n"
                   "\n## Setting up\n\n| `other` | x |\n")
        self.write("tests/flat/a_test.cpp",
                   'Documented("held"); Documented("equal"); Documented("unlisted");\n'
                   '// PostgreSQL\nif (name == "PostgreSQL") {}\n')
        self.write("tests/support/kind.cpp", 'return "PostgreSQL";\n')
        self.assertEqual(self.offences(house_rules.differences), [
            "docs/databases.md: stale: no test reads it",
            "docs/databases.md: equal: no difference between three databases",
            "docs/databases.md: unlisted: a test reads it, the table has no such row",
            'tests/flat/a_test.cpp:3: if (name == "PostgreSQL") {}'])

    def test_long_lines_and_files_are_found(self):
        self.write("frame/a.cpp", "// " + "x" * 108 + "\n" + "\n" * 500)
        self.assertEqual(len(self.offences(house_rules.line_length)), 1)
        self.assertEqual(len(self.offences(house_rules.file_length)), 1)

    def test_unfinished_work_is_found(self):
        self.write("frame/a.cpp", "// TO" + "DO: later\n")
        self.assertEqual(len(self.offences(house_rules.nothing_unfinished)), 1)

    def test_a_room_without_a_short_readme_is_found(self):
        for room in house_rules.ROOMS[1:]:
            self.write(room + "/README.md", "x\n" * 10)
        self.assertEqual(self.offences(house_rules.room_readmes), ["platform: no README.md"])


if __name__ == "__main__":
    unittest.main()
