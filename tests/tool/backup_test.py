#!/usr/bin/env python3
"""kyodbc backup and restore, on the database that KYODBC_TEST_DB names."""
import hashlib
import json
import os
import pathlib
import resource
import signal
import sqlite3
import stat
import subprocess
import time
import unittest

import doctor_kinds
import whole_rows
from source_case import SourceCase
from tool_case import TOOL

PATIENCE = 60


class Held:
    """A row that somebody else is changing, so that a restore has to wait."""

    def __init__(self, kind, database):
        self.kind, self.database = kind, database

    def __enter__(self):
        if self.kind.name == "sqlite":
            self.connection = sqlite3.connect(self.database, isolation_level=None)
            self.connection.execute("BEGIN IMMEDIATE")
            return self
        common = ["-h", doctor_kinds.HOST, "-P" if self.kind.name == "mariadb" else "-p", self.kind.port()]
        command = {"postgresql": ["psql", "-XqAt", *common, "-U", self.kind.user, "-d", self.database],
                   "mariadb": ["mariadb", "--no-defaults", "-N", "-n", *common, "-u", self.kind.user,
                               self.database]}[self.kind.name]
        password = {"PGPASSWORD": doctor_kinds.PASSWORD, "MYSQL_PWD": doctor_kinds.PASSWORD}
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        encoding="utf-8", env={**os.environ, **password})
        self.process.stdin.write("BEGIN; UPDATE TDoctor SET tDrSAdd = 'held'; SELECT 'ready';\n")
        self.process.stdin.flush()
        self.process.stdout.readline()
        return self

    def __exit__(self, *_):
        if self.kind.name == "sqlite":
            self.connection.close()
        else:
            self.process.stdin.close()
            self.process.stdout.close()
            self.process.wait(PATIENCE)


