#!/usr/bin/env python3
"""The declarations for C# agree with the headers and, where a compiler for C# is installed, with the library.

Usage: csharp_test.py ROOT INCLUDE-FOLDER C-COMPILER, with the library in LD_LIBRARY_PATH.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from from_c import from_c

ROOT, INCLUDE, COMPILER = pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3]
BINDING = ROOT / "bindings" / "csharp"
DECLARED = (BINDING / "KyODBC.cs").read_text(encoding="utf-8")
HERE = pathlib.Path(__file__).resolve().parent


def declared_layout():
    """Size and fields (name, offset) of every record, as the declarations tell them."""
    record = r"Pack = 1, Size = (\d+)\)\]\npublic struct (\w+)\n\{(.*?)\n\}"
    for size, name, body in re.findall(record, DECLARED, re.S):
        fields = re.findall(r"public [\w\[\]]+ (\w+); +// offset (\d+)", body)
        yield name, int(size), [(field, int(offset)) for field, offset in fields]


def layout_of_the_compiler():
    """The lines "NAME SIZE" and "NAME.FIELD OFFSET" that layout.cs should print."""
    words, expressions = [], []
    for name, _, fields in declared_layout():
        words.append(name)
        expressions.append(f"sizeof({name})")
        words += [f"{name}.{field}" for field, _ in fields]
        expressions += [f"offsetof({name}, {field})" for field, _ in fields]
    return [f"{word} {value}" for word, value in zip(words, from_c(expressions, INCLUDE, COMPILER))]


class Declarations(unittest.TestCase):
    def test_the_generated_file_is_up_to_date(self):
        result = subprocess.run([sys.executable, "-B", BINDING / "generate.py", "--check"],
                                capture_output=True, encoding="utf-8")
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_every_record_of_the_headers_is_there(self):
        text = "".join((ROOT / header).read_text() for header in ("tables/records.h", "frame/KyODBCDiag.h"))
        self.assertEqual([name for name, _, _ in declared_layout()],
                         ["TIMESTAMP_STRUCT", *re.findall(r"^typedef struct (\w+)", text, re.M)])

    def test_sizes_and_offsets_are_those_of_the_c_compiler(self):
        told = [line for name, size, fields in declared_layout()
                for line in (f"{name} {size}", *(f"{name}.{field} {offset}" for field, offset in fields))]
        self.assertEqual(told, layout_of_the_compiler())

    def test_every_exported_function_is_declared_with_its_arguments(self):
        names = [line for listed in ("exports.txt", "exports_ext.txt")
                 for line in (ROOT / "frame" / listed).read_text().splitlines() if line.startswith("DB_")]
        declared = dict(re.findall(r"public static extern \w+ (DB_\w+)\((.*)\);", DECLARED))
        self.assertEqual(sorted(declared), sorted(names))
        headers = (ROOT / "frame/KyODBC.h").read_text() + (ROOT / "frame/KyODBCDiag.h").read_text()
        for name, arguments in re.findall(r"^KYODBC_API [\w*]+ (DB_\w+)\((.*?)\);", headers, re.M | re.S):
            count = 0 if arguments == "void" else arguments.count(",") + 1
            given = re.sub(r"\[.*?\] ", "", declared[name])
            self.assertEqual(given.count(",") + (given != ""), count, name)

    def test_constants_have_the_values_of_the_c_compiler(self):
        constants = re.findall(r"public const u?int (\w+) = (\w+);", DECLARED)
        self.assertGreater(len(constants), 140)
        self.assertEqual([int(value, 0) for _, value in constants],
                         from_c([name for name, _ in constants], INCLUDE, COMPILER))


def compile_cs(program, *sources):
    clean = {key: value for key, value in os.environ.items() if key != "LD_PRELOAD"}
    subprocess.run(["mcs", "-warnaserror", f"-out:{program}", *sources, BINDING / "KyODBC.cs"], check=True,
                   env=clean)


@unittest.skipUnless(shutil.which("mcs") and shutil.which("mono"), "there is no compiler for C#")
class Compiled(unittest.TestCase):
    def test_the_declarations_mean_the_library(self):
        # The run-time of C# handles bad addresses itself, as null references.
        signals = ":".join(f"handle_{name}=0" for name in ("segv", "sigbus", "sigfpe", "abort"))
        checked = {**os.environ, "ASAN_OPTIONS": f"detect_leaks=0:{signals}"}
        with tempfile.TemporaryDirectory(prefix="kyodbc-csharp-") as folder:
            program = os.path.join(folder, "layout.exe")
            compile_cs(program, HERE / "layout.cs")
            output = subprocess.run(["mono", program], check=True, capture_output=True, encoding="utf-8",
                                    timeout=60, env=checked).stdout.splitlines()
        self.assertEqual(output, [*layout_of_the_compiler(), "version 1 261", "get 3 Müller",
                                  "failed DB_GetTPat", "setting 3 ä 2", "cut xä"])

    def test_the_program_of_the_page_compiles(self):
        page = (BINDING / "README.md").read_text(encoding="utf-8")
        program = re.search(r"^```csharp\n(.*?)^```", page, re.M | re.S)[1]
        with tempfile.TemporaryDirectory(prefix="kyodbc-csharp-") as folder:
            source = pathlib.Path(folder) / "page.cs"
            source.write_text(f"using System; class Page {{ static int Main() {{ {program} return 0; }} }}\n",
                              encoding="utf-8")
            compile_cs(source.with_suffix(".exe"), source)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
