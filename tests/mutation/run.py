#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Puts small faults into the library's sources, one at a time, and tells which of them no test notices.

run.py BUILD [--count N] [--jobs N] [--only PATH]
"""

import argparse
import hashlib
import re
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from queue import Queue

from mutants import mutants_of
from trial import FOLDERS, Build, Trial

ROOT = Path(__file__).resolve().parents[2]
EXPLAINED = Path(__file__).with_name("survivors.txt")


def explained():
    """(path, line, mutated line) of the mutants that a test cannot tell from the source, each with a reason."""
    found, path, was, now = set(), None, None, None
    for text in EXPLAINED.read_text().splitlines():
        if text.startswith("src/"):
            path = text.strip()
        elif text.startswith("- "):
            was = text[2:]
        elif text.startswith("+ "):
            now = text[2:]
        elif text.startswith("  ") and now is not None:
            found.add((path, was, now))
            now = None
    return found


def sample(mutants, count, seed):
    """A fixed choice that depends on each mutant's text alone; `count` 0 chooses all."""
    order = sorted(mutants, key=lambda mutant: hashlib.sha256(repr((seed, mutant.key)).encode()).digest())
    return order[:count] if count else order


def show(mutant):
    return f"{mutant.path}:{mutant.line}\n- {mutant.was}\n+ {mutant.now}"


def try_all(build, chosen, sources, jobs):
    """{mutant: outcome}; survivors are told at once."""
    trials = Queue()
    for number in range(jobs):
        trials.put(Trial(build, build.folder / "mutants" / str(number)))

    def attempt(mutant):
        trial = trials.get()
        try:
            outcome = trial.outcome(mutant, sources[mutant.path])
        finally:
            trials.put(trial)
        if outcome == "survived":
            print(show(mutant), flush=True)
        return outcome

    with ThreadPoolExecutor(jobs) as pool:
        return dict(zip(chosen, pool.map(attempt, chosen)))


def main():
    asked = argparse.ArgumentParser()
    asked.add_argument("build")
    asked.add_argument("--count", type=int, default=50, help="mutants a folder; 0: all")
    asked.add_argument("--jobs", type=int, default=1)
    asked.add_argument("--seed", type=int, default=1)
    asked.add_argument("--only", default="", help="mutants of files whose path matches this expression")
    asked = asked.parse_args()

    known, chosen, sources, seen, total = explained(), [], {}, set(), {}
    for folder in FOLDERS:
        mutants = []
        for source in sorted((ROOT / "src" / folder).rglob("*.cpp")):
            path = str(source.relative_to(ROOT))
            sources[path] = source.read_text()
            mutants += mutants_of(path, sources[path])
        seen.update(mutant.key for mutant in mutants)
        total[folder] = len(mutants)
        open_ones = [mutant for mutant in mutants if mutant.key not in known and re.search(asked.only, mutant.path)]
        chosen += sample(open_ones, asked.count, asked.seed)
    stale = known - seen
    for path, was, now in sorted(stale):
        print(f"{EXPLAINED.name} explains what is not there any more: {path}\n- {was}\n+ {now}")

    build = Build(ROOT, asked.build)
    build.measure({mutant.path.split("/")[1] for mutant in chosen})
    outcomes = try_all(build, chosen, sources, asked.jobs)
    survivors = 0
    for folder in FOLDERS:
        of_folder = [result for mutant, result in outcomes.items() if mutant.path.split("/")[1] == folder]
        if not of_folder:
            continue
        killed, survived = of_folder.count("killed"), of_folder.count("survived")
        survivors += survived
        print(f"src/{folder}: {killed} of {killed + survived} noticed; "
              f"{of_folder.count('same')} are the same program or none; {total[folder]} in all")
    sys.exit(1 if survivors or stale else 0)


if __name__ == "__main__":
    main()