class Backup(SourceCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.kind = doctor_kinds.current()
        cls.make(cls.kind)
        cls.name, *cls.login = cls.source(cls.kind)
        cls.done("init", cls.practice)
        cls.done("sample", cls.practice, "--patients", 12)
        whole_rows.fill(cls.practice)
        login = ["--to-user", cls.kind.user] if cls.kind.user else []
        cls.done("copy", cls.practice, cls.name, *login)
        cls.database = cls.databases[cls.kind.name]
        cls.file = cls.folder / "backup"
        cls.said = cls.done("backup", cls.name, cls.file, *cls.login)
        cls.expected = cls.contents()

    @classmethod
    def contents(cls):
        return whole_rows.contents(cls.kind, cls.database)

    def execute(self, sql):
        self.kind.execute(self.database, sql)

    def restore(self, *options):
        return self.done("restore", self.name, self.file, *options, *self.login)

    def spoil(self):
        """Other rows than those of the backup."""
        self.execute("DELETE FROM TImage WHERE tImgCulIntImgIDPk > 3;"
                     "UPDATE TPatient SET tPatSName = 'spoiled';"
                     "INSERT INTO TMakro (tMakSName) VALUES ('new')")
        self.addCleanup(self.restore, "--replace", "--yes")
        return self.contents()

    def copy_of_backup(self, name, change):
        """A backup that somebody has changed."""
        file, manifest = self.folder / name, self.folder / f"{name}.json"
        file.write_bytes(self.file.read_bytes())
        document = json.loads((self.folder / "backup.json").read_text())
        change(file, document)
        manifest.write_text(json.dumps(document))
        return file

    def test_a_backup_and_what_is_told_of_it_can_be_read_by_its_owner_only(self):
        for name in ("backup", "backup.json"):
            self.assertEqual(stat.S_IMODE(os.stat(self.folder / name).st_mode), 0o600)
        self.assertEqual([name for name in os.listdir(self.folder) if ".part" in name], [])

    def test_numbers_of_rows_and_the_checksum_of_the_file_are_told(self):
        document = json.loads((self.folder / "backup.json").read_text())
        self.assertEqual(document["sha256"], hashlib.sha256(self.file.read_bytes()).hexdigest())
        for table in document["tables"]:
            number = int(self.rows(self.kind, f"SELECT COUNT(*) FROM {table['table']}")[0][0])
            self.assertEqual(table["rows"], number)
            self.assertRegex(self.said, rf"(?m)^{table['table']} +{number}  {table['checksum']}$")
        self.assertEqual({table["table"] for table in document["tables"]}, set(whole_rows.TABLES))

    def test_a_restored_practice_has_every_field_of_every_row_again(self):
        self.spoil()
        self.restore("--replace", "--yes")
        found = self.contents()
        for table in whole_rows.TABLES:
            self.assertEqual(found[table], self.expected[table], table)

    def test_an_empty_practice_needs_no_replace(self):
        kind = type(self.kind)()
        kind.name = self.kind.name
        database = kind.create(self.folder, f"empty{os.getpid()}")
        self.addCleanup(kind.drop, database)
        options = "".join(f"{key}={value}\n" for key, value in kind.options(database).items())
        with open(self.folder / "odbc.ini", "a", encoding="utf-8") as file:
            file.write(f"[empty]\nDriver={kind.driver}\n{options}\n")
        self.done("restore", "dsn:empty", self.file, "--yes", *self.login)
        self.assertEqual(whole_rows.contents(kind, database), self.expected)
        kind.execute(database, "INSERT INTO TDoctor (tDrSName) VALUES ('next')")
        key = kind.rows(database, "SELECT MAX(tDrCulIntDrIDPk) FROM TDoctor")[0][0]
        self.assertGreaterEqual(int(key), whole_rows.NEXT_DOCTOR)

    def test_rows_are_not_lost_unasked(self):
        before = self.spoil()
        self.fails(1, "--replace to lose them", "restore", self.name, self.file, "--yes", *self.login)
        self.fails(2, "--yes", "restore", self.name, self.file, "--replace", *self.login)
        self.assertEqual(self.contents(), before)

    def test_a_disk_that_is_full_is_told_and_nothing_is_left_on_it(self):
        size = 5_000 if self.kind.user else 100_000  # the embedded database has to read itself

        def make_small():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))

        folder = self.folder / "full"
        folder.mkdir()
        result = subprocess.run([TOOL, "backup", self.name, folder / "backup", *self.login], timeout=PATIENCE,
                                env={**os.environ, **self.environment}, preexec_fn=make_small,
                                capture_output=True, encoding="utf-8")
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertRegex(result.stderr, "full|write|too large")
        self.assertEqual(os.listdir(folder), [])

    def test_a_backup_is_never_overwritten(self):
        before = self.file.read_bytes()
        self.fails(1, "exists already", "backup", self.name, self.file, *self.login)
        self.assertEqual(self.file.read_bytes(), before)

    def test_a_damaged_file_changes_nothing(self):
        before = self.spoil()

        def flip(file, _):
            data = bytearray(file.read_bytes())
            data[len(data) // 2] ^= 1
            file.write_bytes(data)

        file = self.copy_of_backup("flipped", flip)
        self.fails(3, "its checksum differs", "restore", self.name, file, "--replace", "--yes", *self.login)
        self.assertEqual(self.contents(), before)

    def test_rows_that_are_not_those_of_the_backup_are_taken_back(self):
        before = self.spoil()

        def falsify(_, document):
            document["tables"][3]["checksum"] = "0" * 32

        file = self.copy_of_backup("falsified", falsify)
        self.fails(3, "TPatient", "restore", self.name, file, "--replace", "--yes", *self.login)
        self.assertEqual(self.contents(), before)

    def test_a_backup_cut_short_changes_nothing(self):
        before = self.spoil()

        def cut(file, document):
            data = file.read_bytes()
            file.write_bytes(data[:len(data) // 2])
            document["sha256"] = hashlib.sha256(file.read_bytes()).hexdigest()

        file = self.copy_of_backup("cut", cut)
        result = self.start("restore", self.name, file, "--replace", "--yes", *self.login)
        self.assertIn(result.returncode, (1, 3))
        self.assertEqual(self.contents(), before)

    def test_a_backup_that_does_not_tell_of_every_table_changes_nothing(self):
        before = self.spoil()
        for change in (lambda _, document: document.update(tables=[]),
                       lambda _, document: document["tables"].pop()):
            file = self.copy_of_backup(f"tables{change.__code__.co_firstlineno}", change)
            self.fails(1, "does not name every table", "restore", self.name, file, "--replace", "--yes",
                       *self.login)
        self.assertEqual(self.contents(), before)

    def test_a_statement_hidden_in_a_backup_is_not_run(self):
        if self.kind.name != "mariadb":
            return  # the backups of the others are no text
        before = self.spoil()

        def hide(file, document):
            data = file.read_bytes()
            end = data.index(b");\n", data.index(b"INSERT INTO `TDoctor"))
            file.write_bytes(data[:end] + b"); COMMIT; \\! touch hidden\n" + data[end + 3:])
            document["sha256"] = hashlib.sha256(file.read_bytes()).hexdigest()

        file = self.copy_of_backup("hidden", hide)
        self.fails(1, "the backup is damaged", "restore", self.name, file, "--replace", "--yes", *self.login)
        self.assertEqual(self.contents(), before)

    def test_a_backup_of_another_system_is_refused_with_the_way_that_leads_there(self):
        def rename(_, document):
            document["system"] = "Oracle"

        file = self.copy_of_backup("other", rename)
        self.fails(1, "kyodbc copy", "restore", self.name, file, "--replace", "--yes", *self.login)
        (self.folder / "alone").write_bytes(b"")
        self.fails(1, "alone.json", "restore", self.name, self.folder / "alone", "--yes", *self.login)

    def waiting(self, process):
        """Until the restore stands before the row that somebody else has, and what it is called with."""
        waits = {"postgresql": "SELECT COUNT(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock' "
                               "AND datname = current_database()",
                 "mariadb": "SELECT COUNT(*) FROM information_schema.INNODB_TRX "
                            "WHERE trx_state = 'LOCK WAIT'"}
        end = time.monotonic() + PATIENCE
        while int(self.rows(self.kind, waits[self.kind.name])[0][0]) == 0:
            self.assertIsNone(process.poll(), "the restore ended")
            self.assertLess(time.monotonic(), end)
            # MariaDB answers from a copy that whoever asks more often keeps from being renewed.
            time.sleep(0.2)
        return [pathlib.Path(f"/proc/{pid}/cmdline").read_text() for pid in self.family(process.pid)]

    def family(self, pid):
        children = pathlib.Path(f"/proc/{pid}/task/{pid}/children").read_text().split()
        return [pid, *(one for child in children for one in self.family(child))]

    def test_an_interrupted_restore_leaves_the_old_rows_and_no_password_is_on_a_command_line(self):
        before = self.spoil()
        command = [TOOL, "restore", self.name, self.file, "--replace", "--yes", *self.login]
        environment = {**os.environ, **self.environment}
        with Held(self.kind, self.database):
            with subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  encoding="utf-8") as process:
                if self.kind.user:
                    called = self.waiting(process)
                    self.assertGreater(len(called), 1)
                    self.assertNotIn(doctor_kinds.PASSWORD, "".join(called))
                else:
                    self.begun(process)
                process.send_signal(signal.SIGINT)
                _, said = process.communicate(timeout=PATIENCE)
        self.assertEqual((process.returncode, said), (130, "kyodbc: interrupted\n"))
        self.assertEqual(self.contents(), before)
        self.assertEqual([name for name in os.listdir(self.folder) if ".before-restore" in name], [])

    def begun(self, process):
        """Until the restore has put the old rows aside, which it does before it writes."""
        end = time.monotonic() + PATIENCE
        while not any(".before-restore" in name for name in os.listdir(self.folder)):
            self.assertIsNone(process.poll(), "the restore ended")
            self.assertLess(time.monotonic(), end)

    def test_a_restore_that_the_database_refuses_leaves_the_old_rows(self):
        if not self.kind.user:
            return  # the embedded database's file is replaced whole: there is no row that it could refuse
        self.spoil()
        self.execute("DELETE FROM TTest; ALTER TABLE TTest ADD CONSTRAINT none_at_all CHECK (1 = 2)")
        before = self.contents()
        self.addCleanup(self.execute, "ALTER TABLE TTest DROP CONSTRAINT none_at_all")
        self.fails(1, "failed", "restore", self.name, self.file, "--replace", "--yes", *self.login)
        self.assertEqual(self.contents(), before)


class Neighbours(SourceCase):
    """Two practices side by side: in two schemas of a database of PostgreSQL, elsewhere in two databases of
    which the data source names one."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.kind = doctor_kinds.current()
        if not cls.kind.user:
            raise unittest.SkipTest("a file is one practice")
        cls.make(cls.kind)
        cls.database = cls.databases[cls.kind.name]
        cls.name, *cls.login = cls.source(cls.kind)
        schema = (doctor_kinds.SOURCE / f"schema/{cls.kind.name}.sql").read_text()
        if cls.kind.name == "postgresql":
            cls.first, cls.second = "public.", "second."
            cls.kind.execute(cls.database, "CREATE SCHEMA second;\n"
                             f"SET search_path = second, public;\n{schema}")
        else:
            cls.first, cls.second = cls.database + ".", cls.database + "b."
            cls.kind.create(cls.folder, cls.second[:-1])
            cls.addClassCleanup(cls.kind.drop, cls.second[:-1])
        for owner, name in ((cls.first, "First"), (cls.second, "Second")):
            cls.kind.execute(cls.database, f"INSERT INTO {owner}TPatient (tPatSName) VALUES ('{name}')")

    def names(self):
        return [self.kind.rows(self.database, f"SELECT tPatSName FROM {owner}TPatient")
                for owner in (self.first, self.second)]

    def spoil(self, owner):
        self.kind.execute(self.database, f"UPDATE {owner}TPatient SET tPatSName = 'spoiled'")

    def back_up(self, name, *owner):
        file = self.folder / name
        self.done("backup", self.name, file, *owner, *self.login)
        return file

    def restore(self, file, *owner):
        self.done("restore", self.name, file, "--replace", "--yes", *owner, *self.login)

    def test_a_backup_holds_one_practice_and_comes_back_into_it_alone(self):
        first = self.back_up("first")
        self.spoil(self.first)
        self.restore(first)
        self.assertEqual(self.names(), [[("First",)], [("Second",)]])

    def test_the_other_practice_is_backed_up_under_its_owner(self):
        owner = ["--owner", self.second]
        second = self.back_up("second", *owner)
        self.spoil(self.second)
        self.restore(second, *owner)
        self.assertEqual(self.names(), [[("First",)], [("Second",)]])

    def test_a_backup_of_one_practice_goes_into_the_other(self):
        first, second = self.back_up("from"), self.back_up("kept", "--owner", self.second)
        self.addCleanup(self.restore, second, "--owner", self.second)
        self.restore(first, "--owner", self.second)
        self.assertEqual(self.names(), [[("First",)], [("First",)]])


class Missing(SourceCase):
    def test_the_program_of_the_database_that_is_not_installed_is_named(self):
        kind = doctor_kinds.current()
        if not kind.user:
            return  # the embedded database needs none
        self.make(kind)
        name, *login = self.source(kind)
        environment = {**os.environ, **self.environment, "PATH": str(self.folder)}
        result = subprocess.run([TOOL, "backup", name, self.folder / "none", *login], env=environment,
                                capture_output=True, encoding="utf-8")
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, "cannot run (pg_dump|mariadb-dump)")
        self.assertFalse((self.folder / "none").exists())


if __name__ == "__main__":
    unittest.main()
