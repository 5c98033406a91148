#!/usr/bin/env python3
"""The site's colours can be read, in light and in dark. Usage: style_test.py ROOT"""
import pathlib
import re
import sys
import unittest

STYLE = (pathlib.Path(sys.argv[1]) / "docs" / "site" / "style.css").read_text(encoding="utf-8")
LEAST = 4.5  # what the guidelines for accessible pages ask for texts of ordinary size


def luminance(colour):
    """How bright a colour of six digits is to the eye, from 0 to 1."""
    parts = [int(colour[place:place + 2], 16) / 255 for place in (0, 2, 4)]
    linear = [part / 12.92 if part <= 0.04045 else ((part + 0.055) / 1.055) ** 2.4 for part in parts]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(first, second):
    darker, brighter = sorted((luminance(first), luminance(second)))
    return (brighter + 0.05) / (darker + 0.05)


class Colours(unittest.TestCase):
    def schemes(self):
        found = [dict(re.findall(r"--(\w+): #([0-9a-f]{6});", body))
                 for body in re.findall(r":root \{(.*?)\}", STYLE, re.S)]
        self.assertEqual([sorted(scheme) for scheme in found], [sorted(found[0])] * 2)
        return found

    def test_black_on_white_has_the_greatest_contrast(self):
        self.assertAlmostEqual(contrast("000000", "ffffff"), 21)

    def test_texts_stand_out_from_what_is_behind_them(self):
        for scheme in self.schemes():
            for text in ("ink", "faint", "link", "keyword", "text", "comment", "number"):
                for ground in ("paper", "panel"):
                    self.assertGreaterEqual(contrast(scheme[text], scheme[ground]), LEAST, (text, ground))
            self.assertGreaterEqual(contrast(scheme["link"], scheme["mark"]), LEAST)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
