#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# pack.sh BUILD: a folder and a zip with libraries, headers, import libraries, CMake package, the programs, and every
# DLL and plugin that they load.
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"
build=$(cd "$1" && pwd)
folder=$build/zip/indicatorui
rm -rf "$build/zip" && mkdir -p "$folder"
cmake --install "$build" --prefix "$folder" --strip >/dev/null

# No place of this machine is looked at for plugins.
printf '[Paths]\nPrefix=.\nPlugins=.\n' >"$folder/bin/qt.conf"

# Plugins stand beside the programs, where Qt looks without being told.
for plugin in platforms/qwindows platforms/qoffscreen sqldrivers/qsqlite imageformats/qsvg iconengines/qsvgicon \
        styles/qwindowsvistastyle printsupport/windowsprintersupport; do
    if [ -e "$PREFIX/plugins/$plugin.dll" ]; then
        install -D "$PREFIX/plugins/$plugin.dll" "$folder/bin/$plugin.dll"
    fi
done

# What a file loads, and what that loads in turn; DLLs that are found nowhere are the system's.
gather() {
    local name place
    for name in $($HOST-objdump -p "$1" | sed -n 's/.*DLL Name: //p'); do
        [ -e "$folder/bin/$name" ] && continue
        for place in "$PREFIX/bin" "$PREFIX/lib" "${RUNTIME[@]}"; do
            if [ -e "$place/$name" ]; then
                cp "$place/$name" "$folder/bin/"
                gather "$folder/bin/$name"
                break
            fi
        done
    done
}
while read -r file; do
    gather "$file"
done < <(find "$folder/bin" -name '*.exe' -o -name '*.dll')
$HOST-strip "$folder"/bin/*.dll
cp -r "$TOOLS/../../samples/bars" "$folder/samples"
(cd "$build/zip" && zip -qr indicatorui.zip indicatorui)
echo "$build/zip/indicatorui.zip"
