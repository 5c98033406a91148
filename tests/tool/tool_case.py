"""The companion program on practices in temporary folders. Its path is in KYODBC_TOOL."""
import os
import pathlib
import sqlite3
import subprocess
import tempfile
import unicodedata
import unittest

TOOL = os.environ["KYODBC_TOOL"]


class ToolCase(unittest.TestCase):
    """A folder for the tests of a class."""

    @classmethod
    def setUpClass(cls):
        holder = tempfile.TemporaryDirectory(prefix="kyodbc-tool-")
        cls.addClassCleanup(holder.cleanup)
        cls.folder = pathlib.Path(holder.name)
        cls.practice = cls.folder / "practice"

    environment = {}  # more than this process has

    @classmethod
    def start(cls, *arguments, cwd=None):
        environment = {key: value for key, value in os.environ.items() if not key.startswith("ODBC")}
        return subprocess.run([TOOL, *map(str, arguments)], capture_output=True, encoding="utf-8", cwd=cwd,
                              env={**environment, **cls.environment}, timeout=100)

    @classmethod
    def done(cls, *arguments):
        """What the program prints; it must succeed and say nothing else."""
        result = cls.start(*arguments)
        if result.returncode != 0 or result.stderr:
            raise AssertionError(f"{arguments}: code {result.returncode}: {result.stderr}")
        return result.stdout

    def fails(self, code, message, *arguments):
        """The program must end with `code` and say `message`; gives what it printed."""
        result = self.start(*arguments)
        self.assertEqual(result.returncode, code, result.stderr)
        self.assertIn(message, result.stderr)
        return result.stdout

    def query(self, sql, *parameters, practice=None):
        """Rows as SQLite itself reads them."""
        connection = sqlite3.connect((practice or self.practice) / "practice.db")
        try:
            return connection.execute(sql, parameters).fetchall()
        finally:
            connection.close()

    def value(self, sql, *parameters, practice=None):
        return self.query(sql, *parameters, practice=practice)[0][0]


def on_screen(line):
    """The line with a zero character behind every wide one, so that slices count columns of the terminal."""
    return "".join(c + "\0" if unicodedata.east_asian_width(c) in "WF" else c for c in line)


def table(output):
    """A printed table as a list of rows, each a dictionary by title."""
    titles, rules, *lines = map(on_screen, output.splitlines()[:-1])
    columns, start = [], 0
    for rule in rules.split("  "):
        columns.append((titles[start:start + len(rule)].strip(), start, start + len(rule)))
        start += len(rule) + 2
    return [{title: line[first:last].strip().replace("\0", "") for title, first, last in columns}
            for line in lines]
