#!/usr/bin/env python3
"""The desktop as its operator meets it: the real program in a window under Xvfb, driven by the keyboard alone, against
the simulated box on a pseudo-terminal.

Usage: desktop_road.py --bin DIR --tools DIR [--pictures DIR]

Searches, confirms the equipment, logs by depth, asks to close in the middle of the run and goes on, unplugs the box and
plugs it in again, stops, reviews the run and leaves; then reads the file back with the command line.
"""
import argparse
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

SETTINGS = """[Project]
Current_project="Northern Ranges"
[Hole]
HoleID="DH-104"
[WinchTool]
CurrentTool="K240"
CurrentWinch="W240"
DepthUnits="Metres"
SamplingMethod="DEPTH"
SamplingInterval="5"
LogDirection="DOWN"
"""


def check(condition, what):
    if not condition:
        raise SystemExit(f"FAILED: {what}")


def wait_for(condition, what, seconds=30):
    end = time.monotonic() + seconds
    while not (found := condition()):
        check(time.monotonic() < end, what)
        time.sleep(0.1)
    return found


class Screen:
    """A display of its own with a window manager: without one no shortcut reaches a window."""

    def __init__(self, folder, size="1280x800"):
        self.environment = {**os.environ, "XDG_RUNTIME_DIR": str(folder), "QT_QPA_PLATFORM": "xcb"}
        reader, writer = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{size}x24"],
                                       pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as answer:  # to the end of the line: closed before, the server would give up
            number = answer.readline().strip()
        self.environment["DISPLAY"] = f":{number}"
        self.manager = subprocess.Popen(["openbox"], env=self.environment, stderr=subprocess.DEVNULL)

    def tool(self, *words):
        return subprocess.run(["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True)

    def key(self, *keys):
        for key in keys:
            self.tool("key", "--clearmodifiers", key)
            time.sleep(0.2)

    def type(self, text):
        self.tool("type", "--clearmodifiers", text)

    def title(self):
        return self.tool("getactivewindow", "getwindowname").stdout.strip()

    def wait_for_window(self, title):
        wait_for(lambda: self.title() == title, f"no window \"{title}\" came up, but \"{self.title()}\"")
        time.sleep(0.5)

    def picture(self, folder, name):
        if folder and shutil.which("import"):
            subprocess.run(["import", "-window", "root", str(folder / f"{name}.png")], env=self.environment)

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait(10)


class Truck:
    def __init__(self, options, home):
        self.options, self.home, self.line = options, home, home / "lcu"
        self.run_file = home / "C" / "Brenna Projects" / "Northern Ranges" / "DH-104_K240_01.kvx"
        self.tarvik("equipment", "add-tool", "K240", "2041")
        self.tarvik("equipment", "add-winch", "W240", "117")
        (home / "settings.ini").write_text(SETTINGS)
        self.plug_in()

    def plug_in(self, *options):
        self.box = subprocess.Popen([self.options.bin / "lcusim", "--model", "LCU4", "--tool", "K240", "--tools",
                                     self.options.tools, "--link", self.line, "--speed", "12", "--depth", "10",
                                     "--baud", "115200", *options], stdout=subprocess.DEVNULL)
        wait_for(self.line.exists, "the simulated box did not make its line")

    def unplug(self):
        self.box.kill()
        self.box.wait(10)
        self.line.unlink(missing_ok=True)

    def tarvik(self, *words):
        return subprocess.run([str(self.options.bin / "tarvik"), *map(str, words), "--home", str(self.home)],
                              capture_output=True, text=True, timeout=60, check=True).stdout

    def log_text(self):
        return "".join(f.read_text("cp1252") for f in (self.home / "C" / "Tarvik_RunHistory").glob("*-*.txt"))

    def bytes_on_file(self):
        return self.run_file.stat().st_size if self.run_file.exists() else 0

    def wait_for_bytes(self, more):
        least = self.bytes_on_file() + more
        wait_for(lambda: self.bytes_on_file() >= least, "no scans come to the run file")


def a_day(screen, truck, program, pictures):
    screen.wait_for_window("Tarvik")
    screen.picture(pictures, "review")
    screen.key("F7")
    screen.wait_for_window("Equipment of the next run")
    screen.picture(pictures, "equipment")
    screen.key("Return")
    screen.wait_for_window("Tarvik")
    screen.key("F9")
    truck.wait_for_bytes(27_000)
    screen.picture(pictures, "logging")

    screen.key("alt+F4")  # asks, and the run goes on behind the question
    truck.wait_for_bytes(500)
    screen.key("Escape")
    truck.wait_for_bytes(500)
    check("Tarvik program closed" not in truck.log_text(), "the program closed in the middle of a run")

    truck.unplug()
    wait_for(lambda: "Communications lost" in truck.log_text(), "the loss of the line is not said")
    time.sleep(1)
    screen.picture(pictures, "communications-lost")
    truck.plug_in()
    wait_for(lambda: "Communications re-established" in truck.log_text(), "the line does not come back")
    truck.wait_for_bytes(500)
    screen.key("F10")
    wait_for(lambda: "Logging run finished" in truck.log_text(), "the run does not end", 60)
    time.sleep(2)
    screen.key("F6")
    wait_for(lambda: "Port COM1 closed" in truck.log_text(), "review does not close the port")
    time.sleep(1)
    screen.key("ctrl+o")
    screen.wait_for_window("Open a run")
    time.sleep(1)
    screen.picture(pictures, "open-a-run")
    screen.key("Return")
    screen.wait_for_window("Tarvik")
    time.sleep(1)
    screen.picture(pictures, "run-in-review")
    screen.key("ctrl+w")
    screen.key("ctrl+q")
    check(program.wait(20) == 0, f"the program ended with {program.returncode}")


def console_pictures(options, theme, tab, name):
    """The diagnostics console in the middle of a scan stream, with the raw bytes of the line."""
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        truck, screen = Truck(options, folder), Screen(folder)
        with (folder / "settings.ini").open("a") as settings:
            settings.write(f'[Desktop]\nTheme="{theme}"\n')
        program = subprocess.Popen([options.bin / "tarvik", "--home", folder, "--com1", truck.line, "--lcucomms", "1"],
                                   env=screen.environment)
        try:
            screen.wait_for_window("Tarvik")
            screen.key("F7")
            screen.wait_for_window("Equipment of the next run")
            screen.key("Return")
            screen.wait_for_window("Tarvik")
            screen.key("ctrl+d")
            screen.wait_for_window("Diagnostics console")
            screen.key("alt+w", "alt+y", "alt+n")  # raw bytes, all of them; back to the single command
            for command in ("Q", "X1", "TT50", "V"):
                screen.type(command)
                screen.key("Return")
                time.sleep(1.5)
                if command == "X1":
                    screen.key("Return")  # the box about a command that the LCU does not know
            time.sleep(10)
            screen.key(tab)
            time.sleep(1)
            screen.picture(options.pictures, name)
        finally:
            program.kill()
            truck.box.kill()
            screen.close()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--bin", type=pathlib.Path, required=True)
    parser.add_argument("--tools", type=pathlib.Path, required=True)
    parser.add_argument("--pictures", type=pathlib.Path)
    options = parser.parse_args()
    if options.pictures:
        console_pictures(options, "light", "alt+a", "diagnostics")
        console_pictures(options, "dark", "alt+h", "diagnostics-dark")
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        truck, screen = Truck(options, folder), Screen(folder)
        program = subprocess.Popen([options.bin / "tarvik", "--home", folder, "--com1", truck.line, "--lcucomms", "1"],
                                   env=screen.environment)
        try:
            a_day(screen, truck, program, options.pictures)
        finally:
            program.kill()
            truck.box.kill()
            screen.close()
        info = json.loads(truck.tarvik("info", truck.run_file, "--json"))
        check(info["scans"] >= 10 and info["hole"] == "DH-104" and info["partial_bytes"] == 0, f"the run reads {info}")
        check("Tarvik program closed" in truck.log_text(), "the closing lines are missing")
        print(f"{info['scans']} scans on file, {info['depth_from']} to {info['depth_to']} m")


if __name__ == "__main__":
    sys.exit(main())
