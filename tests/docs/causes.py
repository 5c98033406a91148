"""Brings about what docs/guide/result-codes.md names as causes, on the data source "practice" of an SQLite
practice in the folder "ready". Prints the page's words and the code of each. Started by causes_test.py."""
import datetime
import json
import os
import sqlite3

import kyodbc

db = kyodbc.load()
CAUSES = []
BIRTHDAY = datetime.date(1987, 6, 5)


def cause(words):
    def add(bring_about):
        CAUSES.append((words, bring_about))
        return bring_about
    return add


def connect(source="practice"):
    return db.DB_InitDatabase(kyodbc.tagDBCONNECT(szDSN=source))


def patients_filter(fields, operators, value):
    return db.DB_SetTPatFilter(fields, operators, value, None, None, None)


def without_makros(call):
    """What a call gives while the table of the makros has another name."""
    other = sqlite3.connect("ready/practice.db")
    other.execute("ALTER TABLE TMakro RENAME TO TElsewhere")
    code = call()
    other.execute("ALTER TABLE TElsewhere RENAME TO TMakro")
    other.close()
    return code


@cause("A null pointer.")
def null_pointer():
    return db.DB_GetTPat(None)


@cause("A record without key and without complete natural key")
def no_natural_key():
    return db.DB_GetTPat(kyodbc.tagTPATIENT(szName="Meyer"))


@cause("A field id that the table does not know")
def unknown_field():
    return patients_filter(kyodbc.KYODBC_FIELD_UNIT_KEY, kyodbc.KYODBC_EQUAL, 1)


@cause("`KYODBC_BETWEEN` on a text or key")
def between_texts():
    return patients_filter(kyodbc.KYODBC_FIELD_NAME, kyodbc.KYODBC_BETWEEN, "A")


@cause("A buffer too small for the text.")
def small_buffer():
    return kyodbc.text(db.DB_GetDBMS, size=1)[0]


@cause("A group, image or test to be added whose `szLoc` is not empty.")
def image_with_location():
    return db.DB_AddNewTImg(kyodbc.tagTIMAGE(lPatID=1, ts=BIRTHDAY, szLoc="9"))


@cause("An owner that is no name.")
def bad_owner():
    db.DB_CloseDatabase()
    code = db.DB_InitDatabase(kyodbc.tagDBCONNECT(szDSN="practice", szOwner="x;"))
    connect()
    return code


@cause("A begin while a transaction is pending")
def second_begin():
    kyodbc.check(db, db.DB_BeginTransaction())
    code = db.DB_BeginTransaction()
    db.DB_RollbackTransaction()
    return code


@cause("a commit or rollback while none is.")
def commit_without_begin():
    return db.DB_CommitTransaction()


@cause("After an *add* that gives 1 the row has been added")
def add_without_natural_key():
    before = kyodbc.number(db.DB_GetNumTPat)[1]
    code = db.DB_AddNewTPat(kyodbc.tagTPATIENT(szName="Incomplete", lDrID=1))
    return code if kyodbc.number(db.DB_GetNumTPat)[1] == before + 1 else "not added"


@cause("`DB_InitDatabase` was not called, or failed, or `DB_CloseDatabase` came before.")
def not_connected():
    db.DB_CloseDatabase()
    code = db.DB_OpenTPat()
    connect()
    return code


@cause("A second `DB_InitDatabase` while connected.")
def second_connection():
    return connect()


@cause("The data source is unknown")
def unknown_source():
    db.DB_CloseDatabase()
    code = connect("nowhere")
    connect()
    return code


@cause("The SQLite file is not there (with `NoCreat=1` in the data source), or is no database.")
def no_database():
    db.DB_CloseDatabase()
    with open("text.db", "w", encoding="utf-8") as file:
        file.write("this is no database" * 99)
    codes = [code_of_file("missing", "NoCreat=1"), code_of_file("text", "")]
    connect()
    return codes[0] if codes[0] == codes[1] else codes


def code_of_file(name, option):
    """What connecting to another file gives."""
    with open(os.environ["ODBCINI"], encoding="utf-8") as sources:
        driver = next(line for line in sources if line.startswith("Driver="))
    with open(os.environ["ODBCINI"], "a", encoding="utf-8") as sources:
        sources.write(f"[{name}]\n{driver}Database={os.path.abspath(name)}.db\n{option}\n")
    return connect(name)


@cause("A single row could not be read, because the table is not there")
def row_of_a_table_that_is_missing():
    return without_makros(lambda: db.DB_GetTMak(kyodbc.tagTMAKRO(lMakID=1)))


@cause("A date that does not exist (30 February")
def impossible_date():
    day = kyodbc.TIMESTAMP_STRUCT(2001, 2, 30)
    return db.DB_EditSelTPat(kyodbc.tagTPATIENT(lPatID=1, dBirthday=day), kyodbc.KYODBC_MASK_PAT_BIRTHDAY)


