#!/usr/bin/env python3
"""kyodbc copy: whole practices from each database to each other one, proved by reading both past it."""
import json
import os
import signal
import sqlite3
import subprocess
import time
import unittest

import doctor_kinds
import whole_rows
from source_case import SourceCase
from tool_case import TOOL

PATIENCE = 60


class Copy(SourceCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.kinds = {name: doctor_kinds.KINDS[name]() for name in ("sqlite", "postgresql", "mariadb")}
        cls.done("init", cls.practice)
        cls.done("sample", cls.practice, "--patients", 12)
        whole_rows.fill(cls.practice)

    def folder_of(self, name):
        practice = self.folder / name
        self.done("init", practice)
        return practice

    def contents(self, practice):
        return whole_rows.contents(self.kinds["sqlite"], practice / "practice.db")

    def copy(self, source, target, *options):
        return json.loads(self.done("copy", source, target, *options, "--json"))


class Directions(Copy):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for name in ("postgresql", "mariadb"):
            cls.make(cls.kinds[name])

    def on(self, name):
        return whole_rows.contents(self.kinds[name], self.databases[name])

    def test_each_to_each_other_one_and_back_loses_nothing(self):
        self.maxDiff = 2000
        expected = self.contents(self.practice)
        steps = [(self.practice, "postgresql"), ("postgresql", "mariadb"),
                 ("mariadb", self.folder_of("back")),
                 (self.folder / "back", "mariadb"), ("mariadb", "postgresql"),
                 ("postgresql", self.folder_of("end"))]
        for source, target in steps:
            side = {place: f"dsn:{place}" if isinstance(place, str) else place for place in (source, target)}
            users = [word for option, place in (("--from-user", source), ("--to-user", target))
                     if isinstance(place, str) for word in (option, doctor_kinds.USER)]
            with self.subTest(f"{source} to {target}"):
                result = self.copy(side[source], side[target], *users, "--replace", "--yes")
                self.assertTrue(result["equal"])
                found = self.contents(target) if not isinstance(target, str) else self.on(target)
                for table in whole_rows.TABLES:
                    self.assertEqual(found[table], expected[table], table)
                self.check_setting(target)
                self.check_next_key(target)

    def value(self, target, sql):
        if isinstance(target, str):
            return self.rows(self.kinds[target], sql)[0][0]
        return str(self.query(sql, practice=target)[0][0])

    def test_two_names_of_one_database_on_a_server_are_noticed(self):
        for name in ("postgresql", "mariadb"):
            kind = self.kinds[name]
            options = "".join(f"{key}={value}\n" for key, value in kind.options(self.databases[name]).items())
            with open(self.folder / "odbc.ini", "a", encoding="utf-8") as file:
                file.write(f"[{name}-again]\nDriver={kind.driver}\n{options}\n")
            before = self.on(name)
            self.fails(2, "are the same database", "copy", f"dsn:{name}", f"dsn:{name}-again", "--from-user",
                       doctor_kinds.USER, "--to-user", doctor_kinds.USER, "--replace", "--yes")
            self.assertEqual(self.on(name), before)

    def test_an_account_that_must_not_raise_the_counters_of_keys_changes_nothing(self):
        clerk = f"clerk{os.getpid()}"
        makes = {"postgresql": [f"CREATE ROLE {clerk} LOGIN PASSWORD '{doctor_kinds.PASSWORD}'",
                                "GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA public TO "
                                + clerk],
                 "mariadb": [f"CREATE USER {clerk} IDENTIFIED BY '{doctor_kinds.PASSWORD}'",
                             "GRANT SELECT, INSERT, UPDATE, DELETE ON "
                             f"{self.databases['mariadb']}.* TO {clerk}"]}
        drops = {"postgresql": [f"DROP OWNED BY {clerk}", f"DROP ROLE {clerk}"],
                 "mariadb": [f"DROP USER {clerk}"]}
        source = self.folder_of("ahead")
        connection = sqlite3.connect(source / "practice.db")
        with connection:
            connection.execute("INSERT INTO TTest (tTstCulIntTstIDPk) VALUES (1000000)")
            connection.execute("DELETE FROM TTest")
        connection.close()
        for name in ("postgresql", "mariadb"):
            for statement in makes[name]:
                self.kinds[name].execute(self.databases[name], statement)
            before = self.on(name)
            self.fails(1, "the user has no right to do this", "copy", source, f"dsn:{name}", "--to-user",
                       clerk, "--replace", "--yes")
            self.assertEqual(self.on(name), before)
            for statement in drops[name]:
                self.kinds[name].execute(self.databases[name], statement)

    def check_setting(self, target):
        names = {"postgresql": "PostgreSQL", "mariadb": "MariaDB"}
        self.assertEqual(self.value(target, "SELECT tCfgSSet FROM TConfig WHERE tCfgSKey = 'DBMS'"),
                         names.get(target, "SQLite"))

    def check_next_key(self, target):
        """New keys go on where those of the source would have, and the row is taken out again."""
        add = "INSERT INTO TDoctor (tDrSName) VALUES ('next')"
        remove = "DELETE FROM TDoctor WHERE tDrSName = 'next'"
        key = "SELECT MAX(tDrCulIntDrIDPk) FROM TDoctor"
        if isinstance(target, str):
            kind, database = self.kinds[target], self.databases[target]
        else:
            kind, database = self.kinds["sqlite"], target / "practice.db"
        kind.execute(database, add)
        given = int(self.value(target, key))
        kind.execute(database, remove)
        self.assertGreaterEqual(given, whole_rows.NEXT_DOCTOR)

    def test_a_copy_can_be_used_like_any_practice(self):
        target = ["dsn:postgresql", "--user", doctor_kinds.USER]
        self.copy(self.practice, "dsn:postgresql", "--to-user", doctor_kinds.USER, "--replace", "--yes")
        self.assertEqual(self.done("list", target[0], "images", *target[1:]),
                         self.done("list", self.practice, "images"))


class Refusals(Copy):
    def test_a_practice_with_rows_is_not_copied_over(self):
        target = self.folder_of("filled")
        self.done("sample", target, "--patients", 2, "--seed", 5)
        before = self.contents(target)
        self.fails(1, "--replace to lose them", "copy", self.practice, target)
        self.fails(2, "--yes", "copy", self.practice, target, "--replace")
        self.assertEqual(self.contents(target), before)

    def test_a_practice_is_not_copied_to_itself(self):
        before = self.contents(self.practice)
        self.fails(2, "the same", "copy", self.practice, self.folder / "x" / ".." / "practice",
                   "--replace", "--yes")
        self.assertEqual(self.contents(self.practice), before)

    def test_a_practice_is_not_copied_to_itself_under_another_name(self):
        before = self.contents(self.practice)
        (self.folder / "alias").symlink_to(self.practice)
        self.fails(2, "are the same database", "copy", self.practice, self.folder / "alias", "--replace",
                   "--yes")
        self.assertEqual(self.contents(self.practice), before)

    def test_an_unfinished_copy_is_not_copied_on(self):
        source = self.folder_of("unfinished")
        with sqlite3.connect(source / "practice.db") as connection:
            connection.execute("INSERT INTO TConfig (tCfgCulIntCfgIDPk, tCfgSKey, tCfgSSet) "
                               "VALUES (-1, 'KyODBC copy', 'from somewhere')")
        connection.close()
        self.fails(1, "FROM is an unfinished copy", "copy", source, self.folder_of("behind"))

    def test_the_highest_key_there_can_be_is_copied(self):
        source, target = self.folder_of("full"), self.folder_of("filled up")
        with sqlite3.connect(source / "practice.db") as connection:
            connection.execute("INSERT INTO TTest (tTstCulIntTstIDPk) VALUES (2147483647)")
        connection.close()
        self.assertTrue(self.copy(source, target)["equal"])

    def test_a_target_without_tables_is_refused(self):
        target = self.folder_of("bare")
        sqlite3.connect(target / "practice.db").executescript("DROP VIEW TMakroRaw; DROP TABLE TMakro")
        self.fails(1, "TMakro", "copy", self.practice, target)

    def test_a_row_that_the_target_refuses_is_named(self):
        source, target = self.folder_of("refused"), self.folder_of("refusing")
        sqlite3.connect(source / "practice.db").executescript(
            "INSERT INTO TStation (tStatSName) VALUES ('good'), ('bad'), ('good')")
        sqlite3.connect(target / "practice.db").executescript(
            "CREATE TRIGGER refuse BEFORE INSERT ON TStation WHEN NEW.tStatSName = 'bad' "
            "BEGIN SELECT RAISE(ABORT, 'refused'); END")
        self.fails(1, "the row of TStation with key 3", "copy", source, target)


class Differences(Copy):
    """--verify-only on a copy that somebody has falsified."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.target = cls.folder / "copied"
        cls.done("init", cls.target)
        cls.done("copy", cls.practice, cls.target)

    def falsified(self, sql):
        """What is said of a copy changed so, which is as before afterwards."""
        database = self.target / "practice.db"
        before = database.read_bytes()
        with sqlite3.connect(database) as connection:
            connection.execute(sql)
        connection.close()
        said = self.fails(3, "rows differ", "copy", self.practice, self.target, "--verify-only")
        database.write_bytes(before)
        return said

    def test_an_equal_copy_is_told_to_be_equal(self):
        self.assertIn("every field compared equal",
                      self.done("copy", self.practice, self.target, "--verify-only"))

    def test_a_changed_field_is_told(self):
        self.assertIn("TPatient, key 3: differs in tpatsname\n",
                      self.falsified("UPDATE TPatient SET tPatSName = tPatSName || '!' "
                                     "WHERE tPatCulIntPatIDPk = 3"))

    def test_no_value_is_not_the_empty_text(self):
        self.assertIn("TPatient, key 20: differs in tpatsresponsible\n",
                      self.falsified("UPDATE TPatient SET tPatSResponsible = NULL "
                                     "WHERE tPatCulIntPatIDPk = 20"))

    def test_a_field_that_no_record_carries_is_compared_too(self):
        self.assertIn("TTest, key 1: differs in ttstsadd\n",
                      self.falsified("UPDATE TTest SET tTstSAdd = 'x' WHERE tTstCulIntTstIDPk = 1"))

    def test_a_missing_and_an_added_row_are_told(self):
        self.assertIn("TImage, key 2: the row is missing in the copy\n",
                      self.falsified("DELETE FROM TImage WHERE tImgCulIntImgIDPk = 2"))
        self.assertIn("TMakro, key 7000: the copy has a row",
                      self.falsified("INSERT INTO TMakro (tMakCulIntMakIDPk) VALUES (7000)"))

    def test_values_are_never_told(self):
        said = self.falsified("UPDATE TPatient SET tPatSName = 'Secretive' WHERE tPatCulIntPatIDPk = 3")
        self.assertNotIn("Secretive", said)


class Interrupted(Copy):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.big = cls.folder / "big"
        cls.done("init", cls.big)
        cls.done("sample", cls.big, "--patients", 400)

    def stop(self, target, sent, table):
        """Copies until the table has more rows, and sends the signal while the target cannot be written
        to, so that the copy cannot end meanwhile."""
        connection = sqlite3.connect(target / "practice.db", isolation_level=None, timeout=PATIENCE)
        there = connection.execute(f"SELECT COUNT(*) FROM {table}").fetchone()[0]
        process = subprocess.Popen([TOOL, "copy", self.big, target], stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, encoding="utf-8")
        end = time.monotonic() + PATIENCE
        while connection.execute(f"SELECT COUNT(*) FROM {table}").fetchone()[0] <= there:
            self.assertIsNone(process.poll(), "the copy ended")
            self.assertLess(time.monotonic(), end)
        connection.execute("BEGIN IMMEDIATE")
        process.send_signal(sent)
        connection.execute("ROLLBACK")
        connection.close()
        _, said = process.communicate(timeout=PATIENCE)
        return process.returncode, said

    def examined(self, target):
        files = {"ODBCSYSINI": str(target), "ODBCINI": str(target / "odbc.ini")}
        return subprocess.run([TOOL, "doctor", "practice"], env={**os.environ, **files}, capture_output=True,
                              encoding="utf-8").stdout

    def count(self, target, table):
        return self.query(f"SELECT COUNT(*) FROM {table}", practice=target)[0][0]

    def test_a_copy_that_was_interrupted_goes_on(self):
        target = self.folder_of("target")
        self.assertEqual(self.stop(target, signal.SIGINT, "TPatient"), (130, "kyodbc: interrupted\n"))
        self.assertLess(self.count(target, "TImage"), self.count(self.big, "TImage"))
        self.assertEqual(self.stop(target, signal.SIGTERM, "TImage"), (143, "kyodbc: asked to end\n"))
        self.assertIn("schema version is 0.0", self.examined(target))
        self.fails(1, "unfinished copy of another practice", "copy", self.practice, target)
        result = self.copy(self.big, target)
        self.assertEqual((result["resumed"], result["equal"]), (True, True))
        self.assertEqual(self.contents(target), self.contents(self.big))
        self.assertEqual(self.done("list", target, "patients"), self.done("list", self.big, "patients"))

    def test_what_changed_behind_an_interrupted_copy_is_found(self):
        target = self.folder_of("changed")
        self.stop(target, signal.SIGINT, "TImage")
        with sqlite3.connect(target / "practice.db") as connection:
            connection.execute("UPDATE TPatient SET tPatSName = '' WHERE tPatCulIntPatIDPk = 1")
        connection.close()
        self.fails(3, "the copy is not finished", "copy", self.big, target)
        self.assertIn("schema version is 0.0", self.examined(target))
        self.copy(self.big, target, "--replace", "--yes")


if __name__ == "__main__":
    unittest.main()
