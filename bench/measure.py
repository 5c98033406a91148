"""Runs the contenders in turns."""

import collections
import itertools
import subprocess
import sys
import time

from contender import Contender, Failure
from works import WORKS, base_name, bases_of

ROUNDS = 7
FEWEST = 3
LONGEST = 100e6  # nanoseconds that a contender's part of a round takes, if one operation does not take more
WARMED = 20  # works that are done so often in a round


Turn = collections.namedtuple("Turn", "name contender work")


class Measurement:
    """What is found out, in the form in which it is written: times[database][rows][work][contender], the bare
    program's bases among them."""

    def __init__(self, contenders, deadline, total):
        self.contenders = contenders
        self.deadline = deadline
        self.left = total  # works still to be measured
        self.salts = itertools.count(1)
        self.times = collections.defaultdict(lambda: collections.defaultdict(dict))
        self.memory = collections.defaultdict(dict)
        self.instructions = {}
        self.faults = []

    def allowance(self):
        return max(1.0, self.deadline - time.monotonic()) / max(1, self.left) * 1.5

    def practice(self, database, rows, source):
        """All works on one practice."""
        for contender in self.contenders:
            contender.start(source)
        try:
            for group, works in itertools.groupby(WORKS, lambda work: work.group):
                for work in works:
                    self.tell(f"{database}, {rows:,} rows: {work.name}")
                    self.work(database, rows, work)
                    self.left -= 1
                self.tidy(rows)
        finally:
            for contender in self.contenders:
                contender.stop()

    def tidy(self, rows):
        raw = self.contenders[0]
        asked = [(contender, "disconnect") for contender in self.contenders]
        for contender, what in [*asked, (raw, "clean_up"), (raw, "disconnect")]:
            try:
                contender.ask(what, 1, 0, rows, False, False)
            except Failure as failure:
                self.tell(str(failure), end="\n")

    def work(self, database, rows, work):
        request = {"rows": rows, "embedded": database == "SQLite"}
        end = time.monotonic() + self.allowance()
        chosen = [contender for contender in self.contenders if self.takes_part(contender, work, rows)]
        chosen, slowest = self.agreeing(database, rows, work, chosen, request)
        if not chosen:
            return
        count = self.repetitions(work, slowest)
        turns = [Turn(contender.name, contender, work.name) for contender in chosen]
        turns += [Turn(base_name(base), self.contenders[0], base) for base in bases_of(work)]
        times = {turn.name: [] for turn in turns}
        for number in range(ROUNDS):
            began = time.monotonic()
            # Only what is written must be new each time; what is looked for is the same for all.
            salts = self.salts if work.writes else itertools.repeat(next(self.salts))
            first = number % len(turns)  # nobody always comes first
            for turn in turns[first:] + turns[:first]:
                try:
                    times[turn.name].append(self.timed(turn, count, salts, request))
                except Failure as failure:
                    self.fault(database, rows, str(failure))
                    turns.remove(turn)
                    del times[turn.name]
            spent = time.monotonic() - began
            enough = number + 1 >= FEWEST or spent * FEWEST > self.allowance()
            if not turns or (enough and time.monotonic() + spent > end):
                break
        self.times[database][rows][work.name] = times

    @staticmethod
    def repetitions(work, slowest):
        """How often a contender does a work in a round, given what one time takes. An even number where it is
        not once: some works do two things in turns."""
        fitting = work.count if work.whole else max(2, int(LONGEST / slowest) // 2 * 2)
        return min(work.count, fitting)

    @staticmethod
    def timed(turn, count, salts, request):
        """A server and a processor that have just served another are slow at first: short works run twice."""
        for _ in range(2 if count >= WARMED else 1):
            taken, _ = turn.contender.ask(turn.work, count, next(salts), check=False, **request)
        return round(taken)

    @staticmethod
    def takes_part(contender, work, rows):
        return not contender.is_peer or rows <= work.peers_up_to

    def agreeing(self, database, rows, work, contenders, request):
        """Those who read what the bare program reads, and the nanoseconds that the slowest of them took for
        one operation. Only they are timed."""
        agree, expected, slowest = [], None, 1
        count = work.count if work.whole else min(work.count, work.checks)
        # Values that are written may differ between contenders, what else is read may not.
        salt = next(self.salts)
        for contender in contenders:
            try:
                own = next(self.salts) if work.writes else salt
                answer = contender.ask(work.name, count, own, check=True, **request)
            except Failure as failure:
                self.fault(database, rows, str(failure))
                continue
            if answer is None:
                continue
            if expected is None:
                expected = answer[1]
            if answer[1] == expected:
                agree.append(contender)
                slowest = max(slowest, answer[0])
            else:
                self.fault(database, rows, f"{contender.title} did not read what bare ODBC read: {work.name}")
        return agree, slowest

    def fault(self, database, rows, text):
        self.faults.append(f"{database}, {rows} rows: {text}")
        self.tell(self.faults[-1], end="\n")

    def open_memory(self, database, rows, source):
        """Memory above the empty process with all images open, and after a walk over them."""
        for contender in self.contenders:
            fresh = Contender(contender.name, contender.program, contender.library)
            fresh.start(source)
            try:
                for work in ("memory_open", "memory_walked"):
                    answer = fresh.ask(work, 1, 0, rows, False, False)
                    if answer is not None:
                        self.memory[database].setdefault(contender.name, {})[work] = round(answer[0])
            except Failure as failure:
                self.fault(database, rows, str(failure))
            finally:
                fresh.stop()

    def count_instructions(self, rows, source):
        """Instructions of one operation on the embedded database, whose work is all done in the process."""
        for name in ("get", "edit", "add", "newest"):
            self.tell(f"instructions of {name}")
            for contender in self.contenders:
                few, many = (self.instructions_of(contender, source, name, count, rows)
                             for count in (20, 120))
                if few and many:
                    self.instructions.setdefault(name, {})[contender.name] = (many - few) // 100

    @staticmethod
    def instructions_of(contender, source, work, count, rows):
        requests = f"{work} 20 1 {rows} 0 1\n{work} {count} 2 {rows} 0 1\n"
        done = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
                               contender.program, source], input=requests, capture_output=True, text=True,
                              env=contender.environment(), check=False)
        collected = [line.split()[-1] for line in done.stderr.splitlines() if "Collected" in line]
        return int(collected[0]) if collected and done.stdout.count("ok") == 2 else None

    @staticmethod
    def tell(text, end="\r"):
        if sys.stderr.isatty() or end == "\n":
            print(f"{text:<78}", end=end, file=sys.stderr, flush=True)
