"""A folder in which the blocks of a page are done as its reader would do them: in order, in one shell."""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile

PATIENTS = 60
STANDARDS = {"c": "-std=c11 -Wno-unused-but-set-variable",
             "cpp": "-std=c++20 -Wno-missing-field-initializers"}
INSTALLED_FAULT_DRIVER = "/usr/lib/x86_64-linux-gnu/odbc/libkyfault.so"

# A snippet of C or C++ stands in here: connected before, and no call of it may fail.
AROUND_A_SNIPPET = """#include <KyODBC.h>
#include <KyODBCDiag.h>
#include <stdio.h>
#include <string.h>
{includes}
int main(void) {{
  tagDBERRORDETAIL failure;
  tagDBCONNECT source;
  memset(&source, 0, sizeof source);
  memcpy(source.szDSN, "practice", 9);
  if (DB_InitDatabase(&source) != 0) return 1;
  {{
{code}
  }}
  if (DB_GetLastErrorDetail(&failure, sizeof failure) == 0) {{
    fprintf(stderr, "%s: code %d: %s\\n", failure.szFunction, failure.wCode, failure.szMessage);
    return 1;
  }}
  return DB_CloseDatabase();
}}
"""


class Toolchain:
    """The project, a build of it, and what compiles programs that fit the build."""

    def __init__(self, root, build, c_compiler, cpp_compiler, flags):
        self.root, self.build, self.flags = root, build, flags
        self.compilers = {"c": shutil.which(c_compiler), "cpp": shutil.which(cpp_compiler)}

    def compile(self, language, source, program):
        return (f"{self.compilers[language]} {STANDARDS[language]} -Wall -Wextra -Werror {self.flags} "
                f"-I{self.build}/include -I{self.root}/faultdriver {source} -o {program} "
                f"-L{self.build} -lKyODBC -Wl,-rpath,{self.build}")

    def preload(self):
        """The run-time that must be there before a host without sanitizers loads a library with them, and the
        one of C++, without which it does not know how exceptions are thrown."""
        if "-fsanitize=address" not in self.flags:
            return ""
        return ":".join(
            subprocess.run([self.compilers["cpp"], f"-print-file-name={library}"], check=True,
                           encoding="utf-8", stdout=subprocess.PIPE).stdout.strip()
            for library in ("libasan.so", "libstdc++.so.6"))


class Workshop:
    def __init__(self, tools):
        self.tools = tools
        self.holder = tempfile.TemporaryDirectory(prefix="kyodbc-docs-")
        self.folder = pathlib.Path(self.holder.name)
        self.programs = 0
        self.furnish()
        (self.folder / ".state").write_text("".join(
            f"export {name}='{value}'\n" for name, value in self.environment().items()))

    def furnish(self):
        """What a reader has after cloning and building."""
        for name in ("bin", "home", "build"):
            (self.folder / name).mkdir()
        for name in ("schema", "bindings", "examples"):
            (self.folder / name).symlink_to(self.tools.root / name)
        (self.folder / "build" / "release").symlink_to(self.tools.build)
        for name, language in (("cc", "c"), ("c++", "cpp")):
            self.command(f"bin/{name}", f'exec {self.tools.compilers[language]} {self.tools.flags} "$@"')
        self.command("bin/python3", f"export LD_PRELOAD={self.tools.preload()} ASAN_OPTIONS=detect_leaks=0\n"
                                    'exec /usr/bin/python3 -B "$@"')
        # Installing packages changes the machine, and what is to be built is there: tests/install tries both.
        self.command("bin/sudo", '[[ "$1 $2" == "apt install" ]]')
        self.command("bin/cmake", '[[ $1 == --build ]] || exec /usr/bin/cmake "$@"')
        # What it does takes minutes or changes the machine, and is used all day: that it knows the command is
        # what can go wrong on a page.
        known = re.search(r"^ {4}(setup \|.*?)\) ", (self.tools.root / "dev").read_text(), re.M | re.S)[1]
        self.command("dev", f"case $1 in\n{known} | test) ;;\n*) exit 2 ;;\nesac")

    def command(self, name, text):
        path = self.folder / name
        path.write_text(f"#!/usr/bin/env bash\n{text}\n")
        path.chmod(0o755)

    def environment(self):
        return {"PATH": f"{self.folder}/bin:{self.tools.build}/tools:{os.environ['PATH']}",
                "HOME": f"{self.folder}/home",
                "LD_LIBRARY_PATH": str(self.tools.build),
                "PYTHONPATH": str(self.tools.root / "bindings" / "python")}

    def make_practice(self):
        """A practice behind the data source "practice" of the shell."""
        self.shell(f"kyodbc init ready && kyodbc sample ready --patients {PATIENTS}")
        self.use_practice()

    def copy_practice(self, other):
        shutil.copytree(other.folder / "ready", self.folder / "ready")
        sources = self.folder / "ready" / "odbc.ini"
        sources.write_text(sources.read_text().replace(str(other.folder), str(self.folder)))
        self.use_practice()

    def use_practice(self):
        self.shell("export ODBCSYSINI=$here/ready ODBCINI=$here/ready/odbc.ini")

    def started(self, command):
        """What the command prints. It must succeed."""
        clean = {key: value for key, value in os.environ.items() if not key.startswith(("ODBC", "KYODBC_"))}
        result = subprocess.run(command, cwd=self.folder, env=clean, encoding="utf-8", timeout=100,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, stdin=subprocess.DEVNULL)
        if result.returncode != 0:
            raise AssertionError(f"ends with {result.returncode}\n{result.stdout}{result.stderr}")
        return result.stdout

    def shell(self, code):
        """Runs commands in the state in which the last ones left the shell."""
        script = (f"set -euo pipefail\nhere={self.folder}\n. $here/.state\n"
                  f"{code}\nexport -p >$here/.state\n")
        return self.started(["bash", "-c", script])

    def program(self, language, code):
        """Compiles and runs a program, or a snippet of one."""
        if "main(" not in code:
            includes = "".join(re.findall(r"^#include.*\n", code, re.M))
            code = AROUND_A_SNIPPET.format(includes=includes, code=re.sub(r"#include.*\n", "", code))
        code = code.replace(INSTALLED_FAULT_DRIVER, f"{self.tools.build}/faultdriver/libkyfault.so")
        self.programs += 1
        source = self.folder / f"program_{self.programs}.{language}"
        source.write_text(code)
        self.started(["sh", "-c", self.tools.compile(language, source, source.with_suffix(""))])
        return self.shell(source.with_suffix(""))

    def done(self, block):
        """Does what a block says; gives what it prints, or nothing for a file to be kept."""
        if block.file:
            (self.folder / block.file).write_text(block.code)
        if block.language == "sh":
            return self.shell(block.code)
        if block.language in self.tools.compilers:
            return self.program(block.language, block.code)
        if block.language == "python":
            (self.folder / "program.py").write_text(block.code)
            return self.shell("python3 program.py")
        return ""
