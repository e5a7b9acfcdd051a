#!/usr/bin/env python3
"""The console at a terminal against the simulated box on a pseudo-terminal: every command of the protocol with its
answer, for both models, and a box that misbehaves while it streams.

Usage: console_road.py CASE --bin DIR --tools DIR

What must come back stands in the tables below, written from the protocol and not from the program.
"""
import re
import signal
import subprocess
import time

import scans
from field import check, drive

HEALTHY = {"LCU2Plus": 0x81, "LCU4": 0x91}
DEPTH = 1234  # cm, set before it is asked for
DEPTH_ANSWER = b"D" + DEPTH.to_bytes(3, "big")

# Commands that prepare and are not answered; the LCU2Plus knows none of the second row.
SET_UP = ["TT50", "TT25", "TD+5", "TD-20", "MUX", "L120,250", "!", "I", "i", "IA1", "PA50", "OPEN", "R11,S0", "P"]
LCU4_ONLY = ["ER0", "ER1", "ER30", "ER56"]
ANSWERED = {"Y": b"Y4.07", "y": b"y2.13", "D": DEPTH_ANSWER}


def raw_lines(text):
    """(direction, bytes) of every line of raw bytes; received bytes that follow each other are one answer."""
    found = []
    for line in text.splitlines():
        if row := re.match(r"\d\d:\d\d:\d\d\.\d{3}  ([<>x])  ((?:[0-9A-F]{2} )+)", line):
            way, data = row.group(1), bytes.fromhex(row.group(2))
            if found and way == found[-1][0] != ">":
                found[-1] = (way, found[-1][1] + data)
            else:
                found.append((way, data))
    return found


def console(field, *words):
    return field.tarvik("console", "--com1", field.line, "--lcucomms", "1", "--tool", field.tool.code, ":raw", *words).stdout