@cause("On SQLite another program has been writing for longer than the data source's `Timeout`.")
def locked():
    db.DB_CloseDatabase()
    with open(os.environ["ODBCINI"], encoding="utf-8") as file:
        sources = file.read()
    with open(os.environ["ODBCINI"], "w", encoding="utf-8") as file:
        file.write(sources.replace("Timeout=5000", "Timeout=10"))
    connect()
    other = sqlite3.connect("ready/practice.db", isolation_level=None)
    other.execute("BEGIN IMMEDIATE")
    code = db.DB_AddNewTStat(kyodbc.tagTSTATION(szName="Locked"))
    other.execute("ROLLBACK")
    other.close()
    return code


@cause("An edit or delete of a protected row")
def protected():
    return db.DB_DeleteTStat(kyodbc.tagTSTATION(szName="-"))


@cause("The patient was deleted, by this program or another.")
def deleted_patient():
    patient = kyodbc.tagTPATIENT(szSlidaID="CAUSE-1", lDrID=1)
    kyodbc.check(db, db.DB_AddNewTPat(patient))
    kyodbc.check(db, db.DB_DeleteTPat(patient))
    return db.DB_GetTPat(patient)


@cause("the patient has no doctor, so the joined view does not show it.")
def patient_without_doctor():
    kyodbc.check(db, db.DB_AddNewTPat(kyodbc.tagTPATIENT(szSlidaID="CAUSE-2")))
    return db.DB_GetPatEx(kyodbc.tagTPATIENTEX(szSlidaID="CAUSE-2"))


@cause("a filter the database refuses (`fields` 0")
def filter_without_fields():
    kyodbc.check(db, db.DB_OpenTStat())
    return db.DB_SetTStatFilter(0, 0, None, None, None, None)


@cause("id 5 on images")
def images_by_unit():
    kyodbc.check(db, db.DB_OpenTImg())
    return db.DB_SetTImgFilter(kyodbc.KYODBC_FIELD_UNIT_KEY, kyodbc.KYODBC_EQUAL, 2, None, None, None)


@cause("a table that is not as the schema has it.")
def table_that_is_missing():
    return without_makros(db.DB_OpenTMak)


@cause("Two patients have the same name and date of birth")
def namesakes():
    for number in "12":
        kyodbc.check(db, db.DB_AddNewTPat(kyodbc.tagTPATIENT(
            szSlidaID=f"TWIN-{number}", szName="Twin", szFirstname="A", dBirthday=BIRTHDAY, lDrID=1)))
    return db.DB_GetTPat(kyodbc.tagTPATIENT(szName="Twin", szFirstname="A", dBirthday=BIRTHDAY))


@cause("a station's name was added twice.")
def two_stations():
    kyodbc.check(db, db.DB_AddNewTStat(kyodbc.tagTSTATION(szName="Twice")))
    return db.DB_AddNewTStat(kyodbc.tagTSTATION(szName="Twice"))


@cause("The position is behind the last row, or the result is empty.")
def behind_the_end():
    kyodbc.check(db, db.DB_OpenTPat())
    return db.DB_GetTPatByPos(1000000, kyodbc.tagTPATIENT())


@cause("No row matches the record's key or natural key.")
def no_such_station():
    return db.DB_GetTStat(kyodbc.tagTSTATION(szName="Nowhere"))


@cause("`DB_WriteProfileString`: the station does not exist")
def setting_of_no_station():
    return db.DB_WriteProfileString("Language", "Nowhere", "de")


@cause("adding an image of the same patient and time replaces the old one, which had another key.")
def replaced_image():
    first = kyodbc.tagTIMAGE(lPatID=1, ts=BIRTHDAY)
    second = kyodbc.tagTIMAGE(lPatID=1, ts=BIRTHDAY)
    kyodbc.check(db, db.DB_AddNewTImg(first))
    kyodbc.check(db, db.DB_AddNewTImg(second))
    return db.DB_GetTImg(kyodbc.tagTIMAGE(lImgID=first.lImgID))


@cause("`DB_GetLastTImgDate`: the patient has no image.")
def no_image():
    return db.DB_GetLastTImgDate(1000000, None, None)


@cause("the name in the record is not exactly the stored one.")
def no_such_unit():
    return db.DB_GetTUnit(kyodbc.tagTUNIT(szName="panorama 1"))


@cause("`DB_GetLastTTestDate`: the unit was never tested.")
def never_tested():
    return db.DB_GetLastTTestDate(1, None, None)


if __name__ == "__main__":
    kyodbc.check(db, connect())
    print(json.dumps([[words, bring_about()] for words, bring_about in CAUSES]))
    db.DB_CloseDatabase()
