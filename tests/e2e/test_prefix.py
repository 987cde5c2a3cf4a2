#!/usr/bin/env python3
"""The layer prefix through the console: a drawing made by ezdxf with layers of prefix AB and that
prefix stored in the drawing; a standard layer asked for by AutoLISP opens the prefix dialog, which the
script answers; ezdxf reads back the renamed and merged layers.

Usage: test_prefix.py <path of togu> <source dir>
"""
import os
import subprocess
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e

TOGU = None
SOURCE = None


def drawing_with_prefix(path):
    doc = ezdxf.new("R2018")
    for name in ("AB_kóty", "TU_kóty", "AB_osy", "XY_terén", "QQ_KOTY"):
        doc.layers.add(name)
    msp = doc.modelspace()
    msp.add_line((0, 0), (10, 0), dxfattribs={"layer": "AB_kóty"})
    msp.add_line((0, 5), (10, 5), dxfattribs={"layer": "XY_terén"})
    store = doc.rootdict.add_new_dict("TOGUTILS")
    record = store.add_xrecord("TOGVARNIK_PREDPONA")
    record.reset([(1, "AB")])
    doc.saveas(path)


def run_togu(tmp, script, drawing, out):
    path = os.path.join(tmp, "test.scr")
    with open(path, "w", encoding="utf-8") as f:
        f.write(script)
    proc = subprocess.run(
        [TOGU, drawing, "-s", path, "-o", out, "--registry", os.path.join(tmp, "registry"),
         "--install", os.path.join(SOURCE, "data")],
        capture_output=True, timeout=60)
    if os.path.exists(out):
        togu_e2e.check_reopens(out)
    return proc.returncode, proc.stdout.decode("utf-8"), proc.stderr.decode("utf-8")


class Prefix(unittest.TestCase):
    def test_dialog_renames_and_merges(self):
        with tempfile.TemporaryDirectory() as tmp:
            src, out = os.path.join(tmp, "in.dxf"), os.path.join(tmp, "out.dxf")
            drawing_with_prefix(src)
            status, text, err = run_togu(
                tmp, 'no\n(togu_nastav_hladinu "kóty")\ncheck 3016 on\nok\n', src, out)
            self.assertEqual(status, 0, text + err)
            self.assertIn("[Nastavení předpon hladin]", text)
            self.assertIn("3010 pole [AB]", text)
            self.assertIn("3012 pole [TU]", text)
            self.assertIn("3020 strom: [ ] XY", text)
            self.assertIn('"TU_kóty"', text)
            doc = ezdxf.readfile(out)
            names = {layer.dxf.name for layer in doc.layers}
            self.assertNotIn("AB_kóty", names)
            self.assertIn("TU_kóty", names)
            self.assertIn("TU_osy", names)
            self.assertIn("TU_terén", names)
            self.assertIn("QQ_KOTY", names)
            layers = sorted(e.dxf.layer for e in doc.modelspace().query("LINE"))
            self.assertEqual(layers, ["TU_kóty", "TU_terén"])

    def test_cancel_keeps_the_drawing(self):
        with tempfile.TemporaryDirectory() as tmp:
            src, out = os.path.join(tmp, "in.dxf"), os.path.join(tmp, "out.dxf")
            drawing_with_prefix(src)
            status, text, err = run_togu(tmp, 'no\n(togu_nastav_hladinu "kóty")\ncancel\n', src, out)
            self.assertEqual(status, 0, text + err)
            self.assertIn('"AB_kóty"', text)
            names = {layer.dxf.name for layer in ezdxf.readfile(out).layers}
            self.assertIn("AB_kóty", names)
            self.assertIn("AB_osy", names)

    def test_do_not_ask_again(self):
        # The drawing's prefix chosen and "Příště se neptat" ticked: the next request asks nothing.
        with tempfile.TemporaryDirectory() as tmp:
            src, out = os.path.join(tmp, "in.dxf"), os.path.join(tmp, "out.dxf")
            drawing_with_prefix(src)
            script = ('no\n(togu_nastav_hladinu "kóty")\ncheck 3013 on\ncheck 3019 on\nok\n'
                      '(togu_nastav_hladinu "osy")\n')
            status, text, err = run_togu(tmp, script, src, out)
            self.assertEqual(status, 0, text + err)
            self.assertEqual(text.count("[Nastavení předpon hladin]\n"), 1, text)
            self.assertIn('"AB_kóty"', text)
            self.assertIn('"AB_osy"', text)
            names = {layer.dxf.name for layer in ezdxf.readfile(out).layers}
            self.assertIn("AB_osy", names)
            self.assertNotIn("TU_osy", names)


if __name__ == "__main__":
    TOGU, SOURCE = sys.argv[1], sys.argv[2]
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
