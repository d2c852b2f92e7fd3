#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether docs/host.md names, under each folder of the library, what that folder leaves open for a host to define,
and every key that it asks of the skin.

Usage: check_host.py host.md OBJECTS SOURCES LIBRARY, where OBJECTS holds the compiled folders, SOURCES the folders,
and LIBRARY is what was linked of them.
A section is headed "## `folder`"; a name stands in it between backquotes, qualified, with or without arguments.
"""
import pathlib
import re
import subprocess
import sys

SEAM = r"(?:WB|TC|se|ttservice|luawrapper|utils)::|qnStockKey"
FOLDERS = ["data", "draw", "title", "stocklist", "dock", "recovery"]
KEY = r"\b(?:ic|tc|clr|fnt|img)_[a-z]+_?[a-z0-9_]*"


def seam_symbols(arguments):
    lines = subprocess.run(["nm", "-C", *arguments], capture_output=True, text=True, check=True).stdout.splitlines()
    return {line.split(" ", 1)[1] for line in (line.strip() for line in lines) if line.startswith("U ")}


def plain_name(symbol):
    """WB::CUiResource::getColor of its whole signature; the class of a constructor or of what a compiler makes."""
    symbol = re.sub(r"^(?:vtable|typeinfo|typeinfo name|VTT) for ", "", symbol)
    symbol = re.sub(r"^(?:non-virtual thunk to|guard variable for) ", "", symbol)
    symbol = symbol.split("(")[0].split("[")[0].split("@")[0]
    made = re.fullmatch(r"(.*)::(?:qt_metacall|qt_metacast|staticMetaObject|metaObject)", symbol)
    symbol = made.group(1) if made else symbol
    parts = symbol.split("::")
    if len(parts) > 2 and parts[-1].lstrip("~") == parts[-2]:
        parts.pop()
    return "::".join(parts)


def open_names(objects, defined):
    found = set()
    for symbol in seam_symbols(["--undefined-only", *objects]):
        name = plain_name(symbol)
        if re.match(SEAM, name) and name in defined:
            found.add(name)
    return found


def main():
    page, objects, sources, library = sys.argv[1:]
    library_open = {plain_name(symbol) for symbol in seam_symbols(["-D", "--undefined-only", library])}
    text = pathlib.Path(page).read_text(encoding="utf-8")
    sections = dict(re.findall(r"^## `(\w+)`\n(.*?)(?=^## |\Z)", text, re.M | re.S))
    faults, all_named = [], set()
    for folder in FOLDERS:
        section = sections.get(folder, "")
        code = re.findall(r"`([^`]*)`", section)
        named = {re.split(r"[ (]", word)[0] for word in code}
        all_named |= named
        needed = open_names(sorted(map(str, pathlib.Path(objects, folder).rglob("*.o"))), library_open)
        faults += [f"{folder}: {name} is not there" for name in sorted(needed - named)]
        # Virtual operations of a base are asked for by the class that derives from it.
        classes = {name.rpartition("::")[0] for name in needed}
        faults += [f"{folder}: {name} is not asked for" for name in sorted(named - needed)
                   if re.match(SEAM, name) and name in library_open and name.rpartition("::")[0] not in classes]
        keys = set()
        for source in pathlib.Path(sources, folder).rglob("*.[ch]*"):
            keys |= set(re.findall(r'"(' + KEY + r')', source.read_text(encoding="utf-8")))
        faults += [f"{folder}: key {key} is not there" for key in sorted(keys - set(code))]
        faults += [f"{folder}: key {key} is not asked for" for key in sorted(
            {word for word in code if re.fullmatch(KEY, word)} - keys)]
    rest = {name for name in library_open if re.match(SEAM, name)} - all_named
    faults += [f"{name} is left open and nowhere named" for name in sorted(rest)]
    if faults or not library_open:
        sys.exit("\n".join(faults or ["no symbols were found"]))


if __name__ == "__main__":
    main()
