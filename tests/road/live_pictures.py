"""Pictures of runs while they are logged: the plan view of a deviated hole, the gauges of a fluid sampler."""
import pathlib
import subprocess
import tempfile
import time

from truck import SETTINGS, Screen, Truck, check, wait_for

# name, tool, sampling, speed in metres a minute, bytes of scans to wait for
SHOTS = [("live-deviation", "K417", "DEPTH", "60", 30_000), ("live-gauges", "K306", "TIME", "6", 1_000)]


class LiveTruck(Truck):
    def __init__(self, options, home, tool, sampling, speed, theme):
        self.tool = tool
        self.fault = ["--fault", "extra-bytes@60=7"] if tool == "K306" else []
        super().__init__(options, home, speed)
        self.run_file = self.run_file.with_name(f"DH-104_{tool}_01.kvx")
        self.tarvik("equipment", "add-tool", tool, "2041")
        self.tarvik("equipment", "add-winch", "W240", "117")
        settings = SETTINGS.replace("K240", tool).replace("DEPTH", sampling)
        if sampling == "TIME":
            settings = settings.replace('SamplingInterval="5"', 'SamplingInterval="0.5"')
        (home / "settings.ini").write_text(settings + f'[Desktop]\nTheme="{theme}"\n')

    def plug_in(self):
        self.box = subprocess.Popen([self.options.bin / "lcusim", "--model", "LCU4", "--tool", self.tool, "--tools",
                                     self.options.tools, "--link", self.line, "--speed", self.speed, "--depth", "10",
                                     "--baud", "115200", *self.fault], stdout=subprocess.DEVNULL)
        wait_for(self.line.exists, "the simulated box did not make its line")


def equipment(screen, pictures):
    """Of the deviation tool, with the settings that only it has."""
    screen.key("alt+n")
    screen.wait_for_window("Deviation settings")
    screen.picture(pictures, "deviation-settings")
    screen.key("Escape")
    screen.wait_for_window("Equipment of the next run")


def overflow(screen, truck, pictures):
    """The scans that the box spoils are told in a form of their own."""
    wait_for(lambda: "uffer overflow" in truck.log_text(), "no scan is spoilt")
    time.sleep(1)
    screen.picture(pictures, "buffer-overflow")


def shoot(options, pictures, look, shot, folder):
    theme, size, scale = look
    name, tool, sampling, speed, scan_bytes = shot
    truck = LiveTruck(options, folder, tool, sampling, speed, theme)
    screen = Screen(folder, size)
    screen.environment["QT_SCALE_FACTOR"] = str(scale)
    program = subprocess.Popen([options.bin / "tarvik", "--home", folder, "--com1", truck.line, "--lcucomms", "1"],
                               env=screen.environment)
    try:
        screen.wait_for_window("Tarvik")
        screen.acquire(lambda: equipment(screen, pictures) if tool == "K417" else None)
        screen.key("F9")
        wait_for(truck.bytes_on_file, "the run does not start")
        header = truck.bytes_on_file()
        wait_for(lambda: truck.bytes_on_file() >= header + scan_bytes, "too few scans come to the run file", 120)
        check("uffer overflow" not in truck.log_text(), "scans were lost")
        screen.picture(pictures, name)
        if truck.fault:
            overflow(screen, truck, pictures)
        screen.key("F10")
        wait_for(lambda: "Logging run finished" in truck.log_text(), "the run does not end", 60)
    finally:
        program.kill()
        truck.box.kill()
        screen.close()


def shoot_all(options, pictures, look):
    """In a theme, a size of display and a scale."""
    for shot in SHOTS:
        with tempfile.TemporaryDirectory() as folder:
            shoot(options, pictures, look, shot, pathlib.Path(folder))
