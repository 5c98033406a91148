#!/usr/bin/env python3
"""Changes of the binary interface are seen. Usage: description_test.py DESCRIPTION"""
import pathlib
import re
import sys
import tempfile
import unittest

from description import differences

DESCRIPTION = pathlib.Path(sys.argv[1])


class Changes(unittest.TestCase):
    def setUp(self):
        self.text = DESCRIPTION.read_text()

    def found(self, changed):
        """What is told when the library changes from what is described to `changed`."""
        self.assertNotEqual(changed, self.text)
        with tempfile.TemporaryDirectory(prefix="kyodbc-abi-") as folder:
            path = pathlib.Path(folder) / "changed.abi"
            path.write_text(changed)
            return differences(DESCRIPTION, path)

    def test_none_is_seen_where_there_is_none(self):
        self.assertEqual(differences(DESCRIPTION, DESCRIPTION), "")

    def test_of_a_field_s_place_is_seen(self):
        start = self.text.index("<class-decl name='tagTPATIENT' ")
        head, record = self.text[:start], self.text[start:]
        moved = record.replace("layout-offset-in-bits='32'", "layout-offset-in-bits='40'", 1)
        told = self.found(head + moved)
        self.assertIn("tagTPATIENT", told)
        self.assertIn("lDrID", told)

    def test_of_a_record_s_size_is_seen(self):
        told = self.found(re.sub(r"(name='tagTSTATION' size-in-bits=)'168'", r"\1'176'", self.text))
        self.assertIn("tagTSTATION", told)

    def test_of_a_virtual_slot_is_seen(self):
        start = re.search(r"<class-decl name='CKyRecSet' size-in-bits", self.text).start()
        head, kind = self.text[:start], self.text[start:]
        slot = re.search(r"vtable-offset='(\d+)'>\s*<function-decl name='MoveToDelta'", kind)
        moved = kind[:slot.start(1)] + "77" + kind[slot.end(1):]
        self.assertIn("MoveToDelta", self.found(head + moved))

    def test_of_a_name_that_is_gone_is_seen(self):
        gone = re.sub(r"\n *<elf-symbol name='DB_OpenTMak'.*", "", self.text)
        self.assertIn("DB_OpenTMak", self.found(re.sub(r" elf-symbol-id='DB_OpenTMak'", "", gone)))

    def test_of_an_argument_is_seen(self):
        call = re.search(r"<function-decl name='DB_MoveToTDrByPos'.*?</function-decl>", self.text, re.S)
        other = re.sub(r"(<parameter type-id=)'[^']*'", rf"\1'{self.type_of('unsigned char')}'", call[0])
        self.assertIn("DB_MoveToTDrByPos", self.found(self.text.replace(call[0], other)))

    def type_of(self, name):
        return re.search(rf"<type-decl name='{name}'[^>]* id='([^']*)'", self.text)[1]


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
