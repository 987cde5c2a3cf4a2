#!/usr/bin/env python3
"""The pipe commands on drawings read back by ezdxf: mut draws a bundle round a corner, takes a section
back and refuses one too short; sp joins collinear lines and leaves lines beside each other apart;
TEPIZOL lays the insulation band along an axis, beside an edge and between two edges. Every saved
drawing opens again in togu and saves to the same bytes.

Usage: test_potrubi.py <path of togu> <source dir>
"""
import math
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e


def run(tmp, script, drawing=None):
    """togu on the script (and the drawing), saved as out.dxf; gives (document, transcript)."""
    args = [drawing] if drawing else []
    code, out, err = togu_e2e.run_togu(tmp, script, *args, "-o", os.path.join(tmp, "out.dxf"))
    if code != 0:
        raise AssertionError("togu failed (%i): %s\n%s" % (code, err, out))
    return ezdxf.readfile(os.path.join(tmp, "out.dxf")), out


def lines(doc):
    return [e for e in doc.modelspace().query("LINE")]


def xy(v):
    return (round(v.x, 6), round(v.y, 6))


def band_points(doc):
    """The insulation polylines (on their layer) and all their vertices."""
    pls = [pl for pl in doc.modelspace().query("LWPOLYLINE") if pl.dxf.layer == "TU_tepelná_izolace"]
    return pls, [p for pl in pls for p in pl.get_points("xy")]


class Mut(unittest.TestCase):
    def test_bundle_round_a_right_angle(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, "mut\n0,0\n1000,0\n1000,1000\n\n")
            ls = lines(doc)
            self.assertEqual(len(ls), 6)
            first, second = ls[:3], ls[3:]
            self.assertEqual([l.dxf.layer for l in first], ["TU_ZT-voda_SV", "TU_ZT-voda_TUV", "TU_ZT-voda_CIRK"])
            self.assertEqual([l.dxf.layer for l in second], [l.dxf.layer for l in first])
            # The first pipe on the picked points, the others above it; each corner meets exactly.
            self.assertEqual(xy(first[0].dxf.start), (0, 0))
            for i, (a, b) in enumerate(zip(first, second)):
                self.assertEqual(xy(a.dxf.end), xy(b.dxf.start))
                self.assertEqual(xy(a.dxf.end), (1000 - 100 * i, 100 * i))
            # The outer pipe is the longer.
            lengths = [a.dxf.start.distance(a.dxf.end) + b.dxf.start.distance(b.dxf.end) for a, b in zip(first, second)]
            self.assertGreater(lengths[0], lengths[1])
            self.assertGreater(lengths[1], lengths[2])
            # The settings stay in the drawing.
            togu = doc.rootdict["TOGUTILS"]
            self.assertAlmostEqual(togu["DlgMultiTrubky_ROZTEC"].tags.get_first_value(40), 100.0)
            self.assertEqual(togu["DlgMultiTrubky_TYPVEDENI"].tags.get_first_value(90), 2)
            self.assertEqual([t.value for t in togu["DlgMultiTrubky_SEZNAMHLADIN"].tags if t.code == 1],
                             ["ZT-voda_SV", "ZT-voda_TUV", "ZT-voda_CIRK"])

    def test_undo_gives_the_free_ends_back_and_a_short_section_is_refused(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, "mut\n0,0\n1000,0\n1000,1000\nZ\n1000,50\nok\n\n")
            self.assertIn("Vytvářený úsek je příliš krátký", out)
            ls = lines(doc)
            self.assertEqual(len(ls), 3)
            self.assertEqual([xy(l.dxf.end) for l in ls], [(1000, 0), (1000, 100), (1000, 200)])

    def test_dialog_order_and_spacing_make_the_bundle(self):
        with tempfile.TemporaryDirectory() as tmp:
            # The dialog lists the top pipe first; two pipes 50 mm apart, the guide on top.
            script = ("mut\n\nclick 2112\nselect 2101 12\nclick 2116\nselect 2101 13\nclick 2116\n"
                      "set 2108 50\nclick 2113\nok\n0,0\n500,0\n\n")
            doc, out = run(tmp, script)
            ls = lines(doc)
            self.assertEqual([(l.dxf.layer, xy(l.dxf.start)) for l in ls],
                             [("TU_ZT-voda_TUV", (0, -50)), ("TU_ZT-voda_SV", (0, 0))])

    def test_one_pipe_is_refused_and_cancel_keeps_the_layers(self):
        with tempfile.TemporaryDirectory() as tmp:
            # The spinner steps by 10 mm from the typed value; Cancel keeps the layers and the spacing.
            script = ("mut\n\nclick 2112\nselect 2101 12\nclick 2116\nok\nok\nset 2108 125\nspin 2118 down\n"
                      "cancel\n0,0\n500,0\n\n")
            doc, out = run(tmp, script)
            self.assertIn("Je nutné vybrat minimálně dvě trubky", out)
            self.assertIn("2108 pole [120]", out)
            ls = lines(doc)
            self.assertEqual([l.dxf.layer for l in ls], ["TU_ZT-voda_SV", "TU_ZT-voda_TUV", "TU_ZT-voda_CIRK"])
            self.assertEqual([xy(l.dxf.start) for l in ls], [(0, 0), (0, 100), (0, 200)])


