#!/usr/bin/env python3
"""pro on a drawing that ezdxf builds: lines, arcs, circles, lightweight, 2D and 3D polylines,
ellipses and splines run the other way round and keep their shape; a text stays out of the selection; a
second pro brings everything back. The saved drawing opens again and saves to the same bytes.

Usage: test_reverse_curves.py <path of togu> <source dir>
"""
import math
import os
import sys
import tempfile
import unittest

import ezdxf
from ezdxf.math import Vec3

import togu_e2e


def drawing(path):
    doc = ezdxf.new("R2018")
    msp = doc.modelspace()
    msp.add_line((0, 0), (10, 5))
    msp.add_arc((20, 0), 5, 0, 90)
    msp.add_circle((40, 0), 3)
    msp.add_lwpolyline([(0, 20, 0, 0, 0.5), (10, 20, 1, 2, 0), (10, 30, 0, 0, 0)], format="xyseb", close=True)
    msp.add_polyline2d([(20, 20), (30, 20), (30, 30)])
    msp.add_ellipse((50, 20), major_axis=(6, 0), ratio=0.5, start_param=0.3, end_param=2.5)
    msp.add_spline([(0, 40), (5, 45), (10, 40), (15, 45)])
    msp.add_polyline3d([(60, 0, 0), (70, 0, 5), (70, 10, 8)])
    msp.add_polyline3d([(80, 0, 1), (90, 0, 2), (90, 10, 3)], close=True)
    msp.add_text("DN 100", dxfattribs={"insert": (0, -10)})
    doc.saveas(path)


def points(e):
    """What a curve runs through, in its own order."""
    t = e.dxftype()
    if t == "LINE":
        return [Vec3(e.dxf.start), Vec3(e.dxf.end)]
    if t == "LWPOLYLINE":
        return [Vec3(x, y) for x, y, *_ in e.get_points()]
    if t == "POLYLINE":
        return [Vec3(v.dxf.location) for v in e.vertices]
    if t == "SPLINE":
        return [Vec3(p) for p in e.control_points]
    if t == "ELLIPSE":
        return [Vec3(e.start_point), Vec3(e.end_point)]
    return []


class ReverseCurves(unittest.TestCase):
    def test_curves_turn_round_and_back(self):
        with tempfile.TemporaryDirectory() as tmp:
            src, once, twice = (os.path.join(tmp, n) for n in ("src.dxf", "once.dxf", "twice.dxf"))
            drawing(src)
            status, out, err = togu_e2e.run_togu(tmp, "pro\nall\n\n", src, "-o", once)
            self.assertEqual(status, 0, out + err)
            self.assertIn("1 was filtered out.", out)
            a = ezdxf.readfile(src).modelspace()
            b = ezdxf.readfile(once).modelspace()
            self.assertEqual([e.dxftype() for e in a], [e.dxftype() for e in b])
            for old, new in zip(a, b):
                t = old.dxftype()
                if t in ("LINE", "POLYLINE", "SPLINE", "ELLIPSE") and not (t == "POLYLINE" and old.is_closed):
                    got = points(new)
                    want = list(reversed(points(old)))
                    self.assertEqual(len(got), len(want), t)
                    for p, q in zip(got, want):
                        self.assertTrue(p.isclose(q, abs_tol=1e-9), (t, p, q))
            # A closed polyline starts at the same vertex and runs the other way; bulges and widths
            # go with their segments.
            lw = b.query("LWPOLYLINE")[0]
            self.assertEqual([(round(x, 9), round(y, 9)) for x, y, *_ in lw.get_points()],
                             [(0, 20), (10, 30), (10, 20)])
            self.assertEqual([round(bulge, 9) for *_, bulge in lw.get_points("b")], [0, 0, -0.5])
            self.assertEqual([(s, e) for s, e in lw.get_points("se")], [(0, 0), (2, 1), (0, 0)])
            # A 3D polyline stays one, its vertices in space; a closed one keeps its first vertex.
            p3 = [e for e in b.query("POLYLINE") if e.is_3d_polyline]
            self.assertEqual(len(p3), 2)
            self.assertEqual([tuple(v.dxf.location) for v in p3[1].vertices], [(80, 0, 1), (90, 10, 3), (90, 0, 2)])
            self.assertTrue(p3[1].is_closed)
            # An arc and a circle keep their points: the arc's angles swap through its normal.
            arc = b.query("ARC")[0]
            self.assertTrue(Vec3(arc.start_point).isclose(Vec3(a.query("ARC")[0].end_point), abs_tol=1e-9))
            # The ellipse is the same set of points.
            e0, e1 = a.query("ELLIPSE")[0], b.query("ELLIPSE")[0]
            mid = (e0.dxf.start_param + e0.dxf.end_param) / 2
            p = Vec3(e0.construction_tool().vertices([mid]).__next__())
            self.assertTrue(any(p.isclose(q, abs_tol=1e-6) for q in e1.construction_tool().vertices(
                [e1.dxf.start_param + (e1.dxf.end_param - e1.dxf.start_param) * i / 1000 for i in range(1001)])))

            status, out, err = togu_e2e.run_togu(tmp, "pro\nall\n\n", once, "-o", twice)
            self.assertEqual(status, 0, out + err)
            for old, new in zip(a, ezdxf.readfile(twice).modelspace()):
                for p, q in zip(points(old), points(new)):
                    self.assertTrue(p.isclose(q, abs_tol=1e-9), (old.dxftype(), p, q))

            again = os.path.join(tmp, "again.dxf")
            status, out, err = togu_e2e.run_togu(tmp, "", once, "-o", again)
            self.assertEqual(status, 0, out + err)
            with open(once, "rb") as f1, open(again, "rb") as f2:
                self.assertEqual(f1.read(), f2.read())


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
