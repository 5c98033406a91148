#!/usr/bin/env python3
"""Compares a library with the description of its binary interface, or writes the description anew.

usage: description.py compare|accept DESCRIPTION LIBRARY HEADER...

The description holds the exported names, the layouts of records and classes and the virtual tables, as the
HEADERs declare them; libabigail makes and compares it from the library's debug information. Neither build
type nor sanitizers nor paths take part in it. What stands behind private pointers and the standard library's
own types are left out.
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
OPTIONS = ("--exported-interfaces-only", "--drop-private-types", "--drop-undefined-syms", "--no-corpus-path",
           "--no-comp-dir-path", "--no-show-locs", "--no-elf-needed", "--no-parameter-names",
           "--no-write-default-sizes")

NOT_OURS = r"""
[suppress_type]
  name_regexp = ^(std|__gnu_cxx|odbc|fmt|spdlog)::
  drop = yes
[suppress_type]
  name_regexp = ^(RowFields|RowSource|StaticCursor|BufferedRows|DriverFacts|FieldValue|Field)
  drop = yes
[suppress_function]
  name_regexp = ^(std|__gnu_cxx)::
  drop = yes
"""


def describe(library, headers, output):
    """Writes the description of a library. The tool knows headers by their names, in one folder."""
    with tempfile.TemporaryDirectory(prefix="kyodbc-abi-") as folder:
        folder = pathlib.Path(folder)
        (folder / "headers").mkdir()
        for header in headers:
            shutil.copy(header, folder / "headers")
        (folder / "not_ours").write_text(NOT_OURS)
        subprocess.run(["abidw", "--suppressions", folder / "not_ours", "--headers-dir", folder / "headers",
                        *OPTIONS, "--out-file", output, library], check=True)
    # The tool keeps where the sources lay when they were compiled.
    output = pathlib.Path(output)
    output.write_text(output.read_text().replace(f"path='{ROOT}/", "path='"))


def differences(old, new):
    """What changed from one description to the other, as text; empty when nothing did."""
    result = subprocess.run(["abidiff", old, new], capture_output=True, encoding="utf-8")
    return result.stdout + result.stderr if result.returncode else ""


def compare(description, library, headers):
    with tempfile.TemporaryDirectory(prefix="kyodbc-abi-") as folder:
        built = pathlib.Path(folder) / "built.abi"
        describe(library, headers, built)
        return differences(description, built)


def main(command, description, library, *headers):
    if command == "accept":
        describe(library, headers, description)
        return 0
    found = compare(description, library, headers)
    if found:
        print(found, "The binary interface changed. If that is meant: ./dev abi --accept", sep="\n")
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) < 5 or sys.argv[1] not in ("compare", "accept"):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
