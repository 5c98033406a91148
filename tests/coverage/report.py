#!/usr/bin/env python3
"""What of the library the tests reach. Usage: report.py GCOVR_JSON EXPLANATIONS

Lists the lines that no test reaches, holds them against the explanations, and ends with the two figures.
Fails when a line is not explained, an explanation explains nothing, or a figure is below its limit.
"""
import json
import pathlib
import re
import sys

LEAST_LINES = 95.0
LEAST_BRANCHES = 90.0


def short(name):
    """A function's name without return type, arguments, template arguments and nameless namespaces."""
    name = name.replace("(anonymous namespace)::", "").replace("operator()", "operator")
    previous = None
    while name != previous:
        previous, name = name, re.sub(r"<[^<>]*>|\([^()]*\)|\[[^][]*\]", "", name)
    name = name.split("::{lambda")[0]
    words = [word for word in name.split() if word not in ("const", "noexcept", "&")]
    return words[-1]


def function_at(starts, number):
    """The last function that begins at or before the line."""
    return next((name for line, name in reversed(starts) if line <= number), "(none)")


def unreached(file):
    """The unreached lines of one file, by function."""
    functions = sorted(file["functions"], key=lambda function: function["lineno"])
    starts = [(function["lineno"], short(function["name"])) for function in functions]
    found = {}
    for line in file["lines"]:
        if line["count"] == 0 and not line.get("gcovr/noncode"):
            found.setdefault(function_at(starts, line["line_number"]), []).append(line["line_number"])
    return found


def explanations(path):
    """By file and function: the number of lines that are explained, and why no test reaches them."""
    found = {}
    for text in re.sub(r"\n +", " ", path.read_text()).splitlines():
        if not text or text.startswith("#"):
            continue
        file, function, lines, reason = text.split(maxsplit=3)
        found[file, function] = int(lines), reason
    return found


def compare(lines, explained):
    """Prints every place; returns the number of those that differ from the explanations."""
    wrong = 0
    for place in sorted(lines.keys() | explained.keys()):
        numbers, (count, reason) = lines.get(place, []), explained.get(place, (0, "NOT EXPLAINED"))
        file, function = place
        if len(numbers) != count:
            wrong += 1
            reason = f"{reason} -- {count} explained, {len(numbers)} found"
        print(f"{file}:{','.join(map(str, numbers))} {function}: {reason}")
    return wrong


def share(reached, total, what, least):
    percent = 100.0 * reached / total
    print(f"{what}: {percent:.1f} % ({reached} of {total}, at least {least:.0f} % are asked for)")
    return percent >= least


def main():
    files = json.loads(pathlib.Path(sys.argv[1]).read_text())["files"]
    lines = {(file["file"], function): numbers
             for file in files for function, numbers in unreached(file).items()}
    print("Lines that no test reaches:")
    wrong = compare(lines, explanations(pathlib.Path(sys.argv[2])))
    code = [line for file in files for line in file["lines"] if not line.get("gcovr/noncode")]
    branches = [branch for line in code for branch in line["branches"]]
    reached = sum(line["count"] > 0 for line in code)
    taken = sum(branch["count"] > 0 for branch in branches)
    enough = [share(reached, len(code), "lines", LEAST_LINES),
              share(taken, len(branches), "branches", LEAST_BRANCHES)]
    if wrong:
        print(f"{sys.argv[2]} is wrong in {wrong} places")
    return 0 if all(enough) and not wrong else 1


if __name__ == "__main__":
    sys.exit(main())
