#!/usr/bin/env python3
"""The companion program: what it prints and stores, read past it by SQLite."""
import json
import os
import pathlib
import re
import sqlite3
import stat
import subprocess
import unittest

from tool_case import TOOL, ToolCase, on_screen, table


class Init(ToolCase):
    def test_a_practice_has_its_database_and_the_odbc_files_that_name_it(self):
        self.done("init", self.practice)
        self.assertEqual(sorted(os.listdir(self.practice)), ["odbc.ini", "odbcinst.ini", "practice.db"])
        sources = (self.practice / "odbc.ini").read_text()
        self.assertIn("[practice]\n", sources)
        self.assertIn(f"Database={self.practice}/practice.db\n", sources)
        for option in ("LongNames=0", "JDConv=0", "BigInt=0", "Timeout=5000", "SyncPragma=NORMAL",
                       "JournalMode=WAL"):
            self.assertIn(option + "\n", sources)
        driver = [line for line in (self.practice / "odbcinst.ini").read_text().splitlines()
                  if line.startswith("Driver=")]
        self.assertTrue(os.path.isabs(driver[0][len("Driver="):]))

    def test_the_schema_is_that_of_version_4_with_its_default_rows(self):
        practice = self.folder / "schema"
        self.done("init", practice)
        self.assertEqual(self.value("SELECT tCfgSSet FROM TConfig WHERE tCfgSKey = 'DBVersion'",
                                    practice=practice), "4.0")
        for name, column in (("TDoctor", "tDrSName"), ("TStation", "tStatSName"), ("TUnit", "tUnitSName")):
            self.assertEqual(self.query(f"SELECT {column} FROM {name}", practice=practice), [("-",)])

    def test_only_the_owner_can_read_the_database(self):
        practice = self.folder / "private"
        self.done("init", practice)
        self.assertEqual(stat.S_IMODE(os.stat(practice / "practice.db").st_mode), 0o600)

    def test_a_program_is_told_how_to_connect(self):
        practice = self.folder / "told"
        output = self.done("init", practice)
        for part in (f"ODBCSYSINI='{practice}'", f"ODBCINI='{practice}/odbc.ini'", "DB_InitDatabase"):
            self.assertIn(part, output)

    def test_the_printed_environment_suits_a_shell_whatever_the_name_of_the_folder(self):
        practice = self.folder / "it's $HOME; here"
        export = next(line for line in self.done("init", practice).splitlines() if "export" in line)
        printed = subprocess.run(["sh", "-c", f'{export}; echo "$ODBCSYSINI|$ODBCINI"'], capture_output=True,
                                 encoding="utf-8", check=True).stdout
        self.assertEqual(printed, f"{practice}|{practice}/odbc.ini\n")

    def test_folders_above_are_made_and_relative_names_taken(self):
        result = self.start("init", "one/two three/fünf", cwd=self.folder)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("patients", self.done("list", self.folder / "one/two three/fünf", "patients"))

    def test_a_practice_is_never_overwritten(self):
        practice = self.folder / "twice"
        self.done("init", practice)
        self.done("set", practice, "Kept", "yes")
        self.fails(1, "exists already; a practice is never overwritten", "init", practice)
        self.assertEqual(self.done("get", practice, "Kept"), "yes\n")

    def test_a_single_file_of_a_practice_is_not_overwritten_either(self):
        practice = self.folder / "alone"
        practice.mkdir()
        (practice / "odbc.ini").write_text("mine")
        self.fails(1, "odbc.ini exists already", "init", practice)
        self.assertEqual(os.listdir(practice), ["odbc.ini"])
        self.assertEqual((practice / "odbc.ini").read_text(), "mine")

    def test_a_folder_that_cannot_be_made_is_reported(self):
        (self.folder / "file").write_text("")
        self.fails(1, "cannot make", "init", self.folder / "file" / "practice")

    def test_a_practice_that_was_moved_is_not_mistaken_for_another(self):
        old, new = self.folder / "old", self.folder / "new"
        self.done("init", old)
        old.rename(new)
        self.fails(1, "instead of", "list", new, "patients")


