#!/usr/bin/env python3
"""Links of the documentation lead somewhere. Usage: links_test.py ROOT"""
import pathlib
import re
import sys
import unittest

import pages

ROOT = pathlib.Path(sys.argv[1]).resolve()
ELSEWHERE = re.compile(r"https?://|mailto:")


class Links(unittest.TestCase):
    def offences(self):
        for page in pages.pages(ROOT):
            text = page.read_text(encoding="utf-8")
            for line, target in pages.links(text):
                if not ELSEWHERE.match(target) and not self.leads_somewhere(page, target):
                    yield f"{page.relative_to(ROOT)}:{line}: {target}"

    @staticmethod
    def leads_somewhere(page, target):
        path, _, anchor = target.partition("#")
        file = (page.parent / path).resolve() if path else page
        if not file.exists() or not file.is_relative_to(ROOT):
            return False
        if not anchor:
            return True
        return file.suffix == ".md" and anchor in pages.anchors(file.read_text(encoding="utf-8"))

    def test_every_link_has_a_target(self):
        self.assertEqual(list(self.offences()), [])

    def test_links_to_other_machines_are_encrypted(self):
        for page in pages.pages(ROOT):
            for line, target in pages.links(page.read_text(encoding="utf-8")):
                self.assertFalse(target.startswith("http:"), f"{page}:{line}: {target}")

    def test_every_page_of_the_site_can_be_reached_from_its_first_one(self):
        first = ROOT / "docs" / "index.md"
        reached, waiting = set(), [first]
        while waiting:
            page = waiting.pop()
            if page in reached or page.suffix != ".md" or not page.is_file():
                continue
            reached.add(page)
            for _, target in pages.links(page.read_text(encoding="utf-8")):
                if not ELSEWHERE.match(target):
                    waiting.append((page.parent / target.partition("#")[0]).resolve())
        site = {path for path in (ROOT / "docs").rglob("*.md") if path.parent.name != "site"}
        self.assertEqual({path.relative_to(ROOT).as_posix() for path in site - reached}, set())


class Reading(unittest.TestCase):
    """What the other tests rely on."""

    def test_anchors_are_those_that_repositories_make(self):
        self.assertEqual(pages.slug("What `DB_OpenTPat` does, and why"), "what-db_opentpat-does-and-why")
        self.assertEqual(pages.slug("3 KYODBC_NOT_OPENED"), "3-kyodbc_not_opened")
        self.assertEqual(pages.anchors("# A\n\n## A\n"), {"a", "a-1"})

    def test_code_holds_no_links(self):
        text = "a [b](c)\n\n```sh\n[d](e)\n```\n\n`[f](g)`\n\n[h](i#j)\n"
        self.assertEqual(list(pages.links(text)), [(1, "c"), (9, "i#j")])

    def test_blocks_know_their_words(self):
        text = ("Save it as `a.c`:\n\n```c\nint x;\n```\n\nIt prints:\n\n```text\n1\n```\n\n"
                "1. x\n\n   ```sh\n   ls\n   ```\n")
        program, output, listed = pages.blocks(text)
        self.assertEqual((program.file, program.language, program.code), ("a.c", "c", "int x;\n"))
        self.assertTrue(output.is_output)
        self.assertFalse(program.is_output)
        self.assertEqual((listed.language, listed.code, listed.file), ("sh", "ls\n", None))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
