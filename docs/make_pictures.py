#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the pictures of the documentation: chart.png, and those beside the formulas of formulas.md.

Usage: make_pictures.py [--into FOLDER] RENDERER [NAME...]

RENDERER is the program indicatorui-render. FOLDER takes the pictures instead of this one. A NAME is a picture
without its folder and .png (chart, MA, statistics); without names all are made. The same program, data and fonts
(Debian's fonts-noto-cjk) make the same pixels.
"""
import argparse
import os
import pathlib
import re
import subprocess
import tempfile

DOCS = pathlib.Path(__file__).resolve().parent
BARS = DOCS.parent / "samples" / "bars"
SHARE = ["--bars", BARS / "SH600030.csv", "--count", "110"]


def pictures(page):
    """For each picture: its path below the folder, the formula's text or None, the renderer's arguments."""
    yield "chart.png", None, ["--bars", BARS / "SH000001.csv", "--count", "250", "--size", "1280x760"]
    for text, path in re.findall(r"\n```formula\n([^`]*)```\n+!\[[^]]*\]\(([^)]*)\)", page, re.S):
        yield path, text, SHARE + ["--size", "760x420"]
    for text, path in re.findall(r"\n\| `([^`]*)` \| !\[[^]]*\]\(([^)]*)\)", page):
        # Over the candles, or in a pane of its own.
        alone = [] if text.startswith("MAIN;") else ["--pane", pathlib.Path(path).stem]
        yield path, text, SHARE + alone + ["--size", "560x150" if alone else "560x220"]


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--into", type=pathlib.Path, default=DOCS)
    parser.add_argument("renderer")
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    unknown = set(options.names)
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", TZ="Asia/Shanghai", LC_ALL="C.UTF-8",
                           INDICATORUI_HOME=folder)
        for path, text, arguments in pictures((DOCS / "formulas.md").read_text(encoding="utf-8")):
            name = pathlib.Path(path).stem
            if options.names and name not in options.names:
                continue
            unknown.discard(name)
            if text:
                formula = pathlib.Path(folder, name + ".txt")
                formula.write_text(text, encoding="utf-8")
                arguments = arguments + ["--formula", formula]
            target = options.into / path
            target.parent.mkdir(parents=True, exist_ok=True)
            subprocess.run([options.renderer, *arguments, "-o", target], env=environment, check=True)
    if unknown:
        parser.error("no such picture: " + ", ".join(sorted(unknown)))


if __name__ == "__main__":
    main()
