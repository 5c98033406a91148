#!/usr/bin/env python3
"""Writes kyodbc/records.py from the library's C headers.

usage: generate.py [--check]    --check only tells whether the file is up to date
"""
import ctypes
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))

import interface  # noqa: E402

OUTPUT = HERE / "kyodbc" / "records.py"

ARGUMENTS = {"const char*": "Text", "char*": "ctypes.c_char_p", "const void*": "Value",
             "CDatabase*": "ctypes.c_void_p", "double*": "ctypes.POINTER(ctypes.c_double)"}

NUMBERS = {"BYTE": ctypes.c_uint8, "WORD": ctypes.c_uint16, "DWORD": ctypes.c_uint32, "LONG": ctypes.c_int32,
           "BOOL": ctypes.c_int32}

HEAD = '''"""The records, constants and functions of the library.

Written by generate.py from the C headers; not to be edited.
"""
import ctypes

from .values import BOOL, BYTE, DWORD, LONG, TIMESTAMP_STRUCT, WORD, Record, Text, Value
'''


def field_kind(field):
    kind = "ctypes.c_char" if field.kind == "char" else field.kind
    return f"{kind} * {field.count}" if field.count else kind


def field_hint(field):
    """What reading the field gives."""
    if field.kind == "char":
        return "str"
    if field.kind == "TIMESTAMP_STRUCT":
        return "TIMESTAMP_STRUCT"
    if field.count:
        return f"ctypes.Array[ctypes.{NUMBERS[field.kind].__name__}]"
    return "int"


def argument_kind(kind):
    if kind in ARGUMENTS:
        return ARGUMENTS[kind]
    return f"ctypes.POINTER({kind.removeprefix('const ').removesuffix('*')})" if kind.endswith("*") else kind


def record_class(record):
    lines = ["", f"class {record.name}(Record):", "    _pack_ = 1", "    _fields_ = ["]
    lines += [f'        ("{field.name}", {field_kind(field)}),' for field in record.fields]
    lines += ["    ]"]
    lines += [f'    {field.name}: "{field_hint(field)}"' for field in record.fields]
    return [*lines, ""]


def module():
    lines = [HEAD]
    for record in interface.records():
        lines += record_class(record)
    lines += ["", f"RECORDS = ({', '.join(record.name for record in interface.records())})", ""]
    lines += [f"{name} = 0x{value:X}" if value > 255 else f"{name} = {value}"
              for name, value in interface.constants()]
    lines += ["", "# The names of the result codes.", "CODE_NAMES = {"]
    lines += [f'    {value}: "{name}",' for name, value in interface.result_codes()]
    lines += ["}", "", "# Name, result, arguments.", "FUNCTIONS = ("]
    for function in interface.functions():
        kinds = "".join(argument_kind(kind) + ", " for kind, _ in function.arguments).rstrip()
        lines.append(f'    ("{function.name}", {ARGUMENTS.get(function.result, function.result)}, ({kinds})),')
    return "\n".join(lines + [")", ""])


if __name__ == "__main__":
    sys.exit(interface.main(sys.argv[1:], OUTPUT, module(), __doc__))
