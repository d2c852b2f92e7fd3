#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# test.sh BUILD [ARGUMENT...]: the tests without windows, under Wine; arguments go to the test programs. The golden
# tests compare pictures with the same files as on Linux, so that equal bytes are what passes.
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"
build=$(cd "$1" && pwd)
shift
failed=0
export QT_QPA_PLATFORM=offscreen
# The bold letters of the pictures are those of the machine, as on Linux.
QT_QPA_FONTDIR=$(linux_fonts)
export QT_QPA_FONTDIR
for kind in unit trace golden property; do
    "$TOOLS/run.sh" "$build/bin/${kind}_tests.exe" --gtest_brief=1 --gtest_output="json:$(windows_path "$build/$kind.json")" \
        "$@" || failed=1
done
python3 "$TOOLS/count.py" "$build" "$build/../dev/bin"
exit $failed
