#!/usr/bin/env python3
"""Importing CSV files: every field is read back by SQLite, every bad line is named."""
import os
import sqlite3
import subprocess
import unittest

from tool_case import ToolCase

PATIENTS = "Id,BIRTHDATE,SSN,FIRST,LAST,GENDER\n"
IMAGES = "Id,DATE,PATIENT,BODYSITE_DESCRIPTION,MODALITY_CODE\n"


class Import(ToolCase):
    def setUp(self):
        self.practice = self.folder / self.id().rpartition(".")[2]
        self.done("init", self.practice)

    def file(self, name, text):
        path = self.folder / name
        path.write_bytes(text if isinstance(text, bytes) else text.encode())
        return path

    def patients(self, text):
        return self.file("patients.csv", PATIENTS + text)

    def images(self, text):
        return self.file("images.csv", IMAGES + text)

    def test_fields_of_patients_arrive_whole(self):
        self.done("import", self.practice, "--patients",
                  self.patients('p-1,1960-02-29,999-12-3456,"Zoë ""Z""",O\'Neil,F\n'
                                "p-2,2001-01-31,,José,Müller,M\n"
                                "p-3,1999-12-31,1,,\"Back\\slash, 100%\",X\n"))
        self.assertEqual(
            self.query("SELECT tPatSSrvID, tPatDBirthday, tPatSSocID, tPatSFirstname, tPatSName, tPatSSex, "
                       "tPatCulIntDrIDFk FROM TPatient ORDER BY 1"),
            [("p-1", "1960-02-29", "999-12-3456", 'Zoë "Z"', "O'Neil", "f", 1),
             ("p-2", "2001-01-31", "", "José", "Müller", "m", 1),
             ("p-3", "1999-12-31", "1", "", "Back\\slash, 100%", "-", 1)])

    def test_columns_are_found_by_name_and_others_left_out(self):
        self.done("import", self.practice, "--doctors",
                  self.file("doctors.csv", "X,NAME,Id\n1,Dr. Who,d-1\n"))
        self.assertEqual(self.query("SELECT tDrSName, tDrSSrvID FROM TDoctor WHERE tDrCulIntDrIDPk > 1"),
                         [("Dr. Who", "d-1")])

    def test_rows_imported_again_are_updated_not_doubled(self):
        self.done("import", self.practice, "--patients", self.patients("p-1,1960-01-01,1,Ann,Old,F\n"))
        key = self.value("SELECT tPatCulIntPatIDPk FROM TPatient")
        output = self.done("import", self.practice, "--patients",
                           self.patients("p-1,1961-02-02,2,Anna,New,M\n"))
        self.assertEqual(output, "patients: 0 added, 1 updated, 0 lines rejected\n")
        self.assertEqual(
            self.query("SELECT tPatCulIntPatIDPk, tPatDBirthday, tPatSSocID, tPatSFirstname, tPatSName, "
                       "tPatSSex FROM TPatient"), [(key, "1961-02-02", "2", "Anna", "New", "m")])

    def test_what_the_files_do_not_tell_stays_as_it_was(self):
        file = self.patients("p-1,1960-01-01,1,Ann,Old,F\n")
        self.done("import", self.practice, "--patients", file)
        connection = sqlite3.connect(self.practice / "practice.db")
        connection.execute("UPDATE TPatient SET tPatCulIntDrIDFk = 7, tPatSSlidaID = 'S1', tPatFSelect = 1")
        connection.commit()
        connection.close()
        self.done("import", self.practice, "--patients", file)
        self.assertEqual(self.query("SELECT tPatCulIntDrIDFk, tPatSSlidaID, tPatFSelect FROM TPatient"),
                         [(7, "S1", 1)])

    def test_an_id_twice_in_one_file_makes_one_row(self):
        output = self.done("import", self.practice, "--patients",
                           self.patients("p-1,1960-01-01,1,Ann,Old,F\np-1,1960-01-01,1,Ann,New,F\n"))
        self.assertEqual(output, "patients: 1 added, 1 updated, 0 lines rejected\n")
        self.assertEqual(self.query("SELECT tPatSName FROM TPatient"), [("New",)])

    def test_images_find_their_patients_and_bring_the_last_display_up_to_date(self):
        self.done("import", self.practice, "--images", self.images("i-1,2020-03-04T05:06:07Z,p-1,Knee,DX\n"),
                  "--patients", self.patients("p-1,1960-01-01,1,Ann,Old,F\n"))
        self.assertEqual(
            self.query("SELECT tImgCulIntPatIDFk, substr(tImgTs, 1, 19), tImgSRegio, tImgSType, tImgSFile "
                       "FROM TImage"), [(1, "2020-03-04 05:06:07", "Knee", "DX", "i-1")])
        self.assertEqual(self.value("SELECT substr(tPatTsLastDisp, 1, 19) FROM TPatient"),
                         "2020-03-04 05:06:07")

    def test_images_of_one_second_are_all_kept_also_when_imported_again(self):
        rows = "".join(f"i-{n},2020-03-04T23:59:59Z,p-1,Site {n},DX\n" for n in range(3))
        arguments = ("import", self.practice, "--patients", self.patients("p-1,1960-01-01,1,Ann,Old,F\n"),
                     "--images", self.images(rows))
        self.done(*arguments)
        for _ in range(2):
            self.assertEqual(self.query("SELECT tImgSFile, substr(tImgTs, 1, 19), tImgSRegio FROM TImage "
                                        "ORDER BY 1"),
                             [(f"i-{n}", "2020-03-04 23:59:59", f"Site {n}") for n in range(3)])
            self.done(*arguments)

    def test_an_image_that_moves_to_the_second_of_another_replaces_nothing(self):
        patients = self.patients("p-1,1960-01-01,1,Ann,Old,F\n")
        self.done("import", self.practice, "--patients", patients, "--images",
                  self.images("i-1,2020-01-01T10:00:00Z,p-1,A,DX\ni-2,2020-01-01T11:00:00Z,p-1,B,DX\n"))
        self.done("import", self.practice, "--images", self.images("i-2,2020-01-01T10:00:00Z,p-1,B,CR\n"))
        self.assertEqual(self.query("SELECT tImgSFile, substr(tImgTs, 12, 8), tImgSType FROM TImage "
                                    "ORDER BY 1"),
                         [("i-1", "10:00:00", "DX"), ("i-2", "10:00:00", "CR")])

    def test_rejected_lines_are_named_with_their_reason_and_the_others_stored(self):
        file = self.patients("p-1,1960-01-01,1,Ann,Good,F\n"
                             "p-2,1960-02-30,1,Ann,Bad,F\n"
                             ",1960-01-01,1,Ann,Bad,F\n"
                             "p-4,1960-01-01,1,\"Ann\nMary\",,F\n"
                             "p-5,1960-01-01,1,Ann\n"
                             + "p" * 65 + ",1960-01-01,1,Ann,Bad,F\n"
                             + "p-7,,1,Ann,Bad,F\n"
                             "p-8,1960-01-01,1,Ann,Good,F\n")
        output = self.fails(1, "6 lines were rejected", "import", self.practice, "--patients", file)
        self.assertEqual(output.splitlines(), [
            "patients: 2 added, 0 updated, 6 lines rejected",
            f"  {file}:3: BIRTHDATE '1960-02-30' is no date",
            f"  {file}:4: Id is empty",
            f"  {file}:5: LAST is empty",
            f"  {file}:7: 4 fields instead of 6",
            f"  {file}:8: Id is longer than 64 bytes",
            f"  {file}:9: BIRTHDATE is empty"])
        self.assertEqual(self.query("SELECT tPatSSrvID FROM TPatient ORDER BY 1"), [("p-1",), ("p-8",)])

    def test_an_image_of_an_unknown_patient_is_rejected(self):
        output = self.fails(1, "1 lines were rejected", "import", self.practice, "--images",
                            self.images("i-1,2020-03-04T05:06:07Z,p-9,Knee,DX\n"))
        self.assertIn("images.csv:2: p-9: there is no such patient", output)
        self.assertEqual(self.value("SELECT COUNT(*) FROM TImage"), 0)

    def test_texts_not_in_utf8_and_unclosed_quotes_are_rejected(self):
        file = self.file("patients.csv", (PATIENTS + "p-1,1960-01-01,1,Ann,M").encode() + b"\xfcller,F\n"
                         + b"p-2,1960-01-01,1,Ann,\"Open,F\np-3,1960-01-01,1,Ann,Lost,F\n")
        output = self.fails(1, "2 lines were rejected", "import", self.practice, "--patients", file)
        self.assertIn(":2: a text that is not UTF-8", output)
        self.assertIn(":3: a quote that is never closed", output)

    def test_texts_longer_than_their_fields_are_cut_at_a_character_and_counted(self):
        output = self.done("import", self.practice, "--patients",
                           self.patients(f"p-1,1960-01-01,1,{'é' * 20},{'n' * 31}ü,F\n"))
        self.assertEqual(output, "patients: 1 added, 0 updated, 0 lines rejected, "
                                 "2 texts cut to the width of their fields\n")
        self.assertEqual(self.query("SELECT tPatSFirstname, tPatSName FROM TPatient"), [("é" * 16, "n" * 31)])

    def test_line_ends_of_windows_a_byte_order_mark_and_a_missing_last_line_end_are_taken(self):
        text = (PATIENTS + "p-1,1960-01-01,1,Ann,Old,F").replace("\n", "\r\n").encode()
        self.done("import", self.practice, "--patients", self.file("patients.csv", b"\xef\xbb\xbf" + text))
        self.assertEqual(self.query("SELECT tPatSName, tPatSSex FROM TPatient"), [("Old", "f")])

    def test_doctors_without_a_name_or_with_that_of_the_default_row_are_rejected(self):
        output = self.fails(1, "2 lines were rejected", "import", self.practice, "--doctors",
                            self.file("doctors.csv", "Id,NAME\nd-1,\nd-2,-\nd-3,Dr. Yes\n"))
        self.assertIn(":2: NAME is empty", output)
        self.assertIn(":3: '-' is the name of the default row", output)
        self.assertEqual(self.query("SELECT tDrSName FROM TDoctor ORDER BY tDrCulIntDrIDPk"),
                         [("-",), ("Dr. Yes",)])

    def test_files_that_cannot_be_used_are_reported(self):
        self.fails(1, "cannot read", "import", self.practice, "--doctors", self.folder / "missing.csv")
        self.fails(1, "has no column NAME", "import", self.practice, "--doctors",
                   self.file("doctors.csv", "Id,TITLE\n1,x\n"))
        self.fails(1, "is empty", "import", self.practice, "--doctors", self.file("empty.csv", ""))
        self.fails(2, "no file to import", "import", self.practice)

    def test_rows_may_come_from_a_pipe(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        text = PATIENTS + "p-1,1960-01-01,1,Ann,Piped,F\n"
        with subprocess.Popen(["sh", "-c", f"printf '%s' '{text}' > '{pipe}'"]) as writer:
            self.done("import", self.practice, "--patients", pipe)
        self.assertEqual(writer.returncode, 0)
        self.assertEqual(self.value("SELECT tPatSName FROM TPatient"), "Piped")

    def test_more_rows_than_a_transaction_holds_are_all_stored(self):
        rows = "".join(f"p-{n},1960-01-01,{n},Ann,Name {n},F\n" for n in range(1000))
        self.done("import", self.practice, "--patients", self.patients(rows))
        self.assertEqual(self.value("SELECT COUNT(*) FROM TPatient"), 1000)


if __name__ == "__main__":
    unittest.main()
