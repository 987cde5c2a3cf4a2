#!/usr/bin/env python3
"""Leaders that ezdxf writes, opened and saved by togu, read back in ezdxf with the same vertices,
handles, owners, layer, dimension style, flags, annotation, extended data (the dimension style
overrides among them) and extension dictionary; and the picture draws them.

Usage: test_dxf_leader.py <path of togu> <source dir>
"""
import math
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e

TOGU = None
SOURCE = None


def run_togu(tmp, *args, script=""):
    return togu_e2e.run_togu(tmp, script, *args)


def leader_drawing(path):
    doc = ezdxf.new("R2018", setup=True)
    msp = doc.modelspace()
    doc.layers.add("POPISY", color=2)
    doc.appids.add("TOGU")
    text = msp.add_mtext("Vodovod DN 150", dxfattribs={"insert": (20, 10), "char_height": 2.5, "layer": "POPISY"})
    plain = msp.add_leader([(0, 0), (10, 10), (20, 10)], dxfattribs={"layer": "POPISY"})
    rich = msp.add_leader([(5, 5, 0), (15, 20, 0), (30, 20, 0), (40, 25, 0)], dimstyle="EZDXF",
                          override={"dimasz": 3.5, "dimclrd": 1},
                          dxfattribs={"layer": "POPISY", "has_arrowhead": 0, "path_type": 1,
                                      "annotation_type": 0, "annotation_handle": text.dxf.handle,
                                      "text_height": 2.5, "text_width": 30.0, "hookline_direction": 1,
                                      "has_hookline": 1, "block_color": 3,
                                      "horizontal_direction": (0.0, 1.0, 0.0),
                                      "leader_offset_annotation_placement": (0.5, 0.25, 0.0)})
    rich.set_xdata("TOGU", [(1000, "popis potrubí"), (1070, 7)])
    rich.new_extension_dict().add_xrecord("TOGU_DATA").reset([(1, "DN150"), (40, 150.0)])
    block = doc.blocks.new("ZNACKA")
    block.add_leader([(0, 0), (2, 2), (4, 2)])
    msp.add_blockref("ZNACKA", (50, 50))
    doc.saveas(path)
    return plain.dxf.handle, rich.dxf.handle


def leaders(doc):
    return {e.dxf.handle: e for e in doc.entitydb.values() if e.dxftype() == "LEADER"}


def close(a, b):
    return len(a) == len(b) and all(math.isclose(p, q, abs_tol=1e-9) for u, v in zip(a, b) for p, q in zip(u, v))


class LeaderRoundTrip(unittest.TestCase):
    def test_leaders_come_back(self):
        with tempfile.TemporaryDirectory() as tmp:
            src, out, again = (os.path.join(tmp, n) for n in ("in.dxf", "out.dxf", "again.dxf"))
            plain_handle, rich_handle = leader_drawing(src)
            status, _, err = run_togu(tmp, src, "-o", out)
            self.assertEqual(status, 0, err)
            a, b = ezdxf.readfile(src), ezdxf.readfile(out)
            la, lb = leaders(a), leaders(b)
            self.assertEqual(sorted(la), sorted(lb))
            self.assertEqual(len(la), 3)
            for handle, e in la.items():
                f = lb[handle]
                with self.subTest(handle=handle):
                    self.assertTrue(close(e.vertices, f.vertices), (e.vertices, f.vertices))
                    self.assertEqual(e.dxf.owner, f.dxf.owner)
                    for key in ("layer", "dimstyle", "has_arrowhead", "path_type", "annotation_type",
                                "annotation_handle", "hookline_direction", "has_hookline", "text_height",
                                "text_width", "block_color", "horizontal_direction",
                                "leader_offset_annotation_placement", "normal_vector"):
                        va, vb = e.dxf.get(key, e.dxf.get_default(key)), f.dxf.get(key, f.dxf.get_default(key))
                        if isinstance(va, tuple) or hasattr(va, "x"):
                            self.assertTrue(close([va], [vb]), (key, va, vb))
                        else:
                            self.assertEqual(va, vb, key)
            rich = lb[rich_handle]
            self.assertEqual(rich.dxf.has_arrowhead, 0)
            self.assertEqual(rich.dxf.path_type, 1)
            self.assertEqual(rich.dxf.dimstyle, "EZDXF")
            self.assertEqual(len(rich.vertices), 4)
            self.assertEqual(lb[plain_handle].dxf.layer, "POPISY")
            # The extended data, the dimension style overrides with it, and the extension dictionary.
            self.assertEqual([t.value for t in rich.get_xdata("TOGU")], ["popis potrubí", 7])
            self.assertEqual(la[rich_handle].get_xdata("ACAD"), rich.get_xdata("ACAD"))
            overrides = rich.get_acad_dstyle(rich.get_dim_style()) if hasattr(rich, "get_acad_dstyle") else None
            if overrides is not None:
                self.assertAlmostEqual(overrides["dimasz"], 3.5)
            self.assertTrue(rich.has_extension_dict)
            self.assertEqual(rich.extension_dict.handle, la[rich_handle].extension_dict.handle)
            self.assertEqual([t.value for t in rich.extension_dict["TOGU_DATA"].tags], ["DN150", 150.0])
            self.assertEqual([e.message for e in b.audit().errors], [])
            # A drawing togu wrote reads and writes again to the same text.
            status, _, err = run_togu(tmp, out, "-o", again)
            self.assertEqual(status, 0, err)
            with open(out, "rb") as f1, open(again, "rb") as f2:
                self.assertEqual(f1.read(), f2.read())

    def test_picture_draws_the_vertex_line(self):
        with tempfile.TemporaryDirectory() as tmp:
            src, svg = os.path.join(tmp, "in.dxf"), os.path.join(tmp, "out.svg")
            doc = ezdxf.new("R2018")
            doc.modelspace().add_leader([(0, 0), (10, 10), (20, 10)])
            doc.saveas(src)
            status, _, err = run_togu(tmp, src, "--svg", svg)
            self.assertEqual(status, 0, err)
            with open(svg, encoding="utf-8") as f:
                picture = f.read()
            self.assertIn("<polyline", picture)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    TOGU, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    togu_e2e.configure([None, TOGU, SOURCE])
    unittest.main(argv=sys.argv[:1], verbosity=2)
