"""The catalogue's help file that the build compiles: a real .chm whose topics chmls lists, with the
contexts of the picker (4) and the editor (5)."""
import os
import shutil
import subprocess
import sys
import tempfile

import togu_e2e

togu_e2e.configure(sys.argv)
CHM = os.path.join(togu_e2e.SOURCE, "data", "Materialy", "Materiály - help.chm")

with tempfile.TemporaryDirectory() as tmp:
    chm = os.path.join(tmp, "Materialy.chm")
    shutil.copy(CHM, chm)
    listing = subprocess.run(["chmls", "-n", "list", chm], capture_output=True, text=True, check=True).stdout
    names = {line.strip() for line in listing.splitlines()}
    for topic in ["/katalog.html", "/vyber.html", "/editace.html", "/soubory.html", "/Materialy.hhc"]:
        assert topic in names, (topic, listing)

    subprocess.run(["chmls", "extractalias", chm], capture_output=True, cwd=tmp, check=True)
    with open(os.path.join(tmp, "Materialy.ali"), encoding="utf-8") as f:
        aliases = dict(line.strip().split("=", 1) for line in f if "=" in line)
    with open(os.path.join(tmp, "Materialy.h"), encoding="utf-8") as f:
        contexts = {line.split()[1]: int(line.split()[2]) for line in f if line.startswith("#define")}
    topic_of = {number: os.path.basename(aliases[name]) for name, number in contexts.items()}
    assert topic_of == {4: "vyber.html", 5: "editace.html"}, topic_of

    # The topics are Czech text, as the help's sources are.
    page = subprocess.run(["chmls", "extract", chm, "/vyber.html", os.path.join(tmp, "vyber.html")],
                          capture_output=True, check=True)
    with open(os.path.join(tmp, "vyber.html"), encoding="utf-8") as f:
        assert "Výběr materiálu" in f.read()
print("ok")
