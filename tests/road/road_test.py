#!/usr/bin/env python3
"""Runs the real programs on a pseudo-terminal and holds what they wrote against what the box says it sent.

Usage: road_test.py CASE --bin DIR --tools DIR
"""
import pathlib
import signal

import scans
from field import SERIAL, check, drive


def compare(field, file, model, sampling, up, feet, count, polynomials={}):
    kept = field.records(file)
    sent = scans.sent_scans(field.record)
    wanted = scans.expected_records(sent, model, sampling, up, feet, field.tool, polynomials)[:count]
    check(len(kept) == count and len(wanted) == count, f"{len(kept)} records, {len(wanted)} expected, not {count}")
    for number, (got, want) in enumerate(zip(kept, wanted), start=1):
        check(got == want, f"record {number}:\n  {got.hex()} is not\n  {want.hex()}")


def read_las(file):
    """What any other program would read: the names of the curves and the rows."""
    names, rows, section = [], [], ""
    raw = file.read_bytes()
    check(raw.count(b"\n") == raw.count(b"\r\n"), "a LAS line does not end with CR LF")
    for line in raw.decode("cp1252").splitlines():
        if line.startswith("~"):
            section = line[1].upper()
        elif section == "C" and not line.startswith("#"):
            names.append(line.split(".", 1)[0].strip())
        elif section == "A":
            rows.append([float(word) for word in line.split()])
    return names, rows


def logged(field, model, sampling, interval, up, feet, count=25):
    start, sign = (60, -1) if up else (12.34, 1)
    field.start_box("--model", model, "--depth", 1, "--speed", 30, "--seed", 5)
    file = field.log("--sampling", sampling, "--interval", interval, "--direction", "UP" if up else "DOWN",
                     "--units", "Feet" if feet else "Metres", "--set-depth", start, "--scans", count)
    field.stop_box()
    compare(field, file, model, sampling, up, feet, count)

    info = field.info(file)
    unit = 0.3048 if feet else 1.0
    check(info["scans"] == count and info["partial_bytes"] == 0, f"info counts {info['scans']} scans")
    first = info["depth_to"] if up else info["depth_from"]
    check(0 < sign * (first * unit - start) < 3, f"the run begins at {first}, the winch was set to {start} m")

    las = file.with_suffix(".las")
    field.tarvik("las", file, "-o", las)
    names, rows = read_las(las)
    check(names[:3] == ["Depth", "Speed", "Res 8 inch"] and len(names) == 9, f"curves {names}")
    depths = sorted(int.from_bytes(r[0:4], "little") / 1000 for r in field.records(file))
    check(len(rows) == count and all(abs(row[0] - d) < 0.0051 for row, d in zip(rows, depths)), "depths of the LAS")

    again = las.with_name("again.las")
    field.tarvik("las", las, "-o", again)
    check(again.read_bytes() == las.read_bytes(), "the LAS file read and written again is another one")
    info = field.info(las)
    check((info["kind"], info["scans"], info["units"]) == ("las", count, "Feet" if feet else "Metres"), f"{info}")

    for text in ("============ NEW logging run ============", f"{model} activated on COM1", "LCU powered down OK",
                 "Tarvik program closed"):
        check(text in field.status_text(), f"the status file lacks: {text}")


def depth_down_metres_lcu2plus(field):
    logged(field, "LCU2Plus", "DEPTH", 5, up=False, feet=False)


def time_up_feet_lcu2plus(field):
    # By time the box does not know a direction: the winch is told.
    start_box = field.start_box
    field.start_box = lambda *options: start_box(*options, "--direction", "up")
    logged(field, "LCU2Plus", "TIME", 0.1, up=True, feet=True)


def depth_up_feet_lcu4(field):
    logged(field, "LCU4", "DEPTH", 4, up=True, feet=True)


def time_down_metres_lcu4(field):
    logged(field, "LCU4", "TIME", 0.1, up=False, feet=False)


