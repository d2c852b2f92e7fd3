#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Says what the formulas of this folder give, by plain loops: writes stated.csv.

An interpreter of its own: every function is a loop over its window, bar by bar, as docs/formulas.md states it. Slow and
simple on purpose. Each line of stated.csv is formula, bars, output, number of values, last value, sum of the values, over
the first 400 bars of a bundled file.
"""
import csv
import math
import pathlib
import re

HERE = pathlib.Path(__file__).resolve().parent
BARS = HERE.parents[3] / "samples" / "bars"
COUNT = 400
FILES = ["DFM00", "SFCU00", "SH000001", "SH510050", "SH600030"]
WIDE = str.maketrans("；：，（）＋－＊／＞＜＝", ";:,()+-*/><=")
TOKEN = re.compile(r"\s+|\{[^}]*\}|//[^\n]*|(?P<text>'[^']*')|(?P<quoted>\"[^\"]*\")|(?P<color>#[0-9A-Fa-f]{6})"
                   r"|(?P<number>\d+\.?\d*|\.\d+)|(?P<name>\w+)|(?P<sign>:=|>=|<=|<>|==|!=|&&|\|\||.)")


def tokens(text):
    found = []
    for match in TOKEN.finditer(text.translate(WIDE)):
        if match.lastgroup:
            found.append((match.lastgroup, match.group(match.lastgroup)))
    return found + [("end", "")]


def bar_by_bar(function):
    def column(*columns):
        result = []
        for values in zip(*columns):
            if any(value is None for value in values):
                result.append(None)
                continue
            try:
                number = float(function(*values))
            except (ZeroDivisionError, ValueError, OverflowError):
                number = math.nan
            result.append(number if math.isfinite(number) else None)
        return result
    return column


def holds(value):
    return value is not None and value != 0


def window(values, periods, bar, fewer):
    """The values of the last bars: all or None; with `fewer` those that are there where the last one is."""
    period = None if periods[bar] is None else int(periods[bar])
    if period == 0 and fewer:
        period = bar + 1
    if period is None or period < 1 or values[bar] is None:
        return None
    part = values[max(0, bar + 1 - period):bar + 1]
    if fewer:
        return [value for value in part if value is not None]
    return part if period <= bar + 1 and None not in part else None


def over_window(answer, fewer=False):
    def column(values, periods):
        windows = (window(values, periods, bar, fewer) for bar in range(len(values)))
        return [None if part is None else answer(part) for part in windows]
    return column


def mean(part):
    return math.fsum(part) / len(part)


def squares(part):
    middle = mean(part)
    return math.fsum((value - middle) ** 2 for value in part)


def products(xs, ys):
    x, y = mean(xs), mean(ys)
    return math.fsum((a - x) * (b - y) for a, b in zip(xs, ys))


def over_pairs(answer):
    def column(xs, ys, periods):
        result = []
        for bar in range(len(xs)):
            a, b = window(xs, periods, bar, False), window(ys, periods, bar, False)
            try:
                result.append(None if a is None or b is None else answer(a, b))
            except ZeroDivisionError:
                result.append(None)
        return result
    return column


def averaged(values, weights, start=1):
    """E = w X + (1 - w) E', starting with the mean of the first values."""
    result, first, average = [], [], None
    for value, weight in zip(values, weights):
        if value is None or weight is None or not 0 <= weight <= 1:
            result.append(None)
        elif average is None:
            first.append(value)
            average = mean(first) if len(first) == start else None
            result.append(average)
        else:
            average = weight * value + (1 - weight) * average
            result.append(average)
    return result


def constant(value, like):
    return [value] * len(like)


def ema(values, periods):
    return averaged(values, constant(2 / (int(periods[0]) + 1), values))


def sma(values, periods, weights):
    return averaged(values, constant(weights[0] / periods[0], values))


def expmema(values, periods):
    return averaged(values, constant(2 / (int(periods[0]) + 1), values), int(periods[0]))


def mema(values, periods):
    return averaged(values, constant(1 / int(periods[0]), values), int(periods[0]))


def tma(values, olds, news):
    result = []
    for bar, value in enumerate(values):
        result.append(value if bar == 0 else olds[0] * result[-1] + news[0] * value)
    return result


def ref(values, periods):
    return [values[bar - int(periods[bar])] if periods[bar] is not None and 0 <= int(periods[bar]) <= bar else None
            for bar in range(len(values))]


def counting(answer):
    def column(conditions, periods):
        result = []
        for bar in range(len(conditions)):
            period = int(periods[bar]) or bar + 1
            part = conditions[max(0, bar + 1 - period):bar + 1]
            result.append(float(answer(sum(map(holds, part)), period)))
        return result
    return column


