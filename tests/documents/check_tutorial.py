#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether the blocks of a tutorial, one after another, are a program. Usage: check_tutorial.py PAGE.md PROGRAM.cpp"""
import pathlib
import re
import sys


def lines(text):
    """Without the blank lines, which a block does not begin or end with."""
    return [line for line in text.split("\n") if line]


page = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
program = lines(pathlib.Path(sys.argv[2]).read_text(encoding="utf-8").split("\n", 1)[1])
told = lines("".join(re.findall(r"```cpp\n(.*?)```", page, re.S)))
for number, (ours, theirs) in enumerate(zip(told + [None], program + [None])):
    if ours != theirs:
        sys.exit(f"line {number} of the blocks is\n  {ours}\nbut the program has\n  {theirs}")
