#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reads every source with another compiler or in another mode; a warning is an error. Nothing is written.

Usage: check_syntax.py COMPILE_COMMANDS.json COMPILER [OPTION...] [-- FOLDER...]
OPTIONs stand behind those of the build, so that -std=c++20 wins. Without FOLDERs all of the project is read.
"""
import concurrent.futures
import json
import os
import pathlib
import shlex
import subprocess
import sys

arguments = sys.argv[1:]
split = arguments.index("--") if "--" in arguments else len(arguments)
commands, compiler, *options = arguments[:split]
project = pathlib.Path(__file__).resolve().parents[2]
folders = [project / name for name in arguments[split + 1:] or ["engine", "src", "host", "apps", "tests"]]
# Words of the build that make no difference to what is read, or that GCC alone knows.
LEFT_OUT = ("-g", "-O", "-fno-gnu-unique")


def own(entry):
    return any(folder in pathlib.Path(entry["file"]).parents for folder in folders)


def read(entry):
    words = shlex.split(entry["command"])
    if "ccache" in words[0]:
        words.pop(0)
    words = words[1:words.index("-o")] + words[words.index("-o") + 2:]
    words = [word for word in words if not word.startswith(LEFT_OUT)]
    done = subprocess.run([compiler, "-fsyntax-only", *words, *options, "-Werror"], cwd=entry["directory"],
                          capture_output=True, text=True)
    return done.stderr if done.returncode else ""


entries = [entry for entry in json.load(open(commands, encoding="utf-8")) if own(entry)]
with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
    faults = [fault for fault in pool.map(read, entries) if fault]
print(f"{len(entries)} sources, {len(faults)} with faults", file=sys.stderr)
if faults or not entries:
    sys.exit("\n".join(faults) or "no sources")
