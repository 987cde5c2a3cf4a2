#!/usr/bin/env python3
"""Damaged drawings: togu says what is wrong and on which line, leaves the file as it was, and
neither opens the drawing nor brings the block in; a drawing that cannot be written is an error too.

Usage: test_dxf_damaged.py <path of togu> <source dir>
"""
import hashlib
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e
from togu_e2e import run_togu

TOGU = None
SOURCE = None


def digest(path):
    with open(path, "rb") as f:
        return hashlib.sha256(f.read()).hexdigest()


def damaged_drawing(path):
    """A drawing whose circle has a radius that is no number; gives the line of that value."""
    doc = ezdxf.new("R2018")
    doc.modelspace().add_line((0, 0), (1, 1))
    doc.modelspace().add_circle((0, 0), 12.5)
    doc.saveas(path)
    with open(path, encoding="utf-8") as f:
        lines = f.read().split("\n")
    at = lines.index("12.5")
    lines[at] = "12,5"
    with open(path, "w", encoding="utf-8") as f:
        f.write("\n".join(lines))
    return at + 1


class Damaged(unittest.TestCase):
    def test_opening_a_damaged_drawing(self):
        with tempfile.TemporaryDirectory() as tmp:
            path = os.path.join(tmp, "vadny.dxf")
            line = damaged_drawing(path)
            before = digest(path)
            out = os.path.join(tmp, "out.dxf")
            status, _, err = run_togu(tmp, "", path, "-o", out)
            self.assertNotEqual(status, 0)
            self.assertIn("line %d" % line, err)
            self.assertIn("12,5", err)
            self.assertEqual(digest(path), before)
            self.assertFalse(os.path.exists(out))

    def test_a_drawing_cut_short(self):
        with tempfile.TemporaryDirectory() as tmp:
            path = os.path.join(tmp, "kratky.dxf")
            ezdxf.new("R2018").saveas(path)
            with open(path, "rb") as f:
                text = f.read()
            with open(path, "wb") as f:
                f.write(text[: len(text) // 2])
            status, _, err = run_togu(tmp, "", path)
            self.assertNotEqual(status, 0)
            self.assertRegex(err, r"line \d+")

    def test_inserting_a_damaged_block_leaves_both_alone(self):
        with tempfile.TemporaryDirectory() as tmp:
            block = os.path.join(tmp, "blok.dxf")
            line = damaged_drawing(block)
            before = digest(block)
            out = os.path.join(tmp, "out.dxf")
            status, stdout, err = run_togu(tmp, "_LINE\n0,0\n5,5\n\n_INSERT\nblok\n0,0\n", "-o", out)
            self.assertNotEqual(status, 0)
            self.assertIn("line %d" % line, err)
            self.assertIn("test.scr, line 7", err)  # the script line of the block name
            self.assertEqual(digest(block), before)
            self.assertNotIn("Specify insertion point", stdout)

    def test_a_drawing_that_cannot_be_written(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, _, err = run_togu(tmp, "", "-o", os.path.join(tmp, "chybi", "out.dxf"))
            self.assertNotEqual(status, 0)
            self.assertIn("out.dxf", err)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    TOGU, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    togu_e2e.configure([None, TOGU, SOURCE])
    unittest.main(argv=sys.argv[:1], verbosity=2)
