# SPDX-License-Identifier: MIT
"""Small faults that can be put into a C++ source: what they replace and by what."""

import re
from dataclasses import dataclass

SWAPS = {
    " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ", " != ": " == ",
    " && ": " || ", " || ": " && ",
    " + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ", " % ": " * ",
    " += ": " -= ", " -= ": " += ", " *= ": " /= ", " /= ": " *= ",
    "true": "false", "false": "true",
}
# The formatter puts blanks around every operator of two operands and none into template arguments.
SWAP = re.compile(r" (?:[<>=!]=|[<>]|&&|\|\||[-+*/%]|[-+*/]=) |\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.])(\d+\.\d*(?:e[-+]?\d+)?|\d+e[-+]?\d+|\d+)(f|LL|u)?(?![\w.])")
NEGATION = re.compile(r"(?<![\w\]])!(?=[\w(])")
CONDITION = re.compile(r"\bif \(([\w.()>:-]+)\)$")
CALL = re.compile(r"^\s*(?!return\b|throw\b|delete\b)(?:\w+(?:::|\.|->))*\w+\(.*\);$")
RESERVE = re.compile(r"\breserve\w*\(")
ASSIGNMENT = re.compile(r"^\s*[\w.\[\]>-]+ (?:[-+*/|&]?=) [^;]*;$")


@dataclass(frozen=True)
class Mutant:
    path: str
    line: int  # the first is 1
    was: str  # the line's text, without blanks around it
    now: str
    text: str  # the whole line

    @property
    def key(self):
        """By text, so that it survives what is written above it."""
        return self.path, self.was, self.now


def code_of(source):
    """The source with blanks in place of comments, literals and directives."""
    pattern = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|^[ \t]*#[^\n]*', re.S | re.M)
    return pattern.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), source)


def changes_of_line(code):
    """(start, end, replacement) of every fault that the line can take."""
    for found in SWAP.finditer(code):
        yield found.start(), found.end(), SWAPS[found.group()]
    for found in NUMBER.finditer(code):
        digits, suffix = found.group(1), found.group(2) or ""
        whole = digits.isdigit() and suffix != "f"
        yield found.start(), found.end(), f"{int(digits) + 1}{suffix}" if whole else f"({digits}{suffix} + 1)"
    for found in NEGATION.finditer(code):
        yield found.start(), found.end(), ""
    for found in CONDITION.finditer(code.rstrip()):
        yield found.start(1), found.end(1), f"!({found.group(1)})"
    if CALL.match(code.rstrip()) or ASSIGNMENT.match(code.rstrip()):
        yield len(code) - len(code.lstrip()), len(code.rstrip()), ";"


def mutants_of(path, source):
    """Every mutant of a source, in the order of the text."""
    code_lines, last = code_of(source).splitlines(), ""
    for number, (text, code) in enumerate(zip(source.splitlines(), code_lines), start=1):
        is_whole = last == "" or last[-1] in ";{}:)"  # the line begins a statement
        last = code.rstrip() or last
        if "static_assert" in code or code.startswith("template") or RESERVE.search(code):
            continue  # no compiler takes the first two; the third tells in speed alone
        for start, end, replacement in changes_of_line(code):
            if replacement == ";" and not is_whole:
                continue
            now = text[:start] + replacement + text[end:]
            yield Mutant(path, number, text.strip(), now.strip(), now)
