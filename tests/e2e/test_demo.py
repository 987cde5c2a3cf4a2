#!/usr/bin/env python3
"""The shop window: data/demo.scr run as scripts/demo runs it (a fresh registry, whose first-run
question the script's first line answers, the installation found by togu itself, started in the
source folder); the drawing it saves reads in ezdxf and opens again in togu to the same bytes.

Usage: test_demo.py <path of togu> <source dir>
"""
import os
import subprocess
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e


class Demo(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tmp = tempfile.TemporaryDirectory()
        cls.out = os.path.join(cls.tmp.name, "demo.dxf")
        proc = subprocess.run([togu_e2e.TOGU, "-s", os.path.join(togu_e2e.SOURCE, "data", "demo.scr"),
                               "--registry", os.path.join(cls.tmp.name, "demo-registry"), "-o", cls.out],
                              capture_output=True, timeout=300, cwd=togu_e2e.SOURCE)
        cls.status = proc.returncode
        cls.text = proc.stdout.decode("utf-8")
        cls.err = proc.stderr.decode("utf-8")

    @classmethod
    def tearDownClass(cls):
        cls.tmp.cleanup()

    def test_runs_through_and_saves(self):
        self.assertEqual(self.status, 0, self.err + self.text[-2000:])
        self.assertEqual(self.err, "")
        self.assertTrue(os.path.exists(self.out))

    def test_drawing_reads_in_ezdxf(self):
        doc = ezdxf.readfile(self.out)
        auditor = doc.audit()
        self.assertEqual(len(auditor.errors), 0, [str(e) for e in auditor.errors])
        # The dimension style's arrow is the block the style points at, as the host makes it.
        style = doc.dimstyles.get("TG_VODA1")
        self.assertIsNotNone(style)
        # (ezdxf gives the arrow by the name of the block its 342 points at.)
        self.assertEqual(style.dxf.dimblk, "_Oblique")
        self.assertEqual([e.dxftype() for e in doc.blocks.get("_Oblique")], ["LWPOLYLINE"])

    def test_drawing_opens_again_to_the_same_bytes(self):
        togu_e2e.check_reopens(self.out)


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1], verbosity=2)
