#!/usr/bin/env python3
"""Rows written out and changed by the companion program, read past it by SQLite."""
import csv
import io
import json
import os
import stat
import unittest

from tool_case import ToolCase

NASTY = 'O\'Neil, "Zoë"\t\\ 100%\nnext line'


class Rows(ToolCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.done("init", cls.practice)
        cls.done("sample", cls.practice, "--patients", 40)

    def edit(self, *arguments):
        return self.done("edit", self.practice, *arguments, "--yes")


class Export(Rows):
    def csv(self, *arguments):
        return list(csv.DictReader(io.StringIO(self.done("export", self.practice, *arguments), newline="")))

    def test_csv_has_all_fields_of_the_rows_that_the_filter_finds_in_the_order_asked_for(self):
        rows = self.csv("patients", "--filter", "name >= M", "--sort", "-name,key")
        expected = self.query("SELECT tPatCulIntPatIDPk, tPatSName, tPatSFirstname, tPatDBirthday, "
                              "tPatSSocID FROM TPatient WHERE tPatSName >= 'M' ORDER BY tPatSName DESC, 1")
        self.assertEqual([(int(row["key"]), row["name"], row["firstname"], row["birthday"], row["social-id"])
                          for row in rows], expected)
        self.assertGreater(len(rows), 5)

    def test_json_has_numbers_texts_and_null(self):
        rows = json.loads(self.done("export", self.practice, "images", "--format", "json"))
        expected = self.query("SELECT tImgCulIntImgIDPk, tImgCulIntPatIDFk, tImgSType FROM TImage ORDER BY 1")
        self.assertEqual([(row["key"], row["patient"], row["type"]) for row in rows], expected)
        dates = self.query("SELECT tImgDArcIn FROM TImage ORDER BY tImgCulIntImgIDPk")
        self.assertEqual([(row["archive-in"],) for row in rows], dates)
        self.assertIn((None,), dates)
        self.assertEqual(json.loads(self.done("export", self.practice, "images", "--json")), rows)

    def test_any_text_survives_either_form(self):
        self.edit("test", 1, f"result={NASTY}")
        self.assertEqual(self.csv("tests", "--filter", "key = 1")[0]["result"], NASTY)
        rows = json.loads(self.done("export", self.practice, "tests", "--format", "json"))
        self.assertEqual(rows[0]["result"], NASTY)

    def test_no_rows_are_a_head_or_an_empty_list(self):
        self.assertEqual(self.csv("patients", "--filter", "name = Nobody"), [])
        self.assertEqual(self.done("export", self.practice, "stations", "--filter", "name = Nowhere"),
                         "key,name\n")
        nothing = self.done("export", self.practice, "stations", "--filter", "name = Nowhere", "--json")
        self.assertEqual(json.loads(nothing), [])

    def test_a_file_is_private_whole_and_never_overwritten(self):
        file = self.folder / "patients.csv"
        said = self.done("export", self.practice, "patients", "--output", file)
        self.assertEqual(said, f"40 patients in {file}\n")
        self.assertEqual(stat.S_IMODE(os.stat(file).st_mode), 0o600)
        self.assertEqual(file.read_text(), self.done("export", self.practice, "patients"))
        self.fails(1, "exists already", "export", self.practice, "patients", "--output", file)
        self.assertEqual([name for name in os.listdir(self.folder) if name.endswith(".part")], [])

    def test_a_file_that_cannot_be_made_is_reported(self):
        self.fails(1, "cannot make", "export", self.practice, "doctors", "--output", "/nowhere/doctors.csv")

    def test_senseless_command_lines_are_refused(self):
        self.fails(2, "--format", "export", self.practice, "patients", "--format", "xml")
        self.fails(2, "there is no table 'dogs'", "export", self.practice, "dogs")
        self.fails(2, "exclude each other", "export", self.practice, "patients", "--json", "--format", "csv")


class Edit(Rows):
    def test_the_fields_given_are_written_and_no_others(self):
        columns = "tPatSSocID, tPatSSlidaID, tPatDEntry, tPatSSex, tPatCulIntDrIDFk, tPatSAdd"
        before = self.query(f"SELECT {columns} FROM TPatient WHERE tPatCulIntPatIDPk = 5")
        self.edit("patient", 5, "name=Fünf", "firstname=Zoë", "birthday=1960-02-29")
        self.assertEqual(self.query("SELECT tPatSName, tPatSFirstname, tPatDBirthday FROM TPatient "
                                    "WHERE tPatCulIntPatIDPk = 5"), [("Fünf", "Zoë", "1960-02-29")])
        self.assertEqual(self.query(f"SELECT {columns} FROM TPatient WHERE tPatCulIntPatIDPk = 5"), before)

    def test_keys_numbers_and_times_are_written(self):
        self.edit("image", 3, "doctor=2", "time=2001-05-06 10:00:00", f"name={NASTY}")
        self.assertEqual(self.query("SELECT tImgCulIntDrIDFk, tImgTs, tImgSName FROM TImage "
                                    "WHERE tImgCulIntImgIDPk = 3"), [(2, "2001-05-06 10:00:00", NASTY)])
        self.edit("group", 1, "makros=7")
        self.assertEqual(self.value("SELECT tGrpUwMakNo FROM TGroup WHERE tGrpCulIntGrpIDPk = 1"), 7)

    def test_every_field_of_every_table_that_can_be_changed_is(self):
        for name in ("patient", "doctor", "image", "makro", "group", "diagnosis", "station", "unit", "test",
                     "setting"):
            rows = json.loads(self.done("list", self.practice, name, "--json"))["rows"]
            row = rows[-1]
            for field, value in row.items():
                new = {int: "2", str: "m", type(None): "2001-05-06"}[type(value)]
                if isinstance(value, str) and value[4:5] == "-" and value[7:8] == "-":
                    new = "2001-05-06"
                if field == "selected":
                    new = "1"  # yes or no
                with self.subTest(table=name, field=field):
                    result = self.start("edit", self.practice, name, row["key"], f"{field}={new}", "--yes",
                                        "--json")
                    if result.returncode == 2:
                        self.assertIn("cannot be changed", result.stderr)
                        self.assertIn(field, ("key", "entry", "display-id", "last-display", "date"))
                    else:
                        self.assertEqual((result.returncode, result.stderr), (0, ""))
                        after = json.loads(result.stdout)["after"][field]
                        self.assertEqual(str(after)[:10], new)

    def test_before_and_after_are_told(self):
        name = self.value("SELECT tPatSName FROM TPatient WHERE tPatCulIntPatIDPk = 6")
        self.assertEqual(self.edit("patient", 6, "name=After"),
                         f"patient 6\nname\n  - {name}\n  + After\nchanged\n")
        self.assertEqual(self.edit("patient", 6, "name=After"), "nothing to change\n")

    def test_what_makes_no_sense_is_refused_and_changes_nothing(self):
        before = self.query("SELECT * FROM TPatient")
        for change, message in (("age=5", "has no field 'age'; there are: key, name"),
                                ("name", "FIELD=VALUE"),
                                ("key=9", "cannot be changed"), ("entry=2001-01-01", "cannot be changed"),
                                ("birthday=1961-02-29", "is not a date"),
                                ("birthday=1961-02-28 10:00:00", "is not a date"),
                                ("doctor=many", "is not a whole number"), ("doctor=99999999999", "32 bits"),
                                ("name=" + "x" * 300, "is longer than")):
            self.fails(2, message, "edit", self.practice, "patient", 1, change, "--yes")
        self.fails(2, "'name' is given more than once", "edit", self.practice, "patient", 1, "name=a",
                   "name=b", "--yes")
        self.fails(2, "joined", "edit", self.practice, "patient-doctor", 1, "name=x", "--yes")
        self.fails(1, "no such patient", "edit", self.practice, "patient", 99999, "name=x", "--yes")
        self.assertEqual(self.query("SELECT * FROM TPatient"), before)

    def test_protected_rows_stay_as_they_are(self):
        self.fails(1, "protected", "edit", self.practice, "doctor", 1, "name=Somebody", "--yes")
        self.assertEqual(self.value("SELECT tDrSName FROM TDoctor WHERE tDrCulIntDrIDPk = 1"), "-")


class JsonEverywhere(Rows):
    def document(self, *arguments):
        return json.loads(self.done(*arguments, "--json"))

    def test_every_command_prints_one_document(self):
        practice = self.folder / "json"
        self.assertEqual(self.document("init", practice)["environment"]["ODBCSYSINI"], str(practice))
        self.assertEqual(self.document("sample", practice, "--patients", 3)["patients"], 3)
        file = self.folder / "doctors.csv"
        file.write_text("Id,NAME\nd-1,Ann\nd-2,-\n")
        result = self.start("import", practice, "--doctors", file, "--json")
        self.assertEqual(result.returncode, 1)
        (report,) = json.loads(result.stdout)
        self.assertEqual((report["added"], [row["line"] for row in report["rejected"]]), (1, [3]))
        listed = self.document("list", practice, "patients", "--rows", 2)
        self.assertEqual((listed["count"], listed["pages"], len(listed["rows"])), (3, 2, 2))
        self.assertEqual(self.document("show", practice, "patient", 2), listed["rows"][1])
        self.assertEqual(self.document("set", practice, "Side", "left")["value"], "left")
        self.assertEqual(self.document("get", practice, "Side"),
                         {"station": "-", "key": "Side", "value": "left"})
        self.assertEqual(self.document("edit", practice, "patient", 2, "name=New", "--yes")["after"]["name"],
                         "New")
        self.assertEqual(len(self.document("bench", practice, "--rounds", 1)), 11)

    def test_the_doctor_prints_one_document_too(self):
        files = {"ODBCSYSINI": str(self.practice), "ODBCINI": str(self.practice / "odbc.ini")}
        type(self).environment = files
        report = self.document("doctor", "practice")
        self.assertEqual((report["source"], report["findings"]), ("practice", []))
        self.assertIn("schema version 4.0", report["facts"])

    def test_a_failure_is_a_document_too_and_its_message_goes_to_standard_error(self):
        result = self.start("show", self.practice, "patient", 99999, "--json")
        self.assertEqual(result.returncode, 1)
        error = json.loads(result.stdout)["error"]
        self.assertEqual(error["exit_code"], 1)
        self.assertIn("no such patient (code 21)", error["message"])
        self.assertIn(error["message"], result.stderr)


class Bench(Rows):
    def test_every_table_is_measured_and_nothing_changed(self):
        before = self.query("SELECT * FROM TPatient")
        lines = self.done("bench", self.practice, "--rounds", 2).splitlines()
        self.assertEqual(len(lines), 2 + 11)
        self.assertRegex(lines[2], r"^patients +40 +\d+\.\d\d +\d+\.\d +\d+\.\d$")
        self.assertEqual(self.query("SELECT * FROM TPatient"), before)

    def test_an_empty_practice_can_be_measured(self):
        practice = self.folder / "empty"
        self.done("init", practice)
        self.assertRegex(self.done("bench", practice, "--rounds", 1), r"(?m)^images +0 +\d+\.\d\d +- +-$")


if __name__ == "__main__":
    unittest.main()
