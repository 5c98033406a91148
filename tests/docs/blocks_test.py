#!/usr/bin/env python3
"""The code of the pages works as it stands, and prints what the pages say.

Usage: blocks_test.py ROOT BUILD C-COMPILER C++-COMPILER FLAGS
"""
import pathlib
import re
import sys
import unittest

import pages
from workshop import Toolchain, Workshop

ROOT = pathlib.Path(sys.argv[1])
TOOLS = Toolchain(ROOT, sys.argv[2], sys.argv[3], sys.argv[4], " ".join(sys.argv[5:]))
# What pages may show: programs, outputs, and files that something else reads.
KNOWN = {"c", "cpp", "python", "sh", "text", "ini"}
# Tested elsewhere: the servers' set-up on servers, the clusters' on clusters, the programs of examples/ as
# programs of examples/.
ELSEWHERE = {"docs/databases.md": KNOWN,
             "docs/cluster.md": KNOWN | {"sql"},
             "docs/examples.md": {"c", "cpp", "python"}}


def pattern(text):
    """An output as a page shows it: three dots stand for whatever is there."""
    parts = [re.escape(part) for part in text.split("...")]
    return re.compile(rf"\A{'.*'.join(parts)}\Z", re.S)


class Blocks(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.first = Workshop(TOOLS)
        cls.addClassCleanup(cls.first.holder.cleanup)
        cls.first.make_practice()

    def do(self, page):
        name = page.relative_to(ROOT).as_posix()
        workshop = Workshop(TOOLS)
        self.addCleanup(workshop.holder.cleanup)
        workshop.copy_practice(self.first)
        printed = ""
        for block in pages.blocks(page.read_text(encoding="utf-8")):
            with self.subTest(f"{name}:{block.line}"):
                if block.language in ELSEWHERE.get(name, ()):
                    continue
                self.assertIn(block.language, KNOWN)
                if block.is_output:
                    self.compare(printed, block.code)
                else:
                    printed = workshop.done(block) or printed

    def compare(self, printed, shown):
        if not pattern(shown).match(printed):
            self.assertEqual(printed, shown)

    def test_code_works_as_it_stands_and_prints_what_is_shown(self):
        for page in sorted((ROOT / "docs").rglob("*.md")):
            self.do(page)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
