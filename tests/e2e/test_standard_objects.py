#!/usr/bin/env python3
"""Standard objects created on demand through the AutoLISP functions of the system: layers with the
prefix, dimension, text and multileader styles, the user's own layer; the drawing saved and read back
by ezdxf as an independent reader.

Usage: test_standard_objects.py <path of togu> <source dir>
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

# The first line answers the first-run question of an empty registry.
SCRIPT = """no
(togu_nastav_hladinu "KOTY")
(togu_nastav_hladinu "zt-voda_sv")
(togu_nastav_dimstyl "TG_VODA1")
(togu_nastav_mleaderstyl "TG_TECKA")
(togu_nastav_uziv_hladinu "moje" 3)
(togu_nastav_uziv_hladinu "tenka" 5 "TUV" 18 0)
(togu_nastav_textstyl "tg_txt_velky")
(togu_nastav_hladinu "neni_v_katalogu")
(togu_nastav_dimstyl "NENI")
(togu_nastav_hladinu 5)
"""


def run_togu(script, *args):
    """Runs togu on the script with a fresh registry; gives (exit status, stdout, stderr)."""
    with tempfile.TemporaryDirectory() as tmp:
        path = os.path.join(tmp, "test.scr")
        with open(path, "w", encoding="utf-8") as f:
            f.write(script)
        proc = subprocess.run(
            [TOGU, "-s", path, "--registry", os.path.join(tmp, "registry"), "--install",
             os.path.join(SOURCE, "data"), *args],
            capture_output=True, timeout=60)
        if "-o" in args and os.path.exists(args[args.index("-o") + 1]):
            togu_e2e.check_reopens(args[args.index("-o") + 1])
        return proc.returncode, proc.stdout.decode("utf-8"), proc.stderr.decode("utf-8")


class StandardObjects(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tmp = tempfile.TemporaryDirectory()
        cls.out = os.path.join(cls.tmp.name, "out.dxf")
        cls.status, cls.text, cls.err = run_togu(SCRIPT, "-o", cls.out)
        cls.doc = ezdxf.readfile(cls.out) if os.path.exists(cls.out) else None

    @classmethod
    def tearDownClass(cls):
        cls.tmp.cleanup()

    def setUp(self):
        self.assertEqual(self.status, 0, self.err + self.text[-2000:])
        self.assertIsNotNone(self.doc)

    def test_answers_on_the_command_line(self):
        self.assertIn('Command: (togu_nastav_hladinu "KOTY")\n"TU_kóty"\n', self.text)
        self.assertIn('"TU_ZT-voda_SV"\n', self.text)
        self.assertIn('Command: (togu_nastav_dimstyl "TG_VODA1")\n"TG_VODA1"\n', self.text)
        self.assertIn('Command: (togu_nastav_mleaderstyl "TG_TECKA")\n"TG_TECKA"\n', self.text)
        self.assertIn('Command: (togu_nastav_uziv_hladinu "moje" 3)\n"TU_moje"\n', self.text)
        self.assertIn('"tg_txt_velky"\n', self.text)
        self.assertIn("Hladinu neni_v_katalogu nelze vytvořit !!!", self.text)
        self.assertIn("Dimension Styl NENI nelze vytvořit !!!", self.text)
        self.assertIn("!!!Špatný typ nebo počet argumentů, prototyp funkce je (togu_nastav_hladinu string)",
                      self.text)

    def test_catalogue_layers(self):
        koty = self.doc.layers.get("TU_kóty")
        self.assertEqual(koty.color, 4)
        self.assertEqual(koty.description, "TOGU_2_kóty")
        self.assertEqual(koty.dxf.linetype.lower(), "continuous")
        self.assertEqual(koty.dxf.lineweight, -3)
        self.assertTrue(koty.dxf.plot)
        voda = self.doc.layers.get("TU_ZT-voda_SV")
        self.assertEqual(voda.color, 150)
        self.assertEqual(voda.dxf.linetype, "SV")
        self.assertEqual(voda.dxf.lineweight, 53)
        self.assertEqual(voda.description, "TOGU_1_ZT-voda_SV")
        self.assertIn("SV", self.doc.linetypes)
        self.assertNotIn("TU_neni_v_katalogu", self.doc.layers)

    def test_user_layers(self):
        moje = self.doc.layers.get("TU_moje")
        self.assertEqual(moje.color, 3)
        self.assertEqual(moje.dxf.lineweight, -3)
        self.assertEqual(moje.description, "TOGU_4_moje")
        tenka = self.doc.layers.get("TU_tenka")
        self.assertEqual(tenka.color, 5)
        self.assertEqual(tenka.dxf.linetype, "TUV")
        self.assertEqual(tenka.dxf.lineweight, 18)
        self.assertFalse(tenka.dxf.plot)

    def test_dimension_style_and_its_text_style(self):
        styl = self.doc.dimstyles.get("TG_VODA1")
        self.assertAlmostEqual(styl.dxf.dimlfac, 0.001)
        self.assertAlmostEqual(styl.dxf.dimgap, 0.63)
        self.assertAlmostEqual(styl.dxf.dimtxt, 2.0)
        self.assertAlmostEqual(styl.dxf.dimasz, 2.5)
        self.assertEqual(styl.dxf.dimdec, 3)
        self.assertEqual(styl.dxf.dimjust, 1)
        self.assertEqual(styl.dxf.dimse1, 1)
        self.assertEqual(styl.dxf.dimse2, 1)
        self.assertEqual(styl.dxf.dimsd2, 1)
        self.assertEqual(styl.dxf.dimtad, 1)
        self.assertEqual(styl.dxf.dimtxsty, "TG_TXT_MALY")
        text = self.doc.styles.get("TG_TXT_MALY")
        self.assertEqual(text.dxf.font, "ArialN.ttf")
        self.assertAlmostEqual(text.dxf.height, 0.0)
        self.assertIn("TG_TXT_VELKY", self.doc.styles)

    def test_multileader_style_with_the_dot(self):
        styl = self.doc.mleader_styles.get("TG_TECKA")
        self.assertIsNotNone(styl)
        self.assertAlmostEqual(styl.dxf.arrow_head_size, 0.6)
        self.assertAlmostEqual(styl.dxf.char_height, 2.0)
        self.assertIn("_DOT", self.doc.blocks)
        self.assertEqual(styl.dxf.arrow_head_handle, self.doc.blocks.get("_DOT").block_record.dxf.handle)


if __name__ == "__main__":
    TOGU = os.path.abspath(sys.argv[1])
    SOURCE = os.path.abspath(sys.argv[2])
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1], verbosity=2)
