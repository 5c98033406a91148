#!/usr/bin/env python3
"""Drives one fuzzing program until it has used so many minutes of processor time, and tells what it did.

    fuzz/drive.py BUILD_FOLDER MINUTES NAME

The program's own limit is one of the clock on the wall, which says nothing on a machine that does other
work too. What every stretch came to is kept in BUILD_FOLDER/stretches.csv, so that they add up. Inputs worth
keeping go into BUILD_FOLDER/corpus/NAME, finds into BUILD_FOLDER/NAME-crash-... and the like. Exits with 1
at a find.
"""

import csv
import os
import pathlib
import re
import signal
import subprocess
import sys
import time

# A machine that gives the program less than this share of a processor is too busy for it.
LEAST_SHARE = 0.05
FINDS = ("crash", "leak", "timeout", "oom")


def processor_seconds(pid):
    """What a program has used so far, itself and in the system."""
    try:
        fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    except OSError:
        return 0.0
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def finds(build, name):
    return {path.name for kind in FINDS for path in build.glob(f"{name}-{kind}-*")}


def start(build, name):
    found = build / "corpus" / name
    found.mkdir(parents=True, exist_ok=True)
    log = open(build / f"{name}.log", "w", encoding="utf-8")
    given = pathlib.Path(__file__).parent / "corpus" / name
    return subprocess.Popen(
        [build / "fuzz" / f"{name}_fuzz", "-max_len=6000", "-timeout=60", "-print_final_stats=1",
         "-verbosity=0", f"-artifact_prefix={build}/{name}-", found, given],
        env=os.environ | {"KYODBC_TEST_DB": "sqlite"}, stdout=log, stderr=log)


def drive(build, name, seconds):
    """Processor seconds used and whether the program was ended by us."""
    program = start(build, name)
    last_moment = time.monotonic() + seconds / LEAST_SHARE + 60
    used = 0.0
    try:
        while program.poll() is None:
            used = max(used, processor_seconds(program.pid))
            if used >= seconds or time.monotonic() > last_moment:
                program.send_signal(signal.SIGUSR1)  # ends it with its statistics
                break
            time.sleep(0.5)
        program.wait(timeout=600)
    finally:
        if program.poll() is None:
            program.kill()
            program.wait()
    return used, program.returncode


def note(build, name, used, executions, new):
    path = build / "stretches.csv"
    with open(path, "a", encoding="utf-8", newline="") as file:
        csv.writer(file).writerow([name, f"{used:.0f}", executions, " ".join(sorted(new))])
    with open(path, encoding="utf-8", newline="") as file:
        rows = [row for row in csv.reader(file) if row[0] == name]
    return sum(int(row[1]) for row in rows), sum(int(row[2]) for row in rows)


def main(build, minutes, name):
    build = pathlib.Path(build).resolve()
    known = finds(build, name)
    used, code = drive(build, name, float(minutes) * 60)
    log = (build / f"{name}.log").read_text(encoding="utf-8", errors="replace")
    executed = re.findall(r"stat::number_of_executed_units: +(\d+)", log)
    executions = int(executed[-1]) if executed else 0
    new = finds(build, name) - known
    all_used, all_executions = note(build, name, used, executions, new)
    print(f"{name}: {used / 60:.1f} CPU minutes, {executions} executions, {len(new)} finds; "
          f"all stretches: {all_used / 60:.1f} CPU minutes, {all_executions} executions", flush=True)
    if not new and code == 0:
        return 0
    print(log[-6000:])
    print("\n".join(f"found: {build / find}" for find in sorted(new)))
    return 1


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
