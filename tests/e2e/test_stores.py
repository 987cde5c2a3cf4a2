#!/usr/bin/env python3
"""The two stores across runs of the togu console: values stored in a drawing travel with its saved
DXF (read back by ezdxf and by a second run), and the settings survive a restart through the user's
.reg file of the same --registry folder.

Usage: test_stores.py <path of togu> <source dir>
"""
import os
import re
import subprocess
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e

TOGU = None
SOURCE = None
QUESTION = "První spuštění - není nastavena např. předpona pro hladiny\nSpustit dialog nastavení Utilit?"


def run_togu(tmp, script, *args, registry):
    """Runs togu on the script text; gives (exit status, stdout, stderr)."""
    path = os.path.join(tmp, "test.scr")
    with open(path, "w", encoding="utf-8") as f:
        f.write(script)
    proc = subprocess.run(
        [TOGU, *args, "-s", path, "--registry", registry, "--install", os.path.join(SOURCE, "data")],
        capture_output=True, timeout=60)
    if "-o" in args and os.path.exists(args[args.index("-o") + 1]):
        togu_e2e.check_reopens(args[args.index("-o") + 1])
    return proc.returncode, proc.stdout.decode("utf-8"), proc.stderr.decode("utf-8")


def read_reg(path):
    with open(path, encoding="utf-8-sig") as f:
        return f.read()


def set_reg_value(text, key, line):
    """Replaces (or adds) a value line under the key of a .reg text."""
    name = line.split("=", 1)[0]
    head = "[%s]\n" % key
    if head not in text:
        return text + "\n" + head + line + "\n"
    start = text.index(head) + len(head)
    end = text.find("\n[", start)
    end = len(text) if end < 0 else end + 1
    body = [l for l in text[start:end].split("\n") if l and not l.startswith(name + "=")]
    body.append(line)
    return text[:start] + "\n".join(body) + "\n\n" + text[end:].lstrip("\n")


class DrawingStore(unittest.TestCase):
    def test_values_travel_with_the_saved_drawing(self):
        with tempfile.TemporaryDirectory() as tmp:
            reg = os.path.join(tmp, "reg")
            dxf = os.path.join(tmp, "stavba.dxf")
            status, out, err = run_togu(tmp, "no\n"
                                        '(togu_ulozdox_int "Pocet" 42)\n'
                                        '(togu_ulozdox_string "DlgKacena_POPISPOD" "Úroveň ±0,000")\n'
                                        '(togu_ulozdox_real "Roztec" 150.5)\n'
                                        "(togu_ulozdox_point \"Bod\" '(1.5 2.0 -3.0))\n"
                                        '(togu_ulozdox_int "Pocet" 43)\n',
                                        "-o", dxf, registry=reg)
            self.assertEqual(status, 0, err + out)
            self.assertEqual(out.count("\nT\n"), 5, out)

            # An independent reader finds the dictionary and its xrecords with their group codes.
            doc = ezdxf.readfile(dxf)
            store = doc.rootdict["TOGUTILS"]
            self.assertEqual(sorted(store.keys()), ["Bod", "DlgKacena_POPISPOD", "Pocet", "Roztec"])
            self.assertEqual([tuple(t) for t in store["Pocet"].tags], [(90, 43)])
            self.assertEqual([tuple(t) for t in store["DlgKacena_POPISPOD"].tags], [(1, "Úroveň ±0,000")])
            self.assertEqual([tuple(t) for t in store["Roztec"].tags], [(40, 150.5)])
            self.assertEqual(store["Bod"].tags[0].code, 10)
            self.assertEqual(tuple(store["Bod"].tags[0].value), (1.5, 2.0, -3.0))

            # A second run on the saved drawing reads them back.
            status, out, err = run_togu(tmp, "no\n"
                                        '(togu_nactizx_int "Pocet")\n'
                                        '(togu_nactizx_string "DlgKacena_POPISPOD")\n'
                                        '(togu_nactizx_real "Roztec")\n'
                                        '(togu_nactizx_point "Bod")\n'
                                        '(togu_nactizx_int "Chybi")\n',
                                        dxf, registry=reg)
            self.assertEqual(status, 0, err + out)
            self.assertIn('(togu_nactizx_int "Pocet")\n43\n', out)
            self.assertIn('(togu_nactizx_string "DlgKacena_POPISPOD")\n"Úroveň ±0,000"\n', out)
            self.assertIn('(togu_nactizx_real "Roztec")\n150.5\n', out)
            self.assertIn('(togu_nactizx_point "Bod")\n(1.5 2.0 -3.0)\n', out)
            self.assertIn('(togu_nactizx_int "Chybi")\nnil\n', out)

    def test_a_new_drawing_holds_no_store(self):
        with tempfile.TemporaryDirectory() as tmp:
            dxf = os.path.join(tmp, "novy.dxf")
            status, out, err = run_togu(tmp, 'no\n(togu_nactizx_string "x")\n', "-o", dxf,
                                        registry=os.path.join(tmp, "reg"))
            self.assertEqual(status, 0, err + out)
            self.assertIn('(togu_nactizx_string "x")\nnil\n', out)
            self.assertNotIn("TOGUTILS", ezdxf.readfile(dxf).rootdict)


