#!/usr/bin/env python3
"""Level marks through the console: kac in two named UCSs, each with its own base point and height
set in the settings dialog; the saved drawing read by ezdxf (references of the dynamic block's
anonymous blocks, attributes, dynamic values, the leader flipped), opened again by togu with the
base points of each UCS back in the dialog, saved again to the same bytes; kace recomputes.

Usage: test_level_marks.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf
from ezdxf.addons.drawing import Frontend, RenderContext
from ezdxf.tools.fonts import FontMeasurements

import togu_e2e

TOGU = None
SOURCE = None

FIRST = """_UCS
0,1000

_UCS
NA
S
REZ1
kac

set 308 50
set 104 1.5
ok
0,50
O
20,80
-30,80
^C
_UCS
W
_UCS
0,5000

_UCS
NA
S
REZ2
kac
N
set 308 200
set 104 -2
ok
S
0,200
^C
"""

REOPEN = """_UCS
NA
R
REZ1
kac

cancel
^C
_UCS
NA
R
REZ2
kac

cancel
^C
"""


def marks(doc):
    out = []
    for ref in doc.modelspace().query("INSERT"):
        values = ref.get_xdata("TOGU_DYNBLOCK")
        props = {}
        for i in range(0, len(values) - 2, 3):
            props[values[i].value] = values[i + 2].value
        out.append((ref, {a.dxf.tag: a.dxf.text for a in ref.attribs}, props))
    return out


class LevelMarks(unittest.TestCase):
    def test_two_named_ucs_keep_their_base_points(self):
        with tempfile.TemporaryDirectory() as tmp:
            first = os.path.join(tmp, "first.dxf")
            status, out, err = togu_e2e.run_togu(tmp, FIRST, "-o", first)
            self.assertEqual(status, 0, out + err)
            self.assertIn("'Horní, Pravá, Odkaz'", out)
            self.assertIn("Zadej umístění kačeny: -30,80", out)

            doc = ezdxf.readfile(first)
            found = marks(doc)
            self.assertEqual(len(found), 3)
            texts = sorted(attrs["VYSKA"] for _, attrs, _ in found)
            # REZ1: base y 50 at +1.5 m, a point 30 units higher in a drawing in mm; REZ2: -2 m.
            self.assertEqual(texts, ["+1.500", "+1.530", "-2.000"])
            for ref, _, props in found:
                self.assertTrue(ref.dxf.name.startswith("*U"), ref.dxf.name)
                block = doc.blocks.get(ref.dxf.name)
                self.assertIsNotNone(block)
                rep = block.block_record.get_xdata("AcDbBlockRepBTag")
                self.assertEqual(doc.entitydb[rep[1].value].dxf.name, "tg_kacena")
            leader = [f for f in found if f[2]["ODKAZ"] == "S odkazem"][0]
            self.assertAlmostEqual(leader[2]["DL_ODKAZU"], 50.0)
            self.assertEqual(leader[2]["ZRC_HORIZ_ODKAZU"], 1)  # dragged to the left
            lines = [e for e in doc.blocks.get(leader[0].dxf.name) if e.dxftype() == "LINE"]
            # The mark went where it was dragged; its leader runs back to the levelled point.
            self.assertAlmostEqual(leader[0].dxf.insert.x, -30.0)
            self.assertTrue(any(abs(line.dxf.end.x - 50.0) < 1e-9 for line in lines))
            below = [f for f in found if f[2]["ZRC_VERT"] == 1]
            self.assertEqual(len(below), 1)
            # The drawing renders with ezdxf's drawing add-on.
            Frontend(RenderContext(doc), _Nothing()).draw_layout(doc.modelspace())

            second = os.path.join(tmp, "second.dxf")
            status, out, err = togu_e2e.run_togu(tmp, REOPEN, first, "-o", second)
            self.assertEqual(status, 0, out + err)
            rez1 = out.index("restore or [?]: REZ1")
            rez2 = out.index("restore or [?]: REZ2")
            self.assertIn('"UCS: REZ1"', out[rez1:rez2])
            self.assertIn("308 pole [50.000]", out[rez1:rez2])
            self.assertIn("104 pole [1.500]", out[rez1:rez2])
            self.assertIn("308 pole [200.000]", out[rez2:])
            self.assertIn("104 pole [-2.000]", out[rez2:])

            third = os.path.join(tmp, "third.dxf")
            status, out, err = togu_e2e.run_togu(tmp, "", second, "-o", third)
            self.assertEqual(status, 0, out + err)
            with open(second, "rb") as a, open(third, "rb") as b:
                self.assertEqual(a.read(), b.read())

    def test_undo_and_cancelled_drag_leave_nothing(self):
        with tempfile.TemporaryDirectory() as tmp:
            out_path = os.path.join(tmp, "out.dxf")
            script = "kac\n0,0\nZ\nO\n10,0\n^C\n^C\n"
            status, out, err = togu_e2e.run_togu(tmp, script, "-o", out_path)
            self.assertEqual(status, 0, out + err)
            after_undo = out[out.index(": Z\n") + 4:]
            # With the only mark undone, "Zpět" is no longer offered.
            self.assertTrue(after_undo.startswith(
                "Zadej umístění kačeny [Nastavení, Spodní, Levá, Odkaz] 'Horní, Pravá, Bez odkazu' <Nastavení>: O"),
                after_undo)
            self.assertIn("Zadej umístění kačeny: ^C", out)
            self.assertEqual(marks(ezdxf.readfile(out_path)), [])

    def test_kace_recomputes_the_level(self):
        with tempfile.TemporaryDirectory() as tmp:
            first = os.path.join(tmp, "first.dxf")
            status, out, err = togu_e2e.run_togu(tmp, "kac\n0,250\n^C\n", "-o", first)
            self.assertEqual(status, 0, out + err)
            self.assertEqual(marks(ezdxf.readfile(first))[0][1]["VYSKA"], "+0.250")
            second = os.path.join(tmp, "second.dxf")
            script = "kace\n\nset 104 1\nok\nall\n\n"
            status, out, err = togu_e2e.run_togu(tmp, script, first, "-o", second)
            self.assertEqual(status, 0, out + err)
            self.assertEqual(marks(ezdxf.readfile(second))[0][1]["VYSKA"], "+1.250")


class _Nothing:
    """A back end that draws nothing: the test wants the add-on to walk the drawing without error."""

    def get_font_measurements(self, cap_height, font=None):
        return FontMeasurements(baseline=0.0, cap_height=cap_height, x_height=cap_height / 2, descender_height=0.0)

    def get_text_line_width(self, text, cap_height, font=None):
        return len(text) * cap_height

    def __getattr__(self, name):
        return lambda *args, **kwargs: None


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    TOGU, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    togu_e2e.configure([None, TOGU, SOURCE])
    unittest.main(argv=sys.argv[:1], verbosity=2)
