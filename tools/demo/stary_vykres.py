#!/usr/bin/env python3
"""Writes data/demo/stary_vykres.dxf, the demo's drawing of the earlier standard: a water connection
drawn on the old layers (with and without a foreign prefix), with the old line types, text styles and
dimension styles. Needs python3-ezdxf.

Usage: python3 tools/demo/stary_vykres.py [output]
"""
import os
import sys

import ezdxf


def main(path):
    doc = ezdxf.new("R2018")
    doc.header["$INSUNITS"] = 4
    doc.linetypes.add("VODA-SV", [12.0, 10.0, -2.0], description="voda (starý standard)")
    doc.linetypes.add("TECKOVANA", [4.0, 0.0, -4.0], description="tečky (starý standard)")
    for name in ("TEXT-035", "TEXT-NADPIS"):
        doc.styles.add(name, font="arial.ttf")
    for name in ("P_VODA1", "KANALIZACE"):
        style = doc.dimstyles.new(name)
        style.dxf.dimtxsty = "TEXT-035"
        style.dxf.dimtxt = 2.0
    doc.layers.add("zti-VODA-SV", color=5, linetype="VODA-SV")
    doc.layers.add("XY_ZT-VODA_SV", color=4)
    doc.layers.add("zti-KOTY", color=1)
    doc.layers.add("zti-POPISY-035", color=2)
    doc.layers.add("zti-OSY", color=3, linetype="TECKOVANA")

    msp = doc.modelspace()
    msp.add_line((800, 1200), (5200, 1200), dxfattribs={"layer": "zti-VODA-SV"})
    msp.add_line((5200, 1200), (5200, 2600), dxfattribs={"layer": "XY_ZT-VODA_SV"})
    msp.add_line((600, 1000), (600, 3400), dxfattribs={"layer": "zti-OSY"})
    msp.add_text("Přípojka vody DN 100", dxfattribs={"layer": "zti-POPISY-035", "style": "TEXT-035",
                                                     "insert": (1200, 1300), "height": 100})
    msp.add_text("STARÝ VÝKRES", dxfattribs={"layer": "zti-POPISY-035", "style": "TEXT-NADPIS",
                                             "insert": (800, 3600), "height": 200})
    msp.add_linear_dim(base=(800, 900), p1=(800, 1200), p2=(5200, 1200), dimstyle="P_VODA1",
                       dxfattribs={"layer": "zti-KOTY"}).render()
    msp.add_linear_dim(base=(5500, 1200), p1=(5200, 1200), p2=(5200, 2600), angle=90, dimstyle="KANALIZACE",
                       dxfattribs={"layer": "zti-KOTY"}).render()
    doc.header["$CLAYER"] = "zti-VODA-SV"
    doc.header["$TEXTSTYLE"] = "TEXT-035"
    doc.saveas(path)


if __name__ == "__main__":
    here = os.path.dirname(os.path.abspath(__file__))
    main(sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "..", "data", "demo", "stary_vykres.dxf"))
