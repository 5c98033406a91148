#!/usr/bin/env python3
"""The browser on a terminal, as a user sees it, and line by line. The program's path is in KYODBC_TOOL."""
import os
import pathlib
import re
import signal
import sqlite3
import stat
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(os.environ["KYODBC_SOURCE"])
sys.path.insert(0, str(SOURCE / "tests/tool"))

from shell_terminal import KEYS, TERM, Terminal  # noqa: E402
from tool_case import TOOL, ToolCase  # noqa: E402

PATIENTS = 200
FULL_SCREEN = b"\x1b[?1049h"
PLAIN_SCREEN = b"\x1b[?1049l"
SHOW_CURSOR = b"\x1b[?25h"
HIDE_CURSOR = b"\x1b[?25l"


class ShellCase(ToolCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.state = cls.folder / "state"
        cls.done("init", cls.practice)
        cls.done("sample", cls.practice, "--patients", PATIENTS)
        cls.change("UPDATE TPatient SET tPatSName = '山田太郎', tPatSFirstname = 'Taro' "
                   "WHERE tPatCulIntPatIDPk = 5")
        cls.names = [row[0] for row in cls.rows("SELECT tPatSName FROM TPatient ORDER BY tPatSName, "
                                                "tPatSFirstname")]

    @classmethod
    def rows(cls, sql, *parameters):
        connection = sqlite3.connect(cls.practice / "practice.db")
        try:
            return connection.execute(sql, parameters).fetchall()
        finally:
            connection.close()

    @classmethod
    def change(cls, sql):
        connection = sqlite3.connect(cls.practice / "practice.db")
        try:
            connection.execute(sql)
            connection.commit()
        finally:
            connection.close()

    def terminal(self, *arguments, lines=24, columns=80, **environment):
        plain = {key: value for key, value in os.environ.items() if not key.startswith(("ODBC", "KYODBC"))}
        # What the program says beside its screen would be seen on it.
        terminal = Terminal([TOOL, "shell", str(self.practice), *arguments], lines, columns,
                            {**plain, "XDG_STATE_HOME": str(self.state), **environment})
        self.addCleanup(terminal.end)
        return terminal

    def rows_shown(self, terminal, first=2, last=-2):
        return [line for line in terminal.lines()[first:last] if line]


class FullScreen(ShellCase):
    def open(self, *arguments, **options):
        terminal = self.terminal(*arguments, **options)
        terminal.wait(" of ")
        return terminal

    def at(self, terminal, row, count=PATIENTS):
        terminal.wait(lambda: terminal.lines()[-2] == f"row {row} of {count}", f"row {row} of {count}")

    def name_at(self, terminal, line):
        """The name in a line of the table, whose columns stand where the titles stand."""
        start = terminal.screen.display[1].index("name")
        end = terminal.screen.display[1].index("firstname")
        return "".join(terminal.screen.buffer[line][x].data for x in range(start, end)).strip()

    def test_it_starts_with_the_first_page_of_the_patients_by_name(self):
        terminal = self.open()
        self.at(terminal, 1)
        self.assertIn("patients", terminal.lines()[0])
        self.assertIn("sort: name,firstname", terminal.lines()[0])
        self.assertEqual([self.name_at(terminal, line) for line in range(2, 22)], self.names[:20])
        self.assertIn("? help", terminal.lines()[-1])

    def test_keys_move_and_turn_pages(self):
        terminal = self.open()
        for key, row in (("down", 2), ("page down", 22), ("end", PATIENTS), ("page up", PATIENTS - 20),
                         ("up", PATIENTS - 21), ("home", 1)):
            terminal.press(key)
            self.at(terminal, row)
        terminal.wait(lambda: self.name_at(terminal, 2) == self.names[0], "the first name")

    def test_a_new_size_is_seen_also_while_a_key_is_answered(self):
        terminal = self.open()
        for row, lines in enumerate((20, 24) * 10, 2):
            terminal.press("down")
            terminal.resize(lines, 80)
            terminal.wait(lambda: "patients" in terminal.lines()[0], f"{lines} lines")
            self.at(terminal, row)

    def test_columns_are_reached_by_arrows_and_stand_under_their_titles(self):
        terminal = self.open("--filter", "key <= 8", "--sort", "key")
        line = next(i for i in range(2, 10) if self.name_at(terminal, i) == "山田太郎")
        start = terminal.screen.display[1].index("firstname")
        # Every wide character has one empty place behind it.
        self.assertEqual(terminal.screen.buffer[line][start].data, "T")
        terminal.press(*["right"] * 13)
        terminal.wait(lambda: "entry" in terminal.lines()[1] and "firstname" not in terminal.lines()[1],
                      "the last columns")

    def test_a_filter_is_typed_completed_and_mended(self):
        terminal = self.open()
        terminal.type("fna")
        terminal.press("tab")
        terminal.wait("filter: name")
        terminal.type("like Mx")
        terminal.press("backspace")
        terminal.type("%")
        terminal.press("enter")
        count = sum(name.startswith("M") for name in self.names)
        self.at(terminal, 1, count)
        self.assertIn("filter: name like M%", terminal.lines()[0])
        terminal.type("f")
        terminal.press("ctrl-u")
        terminal.type("name like M% an")
        terminal.press("enter")
        terminal.wait("'and' or 'or' is missing")
        self.at(terminal, 1, count)

    def test_letters_beyond_ascii_are_typed_and_erased(self):
        terminal = self.open()
        terminal.type("fname like Zö山é")
        terminal.wait("Zö山é")
        terminal.press("backspace", "backspace", "left", "backspace")
        terminal.wait(lambda: terminal.lines()[-1] == "filter: name like ö", "the rest of the line")
        terminal.press("escape")
        terminal.wait("? help")

    def test_rows_are_sorted_and_jumped_to(self):
        terminal = self.open()
        first = next(i for i, name in enumerate(self.names, 1) if name >= "M")
        terminal.type("M")
        self.at(terminal, first)
        terminal.press("right")
        terminal.type("o")
        terminal.wait("sort: name")
        terminal.type("o")
        terminal.wait("sort: -name")
        terminal.wait(lambda: self.name_at(terminal, 2) == max(self.names), "the last name first")
        terminal.type("M")
        terminal.wait("ascending order")

    def test_a_patients_images_stand_beside_it(self):
        key, count = self.rows("SELECT tImgCulIntPatIDFk, COUNT(*) FROM TImage GROUP BY 1 ORDER BY 2 DESC")[0]
        terminal = self.open("--filter", f"key >= {key}", "--sort", "key")
        terminal.type("i")
        terminal.wait(f"images of patient {key}: 1 of {count}")
        heading = next(i for i, line in enumerate(terminal.lines()) if "images of patient" in line)
        terminal.wait(lambda: "region" in terminal.lines()[heading + 1], "titles of images")
        terminal.press("tab", "end")
        terminal.wait(f"images of patient {key}: {count} of {count}")
        terminal.press("tab", "down")
        terminal.wait(lambda: f"patient {key}:" not in terminal.text(), "another patient")
        terminal.resize(24, 140)
        terminal.wait(lambda: "│" in terminal.lines()[5] and "─" not in terminal.text(), "images beside")

    def test_a_table_is_chosen_and_a_row_shown(self):
        terminal = self.open()
        terminal.type("t")
        terminal.wait("settings")
        terminal.press("end", "enter")
        terminal.wait("DBVersion")
        terminal.wait(lambda: "settings" in terminal.lines()[0], "the heading")
        terminal.press("enter")
        terminal.wait("station")
        terminal.wait("Esc back")
        terminal.press("escape")
        terminal.wait("? help")

    def test_help_is_a_key_away(self):
        terminal = self.open()
        terminal.type("?")
        terminal.wait("jump to the first name")
        terminal.press("escape")
        terminal.wait("row 1 of")

    def test_the_window_changes_its_size(self):
        terminal = self.open()
        terminal.press("end")
        self.at(terminal, PATIENTS)
        for lines, columns in ((40, 100), (12, 40), (24, 80)):
            terminal.resize(lines, columns)
            terminal.wait(lambda: terminal.lines()[-2] == f"row {PATIENTS} of {PATIENTS}" and
                          self.names[-1] in terminal.lines()[lines - 3], f"{lines} lines")
            terminal.wait(lambda: len(self.rows_shown(terminal)) == lines - 4, "a full screen")
        terminal.resize(5, 20)
        terminal.wait("larger, please")
        terminal.resize(24, 80)
        self.at(terminal, PATIENTS)

    def test_colours_are_left_out_when_not_wanted(self):
        colour = re.compile(rb"\x1b\[[0-9;]*3[0-9]m|\x1b\[[0-9;]*4[0-9]m")
        with_colours = self.open()
        without = self.open(NO_COLOR="1")
        self.assertRegex(with_colours.output, colour)
        self.assertNotRegex(without.output, colour)

    def test_the_log_does_not_spoil_the_screen_and_comes_at_the_end(self):
        terminal = self.open(KYODBC_LOG="debug")
        terminal.press("end")
        self.at(terminal, PATIENTS)
        self.assertNotIn("SELECT", terminal.text())
        terminal.type("q")
        self.assertEqual(terminal.wait_for_end(), 0)
        self.assertIn(b"SELECT", terminal.output[terminal.output.rindex(PLAIN_SCREEN):])

    def test_a_log_file_never_holds_what_was_typed_or_shown(self):
        log = self.folder / "log"
        terminal = self.open(KYODBC_LOG="trace", KYODBC_LOG_FILE=str(log))
        name = self.names[0]
        terminal.type(f"fname = '{name}'")
        terminal.press("enter")
        terminal.wait("filter: name =")
        terminal.type("q")
        self.assertEqual(terminal.wait_for_end(), 0)
        text = log.read_text()
        self.assertIn("SELECT", text)
        self.assertNotIn(name, text)

    def test_nothing_changes_in_the_practice(self):
        dump = lambda: list(sqlite3.connect(self.practice / "practice.db").iterdump())
        before = dump()
        terminal = self.open()
        terminal.type("iMo")
        terminal.press("tab", "page down", "tab", "enter")
        terminal.wait("Esc back")
        terminal.press("escape")
        terminal.type("rtq")
        terminal.type("q")
        self.assertEqual(terminal.wait_for_end(), 0)
        self.assertEqual(dump(), before)


class Ending(ShellCase):
    """The terminal is as it was, however the browser ends."""

    def started(self, **environment):
        terminal = self.terminal(**environment)
        terminal.wait(f"of {PATIENTS}")
        self.assertNotEqual(terminal.modes(), terminal.modes_before)
        return terminal

    def expect_restored(self, terminal):
        self.assertEqual(terminal.modes(), terminal.modes_before)
        self.assertGreater(terminal.output.rindex(PLAIN_SCREEN), terminal.output.rindex(FULL_SCREEN))
        self.assertGreater(terminal.output.rindex(SHOW_CURSOR), terminal.output.rindex(HIDE_CURSOR))

    def test_q_ends_it(self):
        terminal = self.started()
        terminal.type("q")
        self.assertEqual(terminal.wait_for_end(), 0)
        self.expect_restored(terminal)

    def test_a_signal_ends_it(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGQUIT):
            with self.subTest(number):
                terminal = self.started()
                terminal.signal(number)
                self.assertEqual(terminal.wait_for_end(), -number)
                self.expect_restored(terminal)

    def test_control_c_ends_it_also_while_a_line_is_typed(self):
        terminal = self.started()
        terminal.type("fname")
        terminal.wait("filter: name")
        terminal.press("ctrl-c")
        self.assertEqual(terminal.wait_for_end(), -signal.SIGINT)
        self.expect_restored(terminal)

    def test_control_z_suspends_it_and_it_comes_back(self):
        plain = {key: value for key, value in os.environ.items() if not key.startswith(("ODBC", "KYODBC"))}
        terminal = Terminal(["bash", "--norc", "-i"], environment={**plain, "PS1": "prompt: "})
        self.addCleanup(terminal.end)
        terminal.wait("prompt:")
        terminal.type(f"{TOOL} shell {self.practice}\r")
        terminal.wait(f"row 1 of {PATIENTS}")
        terminal.press("ctrl-z")
        terminal.wait("Stopped")
        terminal.type("fg\r")
        terminal.wait(f"row 1 of {PATIENTS}")
        terminal.press("down")
        terminal.wait(f"row 2 of {PATIENTS}")
        terminal.type("q")
        terminal.wait(lambda: terminal.lines()[-1].startswith("prompt:"), "the prompt")
        terminal.type("exit\r")
        self.assertEqual(terminal.wait_for_end(), 0)

    def test_a_practice_that_is_none_fails_before_the_screen_is_taken(self):
        terminal = Terminal([TOOL, "shell", str(self.folder / "nowhere")])
        self.addCleanup(terminal.end)
        self.assertEqual(terminal.wait_for_end(), 1)
        self.assertNotIn(FULL_SCREEN, terminal.output)
        terminal = self.terminal("--filter", "colour = red")
        self.assertEqual(terminal.wait_for_end(), 2)
        self.assertNotIn(FULL_SCREEN, terminal.output)
        self.assertIn(b"there is no field 'colour' here", terminal.output)

    def test_a_terminal_that_cannot_show_it_is_told_of_line_mode(self):
        plain = {key: value for key, value in os.environ.items() if not key.startswith(("ODBC", "TERM"))}
        result = subprocess.run(
            ["script", "-qec", f"TERM=nothing-known {TOOL} shell {self.practice}", "/dev/null"],
            capture_output=True, env=plain, timeout=100)
        self.assertIn(b"--lines", result.stdout)

    def test_a_signal_ends_line_mode_and_the_terminal_is_as_it_was(self):
        terminal = self.terminal("--lines")
        terminal.wait("patients>")
        terminal.type("cou")
        terminal.wait(lambda: terminal.modes() != terminal.modes_before, "an editor")
        terminal.signal(signal.SIGTERM)
        self.assertEqual(terminal.wait_for_end(), -signal.SIGTERM)
        self.assertEqual(terminal.modes(), terminal.modes_before)


class LineMode(ShellCase):
    def say(self, *lines, code=0, arguments=()):
        """What the program answers to lines that nobody types; and what it complains of."""
        plain = {key: value for key, value in os.environ.items() if not key.startswith(("ODBC", "KYODBC"))}
        result = subprocess.run([TOOL, "shell", self.practice, *arguments],
                                input="".join(f"{line}\n" for line in lines), capture_output=True,
                                encoding="utf-8", timeout=100,
                                env={**plain, "XDG_STATE_HOME": str(self.state)})
        self.assertEqual(result.returncode, code, result.stderr)
        return result.stdout, result.stderr

    def numbers(self, output):
        return [int(line.split()[0]) for line in output.splitlines() if re.match(r" *\d+ ", line)]

    def test_pages_are_printed(self):
        output, _ = self.say("page", "next", "prev", "page 10", "goto 150", arguments=["--rows", "20"])
        self.assertEqual(self.numbers(output), [*range(1, 21), *range(21, 41), *range(1, 21),
                                                *range(181, 201), *range(150, 170)])
        self.assertIn("patients 181 to 200 of 200", output)

    def test_rows_are_filtered_sorted_and_counted(self):
        output, _ = self.say("filter name like M%", "count", "sort -name", "filter", "count")
        count = sum(name.startswith("M") for name in self.names)
        self.assertIn(f"patients 1 to {min(20, count)} of {count}", output)
        self.assertEqual([line for line in output.splitlines() if line.isdigit()],
                         [str(count), str(PATIENTS)])

    def test_a_text_is_jumped_to(self):
        first = next(i for i, name in enumerate(self.names, 1) if name >= "Mi")
        output, _ = self.say("rows 3", "jump Mi")
        self.assertEqual(self.numbers(output), [1, 2, 3, first, first + 1, first + 2])

    def test_a_row_and_its_images_are_shown(self):
        key, count = self.rows("SELECT tImgCulIntPatIDFk, COUNT(*) FROM TImage GROUP BY 1 ORDER BY 2 DESC")[0]
        output, _ = self.say("show", "images", arguments=["--filter", f"key = {key}"])
        self.assertRegex(output, rf"(?m)^key +{key}$")
        self.assertIn(f"{count} images of patient {key}", output)
        self.assertEqual(self.numbers(output), [*range(1, count + 1), count])

    def test_other_tables_are_opened(self):
        output, _ = self.say("tables", "open settings", "open images", "count")
        self.assertIn("* patients\n", output)
        self.assertIn("DBVersion", output)
        self.assertEqual(output.splitlines()[-1], str(self.rows("SELECT COUNT(*) FROM TImage")[0][0]))

    def test_lines_that_fail_are_named_and_the_others_are_carried_out(self):
        output, errors = self.say("nonsense", "filter colour = red", "images 0", "open rooms", "count now",
                                  "# a remark", "", "count", code=1)
        self.assertEqual(output, f"{PATIENTS}\n")
        for part in ("line 1: there is no command 'nonsense'", "line 2: there is no field 'colour'",
                     "line 3: '0' is no number", "line 4: there is no table 'rooms'",
                     "line 5: count takes nothing", "5 of the lines failed"):
            self.assertIn(part, errors)

    def test_the_end_is_an_end_and_quit_too(self):
        self.assertEqual(self.say("quit", "count"), ("", ""))
        self.assertEqual(self.say(), ("", ""))

    def test_help_lists_the_commands(self):
        output, _ = self.say("help")
        words = [line.split()[0] for line in output.splitlines()]
        for word in ("tables", "open", "filter", "sort", "page", "next", "prev", "goto", "show", "images",
                     "count", "help", "quit"):
            self.assertIn(word, words)

    def test_lines_are_edited_completed_and_brought_back(self):
        terminal = self.terminal("--lines")
        terminal.wait("patients>")
        terminal.type("cou\tx\x7f\r")
        terminal.wait(f"\n{PATIENTS}\n")
        terminal.type("open sett\t\r")
        terminal.wait("settings>")
        terminal.press("up", "up")
        terminal.wait("settings> count")
        terminal.press("ctrl-c")
        terminal.wait_for_end()

    def test_history_holds_no_values_unless_asked(self):
        def lines_kept(history):
            terminal = self.terminal("--lines", **({"KYODBC_HISTORY": history} if history else {}))
            terminal.wait("patients>")
            terminal.type("count\r")
            terminal.wait(f"\n{PATIENTS}\n")
            terminal.type("filter name like M%\r")
            terminal.wait("patients 1 to")
            terminal.type("quit\r")
            self.assertEqual(terminal.wait_for_end(), 0)
            file = self.state / "kyodbc" / "history"
            return file.read_text().splitlines() if file.exists() else None

        self.assertIsNone(lines_kept("off"))
        self.say("count")
        self.assertFalse(self.state.exists())
        self.assertEqual(lines_kept(None), ["count", "quit"])
        self.assertEqual(lines_kept("all")[2:], ["count", "filter name like M%", "quit"])
        self.assertEqual(stat.S_IMODE((self.state / "kyodbc/history").stat().st_mode), 0o600)
        terminal = self.terminal("--lines", KYODBC_HISTORY="some")
        self.assertEqual(terminal.wait_for_end(), 2)


if __name__ == "__main__":
    unittest.main()
