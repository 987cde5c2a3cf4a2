"""What the console's end-to-end tests share: togu run on a script with a fresh registry, and the
check that every drawing togu saves opens again in togu and saves to the same bytes.

configure(argv) takes the path of togu and the source folder from the test's command line.
"""
import os
import subprocess
import tempfile

TOGU = None
SOURCE = None


def configure(argv):
    global TOGU, SOURCE
    TOGU, SOURCE = os.path.abspath(argv[1]), os.path.abspath(argv[2])


def _drawings(folder):
    """The DXF files under the folder with the time of their last change."""
    found = {}
    for root, _, files in os.walk(folder):
        for name in files:
            if name.lower().endswith(".dxf"):
                path = os.path.join(root, name)
                found[path] = os.stat(path).st_mtime_ns
    return found


def _first_difference(a, b):
    lines_a, lines_b = a.split(b"\n"), b.split(b"\n")
    for i, (x, y) in enumerate(zip(lines_a, lines_b)):
        if x != y:
            return "line %d: %r, saved again %r" % (i + 1, x, y)
    return "the lengths differ: %d and %d lines" % (len(lines_a), len(lines_b))


def check_reopens(path):
    """Opens the drawing in togu (fresh registry, nothing done) and saves it again; raises
    AssertionError unless that succeeds with the same bytes."""
    with tempfile.TemporaryDirectory() as tmp:
        script = os.path.join(tmp, "reopen.scr")
        with open(script, "w", encoding="utf-8") as f:
            f.write("no\n")
        again = os.path.join(tmp, "again.dxf")
        proc = subprocess.run([TOGU, path, "-s", script, "--registry", os.path.join(tmp, "registry"),
                               "--install", os.path.join(SOURCE, "data"), "-o", again],
                              capture_output=True, timeout=120, cwd=tmp)
        if proc.returncode != 0:
            raise AssertionError("togu saved %s and cannot open it again: %s" %
                                 (path, proc.stderr.decode("utf-8", "replace").strip()))
        with open(path, "rb") as f:
            first = f.read()
        with open(again, "rb") as f:
            second = f.read()
        if first != second:
            raise AssertionError("%s opened and saved again by togu is not the same: %s" %
                                 (path, _first_difference(first, second)))


def run_togu(tmp, script, *args, first_run="no\n"):
    """Runs togu in tmp on the script, after the line that answers the first-run question of the
    fresh registry tmp/registry (first_run: "" when the registry is no longer fresh, or the script
    answers it itself); gives (exit status, stdout, stderr). Every drawing the run saved in tmp must
    open again and save to the same bytes (check_reopens)."""
    path = os.path.join(tmp, "test.scr")
    with open(path, "w", encoding="utf-8") as f:
        f.write(first_run + script)
    before = _drawings(tmp)
    proc = subprocess.run([TOGU, *args, "-s", path, "--registry", os.path.join(tmp, "registry"),
                           "--install", os.path.join(SOURCE, "data")], capture_output=True, timeout=120, cwd=tmp)
    for drawing, changed in sorted(_drawings(tmp).items()):
        if before.get(drawing) != changed:
            check_reopens(drawing)
    return proc.returncode, proc.stdout.decode("utf-8"), proc.stderr.decode("utf-8")
