"""What a C compiler makes of the headers."""
import os
import subprocess
import tempfile


def from_c(expressions, include, compiler):
    """The values of integer expressions."""
    prints = "\n".join(f'  printf("%lld\\n", (long long)({expression}));' for expression in expressions)
    source = ("#include <KyODBC.h>\n#include <KyODBCDiag.h>\n#include <stddef.h>\n#include <stdio.h>\n"
              f"int main(void) {{\n{prints}\n  return 0;\n}}\n")
    with tempfile.TemporaryDirectory(prefix="kyodbc-layout-") as folder:
        program = os.path.join(folder, "layout")
        clean = {key: value for key, value in os.environ.items() if key != "LD_PRELOAD"}
        subprocess.run([compiler, "-std=c11", f"-I{include}", "-x", "c", "-", "-o", program], check=True,
                       input=source, encoding="utf-8", env=clean)
        output = subprocess.run([program], check=True, capture_output=True, encoding="utf-8", env=clean)
    return [int(line) for line in output.stdout.split()]
