#!/usr/bin/env python3
"""Imports the public CSV files beside the project, if they are there, and compares every field with what the
databases' own programs read back. Usage: public_data_test.py Import|Everywhere

The folder of the files is in KYODBC_PUBLIC_DATA. Import uses the database that KYODBC_TEST_DB names,
Everywhere all of them.
"""
import csv
import os
import pathlib
import sys
import unittest

import doctor_kinds
from source_case import SourceCase

DATA = pathlib.Path(os.environ["KYODBC_PUBLIC_DATA"])
FILES = {"doctors": DATA / "providers.csv", "patients": DATA / "patients.csv",
         "images": DATA / "imaging_studies.csv"}
TABLES = ("TDoctor", "TPatient", "TImage")


def rows(what):
    with open(FILES[what], encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def cut(text, width):
    """As much of a text as a record's field takes, without splitting a character."""
    return text.encode()[:width].decode(errors="ignore")


class PublicData(SourceCase):
    @classmethod
    def load(cls, kind):
        """Imports all files and gives what the program prints."""
        name, *login = cls.source(kind)
        return cls.done("import", name, *login, *(part for what, file in FILES.items()
                                                  for part in ("--" + what, file)))


class Import(PublicData):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.kind = doctor_kinds.current()
        cls.make(cls.kind)
        cls.output = cls.load(cls.kind)

    def read(self, sql):
        return sorted(self.rows(self.kind, sql))

    def counts(self):
        return [self.read(f"SELECT COUNT(*) FROM {name}") for name in TABLES]

    def test_no_line_is_rejected(self):
        for what in FILES:
            self.assertIn(f"{what}: {len(rows(what))} added, 0 updated, 0 lines rejected", self.output)

    def test_every_field_of_the_doctors_arrived(self):
        self.assertEqual(self.read("SELECT tDrSSrvID, tDrSName FROM TDoctor WHERE tDrCulIntDrIDPk > 1"),
                         sorted((row["Id"], row["NAME"]) for row in rows("doctors")))

    def test_every_field_of_the_patients_arrived(self):
        sexes = {"M": "m", "F": "f"}
        self.assertEqual(
            self.read("SELECT tPatSSrvID, tPatSName, tPatSFirstname, tPatDBirthday, tPatSSex, tPatSSocID "
                      "FROM TPatient"),
            sorted((row["Id"], row["LAST"], row["FIRST"], row["BIRTHDATE"], sexes[row["GENDER"]], row["SSN"])
                   for row in rows("patients")))

    def test_every_field_of_the_images_arrived(self):
        self.assertEqual(
            self.read("SELECT tImgSFile, tPatSSrvID, tImgTs, tImgSRegio, tImgSType FROM TImage "
                      "JOIN TPatient ON tPatCulIntPatIDPk = tImgCulIntPatIDFk"),
            sorted((row["Id"], row["PATIENT"], row["DATE"].replace("T", " ").rstrip("Z"),
                    cut(row["BODYSITE_DESCRIPTION"], 16), row["MODALITY_CODE"])
                   for row in rows("images")))

    def test_importing_again_doubles_nothing(self):
        before = self.counts()
        output = self.load(self.kind)
        for what in FILES:
            self.assertIn(f"{what}: 0 added, {len(rows(what))} updated, 0 lines rejected", output)
        self.assertEqual(self.counts(), before)


class Everywhere(PublicData):
    """Every column of every row, keys included, is the same on all databases."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.kinds = [kind() for kind in doctor_kinds.KINDS.values()]
        for kind in cls.kinds:
            cls.make(kind)
            cls.load(kind)

    def columns(self, name):
        sqlite = doctor_kinds.Sqlite()
        return [column for column, in self.rows(sqlite, f"SELECT name FROM pragma_table_info('{name}')")]

    def dump(self, kind, name, columns):
        """The day of entry is that of the import, also where it stands for the last display."""
        read = [dict(zip(columns, row))
                for row in self.rows(kind, f"SELECT {', '.join(columns)} FROM {name} ORDER BY 1")]
        for row in read:
            entry = row.pop("tPatDEntry", None)
            if entry and row["tPatTsLastDisp"] == entry + " 00:00:00":
                row["tPatTsLastDisp"] = "the day of entry"
        return read

    def test_all_rows_are_the_same(self):
        for name in TABLES:
            columns = self.columns(name)
            first, *others = [self.dump(kind, name, columns) for kind in self.kinds]
            self.assertGreater(len(first), len(FILES))
            for kind, other in zip(self.kinds[1:], others):
                self.assertEqual(first, other, f"{name} on {kind.name}")


if __name__ == "__main__":
    if not all(file.is_file() for file in FILES.values()):
        print(f"left out: the public data is not in {DATA}")
        sys.exit(0)
    unittest.main()
