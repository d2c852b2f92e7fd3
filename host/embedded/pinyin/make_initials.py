#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes PinyinInitials.inc: the initials of every reading of each basic CJK character.

Input: Unihan_Readings.txt.bz2 of the Unicode character database (Debian package unicode-data).
Usage: make_initials.py [Unihan_Readings.txt.bz2] > PinyinInitials.inc
"""
import bz2
import re
import sys
import unicodedata

FIRST, LAST = 0x4E00, 0x9FFF
# Modern dictionaries; the historical one speaks only for characters that the modern ones leave out.
MODERN = ("kMandarin", "kHanyuPinlu", "kTGHZ2013", "kXHC1983")
HISTORICAL = ("kHanyuPinyin",)
PER_LINE = 80
PER_LINE_WIDE = 40


def initial(reading):
    letter = unicodedata.normalize("NFD", reading)[0].lower()
    return letter if "a" <= letter <= "z" else None


def readings(field, value):
    """The readings of one entry, the usual one first."""
    if field == "kMandarin":
        return value.split()
    if field == "kHanyuPinlu":
        return re.findall(r"([^\s(]+)\(", value)
    return [r for entry in value.split() for r in entry.split(":")[1].split(",")]


def read(path):
    entries = {}
    with bz2.open(path, "rt", encoding="utf-8") as lines:
        for line in lines:
            parts = line.rstrip("\n").split("\t")
            if len(parts) == 3 and parts[1] in MODERN + HISTORICAL:
                code = int(parts[0][2:], 16)
                if FIRST <= code <= LAST:
                    entries.setdefault(code, {})[parts[1]] = parts[2]
    table = {}
    for code, fields in entries.items():
        chosen = [f for f in MODERN if f in fields] or [f for f in HISTORICAL if f in fields]
        found = [initial(r) for f in chosen for r in readings(f, fields[f])]
        table[code] = list(dict.fromkeys(letter for letter in found if letter))
    return table


def main():
    path = sys.argv[1] if len(sys.argv) > 1 else "/usr/share/unicode/Unihan_Readings.txt.bz2"
    table = read(path)
    first = "".join((table.get(code) or ["-"])[0] for code in range(FIRST, LAST + 1))
    print("// Made by make_initials.py from the Unihan database; do not edit.")
    print()
    print("// Initial of the usual reading of each character from U+4E00 on; '-': no reading known.")
    print("constexpr std::string_view kFirstInitials =")
    rows = [first[i:i + PER_LINE] for i in range(0, len(first), PER_LINE)]
    print("\n".join(f'    "{row}"' for row in rows) + ";")
    print()
    print("// Characters that can be read with this initial as well, in code point order, from 'a' to 'z'.")
    print("constexpr std::u16string_view kFurtherInitials[26] = {")
    for letter in "abcdefghijklmnopqrstuvwxyz":
        also = "".join(chr(c) for c in sorted(table) if letter in table[c][1:])
        rows = [also[i:i + PER_LINE_WIDE] for i in range(0, len(also), PER_LINE_WIDE)] or [""]
        print("\n".join(f'    u"{row}"' for row in rows) + f", // {letter}")
    print("};")


if __name__ == "__main__":
    main()
