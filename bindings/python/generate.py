#!/usr/bin/env python3
"""Writes kyodbc/records.py from the library's C headers, which are its one source.

usage: generate.py [--check]    --check only tells whether the file is up to date

The headers keep to a small part of C, and this reads no more than that: packed records of plain fields, named
constants, and one prototype per exported function.
"""
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
OUTPUT = HERE / "kyodbc" / "records.py"

RECORD_HEADERS = ("tables/records.h", "frame/KyODBCDiag.h")
CONSTANT_HEADERS = ("platform/result_codes.h", "frame/field_words.h", "frame/KyODBC.h", "frame/KyODBCDiag.h")
FUNCTION_HEADERS = ("frame/KyODBC.h", "frame/KyODBCDiag.h")

PLAIN = {"WORD": "WORD", "LONG": "LONG", "BOOL": "BOOL", "DWORD": "DWORD", "BYTE": "BYTE",
         "TIMESTAMP_STRUCT": "TIMESTAMP_STRUCT", "CDatabase*": "ctypes.c_void_p",
         "const char*": "Text", "char*": "ctypes.c_char_p", "const void*": "Value",
         "double*": "ctypes.POINTER(ctypes.c_double)"}

HEAD = '''"""The records, constants and functions of the library.

Written by generate.py from the C headers; not to be edited.
"""
import ctypes

from .values import BOOL, BYTE, DWORD, LONG, TIMESTAMP_STRUCT, WORD, Record, Text, Value
'''


def read(header):
    return (ROOT / header).read_text(encoding="utf-8")


def without_comments(text):
    return re.sub(r"/\*.*?\*/|//[^\n]*", " ", text, flags=re.S)


def not_understood(header, text):
    sys.exit(f"{header}: not understood: {' '.join(text.split())}")


def fields(header, body):
    for declaration in filter(None, (part.strip() for part in body.split(";"))):
        found = re.fullmatch(r"(\w+)\s+(\w+)(?:\[(\d+)\])?", declaration)
        if not found or found[1] not in (*PLAIN, "char"):
            not_understood(header, declaration)
        kind = "ctypes.c_char" if found[1] == "char" else PLAIN[found[1]]
        yield found[2], f"{kind} * {found[3]}" if found[3] else kind


def records():
    """Name and fields of every record, in the order of the headers."""
    for header in RECORD_HEADERS:
        text = without_comments(read(header))
        for name, body, alias in re.findall(r"typedef struct (\w+) \{(.*?)\} (\w+);", text, re.S):
            if name != alias:
                not_understood(header, name)
            yield name, list(fields(header, body))


def constants():
    """Name and value of every named number. Masks and ids are never negative."""
    for header in CONSTANT_HEADERS:
        text = without_comments(read(header))
        for body in re.findall(r"\benum \{(.*?)\};", text, re.S):
            for entry in filter(None, (part.strip() for part in body.split(","))):
                name, value = (part.strip() for part in entry.split("="))
                yield name, int(value, 0)
        for name, value in re.findall(r"^#define (KYODBC_\w+) (0x[0-9A-Fa-f]+|\d+)u?$", text, re.M):
            yield name, int(value, 0)


def argument(header, text):
    kind = re.sub(r"\s*(\w+)$", "", text.strip())
    if kind in PLAIN:
        return PLAIN[kind]
    found = re.fullmatch(r"(?:const )?(\w+)\*", kind)
    if not found:
        not_understood(header, text)
    return f"ctypes.POINTER({found[1]})"


def functions():
    """Name, result and arguments of every exported function."""
    for header in FUNCTION_HEADERS:
        text = without_comments(read(header))
        for result, name, arguments in re.findall(r"KYODBC_API ([\w* ]+?)\s*\b(DB_\w+)\((.*?)\);", text, re.S):
            parts = [] if arguments.strip() == "void" else arguments.split(",")
            yield name, PLAIN[result.strip()], [argument(header, part) for part in parts]


def module():
    lines = [HEAD]
    for name, members in records():
        lines += ["", f"class {name}(Record):", "    _pack_ = 1", "    _fields_ = ["]
        lines += [f'        ("{member}", {kind}),' for member, kind in members]
        lines += ["    ]", ""]
    lines += ["", f"RECORDS = ({', '.join(name for name, _ in records())})", ""]
    lines += [f"{name} = 0x{value:X}" if value > 255 else f"{name} = {value}" for name, value in constants()]
    lines += ["", "# Name, result, arguments.", "FUNCTIONS = ("]
    for name, result, arguments in functions():
        lines.append(f'    ("{name}", {result}, ({"".join(kind + ", " for kind in arguments).rstrip()})),')
    return "\n".join(lines + [")", ""])


def main(arguments):
    text = module()
    if arguments == ["--check"]:
        return 0 if OUTPUT.read_text(encoding="utf-8") == text else f"{OUTPUT}: run generate.py"
    if arguments:
        return __doc__
    OUTPUT.write_text(text, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
