#!/usr/bin/env python3
"""Writes kyodbc(3), an overview of the call interface, from the chief header. Usage: make_kyodbc_3.py HEADERS
VERSION OUTPUT, with the folder that has frame/ and platform/."""
import pathlib
import re
import sys

from roff import Page


def comment(text):
    """The words of a C comment, without its stars."""
    return "\n".join(re.sub(r"^ ?\* ?", "", line) for line in text.strip("/* \n").split("\n"))


def conventions(header):
    """The numbered conventions at the head: number and text of each."""
    head = comment(re.match(r"/\*(.*?)\*/", header, re.S)[1])
    for number, text in re.findall(r"^ *(\d+\.) (.*?)(?=^ *\d+\. |\Z)", head, re.M | re.S):
        yield number, " ".join(text.split())


def sections(header):
    """The functions of each section, as they are declared."""
    parts = re.split(r"^/\* ---- (.*?) ---- \*/$", header, flags=re.M)
    for title, body in zip(parts[1::2], parts[2::2]):
        declared = re.findall(r"^KYODBC_API (.*?;)", body, re.M | re.S)
        if declared:
            yield title, [" ".join(declaration.split()) for declaration in declared]


def codes(header):
    for text, name, number in re.findall(r"/\*((?:[^*]|\*(?!/))*)\*/\s+(KYODBC_\w+) = (\d+)", header):
        yield f"{number} {name}", " ".join(comment(text).split())


def main(headers, version, output):
    chief = (pathlib.Path(headers) / "frame/KyODBC.h").read_text(encoding="utf-8")
    result_codes = (pathlib.Path(headers) / "platform/result_codes.h").read_text(encoding="utf-8")
    page = Page("kyodbc", 3, version, "patient and image database of an X-ray practice")
    page.heading("SYNOPSIS")
    page.verbatim("#include <KyODBC.h>\n\ncc program.c $(pkg-config --cflags --libs kyodbc)")
    page.heading("DESCRIPTION")
    page.paragraph("The header `KyODBC.h` documents every function, record, field id and mask. This page has the "
                   "conventions, the names and the result codes.")
    for number, text in conventions(chief):
        page.term(number, text)
    page.heading("FUNCTIONS")
    for title, declarations in sections(chief):
        page.subheading(title)
        page.verbatim("\n".join(declarations))
    page.heading("RETURN VALUE")
    for words, text in codes(result_codes):
        page.term(words, text)
    page.heading("SEE ALSO")
    page.paragraph("kyodbc(1), libkyfault(7)")
    page.write(output)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
