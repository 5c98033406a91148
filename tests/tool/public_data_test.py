#!/usr/bin/env python3
"""Imports the public CSV files beside the project, if they are there, and compares every field with what
SQLite reads back. The folder is in KYODBC_PUBLIC_DATA."""
import csv
import os
import pathlib
import sys
import unittest

from tool_case import ToolCase

DATA = pathlib.Path(os.environ["KYODBC_PUBLIC_DATA"])
FILES = {"doctors": DATA / "providers.csv", "patients": DATA / "patients.csv",
         "images": DATA / "imaging_studies.csv"}


def rows(what):
    with open(FILES[what], encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def cut(text, width):
    """As much of a text as a record's field takes, without splitting a character."""
    return text.encode()[:width].decode(errors="ignore")


class PublicData(ToolCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.done("init", cls.practice)
        cls.arguments = ["import", cls.practice]
        for what, file in FILES.items():
            cls.arguments += ["--" + what, file]
        cls.output = cls.done(*cls.arguments)

    def counts(self):
        return [self.value(f"SELECT COUNT(*) FROM {name}") for name in ("TDoctor", "TPatient", "TImage")]

    def test_no_line_is_rejected(self):
        for what in FILES:
            self.assertIn(f"{what}: {len(rows(what))} added, 0 updated, 0 lines rejected", self.output)

    def test_every_field_of_the_doctors_arrived(self):
        self.assertEqual(
            sorted(self.query("SELECT tDrSSrvID, tDrSName FROM TDoctor WHERE tDrCulIntDrIDPk > 1")),
            sorted((row["Id"], row["NAME"]) for row in rows("doctors")))

    def test_every_field_of_the_patients_arrived(self):
        sexes = {"M": "m", "F": "f"}
        self.assertEqual(
            sorted(self.query("SELECT tPatSSrvID, tPatSName, tPatSFirstname, tPatDBirthday, tPatSSex, "
                              "tPatSSocID FROM TPatient")),
            sorted((row["Id"], row["LAST"], row["FIRST"], row["BIRTHDATE"], sexes[row["GENDER"]], row["SSN"])
                   for row in rows("patients")))

    def test_every_field_of_the_images_arrived(self):
        self.assertEqual(
            sorted(self.query("SELECT tImgSFile, tPatSSrvID, substr(tImgTs, 1, 19), tImgSRegio, tImgSType "
                              "FROM TImage JOIN TPatient ON tPatCulIntPatIDPk = tImgCulIntPatIDFk")),
            sorted((row["Id"], row["PATIENT"], row["DATE"].replace("T", " ").rstrip("Z"),
                    cut(row["BODYSITE_DESCRIPTION"], 16), row["MODALITY_CODE"])
                   for row in rows("images")))

    def test_importing_again_doubles_nothing(self):
        before = self.counts()
        output = self.done(*self.arguments)
        for what in FILES:
            self.assertIn(f"{what}: 0 added, {len(rows(what))} updated, 0 lines rejected", output)
        self.assertEqual(self.counts(), before)


if __name__ == "__main__":
    if not all(file.is_file() for file in FILES.values()):
        print(f"left out: the public data is not in {DATA}")
        sys.exit(0)
    unittest.main()
