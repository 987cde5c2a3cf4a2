#!/usr/bin/env python3
"""nactiGPS and nactiJTSK on point files: circles and labels at the S-JTSK positions, within a
millimetre of the published transformation's own values (taken from an independent transcription of
it); the file's first three bytes and a last line without a line feed go unread; a bad number draws
nothing. The saved drawing opens again in togu and saves to the same bytes.

Usage: test_surveyed_points.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e

# Latitude, longitude (WGS-84) and the transformation's X, Y (S-JTSK) at the height of 200 m.
POINTS = [
    ("Praha", 50.0755, 14.4378, 1044492.5633, 741817.7914),
    ("Brno", 49.1951, 16.6068, 1160744.7105, 598248.7835),
    ("Ostrava", 49.8209, 18.2625, 1103062.8856, 472181.9545),
    ("Cheb", 50.0796, 12.3739, 1021915.5650, 887800.1418),
]


def run(tmp, command, content, answers=""):
    path = os.path.join(tmp, "body.csv")
    with open(path, "wb") as f:
        f.write(content)
    out = os.path.join(tmp, "out.dxf")
    status, stdout, stderr = togu_e2e.run_togu(tmp, "%s\n%s\n%s" % (command, path, answers), "-o", out)
    return status, stdout + stderr, out


class SurveyedPoints(unittest.TestCase):
    def test_wgs84_points_land_on_the_transformation(self):
        with tempfile.TemporaryDirectory() as tmp:
            lines = ["%d;%d;%s;%s;%s\n" % (i % 3, 12 + i, str(lat).replace(".", ","), lon, "245,5")
                     for i, (_, lat, lon, _, _) in enumerate(POINTS)]
            status, log, out = run(tmp, "nactiGPS", b"\xef\xbb\xbf" + "".join(lines).encode("ascii"))
            self.assertEqual(status, 0, log)
            self.assertIn("[Vyhledej soubor pro načtení csv]", log)
            msp = ezdxf.readfile(out).modelspace()
            circles = msp.query("CIRCLE")
            texts = msp.query("TEXT")
            self.assertEqual(len(circles), len(POINTS))
            for i, (name, _, _, x, y) in enumerate(POINTS):
                c = circles[i]
                self.assertAlmostEqual(c.dxf.center.x, -y, delta=0.001, msg=name)
                self.assertAlmostEqual(c.dxf.center.y, -x, delta=0.001, msg=name)
                self.assertEqual(c.dxf.radius, 0.5)
                self.assertEqual(c.dxf.layer, "0")
                self.assertEqual(c.dxf.color, 2 * (i % 3) + 1)
            self.assertEqual([t.dxf.text for t in texts],
                             ["Š12 - 245.50 m", "V13 - 245.50 m", "P14 - 245.50 m", "Š15 - 245.50 m"])
            self.assertAlmostEqual(texts[0].dxf.insert.x, -741817.7914, delta=0.001)
            self.assertEqual(texts[0].dxf.height, 0.5)

            # The saved drawing opens again and saves to the same bytes.
            again = os.path.join(tmp, "again.dxf")
            status, stdout, stderr = togu_e2e.run_togu(tmp, "", out, "-o", again)
            self.assertEqual(status, 0, stdout + stderr)
            with open(out, "rb") as a, open(again, "rb") as b:
                self.assertEqual(a.read(), b.read())

    def test_jtsk_points_and_the_unread_bytes(self):
        with tempfile.TemporaryDirectory() as tmp:
            # No byte order mark: the first field loses its first 3 bytes ("107" reads as nothing).
            # The last line has no line feed and doesn't count.
            content = b"107;1044492,56;741817,79;231,2\n2;1100000;600000;200\n3;1;1;1"
            status, log, out = run(tmp, "nactiJTSK", content)
            self.assertEqual(status, 0, log)
            msp = ezdxf.readfile(out).modelspace()
            self.assertEqual([t.dxf.text for t in msp.query("TEXT")], ["0 - 231.20 m", "2 - 200.00 m"])
            centres = [(c.dxf.center.x, c.dxf.center.y) for c in msp.query("CIRCLE")]
            self.assertEqual(centres, [(-741817.79, -1044492.56), (-600000.0, -1100000.0)])

    def test_bad_number_draws_nothing_and_says_why(self):
        with tempfile.TemporaryDirectory() as tmp:
            content = b"\xef\xbb\xbf0;1;50.0755;14.4378;200\n0;2;padesat;14.4;200\n"
            status, log, out = run(tmp, "nactiGPS", content, "ok\n")
            self.assertEqual(status, 0, log)
            self.assertIn("[Program vyvolal výjimku] invalid stod argument", log)
            self.assertEqual(len(ezdxf.readfile(out).modelspace()), 0)

    def test_empty_file_and_cancel_draw_nothing_silently(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, log, out = run(tmp, "nactiGPS", b"")
            self.assertEqual(status, 0, log)
            self.assertNotIn("výjimka", log)
            self.assertEqual(len(ezdxf.readfile(out).modelspace()), 0)
            status, stdout, stderr = togu_e2e.run_togu(tmp, "nactiJTSK\n\n", "-o", out)
            self.assertEqual(status, 0, stdout + stderr)


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1])
