#!/usr/bin/env python3
"""Falsifies single answers and expects each to be reported with a short script.

Usage: falsified_test.py PROGRAM
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1)


def run(*arguments):
    done = subprocess.run([PROGRAM, "--databases", "sqlite", *map(str, arguments)], capture_output=True,
                          text=True)
    return done.returncode, done.stdout


class FalsifiedTest(unittest.TestCase):
    def test_true_answers_are_not_reported(self):
        code, text = run("--seeds", 7, "--calls", 300)
        self.assertEqual(code, 0, text)
        self.assertIn("scripts: 1, failed: 0", text)

    def test_one_falsified_answer_is_reported_with_a_short_script(self):
        for call in (40, 150, 299):
            with self.subTest(call=call):
                code, text = run("--seeds", 7, "--calls", 300, "--plant-error", call)
                self.assertEqual(code, 1, text)
                self.assertIn(f"went wrong at call {call}\n", text)
                shortest = re.search(r"shortest script: (\d+) calls", text)
                self.assertLessEqual(int(shortest.group(1)), 2, text)

    def test_a_saved_script_goes_wrong_again_and_no_more_without_the_falsified_answer(self):
        with tempfile.TemporaryDirectory() as folder:
            saved = pathlib.Path(folder) / "script.txt"
            run("--seeds", 7, "--calls", 300, "--plant-error", 200, "--save", saved)
            code, text = run("--replay", saved)
            self.assertEqual(code, 1, text)
            saved.write_text(saved.read_text().replace(" planted", ""))
            code, text = run("--replay", saved)
            self.assertEqual(code, 0, text)

    def test_a_script_without_certain_answers_is_refused(self):
        with tempfile.TemporaryDirectory() as folder:
            script = pathlib.Path(folder) / "script.txt"
            script.write_text('Init\nAddNew TStat szName="A"\nOpen TStat\n')
            code, text = run("--replay", script)
            self.assertEqual(code, 1, text)
            self.assertIn("rows without an order", text)


if __name__ == "__main__":
    unittest.main()
