#!/usr/bin/env python3
"""The programs that README.md prints are those of examples/, compile as they stand, and run.

Usage: readme_test.py ROOT BUILD C-COMPILER C++-COMPILER FLAGS, with the companion program in KYODBC_TOOL.
"""
import os
import pathlib
import re
import subprocess
import sys
import unittest

from tool_case import ToolCase

ROOT, BUILD = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
COMPILERS = {"c": [sys.argv[3], "-std=c11"], "cpp": [sys.argv[4], "-std=c++20"]}
FLAGS = " ".join(sys.argv[5:]).split()


def printed(language):
    """The fenced programs of a language."""
    blocks = re.findall(rf"^```{re.escape(language)}\n(.*?)^```", (ROOT / "README.md").read_text(),
                        re.M | re.S)
    return [block for block in blocks if "main(" in block]


class Readme(ToolCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.done("init", cls.practice)
        cls.done("sample", cls.practice, "--patients", 60)

    def run_program(self, language):
        """Compiles the printed program and gives what it prints on the practice."""
        source = self.folder / f"program.{language}"
        program = self.folder / f"program_{language}"
        source.write_text(printed(language)[0])
        subprocess.run([*COMPILERS[language], "-Wall", "-Wextra", "-Werror", *FLAGS, f"-I{BUILD}/include",
                        source, "-o", program, f"-L{BUILD}", "-lKyODBC", f"-Wl,-rpath,{BUILD}"], check=True)
        environment = {**os.environ, "ODBCSYSINI": str(self.practice),
                       "ODBCINI": str(self.practice / "odbc.ini")}
        return subprocess.run([program], capture_output=True, encoding="utf-8", check=True, env=environment,
                              timeout=60).stdout

    def test_the_programs_are_those_of_the_examples(self):
        for language in COMPILERS:
            self.assertEqual(printed(language), [(ROOT / "examples" / f"browse.{language}").read_text()])

    def test_the_program_in_c_runs_as_printed(self):
        name, firstname = self.query("SELECT tPatSName, tPatSFirstname FROM TPatient "
                                     "WHERE tPatCulIntPatIDPk = 1")[0]
        self.assertEqual(self.run_program("c"), f"60 patients\nthe first: {firstname} {name}\n")

    def test_the_program_in_cpp_runs_as_printed(self):
        rows = self.query("SELECT tPatSName, tPatSFirstname FROM TPatient WHERE tPatSName LIKE 'M%' "
                          "ORDER BY tPatSName, tPatCulIntPatIDPk")
        self.assertGreater(len(rows), 0)
        self.assertEqual(sorted(self.run_program("cpp").splitlines()),
                         sorted(f"{name}, {firstname}" for name, firstname in rows))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
