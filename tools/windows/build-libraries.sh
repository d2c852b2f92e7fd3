#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds every library for Windows that is not in the cache yet. The first time takes half an hour on two cores.
. "$(dirname "${BASH_SOURCE[0]}")/places.sh"
once lists read_lists
for library in png pcre2 freetype harfbuzz sqlite qt qtsvg expat libzip xlsxwriter googletest boost_headers docking; do
    once "$library" "build_$library"
done
