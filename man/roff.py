"""Writes manual pages in the language of man(7)."""
import gzip
import pathlib
import re


def escaped(text):
    """The text as it stands, also where it looks like a request. Hyphens stay what people can type."""
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("`", "\\(ga").replace("~", "\\(ti").replace(
        "^", "\\(ha").replace("'", "\\(aq")
    return re.sub(r"^\.", r"\\&.", text, flags=re.M)


def inline(text):
    """A line of Markdown: code becomes bold, links their text."""
    text = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", text)
    pieces = re.split(r"(`+)(.+?)\1", text)
    return "".join(f"\\fB{escaped(piece)}\\fR" if place % 3 == 2 else escaped(piece)
                   for place, piece in enumerate(pieces) if place % 3 != 1)


class Page:
    def __init__(self, name, section, version, summary):
        self.lines = [f'.TH "{name.upper()}" {section} "" "KyODBC {version}" "KyODBC"', ".nh", ".ad l"]
        self.heading("NAME")
        self.lines.append(f"{escaped(name)} \\- {escaped(summary)}")

    def heading(self, text):
        self.lines.append(f'.SH "{escaped(text)}"')

    def subheading(self, text):
        self.lines.append(f'.SS "{escaped(text)}"')

    def paragraph(self, text):
        self.lines += [".PP", inline(text)]

    def term(self, words, text):
        self.lines += [".TP", f"\\fB{escaped(words)}\\fR", inline(text) or "\\&"]

    def verbatim(self, text):
        self.lines += [".PP", ".RS 4", ".nf", escaped(text), ".fi", ".RE"]

    def write(self, path):
        """Compressed as manual pages are installed, the same bytes for the same text."""
        data = ("\n".join(self.lines) + "\n").encode("utf-8")
        pathlib.Path(path).write_bytes(gzip.compress(data, mtime=0))
