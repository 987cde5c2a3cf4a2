#!/usr/bin/env python3
"""The five whole-drawing commands on a drawing that ezdxf builds: kub repairs broken Czech letters of
MText everywhere, z0 brings entities to Z 0, ssa and lt1 change line type scales (and the ByLayer
switches), SMAZTEXTY erases texts of model space that contain a text but leaves hidden layers alone.
Each checks the saved drawing in ezdxf and the walker's report line.

Usage: test_walker_commands.py <path of togu> <source dir>
"""
import os
import subprocess
import sys
import tempfile
import unittest

import ezdxf
from ezdxf.math import Vec2
from ezdxf.render import mleader

import togu_e2e

TOGU = None
SOURCE = None

BROKEN = "Cesta \u00e8. 5 a \u010d \u00c8\u00ec\u00f8\u00ef\u008d\u009d\u00f9 caf\u00e9"
REPAIRED = "Cesta \u010d. 5 a \u010d \u010c\u011b\u0159\u010f\u0164\u0165\u016f caf\u00e9"


def report(changed, failed, opened):
    return "Změněno %i entit, nešlo změnit %i entit (celkem otevřeno %i entit)" % (changed, failed, opened)


def drawing(path):
    """Model space: 3 MText, 2 texts, 3 lines, a circle, a polyline, a block reference, a multileader
    (12 entities, 2 of them on hidden layers). Paper space: 1 MText, 1 line. Block KRIZ: 1 MText,
    1 text, 1 line."""
    doc = ezdxf.new("R2018")
    doc.header["$INSUNITS"] = 4
    doc.header["$LTSCALE"] = 2.0
    doc.layers.add("ZMRAZENA").freeze()
    doc.layers.add("VYPNUTA").off()
    msp = doc.modelspace()
    msp.add_mtext(BROKEN, dxfattribs={"insert": (0, 0, 0)})
    msp.add_mtext("šachta SMAZ", dxfattribs={"insert": (0, 10, 4)})
    msp.add_mtext("SMAZ skrytá", dxfattribs={"insert": (0, 20, 0), "layer": "ZMRAZENA"})
    msp.add_text("SMAZ text", dxfattribs={"insert": (0, 30, 0), "color": 1})
    msp.add_text("SMAZ vypnutá", dxfattribs={"insert": (0, 40, 0), "layer": "VYPNUTA"})
    msp.add_line((0, 0, 0), (10, 0, 0), dxfattribs={"ltscale": 0.5, "color": 3, "lineweight": 50})
    msp.add_line((0, 0, 0), (10, 0, 7.5), dxfattribs={"ltscale": 3.0})
    msp.add_line((0, 0, 1), (10, 0, 2), dxfattribs={"color": 5})
    msp.add_circle((5, 5, 3), 2)
    msp.add_lwpolyline([(0, 0), (5, 0), (5, 5)], dxfattribs={"elevation": 2.5})
    block = doc.blocks.new("KRIZ")
    block.add_mtext("\u00d8ez v bloku SMAZ")
    block.add_text("SMAZ v bloku")
    block.add_line((0, 0, 0), (1, 1, 4))
    msp.add_blockref("KRIZ", (20, 20, 6))
    leader = msp.add_multileader_mtext("Standard")
    leader.set_content("SMAZ odkaz")
    leader.add_leader_line(mleader.ConnectionSide.left, [Vec2(40, 40)])
    leader.build(insert=Vec2(50, 50))
    psp = doc.layout("Layout1")
    psp.add_mtext("Pap\u00edr \u00f8", dxfattribs={"insert": (10, 10, 0)})
    psp.add_line((0, 0, 0), (100, 0, 0))
    doc.saveas(path)


def run_togu(tmp, script):
    src = os.path.join(tmp, "in.dxf")
    out = os.path.join(tmp, "out.dxf")
    drawing(src)
    scr = os.path.join(tmp, "test.scr")
    with open(scr, "w", encoding="utf-8") as f:
        # The first run asks whether to open the settings: no.
        f.write("no\n" + script)
    proc = subprocess.run([TOGU, src, "-s", scr, "-o", out, "--registry", os.path.join(tmp, "registry"),
                           "--install", os.path.join(SOURCE, "data")], capture_output=True, timeout=120)
    stdout = proc.stdout.decode("utf-8")
    if proc.returncode != 0:
        raise AssertionError("togu failed (%d): %s\n%s" % (proc.returncode, proc.stderr.decode("utf-8"), stdout))
    togu_e2e.check_reopens(out)
    return ezdxf.readfile(out), stdout


def by_text(layout, kind):
    return {e.text if kind == "MTEXT" else e.dxf.text: e for e in layout.query(kind)}


