#!/usr/bin/env bash
# make run: builds the program, lays it out as it is installed (the program file
# with Help\ beside it) in build/app, and starts it under Wine with the prefix
# .wine inside the checkout. Without a screen it runs on a virtual one, answers
# a first start's question with Yes, waits for the main window and saves
# pictures of what it showed in build/.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
source tools/wine-session.sh

cmake --preset win64 >/dev/null
cmake --build --preset win64 -j "$(nproc)" --target TarvelonLow tarvauto >/dev/null
app=build/app
mkdir -p "$app"
cp build/win64/TarvelonLow.exe "$app/"
[ ! -d packaging/help ] || { rm -rf "$app/Help"; cp -r packaging/help "$app/Help"; }
cp LICENSE.txt packaging/NOTICES.txt CHANGELOG.md "$app/"

if [ -n "${DISPLAY:-}" ]; then
    wine_session_start "$root/.wine"
    exec wine "$app/TarvelonLow.exe"
fi

start_virtual_display
wine_session_start "$root/.wine"
trap wine_session_stop EXIT
auto() { wine build/win64/tools/tarvauto.exe "$@" >build/run-auto.log 2>&1; }
picture() { xwd -root -silent | convert xwd:- "build/$1.png"; }
wine "$app/TarvelonLow.exe" >build/run.log 2>&1 &

# A first start asks for the full system scan; on a virtual screen the question
# is pictured and answered with Yes, and the scan runs before the main window.
if [ ! -f "$app/Data/Integrity.dat" ] && auto box-text TarvelonLow; then
    picture first-run
    auto press TarvelonLow Yes
    echo "The first start's question (build/first-run.png) was answered with Yes; the full system scan ran."
fi
if ! auto --timeout 600000 wait-window "Welcome to Tarvelon"; then
    echo "The main window did not appear; see build/run.log" >&2
    exit 1
fi
auto caption "Welcome to Tarvelon" Label33  # its controls are there
auto settle "Welcome to Tarvelon"           # and painted
picture screenshot
echo "Tarvelon started on a virtual screen (no DISPLAY was set)."
echo "Its main window: build/screenshot.png. The program folder is $app."
auto click "Welcome to Tarvelon" cButton9 || true
