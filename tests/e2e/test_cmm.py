#!/usr/bin/env python3
"""cmm: a text and an old multileader with three leader lines become one multileader of the drawing
standard (TG_SIPKA, the small text, layer popisy_020) with three lines ending at the text's place,
the text height from the annotation scale, and the sources gone; an old LEADER gives its first
vertex, Enter a point; the side follows the first arrow; a multileader with a text of its own is
taken only after a yes. Every saved drawing opens again in togu and saves to the same bytes.

Usage: test_cmm.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf
from ezdxf.math import Vec2
from ezdxf.render import mleader

import togu_e2e


def base(tmp):
    """A new drawing of togu (it holds the annotation scales) with what ezdxf adds to it."""
    path = os.path.join(tmp, "base.dxf")
    code, out, err = togu_e2e.run_togu(tmp, "", "-o", path)
    assert code == 0, out + err
    return ezdxf.readfile(path)


def old_multileader(msp, content, arrows, at):
    b = msp.add_multileader_mtext("Standard")
    b.set_content(content, char_height=2.5)
    for p in arrows:
        b.add_leader_line(mleader.ConnectionSide.right, [Vec2(p)])
    b.build(insert=Vec2(at))
    return b.multileader


def style_name(doc, ml):
    for name, style in doc.mleader_styles:
        if style.dxf.handle == ml.dxf.style_handle:
            return name
    return None


class Cmm(unittest.TestCase):
    def run_on(self, tmp, doc, script):
        src, out_path = os.path.join(tmp, "in.dxf"), os.path.join(tmp, "out.dxf")
        doc.saveas(src)
        code, out, err = togu_e2e.run_togu(tmp, script, src, "-o", out_path)
        self.assertEqual(code, 0, out[-3000:] + err)
        again = os.path.join(tmp, "again.dxf")
        code, _, err = togu_e2e.run_togu(tmp, "", out_path, "-o", again)
        self.assertEqual(code, 0, err)
        with open(out_path, "rb") as a, open(again, "rb") as b:
            self.assertEqual(a.read(), b.read(), "togu saves its own drawing differently")
        return ezdxf.readfile(out_path), out

    def test_text_and_three_leader_lines(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc = base(tmp)
            msp = doc.modelspace()
            text = msp.add_text("DN 150", dxfattribs={"insert": (100, 50), "height": 2.5})
            old = old_multileader(msp, "", [(20, 10), (30, 0), (40, 20)], (60, 30))
            result, _ = self.run_on(tmp, doc, "_SETVAR\nCANNOSCALE\n1:50\ncmm\n#%s\n#%s\n"
                                    % (text.dxf.handle, old.dxf.handle))
            msp = result.modelspace()
            self.assertEqual(len(msp.query("TEXT")), 0)
            leaders = msp.query("MULTILEADER")
            self.assertEqual(len(leaders), 1)
            ml = leaders[0]
            self.assertNotEqual(ml.dxf.handle, old.dxf.handle)
            self.assertEqual(style_name(result, ml), "TG_SIPKA")
            self.assertTrue(ml.dxf.layer.endswith("popisy_020"), ml.dxf.layer)
            ctx = ml.context
            self.assertEqual(ctx.mtext.default_content, "DN 150")
            self.assertAlmostEqual(ctx.char_height, 100.0)  # 2 mm at 1:50
            arrows = []
            for leader in ctx.leaders:
                self.assertEqual(tuple(leader.last_leader_point)[:2], (100, 50))
                self.assertEqual(tuple(leader.dogleg_vector)[:2], (1, 0))
                arrows += [tuple(line.vertices[0])[:2] for line in leader.lines]
            self.assertEqual(sorted(arrows), [(20, 10), (30, 0), (40, 20)])
            # Right of the first arrow: the text hangs on its left, a dogleg to the right of its place.
            self.assertEqual(ctx.mtext.alignment, 4)
            self.assertEqual(tuple(ctx.mtext.insert)[:2], (100 + ml.dxf.dogleg_length, 50))

    def test_mtext_and_a_point_left_of_it(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc = base(tmp)
            mtext = doc.modelspace().add_mtext("Šachta Š1", dxfattribs={"insert": (10, 200), "char_height": 2.5,
                                                                         "width": 40})
            result, out = self.run_on(tmp, doc, "cmm\n#%s\n\n50,250\n" % mtext.dxf.handle)
            self.assertIn("Zadej bod:", out)
            msp = result.modelspace()
            self.assertEqual(len(msp.query("MTEXT")), 0)
            ml = msp.query("MULTILEADER")[0]
            ctx = ml.context
            self.assertEqual(ctx.mtext.default_content, "Šachta Š1")
            self.assertAlmostEqual(ctx.mtext.width, 40)
            self.assertAlmostEqual(ctx.char_height, 2.0)
            self.assertEqual(ctx.mtext.alignment, 6)
            self.assertEqual(tuple(ctx.leaders[0].dogleg_vector)[:2], (-1, 0))
            self.assertEqual(tuple(ctx.leaders[0].lines[0].vertices[0])[:2], (50, 250))
            self.assertEqual(tuple(ctx.mtext.insert)[:2], (10 - ml.dxf.dogleg_length, 200))

    def test_old_leader_gives_its_first_vertex(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc = base(tmp)
            msp = doc.modelspace()
            text = msp.add_text("PE 100", dxfattribs={"insert": (60, 40), "height": 2.5})
            leader = msp.add_leader([(5, 5), (30, 30), (55, 40)])
            result, _ = self.run_on(tmp, doc, "cmm\n#%s\n#%s\n" % (text.dxf.handle, leader.dxf.handle))
            msp = result.modelspace()
            self.assertEqual([e.dxftype() for e in msp], ["MULTILEADER"])
            ctx = msp[0].context
            self.assertEqual(tuple(ctx.leaders[0].lines[0].vertices[0])[:2], (5, 5))
            self.assertEqual(tuple(ctx.leaders[0].last_leader_point)[:2], (60, 40))

    def test_a_multileader_with_its_own_text_stays_after_no(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc = base(tmp)
            msp = doc.modelspace()
            text = msp.add_text("DN 80", dxfattribs={"insert": (100, 50), "height": 2.5})
            old = old_multileader(msp, "starý text", [(20, 10)], (60, 30))
            result, out = self.run_on(tmp, doc, "cmm\n#%s\n#%s\nno\n" % (text.dxf.handle, old.dxf.handle))
            self.assertIn("Vybraný multiodkaz už obsahuje text.", out)
            msp = result.modelspace()
            self.assertEqual(sorted(e.dxf.handle for e in msp), sorted([text.dxf.handle, old.dxf.handle]))


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
