#!/usr/bin/env bash
# Every window fits its captions at each display scale users choose (display_scale_tests, on a screen
# where the windows fit at 200%). Wine reads the scale (LogPixels) when its server starts: at 150% the real
# main window opens at one and a half times its design, as the README shows it; 96 DPI again at the end.
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/../../tools/wine-session.sh"
: "${DISPLAY_SCALE_TESTS:?} ${SCREENSHOTS:?}"
usual_display=$DISPLAY
use_scale() {  # dots per inch
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null 2>&1
    wineserver -k
    wineserver -p >/dev/null 2>&1  # the server stays: it must hold no output of the test open
    wine cmd /c exit >/dev/null 2>&1  # Wine's services, started here, keep no test's output open
}
trap 'DISPLAY=$usual_display use_scale 96; [ -z "$XVFB_PID" ] || kill "$XVFB_PID" 2>/dev/null; cleanup' EXIT
start_virtual_display 2880x2160
use_scale 144
wine "$DISPLAY_SCALE_TESTS" >"$WORK/fit.log" 2>&1 || { grep -v '^\[ ' "$WORK/fit.log" >&2; fail "windows that do not fit"; }
main="Welcome to Tarvelon"
app=$(new_program_folder)
mkdir -p "$app/Data" && printf '[DLL]\r\nNULL*E\r\n' >"$app/Data/Integrity.dat"
start_program "$app" ""
auto wait-window "$main" >/dev/null
expect_eq "main window's client area at 144 DPI" "1080 750" "$(auto settle "$main" | cut -d' ' -f1,2)"
shoot "$main" main-about-144dpi
echo "display scales: every window fits at 96, 120, 144 and 192 DPI; the main window opens at 150%"
