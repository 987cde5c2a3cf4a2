#!/usr/bin/env python3
"""The console at a terminal (driven through tmux): Up recalls the last command line, Enter or space
at "Command: " repeats the last command, Tab completes a command name, and an arrow key never
reaches the command line as text.

Usage: test_console_keyboard.py <path of togu> <source dir>
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

import ezdxf

import togu_e2e


class Terminal:
    """togu in a detached tmux session of its own."""

    def __init__(self, tmp, *args):
        self.name = "togu-e2e-%d" % os.getpid()
        self.socket = os.path.join(tmp, "tmux")
        command = " ".join([togu_e2e.TOGU, "--registry", os.path.join(tmp, "registry"), "--install",
                            os.path.join(togu_e2e.SOURCE, "data"), *args])
        self.tmux("new-session", "-d", "-s", self.name, "-x", "150", "-y", "50", command + "; sleep 60")
        self.wait_for("<Ano>:")

    def tmux(self, *args):
        return subprocess.run(["tmux", "-S", self.socket, *args], check=True, capture_output=True,
                              text=True).stdout

    def screen(self):
        return self.tmux("capture-pane", "-p", "-t", self.name)

    def wait_for(self, text, count=1):
        """Waits until the screen shows the text count times (tmux drops spaces at the ends of lines)."""
        deadline = time.time() + 20
        while self.screen().count(text) < count:
            if time.time() > deadline:
                raise AssertionError("%r did not appear %d times:\n%s" % (text, count, self.screen()))
            time.sleep(0.05)

    def keys(self, *keys):
        for k in keys:
            self.tmux("send-keys", "-t", self.name, k)
            time.sleep(0.05)

    def close(self):
        subprocess.run(["tmux", "-S", self.socket, "kill-server"], capture_output=True)


@unittest.skipUnless(shutil.which("tmux"), "tmux is not installed")
class Keyboard(unittest.TestCase):
    def test_up_enter_space_and_tab(self):
        with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as tmp:
            out = os.path.join(tmp, "out.dxf")
            term = Terminal(tmp, "-o", out)
            try:
                term.keys("no", "Enter")
                term.wait_for("Command:")
                term.keys("_LINE", "Enter", "0,0", "Enter", "10,0", "Enter", "Enter")
                term.wait_for("Command:", 2)
                # Up then Enter: the previous command line again.
                term.keys("Up", "Enter", "0,1", "Enter", "10,1", "Enter", "Enter")
                term.wait_for("Command:", 3)
                # Enter and space at "Command: ": the last command again.
                term.keys("Enter", "0,2", "Enter", "10,2", "Enter", "Enter")
                term.wait_for("Command:", 4)
                term.keys("Space", "0,3", "Enter", "10,3", "Enter", "Enter")
                term.wait_for("Command:", 5)
                # Tab completes a name that only one command has.
                term.keys("_CIRCL", "Tab")
                term.wait_for("Command: _CIRCLE")
                term.keys("Enter", "50,50", "Enter", "5", "Enter")
                term.wait_for("Command:", 6)
                # An arrow at the prompt of a point is no answer.
                term.keys("_LINE", "Enter", "Left", "Right", "0,4", "Enter", "10,4", "Enter", "Enter")
                term.wait_for("Command:", 7)
                term.keys("C-d")
                deadline = time.time() + 20
                while not os.path.exists(out) and time.time() < deadline:
                    time.sleep(0.05)
                screen = term.screen()
            finally:
                term.close()
            self.assertNotIn("Unknown command", screen)
            self.assertNotIn("^[", screen)
            doc = ezdxf.readfile(out)
            lines = sorted(round(e.dxf.start.y) for e in doc.modelspace().query("LINE"))
            self.assertEqual(lines, [0, 1, 2, 3, 4])
            self.assertEqual(len(doc.modelspace().query("CIRCLE")), 1)


if __name__ == "__main__":
    togu_e2e.configure(sys.argv)
    unittest.main(argv=sys.argv[:1], verbosity=2)
