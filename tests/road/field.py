"""A truck without a window: a box on a pseudo-terminal, the program at a terminal, and the cases run with them."""
import argparse
import json
import os
import pathlib
import pty
import shutil
import subprocess
import tempfile
import time

import scans

SERIAL = "9001"  # of a tool that the maker has no calibrations of


def check(condition, what):
    if not condition:
        raise SystemExit(f"FAILED: {what}")


class Field:
    """A truck for one test: a box on a pseudo-terminal and a home for the program."""

    def __init__(self, options, folder, tool):
        self.tool = tool
        self.bin, self.tools, self.home = options.bin, options.tools, folder
        self.line, self.record = folder / "lcu", folder / "record.txt"
        self.box = None

    def start_box(self, *options):
        self.stop_box()
        command = [self.bin / "lcusim", "--tool", self.tool.code, "--tools", self.tools, "--link", self.line, "--record",
                   self.record, *options]
        self.box = subprocess.Popen(list(map(str, command)), stdout=subprocess.DEVNULL)
        self._wait_for(self.line.exists, "the simulated box did not make its line")

    def stop_box(self):
        if self.box:
            self.box.terminate()
            self.box.wait(10)
            self.box = None

    def _words(self, words):
        return [str(self.bin / "tarvik"), *map(str, words), "--home", str(self.home)]

    def tarvik(self, *words, expect=0):
        done = subprocess.run(self._words(words), capture_output=True, text=True, timeout=90)
        check(done.returncode == expect, f"{words} ended with {done.returncode}, not {expect}: {done.stderr}")
        return done

    def _calibrate_words(self, sensor, order, *words):
        return self._words(["calibrate", "--tool", self.tool.code, "--serial", SERIAL, "--sensor", sensor, "--order", order,
                            "--by", "Road test", *words])

    def calibrate(self, sensor, order, points, *words):
        """Away from any terminal, so that no question can be asked: exit code, what was said, coefficients."""
        text = "".join(f"{x} {y}\n" for x, y in points)
        done = subprocess.run(self._calibrate_words(sensor, order, *words), input=text, capture_output=True, text=True,
                              timeout=30, start_new_session=True)
        coefficients = [float(line) for line in done.stdout.splitlines()[1 : order + 2]]
        return done.returncode, done.stderr, coefficients

    def calibrate_at_a_terminal(self, sensor, order, points, answers):
        """Points from a file, the questions answered on the terminal: what the terminal showed."""
        file = self.home / "points.txt"
        file.write_text("".join(f"{x} {y}\n" for x, y in points))
        child, terminal = pty.fork()
        if child == 0:
            os.dup2(os.open(file, os.O_RDONLY), 0)
            words = self._calibrate_words(sensor, order, "--kind", "factory")
            os.execv(words[0], words)
        shown = b""
        for question, answer in answers:
            while question not in shown:
                shown += os.read(terminal, 1000)
            os.write(terminal, answer)
        os.waitpid(child, 0)
        os.close(terminal)
        return shown.decode()

    def own_equipment(self):
        self.tarvik("equipment", "add-tool", self.tool.code, SERIAL)
        self.tarvik("equipment", "add-winch", "W240", "117")

    def log_words(self, *words):
        return ["log", "--com1", self.line, "--lcucomms", "1", "--project", "P", "--hole", "H", "--tool",
                self.tool.code, "--winch", "W240", *words]

    def start_log(self, *words):
        return subprocess.Popen(self._words(self.log_words(*words)), stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, text=True)

    def log(self, *words):
        return pathlib.Path(self.tarvik(*self.log_words(*words)).stdout.splitlines()[-1])

    def bin_without_equipment(self):
        """The program, installed without its data and started for the first time."""
        (self.home / "installed" / "share" / "tarvik").mkdir(parents=True)
        (self.home / "installed" / "bin").mkdir()
        shutil.copy(self.bin / "tarvik", self.home / "installed" / "bin")
        shutil.rmtree(self.home / "program")
        return self.home / "installed" / "bin"

    def run_file(self, number=1):
        return self.home / "C" / "Brenna Projects" / "P" / f"H_{self.tool.code}_{number:02}.kvx"

    def records(self, file):
        data = file.read_bytes()[scans.HEADER_BYTES :]
        size = self.tool.record_bytes()
        return [data[i : i + size] for i in range(0, len(data), size)]

    def info(self, file):
        return json.loads(self.tarvik("info", file, "--json").stdout)

    def status_text(self):
        return "".join(f.read_text("cp1252") for f in (self.home / "C" / "Tarvik_RunHistory").glob("*-*.txt"))

    def _wait_for(self, condition, what, seconds=20):
        end = time.monotonic() + seconds
        while not condition():
            check(time.monotonic() < end, what)
            time.sleep(0.02)

    def wait_for_records(self, count, number=1):
        file = self.run_file(number)
        enough = scans.HEADER_BYTES + count * self.tool.record_bytes()
        self._wait_for(lambda: file.exists() and file.stat().st_size >= enough, f"{count} records did not come", 60)


def drive(cases, tool_of=lambda case: scans.K240):
    """Runs the case that the command line names, with its tool and its own home."""
    named = {case.__name__: case for case in cases}
    parser = argparse.ArgumentParser()
    parser.add_argument("case", choices=named)
    parser.add_argument("--bin", type=pathlib.Path, required=True)
    parser.add_argument("--tools", type=pathlib.Path, required=True)
    options = parser.parse_args()
    case = named[options.case]
    with tempfile.TemporaryDirectory() as folder:
        field = Field(options, pathlib.Path(folder), tool_of(case))
        try:
            field.own_equipment()
            case(field)
        finally:
            field.stop_box()
    print("passed")