class WalkerCommands(unittest.TestCase):
    def test_kub_repairs_mtext_in_all_spaces_and_blocks(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run_togu(tmp, "kub\n")
        # Every MText counts as changed: 3 in model space, 1 on paper, 1 in the block.
        self.assertIn(report(5, 0, 17), out)
        texts = [e.text for e in doc.modelspace().query("MTEXT")]
        self.assertIn(REPAIRED, texts)
        self.assertIn("šachta SMAZ", texts)
        self.assertEqual([e.text for e in doc.layout("Layout1").query("MTEXT")], ["Pap\u00edr \u0159"])
        self.assertEqual([e.text for e in doc.blocks.get("KRIZ").query("MTEXT")], ["\u0158ez v bloku SMAZ"])

    def test_z0_flattens(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run_togu(tmp, "_z0\n")
        msp = doc.modelspace()
        # Changed: the MText at Z 4, two lines, circle, polyline, reference, the line in the block.
        self.assertIn(report(7, 0, 17), out)
        for line in msp.query("LINE"):
            self.assertEqual(line.dxf.start.z, 0.0)
            self.assertEqual(line.dxf.end.z, 0.0)
        self.assertEqual(msp.query("CIRCLE")[0].dxf.center.z, 0.0)
        self.assertEqual(msp.query("LWPOLYLINE")[0].dxf.elevation, 0.0)
        self.assertEqual(msp.query("INSERT")[0].dxf.insert.z, 0.0)
        self.assertTrue(all(m.dxf.insert.z == 0.0 for m in msp.query("MTEXT")))
        line = doc.blocks.get("KRIZ").query("LINE")[0]
        self.assertEqual((line.dxf.end.x, line.dxf.end.y, line.dxf.end.z), (1.0, 1.0, 0.0))

    def test_local_name_jur_runs_z0(self):
        # z0 is the global name (typed "_z0"); its local name is jur.
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run_togu(tmp, "jur\n")
        self.assertIn(report(7, 0, 17), out)

    def test_ssa_twice_by_two_is_four_times(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run_togu(tmp, "ssa\n2\nssa\n2\n")
        self.assertIn("Zadej modifikátor pro úpravu měřítka typu čar:", out)
        self.assertEqual(out.count(report(17, 0, 17)), 2)
        lines = sorted(doc.modelspace().query("LINE"), key=lambda e: e.dxf.end.z)
        self.assertEqual([line.dxf.ltscale for line in lines], [2.0, 4.0, 12.0])
        # The default switches: colour and line weight by layer, the line type stays.
        self.assertTrue(all(line.dxf.color == 256 for line in lines))
        self.assertTrue(all(line.dxf.lineweight == -1 for line in lines))
        self.assertEqual(doc.blocks.get("KRIZ").query("LINE")[0].dxf.ltscale, 4.0)
        self.assertEqual(doc.header["$LTSCALE"], 2.0)

    def test_ssa_cancelled_changes_nothing(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run_togu(tmp, "ssa\n^C\n")
        self.assertNotIn("Změněno", out)
        self.assertEqual(sorted(e.dxf.ltscale for e in doc.modelspace().query("LINE")), [0.5, 1.0, 3.0])

    def test_lt1_sets_scales_to_one(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run_togu(tmp, "_SETVAR\nMSLTSCALE\n0\nlt1\n")
        self.assertIn("Nastavuji LTScale na 1, MSLTScale na 1", out)
        self.assertIn(report(17, 0, 17), out)
        self.assertEqual(doc.header["$LTSCALE"], 1.0)
        self.assertEqual(doc.header["$MSLTSCALE"], 1)
        for e in doc.modelspace():
            self.assertEqual(e.dxf.ltscale, 1.0, e.dxftype())
        self.assertEqual(doc.modelspace().query("TEXT")[0].dxf.color, 256)

    def test_smaztexty_erases_visible_texts_of_model_space(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run_togu(tmp, "SMAZTEXTY\nSMAZ\n")
        self.assertIn("Zadej text - všechny entity obsahující zadaný text budou smazány (pouze viditelné texty): ", out)
        # Three erased (text, MText, multileader), the two on hidden layers not changed, of the 12
        # entities of model space.
        self.assertIn(report(3, 2, 12), out)
        msp = doc.modelspace()
        self.assertEqual(sorted(by_text(msp, "MTEXT")), sorted([BROKEN, "SMAZ skrytá"]))
        self.assertEqual(list(by_text(msp, "TEXT")), ["SMAZ vypnutá"])
        self.assertEqual(len(msp.query("MULTILEADER")), 0)
        self.assertEqual(len(doc.blocks.get("KRIZ").query("MTEXT TEXT")), 2)

    def test_smaztexty_keeps_blanks_and_case(self):
        with tempfile.TemporaryDirectory() as tmp:
            doc, out = run_togu(tmp, "SMAZTEXTY\nšachta SMAZ\nSMAZTEXTY\nsmaz text\n")
        self.assertIn(report(1, 2, 12), out)
        self.assertIn(report(0, 2, 11), out)
        self.assertEqual(len(doc.modelspace().query("TEXT")), 2)


if __name__ == "__main__":
    TOGU = sys.argv[1]
    SOURCE = sys.argv[2]
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
