#!/usr/bin/env python3
"""The binding for Python agrees with the headers and with the library.

Usage: python_test.py ROOT INCLUDE-FOLDER C-COMPILER, with the library in LD_LIBRARY_PATH.
"""
import ctypes
import datetime
import pathlib
import re
import subprocess
import sys
import typing
import unittest

ROOT, INCLUDE, COMPILER = pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3]
BINDING = ROOT / "bindings" / "python"
sys.path.insert(0, str(BINDING))

import kyodbc  # noqa: E402
from from_c import from_c  # noqa: E402
from kyodbc import records  # noqa: E402


def listed(name):
    lines = (ROOT / "frame" / name).read_text().splitlines()
    return [line for line in lines if line and not line.startswith("#")]


class Description(unittest.TestCase):
    def test_the_generated_file_is_up_to_date(self):
        result = subprocess.run([sys.executable, "-B", str(BINDING / "generate.py"), "--check"],
                                capture_output=True, encoding="utf-8")
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_every_record_of_the_headers_is_there(self):
        text = "".join((ROOT / header).read_text() for header in ("tables/records.h", "frame/KyODBCDiag.h"))
        self.assertEqual([record.__name__ for record in records.RECORDS],
                         re.findall(r"^typedef struct (\w+)", text, re.M))

    def test_sizes_and_offsets_are_those_of_the_compiler(self):
        expected, expressions = [], []
        for record in (*records.RECORDS, kyodbc.TIMESTAMP_STRUCT):
            name = record.__name__
            expected.append((name, ctypes.sizeof(record)))
            expressions.append(f"sizeof({name})")
            for field, _ in record._fields_:
                place = getattr(record, field)
                expected += [(f"{name}.{field}", place.offset), (f"{name}.{field} size", place.size)]
                expressions += [f"offsetof({name}, {field})", f"sizeof((({name}*)0)->{field})"]
        values = from_c(expressions, INCLUDE, COMPILER)
        self.assertEqual(expected, [(what, value) for (what, _), value in zip(expected, values)])

    def test_constants_have_the_values_of_the_compiler(self):
        names = [name for name in vars(records) if name.startswith("KYODBC_")]
        self.assertGreater(len(names), 140)
        self.assertEqual([(name, getattr(records, name)) for name in names],
                         list(zip(names, from_c(names, INCLUDE, COMPILER))))

    def test_every_result_code_has_its_name(self):
        text = (ROOT / "platform/result_codes.h").read_text()
        codes = re.findall(r"^  (KYODBC_\w+) = (\d+)", text, re.M)
        self.assertEqual(records.CODE_NAMES, {int(code): name for name, code in codes})

    def test_hints_of_fields_tell_what_reading_gives(self):
        for record in records.RECORDS:
            hints = typing.get_type_hints(record)
            self.assertEqual(list(hints), [field for field, _ in record._fields_])
            for field, hint in hints.items():
                self.assertIsInstance(getattr(record(), field), typing.get_origin(hint) or hint, field)

    def test_every_function_for_callers_has_hints(self):
        self.assertTrue((BINDING / "kyodbc/py.typed").is_file())
        tables = [getattr(kind, name) for kind in (kyodbc.Table, kyodbc.ChangeableTable, kyodbc.Practice)
                  for name in vars(kind) if not name.startswith("_")]
        for function in (kyodbc.load, kyodbc.last_error, kyodbc.check, kyodbc.pack, kyodbc.number,
                         kyodbc.text, *tables):
            self.assertIn("return", function.__annotations__, function)

    def test_every_exported_function_has_arguments_and_a_result(self):
        names = [name for name, _, _ in records.FUNCTIONS]
        self.assertEqual(len(set(names)), len(names))
        self.assertEqual(sorted(names), sorted(listed("exports.txt") + listed("exports_ext.txt")))
        library = kyodbc.load()
        for name, result, arguments in records.FUNCTIONS:
            self.assertIs(getattr(library, name).restype, result)
            self.assertEqual(getattr(library, name).argtypes, arguments)


