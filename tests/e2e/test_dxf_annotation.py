#!/usr/bin/env python3
"""Annotation in drawing files as other programs see them: the current annotation scale, the active
layout, annotative styles and multileader styles that togu makes, and an annotative text with its
scales (as another program wrote it) that survives a load and save by togu.

Usage: test_dxf_annotation.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e
from togu_e2e import run_togu

TOGU = None
SOURCE = None


def scale_names(doc):
    """The scale list by handle: SCALE objects are tag storage for ezdxf."""
    names = {}
    for s in doc.objects.query("SCALE"):
        names[s.dxf.handle] = s.xtags.get_subclass("AcDbScale").get_first_value(300)
    return names


def annotative_flag(entity):
    if not entity.has_xdata("AcadAnnotative"):
        return None
    values = [t.value for t in entity.get_xdata("AcadAnnotative") if t.code == 1070]
    return values[1] == 1


def context_scales(doc, entity):
    """The names of the scales an entity carries through its extension dictionary."""
    if not entity.has_extension_dict:
        return []
    manager = entity.get_extension_dict().dictionary.get("AcDbContextDataManager")
    scales = manager.get("ACDB_ANNOTATIONSCALES")
    names = scale_names(doc)
    out = []
    for key, data in scales.items():
        handle = data.xtags.get_subclass("AcDbAnnotScaleObjectContextData").get_first_value(340)
        out.append(names[handle])
    return sorted(out)


class Annotation(unittest.TestCase):
    def test_scale_layout_and_styles_as_togu_makes_them(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, out, err = run_togu(tmp, "_SETVAR\nCANNOSCALE\n1:50\n_LAYOUT\n_Set\nLayout1\n"
                                             "(togu_nastav_textstyl \"TG_TXT_MALY\")\n"
                                             "(togu_nastav_mleaderstyl \"TG_SIPKA\")\n"
                                             "_SAVEAS\nout.dxf\n")
            self.assertEqual(status, 0, err)
            doc = ezdxf.readfile(os.path.join(tmp, "out.dxf"))
            self.assertEqual(doc.audit().errors, [])
            self.assertEqual(doc.header["$CANNOSCALE"], "1:50")
            self.assertEqual(doc.header["$TILEMODE"], 0)
            self.assertIn("1:50", scale_names(doc).values())
            self.assertEqual([(l.name, l.dxf.taborder) for l in doc.layouts], [("Model", 0), ("Layout1", 1)])
            self.assertTrue(annotative_flag(doc.styles.get("TG_TXT_MALY")))
            style = doc.mleader_styles.get("TG_SIPKA")
            self.assertIsNotNone(style)
            self.assertEqual(style.dxf.char_height, 2.0)
            self.assertEqual(style.dxf.text_left_attachment_type, 2)
            self.assertEqual(style.dxf.text_right_attachment_type, 2)
            self.assertEqual(style.dxf.leader_type, 1)
            self.assertEqual(style.dxf.is_annotative, 1)
            self.assertEqual(doc.entitydb[style.dxf.text_style_handle].dxf.name, "TG_TXT_MALY")

    def test_an_annotative_text_of_another_program_survives(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, _, err = run_togu(tmp, "_SAVEAS\nnew.dxf\n")
            self.assertEqual(status, 0, err)
            # Another program makes a text annotative with the scales 1:50 and 1:100.
            doc = ezdxf.readfile(os.path.join(tmp, "new.dxf"))
            by_name = {name: handle for handle, name in scale_names(doc).items()}
            doc.appids.new("AcadAnnotative")
            text = doc.modelspace().add_mtext("DN 100")
            text.set_xdata("AcadAnnotative", [(1000, "AnnotativeData"), (1002, "{"), (1070, 1), (1070, 1), (1002, "}")])
            manager = text.new_extension_dict().dictionary.add_new_dict("AcDbContextDataManager", hard_owned=True)
            scales = manager.add_new_dict("ACDB_ANNOTATIONSCALES", hard_owned=True)
            placeholders = {}
            for n, name in enumerate(["1:50", "1:100"], 1):
                record = scales.add_xrecord("*A%d" % n)
                record.reset([(70, 3), (290, 1 if n == 1 else 0), (340, by_name[name])])
                placeholders[record.dxf.handle] = by_name[name]
            text_handle = text.dxf.handle
            path = os.path.join(tmp, "annotative.dxf")
            doc.saveas(path)
            # ezdxf writes xrecords; the host's records are context data objects.
            with open(path, encoding="utf-8") as f:
                lines = f.read().split("\n")
            pairs = [(int(lines[i]), lines[i + 1]) for i in range(0, len(lines) - 1, 2)]
            out, i = [], 0
            while i < len(pairs):
                if pairs[i] == (0, "XRECORD") and pairs[i + 1][1] in placeholders:
                    j = i + 1
                    while pairs[j][0] != 0:
                        j += 1
                    record = pairs[i + 1:j]
                    head = [p for p in record if p[0] in (5, 102, 330)]
                    body = {code: value for code, value in record if code in (290, 340)}
                    out += [(0, "ACDB_MTEXTOBJECTCONTEXTDATA_CLASS")] + head + [
                        (100, "AcDbObjectContextData"), (70, "3"), (290, body[290]),
                        (100, "AcDbAnnotScaleObjectContextData"), (340, body[340])]
                    i = j
                else:
                    out.append(pairs[i])
                    i += 1
            with open(path, "w", encoding="utf-8") as f:
                f.write("".join("%d\n%s\n" % p for p in out))

            status, _, err = run_togu(tmp, "_SAVEAS\nback.dxf\n", "annotative.dxf")
            self.assertEqual(status, 0, err)
            back = ezdxf.readfile(os.path.join(tmp, "back.dxf"))
            self.assertEqual(back.audit().errors, [])
            text = back.entitydb[text_handle]
            self.assertTrue(annotative_flag(text))
            self.assertEqual(context_scales(back, text), ["1:100", "1:50"])
            data = back.objects.query("ACDB_MTEXTOBJECTCONTEXTDATA_CLASS")
            self.assertEqual(len(data), 2)
            self.assertIn("ACDB_MTEXTOBJECTCONTEXTDATA_CLASS", [c.dxf.name for c in back.classes])


if __name__ == "__main__":
    TOGU = os.path.abspath(sys.argv[1])
    SOURCE = os.path.abspath(sys.argv[2])
    togu_e2e.configure([None, TOGU, SOURCE])
    unittest.main(argv=sys.argv[:1])