def extreme_bars(best):
    def column(values, periods):
        result = []
        for bar in range(len(values)):
            part = window(values, periods, bar, True)
            if part is None:
                result.append(None)
                continue
            back = 0
            while values[bar - back] != best(part):
                back += 1
            result.append(float(back))
        return result
    return column


def cross(first, second):
    result = []
    for bar in range(len(first)):
        back = bar - 1
        is_above = None not in (first[bar], second[bar]) and first[bar] > second[bar]
        while back >= 0 and (None in (first[back], second[back]) or first[back] == second[back]):
            back -= 1
        result.append(float(is_above and back >= 0 and first[back] < second[back]))
    return result


def longcross(first, second, periods):
    result = []
    for bar in range(len(first)):
        earlier = range(bar - int(periods[bar]), bar)
        below = all(k >= 0 and None not in (first[k], second[k]) and first[k] < second[k] for k in earlier)
        result.append(float(below and None not in (first[bar], second[bar]) and first[bar] > second[bar]))
    return result


def back_to(conditions, answer):
    result = []
    for bar in range(len(conditions)):
        held = [k for k in range(bar + 1) if holds(conditions[k])]
        result.append(answer(bar, held) if held else None)
    return result


def valuewhen(conditions, values):
    return back_to(conditions, lambda bar, held: values[held[-1]])


def barssincen(conditions, periods):
    result = []
    for bar in range(len(conditions)):
        held = [k for k in range(max(0, bar + 1 - int(periods[bar])), bar + 1) if holds(conditions[k])]
        result.append(float(bar - held[0]) if held else None)
    return result


def barslastcount(conditions):
    result = []
    for condition in conditions:
        result.append((result[-1] if result else 0.0) + 1.0 if holds(condition) else 0.0)
    return result


def every_pair(holding):
    def column(*columns):
        *values, periods = columns
        held = [float(holding(values, bar)) for bar in range(len(periods))]
        return counting(lambda count, period: count == period)(held, periods)
    return column


def rising(values, bar):
    return bar > 0 and values[0][bar] > values[0][bar - 1]


def falling(values, bar):
    return bar > 0 and values[0][bar] < values[0][bar - 1]


def above(values, bar):
    return None not in (values[0][bar], values[1][bar]) and values[0][bar] > values[1][bar]


def filtered(conditions, periods):
    result, quiet = [], 0
    for bar, condition in enumerate(conditions):
        passes = quiet == 0 and holds(condition)
        quiet = int(periods[bar]) if passes else max(quiet - 1, 0)
        result.append(float(passes))
    return result


def tfilter(first, second, kinds):
    result, last = [], 0
    for a, b in zip(first, second):
        passed = 1 if last != 1 and holds(a) else 2 if last == 1 and holds(b) else 0
        last = passed or last
        result.append(float(passed if kinds[0] == 0 else passed == kinds[0]))
    return result


def in_a_row(is_better):
    def column(values):
        result = []
        for bar, value in enumerate(values):
            back = bar - 1
            while back >= 0 and is_better(value, values[back]):
                back -= 1
            result.append(float(bar - 1 - back))
        return result
    return column


def find(is_greatest, asks_bars):
    def column(values, backs, lengths, ranks):
        result = []
        for bar in range(len(values)):
            last = bar - int(backs[bar])
            found = sorted(((value, -(k)) if not is_greatest else (-value, -k), k) for k, value in enumerate(values)
                           if value is not None and last - int(lengths[bar]) < k <= last)
            rank = int(ranks[bar])
            place = found[rank - 1][1] if rank <= len(found) else None
            result.append(None if place is None else float(bar - place) if asks_bars else values[place])
        return result
    return column


def span(all_of_them):
    def column(conditions, firsts, lasts):
        result = []
        for bar in range(len(conditions)):
            first, last = bar - int(firsts[bar]), bar - int(lasts[bar])
            part = [holds(conditions[k]) for k in range(max(first, 0), last + 1)]
            result.append(float(first >= 0 and all(part) if all_of_them else any(part)))
        return result
    return column


def sumbars(values, amounts):
    result = []
    for bar in range(len(values)):
        total, back, answer = 0.0, 0, None
        while amounts[bar] is not None and back <= bar and answer is None:
            total += values[bar - back] or 0.0
            back += 1
            answer = float(back) if total >= amounts[bar] else None
        result.append(answer)
    return result


def choose(conditions, yes, no):
    return [None if c is None else a if c != 0 else b for c, a, b in zip(conditions, yes, no)]


def slope(part):
    return products(range(len(part)), part) / squares(range(len(part)))


