#!/usr/bin/env python3
"""The togu console on small scripts: the system's load banner and its first-run question, AutoLISP
answers, the registry's machine file, and the exit status of the two ways a script fails (an unknown
command, a prompt left waiting when the script ends).

Each run starts with an empty user registry, so the first line of every script answers the first-run
question.

Usage: test_console.py <path of togu> <source dir>
"""
import os
import subprocess
import sys
import tempfile
import unittest

TOGU = None
SOURCE = None


def run_togu(script, *args, registry=None):
    """Runs togu on the script text with a fresh registry; gives (exit status, stdout, stderr)."""
    with tempfile.TemporaryDirectory() as tmp:
        path = os.path.join(tmp, "test.scr")
        with open(path, "w", encoding="utf-8") as f:
            f.write(script)
        reg = registry or os.path.join(tmp, "registry")
        proc = subprocess.run(
            [TOGU, "-s", path, "--registry", reg, "--install", os.path.join(SOURCE, "data"), *args],
            capture_output=True, timeout=60)
        return proc.returncode, proc.stdout.decode("utf-8"), proc.stderr.decode("utf-8")


class Console(unittest.TestCase):
    def test_load_banner_and_autolisp(self):
        status, out, err = run_togu("no\n(togu_is_debug)\n(no_such_function 1)\n(togu_is_debug\n")
        self.assertEqual(status, 0, err)
        banner = out.find("Úspěšně načteny Togovy Utility verze: 2026 (pro AutoCAD 2017 až 2023) - sestavení 4")
        question = out.find("[Togovy Utility pro AutoCad] První spuštění - není nastavena např. předpona pro "
                            "hladiny\nSpustit dialog nastavení Utilit?")
        self.assertGreaterEqual(banner, 0, out)
        self.assertGreater(question, banner, out)
        self.assertIn("Command: (togu_is_debug)\nnil\n", out)
        self.assertIn("; error: no function definition: NO_SUCH_FUNCTION\n", out)
        self.assertIn("; error: malformed list on input\n", out)
        self.assertTrue(out.endswith("Command: \n"), out[-200:])

    def test_unknown_command_stops_with_the_line(self):
        status, out, err = run_togu("no\n(togu_is_debug)\nnesmysl\n(togu_is_debug)\n")
        self.assertNotEqual(status, 0)
        self.assertIn('Unknown command "NESMYSL".  Press F1 for help.', out)
        self.assertIn("line 3", err)
        self.assertIn('Unknown command "NESMYSL"', err)
        # Nothing after the failing line runs.
        self.assertEqual(out.count("(togu_is_debug)"), 1)

    def test_script_ending_while_a_prompt_waits(self):
        status, out, err = run_togu("no\n_LINE\n0,0\n")
        self.assertNotEqual(status, 0, out)
        self.assertIn("line 3", err)
        self.assertIn("waiting", err)

    def test_empty_lines_and_cancel_at_the_command_prompt(self):
        status, out, err = run_togu("no\n\n^C\n\n")
        self.assertEqual(status, 0, err)
        self.assertEqual(out.count("Command: "), 4)

    def test_machine_file_points_into_the_installation(self):
        with tempfile.TemporaryDirectory() as tmp:
            reg = os.path.join(tmp, "reg")
            status, _, err = run_togu("no\n", registry=reg)
            self.assertEqual(status, 0, err)
            with open(os.path.join(reg, "machine.reg"), encoding="utf-8-sig") as f:
                text = f.read()
        data = os.path.normpath(os.path.join(SOURCE, "data")).replace("/", "\\\\")
        self.assertIn('"InstallPath"="%s\\\\"' % data, text)
        self.assertIn('"CommonInstallPath"="%s\\\\"' % data, text)
        self.assertIn('"CommonDataPath"=', text)
        self.assertIn('"DataPath"=', text)

    def test_bad_options_and_missing_files(self):
        proc = subprocess.run([TOGU, "--nonsense"], capture_output=True, timeout=60)
        self.assertEqual(proc.returncode, 2)
        self.assertIn(b"unknown option --nonsense", proc.stderr)
        with tempfile.TemporaryDirectory() as tmp:
            proc = subprocess.run([TOGU, "-s", os.path.join(tmp, "missing.scr"), "--registry", tmp],
                                  capture_output=True, timeout=60)
        self.assertNotEqual(proc.returncode, 0)
        self.assertIn(b"missing.scr", proc.stderr)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    TOGU, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    unittest.main(argv=sys.argv[:1], verbosity=2)
