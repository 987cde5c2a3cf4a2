#!/usr/bin/env python3
"""ss on a host drawing with an external reference: the reference's DXF is rewritten with grey layers,
line type scales multiplied by the factor of both drawings' scales and LTSCALE 1, the old file kept as
the backup; the reference goes to the layer XRefs (at the origin when the user says so) and its
dependent layers in the host turn grey. An ordinary block and a reference whose file is gone leave
the files alone.

Usage: test_ss.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e


def reference_by_ezdxf(path):
    """A reference as another program writes it: LTSCALE 10, two coloured layers, entities in model
    space, in a block and in a layout."""
    doc = ezdxf.new("R2018")
    doc.header["$LTSCALE"] = 10.0
    doc.layers.add("ZDI", color=1, lineweight=50)
    doc.layers.add("OKNA", color=3)
    msp = doc.modelspace()
    msp.add_line((0, 0), (100, 0), dxfattribs={"layer": "ZDI", "ltscale": 0.5})
    msp.add_circle((50, 50), 10, dxfattribs={"layer": "OKNA"})
    doc.blocks.new("DVERE").add_line((0, 0), (1, 1), dxfattribs={"layer": "ZDI", "ltscale": 2.0})
    msp.add_blockref("DVERE", (5, 5))
    doc.layout("Layout1").add_line((0, 0), (10, 0), dxfattribs={"ltscale": 3.0})
    doc.saveas(path)


class Ss(unittest.TestCase):
    def setUp(self):
        self._tmp = tempfile.TemporaryDirectory()
        self.tmp = self._tmp.name

    def tearDown(self):
        self._tmp.cleanup()

    def togu(self, script, *args):
        code, stdout, stderr = togu_e2e.run_togu(self.tmp, script, *args)
        self.assertEqual(code, 0, stderr + stdout)
        return stdout

    def path(self, name):
        return os.path.join(self.tmp, name)

    def host(self, xref="arch.dxf", position=(10, 20), block=None):
        """A host drawing made by togu (its scale list has 1:50), with the reference (or an ordinary
        block) inserted at X scale 2 by ezdxf; gives the insert's handle."""
        self.togu("", "-o", self.path("base.dxf"))
        doc = ezdxf.readfile(self.path("base.dxf"))
        if block:
            doc.blocks.new(block).add_line((0, 0), (1, 0))
            name = block
        else:
            doc.add_xref_def(xref, "ARCH")
            name = "ARCH"
        insert = doc.modelspace().add_blockref(name, position, dxfattribs={"xscale": 2, "yscale": 2, "zscale": 2})
        doc.saveas(self.path("host.dxf"))
        return insert.dxf.handle

    def ss(self, handle, answers=""):
        script = "_SETVAR\nCANNOSCALE\n1:50\nss\n#%s\n%s" % (handle, answers)
        return self.togu(script, self.path("host.dxf"), "-o", self.path("out.dxf"))

    def test_reference_becomes_a_grey_background(self):
        reference_by_ezdxf(self.path("arch.dxf"))
        handle = self.host()
        stdout = self.ss(handle, "yes\n")
        self.assertIn("Bylo změněno 4 hladin a 4 entit v referenci", stdout)

        ref = ezdxf.readfile(self.path("arch.dxf"))
        self.assertEqual(ref.header["$LTSCALE"], 1.0)
        for layer in ref.layers:
            self.assertEqual((layer.dxf.name, layer.dxf.color, layer.dxf.lineweight), (layer.dxf.name, 8, -3))
        # f = X scale 2 x LTSCALE 10 x the host's 1:50 = 0.4; layouts aren't walked.
        scales = sorted(round(e.dxf.ltscale, 9) for e in ref.modelspace())
        self.assertEqual(scales, [0.2, 0.4, 0.4])
        self.assertAlmostEqual(ref.blocks["DVERE"].query("LINE")[0].dxf.ltscale, 0.8)
        self.assertAlmostEqual(ref.layout("Layout1").query("LINE")[0].dxf.ltscale, 3.0)

        backup = ezdxf.readfile(self.path("arch.bak"))
        self.assertEqual(backup.header["$LTSCALE"], 10.0)
        self.assertEqual(backup.layers.get("ZDI").dxf.color, 1)

        host = ezdxf.readfile(self.path("out.dxf"))
        insert = host.entitydb[handle]
        self.assertEqual(insert.dxf.layer, "TU_XRefs")
        self.assertEqual(tuple(insert.dxf.insert), (0, 0, 0))
        self.assertEqual(host.layers.get("TU_XRefs").dxf.color, 8)
        dependent = {l.dxf.name: l.dxf.color for l in host.layers if "|" in l.dxf.name}
        self.assertEqual(dependent, {"ARCH|ZDI": 8, "ARCH|OKNA": 8})

        # Both drawings open again in togu and save to the same bytes.
        for name in ("out.dxf", "arch.dxf"):
            self.togu("", self.path(name), "-o", self.path("again.dxf"))
            with open(self.path(name), "rb") as a, open(self.path("again.dxf"), "rb") as b:
                self.assertEqual(a.read(), b.read(), name)

    def test_no_keeps_the_place_and_the_reference_drawings_own_scale_counts(self):
        # A reference with MSLTSCALE on at 1:100, written by togu.
        self.togu("_SETVAR\nLTSCALE\n10\n_SETVAR\nMSLTSCALE\n1\n_SETVAR\nCANNOSCALE\n1:100\n_LINE\n0,0\n100,0\n\n",
                  "-o", self.path("arch.dxf"))
        handle = self.host()
        self.ss(handle, "no\n")
        # f = 2 x 10 / 0.01 x 0.02 = 40
        self.assertAlmostEqual(ezdxf.readfile(self.path("arch.dxf")).modelspace().query("LINE")[0].dxf.ltscale, 40.0)
        insert = ezdxf.readfile(self.path("out.dxf")).entitydb[handle]
        self.assertEqual(tuple(insert.dxf.insert), (10, 20, 0))
        self.assertEqual(insert.dxf.layer, "TU_XRefs")

    def test_ordinary_block_and_missing_file_leave_the_files_alone(self):
        handle = self.host(block="KRIZ", position=(0, 0))
        stdout = self.ss(handle)
        self.assertIn("To nebyla externí reference, ale prachvobyčejnej blok", stdout)
        self.assertEqual(ezdxf.readfile(self.path("out.dxf")).entitydb[handle].dxf.layer, "0")

        handle = self.host(xref="chybi.dxf", position=(0, 0))
        stdout = self.ss(handle, "ok\n")
        self.assertIn("Nelze vyřešit cestu k Xrefu", stdout)
        # The reference went to its layer before the file was looked for.
        self.assertEqual(ezdxf.readfile(self.path("out.dxf")).entitydb[handle].dxf.layer, "TU_XRefs")
        self.assertFalse([f for f in os.listdir(self.tmp) if f.endswith(".bak")])


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
