# SPDX-License-Identifier: MIT
# Wine without the parts that would ask for downloads, in a home of its own; read by the other scripts.
. "$(dirname "${BASH_SOURCE[0]}")/places.sh"
WINE=/usr/lib/wine/wine64 # the usual starter asks for the 32-bit part
export WINEPREFIX=${WINEPREFIX:-$CACHE/wine} WINEARCH=win64 WINEDLLOVERRIDES="mscoree,mshtml=" WINEDEBUG=-all

# Folders with the DLLs of compiler and zlib.
RUNTIME=("$(dirname "$($HOST-g++-posix -print-file-name=libstdc++-6.dll)")" "/usr/$HOST/lib")

# Folders as Windows lists them.
windows_path() {
    local folder path=
    for folder in "$@"; do
        path+="Z:${folder//\//\\};"
    done
    printf '%s' "${path%;}"
}

# The folder of the fonts with Chinese letters that pictures are drawn with on this machine.
linux_fonts() { windows_path "$(dirname "$(fc-match --format '%{file}' 'Noto Sans CJK SC:bold')")"; }

# Wine keeps variables that begin with QT_ to itself, unless their names begin with WINE.
run_wine() {
    local name
    for name in ${!QT_@}; do
        export "WINE$name=${!name}"
    done
    "$WINE" "$@"
}

[ -d "$WINEPREFIX/drive_c/windows" ] || "$WINE" wineboot -i >/dev/null 2>&1