FUNCTIONS = {
    "MA": over_window(mean), "SUM": over_window(math.fsum, True), "HHV": over_window(max, True),
    "LLV": over_window(min, True), "HHVBARS": extreme_bars(max), "LLVBARS": extreme_bars(min),
    "WMA": over_window(lambda p: math.fsum((k + 1) * v for k, v in enumerate(p)) / (len(p) * (len(p) + 1) / 2)),
    "MULAR": over_window(math.prod), "STD": over_window(lambda p: math.sqrt(squares(p) / max(len(p) - 1, 1))),
    "STDP": over_window(lambda p: math.sqrt(squares(p) / len(p))), "DEVSQ": over_window(squares),
    "VAR": over_window(lambda p: squares(p) / max(len(p) - 1, 1)), "VARP": over_window(lambda p: squares(p) / len(p)),
    "AVEDEV": over_window(lambda p: mean([abs(v - mean(p)) for v in p])), "SLOPE": over_window(slope),
    "FORCAST": over_window(lambda p: mean(p) + slope(p) * (len(p) - 1) / 2),
    "EMA": ema, "SMA": sma, "EXPMEMA": expmema, "MEMA": mema, "TMA": tma, "DMA": averaged, "REF": ref,
    "COVAR": over_pairs(lambda a, b: products(a, b) / len(a)), "BETA": over_pairs(lambda a, b: products(a, b) / squares(b)),
    "RELATE": over_pairs(lambda a, b: products(a, b) / math.sqrt(squares(a) * squares(b))),
    "RSQ": over_pairs(lambda a, b: products(a, b) ** 2 / (squares(a) * squares(b))),
    "COUNT": counting(lambda count, period: count), "EVERY": counting(lambda count, period: count == period),
    "EXIST": counting(lambda count, period: count > 0), "CROSS": cross, "LONGCROSS": longcross,
    "BARSLAST": lambda c: back_to(c, lambda bar, held: float(bar - held[-1])),
    "BARSSINCE": lambda c: back_to(c, lambda bar, held: float(bar - held[0])), "VALUEWHEN": valuewhen,
    "BARSSINCEN": barssincen, "BARSLASTCOUNT": barslastcount, "UPNDAY": every_pair(rising),
    "DOWNNDAY": every_pair(falling), "NDAY": every_pair(above), "FILTER": filtered, "TFILTER": tfilter,
    "TOPRANGE": in_a_row(lambda a, b: a > b), "LOWRANGE": in_a_row(lambda a, b: a < b),
    "FINDHIGH": find(True, False), "FINDHIGHBARS": find(True, True), "FINDLOW": find(False, False),
    "LAST": span(True), "EXISTR": span(False), "SUMBARS": sumbars, "IF": choose, "IFF": choose,
    "IFN": lambda c, a, b: choose(c, b, a), "ISVALID": lambda x: [float(v is not None) for v in x],
    "ISNULL": lambda x: [float(v is None) for v in x],
    "BARSCOUNT": lambda x: [float(bar + 1) for bar in range(len(x))],
    "MAX": bar_by_bar(max), "MIN": bar_by_bar(min), "ABS": bar_by_bar(abs),
    "SGN": bar_by_bar(lambda x: (x > 0) - (x < 0)), "INTPART": bar_by_bar(math.trunc), "FLOOR": bar_by_bar(math.floor),
    "CEILING": bar_by_bar(math.ceil), "FRACPART": bar_by_bar(lambda x: x - math.trunc(x)),
    "ROUND": bar_by_bar(lambda x: math.copysign(math.floor(abs(x) + 0.5), x)), "MOD": bar_by_bar(math.fmod),
    "POW": bar_by_bar(math.pow), "SQRT": bar_by_bar(math.sqrt), "EXP": bar_by_bar(math.exp), "LN": bar_by_bar(math.log),
    "LOG": bar_by_bar(math.log10), "SIN": bar_by_bar(math.sin), "COS": bar_by_bar(math.cos), "TAN": bar_by_bar(math.tan),
    "ASIN": bar_by_bar(math.asin), "ACOS": bar_by_bar(math.acos), "ATAN": bar_by_bar(math.atan),
    "BETWEEN": bar_by_bar(lambda x, a, b: min(a, b) <= x <= max(a, b)),
    "RANGE": bar_by_bar(lambda x, a, b: min(a, b) < x < max(a, b)),
}
OPERATORS = [
    {"OR": lambda a, b: a != 0 or b != 0}, {"AND": lambda a, b: a != 0 and b != 0}, {},
    {">": lambda a, b: a > b, "<": lambda a, b: a < b, ">=": lambda a, b: a >= b, "<=": lambda a, b: a <= b,
     "=": lambda a, b: a == b, "<>": lambda a, b: a != b},
    {"+": lambda a, b: a + b, "-": lambda a, b: a - b}, {"*": lambda a, b: a * b, "/": lambda a, b: a / b},
]
SAME = {"&&": "AND", "||": "OR", "==": "=", "!=": "<>"}


