#!/usr/bin/env python3
"""The manual pages and the completion for bash tell of everything that is there.

Usage: manual_test.py FOLDER PROGRAM ROOT, with what was built in FOLDER and the companion program as PROGRAM.
"""
import gzip
import pathlib
import re
import subprocess
import sys
import unittest

FOLDER, PROGRAM, ROOT = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3])
PAGES = ("kyodbc.1.gz", "kyodbc.3.gz", "libkyfault.7.gz")


def told_by(*words):
    return subprocess.run([PROGRAM, *words, "--help"], check=True, capture_output=True,
                          encoding="utf-8").stdout


def subcommands():
    return re.findall(r"^  ([\w-]+) ", told_by().split("Subcommands:")[1], re.M)


def options(*subcommand):
    return re.findall(r"^  (?:-\w,)?(--[\w-]+)", told_by(*subcommand), re.M)


def page(name):
    """The page as a reader sees it, on one line."""
    text = gzip.decompress((FOLDER / name).read_bytes())
    shown = subprocess.run(["groff", "-man", "-Tutf8", "-Kutf8", "-P-cbou"], input=text, check=True,
                           capture_output=True).stdout.decode("utf-8")
    return " ".join(shown.replace("\u2010", "-").split())


def completed(*words):
    """What bash offers behind these words; the last is the one that is being written."""
    line = " ".join(f"'{word}'" for word in words)
    script = (f"source {FOLDER}/kyodbc.bash; COMP_WORDS=(kyodbc {line}); COMP_CWORD={len(words)}; _kyodbc; "
              "printf '%s\\n' \"${COMPREPLY[@]}\"")
    output = subprocess.run(["bash", "-c", script], check=True, capture_output=True, encoding="utf-8",
                            cwd=ROOT)
    return output.stdout.split("\n")[:-1] if output.stdout.strip() else []


class Pages(unittest.TestCase):
    def test_are_written_without_faults(self):
        for name in PAGES:
            text = gzip.decompress((FOLDER / name).read_bytes())
            result = subprocess.run(["groff", "-man", "-Tutf8", "-Kutf8", "-ww", "-z"], input=text,
                                    capture_output=True)
            self.assertEqual((result.returncode, result.stderr), (0, b""), name)

    def test_of_the_program_has_every_subcommand_and_option(self):
        shown = page("kyodbc.1.gz")
        self.assertGreater(len(subcommands()), 7)
        for subcommand in subcommands():
            self.assertIn(f" kyodbc {subcommand} ", shown)
            for option in options(subcommand):
                if option != "--help":
                    self.assertRegex(shown, rf"[ ,]{option}\b", subcommand)
        last_line = told_by().rstrip().split("\n")[-1]
        self.assertIn(" ".join(last_line.split()), shown)

    def test_of_the_library_has_every_function_and_result_code(self):
        shown = page("kyodbc.3.gz")
        for name in re.findall(r"^DB_\w+", (ROOT / "frame/exports.txt").read_text(), re.M):
            self.assertRegex(shown, rf"\b{name}\(")
        codes = (ROOT / "platform/result_codes.h").read_text()
        for name, code in re.findall(r"^  (KYODBC_\w+) = (\d+)", codes, re.M):
            self.assertIn(f"{code} {name}", shown)

    def test_of_the_fault_driver_has_every_option_and_order(self):
        shown = page("libkyfault.7.gz")
        guide = (ROOT / "docs/fault-driver.md").read_text()
        named = re.findall(r"^\| `([\w-]+)", guide, re.M)
        self.assertGreater(len(named), 10)
        for word in named:
            self.assertIn(word, shown)


class Completion(unittest.TestCase):
    def test_offers_every_subcommand(self):
        self.assertEqual(completed(""), [*subcommands(), *options()])
        self.assertEqual(completed("imp"), ["import"])

    def test_offers_every_option_of_a_subcommand(self):
        for subcommand in subcommands():
            self.assertEqual(sorted(completed(subcommand, "--")), sorted(set(options(subcommand))))

    def test_offers_the_tables_that_can_be_listed(self):
        tables = re.search(r"What to list: (.*)", told_by("list"))[1].split(", ")
        self.assertEqual(completed("list", "practice", "pat"),
                         [name for name in tables if name.startswith("pat")])
        self.assertIn("patients", tables)

    def test_offers_files_and_folders_where_they_are_meant(self):
        self.assertIn("schema", completed("list", "sch"))
        self.assertIn("README.md", completed("import", "practice", "--patients", "READ"))
        self.assertEqual(completed("list", "practice", "patients", "--page", ""), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