class Texts(unittest.TestCase):
    def test_are_cut_as_the_library_cuts_them(self):
        station = kyodbc.tagTSTATION()
        for text, stored in (("", ""), ("x" * 16, "x" * 16), ("x" * 17, "x" * 16), ("ü" * 9, "ü" * 8),
                             ("x" + "ü" * 9, "x" + "ü" * 7), ("xxx" + "😀" * 4, "xxx" + "😀" * 3),
                             ("ab\0cd", "ab")):
            station.szName = text
            self.assertEqual(station.szName, stored)
            self.assertEqual(bytes(station)[20], 0)

    def test_leave_nothing_of_a_longer_one_behind(self):
        station = kyodbc.tagTSTATION(szName="a long name")
        station.szName = "b"
        self.assertEqual(bytes(station)[4:], b"b" + bytes(16))

    def test_of_compact_records_keep_their_separator(self):
        unit = kyodbc.tagPATIENTCOMPACT(szName="Unit\udcbb12")
        self.assertEqual(bytes(unit)[:8], b"Unit\xbb12\0")
        self.assertEqual(unit.szName.split("\udcbb"), ["Unit", "12"])

    def test_unknown_fields_are_refused(self):
        with self.assertRaises(AttributeError):
            kyodbc.tagTSTATION(szNme="x")
        with self.assertRaises(AttributeError):
            kyodbc.tagTSTATION().szNme = "x"


class Times(unittest.TestCase):
    def test_take_dates_and_give_datetimes(self):
        patient = kyodbc.tagTPATIENT(dBirthday=datetime.date(1960, 2, 29),
                                     tsLastDisp=datetime.datetime(2020, 1, 2, 3, 4, 5, 678))
        self.assertEqual(patient.dBirthday.datetime(), datetime.datetime(1960, 2, 29))
        self.assertEqual(patient.tsLastDisp.fraction, 678000)
        self.assertEqual(patient.tsLastDisp.datetime(), datetime.datetime(2020, 1, 2, 3, 4, 5, 678))
        patient.dBirthday = None
        self.assertIsNone(patient.dBirthday.datetime())


class Calls(unittest.TestCase):
    """Without a connection."""

    @classmethod
    def setUpClass(cls):
        cls.db = kyodbc.load()

    def test_codes_come_back_as_numbers_and_as_errors(self):
        self.assertEqual(self.db.DB_GetTPat(kyodbc.tagTPATIENT()), kyodbc.KYODBC_NOT_OPENED)
        with self.assertRaises(kyodbc.Error) as caught:
            kyodbc.check(self.db, self.db.DB_GetTPat(kyodbc.tagTPATIENT()))
        self.assertEqual((caught.exception.code, caught.exception.name), (3, "KYODBC_NOT_OPENED"))
        self.assertEqual(caught.exception.detail.szFunction, "DB_GetTPat")

    def test_numbers_and_texts_are_handed_out(self):
        self.assertEqual(kyodbc.number(self.db.DB_GetNumTPat), (3, 0))
        self.assertEqual(kyodbc.text(self.db.DB_GetDBOwner), (0, ""))
        self.assertEqual(kyodbc.pack(17, 0x80 | 22), 17 + 150 * 256)
        self.assertLess(kyodbc.pack(0, 0, 0, 0x80), 0)

    def test_filters_take_values_of_every_kind(self):
        for value in (5, "M%", b"M%", datetime.date(1960, 1, 1), kyodbc.TIMESTAMP_STRUCT(), None):
            self.assertEqual(self.db.DB_SetTPatFilter(1, 0, value, None, None, None), 3)

    def test_other_records_are_refused(self):
        with self.assertRaises(ctypes.ArgumentError):
            self.db.DB_GetTPat(kyodbc.tagTSTATION())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
