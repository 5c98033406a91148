#!/usr/bin/env python3
"""The house rules that a compiler does not know. Usage: house_rules.py RULE ROOT [COMPILER...]

Prints every offence as file:line: text and fails when there is one.
"""
import pathlib
import re
import subprocess
import sys

from cpp_text import code_only, functions, without_comments

ROOMS = ("platform", "tables", "recset", "rowops", "frame")
PLACES = ROOMS + ("tools", "examples", "tests", "bench", "faultdriver", "fuzz")
TEXTS = (".h", ".c", ".cpp", ".py", ".sql", ".md", ".txt", ".cmake", ".sh")
LONGEST_FUNCTION = 60
LONGEST_FILE = 500
LONGEST_LINE = 110
LONGEST_README = 10

# What drivers tell of themselves, and how each kind of database is broken. All other tests of the database
# read what differs from its table.
NAMES_DATABASES = {"tests/db/driver_facts_test.cpp", "tests/flat/connect_failures_test.cpp"}

# The chief header tells the contract of every exported function in one place.
LONG_BY_NATURE = {"frame/KyODBC.h"}
# Reads values into callers' variables, which may be of the native type.
TAKES_NATIVE_LONG = {"frame/dynamic_rec.h", "frame/dynamic_rec.cpp"}
READ_BY_C = {"frame/KyODBC.h", "frame/KyODBCDiag.h", "frame/field_words.h", "tables/records.h",
             "platform/types.h", "platform/result_codes.h"}


def files(root, places=PLACES, suffixes=(".h", ".c", ".cpp")):
    for place in places:
        for path in sorted((root / place).rglob("*")):
            if path.is_file() and path.suffix in suffixes:
                yield path, path.relative_to(root).as_posix()


def matches(root, places, pattern, clean, suffixes=(".h", ".c", ".cpp"), but=()):
    for path, name in files(root, places, suffixes):
        if name in but:
            continue
        for number, line in enumerate(clean(path.read_text()).split("\n"), 1):
            if re.search(pattern, line):
                yield f"{name}:{number}: {line.strip()}"


def layer(name):
    """The floor a file stands on. It may include files of its own floor and of those below."""
    room, _, rest = name.partition("/")
    if room == "platform":
        return 0
    if room == "tables":
        return 1 if rest.startswith("record") else 3
    if room == "recset":
        return 4 if re.search(r"_rec\.(h|cpp)$", rest) else 2
    return {"rowops": 5, "frame": 6}[room]


def includes(path, name, root):
    for number, line in enumerate(without_comments(path.read_text()).split("\n"), 1):
        found = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
        if found:
            beside = path.parent / found.group(1)
            target = (beside if beside.exists() else root / found.group(1)).resolve()
            if target.is_relative_to(root.resolve()):
                yield f"{name}:{number}", target.relative_to(root.resolve()).as_posix()


def layers(root):
    for path, name in files(root, ROOMS):
        for place, target in includes(path, name, root):
            if not target.startswith(ROOMS) or layer(target) > layer(name):
                yield f"{place}: {target} lies above"


def programs_use_the_public_interface(root):
    for path, name in files(root, ("tools", "examples")):
        for place, target in includes(path, name, root):
            if not target.startswith(("tools/", "examples/")) and target != "frame/KyODBC.h":
                yield f"{place}: {target} is not public"


def one_file_calls_odbc(root):
    yield from matches(root, ROOMS, r"\bSQL[A-Z][a-z]\w*\s*\(", code_only, but={"platform/odbc.cpp"})


def no_native_long(root):
    yield from matches(root, ROOMS, r"\blong\b", code_only, but=TAKES_NATIVE_LONG)


def function_length(root):
    for path, name in files(root):
        for line, length, head in functions(path.read_text()):
            if length > LONGEST_FUNCTION:
                yield f"{name}:{line}: {length} lines: {head}"


def file_length(root):
    for path, name in files(root):
        length = path.read_text().count("\n")
        if length > LONGEST_FILE and name not in LONG_BY_NATURE:
            yield f"{name}: {length} lines"


def line_length(root):
    """Of C and C++ only the comments: the formatter rules the code, and keeps rows of tables on one line."""
    for path, name in files(root, PLACES, (".h", ".c", ".cpp", ".py", ".txt", ".cmake", ".sh")):
        in_code = path.suffix in (".h", ".c", ".cpp")
        for number, line in enumerate(path.read_text().split("\n"), 1):
            if len(line) > LONGEST_LINE and not (in_code and not line.lstrip().startswith(("//", "/*", "*"))):
                yield f"{name}:{number}: {len(line)} characters"


def room_readmes(root):
    for room in ROOMS:
        readme = root / room / "README.md"
        if not readme.is_file():
            yield f"{room}: no README.md"
        elif len(readme.read_text().splitlines()) > LONGEST_README:
            yield f"{room}/README.md: more than {LONGEST_README} lines"


def include_guards(root):
    for path, name in files(root, suffixes=(".h",)):
        guard = "KYODBC_" + re.sub(r"\W", "_", name).upper()
        directives = re.findall(r"^\s*#\s*(\w+)\s*(\S*)", without_comments(path.read_text()), re.M)
        if directives[:2] != [("ifndef", guard), ("define", guard)]:
            yield f"{name}: the guard must be {guard}"


def exported_names(root):
    for listed, header in (("exports.txt", "KyODBC.h"), ("exports_ext.txt", "KyODBCDiag.h")):
        if (root / "frame" / header).is_file():
            yield from exported_names_of(root, listed, header)


