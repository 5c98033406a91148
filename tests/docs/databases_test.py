#!/usr/bin/env python3
"""The set-up of a database, done as docs/databases.md tells it, leaves nothing to complain of.

Usage: databases_test.py ROOT BUILD DATABASE

A server of the test's own stands for the practice's: its name, port, folders and restart are put in place of
those on the page. Everything else is done as it stands there, and looked at from a workstation.
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


def chapter():
    text = (ROOT / "docs" / "databases.md").read_text(encoding="utf-8")
    return re.search(rf"^## Setting up {NAMES[DATABASE]} for a practice\n(.*?)(?=^## )", text, re.M | re.S)[1]


class SetUp(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="kyodbc-docs-")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        (self.folder / "schema").symlink_to(ROOT / "schema")
        (self.folder / "practice").mkdir()
        self.environment = {**os.environ, "HOME": str(self.folder), "ODBCINI": str(self.folder / "odbc.ini"),
                            "PATH": f"{BUILD}/tools:{os.environ['PATH']}"}
        if DATABASE != "sqlite":
            self.start_server()

    def start_server(self):
        """Its administrator's programs find it without being told in each command."""
        self.server = pathlib.Path(tempfile.mkdtemp(prefix="kyodbc-docs-server-"))
        self.addCleanup(self.control, "stop")
        self.control("start", DATABASE)
        self.port = (self.server / f"{DATABASE}.port").read_text().strip()
        if DATABASE == "postgresql":
            self.environment.update(PGHOST="127.0.0.1", PGPORT=self.port, PGUSER="practice",
                                    PGPASSWORD="secret")
        else:
            socket = self.server / "mariadb" / "socket"
            (self.folder / ".my.cnf").write_text(f"[client]\nsocket={socket}\nuser=root\n")

    def control(self, command, *server):
        subprocess.run([ROOT / "tests/support/servers", command, self.server, *server], check=True,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def here(self, text):
        """A block of the page with the names of this machine."""
        for there, here in (("/srv/practice", self.folder / "practice"),
                            ("/root/tls", self.folder / "tls"),
                            ("/etc/ssl/practice-ca.crt", self.folder / "tls" / "practice-ca.crt")):
            text = text.replace(there, str(here))
        if DATABASE == "sqlite":
            return text
        data = self.server / "mariadb"
        for there, here in (("/etc/mysql/mariadb.conf.d/90-practice-tls.cnf", data / "my.cnf"),
                            ("/var/lib/mysql", data / "data"),
                            ("systemctl restart mariadb", self.restart()),
                            # For this name the driver would take the socket.
                            ("SERVER=db.practice.example", "SERVER=localhost\nTCPIP=1"),
                            ("db.practice.example", "localhost")):
            text = text.replace(there, str(here))
        return re.sub(r"^(Port|PORT)=\d+$", rf"\1={self.port}", text, flags=re.M)

    def restart(self):
        servers = ROOT / "tests" / "support" / "servers"
        return f"{servers} halt {self.server} mariadb; {servers} resume {self.server} mariadb"

    def done(self, command):
        """What the commands print. Scripts that ask for a password read it from the input."""
        result = subprocess.run(["bash", "-euo", "pipefail", "-c", command], cwd=self.folder, timeout=100,
                                env=self.environment, input=f"{PASSWORD}\n{PASSWORD}\n", encoding="utf-8",
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual(result.returncode, 0, f"{command}\n{result.stdout}")
        return result.stdout

    def keep(self, block):
        """A data source, or the section of a driver, which belongs into a file of its own."""
        if "[practice]" in block.code:
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
        said = self.done(check)
        self.assertTrue(said.endswith("All is well.\n"), said)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
