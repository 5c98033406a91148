#!/usr/bin/env python3
"""kyodbc doctor: silent on a good data source, and one plain sentence for everything that is wrong."""
import json
import os
import subprocess
import unittest

import doctor_kinds
from tool_case import TOOL, ToolCase

# Options that do harm, by database: the option, a bad value (None: not set), what the sentence says.
BAD_OPTIONS = {
    "sqlite": [
        ("LongNames", "1", "has columns reported with their table's name"),
        ("JDConv", "1", "stores dates as numbers"),
        ("BigInt", "1", "reports keys with 64 bits"),
        ("NoTXN", "1", "takes transactions away"),
        ("StepAPI", "1", "keep others from writing"),
        ("Timeout", "0", "gives up at once when another program is writing"),
        ("SyncPragma", "OFF", "when the power fails"),
        ("JournalMode", "OFF", "when a program dies"),
    ],
    "postgresql": [
        ("UpdatableCursors", "1", "makes reading of views fail"),
        ("UpdatableCursors", None, "makes reading of views fail"),
        ("BoolsAsChar", "1", "reports flags as texts"),
        ("BoolsAsChar", None, "reports flags as texts"),
        ("MaxLongVarcharSize", "8190", "cuts long texts"),
        ("MaxLongVarcharSize", None, "cuts long texts"),
        ("UseDeclareFetch", "1", "lets a rollback end every open table"),
        ("LFConversion", "1", "changes the line ends of texts"),
        ("ReadOnly", "1", "refuses every change"),
    ],
    "mariadb": [
        ("OPTION", "0", "has changed rows counted instead of rows found"),
        ("OPTION", None, "has changed rows counted instead of rows found"),
        ("OPTION", "4194306", "reconnects in secret"),
        ("OPTION", "2097154", "gives results that cannot be browsed"),
        ("AUTO_RECONNECT", "1", "reconnects in secret"),
        ("CHARSET", "latin1", "does not carry every character"),
        ("CHARSET", None, "does not carry every character"),
        ("CONN_TIMEOUT", None, "wait for ever for a server that hangs"),
        ("CONN_TIMEOUT", "0", "wait for ever for a server that hangs"),
        ("INITSTMT", None, "NO_BACKSLASH_ESCAPES is missing"),
    ],
}