class Sample(ToolCase):
    def test_the_practice_holds_what_the_program_says(self):
        self.done("init", self.practice)
        output = self.done("sample", self.practice, "--patients", 40)
        for what, name in (("patients", "TPatient"), ("images", "TImage"), ("makros", "TMakro"),
                           ("groups", "TGroup"), ("diagnoses", "TDiagnosis"), ("tests", "TTest")):
            self.assertIn(f"{self.value(f'SELECT COUNT(*) FROM {name}')} {what}", output)
        self.assertEqual(self.value("SELECT COUNT(*) FROM TPatient"), 40)
        self.assertEqual(self.value("SELECT COUNT(*) FROM TPatient WHERE tPatSName = ?", "O'Neil"), 1)

    def test_every_reference_points_to_a_row(self):
        practice = self.folder / "references"
        self.done("init", practice)
        self.done("sample", practice, "--patients", 30, "--seed", 9)
        for child, column, parent, key in (
                ("TPatient", "tPatCulIntDrIDFk", "TDoctor", "tDrCulIntDrIDPk"),
                ("TImage", "tImgCulIntPatIDFk", "TPatient", "tPatCulIntPatIDPk"),
                ("TImage", "tImgCulIntUnitIDFk", "TUnit", "tUnitCulIntUnitIDPk"),
                ("TMakro", "tMakCulIntImgIDFk", "TImage", "tImgCulIntImgIDPk"),
                ("TGroup", "tGrpCulIntPatIDFk", "TPatient", "tPatCulIntPatIDPk"),
                ("TDiagnosis", "tDiagCulIntImgIDFk", "TImage", "tImgCulIntImgIDPk"),
                ("TTest", "tTstCulIntUnitIDFk", "TUnit", "tUnitCulIntUnitIDPk"),
                ("TConfig", "tCfgCulIntStatIDFk", "TStation", "tStatCulIntStatIDPk")):
            self.assertEqual(self.value(f"SELECT COUNT(*) FROM {child} WHERE {column} NOT IN "
                                        f"(SELECT {key} FROM {parent})", practice=practice), 0, child)

    def test_the_same_seed_makes_the_same_rows(self):
        rows = []
        for name in ("first", "second"):
            self.done("init", self.folder / name)
            self.done("sample", self.folder / name, "--patients", 20, "--seed", 5)
            rows.append(self.query("SELECT tPatSName, tPatSFirstname, tPatDBirthday, tPatSSlidaID, "
                                   "tPatSSocID FROM TPatient ORDER BY 1, 2, 3", practice=self.folder / name))
        self.assertEqual(rows[0], rows[1])

    def test_a_practice_with_patients_is_not_filled_again(self):
        practice = self.folder / "again"
        self.done("init", practice)
        self.done("sample", practice, "--patients", 5)
        self.fails(1, "a sample fills an empty one only", "sample", practice, "--patients", 5)
        self.assertEqual(self.value("SELECT COUNT(*) FROM TPatient", practice=practice), 5)

    def test_senseless_numbers_of_patients_are_refused(self):
        for number in ("0", "-3", "many", "1000001"):
            self.fails(2, "--patients", "sample", self.practice, "--patients", number)


