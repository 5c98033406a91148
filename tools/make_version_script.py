#!/usr/bin/env python3
"""Writes the linker version script that leaves only the listed names visible.

usage: make_version_script.py EXPORTS... EXPORTS_CPP OUTPUT

EXPORTS list C functions, one per line. EXPORTS_CPP lists classes, functions and operators of C++; its head
says how. In all, empty lines and lines that begin with # are skipped.
"""

import re
import sys


def read_entries(path):
    with open(path, encoding="utf-8") as file:
        lines = [line.strip() for line in file]
    return [line for line in lines if line and not line.startswith("#")]


def patterns(kind, name):
    # "?" stands for the characters that the linker refuses outside quotes; inside them it knows no wildcards.
    if kind == "class":
        return [f"{name}::*", f"vtable?for?{name}", f"typeinfo?for?{name}", f"typeinfo?name?for?{name}"]
    if kind == "function":
        return [f"{name}?*"]
    return [f"operator*{name}?const*"]


def cpp_patterns(entries):
    for entry in entries:
        match = re.fullmatch(r"(class|function|operators) (\w+)", entry)
        if match is None:
            sys.exit(f"not understood: {entry}")
        yield from patterns(match[1], match[2])


def main(exports, exports_cpp, output):
    names = [name for path in exports for name in read_entries(path)]
    repeated = {name for name in names if names.count(name) > 1}
    if repeated:
        sys.exit(f"{', '.join(exports)}: listed more than once: {', '.join(sorted(repeated))}")
    lines = ["{", "  global:"]
    lines += [f"    {name};" for name in names]
    lines += ['    extern "C++" {']
    lines += [f"      {pattern};" for pattern in cpp_patterns(read_entries(exports_cpp))]
    lines += ["    };", "  local:", "    *;", "};"]
    with open(output, "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    main(sys.argv[1:-2], *sys.argv[-2:])
