#!/usr/bin/env python3
"""Holds every #include to the floors: a room may include itself and the rooms below it, nothing else.

Usage: check_includes.py ROOT. Prints each include that runs upward and exits 1 when there is one. Qt is for drawing
and screens only; the simulator sees the port and the clock and nothing else of the product.
"""
import pathlib
import re
import sys

FLOORS = ["base", "platform", "app", "equipment", "files", "lcu", "processing", "display", "program", "cli",
          "drawing", "screens"]
WITH_TOOLKIT = {"drawing", "screens"}
ONLY_FOR_STARTERS = "program"  # main programs and tests wire the modules; nobody else includes the wiring
SIMULATOR_MAY = {"platform/serial_port.h", "platform/clock.h", "platform/virtual_clock.h", "base/civil_time.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def faults_of(path, room, root):
    allowed = FLOORS[: FLOORS.index(room) + 1] if room in FLOORS else []
    for quote, target in INCLUDE.findall(path.read_text(encoding="utf-8", errors="replace")):
        if quote == "<":
            if re.match(r"Q[A-Z]|Qt", target) and room not in WITH_TOOLKIT:
                yield f"{path.relative_to(root)}: includes <{target}>, the toolkit has no place in {room}/"
            continue
        top = target.split("/")[0]
        if room == "simulator":
            if top in FLOORS and target not in SIMULATOR_MAY:
                yield f"{path.relative_to(root)}: includes {target}, the simulator packs its own bytes"
        elif top == "simulator":
            yield f"{path.relative_to(root)}: includes {target}, the product does not know the simulator"
        elif top not in FLOORS or "/" not in target:
            yield f"{path.relative_to(root)}: includes \"{target}\", write it as room/file.h"
        elif top not in allowed:
            yield f"{path.relative_to(root)}: includes {target}, which stands above {room}/"
        elif top == ONLY_FOR_STARTERS and room not in (ONLY_FOR_STARTERS, "cli", "screens"):
            yield f"{path.relative_to(root)}: includes {target}, only main programs and tests do"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    faults, files = [], 0
    for folder in [*sorted((root / "src").iterdir()), root / "simulator"]:
        if not folder.is_dir():
            continue
        if folder.name not in [*FLOORS, "simulator"]:
            faults.append(f"src/{folder.name}: a room without a floor")
            continue
        for path in sorted(folder.rglob("*")):
            if path.suffix in (".h", ".cpp"):
                files += 1
                faults += faults_of(path, folder.name, root)
    print("\n".join(faults) or f"{files} files keep to the floors")
    if files == 0:
        print("no file was checked")
    return 1 if faults or files == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
