#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether README.md shows an example as it is compiled. Usage: check_readme.py README.md EXAMPLE.cpp"""
import pathlib
import re
import sys

readme = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
example = pathlib.Path(sys.argv[2]).read_text(encoding="utf-8").split("\n", 1)[1]  # without the licence's line
blocks = re.findall(r"```cpp\n(.*?)```", readme, re.S)
if example not in blocks:
    sys.exit(f"none of the {len(blocks)} blocks of {sys.argv[1]} is {sys.argv[2]}")
