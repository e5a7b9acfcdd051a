#!/usr/bin/env python3
"""The desktop as its operator meets it: the real program in a window under Xvfb, driven by the keyboard alone, against
the simulated box on a pseudo-terminal.

Usage: desktop_road.py --bin DIR --tools DIR [--pictures DIR]

A new project and hole, a tool and a winch; the box is found and the depth set; a run by depth, in the middle of which
the operator asks to close and goes on, and the box is unplugged and plugged in again; an append; review, LAS, demonstrations,
exit. Then a second start, and the window closed in the middle of a run; a third one, and the display lost in a run. The
files are then read back.
"""
import argparse
import json
import pathlib
import random
import subprocess
import sys
import tempfile
import time

from truck import Screen, Truck, check, wait_for

def said_times(truck, words):
    return truck.log_text().count(words)


def sets_up(screen, pictures):
    """The first day: nothing is known yet."""
    screen.wait_for_window("Tarvik")
    screen.picture(pictures, "review")
    screen.key("F2")
    screen.wait_for_window("Setup")
    screen.type("Northern Ranges")
    screen.key("Return", "ctrl+Next")
    screen.type("DH-104")
    screen.key("ctrl+Next", "alt+y", "alt+m")
    screen.type("K240")
    screen.key("alt+e")
    screen.type("2041")
    screen.key("alt+a", "alt+i", "alt+m")
    screen.type("W240")
    screen.key("alt+e")
    screen.type("117")
    screen.key("alt+a", "alt+n", "alt+e", "alt+v")
    screen.type("5")
    screen.picture(pictures, "setup")
    screen.key("Return")
    screen.wait_for_window("Tarvik")


def finds_the_box(screen, truck, pictures):
    screen.acquire(lambda: screen.picture(pictures, "equipment"))
    screen.key("alt+p")
    screen.type("12.5")
    screen.key("alt+d")
    wait_for(lambda: "Depth successfully set to 12.5 metres" in truck.log_text(), "the winch depth is not set")


def logs_down(screen, truck, pictures):
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
    truck.plug_in("--depth", "14")
    wait_for(lambda: "Communications re-established" in truck.log_text(), "the line does not come back")
    truck.wait_for_bytes(500)
    stops(screen, truck, 1)


def appends(screen, truck, pictures):
    screen.key("alt+r", "F9")  # the end of a run has switched recording off
    screen.wait_for_window("Append or start a new run")
    screen.key("alt+a")
    screen.picture(pictures, "append-or-new")
    screen.key("Return")
    truck.wait_for_bytes(500)
    stops(screen, truck, 2)


def stops(screen, truck, runs):
    screen.key("F10")
    wait_for(lambda: said_times(truck, "Logging run finished") == runs, "the run does not end", 60)
    time.sleep(2)


def reviews(screen, truck, pictures):
    screen.key("F6")
    wait_for(lambda: "Port COM1 closed" in truck.log_text().split("Logging run finished")[-1],
             "review does not close the port")
    time.sleep(1)
    screen.key("ctrl+o")
    screen.wait_for_window("Open a run")
    time.sleep(1)
    screen.picture(pictures, "open-a-run")
    screen.key("Return")
    screen.wait_for_window("Tarvik")
    time.sleep(1)
    screen.picture(pictures, "run-in-review")
    screen.key("alt+l")
    screen.wait_for_window("Export as LAS")
    screen.key("Return")
    wait_for(truck.run_file.with_suffix(".las").exists, "the LAS file is not written")
    time.sleep(1)
    screen.key("Escape", "ctrl+w")
    screen.wait_for_window("Tarvik")


def demonstrates(screen, truck):
    """A run as it is and one that breaks off within a scan are played; what is no run is refused in plain words."""
    torn = truck.run_file.with_name("DH-105_K240_01.kvx")
    torn.write_bytes(truck.run_file.read_bytes()[:-20])
    noise = truck.home / "noise.kvx"
    noise.write_bytes(random.Random(1).randbytes(50_000))
    whole = json.loads(truck.tarvik("info", truck.run_file, "--json"))["scans"]
    screen.key("alt+h", "m")
    for number, (name, scans) in enumerate([("DH-104", whole), ("DH-105", whole - 1)], start=1):
        screen.wait_for_window("Demonstration")
        time.sleep(1)  # the list reads on
        screen.type(name)
        screen.key("Tab", "End", "space", "Return")  # as fast as possible
        wait_for(lambda: said_times(truck, "Demonstration finished") == number, f"{name} is not played to its end")
        check(f"{scans} scans shown" in truck.log_text(), f"{name}: {truck.log_text().splitlines()[-1]}")
        screen.wait_for_window("Tarvik")
        screen.key("alt+c")
    for file in (truck.run_file.with_suffix(".las"), noise):
        screen.wait_for_window("Demonstration")
        screen.key("alt+b")
        screen.wait_for_window("Play a run")
        screen.type(file)
        screen.key("Return")
        screen.wait_for_window("Demonstration")  # the message, not the report of an error
        screen.key("Return")
        screen.wait_for_window("Tarvik")
        screen.key("alt+c")
    screen.wait_for_window("Demonstration")
    screen.key("Escape")
    screen.wait_for_window("Tarvik")
    check(said_times(truck, "Demonstration finished") == 2, "something that is no run was played")
    screen.key("ctrl+q")