def exported_names_of(root, listed, header):
    names = [line.split("#")[0].strip() for line in (root / "frame" / listed).read_text().splitlines()]
    names = [name for name in names if name]
    if len(names) != len(set(names)):
        yield f"frame/{listed}: a name stands twice"
    declared = set(re.findall(r"\b(DB_\w+)\s*\(", code_only((root / "frame" / header).read_text())))
    sources = {name: code_only(path.read_text()) for path, name in files(root, ROOMS, (".cpp",))}
    tested = set()
    for path, _ in files(root, ("tests",), (".cpp", ".c")):
        tested.update(re.findall(r"\bDB_\w+", without_comments(path.read_text())))
    for name in sorted(declared - set(names)):
        yield f"{name}: declared but not in frame/{listed}"
    for name in names:
        definition = re.compile(rf"^\w[^;{{}}\n]*\b{name}\s*\([^;{{}}]*\)\s*{{", re.M)
        count = sum(len(definition.findall(text)) for text in sources.values())
        if name not in declared:
            yield f"{name}: not in frame/{header}"
        if count != 1:
            yield f"{name}: {count} definitions"
        if name not in tested:
            yield f"{name}: in no test"


def listed_names(root):
    for listed in (root / "frame").glob("exports*.txt"):
        for line in listed.read_text().splitlines():
            if line.startswith("DB_"):
                yield line.strip()


def header_tells_everything(root):
    """Every function stands under a comment of its own or of the run it is in; every field of a record and
    every result code has one."""
    for name in ("KyODBC.h", "KyODBCDiag.h"):
        path = root / "frame" / name
        told = False
        for number, line in enumerate(path.read_text().split("\n") if path.is_file() else [], 1):
            if line.endswith("*/"):
                told = not line.startswith("/* ----")
            elif not line.strip():
                told = False
            elif line.startswith("KYODBC_API") and not told:
                yield f"frame/{name}:{number}: no comment: {line}"
    for name, thing in (("tables/records.h", r"  \w+ \w+(\[\d+\])?;(?! +/\*)"),
                        ("frame/KyODBCDiag.h", r"  \w+ \w+(\[\d+\])?;(?! +/\*)"),
                        ("platform/result_codes.h", r"(?<!\*/)\n  KYODBC_\w+ = \d+")):
        text = (root / name).read_text() if (root / name).is_file() else ""
        for found in re.finditer(thing, text):
            line = text.count("\n", 0, found.end()) + 1
            yield f"{name}:{line}: no comment: {found[0].strip()}"


def documents_name_what_exists(root):
    """Functions that pages name are exported. A name that goes on in dots stands for a family."""
    names = set(listed_names(root))
    for path in sorted(root.rglob("*.md")):
        name = path.relative_to(root).as_posix()
        if name.startswith(("build", ".")):
            continue
        for number, line in enumerate(path.read_text().split("\n"), 1):
            for found in re.findall(r"\bDB_\w+(?![\w.]*\.\.|\w|\*)", line):
                if found not in names:
                    yield f"{name}:{number}: {found} is not exported"


def nothing_unfinished(root):
    notes = "|".join(("TO" + "DO", "FIX" + "ME", "XX" + "X"))
    switched_off = "|".join(("GTEST" + "_SKIP", "DIS" + "ABLED_"))
    yield from matches(root, PLACES + ("schema", "docs"), rf"\b(?:{notes})\b|\b(?:{switched_off})",
                       str, TEXTS)


def differences(root):
    """The table of differences and the tests that read it tell of the same rows and of no others."""
    page = (root / "docs/databases.md").read_text()
    table = re.search(r"^## What differs$(.*?)(?=^## |\Z)", page, re.M | re.S).group(1)
    rows = {row[0].strip("`"): row[1:] for row in
            (re.split(r" *\| *", line.strip("| ")) for line in table.split("\n") if line.startswith("| `"))}
    read = set()
    for path, _ in files(root, ("tests",)):
        read.update(re.findall(r'\bDocumented\("([^"]+)"\)', without_comments(path.read_text())))
    for row, cells in rows.items():
        if len(cells) != 3 or "" in cells or len(set(cells)) == 1:
            yield f"docs/databases.md: {row}: no difference between three databases"
        if row not in read:
            yield f"docs/databases.md: {row}: no test reads it"
    for row in sorted(read - rows.keys()):
        yield f"docs/databases.md: {row}: a test reads it, the table has no such row"
    yield from matches(root, ("tests/db", "tests/flat"), r"\b(?:SQLite3?|PostgreSQL|MariaDB)\b",
                       without_comments, but=NAMES_DATABASES)


def headers_alone(root, compiler):
    """Every header compiles alone, those for C also as C."""
    common = [*compiler, "-fsyntax-only", "-Wall", "-Wextra", "-Werror", f"-I{root}"]
    for path, name in files(root, ROOMS + ("tests/support",), (".h",)):
        for language, needed in (("c++", True), ("c", name in READ_BY_C)):
            standard = "-std=c++20" if language == "c++" else "-std=c11"
            command = common + [standard, "-x", language, "-include", str(path), "/dev/null"]
            if needed and subprocess.run(command, stderr=subprocess.DEVNULL).returncode != 0:
                yield f"{name}: does not compile alone as {language}"


RULES = {rule.__name__: rule for rule in (
    layers, programs_use_the_public_interface, one_file_calls_odbc, no_native_long, function_length,
    file_length, line_length, room_readmes, include_guards, exported_names, header_tells_everything,
    documents_name_what_exists, nothing_unfinished, differences, headers_alone)}


def main():
    rule, root = RULES[sys.argv[1]], pathlib.Path(sys.argv[2])
    offences = list(rule(root, sys.argv[3:]) if rule is headers_alone else rule(root))
    for offence in offences:
        print(offence)
    print(f"{sys.argv[1]}: {len(offences)} offences")
    return 1 if offences else 0


if __name__ == "__main__":
    sys.exit(main())
