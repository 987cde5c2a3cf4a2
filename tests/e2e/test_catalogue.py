"""The pipe catalogue's text form at the console: export, import, a bad line, and the standard
catalogue that the build makes (its series as a designer would look them up)."""
import csv
import io
import os
import subprocess
import sys
import tempfile

import togu_e2e

togu_e2e.configure(sys.argv)
STANDARD = os.path.join(togu_e2e.SOURCE, "data", "Materialy", "Potrubi_std_2026.tgp")


def togu(*args):
    proc = subprocess.run([togu_e2e.TOGU, *args], capture_output=True, timeout=60)
    return proc.returncode, proc.stderr.decode("utf-8")


def read(path):
    with open(path, "rb") as f:
        return f.read()


with tempfile.TemporaryDirectory() as tmp:
    # Export then import gives the standard catalogue byte for byte.
    out_csv = os.path.join(tmp, "std.csv")
    rc, err = togu("--catalogue-export", STANDARD, out_csv)
    assert rc == 0, err
    again = os.path.join(tmp, "again.tgp")
    rc, err = togu("--catalogue-import", out_csv, again)
    assert rc == 0, err
    assert read(again) == read(STANDARD), "export and import changed the catalogue"

    # A spreadsheet reads it: UTF-8 with a byte order mark, one header line, semicolons.
    text = read(out_csv).decode("utf-8-sig")
    rows = list(csv.DictReader(io.StringIO(text), delimiter=";"))
    assert rows[0].keys() >= {"Materiál", "DN", "Stěna [mm]"}
    by_name = {}
    for r in rows:
        by_name.setdefault(r["Materiál"], []).append(r)
    for name in ["PPR3, PN 16", "PPR3, PN 20", "PE 100, SDR 11", "PE 100, SDR 17", "PVC KG, SN 4", "PP HT", "Měď",
                 "Ocel závitová", "PE-Xa, SDR 7.4", "Litina SML", "Kamenina", "Beton vejčitý", "Beton obdélník"]:
        assert name in by_name, name
    ppr = {r["DN"]: r for r in by_name["PPR3, PN 16"]}
    assert ppr["DN 20"]["Stěna [mm]"] == "3.5" and ppr["DN 20"]["Vnitřní průměr [mm]"] == "18", ppr["DN 20"]
    assert {r["Tvar"] for r in by_name["Beton vejčitý"]} == {"Vejce"}
    assert all(r["Šířka [mm]"] != "0" for r in by_name["Beton obdélník"])

    # A bad line is named by its number and nothing is written.
    lines = text.splitlines()
    lines[3] = lines[3].replace(";DN ", ";DN x", 1)
    bad_csv = os.path.join(tmp, "bad.csv")
    with open(bad_csv, "w", encoding="utf-8") as f:
        f.write("\n".join(lines) + "\n")
    bad_tgp = os.path.join(tmp, "bad.tgp")
    rc, err = togu("--catalogue-import", bad_csv, bad_tgp)
    assert rc == 1, (rc, err)
    assert ":4: DN: unknown value" in err, err
    assert not os.path.exists(bad_tgp)

    # A damaged catalogue is refused with the reason.
    cut = os.path.join(tmp, "cut.tgp")
    with open(cut, "wb") as f:
        f.write(read(STANDARD)[:100])
    rc, err = togu("--catalogue-export", cut, os.path.join(tmp, "cut.csv"))
    assert rc == 1 and "ends inside a record" in err, err
    assert not os.path.exists(os.path.join(tmp, "cut.csv"))

    rc, err = togu("--catalogue-import", out_csv)
    assert rc == 2 and "needs two files" in err, err
print("ok")
