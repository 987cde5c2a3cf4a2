#!/usr/bin/env python3
"""A drawing that ezdxf writes, opened and saved by togu, reads back in ezdxf with the same
entities and objects, handles, owners, layers and values: every entity class the database models
(dimensions, leaders and multileaders among them), others it keeps as tag storage (ellipse, spline,
hatch, point, 3D polyline), extended data, extension dictionaries with xrecords, reactors, groups, an external
reference, paper space, and a drawing of AutoCAD 2000 in code page 1250.

Usage: test_dxf_roundtrip.py <path of togu> <source dir>
"""
import math
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e
from ezdxf.math import Vec2, Vec3

TOGU = None
SOURCE = None


def run_togu(tmp, *args, script=""):
    return togu_e2e.run_togu(tmp, script, *args)


def rich_drawing(path):
    """A drawing with a bit of everything."""
    doc = ezdxf.new("R2018", setup=True)
    doc.header["$INSUNITS"] = 4
    doc.header["$USERI1"] = 42
    msp = doc.modelspace()
    doc.layers.add("WALLS", color=3, linetype="DASHED", lineweight=35)
    doc.layers.add("OFF", color=5).off()
    doc.layers.add("TRUE", true_color=ezdxf.rgb2int((10, 200, 30))).description = "Popis vrstvy čeština"
    doc.layers.add("LOCKED").lock()
    doc.layers.add("FROZEN").freeze()
    doc.linetypes.add("GAS", pattern='A,.5,-.2,["GAS",STANDARD,S=.1,U=0.0,X=-0.1,Y=-.05],-.25',
                      description="Gas ---- GAS ----", length=1)
    doc.styles.add("ARIALSTYLE", font="arial.ttf")
    doc.appids.add("MYAPP")
    doc.ucs.new("MYUCS", dxfattribs={"origin": (10, 20, 0), "xaxis": (0, 1, 0), "yaxis": (-1, 0, 0)})
    doc.views.new("MYVIEW", dxfattribs={"height": 100, "width": 150, "center": (5, 6)})

    line = msp.add_line((0, 0, 0), (100, 50, 0), dxfattribs={"layer": "WALLS", "color": 1, "linetype": "GAS",
                                                              "ltscale": 2.5})
    line.set_xdata("MYAPP", [(1000, "hello"), (1040, 3.25), (1070, 7), (1071, 123456), (1010, (1, 2, 3)),
                             (1005, "1F"), (1002, "{"), (1000, "in"), (1002, "}"), (1004, b"\x01\x02\xff")])
    xdict = line.new_extension_dict()
    xdict.add_xrecord("MYDATA").reset([(1, "text"), (40, 2.5), (70, 3), (90, 100000), (10, (1, 2, 3)),
                                       (330, line.dxf.handle)])
    msp.add_circle((10, 10), 5, dxfattribs={"layer": "TRUE", "true_color": ezdxf.rgb2int((200, 10, 10))})
    msp.add_circle((1, 2, 3), 4, dxfattribs={"extrusion": (0, 1, 1)})
    msp.add_arc((0, 0), 10, 30, 120)
    msp.add_lwpolyline([(0, 0, 0.5, 0.5, 0.3), (10, 0, 0, 0, -0.5), (10, 10, 0, 0, 0)], format="xyseb",
                       close=True, dxfattribs={"elevation": 2})
    msp.add_lwpolyline([(0, 0), (5, 5), (10, 0)], dxfattribs={"const_width": 0.7})
    msp.add_polyline2d([(0, 0), (3, 4), (6, 0)], close=True)
    msp.add_polyline2d([(0, 0, 0.3), (3, 4, 0), (6, 0, 0)], format="xyb")
    msp.add_polyline3d([(0, 0, 0), (1, 2, 3), (4, 5, 6)])
    text = msp.add_text("Žluťoučký kůň ^ úpěl", dxfattribs={"height": 2.5, "rotation": 30, "style": "ARIALSTYLE"})
    text.set_placement((5, 5), align=ezdxf.enums.TextEntityAlignment.MIDDLE_CENTER)
    msp.add_text("OCS text", dxfattribs={"extrusion": (0, 0, -1), "insert": (3, 4, 5)})
    mtext = msp.add_mtext("Dlouhý text " * 40 + "\\Pnový odstavec {\\fArial|b1;tučně}",
                          dxfattribs={"char_height": 3, "width": 80, "attachment_point": 5})
    mtext.dxf.insert = (20, 30)
    mtext.set_rotation(15)
    msp.add_ellipse((0, 0), major_axis=(5, 0), ratio=0.5)
    msp.add_spline([(0, 0), (1, 2), (3, 1), (5, 4)])
    msp.add_point((7, 7))
    hatch = msp.add_hatch(color=2)
    hatch.paths.add_polyline_path([(0, 0), (10, 0), (10, 10), (0, 10)], is_closed=True)

    block = doc.blocks.new("KACENA", base_point=(1, 1))
    block.add_circle((0, 0), 1)
    block.add_line((-1, 0), (1, 0))
    block.add_attdef("VYSKA", (0, 2), dxfattribs={"height": 1, "prompt": "Výška:"}).dxf.text = "+0,000"
    block.add_attdef("POZN", (0, 4), dxfattribs={"height": 1, "prompt": "Pozn", "flags": 1})
    block.add_attdef("KONST", (0, 6), dxfattribs={"height": 1, "flags": 2}).dxf.text = "C"
    ref = msp.add_blockref("KACENA", (50, 50), dxfattribs={"xscale": 2, "yscale": 2, "rotation": 45})
    ref.add_auto_attribs({"VYSKA": "+1,250", "POZN": "poznámka"})
    msp.add_blockref("KACENA", (60, 60))
    msp.add_linear_dim(base=(0, -10), p1=(0, 0), p2=(100, 0)).render()
    msp.add_leader([(0, 0), (10, 10), (20, 10)])
    mleader = msp.add_multileader_mtext("Standard")
    mleader.set_content("Popis")
    mleader.add_leader_line(ezdxf.render.mleader.ConnectionSide.left, [Vec2(-20, -20)])
    mleader.build(insert=Vec2(0, 0))
    doc.add_xref_def("podklady/arch.dwg", "ARCH")
    msp.add_blockref("ARCH", (0, 0))
    paper = doc.layout("Layout1")
    paper.add_line((0, 0), (10, 10))
    paper.add_text("paper")
    doc.groups.new("MYGROUP").extend([line])
    store = doc.rootdict.add_new_dict("TOGUTILS")
    store.add_xrecord("Koty").reset([(1, "PPR"), (70, 1), (40, 20.0)])
    doc.rootdict.add_dict_var("MYVAR", "value")
    doc.saveas(path)


