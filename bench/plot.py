"""How times grow with the rows: a panel for every work, as SVG."""

import math
import statistics

from works import WORKS

COLOURS = {"SQLite": "#0072b2", "PostgreSQL": "#d55e00", "MariaDB": "#009e73"}
WIDTH, HEIGHT, ACROSS = 230, 170, 4
LEFT, RIGHT, TOP, BOTTOM = 46, 12, 24, 24


def points(result, work, database, contender):
    """Rows and median milliseconds."""
    found = []
    for rows in sorted(map(int, result["times"][database])):
        times = result["times"][database][str(rows)].get(work, {}).get(contender)
        if times:
            found.append((rows, max(statistics.median(times) / 1e6, 1e-5)))
    return found


def label(milliseconds):
    for unit, size in (("s", 1000), ("ms", 1)):
        if milliseconds >= size:
            return f"{milliseconds / size:g} {unit}"
    return f"{milliseconds * 1000:g} us"


class Panel:
    def __init__(self, x, y, curves):
        values = [value for _, _, curve in curves for value in curve]
        self.x, self.y = x, y
        self.rows = [math.log10(f(rows for rows, _ in values)) for f in (min, max)]
        self.times = [math.floor(math.log10(min(time for _, time in values))),
                      math.ceil(math.log10(max(time for _, time in values)) + 0.01)]

    def across(self, rows):
        first, last = self.rows
        return self.x + LEFT + (math.log10(rows) - first) / max(last - first, 0.1) * (WIDTH - LEFT - RIGHT)

    def up(self, time):
        first, last = self.times
        part = (math.log10(time) - first) / (last - first)
        return self.y + HEIGHT - BOTTOM - part * (HEIGHT - TOP - BOTTOM)

    def frame(self, title):
        yield f'<text x="{self.x + LEFT}" y="{self.y + 16}" font-weight="bold">{title}</text>'
        left, right = self.x + LEFT, self.x + WIDTH - RIGHT
        for power in range(self.times[0], self.times[1] + 1):
            y = self.up(10.0 ** power)
            yield f'<line x1="{left}" x2="{right}" y1="{y:.1f}" y2="{y:.1f}" stroke="#ddd"/>'
            yield f'<text x="{left - 4}" y="{y + 3:.1f}" text-anchor="end">{label(10.0 ** power)}</text>'
        for power in range(math.ceil(self.rows[0]), math.floor(self.rows[1]) + 1):
            x = self.across(10 ** power)
            yield f'<text x="{x:.1f}" y="{self.y + HEIGHT - 8}" text-anchor="middle">{10 ** power:,}</text>'

    def curve(self, colour, dashes, curve):
        path = " ".join(f"{self.across(rows):.1f},{self.up(time):.1f}" for rows, time in curve)
        yield f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="1.6" {dashes}/>'
        for rows, time in curve if not dashes else ():
            yield f'<circle cx="{self.across(rows):.1f}" cy="{self.up(time):.1f}" r="2.2" fill="{colour}"/>'


def curves_of(result, work):
    curves = []
    for database in result["times"]:
        for contender, dashes in (("raw", 'stroke-dasharray="4 3"'), ("kyodbc", "")):
            curve = points(result, work, database, contender)
            if curve:
                curves.append((COLOURS[database], dashes, curve))
    return curves


def legend(result):
    x = LEFT
    for database in result["times"]:
        yield f'<rect x="{x}" y="8" width="12" height="12" fill="{COLOURS[database]}"/>'
        yield f'<text x="{x + 17}" y="18">{database}</text>'
        x += 110
    yield f'<text x="{x}" y="18">solid: KyODBC, dashed: bare ODBC; time over rows, both logarithmic</text>'


def plot(result):
    shown = [work.name for work in WORKS if curves_of(result, work.name)]
    height = 30 + (len(shown) + ACROSS - 1) // ACROSS * HEIGHT
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{ACROSS * WIDTH}" height="{height}" '
             'font-family="sans-serif" font-size="10">', '<rect width="100%" height="100%" fill="white"/>',
             *legend(result)]
    for number, work in enumerate(shown):
        curves = curves_of(result, work)
        panel = Panel(number % ACROSS * WIDTH, 30 + number // ACROSS * HEIGHT, curves)
        lines += panel.frame(work.replace("_", " "))
        for curve in curves:
            lines += panel.curve(*curve)
    return "\n".join([*lines, "</svg>", ""])
