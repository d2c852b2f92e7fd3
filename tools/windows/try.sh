#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# try.sh ZIP LINUX_RENDERER OUT: unpacks the zip in a new home of Wine, as a new user would; draws a picture by the
# renderer, which without fonts has the bytes of Linux' own; starts the client on a screen of which a picture is kept.
# OUT/render.png, OUT/client.png.
home=$(mktemp -d)
export WINEPREFIX=$home/wine
unset WINEPATH QT_PLUGIN_PATH
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"
zip=$(realpath "$1")
linux_renderer=$(realpath "$2")
mkdir -p "$3"
out=$(realpath "$3")
screen=$home/screen
mkdir -p "$screen" "$home/fonts"
cd "$WINEPREFIX/drive_c"
unzip -q "$zip"
cd indicatorui
chart=(--bars samples/SH600030.csv)

QT_QPA_FONTDIR=$(linux_fonts) run_wine bin/indicatorui-render.exe "${chart[@]}" -o "$out/render.png"
QT_QPA_FONTDIR=$(windows_path "$home/fonts") run_wine bin/indicatorui-render.exe "${chart[@]}" -o "$home/windows.png"
echo '<fontconfig/>' >"$home/fonts/fonts.conf"
FONTCONFIG_FILE=$home/fonts/fonts.conf "$linux_renderer" "${chart[@]}" -o "$home/linux.png"
cmp "$home/windows.png" "$home/linux.png"
echo "The renderer's picture without texts has the bytes of Linux' own."

# The desktop that the renderer's run has begun has no screen, and keeps none while it stays.
"$(dirname "$WINE")/wineserver64" -k || true
"$(dirname "$WINE")/wineserver64" -w

Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp -fbdir "$screen" 3>"$home/display" 2>/dev/null &
server=$!
until [ -s "$home/display" ]; do # its number, once it can be drawn on
    kill -0 $server
    sleep 0.2
done
DISPLAY=:$(cat "$home/display") QT_QPA_PLATFORM=windows run_wine bin/indicatorui-client.exe samples/SH600030.csv &
client=$!
finish() {
    kill $client 2>/dev/null || true
    "$(dirname "$WINE")/wineserver64" -k || true
    kill $server 2>/dev/null || true
    rm -rf "$home"
}
trap finish EXIT
# Until the window has been drawn: many colours, twice the same.
python3 "$TOOLS/screen.py" "$screen/Xvfb_screen0" "$out/client.png"
kill -0 $client
echo "$out/client.png"