def typed(field, lines, end=None):
    """The console with commands typed, each after so many seconds; then a signal, or the end of the input."""
    words = field._words(["console", "--com1", field.line, "--lcucomms", "1"])
    program = subprocess.Popen(words, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    for seconds, line in lines:
        time.sleep(seconds)
        program.stdin.write(line)
        program.stdin.flush()
    if end:
        time.sleep(3)
        program.send_signal(end)
    said, _ = program.communicate(timeout=30)
    check(program.returncode == 0, f"the console ended with {program.returncode}: {said}")
    return said


def without_echo(data):
    return data[1:]  # the first byte of an answer is anything


def check_command(said, model, command, understood):
    """What was sent, what came back before the status was asked for, and the status. Returns the former answer."""
    lines = raw_lines(said)
    check(lines[0] == (">", command.encode() + b"\n"), f"{model} {command}: {lines} was sent")
    asked = lines.index((">", b"Q\n"))
    answer = b"".join(data for _, data in lines[1:asked])
    status = b"".join(data for way, data in lines[asked + 1 :] if way == "<")
    wanted = HEALTHY[model] | (0 if understood else 0x40)
    check(without_echo(status) == bytes([wanted]), f"{model} {command}: status {status.hex()}, not {wanted:02x}")
    check(("....Error - LCU Command error" in said) != understood, f"{model} {command}: {said}")
    check("sent to" not in said, f"{model} {command}: a good command was logged while the console is open")
    check(said.rstrip().endswith(" ".join(f"{wanted:08b}")), f"{model} {command}: the bits do not read {wanted:08b}")
    return answer


def every_command(field, model):
    field.start_box("--model", model, "--speed", 0, "--seed", 4)
    commands = SET_UP + LCU4_ONLY + ["NONSENSE", "U", *ANSWERED]
    words = [word for command in commands for word in (command, ":bits")]
    said = console(field, ":depth 12.34", ":bits", *words)
    blocks = re.split(r"(?<=(?:[01] ){7}[01])  .*\n", said)
    check("Depth successfully set to 12.34 metres" in blocks[0], f"{model}: the depth was not set: {said}")
    check((">", b"D1234\n") in raw_lines(blocks[0]), f"{model}: the depth went over the line as {raw_lines(blocks[0])}")
    check(len(blocks) == len(commands) + 2, f"{model}: {len(blocks)} blocks of answers")
    answers = {}
    for command, block in zip(commands, blocks[1:]):
        understood = command != "NONSENSE" and (model == "LCU4" or command not in LCU4_ONLY)
        answers[command] = check_command(block, model, command, understood)
    for command in SET_UP + LCU4_ONLY + ["NONSENSE"]:
        check(answers[command] == b"", f"{model} {command} was answered with {answers[command]}")
    for command, wanted in ANSWERED.items():
        got = answers[command]
        check(without_echo(got) == without_echo(wanted), f"{model} {command}: {got} is not {wanted}")
    scan = answers["U"]
    check(scan[0] == len(scan), f"{model} U: {scan.hex()} is no scan")
    check(abs(scans.Scan(scan[1:], model).depth - 12.34) < 0.02, f"{model} U: depth of {scan.hex()}")

    said = console(field, "X", "Q", ":reset", ":bits")
    sent = [data for way, data in raw_lines(said) if way == ">"]
    check(sent == [b"X\n", b"Q\n", b"Q\n", b"X\n", b"Q\n", b"X\n", b"Q\n", b"Q\n"], f"{model}: sent {sent}")
    for text in ("Sent status command", "LCU reset OK", "Diagnostics mode activated", "Diagnostics mode closed"):
        check(text in said, f"{model}: the console lacks: {text}")
    stream(field, model)


def stream(field, model):
    """What "V" brings: every line of the data log against what the box says it sent."""
    field.start_box("--model", model, "--depth", 10, "--speed", 20, "--seed", 4, "--record", field.record)
    said = console(field, "--scans", 8, "X\nTT25\nV")
    sent = [data for way, data in raw_lines(said) if way == ">"]
    check(sent[:5] == [b"X\n", b"Q\n", b"TT25\n", b"Q\n", b"V\n"] and sent[-2] == b"X\n", f"{model}: sent {sent}")
    channels = "".join(f"Chan{n}  " for n in range(1, 7))
    check(f" Depth   Time  {channels} Status/Current/Volt\n" in said, f"{model}: the heading")
    logged = re.findall(r"^ *([\d.]+) +(\d+) +((?:\d+ +)+)(\d+)/(\d+)/(\d+)$", said, re.MULTILINE)
    check(len(logged) == 8, f"{model}: {len(logged)} scans logged")
    truth = []
    for data in scans.sent_scans(field.record):
        scan = scans.Scan(data, model)
        truth.append((f"{scan.depth:.2f}", scan.time, scan.counts, HEALTHY[model], scan.current, scan.voltage))
    for depth, time, counts, *rest in logged:
        got = (depth, int(time), [int(c) for c in counts.split()], *map(int, rest))
        check(got in truth, f"{model}: logged {got}, the box sent {truth}")
    order = [said.index(text) for text in ("Data acquisition started", "LCU data stream stopped OK", "Data acquisition STOPPED")]
    check(order == sorted(order), f"{model}: the lines of the stream stand in another order")


def misbehaving(field):
    """A box that does everything wrong in turn, then hangs up; it is found again and streams on."""
    cases = [("silence@8=4500", ["Time-out waiting for LCU data", "Communications lost", "Communications re-established"]),
             ("garbage@8x3=40", ["Too many characters in buffer : exit code"]),
             ("empty-scan@8", ["Problems deciphering data from LCU"]),
             ("short-scan@8", []),
             ("zero-length@8", ["Too many characters in buffer : exit code 1 Expecting 0"]),
             ("extra-bytes@8=20", ["Too many characters in buffer : exit code 2 Expecting"])]
    for fault, wanted in cases:
        field.start_box("--model", "LCU4", "--depth", 10, "--fault", fault)
        said = console(field, "--scans", 14, "--seconds", 25, "TT25", "V")
        found = [said.find(text) for text in wanted]
        check(-1 not in found and found == sorted(found), f"{fault}: {said}")
        scans_shown = len(re.findall(r"/\d+/\d+$", said, re.MULTILINE))
        check(scans_shown >= 14, f"{fault}: {scans_shown} scans")
        check("Diagnostics mode closed" in said, f"{fault}: the console did not close")
    field.start_box("--model", "LCU4", "--depth", 10, "--fault", "hang-up@5=1500")
    said = typed(field, [(0, "TT25\r\nV\r\n"), (8, ":fi"), (0.3, "nd\n"), (6, "V\n"), (4, ":stop\n"),
                         (2, ":bits")])
    check(said.count("1 0 0 1 0 0 0 1") == 1, f"hang-up: the bits after all: {said}")
    found = [said.find(text) for text in ("Communications lost", "Data acquisition STOPPED", "activated on COM1",
                                          "Communications re-established")]
    check(-1 not in found and found == sorted(found), f"hang-up: {said}")

    said = typed(field, [(2, "V\n")], signal.SIGINT)
    check("LCU data stream stopped OK" in said and "Diagnostics mode closed" in said, f"Ctrl-C: {said}")
    field.stop_box()
    said = typed(field, [(0, "Q\n"), (2, ":find\n"), (0, ":bits\n")])
    check("No port is open - find the LCU first" in said and "- - - - - - - -" in said, f"without a box: {said}")


def lcu2plus(field):
    every_command(field, "LCU2Plus")


def lcu4(field):
    every_command(field, "LCU4")


if __name__ == "__main__":
    drive([lcu2plus, lcu4, misbehaving])
