#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""count.py RESULTS LINUX_PROGRAMS: how many tests passed under Wine, and how many there are on Linux."""
import json
import os
import subprocess
import sys


def on_linux(program):
    """The number of tests of a program; nothing where it is not built."""
    if not os.path.exists(program):
        return None
    listed = subprocess.run([program, "--gtest_list_tests"], env={**os.environ, "QT_QPA_PLATFORM": "offscreen"},
                            capture_output=True, text=True, check=True).stdout
    return sum(line.startswith("  ") for line in listed.splitlines())


def main():
    results, programs = sys.argv[1:]
    for kind in ("unit", "trace", "golden", "property"):
        suites = []
        for half in (0, 1):
            path = os.path.join(results, f"{kind}.{half}.json")
            if not os.path.exists(path):
                print(f"{kind}: half {half} has no results, the program did not end by itself")
                continue
            with open(path, encoding="utf-8") as file:
                suites += json.load(file)["testsuites"]
        tests = [(f'{suite["name"]}.{test["name"]}', test) for suite in suites for test in suite["testsuite"]]
        run = [(name, test) for name, test in tests if test["status"] == "RUN"]
        failed = [name for name, test in run if "failures" in test]
        skipped = [name for name, test in run if test["result"] == "SKIPPED"]
        linux = on_linux(os.path.join(programs, kind + "_tests"))
        print(f"{kind}: {len(run) - len(failed) - len(skipped)} passed, {len(skipped)} skipped, {len(failed)} failed"
              + (f"; {linux} on Linux" if linux is not None else ""))
        for name in failed:
            print("   failed:", name)


if __name__ == "__main__":
    main()