class Doctor(ToolCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.kind = doctor_kinds.current()
        cls.made = 0
        cls.good = cls.make()

    @classmethod
    def make(cls, change=""):
        """A fresh practice, changed by SQL."""
        cls.made += 1
        database = cls.kind.create(cls.folder, f"doctor{os.getpid()}n{cls.made}")
        cls.addClassCleanup(cls.kind.drop, database)
        if change:
            cls.kind.execute(database, change)
        return database

    def examine(self, database, *arguments, options=None, driver=None, drivers="", password=None,
                source="good"):
        """Exit code and output of the doctor on a data source for the database."""
        given = {**self.kind.options(database), **(options or {})}
        lines = [f"{key}={value}" for key, value in given.items() if value is not None]
        (self.folder / "odbc.ini").write_text("\n".join(["[good]", f"Driver={driver or 'Good'}", *lines, ""]))
        (self.folder / "odbcinst.ini").write_text(f"[Good]\nDriver={self.kind.driver}\n{drivers}")
        environment = {**os.environ, "ODBCSYSINI": str(self.folder), "ODBCINI": str(self.folder / "odbc.ini")}
        environment.pop("KYODBC_PASSWORD", None)
        if self.kind.user:
            arguments = ("--user", self.kind.user, *arguments)
            environment["KYODBC_PASSWORD"] = password or doctor_kinds.PASSWORD
        done = subprocess.run([TOOL, "doctor", source, *arguments], capture_output=True, encoding="utf-8",
                              env=environment, timeout=100, stdin=subprocess.DEVNULL)
        return done.returncode, done.stdout + done.stderr

    def finds(self, sentence, database, *arguments, **changes):
        code, output = self.examine(database, *arguments, **changes)
        self.assertEqual(code, 1, output)
        self.assertRegex(output, r"(?m)^\d+\. .*" + sentence)
        self.assertNotIn("All is well", output)
        return output

    def replaced(self, table):
        """SQL that puts another table, given by its columns after the key, in the place of TStationRaw."""
        return (f"DROP VIEW TStationRaw; CREATE TABLE TStationRaw (tStatCulIntStatIDPk {self.kind.key}, "
                f"{table});")

    def test_a_good_data_source_is_well(self):
        code, output = self.examine(self.good)
        self.assertEqual(code, 0, output)
        self.assertEqual(output.splitlines()[-1], "All is well.")
        self.assertNotRegex(output, r"(?m)^\d+\. ")
        for fact in ("database system ", "driver ", "static cursors yes", "procedures ", "transactions yes",
                     "names ", "row counts ", "schema version 4.0"):
            self.assertRegex(output, "(?m)^" + fact)

    def test_a_data_source_may_be_named_as_for_other_commands(self):
        code, output = self.examine(self.good, source="dsn:good")
        self.assertEqual(code, 0, output)
        self.assertIn("no data source 'other' with a driver", self.examine(self.good, source="dsn:other")[1])

    def test_a_practice_may_be_named_by_its_folder(self):
        folder = self.folder / f"{self.kind.name}-folder"
        self.done("init", folder)
        code, output = self.examine(self.good, source=folder)
        if self.kind.user:  # a folder knows no users
            self.assertEqual(code, 2, output)
        else:
            self.assertEqual((code, output.splitlines()[-1]), (0, "All is well."), output)

    def test_with_json_one_document_is_printed_and_nothing_else(self):
        code, output = self.examine(self.good, "--json")
        self.assertEqual(code, 0, output)
        document = json.loads(output)
        self.assertEqual((document["source"], document["findings"]), ("good", []))
        self.assertIn("schema version 4.0", document["facts"])
        told = [fact for fact in document["facts"] if fact.startswith("encryption (TLS) ")]
        self.assertEqual(len(told), 1 if self.kind.user else 0)

    def test_the_owners_name_may_stand_before_the_tables(self):
        owner = self.kind.owner or f"{self.good}."
        code, output = self.examine(self.good, "--owner", owner)
        self.assertEqual(code, 0, output)
        self.finds("cannot be read", self.good, "--owner", "nobody.")

    def test_nothing_that_it_writes_stays(self):
        tables = ("TConfig", "TDiagnosis", "TDoctor", "TGroup", "TImage", "TMakro", "TPatient", "TStation",
                  "TTest", "TUnit")
        counts = " UNION ALL ".join(f"SELECT COUNT(*) FROM {table}" for table in tables)
        before = self.kind.query(self.good, counts)
        self.examine(self.good)
        self.assertEqual(self.kind.query(self.good, counts), before)

    def test_every_harmful_option_is_named_with_its_cure(self):
        for option, value, sentence in BAD_OPTIONS[self.kind.name]:
            with self.subTest(option=option, value=value):
                output = self.finds(sentence, self.good, options={option: value})
                self.assertIn(f"needs {option}=", output)

    def test_the_other_databases_options_are_no_concern(self):
        code, output = self.examine(self.good, options={"Nonsense": "1"})
        self.assertEqual(code, 0, output)

    def test_logs_with_patients_values_are_named(self):
        harmful = {"sqlite": {"Tracefile": str(self.folder / "trace")}, "postgresql": {"CommLog": "1"}}
        options = harmful.get(self.kind.name)
        if options:
            self.finds("writes patients' values to a file", self.good, options=options)
        if self.kind.name == "postgresql":
            self.finds("CommLog=1 writes patients' values", self.good, drivers="CommLog=1\n")
            self.assertEqual(self.examine(self.good, drivers="CommLog=1\n", options={"CommLog": "0"})[0], 0)
        self.finds("the driver manager's trace writes patients' values", self.good,
                   drivers=f"[ODBC]\nTrace=Yes\nTraceFile={self.folder}/sql.log\n")

    def test_a_missing_table_is_named(self):
        cascade = " CASCADE" if self.kind.name == "postgresql" else ""
        self.finds("TTest cannot be read", self.make(f"DROP TABLE TTest{cascade};"))

    def test_a_missing_view_is_named(self):
        self.finds("TUnitRaw cannot be read", self.make("DROP VIEW TUnitRaw;"))

    def test_a_missing_column_is_named(self):
        change = ("DROP VIEW TStationRaw; CREATE VIEW TStationRaw AS SELECT tStatCulIntStatIDPk, tStatSName "
                  "FROM TStation;")
        output = self.finds("TStationRaw has no column tStatSAdd", self.make(change))
        self.assertNotIn("no column tStatSName", output)

    def test_columns_of_a_wrong_type_or_width_are_named(self):
        database = self.make(self.replaced("tStatSName INTEGER, tStatSAdd VARCHAR(50)"))
        output = self.finds("the column tStatSAdd of TStationRaw takes 50 characters only: make it 1000000",
                            database)
        self.assertIn("the column tStatSName of TStationRaw is not a text", output)

    def test_a_table_that_takes_no_rows_is_named(self):
        change = "DROP VIEW TStationRaw; CREATE VIEW TStationRaw AS SELECT DISTINCT * FROM TStation;"
        self.finds("rows cannot be added to TStationRaw", self.make(change))

    def test_texts_compared_without_regard_to_case_are_named(self):
        change = self.replaced(f"tStatSName {self.kind.any_case}, tStatSAdd {self.kind.long_text}")
        if self.kind.name == "postgresql":
            change = ("CREATE COLLATION any_case (provider = icu, locale = 'und-u-ks-level2', "
                      "deterministic = false);" + change)
        self.finds("TStationRaw compares texts without regard to case", self.make(change))

    def test_an_old_schema_is_named(self):
        database = self.make("UPDATE TConfig SET tCfgSSet = '3.9' WHERE tCfgSKey = 'DBVersion';")
        self.finds("the schema version is 3.9, and most functions need 4.0", database)

    def test_missing_settings_and_default_rows_are_named(self):
        database = self.make("DELETE FROM TConfig WHERE tCfgSKey = 'DBMS'; DELETE FROM TDoctor; "
                             "UPDATE TUnit SET tUnitSName = 'x';")
        output = self.finds("TDoctor has no row with key 1 and the name '-'", database)
        self.assertIn("TUnit has no row with key 1", output)
        self.assertNotIn("TStation has no row", output)
        self.assertIn("the setting DBMS of the station '-' is missing", output)

    def test_a_missing_ping_is_named(self):
        drop = {"sqlite": "DROP VIEW spky_ping;", "postgresql": "DROP FUNCTION spky_ping();",
                "mariadb": "DROP PROCEDURE spky_ping;"}[self.kind.name]
        self.finds("the procedure spky_ping cannot be called", self.make(drop))

    def test_a_database_that_is_not_utf_8_is_named(self):
        if self.kind.name == "postgresql":
            database = f"latin{os.getpid()}"
            self.kind.admin(f"CREATE DATABASE {database} ENCODING 'LATIN1' LC_COLLATE 'C' LC_CTYPE 'C' "
                            "TEMPLATE template0")
            self.addCleanup(self.kind.drop, database)
            self.finds("the connection does not carry texts in UTF-8", database)
        elif self.kind.name == "mariadb":
            self.finds("the connection does not carry texts in UTF-8", self.good,
                       options={"CHARSET": "latin1"})
            narrow = self.replaced(f"tStatSName VARCHAR(255) CHARACTER SET latin1 COLLATE latin1_bin, "
                                   f"tStatSAdd {self.kind.long_text}")
            self.finds("rows cannot be changed in TStationRaw", self.make(narrow))
        else:
            wide = str(self.folder / "wide.db")
            schema = (doctor_kinds.SOURCE / "schema/sqlite.sql").read_text()
            self.kind.execute(wide, "PRAGMA encoding='UTF-16'; " + schema)
            code, output = self.examine(wide)
            self.assertEqual(code, 0, output)

    def test_an_unencrypted_way_to_another_machine_is_named(self):
        key = {"postgresql": "Servername", "mariadb": "SERVER"}.get(self.kind.name)
        if key is None:
            self.assertNotIn("TLS", self.examine(self.good)[1])
            return
        self.assertIn("encryption (TLS) off, the server is on this machine", self.examine(self.good)[1])
        # The same machine, under a name that does not tell.
        self.finds("travel to the server without encryption", self.good, options={key: "2130706433"})

    def test_a_refused_login_is_named(self):
        if self.kind.user:
            output = self.finds(r"connecting failed: .* \(code 30\)", self.good, password="wr0ng-marker")
            self.assertNotIn("wr0ng-marker", output)
        else:
            (self.folder / "text.db").write_text("no database" * 1000)
            self.finds(r"connecting failed: .* \(code 3\)", str(self.folder / "text.db"))

    def test_what_is_not_configured_or_installed_is_named(self):
        self.finds("no data source 'other' with a driver is configured", self.good, source="other")
        self.finds("the driver /nowhere/lib.so is not there", self.good, driver="/nowhere/lib.so")
        self.finds("was never tried with this library", self.good, driver="/etc/passwd")

    def test_a_missing_file_is_named_and_not_made(self):
        if self.kind.user:
            self.finds("connecting failed", "no_such_database")
        else:
            missing = self.folder / "missing.db"
            self.finds("the database file '.*missing.db' is not there", str(missing))
            self.assertFalse(missing.exists())

    def test_the_password_may_come_from_a_file(self):
        file = self.folder / "password"
        file.write_text(doctor_kinds.PASSWORD + "\n")
        code, output = self.examine(self.good, "--password-file", file, password="wrong")
        self.assertEqual(code, 0, output)
        code, output = self.examine(self.good, "--password-file", self.folder / "none")
        self.assertEqual(code, 1)
        self.assertIn("cannot read a password", output)

    def test_a_password_that_is_typed_is_not_shown(self):
        self.examine(self.good)  # writes the files
        environment = {**os.environ, "ODBCSYSINI": str(self.folder), "ODBCINI": str(self.folder / "odbc.ini")}
        environment.pop("KYODBC_PASSWORD", None)
        keyboard, terminal = os.openpty()
        try:
            command = [TOOL, "doctor", "good", "--user", self.kind.user or "anyone"]
            with subprocess.Popen(command, stdin=terminal, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  env=environment) as tool:
                self.assertEqual(tool.stderr.read(10), b"Password: ")
                os.write(keyboard, doctor_kinds.PASSWORD.encode() + b"\n")
                output = tool.stdout.read().decode()
            self.assertEqual(tool.returncode, 0, output)
            os.set_blocking(keyboard, False)
            try:
                shown = os.read(keyboard, 1000).decode()
            except BlockingIOError:
                shown = ""
            self.assertNotIn(doctor_kinds.PASSWORD, shown)
        finally:
            os.close(keyboard)
            os.close(terminal)

    def test_too_long_names_are_refused(self):
        code, output = self.examine(self.good, source="x" * 33)
        self.assertEqual(code, 2, output)


if __name__ == "__main__":
    unittest.main()
