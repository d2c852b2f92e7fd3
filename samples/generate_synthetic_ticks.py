#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes samples/ticks/SYNTHETIC-five-levels.csv: one made-up trading day with a book of five levels.

No market data goes into it. The seed is fixed and only random() is drawn from, so every run and every Python 3
writes the same bytes:  python3 samples/generate_synthetic_ticks.py [OUT.csv]
"""

import math
import os
import random
import sys

SEED = 20240102
TRADES = 6000
LEVELS = 5
TICK = 0.01  # yuan
OPEN_PRICE = 1000  # ticks: 10.00 yuan
MINUTE_MS = 60 * 1000
# Two sessions of two hours, 09:30 and 13:00 in Shanghai, as minutes of the UTC day.
SESSIONS = ((90, 210), (300, 420))
SESSION_MS = 120 * MINUTE_MS
TYPICAL_QUEUE = 400  # lots at one level
TYPICAL_TRADE = 30  # lots

rng = random.Random(SEED)


def exponential(mean):
    return -mean * math.log(1.0 - rng.random())


def lots(typical):
    """A size with a long tail: most are small, a few are many times the typical one."""
    return max(1, int(exponential(typical) * (8.0 if rng.random() < 0.03 else 1.0)))


class Side:
    """One side of the book: queue by price in ticks; `step` leads away from the other side."""

    def __init__(self, best, step):
        self.step = step
        self.queues = {}
        self.fill(best)

    def best(self):
        return min(self.queues, key=lambda price: price * self.step)

    def levels(self):
        return sorted(self.queues, key=lambda price: price * self.step)[:LEVELS]

    def fill(self, best):
        """Makes sure that five levels stand from `best` on and none before it."""
        self.queues = {p: q for p, q in self.queues.items() if (p - best) * self.step >= 0}
        for level in range(LEVELS):
            self.queues.setdefault(best + level * self.step, lots(TYPICAL_QUEUE))

    def take(self, volume):
        """A trade eats its way into the queues; @return the price of its last lot."""
        while True:
            price = self.best()
            if self.queues[price] > volume:
                self.queues[price] -= volume
                return price
            volume -= self.queues.pop(price)
            if volume == 0 or not self.queues:
                return price

    def change(self):
        """Orders come and go: single ones mostly, now and then a whole queue."""
        for price in list(self.queues):
            chance = rng.random()
            if chance < 0.25:
                self.queues[price] += lots(TYPICAL_QUEUE / 10)
            elif chance < 0.45:
                self.queues[price] = max(1, self.queues[price] - lots(TYPICAL_QUEUE / 10))
            elif chance < 0.47:
                self.queues[price] = lots(TYPICAL_QUEUE)


def trade_times():
    gaps = [exponential(1.0) for _ in range(TRADES + 1)]
    scale = len(SESSIONS) * SESSION_MS / sum(gaps)
    elapsed = 0.0
    for gap in gaps[:TRADES]:
        elapsed += gap * scale
        session = min(int(elapsed / SESSION_MS), len(SESSIONS) - 1)
        yield SESSIONS[session][0] * MINUTE_MS + int(elapsed - session * SESSION_MS)


def clock(ms):
    return "2024-01-02T%02d:%02d:%02d.%03d" % (ms // 3600000, ms // 60000 % 60, ms // 1000 % 60, ms % 1000)


def rows():
    ask, bid = Side(OPEN_PRICE + 1, 1), Side(OPEN_PRICE, -1)
    mood = 0.0  # share of buyers above one half; wanders slowly and comes back
    for time in trade_times():
        mood = 0.98 * mood + 0.06 * (rng.random() - 0.5)
        buys = rng.random() < 0.5 + mood
        volume = lots(TYPICAL_TRADE)
        price = (ask if buys else bid).take(volume)
        ask.change()
        bid.change()
        # The side that was not hit follows the price after a while, so that the spread stays narrow.
        best_ask = ask.best() if ask.queues else price + 1
        best_bid = bid.best() if bid.queues else price - 1
        if best_ask - best_bid > 1 and rng.random() < 0.7:
            if buys:
                best_bid = best_ask - 1
            else:
                best_ask = best_bid + 1
        ask.fill(best_ask)
        bid.fill(best_bid)
        yield [clock(time), "%.2f" % (price * TICK), str(volume)] + book(bid, ask)


def book(bid, ask):
    cells = []
    for level in range(LEVELS):
        cells += ["%.2f" % (side.levels()[level] * TICK) for side in (bid, ask)]
    for level in range(LEVELS):
        cells += [str(side.queues[side.levels()[level]]) for side in (bid, ask)]
    return cells


def header():
    names = ["time_utc", "price", "volume"]
    for kind in ("", "vol"):
        for level in range(1, LEVELS + 1):
            names += ["bid%s%d" % (kind, level), "ask%s%d" % (kind, level)]
    return names


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    path = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "ticks", "SYNTHETIC-five-levels.csv")
    with open(path, "w", encoding="utf-8", newline="\n") as out:
        out.write(",".join(header()) + "\n")
        for row in rows():
            out.write(",".join(row) + "\n")


main()
