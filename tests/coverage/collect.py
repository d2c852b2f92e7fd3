#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Gathers what gcov counted into a trace file for gcovr: collect.py ROOT BUILD >TRACE.json

gcov's text, which gcovr reads by itself, does not say of a branch that was never reached whether it is taken by an
exception alone. Sources that are compiled into two libraries would so have branches that nobody can take. gcov's JSON
does say it.
"""

import json
import os
import re
import shlex
import subprocess
import sys
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOMS = ("src/", "engine/", "host/", "apps/")
BLOCK_ENDS = re.compile(r"//.*|[\s{}();]")


def counts_of(notes):
    """gcov's word on one object, also on one that never ran."""
    told = subprocess.run(["gcov", "--json-format", "--branch-probabilities", "--stdout", str(notes)], text=True,
                          check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, cwd=notes.parent).stdout
    return [json.loads(line) for line in told.splitlines() if line.startswith("{")]


def add(lines, found):
    """Adds one object's counts of a source. Copies of a function that have the same branches are one function."""
    for line in found:
        branches = [branch for branch in line["branches"] if not branch["throw"]]
        known = lines[line["line_number"]]
        known["count"] += line["count"]
        sums = known["branches"].setdefault(len(branches), [0] * len(branches))
        for place, branch in enumerate(branches):
            sums[place] += branch["count"]


def trace_of(name, lines, source):
    """A source as gcovr writes it down, without lines of braces alone: theirs is the compiler's own code."""
    written = []
    for number, line in sorted(lines.items()):
        if number > len(source) or not BLOCK_ENDS.sub("", source[number - 1]):
            continue
        sums = [count for group in line["branches"].values() for count in group]
        written.append({"line_number": number, "count": line["count"], "gcovr/noncode": False, "gcovr/excluded": False,
                        "branches": [{"count": count, "fallthrough": False, "throw": False} for count in sums]})
    return {"file": name, "lines": written, "functions": []}


def compiled(build):
    """The notes on all objects of a build; those of sources that went away stay in its folder as well."""
    commands = [shlex.split(entry["command"]) for entry in json.loads((build / "compile_commands.json").read_text())]
    notes = sorted((build / words[words.index("-o") + 1]).with_suffix(".gcno") for words in commands)
    return [file for file in notes if file.exists()]


def main(root, build):
    root = Path(root).resolve()
    objects = compiled(Path(build).resolve())
    files = defaultdict(lambda: defaultdict(lambda: {"count": 0, "branches": {}}))
    with ThreadPoolExecutor() as pool:
        for told in pool.map(counts_of, objects):
            for part in told:
                for file in part["files"]:
                    path = os.path.normpath(os.path.join(part["current_working_directory"], file["file"]))
                    name = os.path.relpath(path, root)
                    if name.startswith(ROOMS):
                        add(files[name], file["lines"])
    traces = [trace_of(name, lines, (root / name).read_text().splitlines()) for name, lines in sorted(files.items())]
    json.dump({"gcovr/format_version": "0.3", "files": traces}, sys.stdout)


main(*sys.argv[1:])
