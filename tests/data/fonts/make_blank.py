#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes IndicatorTestBlank.otf of IndicatorTestSans.otf: the same advances and metrics, and nothing to see."""
import pathlib

from fontTools.ttLib import TTFont

folder = pathlib.Path(__file__).parent
font = TTFont(folder / "IndicatorTestSans.otf", recalcBBoxes=False, recalcTimestamp=False)
strings = font["CFF "].cff.topDictIndex[0].CharStrings
for name in strings.keys():
    strings[name].setProgram(["endchar"])
for record in font["name"].names:
    if record.nameID in (1, 4):
        record.string = "Indicator Test Blank"
    elif record.nameID == 6:
        record.string = "IndicatorTestBlank"
font.save(folder / "IndicatorTestBlank.otf")
