#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A catalogue of the client holds every text of its sources, translated, with the same placeholders.

Usage: check_catalogue.py LUPDATE ROOT CATALOGUE
"""
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

lupdate, root, catalogue = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])


def messages(path):
    """Context and source of every message -> its translation element."""
    found = {}
    for context in ElementTree.parse(path).getroot().findall("context"):
        for message in context.findall("message"):
            found[context.findtext("name"), message.findtext("source")] = message.find("translation")
    return found


def placeholders(text):
    return sorted(re.findall(r"%(?:L?\d+|n)", text))


def mnemonics(text):
    return text.replace("&&", "").count("&")


def gathered(folder):
    """The catalogue as it is once the sources' texts are gathered anew."""
    fresh = Path(folder) / catalogue.name
    shutil.copy(catalogue, fresh)
    subprocess.run([lupdate, "-silent", "-locations", "none", "-no-obsolete", "-I", root, root / "apps" / "client",
                    "-ts", fresh], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return messages(fresh)


faults = []
with tempfile.TemporaryDirectory() as folder:
    wanted = gathered(folder)
held = messages(catalogue)
for context, source in sorted(wanted.keys() - held.keys()):
    faults.append(f"{context}: {source!r} is missing")
for context, source in sorted(held.keys() - wanted.keys()):
    faults.append(f"{context}: {source!r} is no longer in the sources")
for (context, source), translation in held.items():
    text = translation.text or ""
    if translation.get("type") or not text:
        faults.append(f"{context}: {source!r} is not translated")
    elif placeholders(source) != placeholders(text):
        faults.append(f"{context}: {source!r} and {text!r} differ in their placeholders")
    elif mnemonics(source) != mnemonics(text):
        faults.append(f"{context}: {source!r} and {text!r} differ in their mnemonics")
if len(held) < 200:
    faults.append(f"only {len(held)} texts")
print("\n".join(faults) or f"{len(held)} texts")
sys.exit(1 if faults else 0)