class Reader:
    """Reads and computes the statements of a text at once."""

    def __init__(self, text, bars):
        self.tokens, self.place, self.values, self.outputs = tokens(text), 0, dict(bars), {}
        self.count = len(bars["C"])

    def now(self, ahead=0):
        return self.tokens[min(self.place + ahead, len(self.tokens) - 1)][1]

    def take(self):
        self.place += 1
        return self.tokens[self.place - 1]

    def run(self):
        while self.tokens[self.place][0] != "end":
            self.statement()
        return self.outputs

    def statement(self):
        if self.now(1) in (":", ":="):
            name, kind = self.take()[1], self.take()[1]
            self.values[name.upper()] = self.level(0)
            if kind == ":":
                self.outputs[name] = self.values[name.upper()]
        elif self.now() == "PARAM":
            self.parameters()
        while self.now() not in (";", ""):  # drawings and attributes
            self.place += 1
        self.place += self.now() == ";"

    def parameters(self):
        while self.take()[1] in ("PARAM", ","):
            name = self.take()[1]
            self.place += 1
            self.values[name.upper()] = [float(self.take()[1])] * self.count
            self.place += 5
        self.place -= 1

    def level(self, depth):
        if depth == len(OPERATORS):
            return self.signed()
        if depth == 2 and self.now() in ("NOT", "!") and self.now(1) != "(":
            self.place += 1
            return bar_by_bar(lambda x: x == 0)(self.level(depth + 1))
        left = self.level(depth + 1)
        while SAME.get(self.now(), self.now()) in OPERATORS[depth]:
            sign = self.take()[1]
            left = bar_by_bar(OPERATORS[depth][SAME.get(sign, sign)])(left, self.level(depth + 1))
        return left

    def signed(self):
        if self.now() in ("NOT", "!"):
            self.place += 1
            return bar_by_bar(lambda x: x == 0)(self.signed())
        if self.now() in ("-", "+"):
            sign = -1 if self.take()[1] == "-" else 1
            return bar_by_bar(lambda x: sign * x)(self.signed())
        return self.primary()

    def primary(self):
        kind, text = self.take()
        if kind == "number":
            return [float(text)] * self.count
        if text == "(":
            inside = self.level(0)
            self.place += 1
            return inside
        if kind == "quoted" or self.now() == ".":
            return self.called(text.strip('"') if kind == "quoted" else text)
        if self.now() == "(":
            return FUNCTIONS[text.upper()](*self.arguments())
        return self.values[text.upper()]

    def arguments(self):
        found = []
        while self.take()[1] in ("(", ","):
            found.append(self.level(0))
        return found

    def called(self, name):
        if self.now() == ".":
            self.place += 1
            name += "." + self.take()[1]
            if self.now() == "(":
                self.arguments()  # the corpus gives the usual ones
        formula, output = name.split(".")
        return outputs_of(CORPUS[formula], {k: self.values[k] for k in "OHLCV"})[output]


def outputs_of(text, bars):
    return Reader(text, with_names(bars)).run()


def with_names(bars):
    named = dict(bars)
    for letter, name in zip("OHLCV", ("OPEN", "HIGH", "LOW", "CLOSE", "VOL")):
        named[name] = bars[letter]
    named["BARPOS"] = [float(bar + 1) for bar in range(len(bars["C"]))]
    named["DRAWNULL"] = [None] * len(bars["C"])
    before = [None] + bars["C"][:-1]
    named["TR"] = [h - l if c is None else max(h - l, abs(h - c), abs(l - c))
                   for h, l, c in zip(bars["H"], bars["L"], before)]
    return named


def bars_of(name):
    with open(BARS / (name + ".csv"), encoding="utf-8") as file:
        rows = list(csv.DictReader(file))[:COUNT]
    return {letter: [float(row[column]) for row in rows]
            for letter, column in zip("OHLCV", ("open", "high", "low", "close", "volume"))}


def corpus():
    formulas = {}
    for path in sorted(HERE.glob("*.txt")):
        for section in path.read_text(encoding="utf-8").split("@ ")[1:]:
            name, text = section.split("\n", 1)
            formulas[name] = text
    return formulas


CORPUS = corpus()


def main():
    lines = []
    for name in FILES:
        bars = bars_of(name)
        for formula, text in CORPUS.items():
            for output, values in outputs_of(text, bars).items():
                there = [value for value in values if value is not None]
                last = there[-1] if there else 0.0
                lines.append(f"{formula},{name},{output},{len(there)},{last!r},{math.fsum(there)!r}\n")
    (HERE / "stated.csv").write_text("".join(sorted(lines)), encoding="utf-8")


if __name__ == "__main__":
    main()
