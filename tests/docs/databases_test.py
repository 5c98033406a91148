#!/usr/bin/env python3
"""The set-up of a database, done as docs/databases.md tells it, leaves nothing to complain of.

Usage: databases_test.py ROOT BUILD DATABASE; servers in KYODBC_TEST_SERVERS.

What a machine of a practice has and one of a test has not is put in its place: the name of the server, the
folder /srv/practice, encryption, which the page lets go on one machine. Names of databases and accounts are
this test's own, since servers are shared.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import pages

ROOT, BUILD, DATABASE = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
NAMES = {"sqlite": "SQLite", "postgresql": "PostgreSQL", "mariadb": "MariaDB"}
PASSWORD = "it's a pass word"
ENCRYPTION = r"^(?:SSLmode=verify-full|pqopt=.*|FORCETLS=1|SSLCA=.*|SSLVERIFY=1)\n"


def chapter():
    text = (ROOT / "docs" / "databases.md").read_text(encoding="utf-8")
    return re.search(rf"^## Setting up {NAMES[DATABASE]} for a practice\n(.*?)(?=^## )", text, re.M | re.S)[1]


class SetUp(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="kyodbc-docs-")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.name = f"docs_{os.getpid()}"
        (self.folder / "schema").symlink_to(ROOT / "schema")
        (self.folder / "practice").mkdir()
        self.environment = {**os.environ, **self.administrator(), "HOME": str(self.folder),
                            "ODBCINI": str(self.folder / "odbc.ini"),
                            "PATH": f"{BUILD}/tools:{os.environ['PATH']}"}
        self.addCleanup(self.removed)

    def servers(self):
        return pathlib.Path(os.environ["KYODBC_TEST_SERVERS"])

    def port(self):
        return (self.servers() / f"{DATABASE}.port").read_text().strip()

    def administrator(self):
        """How the administrator's programs reach the server, without saying so in each command."""
        if DATABASE == "postgresql":
            return {"PGHOST": "127.0.0.1", "PGPORT": self.port(),
                    "PGUSER": "practice", "PGPASSWORD": "secret"}
        if DATABASE == "mariadb":
            socket = self.servers() / "mariadb" / "socket"
            (self.folder / ".my.cnf").write_text(f"[client]\nsocket={socket}\nuser=root\n")
        return {}

    def here(self, text):
        """A block of the page with the names of this machine."""
        text = text.replace("/srv/practice", str(self.folder / "practice"))
        if DATABASE == "sqlite":
            return text
        text = re.sub(ENCRYPTION, "", text.replace("db.practice.example", "127.0.0.1"), flags=re.M)
        text = re.sub(r"^(Port|PORT)=\d+$", rf"\1={self.port()}", text, flags=re.M)
        text = re.sub(r"(?<!\[)\bpractice\b(?=[\s.]|$)(?!\.example)", self.name, text)
        text = re.sub(r"\b(xray|reader)\b", rf"{self.name}_\1", text)
        return text.replace("mariadb-accounts.sh", "mariadb-accounts.sh --without-tls")

    def done(self, command):
        """What the commands print. Scripts that ask for a password read it from the input."""
        result = subprocess.run(["bash", "-euo", "pipefail", "-c", command], cwd=self.folder, timeout=100,
                                env=self.environment, input=f"{PASSWORD}\n{PASSWORD}\n", encoding="utf-8",
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual(result.returncode, 0, f"{command}\n{result.stdout}")
        return result.stdout

    def removed(self):
        """Servers are as they were before."""
        xray, reader = f"{self.name}_xray", f"{self.name}_reader"
        if DATABASE == "postgresql":
            for what in (f"DATABASE IF EXISTS {self.name} WITH (FORCE)", f"ROLE IF EXISTS {xray}, {reader}"):
                self.done(f"psql -q -d postgres -c 'DROP {what}'")
        if DATABASE == "mariadb":
            for what in (f"DATABASE IF EXISTS {self.name}", f"USER IF EXISTS {xray}, {reader}@'192.168.1.%'"):
                self.done(f'mariadb -e "DROP {what}"')

    def keep(self, block):
        """A data source, or the section of a driver, which belongs into a file of its own."""
        if "Database=" in block.code or "DATABASE=" in block.code:
            (self.folder / "odbc.ini").write_text(self.here(block.code))
        else:
            (self.folder / "odbcinst.ini").write_text(block.code)
            self.environment["ODBCSYSINI"] = str(self.folder)

    def test_done_as_told_the_doctor_finds_nothing(self):
        for block in pages.blocks(chapter()):
            if block.language == "sh":
                self.done(self.here(block.code))
            else:
                self.keep(block)
        check = re.search(r"^\d\. Check: `(kyodbc doctor practice[^`]*)`", chapter(), re.M)[1]
        self.environment["KYODBC_PASSWORD"] = PASSWORD
        said = self.done(re.sub(r"--user xray", f"--user {self.name}_xray", check))
        self.assertTrue(said.endswith("All is well.\n"), said)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
