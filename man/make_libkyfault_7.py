#!/usr/bin/env python3
"""Writes libkyfault(7) from the guide to the fault driver. Usage: make_libkyfault_7.py GUIDE VERSION OUTPUT"""
import pathlib
import re
import sys

from roff import Page


def blocks(text):
    """The Markdown's blocks: (kind, text). A blank line ends a block, inside a fence it does not."""
    for fence, block in re.findall(r"^```\w*\n(.*?)^```$|((?:^(?!```)[^\n]*\S[^\n]*\n)+)", text, re.M | re.S):
        if fence:
            yield "verbatim", fence.rstrip()
        elif block.startswith("    "):
            yield "verbatim", re.sub(r"^    ", "", block, flags=re.M).rstrip()
        elif block.startswith("#"):
            yield "heading", block.strip("# \n")
        elif block.startswith("|"):
            yield "table", block
        else:
            yield "paragraph", " ".join(block.split())


def rows(table):
    """The rows below the head of a table with two columns."""
    for line in table.strip().split("\n")[2:]:
        first, second = re.split(r"(?<!\\) *\| *", line.strip("| "), maxsplit=1)
        yield first.replace("`", ""), second


def main(guide, version, output):
    page = Page("libkyfault", 7, version, "an ODBC driver that fails on demand")
    _, *rest = blocks(pathlib.Path(guide).read_text(encoding="utf-8"))
    page.heading("DESCRIPTION")
    for kind, text in rest:
        if kind == "heading":
            page.heading(text.upper())
        elif kind == "table":
            for words, explained in rows(text):
                page.term(words, explained)
        elif kind == "verbatim":
            page.verbatim(text)
        else:
            page.paragraph(text)
    page.heading("SEE ALSO")
    page.paragraph("kyodbc(3), odbcinst(1)")
    page.write(output)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
