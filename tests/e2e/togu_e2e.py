"""What the console's end-to-end tests share: togu run on a script with a fresh registry.

configure(argv) takes the path of togu and the source folder from the test's command line.
"""
import os
import subprocess

TOGU = None
SOURCE = None


def configure(argv):
    global TOGU, SOURCE
    TOGU, SOURCE = os.path.abspath(argv[1]), os.path.abspath(argv[2])


def run_togu(tmp, script, *args, first_run="no\n"):
    """Runs togu in tmp on the script, after the line that answers the first-run question of the
    fresh registry tmp/registry (first_run: "" when the registry is no longer fresh, or the script
    answers it itself); gives (exit status, stdout, stderr)."""
    path = os.path.join(tmp, "test.scr")
    with open(path, "w", encoding="utf-8") as f:
        f.write(first_run + script)
    proc = subprocess.run([TOGU, *args, "-s", path, "--registry", os.path.join(tmp, "registry"),
                           "--install", os.path.join(SOURCE, "data")], capture_output=True, timeout=120, cwd=tmp)
    return proc.returncode, proc.stdout.decode("utf-8"), proc.stderr.decode("utf-8")
