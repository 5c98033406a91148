"""The library's call interface, read from its C headers, which are its one source. The bindings are written
from it.

The headers keep to a small part of C, and this reads no more than that: packed records of plain fields, named
constants, and one prototype per exported function.
"""
import dataclasses
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

RECORD_HEADERS = ("tables/records.h", "frame/KyODBCDiag.h")
CONSTANT_HEADERS = ("platform/result_codes.h", "frame/field_words.h", "frame/KyODBC.h", "frame/KyODBCDiag.h")
FUNCTION_HEADERS = ("frame/KyODBC.h", "frame/KyODBCDiag.h")

# The bytes of what fields are made of.
SIZES = {"char": 1, "BYTE": 1, "WORD": 2, "LONG": 4, "BOOL": 4, "DWORD": 4, "TIMESTAMP_STRUCT": 16}
RESULTS = ("WORD", "LONG", "BOOL", "CDatabase*")
PLAIN_ARGUMENTS = ("WORD", "LONG", "BOOL", "DWORD", "const char*", "char*", "const void*", "double*")


@dataclasses.dataclass(frozen=True)
class Field:
    """`count` is 0 for a single value."""
    name: str
    kind: str
    count: int
    offset: int

    @property
    def size(self):
        return SIZES[self.kind] * max(self.count, 1)


@dataclasses.dataclass(frozen=True)
class Record:
    name: str
    fields: tuple

    @property
    def size(self):
        return self.fields[-1].offset + self.fields[-1].size


@dataclasses.dataclass(frozen=True)
class Function:
    """Each argument is its type in C and its name."""
    name: str
    result: str
    arguments: tuple


def _read(header):
    return (ROOT / header).read_text(encoding="utf-8")


def _without_comments(text):
    return re.sub(r"/\*.*?\*/|//[^\n]*", " ", text, flags=re.S)


def _not_understood(header, text):
    sys.exit(f"{header}: not understood: {' '.join(text.split())}")


def _fields(header, body):
    offset = 0
    for declaration in filter(None, (part.strip() for part in body.split(";"))):
        found = re.fullmatch(r"(\w+)\s+(\w+)(?:\[(\d+)\])?", declaration)
        if not found or found[1] not in SIZES:
            _not_understood(header, declaration)
        field = Field(found[2], found[1], int(found[3] or 0), offset)
        yield field
        offset += field.size


def records():
    """Every record, in the order of the headers. They are packed: no field is moved to an even address."""
    for header in RECORD_HEADERS:
        text = _without_comments(_read(header))
        for name, body, alias in re.findall(r"typedef struct (\w+) \{(.*?)\} (\w+);", text, re.S):
            if name != alias:
                _not_understood(header, name)
            yield Record(name, tuple(_fields(header, body)))


def _named_numbers(header):
    text = _without_comments(_read(header))
    for body in re.findall(r"\benum \{(.*?)\};", text, re.S):
        for entry in filter(None, (part.strip() for part in body.split(","))):
            name, value = (part.strip() for part in entry.split("="))
            yield name, int(value, 0)
    for name, value in re.findall(r"^#define (KYODBC_\w+) (0x[0-9A-Fa-f]+|\d+)u?$", text, re.M):
        yield name, int(value, 0)


def constants():
    """Name and value of every named number. Masks and ids are never negative."""
    for header in CONSTANT_HEADERS:
        yield from _named_numbers(header)


def result_codes():
    """Name and value of every result code."""
    return _named_numbers(CONSTANT_HEADERS[0])


def _argument(header, text):
    found = re.fullmatch(r"(.*?)\s*\b(\w+)", text.strip())
    if not found or not (found[1] in PLAIN_ARGUMENTS or re.fullmatch(r"(?:const )?\w+\*", found[1])):
        _not_understood(header, text)
    return found[1], found[2]


def functions():
    """Every exported function."""
    for header in FUNCTION_HEADERS:
        text = _without_comments(_read(header))
        for result, name, arguments in re.findall(r"KYODBC_API ([\w* ]+?)\s*\b(DB_\w+)\((.*?)\);", text, re.S):
            if result not in RESULTS:
                _not_understood(header, f"{result} {name}")
            parts = [] if arguments.strip() == "void" else " ".join(arguments.split()).split(",")
            yield Function(name, result, tuple(_argument(header, part) for part in parts))


def main(arguments, output, text, usage):
    """What a program that writes a binding does: write `text`, or with --check only compare it."""
    if arguments == ["--check"]:
        return 0 if output.read_text(encoding="utf-8") == text else f"{output}: run generate.py"
    if arguments:
        return usage
    output.write_text(text, encoding="utf-8")
    return 0
