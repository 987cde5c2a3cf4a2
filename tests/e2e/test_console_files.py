#!/usr/bin/env python3
"""The console's messages for drawings it cannot open or save: one line that says once what failed.

Usage: test_console_files.py <path of togu> <source dir>
"""
import os
import sys
import tempfile
import unittest

import togu_e2e


class ConsoleFiles(unittest.TestCase):
    def test_a_drawing_that_does_not_exist(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, _, err = togu_e2e.run_togu(tmp, "", "x.dxf")
            self.assertEqual(status, 1)
            self.assertEqual(err, "togu: cannot open x.dxf: no such file\n")

    def test_a_drawing_that_cannot_be_saved(self):
        with tempfile.TemporaryDirectory() as tmp:
            status, _, err = togu_e2e.run_togu(tmp, "", "-o", os.path.join("chybi", "out.dxf"))
            self.assertEqual(status, 1)
            self.assertEqual(err, "togu: cannot save chybi/out.dxf: No such file or directory\n")


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1], verbosity=2)