def calibrated(field):
    """Calibrated on the command line, then logged: the file holds engineering units and says where they come from."""
    line = [(0, 5), (100, 55)]
    truth = [1.0, 0.01, 1e-7]
    bent = [(x, sum(c * x**k for k, c in enumerate(truth))) for x in (500, 4000, 9000, 15000, 20500)]
    status, said, _ = field.calibrate("Gamma", 1, line)
    check(status == 1 and "not saved" in said and "--yes" in said, "without a terminal it was not refused")
    status, _, gamma = field.calibrate("gAMMA", 1, line, "--yes")
    check(status == 0 and gamma == [5.0, 0.5], f"the line is {gamma}")
    status, said, resistivity = field.calibrate("Res 8 inch", 2, bent, "--yes", "--kind", "factory")
    near = all(abs(got - want) <= 1e-5 * want for got, want in zip(resistivity, truth))
    check(status == 0 and near and "Warning" not in said, f"the parabola is {resistivity}, {said}")
    shown = field.calibrate_at_a_terminal("SP", 2, [(0, 0), (1, 1), (2, 0)], [(b"Save this", b"y\n"),
                                                                             (b"FACTORY calibration", b"n\n")])
    check("Warning" in shown and "Calibration query" in shown, f"the terminal showed {shown}")
    listed = field.tarvik("calibrations", "list", "--serial", SERIAL).stdout.splitlines()[1:]
    check([row.rsplit(", ", 1)[1] for row in listed] == ["Field", "Factory", "Field"], f"listed {listed}")
    status, _, _ = field.calibrate("SP", 1, [(0, 0), (1, 1)], "--yes")  # the last one serves
    check(status == 0, "the last calibration was not saved")

    field.start_box("--model", "LCU2Plus", "--depth", 10, "--speed", 30, "--seed", 3)
    file = field.log("--sampling", "TIME", "--interval", "0.1", "--scans", 15)
    field.stop_box()
    compare(field, file, "LCU2Plus", "TIME", False, False, 15, {0: resistivity, 4: gamma})
    calibrations = {channel["name"]: channel["calibration"] for channel in field.info(file)["channels"]}
    check(calibrations["Res 8 inch"]["coefficients"] == resistivity, "the file has another polynomial")
    check(calibrations["Res 8 inch"]["points"][1] == [4000, round(bent[1][1], 4)], "the file has other points")
    check(calibrations["Gamma"]["calibrated_by"] == "Road test" and calibrations["Gamma"]["kind"] == "Field", "Gamma")
    check(calibrations["Res 16 inch"]["state"] == "None", "a channel without")
    exported = pathlib.Path(field.tarvik("calibrations", "export", "--serial", SERIAL).stdout.strip())
    check(exported == field.home / "C" / "kvxcalib.txt", f"exported to {exported}")
    check(len({line.count(b"\t") for line in exported.read_bytes().splitlines()}) == 1, "columns of the export")


def fluid_sampler_in_both_modes(field):
    """Seven sensors, four in each mode, one in both; a name for each unit, so that none serves the other."""
    curves = {"Chamber": [-12.5, 4.9], "Hydrostatic": [3.25, 5.1, -2e-5], "Fluid temp": [-9.6, 0.0101, 2e-8],
              "Piston": [0.5, 0.024, 1e-7, -1e-11], "Chamber PSI": [-1.8, 0.71], "Hydrostatic PSI": [0.5, 0.74, -3e-6],
              "Fluid temp F": [14.7, 0.0182, 3.6e-8]}
    fitted = {}
    for name, curve in curves.items():
        readings = (1000, 3000, 5000, 8000, 11000) if "temp" in name else (0, 700, 1500, 2600, 4000)
        points = [(x, sum(c * x**k for k, c in enumerate(curve))) for x in readings]
        status, said, fitted[name] = field.calibrate(name, len(curve) - 1, points, "--yes")
        check(status == 0, f"{name}: {said}")
    modes = {1: (["Chamber", "Hydrostatic", "Fluid temp", "Piston"], "Deg C"),
             2: (["Chamber PSI", "Hydrostatic PSI", "Fluid temp F", "Piston"], "Deg F")}
    for mode, (sensors, degrees) in modes.items():
        field.start_box("--model", "LCU4", "--depth", 10, "--speed", 30, "--mode", mode)
        file = field.log("--sampling", "DEPTH", "--interval", 5, "--mode", mode, "--new", "--scans", 12)
        field.stop_box()
        polynomials = {channel: fitted[name] for channel, name in enumerate(sensors)}
        compare(field, file, "LCU4", "DEPTH", False, False, 12, polynomials)
        channels = field.info(file)["channels"][1:]
        check([c["name"] for c in channels[:4]] == sensors, f"mode {mode}: channels {channels}")
        check(channels[2]["unit"] == degrees, "unit of the temperature")
        check(all(c["calibration"]["coefficients"] == fitted[c["name"]] for c in channels[:4]), "polynomials on file")
        check(all(c["calibration"]["state"] == "Synthetic" for c in channels[4:]), "the derived temperatures")
        las = file.with_suffix(".las")
        field.tarvik("las", file, "-o", las, "--decimals", 2)
        _, rows = read_las(las)
        check(len(rows) == 12, "rows of the LAS")
        for row, record in zip(rows, field.records(file)):
            values = [int.from_bytes(record[12 + 4 * i : 16 + 4 * i], "little", signed=True) / 100 for i in range(6)]
            check(all(abs(got - want) < 0.0051 for got, want in zip(row[2:8], values)), f"LAS {row}, file {values}")


