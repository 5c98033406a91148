#!/usr/bin/env python3
"""The example that takes the typical road; its path is in KYODBC_WALK."""
import os
import subprocess
import unittest

from tool_case import ToolCase

WALK = os.environ["KYODBC_WALK"]


class Walk(ToolCase):
    def walk(self, *arguments):
        return subprocess.run([WALK, *map(str, arguments)], capture_output=True, encoding="utf-8", timeout=60)

    def everything(self):
        return [self.query(f"SELECT * FROM {name} ORDER BY 1")
                for name in ("TPatient", "TDoctor", "TImage", "TConfig", "TStation", "TUnit")]

    def test_the_road_is_walked_and_the_practice_left_as_it_was(self):
        self.done("init", self.practice)
        self.done("sample", self.practice, "--patients", 150)
        before = self.everything()
        result = self.walk(self.practice)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.everything(), before)
        for part in ("150 patients", "O'Hara-Müller", "Zoë Anne", "Dr. New Name", "DB_GetTPat: 21",
                     "WalkColour=blue", "WalkColour=none"):
            self.assertIn(part, result.stdout)
        self.assertNotIn("not in the mask", result.stdout)

    def test_a_missing_or_empty_practice_is_reported(self):
        self.assertEqual(self.walk().returncode, 2)
        self.assertEqual(self.walk(self.folder / "nowhere").returncode, 1)
        self.done("init", self.folder / "empty")
        result = self.walk(self.folder / "empty")
        self.assertEqual(result.returncode, 1)
        self.assertIn("too small", result.stderr)


if __name__ == "__main__":
    unittest.main()
