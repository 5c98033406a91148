#!/usr/bin/env python3
"""The companion program on a data source, on the database that KYODBC_TEST_DB names."""
import datetime
import re
import unittest

import doctor_kinds
from source_case import SourceCase
from tool_case import table

PATIENTS = 12


class DataSource(SourceCase):
    """A sample in a folder and the same one in the data source."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.kind = doctor_kinds.current()
        cls.make(cls.kind)
        name, *login = cls.source(cls.kind)
        cls.name, cls.login = name, login
        cls.done("init", cls.practice)
        days = [str(datetime.date.today())]
        cls.done("sample", cls.practice, "--patients", PATIENTS)
        cls.done("sample", name, "--patients", PATIENTS, *login)
        days.append(str(datetime.date.today()))
        cls.stamp = re.compile(f"(?:{'|'.join(days)})(?: [0-9]{{2}}:[0-9]{{2}}:[0-9]{{2}})?")

    def owner(self):
        return self.kind.owner or self.databases[self.kind.name] + "."

    def both(self, command, *arguments):
        """What the program prints for the data source; it must print the same for the folder, but for the
        times at which the library stored the rows."""
        printed = self.done(command, self.name, *arguments, *self.login)
        in_folder = self.done(command, self.practice, *arguments)
        self.assertEqual(self.stamp.sub("now", printed), self.stamp.sub("now", in_folder))
        return printed

    def test_a_sample_is_the_same_on_every_database(self):
        self.assertEqual(len(table(self.both("list", "patients"))), PATIENTS)
        for name in ("images", "makros", "groups", "diagnoses", "tests", "units", "doctors", "stations"):
            self.assertGreater(len(table(self.both("list", name))), 1)

    def test_a_row_is_shown(self):
        self.both("show", "patient", 3)
        self.both("show", "test", 1)

    def test_lists_are_filtered_and_sorted(self):
        printed = self.both("list", "patients", "--filter", "birthday >= 1950-01-01", "--sort",
                            "-birthday,key", "--rows", 5)
        self.assertIn("patients 1 to ", printed)

    def test_settings_are_stored_and_read(self):
        text = "O'Neil \\ \"Zoë\" 100%"
        self.done("set", self.name, "Source", text, *self.login)
        self.assertEqual(self.done("get", self.name, "Source", *self.login), text + "\n")
        self.assertEqual(self.rows(self.kind, "SELECT tCfgSSet FROM TConfig WHERE tCfgSKey = 'Source'"),
                         [(text,)])

    def load(self, lines, *arguments):
        """A command line that imports patients, who are gone after the test."""
        file = self.folder / "patients.csv"
        file.write_bytes(b"Id,BIRTHDATE,SSN,FIRST,LAST,GENDER\n" + lines)
        self.addCleanup(self.kind.execute, self.databases[self.kind.name],
                        "DELETE FROM TPatient WHERE tPatSSrvID LIKE 'm-%'")
        return ["import", self.name, "--patients", file, *arguments, *self.login]

    def loaded(self):
        return self.rows(self.kind, "SELECT tPatSSrvID, tPatSFirstname, tPatSName, tPatDBirthday "
                                    "FROM TPatient WHERE tPatSSrvID LIKE 'm-%' ORDER BY 1")

    def test_bad_lines_of_a_file_leave_the_good_ones(self):
        printed = self.fails(1, "3 lines were rejected", *self.load(
            b"m-1,1960-02-29,1,Zo\xc3\xab,O'Neil,F\n"
            b"m-2,1961-02-29,2,No,Such Day,F\n"
            b"m-3,1962-01-01,3,No,Utf\xff8,F\n"
            b"m-4,0000-00-00,4,No,Year,F\n"
            b'm-5,1964-01-01,5,"Back\\slash",100%,X\n'))
        self.assertIn("patients: 2 added, 0 updated, 3 lines rejected", printed)
        self.assertEqual(self.loaded(), [("m-1", "Zoë", "O'Neil", "1960-02-29"),
                                         ("m-5", "Back\\slash", "100%", "1964-01-01")])

    def test_a_patient_whom_two_rows_claim_does_not_stop_the_import(self):
        arguments = self.load(b"m-1,1960-01-01,1,New,Name,F\nm-2,1961-01-01,2,Ann,Other,F\n")
        for name in ("First", "Second"):
            self.kind.execute(self.databases[self.kind.name],
                              f"INSERT INTO TPatient (tPatSSrvID, tPatSName) VALUES ('m-1', '{name}')")
        self.assertIn("1 added, 0 updated, 1 lines rejected", self.fails(1, "1 lines were", *arguments))
        self.assertEqual([row[0] for row in self.loaded()], ["m-1", "m-1", "m-2"])
        self.assertEqual({row[2] for row in self.loaded()}, {"First", "Second", "Other"})

    def test_an_owner_is_told_to_the_import_too(self):
        self.done(*self.load(b"m-1,1960-01-01,1,Ann,Owner,F\n", "--owner", self.owner()))
        self.assertEqual(self.loaded(), [("m-1", "Ann", "Owner", "1960-01-01")])

    def test_an_owner_stands_before_the_tables(self):
        self.assertEqual(self.done("list", self.name, "patients", "--owner", self.owner(), *self.login),
                         self.done("list", self.name, "patients", *self.login))
        self.fails(1, "opening the patients", "list", self.name, "patients", "--owner", "nowhere.",
                   *self.login)

    def test_a_data_source_that_is_not_there_is_reported(self):
        self.fails(1, "connecting to dsn:nowhere", "list", "dsn:nowhere", "patients")

    def test_a_password_may_come_from_a_file(self):
        good, bad = self.folder / "good", self.folder / "bad"
        good.write_text(doctor_kinds.PASSWORD + "\n")
        bad.write_text("wrong\n")
        arguments = ["list", self.name, "patients", *self.login, "--password-file"]
        self.done(*arguments, good)
        if self.kind.user:
            self.fails(1, "connecting to dsn:", *arguments, bad)
        self.fails(1, "cannot read a password", *arguments, self.folder / "none")


if __name__ == "__main__":
    unittest.main()