def killed_and_appended(field):
    """Killed outright while it writes: every whole record stays, and an append goes on at a record border."""
    field.start_box("--model", "LCU2Plus", "--depth", 10, "--speed", 30)
    setup = ["--sampling", "TIME", "--interval", "0.1"]
    run = field.start_log(*setup)
    field.wait_for_records(7)
    run.kill()
    run.wait(10)
    size = field.run_file().stat().st_size
    record = field.tool.record_bytes()
    kept = (size - scans.HEADER_BYTES) // record
    check(field.info(field.run_file())["scans"] == kept, "a whole record was lost")
    before = field.records(field.run_file())[:kept]

    # A kill between two bytes of a record is a torn tail.
    with field.run_file().open("ab") as file:
        file.write(b"torn" * 5)
    torn = field.info(field.run_file())
    check(torn["scans"] == kept and torn["partial_bytes"] == (20 + size - scans.HEADER_BYTES) % record, "torn tail")
    file = field.log(*setup, "--append", "--scans", 5)
    check(file == field.run_file(), "the append went into another file")
    after = field.records(file)
    check(after[:kept] == before and len(after) == kept + 5, "the append did not go on at a record border")
    check(all(len(one) == record for one in after), "the file does not end on a record border")


def stopped_by_the_operator(field):
    field.start_box("--model", "LCU4", "--depth", 10, "--speed", 30)
    run = field.start_log("--sampling", "DEPTH", "--interval", "5")
    field.wait_for_records(3)
    run.send_signal(signal.SIGINT)
    out, _ = run.communicate(timeout=30)
    check(run.returncode == 0 and out.strip() == str(field.run_file()), "Ctrl-C did not end the run in order")
    check("LCU powered down OK" in field.status_text(), "the tool was not powered down")


def refusals(field):
    """What cannot be done is said, and is an exit code."""
    nothing = field.tarvik("find", "--com1", field.home / "nowhere", "--lcucomms", "1", expect=1)
    check("nowhere" in nothing.stderr + field.status_text(), "the missing device is not named")
    check("No LCU device found on COM1" in field.status_text(), "no line about the search")
    field.tarvik("log", "--project", "P", "--hole", "H", "--tool", "K999", "--winch", "W240", expect=1)
    field.tarvik("log", "--interval", "often", expect=2)
    field.tarvik("info", field.home / "no.kvx", expect=1)
    short = field.home / "short.kvx"
    short.write_bytes(b"TARVIK" + bytes(100))
    check("short.kvx" in field.tarvik("info", short, expect=1).stderr, "the damaged file is not named")
    own = field.home / "program" / "UserTools-Winches.dat"
    own.write_bytes(own.read_bytes()[:5000])
    said = field.tarvik("equipment", "list").stderr
    check("UserTools-Winches.dat is damaged" in said, "damage of the equipment file is not said at the terminal")


def foreign_las(field):
    """A LAS file of another program, on a machine without the maker's equipment: refused, read tolerantly, exported."""
    field.bin = field.bin_without_equipment()
    las = field.home / "odd.las"
    las.write_text("~V\nVERS. 2.0 : v\nWRAP. NO : w\n~W\nSTRT.M 1 : s\nSTOP.M 2 : s\nSTEP.M 1 : s\nNULL. -9999 : n\n"
                   "DATE. 13-Mar-2006 : d\nCOMP. Acme : c\nWELL. H1 : w\n~C\nDEPT.M : 1\nA.CPS : 2\n~A\n1 -9999\n2 11,5\n")
    refused = field.tarvik("info", las, expect=1).stderr
    for text in ("Problems with LAS file", 'odd.las, line 9: "DATE" is out of place', "--tolerant",
                 "the maker's equipment file is missing"):
        check(text in refused, f"the refusal lacks: {text}")
    out = field.home / "out.las"
    said = field.tarvik("las", las, "-o", out, "--tolerant").stderr
    check("line 17: decimal comma" in said, "the repair is not said")
    names, rows = read_las(out)
    check(names == ["Depth", "A"] and rows == [[1, -9999], [2, 11.5]], f"{names} {rows}")
    check("is the file read" in field.tarvik("las", out, "-o", out, expect=1).stderr, "a file written over itself")


if __name__ == "__main__":
    drive([depth_down_metres_lcu2plus, time_up_feet_lcu2plus, depth_up_feet_lcu4, time_down_metres_lcu4, calibrated,
           fluid_sampler_in_both_modes, killed_and_appended, stopped_by_the_operator, refusals, foreign_las],
          tool_of=lambda case: scans.K306 if case is fluid_sampler_in_both_modes else scans.K240)
