#!/usr/bin/env python3
"""Patients from Python: browse, add, edit with a mask, delete. Usage: example.py SOURCE [USER PASSWORD]"""
import datetime
import sys

import kyodbc
from kyodbc import check, number, pack


def browse(db):
    check(db, db.DB_SetTPatSortIndex(pack(kyodbc.KYODBC_FIELD_NAME, kyodbc.KYODBC_FIELD_FIRSTNAME)))
    check(db, db.DB_SetTPatFilter(kyodbc.KYODBC_FIELD_NAME, kyodbc.KYODBC_LIKE, "M%", None, None, None))
    check(db, db.DB_OpenTPat())
    code, count = number(db.DB_GetTPatMaxPos)
    check(db, code)
    print(count, "patients whose names begin with M")
    patient = kyodbc.tagTPATIENT()
    for position in range(1, count + 1):
        check(db, db.DB_GetTPatByPos(position, patient))
        print(f"{position:4}  {patient.szName}, {patient.szFirstname}")


def change(db):
    patient = kyodbc.tagTPATIENT(szName="Müller-Lüdenscheidt", szFirstname="Zoë", lDrID=1, szSex="f",
                                 dBirthday=datetime.date(1987, 6, 5))
    check(db, db.DB_AddNewTPat(patient))
    print("added:", patient.szName, patient.dBirthday.datetime().date())
    edit = kyodbc.tagTPATIENT(lPatID=patient.lPatID, szFirstname="Zoë Anne", szName="not in the mask")
    check(db, db.DB_EditSelTPat(edit, kyodbc.KYODBC_MASK_PAT_FIRSTNAME))
    check(db, db.DB_GetTPat(patient))
    print("edited:", patient.szFirstname, patient.szName)
    check(db, db.DB_DeleteTPat(patient))
    try:
        check(db, db.DB_GetTPat(patient))
    except kyodbc.Error as error:
        print(error)


def main(source, user="", password=""):
    db = kyodbc.load()
    check(db, db.DB_InitDatabase(kyodbc.tagDBCONNECT(szDSN=source, szUID=user, szPWD=password)))
    try:
        browse(db)
        change(db)
    finally:
        db.DB_CloseDatabase()


if __name__ == "__main__":
    main(*sys.argv[1:])
