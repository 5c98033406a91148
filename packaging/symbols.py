#!/usr/bin/env python3
"""The symbols file of the library's package: since which version each exported name is there.

usage: symbols.py compare|accept LIBRARY VERSION

`compare` tells which names the library has and the file has not, and the other way round. `accept` writes new
names down with VERSION and forgets those that are gone. Debian's tools read from the file which version of the
library a program needs.
"""
import pathlib
import subprocess
import sys

SYMBOLS = pathlib.Path(__file__).resolve().parent / "libkyodbc1" / "symbols"
HEAD = "libKyODBC.so.1 libkyodbc1 #MINVER#"


def exported(library):
    output = subprocess.run(["nm", "-D", "--defined-only", "--format=posix", library], check=True,
                            capture_output=True, encoding="utf-8").stdout
    return {line.split()[0].split("@")[0] for line in output.splitlines()}


def listed():
    """The version of each name in the file."""
    if not SYMBOLS.exists():
        return {}
    head, *lines = SYMBOLS.read_text(encoding="utf-8").splitlines()
    if head != HEAD:
        sys.exit(f"{SYMBOLS}: the first line must be: {HEAD}")
    return {name.removesuffix("@Base"): version for name, version in map(str.split, lines)}


def accept(names, version):
    since = listed()
    lines = [f" {name}@Base {since.get(name, version)}" for name in sorted(names)]
    SYMBOLS.write_text("\n".join([HEAD, *lines, ""]), encoding="utf-8")


def compare(names):
    since = listed()
    for name in sorted(names - since.keys()):
        print(f"new: {name}")
    for name in sorted(since.keys() - names):
        print(f"gone: {name}")
    if names == since.keys():
        return 0
    print("A name that is gone breaks callers. If all this is meant: ./dev abi --accept")
    return 1


def main(command, library, version):
    names = exported(library)
    if command == "accept":
        accept(names, version)
        return 0
    return compare(names)


if __name__ == "__main__":
    if len(sys.argv) != 4 or sys.argv[1] not in ("compare", "accept"):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
