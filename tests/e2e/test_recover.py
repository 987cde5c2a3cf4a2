#!/usr/bin/env python3
"""Recovery of damaged drawings as other programs write them: togu --recover repairs what it must,
prints each repair and goes on as with a sound drawing; the normal load refuses the same files.

Usage: test_recover.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e
from togu_e2e import run_togu


def pairs(path):
    with open(path, encoding="utf-8") as f:
        lines = f.read().split("\n")
    return [(lines[i].strip(), lines[i + 1]) for i in range(0, len(lines) - 1, 2)]


def save(path, groups):
    with open(path, "w", encoding="utf-8") as f:
        f.write("".join("%3s\n%s\n" % g for g in groups))


def sound(path):
    doc = ezdxf.new("R2018")
    doc.blocks.new("KRUH").add_circle((0, 0), 1)
    doc.modelspace().add_blockref("KRUH", (5, 5))
    doc.modelspace().add_line((0, 0), (1, 1))
    doc.layouts.new("List2").add_line((0, 0), (2, 2))
    doc.saveas(path)
    return pairs(path)


def without_record(groups, name):
    """The groups without the BLOCK_RECORD of the name."""
    out, i = [], 0
    while i < len(groups):
        if groups[i] == ("0", "BLOCK_RECORD"):
            j = i + 1
            while groups[j][0] != "0":
                j += 1
            if ("2", name) in groups[i:j]:
                i = j
                continue
        out.append(groups[i])
        i += 1
    return out


def unnamed(groups, name):
    """The block of the name without its name."""
    out, inside = [], False
    for code, value in groups:
        if code == "0":
            inside = value == "BLOCK"
        out.append((code, "" if inside and code in ("2", "3") and value == name else value))
    return out


def tables_late(groups):
    """The TABLES section moved after the BLOCKS section."""
    sections, current = [], []
    for g in groups:
        current.append(g)
        if g == ("0", "ENDSEC"):
            sections.append(current)
            current = []
    names = [s[1][1] for s in sections]
    t = sections.pop(names.index("TABLES"))
    sections.insert(names.index("BLOCKS"), t)
    return [g for s in sections for g in s] + current


class Recover(unittest.TestCase):
    def check(self, damage, repairs, blocks):
        with tempfile.TemporaryDirectory() as tmp:
            path = os.path.join(tmp, "vadny.dxf")
            save(path, damage(sound(path)))
            status, _, err = run_togu(tmp, "", path, "-o", "strict.dxf")
            self.assertEqual(status, 1)
            self.assertRegex(err, r"^togu: cannot open .*vadny\.dxf, line \d+: .+\n$")
            self.assertFalse(os.path.exists(os.path.join(tmp, "strict.dxf")))
            status, out, err = run_togu(tmp, "_LINE\n0,0\n3,3\n\n", "--recover", path, "-o", "out.dxf")
            self.assertEqual((status, err), (0, ""))
            told = [l for l in out.splitlines() if l.startswith("Recover: ")]
            self.assertEqual(len(told), len(repairs) + 1, out)
            for line, text in zip(told, repairs):
                self.assertIn(text, line)
            self.assertTrue(told[-1].endswith("%d repair%s" % (len(repairs), "" if len(repairs) == 1 else "s")))
            doc = ezdxf.readfile(os.path.join(tmp, "out.dxf"))
            self.assertEqual(sorted(e.dxftype() for e in doc.modelspace()), ["INSERT", "LINE", "LINE"])
            self.assertEqual(sorted(b.name for b in doc.blocks if not b.name.startswith("*")), blocks)
            self.assertIn("List2", [l.name for l in doc.layouts])
            self.assertEqual([e.dxftype() for e in doc.layouts.get("List2")], ["LINE"])

    def test_a_block_without_its_record(self):
        self.check(lambda g: without_record(g, "KRUH"), ['the block "KRUH" had no record'], ["KRUH"])

    def test_a_block_without_a_name_or_record(self):
        self.check(lambda g: unnamed(without_record(g, "KRUH"), "KRUH"),
                   ["a block without a name, named RECOVERED_1", 'the block "RECOVERED_1" had no record'],
                   ["KRUH", "RECOVERED_1"])

    def test_a_layout_whose_block_record_is_missing(self):
        self.check(lambda g: without_record(g, "*Paper_Space0"), ['the block "*Paper_Space0" had no record'],
                   ["KRUH"])

    def test_the_tables_after_the_blocks(self):
        self.check(tables_late, ["the TABLES section came after the blocks"], ["KRUH"])

    def test_a_sound_drawing_needs_no_repair(self):
        with tempfile.TemporaryDirectory() as tmp:
            path = os.path.join(tmp, "dobry.dxf")
            sound(path)
            status, out, _ = run_togu(tmp, "", "--recover", path)
            self.assertEqual(status, 0)
            self.assertIn("Recover: %s: 0 repairs" % path, out)


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1], verbosity=2)