class Sp(unittest.TestCase):
    def drawing(self, tmp):
        doc = ezdxf.new("R2018")
        doc.header["$INSUNITS"] = 4
        doc.layers.add("POTRUBI")
        msp = doc.modelspace()
        handles = {}
        handles["a"] = msp.add_line((0, 0), (1000, 0)).dxf.handle
        handles["b"] = msp.add_line((2000, 0, 5), (3000, 0, 5), dxfattribs={"layer": "POTRUBI", "color": 3}).dxf.handle
        handles["c"] = msp.add_line((0, 500), (1000, 500)).dxf.handle
        handles["d"] = msp.add_line((500, 510), (2000, 510)).dxf.handle
        handles["e"] = msp.add_line((0, 1000), (1000, 1000)).dxf.handle
        handles["f"] = msp.add_line((500, 1025), (2000, 1025)).dxf.handle
        path = os.path.join(tmp, "in.dxf")
        doc.saveas(path)
        return path, handles

    def test_collinear_lines_join_and_side_by_side_within_20_mm(self):
        with tempfile.TemporaryDirectory() as tmp:
            path, h = self.drawing(tmp)
            picks = "".join("#%s\n" % h[k] for k in "abcdef")
            doc, out = run(tmp, "sp\n" + picks + "\n", path)
            self.assertIn("Vybráno 6 úseček", out)
            self.assertIn("Vymazáno 2 objektů", out)
            by_handle = {l.dxf.handle: l for l in lines(doc)}
            self.assertEqual(set(by_handle), {h["b"], h["d"], h["e"], h["f"]})
            kept = by_handle[h["b"]]
            self.assertEqual((kept.dxf.layer, kept.dxf.color), ("POTRUBI", 3))
            self.assertEqual((xy(kept.dxf.start), xy(kept.dxf.end)), ((0, 0), (3000, 0)))
            self.assertEqual(kept.dxf.start.z, 0)
            # 10 mm aside: joined; 25 mm aside: left alone.
            self.assertEqual(xy(by_handle[h["d"]].dxf.start), (0, 500))
            self.assertEqual(xy(by_handle[h["f"]].dxf.start), (500, 1025))

    def test_nothing_collinear(self):
        with tempfile.TemporaryDirectory() as tmp:
            path, h = self.drawing(tmp)
            doc, out = run(tmp, "sp\n#%s\n#%s\n\n" % (h["a"], h["c"]), path)
            self.assertIn("Nebyly nalezeny žádné kolineární úsečky ke spojení", out)
            self.assertEqual(len(lines(doc)), 6)