def a_day(screen, truck, program, pictures):
    sets_up(screen, pictures)
    finds_the_box(screen, truck, pictures)
    logs_down(screen, truck, pictures)
    appends(screen, truck, pictures)
    reviews(screen, truck, pictures)
    demonstrates(screen, truck)
    check(program.wait(20) == 0, f"the program ended with {program.returncode}")


def logs_beside(screen, truck, number):
    """One more run of the hole, going on; its file."""
    file = truck.run_file.with_name(f"DH-104_K240_{number:02}.kvx")
    screen.wait_for_window("Tarvik")
    screen.acquire()
    screen.key("F9")
    screen.wait_for_window("Append or start a new run")
    screen.key("Return")
    wait_for(lambda: file.exists() and file.stat().st_size > 28_000, f"run {number} is not logged")
    return file


def closes_in_a_run(screen, truck, program):
    """Of the three ways out the one in a hurry: what is kept is on file, and the tool is powered down."""
    second = logs_beside(screen, truck, 2)
    screen.key("alt+F4")
    time.sleep(1)
    screen.key("alt+s")
    check(program.wait(30) == 0, f"stopped and closed, the program ended with {program.returncode}")
    last = truck.log_text().rsplit("Logging run finished", 1)[-1]
    check("Tarvik program closed" in last and "shut down" not in last, f"the run ends with: {last}")
    info = json.loads(truck.tarvik("info", second, "--json"))
    check(info["scans"] > 20 and info["partial_bytes"] == 0, f"the second run reads {info}")


def loses_its_display(screen, truck, program):
    """The server dies in the middle of a run: nobody sees it, but the run is closed as ever."""
    third = logs_beside(screen, truck, 3)
    screen.server.kill()
    check(program.wait(30) == 1, f"without a display the program ended with {program.returncode}")
    last = truck.log_text().rsplit("The display has gone", 1)[-1]
    said = [last.find(words) for words in ("LCU powered down OK", "Logging run finished", "Port COM1 closed",
                                           "Tarvik program closed")]
    check(-1 not in said and said == sorted(said), f"without a display the run ends with: {last}")
    check(list(truck.home.glob(f"**/Backup*/**/{third.name}")), "without a display the run has no copy")
    info = json.loads(truck.tarvik("info", third, "--json"))
    check(info["scans"] > 20 and info["partial_bytes"] == 0, f"the third run reads {info}")


def starts(options, truck, screen):
    return subprocess.Popen([options.bin / "tarvik", "--home", truck.home, "--com1", truck.line, "--lcucomms", "1"],
                            env=screen.environment)


def read_back(truck):
    info = json.loads(truck.tarvik("info", truck.run_file, "--json"))
    check(info["scans"] >= 20 and info["hole"] == "DH-104" and info["partial_bytes"] == 0, f"the run reads {info}")
    las = truck.run_file.with_suffix(".las").read_text("cp1252")
    rows = las.split("~A", 1)[1].splitlines()[1:]
    check(len(rows) == info["scans"], f"{len(rows)} rows in the LAS file, {info['scans']} scans in the run")
    return info


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--bin", type=pathlib.Path, required=True)
    parser.add_argument("--tools", type=pathlib.Path, required=True)
    parser.add_argument("--pictures", type=pathlib.Path)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        truck, screen = Truck(options, folder), Screen(folder)
        program = starts(options, truck, screen)
        try:
            a_day(screen, truck, program, options.pictures)
            program = starts(options, truck, screen)
            closes_in_a_run(screen, truck, program)
            program = starts(options, truck, screen)
            loses_its_display(screen, truck, program)
        finally:
            program.kill()
            truck.box.kill()
            screen.close()
        info = read_back(truck)
        check("Tarvik program closed" in truck.log_text(), "the closing lines are missing")
        print(f"{info['scans']} scans on file, {info['depth_from']} to {info['depth_to']} m")


if __name__ == "__main__":
    sys.exit(main())
