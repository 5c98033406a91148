#!/usr/bin/env python3
"""A practice from Python. Usage: practice_test.py ROOT SOURCE [USER PASSWORD], on a practice of its own."""
import contextlib
import datetime
import io
import pathlib
import re
import sys
import unittest

ROOT, SOURCE = pathlib.Path(sys.argv[1]), sys.argv[2:]
sys.path.insert(0, str(ROOT / "bindings" / "python"))

import kyodbc  # noqa: E402

NAME_LIKE_M = (kyodbc.KYODBC_FIELD_NAME, kyodbc.KYODBC_LIKE, "M%")
BY_NAME = (kyodbc.KYODBC_FIELD_NAME, kyodbc.KYODBC_FIELD_FIRSTNAME)
PATIENTS = (("Moe", "Ada", 1990), ("Ab", "Bea", 1980), ("Müller", "Cé", 1970), ("Moe", "Dan", 1960))


class PracticeCase(unittest.TestCase):
    """Four patients; each test has a connection of its own."""

    def setUp(self):
        self.practice = kyodbc.Practice(*SOURCE)
        self.addCleanup(self.practice.library.DB_CloseDatabase)
        self.patients = self.practice.patients
        for patient in list(self.patients):
            self.patients.delete(patient)
        for name, firstname, year in PATIENTS:
            self.patients.add(kyodbc.tagTPATIENT(szName=name, szFirstname=firstname, lDrID=1, szSex="f",
                                                 dBirthday=datetime.date(year, 2, 3)))

    def names(self, *clauses, **how):
        return [f"{patient.szName} {patient.szFirstname}"
                for patient in self.patients.browse(*clauses, **how)]


class Browsing(PracticeCase):
    def test_gives_every_row_as_a_record_of_its_own_in_the_order_of_keys(self):
        patients = list(self.patients)
        self.assertEqual([(each.szName, each.szFirstname, each.dBirthday.year) for each in patients],
                         list(PATIENTS))
        keys = [each.lPatID for each in patients]
        self.assertEqual(keys, sorted(set(keys)))

    def test_filters_and_sorts(self):
        self.assertEqual(self.names(NAME_LIKE_M, sort=BY_NAME)[:2], ["Moe Ada", "Moe Dan"])
        self.assertEqual(self.names(NAME_LIKE_M, sort=(kyodbc.KYODBC_FIELD_BIRTHDAY,)),
                         ["Moe Dan", "Müller Cé", "Moe Ada"])
        self.assertEqual(self.names(sort=(kyodbc.KYODBC_FIELD_BIRTHDAY | kyodbc.KYODBC_DESCENDING,)),
                         ["Moe Ada", "Ab Bea", "Müller Cé", "Moe Dan"])

    def test_joins_clauses_by_and_or_by_or(self):
        moe = (kyodbc.KYODBC_FIELD_NAME, kyodbc.KYODBC_EQUAL, "Moe")
        bea = (kyodbc.KYODBC_FIELD_FIRSTNAME, kyodbc.KYODBC_EQUAL, "Bea")
        self.assertEqual(self.names(moe, bea), [])
        self.assertEqual(self.names(moe, bea, any_of=True), ["Moe Ada", "Ab Bea", "Moe Dan"])

    def test_takes_two_dates_to_lie_between_and_a_clause_behind_them(self):
        seventies = (kyodbc.KYODBC_FIELD_BIRTHDAY, kyodbc.KYODBC_BETWEEN,
                     (datetime.date(1965, 1, 1), datetime.date(1985, 1, 1)))
        self.assertEqual(self.names(seventies), ["Ab Bea", "Müller Cé"])
        self.assertEqual(self.names(seventies, NAME_LIKE_M), ["Müller Cé"])
        with self.assertRaises(ValueError):
            self.names(seventies, seventies, NAME_LIKE_M)

    def test_forgets_the_filter_of_an_earlier_walk(self):
        self.assertEqual(self.patients.count(NAME_LIKE_M), 3)
        self.assertEqual(len(self.names()), 4)
        self.assertEqual(self.patients.count(), 4)

    def test_goes_on_behind_a_row_that_is_deleted_meanwhile(self):
        walk = self.patients.browse()
        self.assertEqual(next(walk).szName, "Moe")
        self.practice.library.DB_DeleteTPatByPos(2)
        self.assertEqual([patient.szFirstname for patient in walk][-1], "Dan")

    def test_ends_when_another_walk_begins(self):
        walk = self.patients.browse()
        next(walk)
        self.assertEqual(self.patients.count(), 4)
        with self.assertRaises(RuntimeError):
            next(walk)

    def test_knows_every_table_and_the_joined_view(self):
        practice = self.practice
        self.assertEqual([patient.szName for patient in practice.patients_with_doctors.browse(NAME_LIKE_M)],
                         ["Moe", "Müller", "Moe"])
        for table in (practice.settings, practice.diagnoses, practice.doctors, practice.groups,
                      practice.images, practice.makros, practice.stations, practice.tests, practice.units):
            self.assertEqual(len(list(table)), table.count())