class Tepizol(unittest.TestCase):
    SETUP = ("_LINE\n0,0\n300,0\n\n"
             "_ARC\n1000,0\n1200,200\n1400,0\n"
             "_PLINE\n0,500\n400,500\nA\n600,700\nL\n600,1000\n\n")

    def test_axis_mode_on_line_arc_and_polyline(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, self.SETUP + "TEPIZOL\n150,0\n\nTEPIZOL\n1200,200\n50\nTEPIZOL\n200,500\n\n")
            pls, _ = band_points(doc)
            self.assertEqual(len(doc.modelspace().query("LWPOLYLINE")), len(pls) + 1)
            line_band = [p for pl in pls for p in pl.get_points("xy") if p[1] < 200]
            xs = [p[0] for p in line_band if p[0] < 500]
            self.assertAlmostEqual(min(xs), 0, places=6)
            self.assertAlmostEqual(max(xs), 300, places=6)
            self.assertLessEqual(max(abs(p[1]) for p in line_band if p[0] < 500), 50 + 1e-6)
            # Along the arc: within the band of 50 round its circle of radius 200, from end to end.
            arc = [p for pl in pls for p in pl.get_points("xy") if p[0] > 700]
            radii = [math.hypot(p[0] - 1200, p[1]) for p in arc]
            self.assertGreaterEqual(min(radii), 175 - 1e-6)
            self.assertLessEqual(max(radii), 225 + 1e-6)
            angles = [math.atan2(p[1], p[0] - 1200) for p in arc]
            self.assertAlmostEqual(min(angles), 0, places=6)
            self.assertAlmostEqual(max(angles), math.pi, places=6)
            # The polyline: one band per segment, the arc segment's with bulges.
            poly = [pl for pl in pls if min(p[1] for p in pl.get_points("xy")) > 400]
            self.assertEqual(len(poly), 3)
            self.assertTrue(any(abs(b) > 1e-9 for b in (v[4] for v in poly[1].get_points())))
            self.assertIn("Zadejte tloustku izolace <50>", out)

    def test_edge_mode_lies_on_the_side_of_the_point(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, self.SETUP + "TEPIZOL\nH\n150,0\n40\n100,-70\n")
            pls, pts = band_points(doc)
            self.assertEqual(len(pls), 1)
            self.assertAlmostEqual(min(p[1] for p in pts), -40, places=1)
            self.assertLessEqual(max(p[1] for p in pts), 1e-6)
            self.assertAlmostEqual(min(p[0] for p in pts), 0, places=6)
            self.assertAlmostEqual(max(p[0] for p in pts), 300, places=6)

    def test_edge_mode_on_a_polyline_with_an_arc_and_a_point_on_the_edge(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run(tmp, self.SETUP + "TEPIZOL\nH\n200,500\n20\n200,450\nTEPIZOL\n200,500\n\n200,500\nok\n")
            pls, pts = band_points(doc)
            self.assertEqual(len(pls), 3)
            self.assertLessEqual(max(p[1] for p in pls[0].get_points("xy")), 500 + 1e-6)
            self.assertIn("Bod pro urceni strany lezi na hrane", out)

    def test_two_edges_band_over_the_overlap_and_the_mode_is_remembered(self):
        with tempfile.TemporaryDirectory() as tmp:
            script = ("_LINE\n0,-300\n500,-300\n\n_LINE\n750,-400\n250,-400\n\n"
                      "TEPIZOL\nd\n100,-300\n600,-400\n"
                      "TEPIZOL\n100,-300\n400,-300\n"
                      "TEPIZOL\n100,-300\n^C\n")
            doc, out = run(tmp, script)
            self.assertIn("Vyberte prvni hranu nebo [Osa/Hrana] <DveHrany>: 100,-300", out)
            self.assertIn("Hrany maji nulovou vzdalenost", out)
            pls, pts = band_points(doc)
            self.assertEqual(len(pls), 1)
            self.assertAlmostEqual(min(p[0] for p in pts), 250, places=6)
            self.assertAlmostEqual(max(p[0] for p in pts), 500, places=6)
            self.assertGreaterEqual(min(p[1] for p in pts), -400 - 1e-6)
            self.assertLessEqual(max(p[1] for p in pts), -300 + 1e-6)


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
