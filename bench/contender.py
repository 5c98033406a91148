"""A contender: a program that does works on request."""

import os
import subprocess

TITLES = {"raw": "bare ODBC", "kyodbc": "KyODBC", "soci": "SOCI", "qt": "Qt SQL", "poco": "Poco Data"}


class Failure(Exception):
    pass


class Contender:
    def __init__(self, name, program, library=None):
        self.name = name
        self.title = TITLES.get(name, name)
        self.program = program
        self.library = library
        self.process = None

    @property
    def is_peer(self):
        return self.name in ("soci", "qt", "poco")

    def environment(self):
        # Qt wants no display, and is not to look for one.
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
        if self.library:
            environment["LD_LIBRARY_PATH"] = self.library
        return environment

    def start(self, source, *before):
        self.process = subprocess.Popen([*before, self.program, source], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True, env=self.environment())

    def stop(self):
        if self.process is not None:
            self.process.communicate()
            self.process = None

    def ask(self, work, count, salt, rows, check, embedded):
        """Nanoseconds for each of `count` times, and the sum; None when the work is not offered."""
        request = f"{work} {count} {salt} {rows} {int(check)} {int(embedded)}\n"
        try:
            self.process.stdin.write(request)
            self.process.stdin.flush()
        except BrokenPipeError as ended:
            raise Failure(f"{self.title} has ended before {work}") from ended
        words = self.process.stdout.readline().split(maxsplit=2)
        if not words:
            raise Failure(f"{self.title} ended during {work}")
        if words[0] == "none":
            return None
        if words[0] == "error":
            raise Failure(f"{self.title}, {work}: {' '.join(words[1:])}")
        return int(words[1]) / count, int(words[2])


def find(folder, library, others):
    """The contenders that have been built, the bare program and the library first."""
    found, missing = [], []
    for name in ("raw", "kyodbc", "soci", "qt", "poco"):
        program = os.path.join(folder, f"bench_{name}")
        if os.path.exists(program):
            found.append(Contender(name, program, library if name == "kyodbc" else None))
        else:
            missing.append(TITLES[name])
    for name, place in others:
        found.append(Contender(name, os.path.join(folder, "bench_kyodbc"), place))
    return found, missing
