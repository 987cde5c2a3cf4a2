#!/usr/bin/env python3
"""Batch runs: one script over a folder of drawings, each in a process of its own; damaged drawings
fail alone, are named, keep their files and write no output.

Usage: test_batch.py <path of togu> <source dir>
"""
import glob
import hashlib
import os
import subprocess
import sys
import tempfile
import unittest

import ezdxf

import togu_e2e

# The first line answers the question of a registry without a prefix for layers.
SCRIPT = "no\n_LINE\n0,0\n100,50\n\n"
DAMAGED = ("d07.dxf", "d23.dxf", "d41.dxf")


def digest(path):
    with open(path, "rb") as f:
        return hashlib.sha256(f.read()).hexdigest()


def make_folder(folder, count):
    """count drawings with a circle each; the DAMAGED ones broken in three ways."""
    os.makedirs(folder)
    for i in range(count):
        doc = ezdxf.new("R2018")
        doc.modelspace().add_circle((i, 0), 1.5 + i)
        doc.saveas(os.path.join(folder, "d%02d.dxf" % i))
    with open(os.path.join(folder, DAMAGED[0]), "r+", encoding="utf-8") as f:
        text = f.read().replace("40\n8.5\n", "40\n8,5\n")  # a radius that is no number
        f.seek(0), f.truncate(), f.write(text)
    with open(os.path.join(folder, DAMAGED[1]), "r+b") as f:
        f.truncate(os.path.getsize(f.name) // 2)  # cut off in the middle
    with open(os.path.join(folder, DAMAGED[2]), "wb") as f:
        f.write(b"\x00\x01 not a drawing\n")


def batch(tmp, *args):
    """Runs togu --batch in tmp with a registry of its own."""
    common = ["--registry", os.path.join(tmp, "registry"), "--install", os.path.join(togu_e2e.SOURCE, "data")]
    script = os.path.join(tmp, "batch.scr")
    with open(script, "w") as f:
        f.write(SCRIPT)
    proc = subprocess.run([togu_e2e.TOGU, "--batch", script, *args, *common], capture_output=True,
                          timeout=600, cwd=tmp)
    return proc.returncode, proc.stdout.decode("utf-8"), proc.stderr.decode("utf-8")


class Batch(unittest.TestCase):
    def test_a_folder_with_three_damaged_drawings(self):
        with tempfile.TemporaryDirectory() as tmp:
            folder, out = os.path.join(tmp, "in"), os.path.join(tmp, "out")
            make_folder(folder, 50)
            os.makedirs(out)
            before = {p: digest(p) for p in glob.glob(os.path.join(folder, "*"))}
            status, stdout, stderr = batch(tmp, "--out-dir", out, "-j", "2",
                                           *sorted(glob.glob(os.path.join(folder, "*.dxf"))))
            self.assertEqual(status, 1, stderr)
            lines = stdout.splitlines()
            self.assertEqual(len(lines), 51, stdout)
            # A progress line per drawing as it ends, counted in order, with its result and time.
            for n, line in enumerate(lines[:50], 1):
                self.assertRegex(line, r"^\[%d/50\] .*d\d\d\.dxf: (ok|failed: .+) \(\d+\.\d s\)$" % n)
            failed = sorted(os.path.basename(l.split(":")[0].split("] ")[1]) for l in lines[:50] if ": failed" in l)
            self.assertEqual(failed, list(DAMAGED))
            summary = lines[-1]
            self.assertTrue(summary.startswith("47 of 50 drawings done, 3 failed:"), summary)
            for name in DAMAGED:
                self.assertIn(name, summary)
            # The inputs are untouched; only the sound drawings have outputs, each with its log.
            self.assertEqual(before, {p: digest(p) for p in glob.glob(os.path.join(folder, "*"))})
            outputs = sorted(os.path.basename(p) for p in glob.glob(os.path.join(out, "*.dxf")))
            self.assertEqual(len(outputs), 47)
            self.assertFalse(set(outputs) & set(DAMAGED))
            self.assertEqual(len(glob.glob(os.path.join(out, "*.log"))), 50)
            with open(os.path.join(out, "d23.log"), encoding="utf-8") as f:
                self.assertIn("togu: ", f.read())
            doc = ezdxf.readfile(os.path.join(out, "d05.dxf"))
            self.assertEqual(sorted(e.dxftype() for e in doc.modelspace()), ["CIRCLE", "LINE"])
            togu_e2e.check_reopens(os.path.join(out, "d05.dxf"))

    def test_in_place_without_an_output_folder(self):
        with tempfile.TemporaryDirectory() as tmp:
            folder = os.path.join(tmp, "in")
            make_folder(folder, 42)
            files = [os.path.join(folder, n) for n in ("d01.dxf", "d41.dxf")]
            before = [digest(p) for p in files]
            status, stdout, _ = batch(tmp, *files)
            self.assertEqual(status, 1)
            self.assertIn("1 of 2 drawings done, 1 failed: " + files[1], stdout)
            self.assertNotEqual(digest(files[0]), before[0])
            self.assertEqual(digest(files[1]), before[1])
            self.assertTrue(os.path.exists(os.path.join(folder, "d41.log")))

    def test_runs_that_cannot_start(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, _, stderr = batch(tmp, "--out-dir", os.path.join(tmp, "chybi"), "x.dxf")
            self.assertEqual((status, stderr), (2, "togu: the output folder %s does not exist\n"
                                                % os.path.join(tmp, "chybi")))
            os.makedirs(os.path.join(tmp, "a")), os.makedirs(os.path.join(tmp, "b")), os.makedirs(os.path.join(tmp, "o"))
            status, _, stderr = batch(tmp, "--out-dir", "o", "a/x.dxf", "b/x.dxf")
            self.assertEqual((status, stderr), (2, "togu: two drawings would be saved as o/x.dxf\n"))


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1], verbosity=2)
