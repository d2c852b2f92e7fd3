#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether the user guide shows pictures that there are, all of them, and names menu entries that there are.

Usage: check_guide.py GUIDE-FOLDER GUIDE-PICTURES SAMPLES
"""
import pathlib
import re
import subprocess
import sys

folder, program, samples = pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3]
faults = []


def told(*arguments):
    return subprocess.run([program, *arguments, samples], check=True, capture_output=True, text=True).stdout.splitlines()


names = set(told("--names"))
sections = {}
for page in sorted(folder.glob("??.md")):
    language, text = page.stem, page.read_text(encoding="utf-8")
    sections[language] = [len(marks) for marks in re.findall(r"^(#+) ", text, re.M)]
    shown = re.findall(r"!\[[^]]+\]\(([^)]*)\)", text)
    expected = {f"pictures/{language}-{name}.png" for name in names}
    faults += [f"{page.name}: {path} is no picture of the guide" for path in sorted(set(shown) - expected)]
    faults += [f"{page.name}: {path} is not shown" for path in sorted(expected - set(shown))]
    faults += [f"{path} is missing: ./dev pictures guide" for path in sorted(expected) if not (folder / path).is_file()]
    entries = set(told("--entries", language))
    named = re.findall(r"\*\*([^*]+ → [^*]+)\*\*", text)
    faults += [f"{page.name}: there is no entry {entry}" for entry in named if entry not in entries]
    if not named:
        faults.append(f"{page.name} names no entry")
if len(sections) != 2 or len({str(levels) for levels in sections.values()}) != 1:
    faults.append(f"the pages differ in their sections: {sections}")
if faults:
    sys.exit("\n".join(faults))
