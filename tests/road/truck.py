"""A display of its own and a simulated box on a line: what a script needs to use the desktop as its operator does."""
import os
import pathlib
import shutil
import subprocess
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
        for _ in range(5):  # of servers that start at the same time two may take the same number
            self.start_server(size)
            time.sleep(0.3)  # the one that lost the number ends; the other one would answer in its place
            if self.server.poll() is None and self.tool("getdisplaygeometry").returncode == 0:
                break
            self.server.kill()
        self.manager = subprocess.Popen(["openbox"], env=self.environment, stderr=subprocess.DEVNULL)

    def start_server(self, size):
        reader, writer = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{size}x24"],
                                       pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:  # to the end of the line: a server that cannot write it all gives up
            self.environment["DISPLAY"] = ":" + number.readline().strip()

    def tool(self, *words):
        return subprocess.run(["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True)

    def key(self, *keys):
        for key in keys:
            self.tool("key", "--clearmodifiers", key)
            time.sleep(0.2)

    def type(self, text):
        self.tool("type", "--delay", "15", text)
        time.sleep(0.2)

    def title(self):
        return self.tool("getactivewindow", "getwindowname").stdout.strip()

    def wait_for_window(self, title):
        wait_for(lambda: self.title() == title, f"no window \"{title}\" came up, but \"{self.title()}\"")
        time.sleep(0.5)

    def acquire(self, at_equipment=lambda: None):
        """Searches for the LCU and takes tool and winch as they are."""
        self.key("F7")
        self.wait_for_window("Equipment of the next run")
        at_equipment()
        self.key("Return")
        self.wait_for_window("Tarvik")

    def picture(self, folder, name):
        if folder and shutil.which("import"):
            shot = subprocess.run(["import", "-window", "root", "png:-"], env=self.environment, capture_output=True)
            subprocess.run(["convert", "-", "-dither", "None", "-colors", "64", f"png8:{folder / name}.png"],
                           input=shot.stdout)  # a third of the bytes

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait(10)


class Truck:
    def __init__(self, options, home, speed=12):
        self.options, self.home, self.speed, self.line = options, home, speed, home / "lcu"
        self.run_file = home / "C" / "Brenna Projects" / "Northern Ranges" / "DH-104_K240_01.kvx"
        self.plug_in()

    def load(self):
        """As after the first day: a project, a hole, a tool and a winch are chosen."""
        self.tarvik("equipment", "add-tool", "K240", "2041")
        self.tarvik("equipment", "add-winch", "W240", "117")
        (self.home / "settings.ini").write_text(SETTINGS)

    def plug_in(self, *options):
        self.box = subprocess.Popen([self.options.bin / "lcusim", "--model", "LCU4", "--tool", "K240", "--tools",
                                     self.options.tools, "--link", self.line, "--speed", str(self.speed),
                                     "--baud", "115200", *(options or ("--depth", "10"))], stdout=subprocess.DEVNULL)
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
