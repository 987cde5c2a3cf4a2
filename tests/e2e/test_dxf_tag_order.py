#!/usr/bin/env python3
"""Groups of modelled entities that the platform does not model come back in the order the file had
them (in the middle of a subclass too), lightweight polylines keep their vertex identifiers, and the
host commands _ARC (its start/centre/end forms) and _INSERT (its options at the insertion point,
and a block file's base point and dynamic data) build what the host would.

Usage: test_dxf_tag_order.py <path of togu> <source dir>
"""
import math
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e
from togu_e2e import run_togu

TOGU = None
SOURCE = None


def tags(path):
    """The groups of a DXF file as (code, value) pairs: a reader of its own, no library."""
    with open(path, encoding="utf-8") as f:
        lines = f.read().split("\n")
    return [(int(lines[i].strip()), lines[i + 1].rstrip("\r")) for i in range(0, len(lines) - 1, 2)]


def record(all_tags, handle):
    """The groups of the record with the handle, from its 0 group to the next."""
    start = None
    for i, (code, value) in enumerate(all_tags):
        if code == 0:
            if start is not None:
                return all_tags[start:i]
            if i + 1 < len(all_tags) and all_tags[i + 1] == (5, handle):
                start = i
    return None


def insert_after(text, handle, after, extra):
    """Puts groups into the record of the handle right after the first group `after` (code, value)."""
    lines = text.split("\n")
    at = lines.index("  5", 0)
    while not (lines[at] == "  5" and lines[at + 1] == handle):
        at = lines.index("  5", at + 2)
    code, value = after
    i = at
    while not (lines[i].strip() == str(code) and lines[i + 1] == value):
        i += 2
    new = []
    for c, v in extra:
        new += [f"{c:>3}", v]
    return "\n".join(lines[:i + 2] + new + lines[i + 2:])


