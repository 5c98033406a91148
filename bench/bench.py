#!/usr/bin/env python3
"""The benchmark: this library, a bare ODBC program and other wrappers do the same work on the same rows, in
turns.

usage: bench.py run --programs DIR --out DIR [--quick] [--library DIR] [--also NAME=DIR]
                    [--databases NAME,...] [--seconds N]
       bench.py page RESULT.json    writes docs/performance.md and docs/performance.svg anew from a result

The servers of tests/support/servers run already; KYODBC_TEST_SERVERS names their folder.
"""

import argparse
import datetime
import json
import os
import platform
import shutil
import subprocess
import sys
import tempfile
import time

import contender
import data
import measure
import report
from works import SIZES, WORKS

FULL_SECONDS, QUICK_SECONDS = 26 * 60, 150
ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        models = [line.split(":", 1)[1].strip() for line in file if line.startswith("model name")]
    with open("/proc/meminfo", encoding="ascii") as file:
        memory = int(file.readline().split()[1])
    return {"processor": models[0] if models else platform.machine(), "processors": os.cpu_count(),
            "memory": f"{memory / 1e6:.0f} GB", "kernel": platform.release()}


def versions():
    packages = ("unixodbc", "libsqliteodbc", "libsqlite3-0", "odbc-postgresql", "postgresql-15",
                "odbc-mariadb", "mariadb-server-core", "libsoci-dev", "libqt5sql5-odbc", "libpoco-dev")
    done = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Version}\n", *packages],
                          capture_output=True, text=True, check=False)
    return dict(line.split() for line in done.stdout.splitlines() if len(line.split()) == 2)


def revision():
    done = subprocess.run(["git", "-C", ROOT, "describe", "--always", "--dirty"], capture_output=True,
                          text=True, check=False)
    return done.stdout.strip()


def parse():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(dest="command", required=True)
    run = commands.add_parser("run")
    run.add_argument("--programs", required=True, help="where the contenders were built")
    run.add_argument("--out", required=True, help="where bench.json, bench.txt and bench.svg go")
    run.add_argument("--quick", action="store_true", help="without the largest practices, in three minutes")
    run.add_argument("--library", help="folder of another build of the library, to be measured instead")
    run.add_argument("--also", action="append", default=[], metavar="NAME=DIR",
                     help="one more build of the library, measured beside the first")
    run.add_argument("--databases", default="SQLite,PostgreSQL,MariaDB")
    run.add_argument("--seconds", type=int, help="how much time there is")
    page = commands.add_parser("page")
    page.add_argument("result")
    return parser.parse_args()


def measure_all(options, folder, contenders, began):
    sizes = SIZES[:2] if options.quick else SIZES
    servers = os.environ.get("KYODBC_TEST_SERVERS", "")
    names = options.databases.split(",")
    databases = [kind(folder, servers) for kind in data.DATABASES if kind.name in names]
    for database in databases:
        for rows in sizes:
            measure.Measurement.tell(f"making {rows:,} patients and images on {database.name}")
            database.load(rows)
    data.write_sources(folder, databases, sizes)
    seconds = options.seconds or (QUICK_SECONDS if options.quick else FULL_SECONDS)
    total = len(databases) * len(sizes) * len(WORKS)
    measured = measure.Measurement(contenders, began + seconds, total)
    # The smallest practices last: they take what time there is for many rounds.
    for rows in reversed(sizes):
        for database in databases:
            measured.practice(database.name, rows, f"{database.name}{rows}")
    for database in databases:
        measured.open_memory(database.name, sizes[-1], f"{database.name}{sizes[-1]}")
    if not options.quick and shutil.which("valgrind") and databases[0].name == "SQLite":
        measured.count_instructions(sizes[0], f"SQLite{sizes[0]}")
    return measured


def run(options):
    began = time.monotonic()
    others = [other.split("=", 1) for other in options.also]
    contenders, missing = contender.find(options.programs, options.library, others)
    with tempfile.TemporaryDirectory(prefix="kyodbc-bench-") as folder:
        measured = measure_all(options, folder, contenders, began)
    result = {
        "date": datetime.date.today().isoformat(),
        "revision": revision(),
        "quick": options.quick,
        "seconds": round(time.monotonic() - began),
        "machine": machine(),
        "versions": versions(),
        "contenders": {each.name: each.title for each in contenders},
        "missing": missing,
        "times": measured.times,
        "memory": measured.memory,
        "instructions": measured.instructions,
        "faults": measured.faults,
    }
    os.makedirs(options.out, exist_ok=True)
    # Keys become texts on the way; what reads a result reads it from its file.
    result = json.loads(json.dumps(result))
    with open(os.path.join(options.out, "bench.json"), "w", encoding="utf-8") as file:
        json.dump(result, file, indent=1)
    text = report.table(result)
    with open(os.path.join(options.out, "bench.txt"), "w", encoding="utf-8") as file:
        file.write(text)
    with open(os.path.join(options.out, "bench.svg"), "w", encoding="utf-8") as file:
        file.write(report.plot(result))
    print(text)
    print(f"written: {options.out}/bench.json, bench.txt, bench.svg")
    return 1 if measured.faults else 0


def main():
    options = parse()
    if options.command == "page":
        with open(options.result, encoding="utf-8") as file:
            report.write_page(json.load(file), os.path.join(ROOT, "docs"))
        return 0
    return run(options)


if __name__ == "__main__":
    sys.exit(main())