def handles_in(path):
    """The handles the file gives its records (groups 5 and 105)."""
    with open(path, encoding="utf-8") as f:
        lines = f.read().split("\n")
    start = lines.index("CLASSES")  # after the header, whose $HANDSEED is a 5 group too
    return [int(lines[i + 1], 16) for i in range(start + 1, len(lines) - 1, 2) if lines[i].strip() in ("5", "105")]


def same(x, y):
    if x is None or y is None:
        return x is y
    if isinstance(x, (int, float)) and isinstance(y, (int, float)):
        return math.isclose(x, y, rel_tol=1e-9, abs_tol=1e-9)
    if isinstance(x, (Vec3, Vec2, tuple, list)) and isinstance(y, (Vec3, Vec2, tuple, list)):
        return len(x) == len(y) and all(same(p, q) for p, q in zip(x, y))
    return x == y


def attributes(e):
    """The entity's DXF attributes, with the forms that say the same thing brought together."""
    attrs = dict(e.dxf.all_existing_dxf_attribs())
    if "extrusion" in attrs:
        attrs["extrusion"] = Vec3(attrs["extrusion"]).normalize()
    if e.dxftype() == "MTEXT":  # a rotation or a direction, as the writer chooses
        attrs.pop("rotation", None)
        attrs.pop("text_direction", None)
        attrs["_rotation"] = e.get_rotation()
    return attrs


