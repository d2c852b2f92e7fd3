#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# try.sh ZIP OUT: unpacks the zip in a new home of Wine, as a new user would, draws a picture by the renderer, and
# starts the client on a screen of which a picture is kept: OUT/render.png, OUT/client.png.
home=$(mktemp -d)
export WINEPREFIX=$home/wine
unset WINEPATH QT_PLUGIN_PATH
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"
zip=$(realpath "$1")
mkdir -p "$2"
out=$(realpath "$2")
screen=$home/screen
mkdir -p "$screen"
cd "$WINEPREFIX/drive_c"
unzip -q "$zip"
cd indicatorui

"$WINE" bin/indicatorui-render.exe --bars samples/SH600030.csv -o render.png
cp render.png "$out/render.png"

Xvfb :97 -screen 0 1600x1000x24 -nolisten tcp -fbdir "$screen" 2>/dev/null &
server=$!
DISPLAY=:97 QT_QPA_PLATFORM=windows "$WINE" bin/indicatorui-client.exe samples/SH600030.csv &
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
