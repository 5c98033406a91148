#!/usr/bin/env python3
"""The symbols file is held to what a library exports. Usage: symbols_test.py ROOT C-COMPILER"""
import contextlib
import io
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(sys.argv[1]) / "packaging"))

import symbols  # noqa: E402


class Symbols(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="kyodbc-symbols-")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.addCleanup(setattr, symbols, "SYMBOLS", symbols.SYMBOLS)
        symbols.SYMBOLS = self.folder / "symbols"

    def library(self, *names):
        file = self.folder / "library.so"
        source = "".join(f"void {name}(void) {{}}\n" for name in names) + "static void inside(void) {}\n" \
                 "void (*kept)(void) __attribute__((visibility(\"hidden\"))) = inside;\n"
        subprocess.run([sys.argv[2], "-shared", "-fPIC", "-nostdlib", "-x", "c", "-", "-o", file],
                       input=source, check=True, encoding="utf-8")
        return file

    def told(self, *arguments):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = symbols.main(*arguments)
        return status, output.getvalue().splitlines()[:-1]

    def test_a_name_keeps_the_version_that_it_came_with(self):
        symbols.main("accept", self.library("DB_Old"), "1.5.0")
        symbols.main("accept", self.library("DB_Old", "DB_New"), "1.6.0")
        self.assertEqual(symbols.SYMBOLS.read_text(), "libKyODBC.so.1 libkyodbc1 #MINVER#\n"
                                                      " DB_New@Base 1.6.0\n DB_Old@Base 1.5.0\n")

    def test_names_that_are_new_or_gone_are_told(self):
        symbols.main("accept", self.library("DB_Stays", "DB_Goes"), "1.5.0")
        self.assertEqual(self.told("compare", self.library("DB_Stays", "DB_Goes"), "1.5.0"), (0, []))
        self.assertEqual(self.told("compare", self.library("DB_Stays", "DB_Comes"), "1.5.0"),
                         (1, ["new: DB_Comes", "gone: DB_Goes"]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
