#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs a command on a session bus and in folders of its own, so that runs side by side do not meet.
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
HOME=$folder XDG_RUNTIME_DIR=$folder XDG_CACHE_HOME=$folder dbus-run-session -- "$@"
