"""Whole practices, read past the companion program, for tests of copies and backups."""
import csv
import sqlite3

import doctor_kinds

csv.field_size_limit(10_000_000)

TABLES = ("TDoctor", "TStation", "TUnit", "TPatient", "TImage", "TMakro", "TGroup", "TDiagnosis", "TTest",
          "TConfig")
NONE = "none"
# The bytes of a value's text, so that no program on the way takes them for its own signs.
HEX = {"sqlite": "CASE WHEN {0} IS NOT NULL THEN LOWER(HEX(CAST({0} AS TEXT))) END",
       "postgresql": "encode(convert_to({}::text, 'UTF8'), 'hex')", "mariadb": "LOWER(HEX(CAST({} AS CHAR)))"}

# What copies and backups go wrong with: quotes, signs of escapes and of the forms of dumps, no value and the
# words for it, the empty text, the last moments of a day and of a second.
NASTY_TEXTS = ("O'Neil \"x\" `y`", "back\\slash\\n\\N\\.", "tab\tand\nline\r\nends\v\f\b", "NULL", "\\N", "-",
               "=", "", "\\.", "a,b);('", "Zoë 田中 🦷 é", "%s {d '2001-01-01'} ? {call x}", "!end of rows",
               " blank ends ", "x" * 255)
NASTY_TIMES = ("2001-05-06 10:00:00", "0999-12-31 23:59:59", "2001-05-06 00:00:00",
               "2001-05-06 10:00:00.123456", "2001-05-06 10:00:00.5")


def fill(practice):
    """Adds rows that are hard to carry to a practice in a folder; afterwards the newest doctor is gone, so
    that the next key is not the one above the highest."""
    connection = sqlite3.connect(practice / "practice.db")
    with connection:
        for number, text in enumerate(NASTY_TEXTS):
            time = NASTY_TIMES[number % len(NASTY_TIMES)]
            connection.execute("INSERT INTO TPatient (tPatSName, tPatSFirstname, tPatDBirthday, "
                               "tPatTsLastDisp, tPatSResponsible, tPatSAdd, tPatFSelect) "
                               "VALUES (?, ?, ?, ?, ?, ?, ?)",
                               (text, text[::-1], time[:10], time, text, text * 3, number % 2))
            connection.execute("INSERT INTO TDiagnosis (tDiagSText, tDiagTs) VALUES (?, ?)", (text * 9, time))
        connection.execute("INSERT INTO TTest (tTstSResult) VALUES (?)", ("é\n'\\" * 250_000,))
        connection.execute("INSERT INTO TImage (tImgCulIntImgIDPk) VALUES (900000)")
        connection.execute("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName) VALUES (500, 'gone')")
        connection.execute("DELETE FROM TDoctor WHERE tDrCulIntDrIDPk = 500")
    connection.close()


NEXT_DOCTOR = 501


def columns():
    """The columns of each table as the schema file has them."""
    schema = sqlite3.connect(":memory:")
    schema.executescript((doctor_kinds.SOURCE / "schema/sqlite.sql").read_text())
    return {table: [row[1] for row in schema.execute(f"PRAGMA table_info({table})")] for table in TABLES}


def contents(kind, database):
    """All rows of all tables in the order of their keys, each value a text. The setting that names the
    database system is left out: it must differ."""
    found = {}
    for table, names in columns().items():
        values = ", ".join(f"COALESCE({HEX[kind.name].format(name)}, '{NONE}')" for name in names)
        where = "WHERE tCfgSKey <> 'DBMS'" if table == "TConfig" else ""
        rows = kind.rows(database, f"SELECT {values} FROM {table} {where} ORDER BY {names[0]}")
        found[table] = [tuple(plain(value) for value in row) for row in rows]
    return found


def plain(value):
    """The text, without zeros at the end of a fraction of a second; None for no value."""
    if value == NONE:
        return None
    value = bytes.fromhex(value).decode()
    if len(value) == 26 and value[4] == value[7] == "-" and value[19] == ".":
        return value.rstrip("0").rstrip(".")
    return value
