#!/usr/bin/env python3
"""Pictures of the diagnostics console in the middle of a scan stream, light and dark.

Usage: console_pictures.py --bin DIR --tools DIR --pictures DIR
"""
import argparse
import pathlib
import subprocess
import sys
import tempfile
import time

from truck import Screen, Truck


def console_picture(options, theme, tab, name):
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        truck, screen = Truck(options, folder), Screen(folder)
        truck.load()
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
    for name in ("--bin", "--tools", "--pictures"):
        parser.add_argument(name, type=pathlib.Path, required=True)
    options = parser.parse_args()
    console_picture(options, "light", "alt+a", "diagnostics")
    console_picture(options, "dark", "alt+h", "diagnostics-dark")


if __name__ == "__main__":
    sys.exit(main())
