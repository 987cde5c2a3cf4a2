#!/usr/bin/env python3
"""preved on a drawing of the earlier standard that ezdxf builds: old text, dimension and multileader
style names, old layer names with and without a prefix, old line types, entities using all of them,
the current layer and styles among the old ones. The saved drawing must hold the new names only, the
merged objects erased, every entity and style pointing at a survivor, the current objects handed
over, the line type records under their old handles; a second run changes nothing. And the question
about old layers that a standard layer request asks leads to the same conversion.

Usage: test_preved.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf
from ezdxf.math import Vec2
from ezdxf.render import mleader

import togu_e2e


def old_drawing(path):
    """Gives the handles of the records the checks follow."""
    doc = ezdxf.new("R2018")
    lt = doc.linetypes
    h = {}
    h["VODA-TUV"] = lt.add("VODA-TUV", [1.0, 0.7, -0.3], description="stará TUV").dxf.handle
    h["ZTI_VODA_TUV"] = lt.add("ZTI_VODA_TUV", [1.0, 0.7, -0.3]).dxf.handle
    h["SV"] = lt.add("SV", [2.0, 2.0], description="stará SV").dxf.handle
    h["-VODA-SV-"] = lt.add("-VODA-SV-", [1.0, 0.5, -0.5]).dxf.handle
    h["TECKOVANA"] = lt.add("TECKOVANA", [0.4, 0.0, -0.4]).dxf.handle
    lt.add("CARKOVANA", [1.0, 0.5, -0.5])

    for name in ("TEXT-020", "TEXT-035", "TEXT-NADPIS"):
        h[name] = doc.styles.add(name, font="arial.ttf").dxf.handle
    for name in ("P_VODA1", "P_VODA2", "KANALIZACE", "KANALIZACE+"):
        style = doc.dimstyles.new(name)
        style.dxf.dimtxsty = "TEXT-035"
        h[name] = style.dxf.handle
    doc.dimstyles.get("Standard").dxf.dimtxsty = "TEXT-020"
    sipka = doc.mleader_styles.new("KQ_SIPKA")
    tecka = doc.mleader_styles.new("KQ_TECKA")
    h["TG_TECKA"] = doc.mleader_styles.new("TG_TECKA").dxf.handle
    h["KQ_TECKA"] = tecka.dxf.handle
    sipka.dxf.text_style_handle = doc.styles.get("TEXT-035").dxf.handle
    tecka.dxf.text_style_handle = doc.styles.get("TEXT-020").dxf.handle

    layers = doc.layers
    h["zti-KOTY"] = layers.add("zti-KOTY", color=1).dxf.handle
    h["zti-VODA-SV"] = layers.add("zti-VODA-SV", color=2, linetype="-VODA-SV-").dxf.handle
    h["XY_ZT-VODA_SV"] = layers.add("XY_ZT-VODA_SV", color=3).dxf.handle
    layers.add("AB_zti-KOTY", color=4, linetype="ZTI_VODA_TUV")
    layers.add("popisy_020", color=5)

    msp = doc.modelspace()
    msp.add_line((0, 0), (100, 0), dxfattribs={"layer": "zti-VODA-SV", "linetype": "ZTI_VODA_TUV"})
    msp.add_line((0, 10), (100, 10), dxfattribs={"layer": "XY_ZT-VODA_SV", "linetype": "-VODA-SV-"})
    msp.add_line((0, 20), (100, 20), dxfattribs={"layer": "zti-KOTY", "linetype": "TECKOVANA"})
    msp.add_line((0, 30), (100, 30), dxfattribs={"layer": "AB_zti-KOTY", "linetype": "CARKOVANA"})
    msp.add_text("stará 020", dxfattribs={"style": "TEXT-020", "insert": (0, 40)})
    msp.add_text("NADPIS", dxfattribs={"style": "TEXT-NADPIS", "insert": (0, 50), "layer": "popisy_020"})
    msp.add_mtext("stará 035", dxfattribs={"style": "TEXT-035", "insert": (0, 60)})
    for i, name in enumerate(("P_VODA2", "KANALIZACE+")):
        msp.add_linear_dim(base=(0, 80 + 10 * i), p1=(0, 70), p2=(50, 70), dimstyle=name).render()
    leader = msp.add_multileader_mtext("KQ_TECKA")
    leader.set_content("odkaz")
    leader.add_leader_line(mleader.ConnectionSide.left, [Vec2(120, 40)])
    leader.build(insert=Vec2(130, 50))
    block = doc.blocks.new("ARMATURA")
    block.add_text("V", dxfattribs={"style": "TEXT-035"})
    block.add_line((0, 0), (1, 1), dxfattribs={"linetype": "VODA-TUV", "layer": "zti-KOTY"})
    msp.add_blockref("ARMATURA", (150, 0))

    doc.header["$CLAYER"] = "XY_ZT-VODA_SV"
    doc.header["$TEXTSTYLE"] = "TEXT-035"
    doc.header["$DIMSTYLE"] = "KANALIZACE+"
    doc.header["$CELTYPE"] = "ZTI_VODA_TUV"
    doc.saveas(path)
    # ezdxf doesn't know the current multileader style: the header gets it by hand.
    with open(path, encoding="utf-8") as f:
        text = f.read()
    anchor = "  9\n$CELTYPE\n  6\nZTI_VODA_TUV\n"
    assert anchor in text
    text = text.replace(anchor, anchor + "  9\n$CMLEADERSTYLE\n340\n%s\n" % h["KQ_TECKA"])
    with open(path, "w", encoding="utf-8") as f:
        f.write(text)
    return h


def current_mleader_style(path):
    """The handle of $CMLEADERSTYLE as the file stores it."""
    with open(path, encoding="utf-8") as f:
        lines = [line.strip() for line in f]
    i = lines.index("$CMLEADERSTYLE")
    return lines[i + 2]


def summary(doc):
    """What a conversion may change: tables with handles, the current objects, and what every
    entity points at."""
    out = {
        "layers": sorted((l.dxf.name, l.dxf.handle, l.dxf.color, l.dxf.linetype) for l in doc.layers),
        "linetypes": sorted((l.dxf.name, l.dxf.handle) for l in doc.linetypes),
        "styles": sorted((s.dxf.name, s.dxf.handle) for s in doc.styles),
        "dimstyles": sorted((s.dxf.name, s.dxf.handle, s.dxf.get("dimtxsty")) for s in doc.dimstyles),
        "mleaderstyles": sorted((k, v.dxf.handle) for k, v in doc.rootdict["ACAD_MLEADERSTYLE"].items()),
        "header": [doc.header.get(k) for k in ("$CLAYER", "$TEXTSTYLE", "$DIMSTYLE", "$CELTYPE")],
    }
    entities = []
    for layout in [doc.modelspace()] + [b for b in doc.blocks]:
        for e in layout:
            row = [e.dxftype(), e.dxf.handle, e.dxf.layer, e.dxf.get("linetype", "ByLayer")]
            for attr in ("style", "dimstyle", "style_handle"):
                if e.dxf.is_supported(attr):
                    row.append(e.dxf.get(attr))
            entities.append(tuple(str(v) for v in row))
    out["entities"] = sorted(entities)
    return out


def run(tmp, src, script, out):
    code, stdout, stderr = togu_e2e.run_togu(tmp, script, *([src] if src else []), "-o", out)
    if code != 0:
        raise AssertionError("togu failed (%d): %s\n%s" % (code, stderr, stdout))
    return stdout


class Preved(unittest.TestCase):
    def setUp(self):
        self._tmp = tempfile.TemporaryDirectory()
        self.tmp = self._tmp.name

    def tearDown(self):
        self._tmp.cleanup()

    def test_old_drawing_is_brought_to_the_standard_and_stays_there(self):
        src, out = os.path.join(self.tmp, "stary.dxf"), os.path.join(self.tmp, "out.dxf")
        h = old_drawing(src)
        stdout = run(self.tmp, src, "preved\n", out)
        doc = ezdxf.readfile(out)
        layers = {l.dxf.name: l for l in doc.layers}
        linetypes = {l.dxf.name: l.dxf.handle for l in doc.linetypes}
        styles = {s.dxf.name for s in doc.styles}
        dimstyles = {s.dxf.name: s for s in doc.dimstyles}
        mleaderstyles = dict(doc.rootdict["ACAD_MLEADERSTYLE"].items())

        # Layers: an old name, a catalogue name in another spelling behind a foreign prefix (merged
        # with the first), an old name behind a prefix and a right spelling without prefix stay.
        self.assertEqual(set(layers), {"0", "Defpoints", "TU_kóty", "TU_ZT-voda_SV", "AB_zti-KOTY", "popisy_020"})
        self.assertEqual(layers["TU_kóty"].dxf.handle, h["zti-KOTY"])
        self.assertEqual(layers["TU_kóty"].dxf.color, 4)
        survivor = layers["TU_ZT-voda_SV"].dxf.handle
        self.assertIn(survivor, (h["zti-VODA-SV"], h["XY_ZT-VODA_SV"]))
        self.assertEqual(layers["TU_ZT-voda_SV"].dxf.linetype, "SV")
        self.assertEqual(layers["AB_zti-KOTY"].dxf.linetype, "TUV")
        # The current layer stays when it was renamed; a merged one leaves layer 0 current.
        self.assertEqual(doc.header["$CLAYER"], "TU_ZT-voda_SV" if survivor == h["XY_ZT-VODA_SV"] else "0")

        # Line types: old names take the new ones under their own handles or merge into them.
        self.assertEqual(set(linetypes), {"ByBlock", "ByLayer", "Continuous", "SV", "TUV", "TEČKOVANÁ", "CARKOVANA"})
        self.assertEqual(linetypes["TUV"], h["VODA-TUV"])
        self.assertEqual(linetypes["SV"], h["SV"])
        self.assertEqual(linetypes["TEČKOVANÁ"], h["TECKOVANA"])
        # Their patterns come from the standard's file now.
        self.assertNotEqual(doc.linetypes.get("SV").dxf.description, "stará SV")
        self.assertNotEqual(doc.linetypes.get("TUV").dxf.description, "stará TUV")

        self.assertTrue({"TG_TXT_MALY", "TG_TXT_VELKY"} <= styles)
        self.assertFalse({s for s in styles if s.startswith("TEXT-")})
        self.assertEqual(set(dimstyles), {"Standard", "TG_VODA1", "TG_VODA2", "TG_KANREZ"})
        self.assertEqual(dimstyles["TG_VODA2"].dxf.handle, h["P_VODA1"])
        self.assertEqual(dimstyles["TG_VODA1"].dxf.handle, h["P_VODA2"])
        self.assertEqual(dimstyles["TG_KANREZ"].dxf.handle, h["KANALIZACE"])
        for style in dimstyles.values():
            self.assertIn(style.dxf.dimtxsty, styles)
        self.assertEqual(set(mleaderstyles), {"Standard", "TG_SIPKA", "TG_TECKA"})
        self.assertEqual(mleaderstyles["TG_TECKA"].dxf.handle, h["TG_TECKA"])

        # Merged objects are gone from the file.
        for name in ("ZTI_VODA_TUV", "-VODA-SV-", "KANALIZACE+", "KQ_TECKA", "TEXT-035"):
            self.assertNotIn(h[name], doc.entitydb, name)

        # Current objects handed over to the survivors.
        self.assertEqual(doc.header["$TEXTSTYLE"], "TG_TXT_MALY")
        self.assertEqual(doc.header["$DIMSTYLE"], "TG_KANREZ")
        self.assertEqual(doc.header["$CELTYPE"], "TUV")
        self.assertEqual(current_mleader_style(out), h["TG_TECKA"])

        # Every entity, in model space and in blocks, points at records that exist.
        style_handles = {s.dxf.handle for s in doc.styles}
        layer_keys = {name.lower() for name in layers}
        linetype_keys = {name.lower() for name in linetypes}
        for layout in [doc.modelspace()] + list(doc.blocks):
            for e in layout:
                # Names of records compare without regard to case.
                self.assertIn(e.dxf.layer.lower(), layer_keys, str(e))
                self.assertIn(e.dxf.get("linetype", "ByLayer").lower(), linetype_keys, str(e))
                if e.dxftype() in ("TEXT", "MTEXT"):
                    self.assertIn(e.dxf.style, styles, str(e))
                if e.dxftype() == "DIMENSION":
                    self.assertIn(e.dxf.dimstyle, ("TG_VODA1", "TG_KANREZ"))
                if e.dxftype() == "MULTILEADER":
                    self.assertEqual(e.dxf.style_handle, h["TG_TECKA"])
                    self.assertIn(e.dxf.text_style_handle, style_handles)
        for style in mleaderstyles.values():
            if style.dxf.hasattr("text_style_handle"):
                self.assertIn(style.dxf.text_style_handle, style_handles)
        self.assertIn("Bylo převedeno 3 hladin", stdout)

        # A second run finds nothing to change; the drawing opens and saves to the same bytes.
        again = os.path.join(self.tmp, "again.dxf")
        run(self.tmp, out, "preved\n", again)
        self.assertEqual(summary(ezdxf.readfile(again)), summary(doc))
        same = os.path.join(self.tmp, "same.dxf")
        run(self.tmp, again, "", same)
        with open(again, "rb") as a, open(same, "rb") as b:
            self.assertEqual(a.read(), b.read())

    def test_settings_dialog_converts_what_its_boxes_say(self):
        src, out = os.path.join(self.tmp, "stary.dxf"), os.path.join(self.tmp, "out.dxf")
        old_drawing(src)
        # The dialog first says that the user's catalogue is missing; line types are left out.
        stdout = run(self.tmp, src, "tuset\nok\ncheck 121 off\nclick 131\nok\ncancel\n", out)
        self.assertIn("Vše bylo převedeno", stdout)
        doc = ezdxf.readfile(out)
        self.assertIn("TU_kóty", doc.layers)
        self.assertFalse([s.dxf.name for s in doc.styles if s.dxf.name.startswith("TEXT-")])
        self.assertTrue({"VODA-TUV", "ZTI_VODA_TUV", "TECKOVANA"} <= {l.dxf.name for l in doc.linetypes})

    def test_old_drawing_inserted_as_a_block_is_converted_inside_it(self):
        # The demo's old drawing comes in with its layers and styles, dimension styles included.
        out = os.path.join(self.tmp, "out.dxf")
        old = os.path.join(togu_e2e.SOURCE, "data", "demo", "stary_vykres.dxf")
        run(self.tmp, None, "_INSERT\n%s\n0,0\n\n\n\npreved\n" % old, out)
        doc = ezdxf.readfile(out)
        self.assertEqual({s.dxf.name for s in doc.dimstyles}, {"Standard", "TG_VODA2", "TG_KANREZ"})
        block = doc.blocks.get("stary_vykres")
        self.assertEqual(sorted(e.dxf.dimstyle for e in block.query("DIMENSION")), ["TG_KANREZ", "TG_VODA2"])
        self.assertEqual({e.dxf.layer for e in block}, {"TU_ZT-voda_SV", "TU_osy", "TU_popisy_035", "TU_kóty"})
        self.assertEqual({e.dxf.style for e in block.query("TEXT")}, {"TG_TXT_MALY", "TG_TXT_VELKY"})

    def test_standard_layer_request_offers_the_conversion_of_old_layers(self):
        src, out = os.path.join(self.tmp, "stary.dxf"), os.path.join(self.tmp, "out.dxf")
        doc = ezdxf.new("R2018")
        old = doc.layers.add("zti-KOTY", color=1).dxf.handle
        doc.layers.add("zti-SRAFY")
        doc.saveas(src)
        stdout = run(self.tmp, src, '(togu_nastav_hladinu "kóty")\nyes\n', out)
        self.assertIn('"TU_kóty"', stdout)
        layers = {l.dxf.name: l.dxf.handle for l in ezdxf.readfile(out).layers}
        # The old layer itself became the standard one, and the other old layer went along.
        self.assertEqual(layers.get("TU_kóty"), old)
        self.assertIn("TU_šrafy", layers)
        self.assertNotIn("zti-KOTY", layers)


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
