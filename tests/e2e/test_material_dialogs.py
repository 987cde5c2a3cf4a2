#!/usr/bin/env python3
"""The pipe catalogue through its dialogs at the console, as a new user meets it: the first run's Yes
opens the settings dialog, the editor adds a material with a generated series and an edited cell, the
picker makes it current; the user's catalogue file reads back equal, the drawing keeps the choice for
the next run, and a damaged catalogue file is reported and leaves the list as it was read.

Usage: test_material_dialogs.py <path of togu> <source dir>
"""
import csv
import io
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e

NAME = "AA Moje PPR"

FIRST_RUN = f"""yes
ok
click 128
click 11066
set 11084 {NAME}
set 11070 Togu
select 11073 3
select 11074 2
click 11082
click 11085
select 11057 3
select 11045 8
ok
edit 4100 2 1 33
ok
click 126
dblclick 11063 0
ok
"""


def export(path, tmp):
    """The catalogue as CSV rows (togu's own export), without the header."""
    out = os.path.join(tmp, "export.csv")
    proc = subprocess.run([togu_e2e.TOGU, "--catalogue-export", path, out], capture_output=True, timeout=60)
    assert proc.returncode == 0, proc.stderr.decode("utf-8")
    with open(out, encoding="utf-8-sig") as f:
        return list(csv.reader(io.StringIO(f.read()), delimiter=";"))[1:]


def stored_material(dxf):
    """The current material stored in the drawing (group Koty of the dictionary TOGUTILS)."""
    doc = ezdxf.readfile(dxf)
    store = doc.rootdict["TOGUTILS"]
    return {key: store[key].tags[0].value for key in ("Koty_CurMat", "Koty_CurMatPN", "Koty_CurMatSDR")}


class MaterialDialogs(unittest.TestCase):
    def first_run(self, tmp):
        out = os.path.join(tmp, "out.dxf")
        status, text, err = togu_e2e.run_togu(tmp, FIRST_RUN, "-o", out, first_run="")
        self.assertEqual(status, 0, text + err)
        return out, text

    def test_editor_picker_and_the_drawing(self):
        with tempfile.TemporaryDirectory() as tmp:
            out, text = self.first_run(tmp)
            # Yes opened the settings dialog; the missing user catalogue came from the standard one.
            self.assertIn("Spustit dialog nastavení Utilit?\n[Ano/Ne] <Ano>: yes\n", text)
            self.assertIn("Bude načten standardní soubor", text)
            self.assertIn("[Editace materiálů]", text)
            self.assertIn("    2 >33x4.4 | [33] | 4.44 | 24.1 | DN 25 | 24\n", text)
            self.assertIn(f"151 pole [{NAME}] (jen pro čtení)\n", text)

            # The user's catalogue holds the material with DN 15 to DN 50 and the edited cell.
            user = os.path.join(tmp, "registry", "data", "Materialy", "Potrubi_2026.tgp")
            rows = [r for r in export(user, tmp) if r[0] == NAME]
            self.assertEqual([r[13] for r in rows], ["DN 15", "DN 20", "DN 25", "DN 32", "DN 40", "DN 50"])
            dn25 = rows[2]
            self.assertAlmostEqual(float(dn25[14]) + 2 * float(dn25[15]), 33.0, places=4)
            self.assertEqual(rows[0][2], "Togu")
            # It reads back equal: imported from its export it is the same bytes.
            again = os.path.join(tmp, "again.tgp")
            subprocess.run([togu_e2e.TOGU, "--catalogue-import", os.path.join(tmp, "export.csv"), again],
                           check=True, capture_output=True, timeout=60)
            with open(user, "rb") as a, open(again, "rb") as b:
                self.assertEqual(a.read(), b.read())

            # The drawing stores the choice; the next run on it has the material current.
            self.assertEqual(stored_material(out), {"Koty_CurMat": NAME, "Koty_CurMatPN": 3, "Koty_CurMatSDR": 2})
            out2 = os.path.join(tmp, "out2.dxf")
            status, text, err = togu_e2e.run_togu(tmp, "tuset\ncancel\n", out, "-o", out2, first_run="")
            self.assertEqual(status, 0, text + err)
            self.assertNotIn("V databázi materiálů", text)
            self.assertIn(f"151 pole [{NAME}] (jen pro čtení)\n", text)
            with open(out, "rb") as a, open(out2, "rb") as b:
                self.assertEqual(a.read(), b.read(), "the reopened drawing saves to the same bytes")

    def test_damaged_catalogue_keeps_what_was_read(self):
        with tempfile.TemporaryDirectory() as tmp:
            self.first_run(tmp)
            user = os.path.join(tmp, "registry", "data", "Materialy", "Potrubi_2026.tgp")
            with open(user, "rb") as f:
                whole = f.read()
            with open(user, "wb") as f:
                f.write(whole[: len(whole) * 2 // 3])
            status, text, err = togu_e2e.run_togu(tmp, "tuset\nok\nclick 126\ncancel\ncancel\n", first_run="")
            self.assertEqual(status, 0, text + err)
            self.assertIn("[Neočekávaná výjimka] Chyba při čtení ze souboru", text)
            # The materials read before the damage are there; the first one is the user's default.
            self.assertIn(f"151 pole [{NAME}] (jen pro čtení)\n", text)
            self.assertIn(f"    0 >{NAME} | ", text)
            with open(user, "rb") as f:
                self.assertEqual(len(f.read()), len(whole) * 2 // 3, "the damaged file is left as it was")

    def test_newer_catalogue_is_reported_and_left_alone(self):
        with tempfile.TemporaryDirectory() as tmp:
            folder = os.path.join(tmp, "registry", "data", "Materialy")
            os.makedirs(folder)
            user = os.path.join(folder, "Potrubi_2026.tgp")
            with open(user, "wb") as f:
                f.write(bytes([4, 0xFF]))
            status, text, err = togu_e2e.run_togu(tmp, "tuset\nok\nok\ncancel\n")
            self.assertEqual(status, 0, text + err)
            self.assertIn("Nelze načíst, soubor byl uložen vyšší verzí programu, aktualizujte program", text)
            # Nothing of it was read: the predefined material stands in, and the file is not written over.
            self.assertIn("V databázi materiálů nejsou žádné materiály pro ZTI", text)
            with open(user, "rb") as f:
                self.assertEqual(f.read(), bytes([4, 0xFF]))


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
