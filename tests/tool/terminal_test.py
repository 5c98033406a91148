#!/usr/bin/env python3
"""The companion program on a terminal: questions, colours, progress and Ctrl-C."""
import os
import unittest

import doctor_kinds
from source_case import SourceCase
from terminal import Terminal
from tool_case import TOOL, ToolCase

COLOUR = "\x1b["


def environment(**more):
    kept = {key: value for key, value in os.environ.items()
            if not key.startswith("ODBC") and key not in ("NO_COLOR", "KYODBC_PASSWORD")}
    return {**kept, "TERM": "xterm", **more}


class Questions(ToolCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.done("init", cls.practice)
        cls.done("sample", cls.practice, "--patients", 3)

    def edit(self, name):
        return Terminal([TOOL, "edit", str(self.practice), "patient", "2", f"name={name}"], environment())

    def name(self):
        return self.value("SELECT tPatSName FROM TPatient WHERE tPatCulIntPatIDPk = 2")

    def test_an_edit_is_shown_and_asked_for_first(self):
        before = self.name()
        with self.edit("Asked") as terminal:
            shown = terminal.until("[y/N] ")
            self.assertIn(f"- {before}", shown)
            self.assertIn("+ Asked", shown)
            self.assertEqual(self.name(), before)
            terminal.type("y\n")
            self.assertEqual(terminal.end(), 0)
        self.assertEqual(self.name(), "Asked")

    def test_every_other_answer_changes_nothing(self):
        before = self.name()
        for answer in ("\n", "n\n", "maybe\n", "\x04"):
            with self.subTest(answer), self.edit("Refused") as terminal:
                terminal.until("[y/N] ")
                terminal.type(answer)
                self.assertEqual(terminal.end(), 4)
                self.assertIn("nothing was changed", terminal.shown)
            self.assertEqual(self.name(), before)

    def test_ctrl_c_at_a_question_changes_nothing(self):
        before = self.name()
        with self.edit("Interrupted") as terminal:
            terminal.until("[y/N] ")
            terminal.type("\x03")
            self.assertEqual(terminal.end(), 130)
        self.assertEqual(self.name(), before)

    def test_without_a_terminal_yes_must_be_said_beforehand(self):
        self.fails(2, "--yes", "edit", self.practice, "patient", 2, "name=Nobody")
        self.assertNotEqual(self.name(), "Nobody")

    def test_somebody_elses_change_meanwhile_is_not_overwritten(self):
        with self.edit("Mine") as terminal:
            terminal.until("[y/N] ")
            self.done("edit", self.practice, "patient", 2, "name=Theirs", "--yes")
            terminal.type("y\n")
            self.assertEqual(terminal.end(), 1)
            self.assertIn("somebody else", terminal.shown)
        self.assertEqual(self.name(), "Theirs")


class Colours(ToolCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.done("init", cls.practice)

    def shown(self, *arguments, **more):
        with Terminal([TOOL, *map(str, arguments)], environment(**more)) as terminal:
            terminal.end()
            return terminal.shown

    def test_a_terminal_shows_colours(self):
        self.assertIn(COLOUR, self.shown("list", self.practice, "doctors"))
        self.assertIn(COLOUR, self.shown("list", self.practice, "dogs"))

    def test_no_color_and_plain_terminals_are_respected(self):
        for more in ({"NO_COLOR": "1"}, {"TERM": "dumb"}):
            self.assertNotIn(COLOUR, self.shown("list", self.practice, "doctors", **more))
            self.assertNotIn(COLOUR, self.shown("list", self.practice, "dogs", **more))

    def test_files_and_pipes_get_none(self):
        self.assertNotIn(COLOUR, self.done("list", self.practice, "doctors"))
        self.assertNotIn(COLOUR, self.start("list", self.practice, "dogs").stderr)

    def test_progress_is_for_terminals_only(self):
        practice = self.folder / "progress"
        self.done("init", practice)
        shown = self.shown("sample", practice, "--patients", 30, NO_COLOR="1")
        self.assertIn("[####", shown)
        other = self.folder / "silent"
        self.done("init", other)
        self.done("sample", other, "--patients", 30)


class Passwords(SourceCase):
    """At the prompt, for a data source of a server."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.kind = doctor_kinds.KINDS["postgresql"]()
        cls.make(cls.kind)
        cls.files = {key: cls.environment[key] for key in ("ODBCSYSINI", "ODBCINI")}

    def ask(self):
        return Terminal([TOOL, "list", *self.source(self.kind)[:1], "doctors", "--user", self.kind.user],
                        environment(**self.files))

    def test_a_password_is_asked_for_and_not_shown(self):
        with self.ask() as terminal:
            terminal.until("Password: ")
            terminal.without_echo()
            terminal.type(doctor_kinds.PASSWORD + "\n")
            self.assertEqual(terminal.end(), 0)
            self.assertNotIn(doctor_kinds.PASSWORD, terminal.shown)
            self.assertIn("doctors 1 to 1 of 1", terminal.shown)

    def test_ctrl_c_at_a_password_leaves_the_terminal_as_it_was(self):
        with self.ask() as terminal:
            terminal.until("Password: ")
            terminal.without_echo()
            terminal.type("\x03")
            terminal.until("interrupted")
            self.assertTrue(terminal.echoes())
            self.assertEqual(terminal.end(), 130)

    def test_no_option_takes_a_password(self):
        for command in ("list", "copy", "backup", "restore", "doctor"):
            self.assertNotIn("--password ", self.done(command, "--help"))


if __name__ == "__main__":
    unittest.main()
