#!/usr/bin/env bash
# Secure Shut Down and the scheduled run with the real program. /s shows the
# dialog; Turn Off sends a file of wininit.ini to the fake scanner, logs it and
# starts the count-down, and Yes in the close box's question ends the program
# before any power action (which would end the Wine session). /a runs without
# a window to answer: clean, it ends by itself; with a changed system file, the
# file goes to the scanner and into a report, and it ends by itself too.
source "$(dirname "$0")/lib.sh"
: "${FAKESCAN:?} ${SCREENSHOTS:?}"

system=$WINEPREFIX/drive_c/windows/system32
wininit=$WINEPREFIX/drive_c/windows/wininit.ini
changed_dll=$system/msacm32.dll
cp "$changed_dll" "$WORK/msacm32.dll.orig"
restore() {
    cp "$WORK/msacm32.dll.orig" "$changed_dll" 2>/dev/null || true
    rm -f "$wininit"
}
trap 'restore; cleanup' EXIT
[ ! -e "$wininit" ] || fail "a wininit.ini is left in the prefix"
# Renames the prefix itself has queued for its next start (an uninstaller's
# temporary copy, say) would join the precautionary scan.
wine reg delete 'HKLM\System\CurrentControlSet\Control\Session Manager' /v PendingFileRenameOperations /f \
    >/dev/null 2>&1 || true

app=$(new_program_folder)
mkdir -p "$app/Data" "$WORK/av"
cp "$FAKESCAN" "$WORK/av/fakescan.exe"
scanner=$(windows_path "$WORK/av/fakescan.exe")
export TARVELON_FAKESCAN_LOG
TARVELON_FAKESCAN_LOG=$(windows_path "$WORK/scans.log")
{
    printf '[Tarvelon]\r\nsettings=1,1,1,1,1,1,0,1\r\nadvanced=65536,500,0\r\nantivirus=%s|/scan\r\n' "$scanner"
    printf 'av2=|\r\nantivirus2=1,0,0\r\nalgo=crc32\r\n\r\n'
    for n in $(seq 1 20); do printf '[%d]\r\npath=NULL\r\nargs=0,0,0,0,0,0,0\r\nargs2=0,0,0,0,0,0,0\r\n\r\n' "$n"; done
} >"$app/Data/Tarvelon.dat"

start_program "$app" ""
auto press TarvelonLow Yes >/dev/null
wait_for_primary_scan "$app/Data/Integrity.dat"
auto click "Welcome to Tarvelon" cButton9 >/dev/null
auto wait-exit "$PID" >/dev/null

dialog="Secure Shut Down"
progress="Scanning and Shutting Down...Please Wait"
pending=$WORK/pending.tmp
printf 'p' >"$pending"
printf '[Rename]\r\nNUL=%s\r\n' "$(windows_path "$pending")" >"$wininit"
start_program "$app" " /s"
auto wait-window "$dialog" >/dev/null
expect_eq "the main window during a shut-down" "" "$(auto windows | grep -F 'Welcome to Tarvelon' || true)"
shoot "$dialog" shutdown-dialog
auto click "$dialog" Image4 >/dev/null  # Turn Off
auto --timeout 60000 wait-caption "$progress" Label2 "Status: Some files were scanned...Shutting Down in 2 minutes" \
    >/dev/null
expect_eq "the count-down's button" "1" "$(auto shown "$progress" Command1)"
expect_eq "the progress window's tab order" "Command1" "$(auto tab-order "$progress" | tr -d '\r')"
expect_eq "the dialog after the choice" "" "$(auto windows | grep -F "$dialog" || true)"
expect_eq "the precautionary scan" "$scanner /scan \"$(windows_path "$pending")\" " "$(tr -d '\r' <"$WORK/scans.log")"
expect_eq "the precautionary report" \
    "The following Files were scanned as a precaution (being renamed or deleted from Wininit),$(windows_path "$pending")" \
    "$(tr -d '\r' <"$app"/Data/Log/*.log)"
shoot "$progress" shutdown-progress
auto close "$progress" >/dev/null
expect_eq "the close box's question" "Cancel Shutdown?" "$(auto box-text TarvelonLow)"
auto press TarvelonLow No >/dev/null
auto wait-window "$progress" >/dev/null
auto key "$progress" - 27 >/dev/null  # Esc asks as the close box does
expect_eq "Esc's question" "Cancel Shutdown?" "$(auto box-text TarvelonLow)"
auto press TarvelonLow Yes >/dev/null
expect_eq "exit after Cancel Shutdown" "0" "$(auto wait-exit "$PID")"
rm -f "$wininit" "$app"/Data/Log/*.log "$WORK/scans.log"

start_program "$app" " /a"
expect_eq "exit of a clean scheduled run, the main window never shown" "0" \
    "$(auto --timeout 120000 wait-exit "$PID" "Welcome to Tarvelon")"
[ ! -e "$WORK/scans.log" ] || fail "a clean scheduled run started a scanner"
[ -z "$(ls "$app/Data/Log")" ] || fail "a clean scheduled run wrote a report"

printf 'more' >>"$changed_dll"
start_program "$app" " /a"
expect_eq "exit of a scheduled run with a finding, the main window never shown" "0" \
    "$(auto --timeout 120000 wait-exit "$PID" "Welcome to Tarvelon")"
sys='C:\windows\system32\'
wait_for "the finding's scan" "$scanner /scan \"${sys}msacm32.dll\" " sorted_scans  # it runs on after the program
expect_eq "the finding's report" \
    "Integrity Checker - These files were either New or Failed the Integrity Check,${sys}msacm32.dll" \
    "$(tr -d '\r' <"$app"/Data/Log/*.log)"
echo "secure shut down and scheduled runs: dialog, precautionary scan, count-down, and both /a endings as expected"
