#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes fonts of IndicatorTestSans.otf that set numbers in ways of their own: IndicatorTest<Way>.otf."""
import pathlib
from string import Template

from fontTools import subset
from fontTools.feaLib.builder import addOpenTypeFeaturesFromString
from fontTools.ttLib import TTFont

CHARACTERS = "0123456789.- AM:"
NAMES = {"zero": "0", "one": "1", "seven": "7", "hyphen": "-", "period": ".", "colon": ":", "A": "A", "M": "M"}

# How a font sets numbers, as OpenType features.
WAYS = {
    "Joined": "feature liga { sub $hyphen $hyphen by $colon; } liga;",  # two characters of a number as one glyph
    "Turned": "feature calt { sub $zero $zero $one' by $seven; } calt;",  # another glyph behind certain digits
    "Raised": "feature kern { pos $zero $zero $one' <0 120 0 0>; } kern;",
    "Spread": "feature kern { pos $zero $zero $one' <0 0 300 0>; } kern;",  # a step that three digits decide
    # One letter changes the number behind it, others do not.
    "LetterJoins": "feature liga { sub $M $zero by $A; } liga;",
    "LetterTurnsFirst": "feature calt { sub $M $zero' by $colon; } calt;"
                        "feature kern { pos $colon $one $period' <300 0 300 0>; } kern;",
    "LetterTurnsSecond": "feature calt { sub $M $zero $one' by $seven; } calt;"
                         "feature kern { pos $seven $period' <300 0 300 0>; } kern;",
    "LetterRaisesSecond": "feature kern { pos $M $zero $one' <0 120 0 0>; } kern;",
    "LetterSpreadsSecond": "feature kern { pos $M $zero $one' <0 0 300 0>; } kern;",
}

folder = pathlib.Path(__file__).parent


def copy(name, characters=CHARACTERS):
    """The font with these characters alone, without features, by another name."""
    font = TTFont(folder / "IndicatorTestSans.otf", recalcBBoxes=False, recalcTimestamp=False)
    subsetter = subset.Subsetter(subset.Options(layout_features=[], glyph_names=True, name_IDs=["*"]))
    subsetter.populate(text=characters)
    subsetter.subset(font)
    for table in ("GSUB", "GPOS"):
        if table in font:
            del font[table]
    for record in font["name"].names:
        if record.nameID in (1, 4):
            record.string = "Indicator Test " + name
        elif record.nameID == 6:
            record.string = "IndicatorTest" + name
    return font


def save(font, name):
    font.save(folder / f"IndicatorTest{name}.otf")


for name, features in WAYS.items():
    font = copy(name)
    glyphs = font.getBestCmap()
    own = {word: glyphs[ord(character)] for word, character in NAMES.items()}
    addOpenTypeFeaturesFromString(font, Template(features).substitute(own))
    save(font, name)

save(copy("WithoutHyphen", CHARACTERS.replace("-", "")), "WithoutHyphen")

# The letter reaches over what another font puts behind it.
reaching = copy("Reaching", CHARACTERS.replace("-", ""))
letter = reaching.getBestCmap()[ord("M")]
reaching["hmtx"][letter] = (100, reaching["hmtx"][letter][1])
save(reaching, "Reaching")
