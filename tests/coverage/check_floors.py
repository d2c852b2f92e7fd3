#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Lines and branches that the tests reach, a room at a time, and whether a room fell below its floor.

check_floors.py SUMMARY.json (of gcovr --json-summary)
"""

import json
import sys

# Percent of lines and of branches; None: not asked for.
FLOORS = {
    "src": (99.5, 96.0),
    "src/title": (None, 95.0),
    "engine": (99.0, 94.0),
    "host": (95.0, 88.0),
    "apps": (93.0, 82.0),
}


def share(files, what):
    """Percent that is reached of all lines or branches."""
    total = sum(file[f"{what}_total"] for file in files)
    return 100.0 * sum(file[f"{what}_covered"] for file in files) / total if total else 100.0


def main(summary):
    with open(summary, encoding="utf-8") as text:
        files = json.load(text)["files"]
    below = 0
    print(f"{'room':<12}{'lines %':>9}{'floor':>7}{'branches %':>12}{'floor':>7}")
    for room, floors in FLOORS.items():
        inside = [file for file in files if file["filename"].startswith(room + "/")]
        if not inside:
            sys.exit(f"{summary} has no file of {room}.")
        row = f"{room:<12}"
        for what, width, floor in (("line", 9, floors[0]), ("branch", 12, floors[1])):
            reached = share(inside, what)
            below += floor is not None and reached < floor
            row += f"{reached:>{width}.2f}{'' if floor is None else f'{floor:.1f}':>7}"
        print(row)
    if below:
        sys.exit(f"{below} below the floor: build/coverage/report/index.html shows what no test reaches.")


main(*sys.argv[1:])
