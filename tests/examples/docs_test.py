#!/usr/bin/env python3
"""docs/examples.md shows the programs as they are. Usage: docs_test.py ROOT [--write]

--write brings the shown programs up to date.
"""
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv[1])
PAGE = ROOT / "docs" / "examples.md"
# A heading with the file's path, some words, and the file as a code block.
SHOWN = re.compile(r"^## (\S+/\S+)\n(.*?)^```(\w+)\n(.*?)^```$", re.M | re.S)
LANGUAGES = {".c": "c", ".cpp": "cpp", ".py": "python"}


def up_to_date(text):
    def block(match):
        path = ROOT / match[1]
        return f"## {match[1]}\n{match[2]}```{LANGUAGES[path.suffix]}\n{path.read_text()}```"
    return SHOWN.sub(block, text)


class Examples(unittest.TestCase):
    def test_every_program_is_shown(self):
        shown = [match[0] for match in SHOWN.findall(PAGE.read_text())]
        programs = [path.relative_to(ROOT).as_posix() for path in (ROOT / "examples").iterdir()
                    if path.suffix in LANGUAGES]
        self.assertEqual(sorted(shown), sorted([*programs, "bindings/python/example.py"]))

    def test_is_the_code_of_the_files(self):
        self.assertEqual(PAGE.read_text(), up_to_date(PAGE.read_text()))

    def test_every_program_is_named_in_the_folder_s_readme(self):
        readme = (ROOT / "examples" / "README.md").read_text()
        for path in (ROOT / "examples").iterdir():
            if path.suffix in LANGUAGES:
                self.assertIn(f"`{path.name}", readme)


if __name__ == "__main__":
    if sys.argv[2:] == ["--write"]:
        PAGE.write_text(up_to_date(PAGE.read_text()))
    else:
        unittest.main(argv=sys.argv[:1])
