#!/usr/bin/env python3
"""Sheet frames: ram draws an A1 frame as a block of its own with the label, the parameter code and
the folding marks on the modules counted from the lower right corner; Enter edits the only frame,
a pick one of several; an edit builds a new block and erases the old definition only when nothing
else shows it; a double click opens a frame in its dialog and attributes in the in-place editor.
Every saved drawing opens again in togu and saves to the same bytes.

Usage: test_ram.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e

A1 = """ram
N
set 259 841
set 111 594
set 208 6
set 232 6
check 136 on
check 226 on
ok
"""


def frames(doc):
    return sorted(b.name for b in doc.blocks if "TOGU_RAMECEK" in b.name.upper())


def attdefs(block):
    return {e.dxf.tag: e for e in block if e.dxftype() == "ATTDEF"}


def spikes(poly):
    """The tips of the folding marks: the middle vertex of each out-and-back triple."""
    v = [tuple(round(c, 3) for c in p.dxf.location)[:2] for p in poly.vertices]
    return [v[i] for i in range(1, len(v) - 1) if v[i - 1] == v[i + 1] and v[i] != v[i - 1]]


class Ram(unittest.TestCase):
    def run_ok(self, tmp, script, *args):
        code, out, err = togu_e2e.run_togu(tmp, script, *args)
        self.assertEqual(code, 0, out[-3000:] + err)
        return out

    def assert_reopens_same(self, tmp, path):
        again = os.path.join(tmp, "again.dxf")
        self.run_ok(tmp, "", path, "-o", again)
        with open(path, "rb") as a, open(again, "rb") as b:
            self.assertEqual(a.read(), b.read(), "togu saves its own drawing differently")

    def test_a1_frame(self):
        with tempfile.TemporaryDirectory() as tmp:
            out_path = os.path.join(tmp, "out.dxf")
            svg = os.path.join(tmp, "out.svg")
            self.run_ok(tmp, A1, "-o", out_path, "--svg", svg)
            doc = ezdxf.readfile(out_path)
            self.assertEqual(frames(doc), ["TOGU_RAMECEK_0"])
            block = doc.blocks.get("TOGU_RAMECEK_0")
            self.assertEqual([e.dxftype() for e in block], ["POLYLINE", "POLYLINE", "ATTDEF", "ATTDEF"])
            a = attdefs(block)
            self.assertEqual(a["PARAM_RAM"].dxf.text, "00Q900II0006000611")
            self.assertTrue(a["PARAM_RAM"].is_const and a["PARAM_RAM"].is_invisible)
            self.assertEqual(a["POP_RAM"].dxf.text, "841 x 594 - 8 A4")
            self.assertTrue(a["POP_RAM"].is_const)
            self.assertFalse(a["POP_RAM"].is_invisible)
            self.assertEqual(a["POP_RAM"].dxf.style, "TG_TXT_MALY")
            self.assertEqual(tuple(a["POP_RAM"].dxf.align_point)[:2], (-5.0, 1.5))
            outer, inner = [e for e in block if e.dxftype() == "POLYLINE"]
            self.assertTrue(outer.is_closed)
            self.assertEqual(spikes(outer), [
                (-210.25, 6), (-420.5, 6), (-630.75, 6),          # bottom, from the right corner
                (-835, 297),                                       # left
                (-841, 588), (-630.75, 588), (-420.5, 588), (-210.25, 588),  # top, over the bottom ones
                (-6, 594), (-6, 297)])                             # right, downwards
            self.assertEqual([tuple(p.dxf.location)[:2] for p in inner.vertices],
                             [(-6, 6), (-6, 588), (-835, 588), (-835, 6)])
            refs = doc.modelspace().query("INSERT")
            self.assertEqual(len(refs), 1)
            self.assertEqual(tuple(refs[0].dxf.insert), (0, 0, 0))
            self.assertTrue(refs[0].dxf.layer.endswith("rámeček"), refs[0].dxf.layer)
            self.assertEqual(len(refs[0].attribs), 0)  # constant attributes live in the definition
            with open(svg, encoding="utf-8") as f:
                self.assertIn("841 x 594 - 8 A4", f.read())
            self.assert_reopens_same(tmp, out_path)

    def test_enter_edits_the_only_frame_and_cancel_changes_nothing(self):
        with tempfile.TemporaryDirectory() as tmp:
            first = os.path.join(tmp, "first.dxf")
            self.run_ok(tmp, A1.replace("N\n", "100,50\n"), "-o", first)
            kept = os.path.join(tmp, "kept.dxf")
            out = self.run_ok(tmp, "ram\n\ncancel\n", first, "-o", kept)
            self.assertIn("259 pole [841]", out)
            self.assertEqual(frames(ezdxf.readfile(kept)), ["TOGU_RAMECEK_0"])

            edited = os.path.join(tmp, "edited.dxf")
            self.run_ok(tmp, "ram\n\nset 259 594\nset 111 420\ncheck 226 off\nok\n", first, "-o", edited)
            doc = ezdxf.readfile(edited)
            self.assertEqual(frames(doc), ["TOGU_RAMECEK_1"])
            ref = doc.modelspace().query("INSERT")[0]
            self.assertEqual((ref.dxf.name, tuple(ref.dxf.insert)), ("TOGU_RAMECEK_1", (100, 50, 0)))
            block = doc.blocks.get("TOGU_RAMECEK_1")
            self.assertEqual(attdefs(block)["PARAM_RAM"].dxf.text, "00II00D40006000610")
            self.assertEqual(attdefs(block)["POP_RAM"].dxf.text, "594 x 420 - 6 A4")
            self.assertEqual(len(block.query("POLYLINE")), 1)
            self.assert_reopens_same(tmp, edited)

    def test_a_shared_definition_stays(self):
        with tempfile.TemporaryDirectory() as tmp:
            out_path = os.path.join(tmp, "out.dxf")
            out = self.run_ok(tmp, A1 + "_INSERT\nTOGU_RAMECEK_0\n2000,0\n1\n1\n0\n"
                              "ram\nN\nset 259 420\nset 111 297\nok\n"
                              "ram\n\n-600,0\nset 259 1188\nset 111 841\nok\n", "-o", out_path)
            self.assertIn("Vyber rámeček:", out)
            doc = ezdxf.readfile(out_path)
            self.assertEqual(frames(doc), ["TOGU_RAMECEK_0", "TOGU_RAMECEK_1", "TOGU_RAMECEK_2"])
            names = sorted((r.dxf.name, tuple(r.dxf.insert)[:2]) for r in doc.modelspace().query("INSERT"))
            self.assertEqual(names, [("TOGU_RAMECEK_0", (2000, 0)), ("TOGU_RAMECEK_1", (0, 0)),
                                     ("TOGU_RAMECEK_2", (0, 0))])
            self.assertEqual(attdefs(doc.blocks.get("TOGU_RAMECEK_2"))["POP_RAM"].dxf.text, "1188 x 841 - 18 A4")

    def test_scale_follows_the_annotation_scale_in_model_space_only(self):
        with tempfile.TemporaryDirectory() as tmp:
            out_path = os.path.join(tmp, "out.dxf")
            frame = "ram\nN\nset 259 420\nset 111 297\nok\n"
            self.run_ok(tmp, "_SETVAR\nCANNOSCALE\n1:50\n" + frame + "_SETVAR\nTILEMODE\n0\n" + frame,
                        "-o", out_path)
            doc = ezdxf.readfile(out_path)
            self.assertEqual([r.dxf.xscale for r in doc.modelspace().query("INSERT")], [50])
            self.assertEqual([r.dxf.xscale for r in doc.layout("Layout1").query("INSERT")], [1])

    def test_double_click_rebuilds_a_frame(self):
        with tempfile.TemporaryDirectory() as tmp:
            out_path = os.path.join(tmp, "out.dxf")
            out = self.run_ok(tmp, A1 + "@dblclick 5000,5000\n@dblclick -400,0\ncancel\n"
                              "@dblclick -400,0\nset 259 420\nset 111 297\nok\n", "-o", out_path)
            self.assertEqual(out.count("[Togovy Utility pro AutoCad] ukončen"), 3)  # ram, cancel, ok
            doc = ezdxf.readfile(out_path)
            self.assertEqual(frames(doc), ["TOGU_RAMECEK_1"])
            self.assertEqual(attdefs(doc.blocks.get("TOGU_RAMECEK_1"))["PARAM_RAM"].dxf.text, "00D4009900060006" + "11")
            self.assert_reopens_same(tmp, out_path)


def attribute_drawing(path):
    """A block with a single-line and a multi-line attribute, inserted once."""
    doc = ezdxf.new("R2018")
    doc.header["$INSUNITS"] = 4
    block = doc.blocks.new("ZNACKA")
    block.add_line((0, 0), (10, 0))
    block.add_attdef("JEDNA", (0, 20), dxfattribs={"height": 5})
    block.add_attdef("VICE", (0, 40), dxfattribs={"height": 5})
    ref = doc.modelspace().add_blockref("ZNACKA", (0, 0))
    ref.add_attrib("JEDNA", "jednořádkový", (0, 20), dxfattribs={"height": 5})
    multi = ref.add_attrib("VICE", "x", (0, 40), dxfattribs={"height": 5})
    mtext = doc.modelspace().add_mtext("víceřádkový", dxfattribs={"insert": (0, 40), "char_height": 5})
    multi.embed_mtext(mtext)
    doc.saveas(path)


def attribute_texts(path):
    ref = ezdxf.readfile(path).modelspace().query("INSERT")[0]
    out = {}
    for a in ref.attribs:
        out[a.dxf.tag] = a.virtual_mtext_entity().text if a.has_embedded_mtext_entity else a.dxf.text
    return out


class Attributes(unittest.TestCase):
    def run_ok(self, tmp, script, *args):
        code, out, err = togu_e2e.run_togu(tmp, script, *args)
        self.assertEqual(code, 0, out[-3000:] + err)
        return out

    def test_multi_line_attribute_in_place_single_line_left_to_the_host(self):
        with tempfile.TemporaryDirectory() as tmp:
            src = os.path.join(tmp, "in.dxf")
            attribute_drawing(src)
            out_path = os.path.join(tmp, "out.dxf")
            out = self.run_ok(tmp, "@dblclick 5,41\nnový text\n@dblclick 5,21\n@dblclick 5,0\n", src, "-o", out_path)
            self.assertEqual(out.count("Edit text <"), 1, out)
            self.assertEqual(attribute_texts(out_path), {"JEDNA": "jednořádkový", "VICE": "nový text"})

    def test_single_line_attribute_with_its_switch(self):
        with tempfile.TemporaryDirectory() as tmp:
            src = os.path.join(tmp, "in.dxf")
            attribute_drawing(src)
            os.makedirs(os.path.join(tmp, "registry"))
            with open(os.path.join(tmp, "registry", "user.reg"), "w", encoding="utf-8") as f:
                # the default switches and ".....i jednořádkové atributy"
                f.write("Windows Registry Editor Version 5.00\n\n"
                        "[HKEY_CURRENT_USER\\Software\\Togvarnik\\Togovy Utility\\Nastaveni]\n"
                        "\"Glob_prepinace\"=hex:78,01\n\"NASTAVENO\"=hex:00\n")
            out_path = os.path.join(tmp, "out.dxf")
            self.run_ok(tmp, "@dblclick 5,21\njiný\n", src, "-o", out_path)
            self.assertEqual(attribute_texts(out_path)["JEDNA"], "jiný")


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