class Settings(unittest.TestCase):
    def test_settings_survive_a_restart(self):
        with tempfile.TemporaryDirectory() as tmp:
            reg = os.path.join(tmp, "reg")
            # First run on an empty registry: the question, and the defaults stored at unload.
            status, out, err = run_togu(tmp, "no\n(togu_nastaveni 2)\n", registry=reg)
            self.assertEqual(status, 0, err + out)
            self.assertIn(QUESTION, out)
            self.assertIn("(togu_nastaveni 2)\n1\n", out)
            user = read_reg(os.path.join(reg, "user.reg"))
            self.assertRegex(user, r'\[HKEY_CURRENT_USER\\Software\\Togvarnik\\Togovy Utility\\Nastaveni\]\n'
                                   r'(".*\n)*"Glob_prepinace"=hex:58,01\n')
            self.assertIn('"NASTAVENO"=hex:00\n', user)
            self.assertRegex(user, r'\[HKEY_CURRENT_USER\\Software\\Togvarnik\\Common\]\n"PREDPONA"="TU"\n')

            # The user's settings as a dialog would have left them: settings made, switches 2 and 4,
            # prefix VOD.
            user = set_reg_value(user, r"HKEY_CURRENT_USER\Software\Togvarnik\Togovy Utility\Nastaveni",
                                 '"NASTAVENO"=hex:01')
            user = set_reg_value(user, r"HKEY_CURRENT_USER\Software\Togvarnik\Togovy Utility\Nastaveni",
                                 '"Glob_prepinace"=hex:06,00')
            user = set_reg_value(user, r"HKEY_CURRENT_USER\Software\Togvarnik\Common", '"PREDPONA"="VOD"')
            with open(os.path.join(reg, "user.reg"), "w", encoding="utf-8") as f:
                f.write(user)

            # Second run: no question, the switches as stored, and all of it stored again.
            status, out, err = run_togu(tmp, "(togu_nastaveni 1)\n(togu_nastaveni 2)\n(togu_nastaveni 4)\n",
                                        registry=reg)
            self.assertEqual(status, 0, err + out)
            self.assertNotIn("První spuštění", out)
            self.assertIn("(togu_nastaveni 1)\n1\n", out)
            self.assertIn("(togu_nastaveni 2)\n0\n", out)
            self.assertIn("(togu_nastaveni 4)\n1\n", out)
            user = read_reg(os.path.join(reg, "user.reg"))
            self.assertIn('"NASTAVENO"=hex:01\n', user)
            self.assertIn('"Glob_prepinace"=hex:06,00\n', user)
            self.assertIn('"PREDPONA"="VOD"', user)

    def test_empty_script_leaves_the_first_run_question_waiting(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, out, err = run_togu(tmp, "", registry=os.path.join(tmp, "reg"))
            self.assertNotEqual(status, 0, out)
            self.assertIn(QUESTION, out)
            self.assertIn("waiting", err)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    TOGU, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1], verbosity=2)