def differences(a, b):
    """What drawing b lost or changed of drawing a, as readable lines."""
    out = []
    for handle, e in a.entitydb.items():
        f = b.entitydb.get(handle)
        if f is None:
            out.append("missing %s %s" % (handle, e.dxftype()))
            continue
        if e.dxftype() != f.dxftype():
            out.append("%s: %s became %s" % (handle, e.dxftype(), f.dxftype()))
            continue
        ea, fa = attributes(e), attributes(f)
        for key in set(ea) | set(fa):
            va = ea.get(key, e.dxf.get_default(key) if e.dxf.is_supported(key) else None)
            vb = fa.get(key, f.dxf.get_default(key) if f.dxf.is_supported(key) else None)
            if not same(va, vb):
                out.append("%s %s.%s: %r -> %r" % (handle, e.dxftype(), key, va, vb))
        xa = {k: [t.value for t in v] for k, v in e.xdata.data.items()} if e.xdata else {}
        xb = {k: [t.value for t in v] for k, v in f.xdata.data.items()} if f.xdata else {}
        if sorted(xa) != sorted(xb) or any(not same(xa[k], xb[k]) for k in xa):
            out.append("%s %s xdata: %r -> %r" % (handle, e.dxftype(), xa, xb))
        if e.has_extension_dict != f.has_extension_dict or (
                e.has_extension_dict and e.extension_dict.handle != f.extension_dict.handle):
            out.append("%s %s extension dictionary" % (handle, e.dxftype()))
        ra = set(e.reactors.get()) if e.reactors else set()
        rb = set(f.reactors.get()) if f.reactors else set()
        if ra != rb:
            out.append("%s %s reactors %r -> %r" % (handle, e.dxftype(), ra, rb))
    return out


class RoundTrip(unittest.TestCase):
    def test_everything_comes_back(self):
        with tempfile.TemporaryDirectory() as tmp:
            src, out, again = (os.path.join(tmp, n) for n in ("in.dxf", "out.dxf", "again.dxf"))
            rich_drawing(src)
            status, _, err = run_togu(tmp, src, "-o", out)
            self.assertEqual(status, 0, err)
            a, b = ezdxf.readfile(src), ezdxf.readfile(out)
            self.assertEqual(differences(a, b), [])
            self.assertEqual(b.dxfversion, "AC1032")
            self.assertEqual(b.header["$USERI1"], 42)
            self.assertGreater(int(b.header["$HANDSEED"], 16), max(handles_in(out)))
            self.assertEqual([t.value for t in b.rootdict["TOGUTILS"]["Koty"].tags], ["PPR", 1, 20.0])
            self.assertEqual(b.layers.get("TRUE").description, "Popis vrstvy čeština")
            self.assertEqual(b.blocks.get("ARCH").block.dxf.xref_path, "podklady/arch.dwg")
            self.assertEqual([e.dxftype() for e in b.layout("Layout1")], ["LINE", "TEXT"])
            auditor = b.audit()
            self.assertEqual([e.message for e in auditor.errors], [])
            # A drawing togu wrote reads and writes again to the same text.
            status, _, err = run_togu(tmp, out, "-o", again)
            self.assertEqual(status, 0, err)
            with open(out, "rb") as f1, open(again, "rb") as f2:
                self.assertEqual(f1.read(), f2.read())

    def test_autocad_2000_in_its_code_page(self):
        with tempfile.TemporaryDirectory() as tmp:
            src, out = os.path.join(tmp, "old.dxf"), os.path.join(tmp, "out.dxf")
            doc = ezdxf.new("R2000")
            doc.encoding = "cp1250"
            doc.layers.add("Vrstva_čšř")
            doc.modelspace().add_text("Žluťoučký kůň ∑", dxfattribs={"layer": "Vrstva_čšř"})
            doc.saveas(src)
            with open(src, "rb") as f:
                raw = f.read()
            self.assertIn(b"ANSI_1250", raw)
            self.assertIn(b"\\U+2211", raw)
            status, _, err = run_togu(tmp, src, "-o", out)
            self.assertEqual(status, 0, err)
            back = ezdxf.readfile(out)
            self.assertEqual(back.dxfversion, "AC1032")
            texts = [(e.dxf.layer, e.dxf.text) for e in back.modelspace().query("TEXT")]
            self.assertEqual(texts, [("Vrstva_čšř", "Žluťoučký kůň ∑")])
            self.assertEqual(back.audit().errors, [])


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    TOGU, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    togu_e2e.configure([None, TOGU, SOURCE])
    unittest.main(argv=sys.argv[:1], verbosity=2)
