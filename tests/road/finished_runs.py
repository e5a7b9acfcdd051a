"""Runs that were logged before anybody looks: by other tools, in feet, and LAS files of another program."""
import math
import pathlib
import random
import subprocess
import tempfile

from truck import wait_for

# hole, tool, box, words of `tarvik log`
RUNS = [
    ("BN-014", "K230", 10.4, ["--sampling", "DEPTH", "--interval", "10", "--scans", "320"]),
    ("FT-021", "K240", 10.4, ["--sampling", "DEPTH", "--interval", "4", "--units", "Feet", "--scans", "320"]),
    ("DV-003", "K417", 10.4, ["--sampling", "DEPTH", "--interval", "20", "--scans", "200"]),
]
SERIALS = {"K230": "3105", "K240": "2041", "K417": "0417"}


def log(options, folder, home, hole, tool, depth, words):
    line = home / "lcu"
    box = subprocess.Popen([options.bin / "lcusim", "--model", "LCU4", "--tool", tool, "--tools", options.tools, "--link",
                            line, "--speed", "60", "--depth", str(depth), "--baud", "115200", "--time-factor", "4"],
                           stdout=subprocess.DEVNULL)
    try:
        wait_for(line.exists, "the simulated box did not make its line")
        tarvik = [options.bin / "tarvik"]
        for equipment in (["add-tool", tool, SERIALS[tool]], ["add-winch", "W240", "117"]):
            subprocess.run([*tarvik, "equipment", *equipment, "--home", home], check=True, capture_output=True)
        done = subprocess.run([*tarvik, "log", "--project", "P", "--hole", hole, "--tool", tool, "--winch", "W240",
                               "--com1", line, "--lcucomms", "1", *words, "--home", home], check=True,
                              capture_output=True, text=True, timeout=120)
        file = pathlib.Path(done.stdout.splitlines()[-1])
        (folder / file.name).write_bytes(file.read_bytes())
    finally:
        box.kill()
        box.wait(10)


def las_text(well, seed, shift):
    """Coal seams between shales; two stretches without values, and one channel that comes and goes."""
    noise = random.Random(seed)
    rows = []
    for step in range(500):
        depth = 20 + step * 0.1
        seam = any(top <= depth + shift < top + 7 for top in (27.4, 64.3))
        lost = 38.0 <= depth < 41.5 or 55.0 <= depth < 58.0
        values = [(20 if seam else 100) + 8 * math.sin(depth) + noise.gauss(0, 4), (129 if seam else 120) +
                  noise.gauss(0, 0.8), (900 if seam else 60) * math.exp(noise.gauss(0, 0.05)),
                  (1.4 if seam else 2.5) + noise.gauss(0, 0.03)]
        if depth < 23:
            values[2] = -999.25
        rows.append(f"{depth:8.2f} " + " ".join(f"{-999.25 if lost else v:10.3f}" for v in values))
    head = ["~Version", " VERS.   2.0 :", " WRAP.   NO :", "~Well", " STRT.M 20.00 :", " STOP.M 69.90 :", " STEP.M 0.1 :",
            " NULL.  -999.25 :", " COMP. Northern Coal : COMPANY", f" WELL. {well} : WELL", " FLD.  North block : FIELD",
            " DATE. 13-Mar-2006 : LOG DATE", "~Curve", " DEPT.M :", " GR.API :", " CALI.MM :", " RES.OHMM :",
            " DEN.G/C3 :", "~A"]
    return "\r\n".join(head + rows) + "\r\n"


def make_finished_runs(options, folder):
    for hole, tool, depth, words in RUNS:
        with tempfile.TemporaryDirectory() as home:
            log(options, folder, pathlib.Path(home), hole, tool, depth, words)
    (folder / "gaps.las").write_text(las_text("DH-7", 7, 0), newline="")
    (folder / "repeat.las").write_text(las_text("DH-7 repeat", 8, 0.3), newline="")
