#!/usr/bin/env python3
"""What the page of the result codes names as a cause gives the code of its chapter.

Usage: causes_test.py ROOT BUILD C-COMPILER C++-COMPILER FLAGS
"""
import json
import pathlib
import re
import sys
import unittest

from workshop import Toolchain, Workshop

ROOT = pathlib.Path(sys.argv[1])
TOOLS = Toolchain(ROOT, sys.argv[2], sys.argv[3], sys.argv[4], " ".join(sys.argv[5:]))


class Causes(unittest.TestCase):
    def chapters(self):
        """The text of each chapter on one line, by its code."""
        page = (ROOT / "docs" / "guide" / "result-codes.md").read_text(encoding="utf-8")
        return {int(code): " ".join(text.split())
                for code, text in re.findall(r"^## (\d+) KYODBC_\w+\n(.*?)(?=^## )", page, re.M | re.S)}

    def test_causes_give_the_code_of_their_chapter(self):
        workshop = Workshop(TOOLS)
        self.addCleanup(workshop.holder.cleanup)
        workshop.make_practice()
        brought_about = json.loads(workshop.shell(f"python3 {ROOT}/tests/docs/causes.py"))
        self.assertGreater(len(brought_about), 25)
        for words, code in brought_about:
            with self.subTest(words):
                named = [number for number, text in self.chapters().items() if words in text]
                self.assertEqual(named, [code])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
