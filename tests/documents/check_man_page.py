#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether a manual page tells of the options that a program lists. Usage: check_man_page.py PAGE PROGRAM"""
import pathlib
import re
import subprocess
import sys

page, program = sys.argv[1:]
usage = subprocess.run([program, "--help"], capture_output=True, text=True, check=True).stdout
listed = set(re.findall(r"(?<![\w-])--?[a-z][a-z-]*", "\n".join(re.findall(r"^  (-.*?)(?:  |$)", usage, re.M))))
section = pathlib.Path(page).read_text(encoding="utf-8").split(".SH OPTIONS\n")[1].split(".SH")[0]
section = re.sub(r"\\f[BIR]", "", section).replace("\\-", "-")
told = set(re.findall(r"(?<![\w-])--?[a-z][a-z-]*", "\n".join(re.findall(r"^\.TP\n(.*)$", section, re.M))))
if not listed or listed != told:
    sys.exit(f"only in --help: {sorted(listed - told)}; only in {page}: {sorted(told - listed)}")