class TagOrder(unittest.TestCase):
    def test_unknown_groups_in_the_middle_of_subclasses_keep_their_place(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc = ezdxf.new("R2018")
            msp = doc.modelspace()
            line = msp.add_line((0, 0), (10, 5))
            circle = msp.add_circle((3, 4), 2)
            pl = msp.add_lwpolyline([(0, 0), (5, 0), (5, 5)])
            text = msp.add_text("Nápis", dxfattribs={"height": 2.5})
            src = os.path.join(tmp, "src.dxf")
            doc.saveas(src)
            with open(src, encoding="utf-8") as f:
                content = f.read()
            # Groups the platform does not model: in the AcDbEntity subclass between layer and the
            # rest, between the two points of a line, between centre and radius, after each vertex.
            content = insert_after(content, line.dxf.handle, (8, "0"), [(1071, "77")])
            content = insert_after(content, line.dxf.handle, (30, "0.0"), [(1, "mezi body"), (2, "x")])
            content = insert_after(content, circle.dxf.handle, (30, "0.0"), [(1, "střed")])
            content = insert_after(content, text.dxf.handle, (1, "Nápis"), [(290, "1"), (7, "Standard")])
            lines = content.split("\n")
            # Vertex identifiers after each vertex's 20.
            out_lines, in_pl, vertex = [], False, 0
            for i in range(0, len(lines) - 1, 2):
                code, value = lines[i], lines[i + 1]
                out_lines += [code, value]
                if code.strip() == "5":
                    in_pl = value == pl.dxf.handle
                if in_pl and code.strip() == "20":
                    vertex += 1
                    out_lines += [" 91", str(100 + vertex)]
            content = "\n".join(out_lines) + "\n"
            with open(src, "w", encoding="utf-8") as f:
                f.write(content)

            out = os.path.join(tmp, "out.dxf")
            status, stdout, err = run_togu(tmp, "", src, "-o", out)
            self.assertEqual(status, 0, err + stdout)
            before, after = tags(src), tags(out)
            for entity in (line, circle, pl, text):
                self.assertEqual(record(after, entity.dxf.handle), record(before, entity.dxf.handle),
                                 entity.dxftype())
            ids = [v for c, v in record(after, pl.dxf.handle) if c == 91]
            self.assertEqual(ids, ["101", "102", "103"])
            # Still a drawing ezdxf reads as it was.
            again = ezdxf.readfile(out)
            self.assertEqual(len(again.modelspace()), 4)
            self.assertEqual(again.modelspace().query("LWPOLYLINE")[0].get_points("xy")[2], (5.0, 5.0))


def block_file(path):
    """A block file with its base point at 10,0 and a dynamic property on its model space."""
    doc = ezdxf.new("R2018")
    doc.header["$INSBASE"] = (10, 0, 0)
    doc.appids.add("TOGU_DYNBLOCK")
    msp = doc.modelspace()
    msp.add_line((10, 0), (20, 0))
    msp.add_circle((20, 0), 1)
    doc.block_records.get("*Model_Space").set_xdata(
        "TOGU_DYNBLOCK", [(1000, "Délka"), (1070, 1), (1040, 10.0)])
    doc.saveas(path)


class HostCommands(unittest.TestCase):
    def test_arc_forms_and_insert_options(self):
        with tempfile.TemporaryDirectory() as tmp:
            block_file(os.path.join(tmp, "znacka.dxf"))
            script = "\n".join([
                # Start, End, Radius: a quarter circle of radius 10 counter-clockwise.
                "_ARC", "10,0", "e", "0,10", "r", "10",
                # Start, Center, Angle.
                "_ARC", "100,0", "c", "90,0", "a", "90",
                # Center, start, chord Length.
                "_ARC", "c", "200,0", "210,0", "l", "10",
                # Start, End, Direction: tangent straight up from 300,0 to 320,0 gives a half turn.
                "_ARC", "320,0", "e", "300,0", "d", "270",
                # A block file inserted at 0,100 with scale 2 and rotation 90 given first.
                "_INSERT", "znacka", "s", "2", "r", "90", "0,100",
                # Its own base point moved to 20,0 by the Basepoint option.
                "_INSERT", "znacka", "b", "20,0", "0,200", "", "", "",
                "_SAVEAS", "vykres", ""])
            status, out, err = run_togu(tmp, script)
            self.assertEqual(status, 0, err + out)
            self.assertIn("Specify second point of arc or [Center/End]:", out)
            self.assertIn("Specify center point of arc (hold Ctrl to switch direction) or [Angle/Direction/Radius]:",
                          out)
            self.assertIn("Specify insertion point or [Basepoint/Scale/X/Y/Z/Rotate]:", out)
            doc = ezdxf.readfile(os.path.join(tmp, "vykres.dxf"))
            arcs = doc.modelspace().query("ARC")
            self.assertEqual(len(arcs), 4)
            a = arcs[0]
            self.assertAlmostEqual(a.dxf.radius, 10.0)
            self.assertAlmostEqual(a.dxf.start_angle % 360, 0.0, places=6)
            self.assertAlmostEqual(a.dxf.end_angle, 90.0, places=6)
            a = arcs[1]
            self.assertAlmostEqual(a.dxf.center.x, 90.0)
            self.assertAlmostEqual(a.dxf.end_angle, 90.0, places=6)
            a = arcs[2]
            self.assertAlmostEqual(a.dxf.radius, 10.0)
            self.assertAlmostEqual(a.dxf.end_angle - a.dxf.start_angle, 60.0, places=6)
            a = arcs[3]
            self.assertAlmostEqual(a.dxf.center.x, 310.0, places=6)
            self.assertAlmostEqual(a.dxf.radius, 10.0, places=6)

            refs = doc.modelspace().query("INSERT")
            self.assertEqual(len(refs), 2)
            self.assertAlmostEqual(refs[0].dxf.xscale, 2.0)
            self.assertAlmostEqual(refs[0].dxf.rotation, 90.0)
            self.assertAlmostEqual(refs[0].dxf.insert.y, 100.0)
            block = doc.blocks.get("znacka")
            self.assertAlmostEqual(block.block.dxf.base_point.x, 10.0)
            self.assertEqual(block.block_record.get_xdata("TOGU_DYNBLOCK")[0], (1000, "Délka"))
            self.assertIn("TOGU_DYNBLOCK", doc.appids)
            # The block's point 20,0 lands on the insertion point 0,200.
            self.assertAlmostEqual(refs[1].dxf.insert.x, -10.0)
            self.assertAlmostEqual(refs[1].dxf.insert.y, 200.0)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    TOGU, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    togu_e2e.configure([None, TOGU, SOURCE])
    unittest.main(argv=sys.argv[:1], verbosity=2)