class Browsing(ToolCase):
    """list and show on a sample of 200 patients."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.done("init", cls.practice)
        cls.done("sample", cls.practice, "--patients", 200)

    def keys(self, *arguments):
        return [int(row["key"]) for row in table(self.done("list", self.practice, *arguments))]

    def expected(self, sql, *parameters):
        return [row[0] for row in self.query(sql, *parameters)]

    def test_a_filter_and_a_sort_order_give_the_rows_that_sqlite_gives(self):
        self.assertEqual(
            self.keys("patients", "--filter", "name like M%", "--sort", "name,-birthday", "--rows", 200),
            self.expected("SELECT tPatCulIntPatIDPk FROM TPatient WHERE tPatSName LIKE 'M%' "
                          "ORDER BY tPatSName, tPatDBirthday DESC"))

    def test_and_or_and_between_combine_as_in_sql(self):
        self.assertEqual(
            self.keys("patients", "--rows", 200, "--filter",
                      "birthday between 1950-01-01 and 1959-12-31 or name = 'O''Neil'"),
            self.expected("SELECT tPatCulIntPatIDPk FROM TPatient WHERE tPatDBirthday BETWEEN '1950-01-01' "
                          "AND '1959-12-31' OR tPatSName = 'O''Neil' ORDER BY 1"))

    def test_several_filters_must_all_hold(self):
        self.assertEqual(
            self.keys("patients", "--filter", "name >= M", "--filter", "firstname < M", "--rows", 200),
            self.expected("SELECT tPatCulIntPatIDPk FROM TPatient WHERE tPatSName >= 'M' AND "
                          "tPatSFirstname < 'M' ORDER BY 1"))

    def test_pages_follow_each_other_without_gaps(self):
        pages = [self.keys("patients", "--sort", "-key", "--rows", 90, "--page", page) for page in (1, 2, 3)]
        self.assertEqual([len(page) for page in pages], [90, 90, 20])
        self.assertEqual(sum(pages, []), list(range(200, 0, -1)))

    def test_a_page_says_where_it_stands(self):
        output = self.done("list", self.practice, "patients", "--rows", 90, "--page", 3)
        self.assertEqual(output.splitlines()[-1], "patients 181 to 200 of 200, page 3 of 3")

    def test_a_page_behind_the_last_one_is_not_found(self):
        self.fails(1, "there is no page 4; there are 3 pages of 90 rows",
                   "list", self.practice, "patients", "--rows", 90, "--page", 4)

    def test_no_rows_are_no_error(self):
        output = self.done("list", self.practice, "patients", "--filter", "name = Nobody")
        self.assertEqual(output.splitlines()[-1], "no patients")

    def test_the_view_names_the_doctors(self):
        rows = table(self.done("list", self.practice, "patients-doctor", "--filter", "doctor like Dr%",
                               "--rows", 200))
        names = dict(self.query("SELECT tPatCulIntPatIDPk, tDrSName FROM TPatient JOIN TDoctor "
                                "ON tDrCulIntDrIDPk = tPatCulIntDrIDFk WHERE tDrSName LIKE 'Dr%'"))
        self.assertEqual({int(row["key"]): row["doctor"] for row in rows}, names)

    def test_every_table_can_be_listed_and_its_first_row_shown(self):
        for plural, singular in (("patients", "patient"), ("patients-doctor", "patient-doctor"),
                                 ("doctors", "doctor"), ("images", "image"), ("makros", "makro"),
                                 ("groups", "group"), ("diagnoses", "diagnosis"), ("stations", "station"),
                                 ("units", "unit"), ("tests", "test"), ("settings", "setting")):
            with self.subTest(plural):
                self.assertEqual(self.keys(plural, "--rows", 1), [1])
                shown = self.done("show", self.practice, singular, 1)
                self.assertEqual(shown.splitlines()[0].split(), ["key", "1"])

    def test_every_field_of_every_table_can_be_filtered_and_sorted_by(self):
        for name in ("patients", "patients-doctor", "doctors", "images", "makros", "groups", "diagnoses",
                     "stations", "units", "tests", "settings"):
            words = self.start("list", self.practice, name, "--filter", "nothing = 1").stderr
            for word in words.strip().split("there are: ")[1].split(", "):
                with self.subTest(table=name, field=word):
                    arguments = ("list", self.practice, name, "--sort", f"-{word}", "--rows", 1, "--filter")
                    result = self.start(*arguments, f"{word} <> 2001-01-01")
                    if "is not a whole number" in result.stderr:
                        result = self.start(*arguments, f"{word} <> 1")
                    self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_columns_stand_under_each_other_whatever_the_script(self):
        lines = self.done("list", self.practice, "patients", "--rows", 15).splitlines()
        column = lines[0].index("birthday")
        for line in lines[2:-1]:
            self.assertRegex(on_screen(line)[column:], r"^\d{4}-\d\d-\d\d  ")
        self.assertIn("田中", "".join(lines))

    def test_a_row_is_shown_with_all_its_fields(self):
        shown = self.done("show", self.practice, "patient", 1)
        fields = dict(line.split(None, 1) for line in shown.splitlines() if len(line.split(None, 1)) == 2)
        row = self.query("SELECT tPatSName, tPatSFirstname, tPatDBirthday, tPatSSex, tPatSSlidaID, "
                         "tPatSSocID, tPatSIDDisp, tPatCulIntDrIDFk FROM TPatient "
                         "WHERE tPatCulIntPatIDPk = 1")[0]
        self.assertEqual(tuple(fields[title] for title in ("name", "firstname", "birthday", "sex", "slida-id",
                                                           "social-id", "display-id")), row[:-1])
        self.assertEqual(int(fields["doctor"]), row[-1])

    def test_lines_of_a_text_stand_below_each_other(self):
        shown = self.done("show", self.practice, "test", 1).splitlines()
        lines = self.value("SELECT tTstSResult FROM TTest WHERE tTstCulIntTstIDPk = 1").split("\n")
        start = next(i for i, line in enumerate(shown) if line.startswith("result"))
        self.assertEqual([line[18:] for line in shown[start:start + len(lines)]], lines)

    def test_a_row_that_is_not_there_is_not_found(self):
        for name, meaning, code in (("patient", "no such patient", 21), ("image", "no such image", 65),
                                    ("unit", "no such unit", 66), ("test", "no such test", 67),
                                    ("doctor", "no such row", 64), ("patient-doctor", "no such patient", 21)):
            self.fails(1, f"there is {meaning} (code {code})", "show", self.practice, name, 999999)

    def test_a_key_is_a_positive_number(self):
        for key in ("0", "-1", "x", "99999999999"):
            self.fails(2, "KEY", "show", self.practice, "patient", key)

    def test_an_unknown_table_is_answered_with_the_tables_there_are(self):
        self.fails(2, "there is no table 'dogs'; there are: patients, patients-doctor, doctors",
                   "list", self.practice, "dogs")
        self.fails(2, "there is no table 'dogs'", "show", self.practice, "dogs", 1)

    def test_a_bad_filter_or_sort_order_is_explained(self):
        for words, message in (("age = 5", "there is no field 'age' here; there are: birthday"),
                               ("name", "an operator"), ("birthday = yesterday", "is not a date"),
                               ("name = van der Berg", "texts with blanks need quotes"),
                               ("key = x", "is not a whole number")):
            self.fails(2, message, "list", self.practice, "patients", "--filter", words)
        self.fails(2, "there is no field 'age'", "list", self.practice, "patients", "--sort", "name,age")

    def test_senseless_pages_are_refused(self):
        self.fails(2, "--page", "list", self.practice, "patients", "--page", 0)
        self.fails(2, "--rows", "list", self.practice, "patients", "--rows", 0)

    def test_control_characters_of_the_database_do_not_reach_the_terminal(self):
        practice = self.folder / "control"
        self.done("init", practice)
        self.done("set", practice, "Evil", "\x1b[2Jtext")
        for output in (self.done("list", practice, "settings"), self.done("show", practice, "setting", 3)):
            self.assertNotIn("\x1b", output)
            self.assertIn("[2Jtext", output)


class Settings(ToolCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.done("init", cls.practice)
        cls.done("sample", cls.practice, "--patients", 1)

    def test_a_setting_is_stored_changed_and_removed(self):
        self.assertEqual(self.done("set", self.practice, "Colour", "blue"), "")
        self.assertEqual(self.done("get", self.practice, "Colour"), "blue\n")
        self.done("set", self.practice, "Colour", "dark 'green'")
        self.assertEqual(self.query("SELECT tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSSet FROM TConfig "
                                    "WHERE tCfgSKey = 'Colour'"), [(1, 1, "dark 'green'")])
        self.done("set", self.practice, "Colour", "")
        self.fails(1, "the station '-' has no setting 'Colour'", "get", self.practice, "Colour")

    def test_stations_have_settings_of_their_own(self):
        self.done("set", self.practice, "Side", "all")
        self.done("set", self.practice, "Side", "left", "--station", "X-ray 1")
        self.assertEqual(self.done("get", self.practice, "Side"), "all\n")
        self.assertEqual(self.done("get", self.practice, "Side", "--station", "X-ray 1"), "left\n")
        self.fails(1, "has no setting 'Side'", "get", self.practice, "Side", "--station", "Reception")

    def test_an_unknown_station_is_reported_and_nothing_stored(self):
        message = "looking for the station 'Attic'"
        self.fails(1, message, "set", self.practice, "Lost", "x", "--station", "Attic")
        self.fails(1, message, "get", self.practice, "Lost", "--station", "Attic")
        self.assertEqual(self.value("SELECT COUNT(*) FROM TConfig WHERE tCfgSKey = 'Lost'"), 0)

    def test_a_setting_that_equals_a_default_is_found(self):
        self.done("set", self.practice, "Dash", "-")
        self.assertEqual(self.done("get", self.practice, "Dash"), "-\n")

    def test_values_may_begin_with_a_minus(self):
        self.done("set", self.practice, "Offset", "-5")
        self.assertEqual(self.done("get", self.practice, "Offset"), "-5\n")

    def test_removing_what_is_not_there_is_reported(self):
        self.fails(1, "there is no such row (code 64)", "set", self.practice, "Nothing", "")

    def test_texts_that_would_be_cut_are_refused(self):
        self.fails(2, "the key is longer than 24 bytes", "set", self.practice, "k" * 25, "x")
        self.fails(2, "the value is longer than 128 bytes", "set", self.practice, "Long", "x" * 129)
        self.fails(2, "the key is empty", "get", self.practice, "")
        self.done("set", self.practice, "k" * 24, "x" * 128)
        self.assertEqual(self.done("get", self.practice, "k" * 24), "x" * 128 + "\n")


class CommandLine(ToolCase):
    def test_help_names_the_commands_and_the_exit_codes(self):
        output = self.done("--help")
        for part in ("init", "sample", "import", "export", "list", "show", "edit", "set", "get", "backup",
                     "restore", "copy", "bench", "doctor", "Exit codes: 0 done", "130 ended by Ctrl-C"):
            self.assertIn(part, output)
        self.assertIn("DIR", self.done("init", "--help"))
        for command in ("sample", "import", "export", "list", "show", "edit", "set", "get", "backup",
                        "restore", "bench"):
            help_text = self.done(command, "--help")
            for part in ("PRACTICE", "dsn:NAME", "--user", "--password-file", "--owner"):
                self.assertIn(part, help_text)

    def test_the_versions_of_the_library_and_of_its_interface_are_told(self):
        source = pathlib.Path(os.environ["KYODBC_SOURCE"])
        version = re.search(r"project\(KyODBC VERSION ([\d.]+)", (source / "CMakeLists.txt").read_text())[1]
        self.assertRegex(version, r"^1\.5\.\d+$")
        self.assertEqual(self.done("--version"),
                         f"kyodbc {version}\nlibrary with interface version 261 (0x0105)\n")

    def test_a_folder_takes_no_user_password_or_owner(self):
        practice = self.folder / "plain"
        self.done("init", practice)
        for option in ("--user", "--password-file", "--owner"):
            self.fails(2, "is a folder", "list", practice, "patients", option, "x")

    def test_names_too_long_for_a_connection_are_refused(self):
        self.fails(2, "the name of the data source is longer than 32 bytes", "get", "dsn:" + "x" * 33, "a")
        self.fails(2, "the owner is longer than 259 bytes", "get", "dsn:x", "a", "--owner", "x" * 260)

    def test_a_command_is_needed_and_must_exist(self):
        self.fails(2, "kyodbc: A subcommand is required; 'kyodbc --help' tells more")
        self.fails(2, "kyodbc: there is no command 'dance'; there are: init, sample, import", "dance")
        self.fails(2, "kyodbc: PRACTICE is required; 'kyodbc list --help' tells more", "list")
        self.fails(2, "'kyodbc --help' tells more", "--colour")

    def test_numbers_that_make_no_sense_are_told_with_those_that_do(self):
        for arguments in (("list", "x", "patients", "--page", "0"), ("show", "x", "patient", "zero"),
                          ("edit", "x", "patient", "99999999999", "name=x")):
            self.fails(2, "not in range 1 to 2147483647", *arguments)

    def test_with_json_a_command_line_that_makes_no_sense_is_told_as_json(self):
        printed = self.fails(2, "KEY is required", "show", "x", "patient", "--json")
        self.assertEqual(json.loads(printed)["error"]["exit_code"], 2)

    def test_a_practice_needs_a_name(self):
        self.fails(2, "the name of the folder is empty", "list", "", "patients")
        self.fails(2, "the name of the folder is empty", "init", "")
        self.fails(2, "the name of the data source is missing", "list", "dsn:", "patients")

    def test_a_data_source_that_cannot_be_reached_is_told_with_the_way_to_the_cause(self):
        self.fails(1, "(code 3); the database said: ", "list", "dsn:nowhere", "patients")
        self.fails(1, "'kyodbc doctor nowhere' looks for the cause", "list", "dsn:nowhere", "patients")

    def test_what_the_database_said_is_told(self):
        practice = self.folder / "without images"
        self.done("init", practice)
        connection = sqlite3.connect(practice / "practice.db")
        connection.executescript("DROP VIEW TImageRaw; DROP TABLE TImage")
        connection.close()
        self.fails(1, "; the database said: ", "list", practice, "images")
        self.fails(1, "no such table: TImage", "list", practice, "images")

    def test_a_folder_without_a_practice_is_reported_and_stays_as_it_is(self):
        empty = self.folder / "empty"
        empty.mkdir()
        for arguments in (("list", "patients"), ("show", "patient", 1), ("sample", "--patients", 3),
                          ("set", "a", "b"), ("get", "a")):
            command, rest = arguments[0], arguments[1:]
            self.fails(1, "there is no practice in", command, empty, *rest)
            self.fails(1, "there is no practice in", command, self.folder / "nowhere", *rest)
        self.assertEqual(os.listdir(empty), [])
        self.assertFalse((self.folder / "nowhere").exists())

    def test_a_file_that_is_no_database_is_reported(self):
        practice = self.folder / "broken"
        self.done("init", practice)
        (practice / "practice.db").write_bytes(b"no database" * 1000)
        self.fails(1, "(code ", "list", practice, "patients")

    def test_output_that_cannot_be_written_is_reported(self):
        self.done("init", self.practice)
        with open("/dev/full", "w") as full:
            result = subprocess.run([TOOL, "list", self.practice, "doctors"], stdout=full,
                                    stderr=subprocess.PIPE, encoding="utf-8")
        self.assertEqual(result.returncode, 1)
        self.assertIn("cannot write the output", result.stderr)


if __name__ == "__main__":
    unittest.main()
