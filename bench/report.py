"""What a benchmark found out, as a text, as a page and as a plot."""

import os
import statistics

from plot import plot  # noqa: F401  (part of what this module offers)
from works import GROWN, LINES, MOST_MEMORY, base_name

BEGIN, END = "<!-- measured: begin -->", "<!-- measured: end -->"
NONE = "–"
CLEARLY = 0.95


def median(result, database, rows, work, contender):
    """The median time of one operation in nanoseconds; None when it was not measured."""
    times = result["times"].get(database, {}).get(str(rows), {}).get(work, {}).get(contender)
    return statistics.median(times) if times else None


def duration(nanoseconds):
    if nanoseconds is None:
        return NONE
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.0f} ns"


def ratio(time, base):
    if not time or not base:
        return NONE
    value = time / base
    if value < 0.1:
        return f"{max(value, 0.0001):.2g}"
    return f"{value:.2f}" if value < 100 else f"{value:.0f}"


def peers(result):
    return [name for name in result["contenders"] if name not in ("raw", "kyodbc")]


def growth(result, database, work, contender="kyodbc"):
    """How much longer it takes on the largest practice than on the smallest."""
    sizes = sorted(map(int, result["times"][database]))
    first, last = (median(result, database, rows, work, contender) for rows in (sizes[0], sizes[-1]))
    return last / first if first and last else None


class Entry:
    """A line on one database."""

    def __init__(self, result, database, line):
        self.line = line
        sizes = sorted(map(int, result["times"][database]))
        self.rows = min(line.rows, sizes[-1])
        self.base = median(result, database, self.rows, line.work, base_name(line.base))
        self.time = median(result, database, self.rows, line.work, "kyodbc")
        self.others = {name: median(result, database, self.rows, line.work, name) for name in peers(result)}
        self.growth = growth(result, database, line.work)
        self.most = line.most.get(database)

    @property
    def limit(self):
        parts = [f"{self.most:g}"] if self.most else []
        if self.line.most_ms:
            parts.append(f"{self.line.most_ms:g} ms")
        if self.line.flat:
            parts.append("no growth")
        return ", ".join(parts)

    @property
    def is_reached(self):
        """None when there is nothing to reach, or nothing was measured."""
        if not self.limit or self.time is None or self.base is None:
            return None
        return ((self.most is None or self.time <= self.most * self.base)
                and (not self.line.most_ms or self.time <= self.line.most_ms * 1e6)
                and (not self.line.flat or self.growth is None or self.growth < GROWN))

    @property
    def ahead(self):
        """The peers that took clearly less time than the library."""
        return [name for name, time in self.others.items()
                if time and self.time and time < CLEARLY * self.time]

    def cells(self):
        mark = {None: "", True: "yes", False: "no"}[self.is_reached]
        return [self.line.title, f"{self.rows:,}", duration(self.base), duration(self.time),
                ratio(self.time, self.base), self.limit, mark,
                *(ratio(time, self.base) for time in self.others.values())]


def headings(result):
    return ["work", "rows", "bare ODBC", "KyODBC", "ratio", "at most", "reached",
            *(result["contenders"][name] for name in peers(result))]


def entries(result, database):
    return [Entry(result, database, line) for line in LINES]


def columns(rows):
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    for row in rows:
        yield "  ".join(cell.ljust(width) if i == 0 else cell.rjust(width)
                        for i, (cell, width) in enumerate(zip(row, widths))).rstrip()


def table(result):
    """For the terminal."""
    lines = []
    for database in result["times"]:
        rows = [headings(result), *(each.cells() for each in entries(result, database))]
        lines += ["", database, *columns(rows)]
    for title, rows in (memory_rows(result), instruction_rows(result), ahead_rows(result)):
        if len(rows) > 1:
            lines += ["", title, *columns(rows)]
    lines += ["", *remarks(result), ""]
    return "\n".join(lines)


def memory_rows(result):
    sizes = {rows for database in result["times"].values() for rows in database}
    title = f"Memory above the empty process, {max(map(int, sizes)):,} images open (and walked), in MB"
    rows = [["", *result["times"]]]
    for name, contender in result["contenders"].items():
        cells = []
        for database in result["times"]:
            found = result["memory"].get(database, {}).get(name, {})
            parts = [f"{found[work] / 1e6:.0f}" for work in ("memory_open", "memory_walked") if work in found]
            cells.append(f"{parts[0]} ({parts[1]})" if len(parts) == 2 else "".join(parts) or NONE)
        rows.append([contender, *cells])
    return f"{title}; at most {MOST_MEMORY / 1e6:.0f}", rows


def instruction_rows(result):
    title = "Instructions of one operation on SQLite, and their ratio"
    if not result["instructions"]:
        return title, []
    rows = [["", *result["instructions"]]]
    for name, contender in result["contenders"].items():
        cells = [f"{counts[name]:,} ({ratio(counts[name], counts.get('raw'))})" if name in counts else NONE
                 for counts in result["instructions"].values()]
        rows.append([contender, *cells])
    return title, rows


def ahead_rows(result):
    """Where peers take clearly less time than the library, as parts of its time."""
    rows = [["", "work", *(result["contenders"][name] for name in peers(result))]]
    for database in result["times"]:
        for entry in entries(result, database):
            if entry.ahead:
                parts = [ratio(time, entry.time) if name in entry.ahead else ""
                         for name, time in entry.others.items()]
                rows.append([database, entry.line.title, *parts])
    return "Where others are ahead by a twentieth or more, as parts of KyODBC's time", rows


def remarks(result):
    """What must not be overlooked."""
    return ([f"Not measured, since not installed: {name}." for name in result["missing"]]
            + [f"Left out: {fault}." for fault in result["faults"]])


def page_table(rows):
    yield "| " + " | ".join(rows[0]) + " |"
    yield "|---|" + "---:|" * (len(rows[0]) - 1)
    for row in rows[1:]:
        yield "| " + " | ".join(row) + " |"


def page(result):
    """What stands between the marks of docs/performance.md."""
    machine = result["machine"]
    packages = ", ".join(f"{package} {version}" for package, version in result["versions"].items())
    minutes = result["seconds"] // 60
    lines = [f"Measured on {result['date']} at revision {result['revision']}, in {minutes} minutes,",
             f"on {machine['processors']} processors ({machine['processor']}), {machine['memory']},",
             f"Linux {machine['kernel']}; {packages}."]
    lines += ["", *(f"- {remark}" for remark in remarks(result))]
    for database in result["times"]:
        lines += ["", f"### {database}", ""]
        lines += page_table([headings(result), *(each.cells() for each in entries(result, database))])
    for title, rows in (memory_rows(result), instruction_rows(result), ahead_rows(result)):
        if len(rows) > 1:
            lines += ["", f"### {title}", "", *page_table(rows)]
    return "\n".join(lines)


def write_page(result, folder):
    path = os.path.join(folder, "performance.md")
    with open(path, encoding="utf-8") as file:
        text = file.read()
    before, rest = text.split(BEGIN)
    after = rest.split(END)[1]
    with open(path, "w", encoding="utf-8") as file:
        file.write(f"{before}{BEGIN}\n\n{page(result)}\n\n{END}{after}")
    with open(os.path.join(folder, "performance.svg"), "w", encoding="utf-8") as file:
        file.write(plot(result))
