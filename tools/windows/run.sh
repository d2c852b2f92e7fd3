#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# run.sh PROGRAM.exe [ARGUMENT...]: runs a program for Windows under Wine, with the DLLs of the build and of the cache.
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"
folder=$(cd "$(dirname "$1")" && pwd)
WINEPATH=$(windows_path "$folder" "$PREFIX/bin" "$PREFIX/lib" "${RUNTIME[@]}")
QT_PLUGIN_PATH=$(windows_path "$PREFIX/plugins")
export WINEPATH QT_PLUGIN_PATH
run_wine "$@"
