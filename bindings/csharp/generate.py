#!/usr/bin/env python3
"""Writes KyODBC.cs from the library's C headers.

usage: generate.py [--check]    --check only tells whether the file is up to date
"""
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))

import interface  # noqa: E402

OUTPUT = HERE / "KyODBC.cs"

NUMBERS = {"BYTE": "byte", "WORD": "ushort", "LONG": "int", "BOOL": "int", "DWORD": "uint"}
ARGUMENTS = {**NUMBERS, "CDatabase*": "IntPtr", "char*": "[Out] byte[]", "const void*": "IntPtr",
             "double*": "ref double", "const char*": "[MarshalAs(UnmanagedType.LPUTF8Str)] string",
             "WORD*": "ref ushort", "LONG*": "ref int"}

HEAD = """// The call interface of KyODBC for C#: records, named numbers and functions. KyODBC.h documents them.
//
// Written by generate.py from the C headers; not to be edited.
//
// Texts of records are the bytes of UTF-8 with a zero byte behind them; KyODBC.Text and KyODBC.Bytes convert. The
// values of a filter are pointers to an int, to a text or to a TIMESTAMP_STRUCT, or IntPtr.Zero. Arrays inside a
// new record are null, which counts as zeros.
using System;
using System.Runtime.InteropServices;
using System.Text;

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 16)]
public struct TIMESTAMP_STRUCT
{
    public short year;      // offset 0
    public ushort month;    // offset 2
    public ushort day;      // offset 4
    public ushort hour;     // offset 6
    public ushort minute;   // offset 8
    public ushort second;   // offset 10
    public uint fraction;   // offset 12, nanoseconds
}
"""

TEXTS = """    private const string Library = "libKyODBC.so.1";

    // The text in a field or buffer, up to its zero byte.
    public static string Text(byte[] bytes)
    {
        int end = Array.IndexOf(bytes, (byte)0);
        return Encoding.UTF8.GetString(bytes, 0, end < 0 ? bytes.Length : end);
    }

    // The text as the bytes of a field with `size` bytes, cut as the library cuts: never inside a character.
    public static byte[] Bytes(string text, int size)
    {
        byte[] field = new byte[size];
        byte[] all = Encoding.UTF8.GetBytes(text);
        int end = Math.Min(all.Length, size - 1);
        while (end < all.Length && end > 0 && (all[end] & 0xC0) == 0x80) --end;
        Array.Copy(all, field, end);
        return field;
    }
"""


def field_lines(field):
    kind = {"char": "byte", "TIMESTAMP_STRUCT": "TIMESTAMP_STRUCT"}.get(field.kind) or NUMBERS[field.kind]
    if field.count:
        yield f"    [MarshalAs(UnmanagedType.ByValArray, SizeConst = {field.count})]"
        kind += "[]"
    yield f"    public {kind} {field.name};    // offset {field.offset}, {field.size} bytes"


def record_lines(record):
    yield f"[StructLayout(LayoutKind.Sequential, Pack = 1, Size = {record.size})]"
    yield f"public struct {record.name}"
    yield "{"
    for field in record.fields:
        yield from field_lines(field)
    yield from ("}", "")


def argument(kind, name):
    # A record is read and written, so that what a call leaves untouched stays.
    kind = ARGUMENTS.get(kind) or f"ref {kind.removeprefix('const ').removesuffix('*')}"
    return f"{kind} {name}"


def function_lines(function):
    result = ARGUMENTS[function.result]
    arguments = ", ".join(argument(*pair) for pair in function.arguments)
    yield "    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]"
    yield f"    public static extern {result} {function.name}({arguments});"


def module():
    lines = [HEAD]
    for record in interface.records():
        lines += record_lines(record)
    lines += ["public static class KyODBC", "{", TEXTS]
    for name, value in interface.constants():
        kind, written = ("uint", f"0x{value:X}") if "_MASK_" in name else ("int", str(value))
        lines.append(f"    public const {kind} {name} = {written};")
    for function in interface.functions():
        lines += ["", *function_lines(function)]
    return "\n".join(lines + ["}", ""])


if __name__ == "__main__":
    sys.exit(interface.main(sys.argv[1:], OUTPUT, module(), __doc__))
