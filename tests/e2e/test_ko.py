#!/usr/bin/env python3
"""ko, the pipe dimension, on drawings read back by ezdxf: across the two walls of a pipe with the
label of the current material's nearest profile after "2x ", beside a one-line pipe on the side of the
pick with a free text, the material picker at Enter, and the ways out that leave nothing behind. The
dimensions carry their graphics block, which ezdxf's drawing add-on renders. Every saved drawing opens
again in togu and saves to the same bytes.

Usage: test_ko.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf
from ezdxf.addons.drawing import Frontend, RenderContext
from ezdxf.addons.drawing.backend import Backend
from ezdxf.tools.fonts import FontMeasurements

import togu_e2e

# The first ko of a fresh registry loads the shipped catalogue and says so in a message box.
PIPE = "_LINE\n0,0\n1000,0\n\n_LINE\n0,100\n1000,100\n\n"
FIRST_KO = "ko\nok\n"


def run(tmp, script):
    code, out, err = togu_e2e.run_togu(tmp, script, "-o", os.path.join(tmp, "out.dxf"))
    if code != 0:
        raise AssertionError("togu failed (%i): %s\n%s" % (code, err, out))
    return ezdxf.readfile(os.path.join(tmp, "out.dxf")), out


def dimensions(doc):
    return list(doc.modelspace().query("DIMENSION"))


def xy(v):
    return (round(v[0], 6), round(v[1], 6))


class Recorder(Backend):
    """What ezdxf's drawing add-on draws: lines and texts."""

    def __init__(self):
        super().__init__()
        self.lines, self.texts = [], []

    def set_background(self, color):
        pass

    def draw_point(self, pos, properties):
        pass

    def draw_line(self, start, end, properties):
        self.lines.append((xy(start), xy(end)))

    def draw_filled_polygon(self, points, properties):
        pass

    def draw_text(self, text, transform, properties, cap_height):
        self.texts.append((text, xy(transform.transform((0, 0, 0))), cap_height))

    def get_font_measurements(self, cap_height, font=None):
        return FontMeasurements(baseline=0, cap_height=cap_height, x_height=cap_height / 2,
                                descender_height=cap_height / 4)

    def get_text_line_width(self, text, cap_height, font=None):
        return len(text) * cap_height * 0.6

    def clear(self):
        pass


def rendered(doc):
    backend = Recorder()
    Frontend(RenderContext(doc), backend).draw_layout(doc.modelspace(), finalize=True)
    return backend


def annotative(entity):
    return entity.has_xdata("AcadAnnotative") and \
        [t.value for t in entity.get_xdata("AcadAnnotative") if t.code == 1070][-1:] == [1]


class Ko(unittest.TestCase):
    def test_two_walls_with_the_profile_label(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, PIPE + FIRST_KO + "500,0\n500,100\n50\n")
            (dim,) = dimensions(doc)
            self.assertEqual(dim.dxf.dimstyle, "TG_VODA2")
            self.assertEqual(dim.dxf.layer, "TU_kóty")
            self.assertEqual(dim.dxf.text, "2x 50x6.9")
            self.assertEqual(xy(dim.dxf.defpoint2), (500, 0))
            self.assertEqual(xy(dim.dxf.defpoint3), (500, 100))
            # The text 7 drawing units (at 1:1) beyond the second wall, on the dimension line.
            self.assertEqual(xy(dim.dxf.defpoint), (500, 107))
            self.assertEqual(xy(dim.dxf.text_midpoint), (500, 107))
            self.assertTrue(annotative(dim))
            # The preview showed while the text was asked for and went before the dimension came.
            self.assertIn("[náhled] DIMENSION\nZadej vnitřní průměr trubky", out)
            self.assertIn("<Zadej Ručně>: 50\n[náhled pryč] DIMENSION", out)
            # The graphics block: a tick at each wall, the text, the line through both walls.
            block = dim.get_geometry_block()
            self.assertTrue(block.name.startswith("*D"))
            kinds = sorted(e.dxftype() for e in block)
            self.assertEqual(kinds, ["INSERT", "INSERT", "LINE", "MTEXT"])
            self.assertEqual({e.dxf.name for e in block.query("INSERT")}, {"_Oblique"})
            self.assertEqual(block.query("MTEXT").first.text, "2x 50x6.9")
            # ezdxf's drawing add-on shows the text and the lines of the block.
            picture = rendered(doc)
            self.assertEqual([t[0] for t in picture.texts], ["2x 50x6.9"])
            self.assertTrue(any(a[0] == 500 and b[0] == 500 and min(a[1], b[1]) < 0 and max(a[1], b[1]) > 107
                                for a, b in picture.lines), picture.lines)

    def test_one_line_on_the_side_of_the_pick_with_a_free_text(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, "_LINE\n0,0\n1000,0\n\n" + FIRST_KO + "300,0\n310,-400\nDN 25\n"
                           "ko\n600,0\n600,400\n 100\nko\n800,0\n800,400\nr\nocel DN 32\n")
            below, above, typed = dimensions(doc)
            self.assertEqual(below.dxf.dimstyle, "TG_VODA1")
            self.assertEqual(below.dxf.layer, "TU_kóty")
            self.assertEqual(below.dxf.text, "DN 25")
            self.assertEqual(xy(below.dxf.defpoint2), (300, 0))
            self.assertEqual(xy(below.dxf.defpoint3), (300, -1.5))
            self.assertEqual(xy(below.dxf.defpoint), (300, -8.5))
            self.assertTrue(annotative(below))
            # A number led by a blank is a text as typed, and the side follows the pick.
            self.assertEqual(above.dxf.text, " 100")
            self.assertEqual(xy(above.dxf.defpoint3), (600, 1.5))
            # "R" asks for the text alone.
            self.assertIn("Zadej text kóty: ocel DN 32", out)
            self.assertEqual(typed.dxf.text, "ocel DN 32")
            texts = [t[0] for t in rendered(doc).texts]
            self.assertEqual(sorted(texts), [" 100", "DN 25", "ocel DN 32"])

    def test_enter_opens_the_picker_and_the_prompt_names_the_new_material(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, PIPE + FIRST_KO + "\nselect 11063 1\nok\n500,0\n500,100\nm\ncancel\n50\n")
            self.assertIn("Vyber druhou trubku [Materiál], (Měď) <Materiál>:", out)
            # "m" at the text opens the picker again; cancelled, the text prompt comes back.
            self.assertEqual(out.count("(Měď) <Zadej Ručně>:"), 2)
            (dim,) = dimensions(doc)
            self.assertEqual(dim.dxf.text, "2x 54x2.0")

    def test_ways_out_leave_nothing_and_restore_osmode(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, "_LINE\n0,0\n1000,0\n\n" + FIRST_KO +
                           # a pick beside every line at the first prompt asks again
                           "500,300\n500,0\n510,15\n"
                           # Escape at the text: no dimension, the preview gone
                           "ko\n500,0\n500,-300\n^C\n"
                           # Escape at the second pick
                           "ko\n500,0\n^C\n_SETVAR\nOSMODE\n^C\n")
            self.assertEqual(dimensions(doc), [])
            self.assertIn("Je třeba zadat bod na úsečce (trubce)!!!", out)
            self.assertIn("Druhý bod leží na stejné trubce - nelze určit stranu", out)
            self.assertEqual(out.count("[náhled] DIMENSION"), 1)
            self.assertEqual(out.count("[náhled pryč] DIMENSION"), 1)
            self.assertIn("Enter new value for OSMODE <4133>:", out)


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