class Changing(PracticeCase):
    def test_adds_edits_gets_and_deletes(self):
        patient = self.patients.add(kyodbc.tagTPATIENT(szName="Neu", szFirstname="Eva", lDrID=1,
                                                       dBirthday=datetime.date(2001, 1, 1)))
        self.assertGreater(patient.lPatID, 0)
        self.patients.edit(kyodbc.tagTPATIENT(lPatID=patient.lPatID, szFirstname="Ida", szName="not this"),
                           kyodbc.KYODBC_MASK_PAT_FIRSTNAME)
        stored = self.patients.get(lPatID=patient.lPatID)
        self.assertEqual((stored.szName, stored.szFirstname), ("Neu", "Ida"))
        self.patients.delete(stored)
        with self.assertRaises(kyodbc.NotFound) as caught:
            self.patients.get(lPatID=patient.lPatID)
        self.assertEqual((caught.exception.code, caught.exception.name), (21, "KYODBC_PATIENT_NOT_FOUND"))
        self.assertEqual(caught.exception.detail.szFunction, "DB_GetTPat")

    def test_a_transaction_stores_all_at_its_end(self):
        with self.practice.transaction():
            self.patients.add(kyodbc.tagTPATIENT(szName="A", szFirstname="B", lDrID=1,
                                                 dBirthday=datetime.date(2001, 1, 1)))
        self.assertEqual(self.patients.count(), 5)

    def test_a_transaction_in_which_something_is_raised_stores_nothing(self):
        with self.assertRaises(ZeroDivisionError):
            with self.practice.transaction():
                self.patients.delete(next(iter(self.patients)))
                raise ZeroDivisionError
        self.assertEqual(self.patients.count(), 4)
        with self.practice.transaction():
            with self.assertRaises(kyodbc.Error) as caught:
                with self.practice.transaction():
                    pass
        self.assertEqual(caught.exception.code, 1)

    def test_settings_are_texts(self):
        self.assertEqual(self.practice.setting("Unknown", "none"), "none")
        self.practice.set_setting("Language", "dé")
        self.assertEqual(self.practice.setting("Language"), "dé")
        self.practice.set_setting("Language", "")
        self.assertEqual(self.practice.setting("Language", "gone"), "gone")
        with self.assertRaises(kyodbc.NotFound):
            self.practice.set_setting("Language", "x", station="no such station")


class Readme(PracticeCase):
    def test_the_program_in_it_runs_as_printed(self):
        for patient in self.patients.browse(NAME_LIKE_M):
            patient.dBirthday = datetime.date(1950, 1, 1)
            born = patient
        self.patients.edit(born, kyodbc.KYODBC_MASK_PAT_BIRTHDAY)
        self.practice.close()
        page = (ROOT / "bindings/python/README.md").read_text(encoding="utf-8")
        program = re.search(r"^```python\n(.*?)^```", page, re.M | re.S)[1]
        self.assertIn('Practice("practice")', program)
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            exec(program.replace('"practice"', "*SOURCE"), {"SOURCE": SOURCE})
        self.assertEqual(output.getvalue(), f"{born.szName} {born.szFirstname} 1950-01-01 00:00:00\n")
        with kyodbc.Practice(*SOURCE) as practice:
            doctor = [each for each in practice.doctors if each.szName == "Dr. Grün"][0]
            self.assertEqual(next(iter(practice.patients)).lDrID, doctor.lDrID)
            practice.doctors.delete(doctor)


class Connecting(unittest.TestCase):
    def test_with_closes_the_connection_whatever_happens(self):
        with kyodbc.Practice(*SOURCE) as practice:
            self.assertTrue(practice.library.DB_IsDatabaseOpen())
        self.assertFalse(practice.library.DB_IsDatabaseOpen())
        with self.assertRaises(ZeroDivisionError):
            with kyodbc.Practice(*SOURCE):
                raise ZeroDivisionError
        self.assertFalse(practice.library.DB_IsDatabaseOpen())

    def test_a_second_connection_is_refused_and_the_first_stays(self):
        with kyodbc.Practice(*SOURCE) as practice:
            with self.assertRaises(RuntimeError):
                kyodbc.Practice("elsewhere")
            self.assertGreaterEqual(practice.stations.count(), 1)

    def test_a_source_that_is_not_there_is_an_error(self):
        with self.assertRaises(kyodbc.Error) as caught:
            kyodbc.Practice("nosuchsource")
        self.assertEqual(caught.exception.code, 3)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
