"""Compares the compiler's tables of virtual operations with expected.txt.

usage: slots_test.py SOURCE_FOLDER COMPILER
"""
import pathlib
import re
import subprocess
import sys
import tempfile

INCLUDES = [f"recset/{stem}_rec.h" for stem in
            "cfg diag dr grp img mak pat patex stat test unit".split()]
INCLUDES += [f"tables/{stem}_raw_rec.h" for stem in
             "config diagnosis doctor group image makro patient station test unit".split()]
INCLUDES += ["frame/dynamic_rec.h"]


def expected_tables(text):
    """{class: {slot: (operation, class that defines it)}}, each class with all its slots."""
    tables, current = {}, None
    for line in text.splitlines():
        line = line.split("#")[0].strip()
        if not line:
            continue
        if line.startswith("["):
            current = dict(tables.get("CKyRecSet", {}))
            tables[line.strip("[]")] = current
        else:
            slot, operation, owner = line.split()
            current[int(slot)] = (operation, owner)
    return tables


def compiled_tables(source_folder, compiler):
    """The same, from the compiler's dump of its classes."""
    with tempfile.TemporaryDirectory() as folder:
        unit = pathlib.Path(folder, "sets.cpp")
        unit.write_text("".join(f'#include "{name}"\n' for name in INCLUDES))
        subprocess.run([compiler, "-std=c++20", f"-I{source_folder}", "-fdump-lang-class", "-c", unit.name,
                        "-o", "sets.o"], cwd=folder, check=True)
        (dump,) = pathlib.Path(folder).glob("*.class")
        return tables_of_dump(dump.read_text())


def tables_of_dump(dump):
    tables = {}
    for name, body in re.findall(r"^Vtable for (\w+)\n(.*?)\n\n", dump, re.M | re.S):
        entries = re.findall(r"\(int \(\*\)\(\.\.\.\)\)(\w+)::(~?\w+)$", body, re.M)
        slots = []
        for owner, operation in entries:
            slot = ("destructor" if operation.startswith("~") else operation, owner)
            if slot[0] == "destructor" and slots and slots[-1] == slot:
                continue
            slots.append(slot)
        tables[name] = dict(enumerate(slots))
    return tables


def main(source_folder, compiler):
    expected = expected_tables(pathlib.Path(__file__).with_name("expected.txt").read_text())
    compiled = compiled_tables(source_folder, compiler)
    faults = []
    for name, slots in expected.items():
        found = compiled.get(name, {})
        for slot in sorted(set(slots) | set(found)):
            if slots.get(slot) != found.get(slot):
                faults.append(f"{name} slot {slot}: expected {slots.get(slot)}, compiled {found.get(slot)}")
    print("\n".join(faults) or f"{len(expected)} classes have their operations in order")
    return 1 if faults or len(expected) != 23 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3]))
