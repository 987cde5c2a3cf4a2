#!/usr/bin/env python3
"""A new drawing made and saved by togu passes ezdxf's audit, before and after host commands build
it up (layers, lines, polylines, circles, arcs, texts, multi-line texts, a block brought in from a
file with its attributes); _SAVEAS and _QSAVE write where they say and keep the old file as .bak;
--svg draws the picture.

Usage: test_dxf_new_drawing.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ET

import ezdxf

import togu_e2e
from togu_e2e import run_togu

TOGU = None
SOURCE = None


def audit_errors(path):
    return [e.message for e in ezdxf.readfile(path).audit().errors]


def level_mark_block(path):
    """A block file as the installation ships one: a symbol and two attributes."""
    doc = ezdxf.new("R2018")
    msp = doc.modelspace()
    msp.add_lwpolyline([(-2, 2), (0, 0), (2, 2), (-2, 2)])
    msp.add_attdef("VYSKA", (3, 1), dxfattribs={"height": 2.5, "prompt": "Výška"}).dxf.text = "+0,000"
    msp.add_attdef("POPIS", (3, -3), dxfattribs={"height": 2.5, "prompt": "Popis"}).dxf.text = ""
    doc.saveas(path)


SCRIPT = """_-LAYER
m
Potrubí
c
1


_LINE
0,0
6000,0
6000,4000

_PLINE
0,0
1000,0
a
1000,1000
l
0,1000

_CIRCLE
3000,2000
800
_ARC
0,0
500,500
1000,0
_ARC
c
2000,2000
2500,2000
2000,2500
_TEXT
100,100
250
0
Nápis

_MTEXT
100,3000
3000,2500
První řádek
Druhý řádek

_INSERT
kacena
1000,1000
2

45
+1,250
poznámka
_INSERT
kacena
2000,1000
1
1
0
+2,500

_SAVEAS
vykres
_LINE
0,0
-100,-100

_QSAVE
"""


class NewDrawing(unittest.TestCase):
    def test_an_empty_new_drawing_passes_the_audit(self):
        with tempfile.TemporaryDirectory() as tmp:
            out = os.path.join(tmp, "new.dxf")
            status, _, err = run_togu(tmp, "", "-o", out)
            self.assertEqual(status, 0, err)
            self.assertEqual(audit_errors(out), [])
            doc = ezdxf.readfile(out)
            self.assertEqual(doc.header["$INSUNITS"], 4)
            self.assertEqual([l.name for l in doc.layouts], ["Model", "Layout1"])
            for key in ("ACAD_GROUP", "ACAD_LAYOUT", "ACAD_MLEADERSTYLE", "ACAD_TABLESTYLE", "ACAD_SCALELIST",
                        "ACAD_PLOTSETTINGS", "ACAD_PLOTSTYLENAME"):
                self.assertIn(key, doc.rootdict)
            self.assertIn("Standard", doc.rootdict["ACAD_MLEADERSTYLE"])
            self.assertEqual(len(doc.rootdict["ACAD_SCALELIST"]), 14)
            with open(out, encoding="utf-8") as f:
                self.assertIn("\n300\n1:100\n", f.read())
            self.assertEqual({"ByBlock", "ByLayer", "Continuous"} - {l.dxf.name for l in doc.linetypes}, set())
            self.assertIn("Standard", doc.styles)

    def test_host_commands_build_a_drawing_other_programs_open(self):
        with tempfile.TemporaryDirectory() as tmp:
            level_mark_block(os.path.join(tmp, "kacena.dxf"))
            svg = os.path.join(tmp, "vykres.svg")
            status, out, err = run_togu(tmp, SCRIPT, "--svg", svg)
            self.assertEqual(status, 0, err + out)
            saved = os.path.join(tmp, "vykres.dxf")
            self.assertEqual(audit_errors(saved), [])
            # _QSAVE wrote the drawing again; the first save stayed as the backup.
            self.assertTrue(os.path.exists(os.path.join(tmp, "vykres.bak")))
            before = ezdxf.readfile(os.path.join(tmp, "vykres.bak"))
            doc = ezdxf.readfile(saved)
            self.assertEqual(len(doc.modelspace()), len(before.modelspace()) + 1)

            kinds = [e.dxftype() for e in doc.modelspace()]
            self.assertEqual(kinds, ["LINE", "LINE", "LWPOLYLINE", "CIRCLE", "ARC", "ARC", "TEXT", "MTEXT", "INSERT",
                                     "INSERT", "LINE"])
            self.assertTrue(all(e.dxf.layer == "Potrubí" for e in doc.modelspace()))
            arc = doc.modelspace().query("ARC")[0]
            self.assertAlmostEqual(arc.dxf.start_angle % 360, 0.0, places=6)
            self.assertAlmostEqual(arc.dxf.end_angle, 180.0, places=6)
            quarter = doc.modelspace().query("ARC")[1]
            self.assertAlmostEqual(quarter.dxf.radius, 500.0)
            self.assertAlmostEqual(quarter.dxf.end_angle, 90.0, places=6)
            mtext = doc.modelspace().query("MTEXT")[0]
            self.assertEqual(mtext.text, "První řádek\\PDruhý řádek")
            refs = doc.modelspace().query("INSERT")
            self.assertEqual(refs[0].dxf.name, "kacena")
            self.assertAlmostEqual(refs[0].dxf.rotation, 45.0)
            self.assertAlmostEqual(refs[0].dxf.yscale, 2.0)
            self.assertEqual({a.dxf.tag: a.dxf.text for a in refs[0].attribs}, {"VYSKA": "+1,250", "POPIS": "poznámka"})
            self.assertEqual({a.dxf.tag: a.dxf.text for a in refs[1].attribs}, {"VYSKA": "+2,500", "POPIS": ""})
            self.assertEqual(len(doc.blocks.get("kacena").query("ATTDEF")), 2)

            picture = ET.parse(svg).getroot()
            ns = "{http://www.w3.org/2000/svg}"
            self.assertGreater(len(picture.findall(".//%spolyline" % ns)), 6)
            self.assertEqual(len(picture.findall(".//%spolygon" % ns)), 1)  # the circle
            texts = [t.text for t in picture.findall(".//%stext" % ns)]
            for expected in ("Nápis", "První řádek", "Druhý řádek", "+1,250", "poznámka", "+2,500"):
                self.assertIn(expected, texts)

    def test_insert_of_a_file_that_is_not_there(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, out, err = run_togu(tmp, "_INSERT\nnikde\n")
            self.assertNotEqual(status, 0)
            self.assertIn("nikde", err)
            self.assertIn("line 3", err)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    TOGU, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    togu_e2e.configure([None, TOGU, SOURCE])
    unittest.main(argv=sys.argv[:1], verbosity=2)
