#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# test.sh BUILD [ARGUMENT...]: the tests without windows, under Wine; arguments go to the test programs. The golden
# tests compare pictures with the same files as on Linux, so that equal bytes are what passes.
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"
build=$(cd "$1" && pwd)
shift
failed=0
results=$build/results
rm -rf "$results" && mkdir "$results"
export QT_QPA_PLATFORM=offscreen TZ=Asia/Shanghai
# The bold letters of the pictures are those of the machine, as on Linux.
QT_QPA_FONTDIR=$(linux_fonts)
export QT_QPA_FONTDIR

# run_half KIND HALF: every second test; what it says is kept, as both halves run at once.
run_half() {
    GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=$2 "$TOOLS/run.sh" "$build/bin/$1_tests.exe" --gtest_brief=1 \
        --gtest_output="json:$(windows_path "$results/$1.$2.json")" "${@:3}" >"$results/$1.$2.log" 2>&1
}
for kind in unit trace golden property; do
    run_half "$kind" 0 "$@" &
    run_half "$kind" 1 "$@" || failed=1
    wait $! || failed=1
    cat "$results/$kind".?.log
done
python3 "$TOOLS/count.py" "$results" "$build/../dev/bin"
exit $failed
