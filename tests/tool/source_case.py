"""The companion program on data sources for practices on any database."""
import os

import doctor_kinds
from tool_case import ToolCase


class SourceCase(ToolCase):
    """KYODBC_PASSWORD and the ODBC files are in the environment of the programs; each database is a data
    source of its name."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.databases = {}
        cls.environment = {"ODBCSYSINI": str(cls.folder), "ODBCINI": str(cls.folder / "odbc.ini"),
                           "KYODBC_PASSWORD": doctor_kinds.PASSWORD}
        (cls.folder / "odbcinst.ini").touch()

    @classmethod
    def make(cls, kind):
        """A fresh practice and its data source."""
        database = kind.create(cls.folder, f"tool{os.getpid()}")
        cls.addClassCleanup(kind.drop, database)
        cls.databases[kind.name] = database
        options = "".join(f"{key}={value}\n" for key, value in kind.options(database).items())
        with open(cls.folder / "odbc.ini", "a", encoding="utf-8") as file:
            file.write(f"[{kind.name}]\nDriver={kind.driver}\n{options}\n")

    @staticmethod
    def source(kind, user=None):
        """The data source on a command line, behind everything else."""
        return [f"dsn:{kind.name}", *(["--user", user or kind.user] if kind.user else [])]

    @classmethod
    def rows(cls, kind, sql):
        return kind.rows(cls.databases[kind.name], sql)
