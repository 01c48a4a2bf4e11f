#!/usr/bin/env bash
# Every window at the display scales users choose (100%, 125%, 150%, 200%):
# at each, every window's captions are measured against their controls
# (display_scale_tests, one start per scale), and at 150% the real program's
# main window opens at one and a half times its design, as the README shows
# it; the setup programs declare themselves DPI aware. Wine reads the scale
# (LogPixels) when its server starts: the server starts anew for each scale,
# on a screen where the windows fit at 200%, and at 96 DPI again at the end.
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
back_to_usual() {
    DISPLAY=$usual_display use_scale 96
    [ -z "$XVFB_PID" ] || kill "$XVFB_PID" 2>/dev/null || true
    cleanup
}
trap back_to_usual EXIT
start_virtual_display 2880x2160

main="Welcome to Tarvelon"
app=$(new_program_folder)
mkdir -p "$app/Data"
printf '[DLL]\r\nNULL*E\r\n' >"$app/Data/Integrity.dat"
for dpi in 96 120 144 192; do
    use_scale "$dpi"
    wine "$DISPLAY_SCALE_TESTS" >"$WORK/fit-$dpi.log" 2>&1 || { grep -v '^\[ ' "$WORK/fit-$dpi.log" >&2; fail "windows that do not fit at $dpi DPI"; }
    [ "$dpi" == 144 ] || continue
    start_program "$app" ""
    auto wait-window "$main" >/dev/null
    read -r width height _ <<<"$(auto settle "$main")"
    expect_eq "main window's client area at 144 DPI" "1080 750" "$width $height"
    shoot "$main" main-about-144dpi
    auto click "$main" cButton9 >/dev/null
    auto wait-exit "$PID" >/dev/null
done
for setup in "${RELEASE:-}"/Tarvelon-*-setup-*.exe; do
    [ ! -f "$setup" ] || grep -aq '<dpiAware[^>]*>true</dpiAware>' "$setup" || fail "$setup is not DPI aware"
done
echo "display scales: every window fits at 96, 120, 144 and 192 DPI"
