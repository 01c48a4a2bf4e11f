#!/usr/bin/env bash
# A secure shut-down and the scheduled run. /s beside the running program is refused; the dialog by
# the keyboard. Turn Off scans a file of wininit.ini and a new Run value, logs and accepts them and
# counts down; the close box asks, and Yes ends the program before the power action (which would end
# the Wine session). /a ends by itself, after scanning and reporting a changed system file.
source "$(dirname "$0")/lib.sh"
: "${FAKESCAN:?} ${SCREENSHOTS:?}"

main="Welcome to Tarvelon"
dialog="Secure Shut Down"
progress="Scanning and Shutting Down...Please Wait"
run='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'
session='HKLM\System\CurrentControlSet\Control\Session Manager'
wininit=$WINEPREFIX/drive_c/windows/wininit.ini
changed_dll=$WINEPREFIX/drive_c/windows/system32/msacm32.dll
files=$WINEPREFIX/drive_c/ShutDownFiles
dir='C:\ShutDownFiles'
cp "$changed_dll" "$WORK/msacm32.dll.orig"
# The prefix's own pending renames (an uninstaller's temporary copy, say) are dropped.
forget() { wine reg delete "$1" /v "$2" /f >"$WORK/.reg" 2>&1 || true; }  # key, value
forget "$session" PendingFileRenameOperations
trap 'cp "$WORK/msacm32.dll.orig" "$changed_dll"; forget "$run" TarvelonE2E; forget "$session" PendingFileRenameOperations
      rm -rf "$wininit" "$files"; cleanup' EXIT

app=$(new_program_folder)
mkdir -p "$app/Data" "$files"
scanner=$(windows_path "$FAKESCAN")
export TARVELON_FAKESCAN_LOG
TARVELON_FAKESCAN_LOG=$(windows_path "$WORK/scans.log")
printf '[Tarvelon]\r\nsettings=1,1,1,1,1,1,0,1\r\nsettings2=1,1,1,1,1,1\r\nadvanced=65536,2,0\r\n' >"$app/Data/Tarvelon.dat"
printf 'antivirus=%s|/scan\r\nav2=|\r\nantivirus2=1,0,0\r\nalgo=crc32\r\n\r\n' "$scanner" >>"$app/Data/Tarvelon.dat"
start_program "$app" ""
auto press TarvelonLow Yes >/dev/null
wait_for_primary_scan "$app/Data/Integrity.dat"
start_program "$app" " /s"
expect_eq "/s beside the program" "You must close Tarvelon before using the Shut Down Feature." "$(auto box-text TarvelonLow)"
auto press TarvelonLow OK >/dev/null
auto click "$main" cButton9 >/dev/null
for pid in "${STARTED[@]}"; do auto wait-exit "$pid" >/dev/null; done

start_program "$app" " /s"
auto wait-window "$dialog" >/dev/null
expect_eq "the main window during a shut-down" "" "$(auto windows | grep -F "$main" || true)"
auto mouse "$dialog" - move >/dev/null  # the pointer off the pictures: no lit picture shows
wait_shown "$dialog" Image4 0
expect_eq "the dialog's tab order" "Image1 Image3 Image5 Label2 Label1" "$(auto tab-order "$dialog" | tr -d '\r' | xargs)"
for name in Image1 Image3 Image5; do [ -n "$(auto caption "$dialog" "$name")" ] || fail "$name has no caption"; done
shoot "$dialog" shutdown-dialog
auto key "$dialog" - 27 >/dev/null
expect_eq "Esc in the dialog" "0" "$(auto wait-exit "$PID")"

printf 'x' >"$files/pending.tmp" && printf 'x' >"$files/run.exe"
printf '[Rename]\r\nNUL=%s\\pending.tmp\r\n' "$dir" >"$wininit"
wine reg add "$run" /v TarvelonE2E /d "$dir\\run.exe /min" /f >"$WORK/.reg" 2>&1 || fail "cannot add a Run value"
start_program "$app" " /s"
auto wait-window "$dialog" >/dev/null
auto click "$dialog" Image4 >/dev/null  # Turn Off
auto --timeout 120000 wait-caption "$progress" Label2 "Status: Some files were scanned...Shutting Down in 2 minutes" \
    >/dev/null
expect_eq "the count-down's button, the only stop" "1 Command1" \
    "$(auto shown "$progress" Command1) $(auto tab-order "$progress" | tr -d '\r')"
wait_until 30 "two scanner starts" scans_at_least 2
expect_eq "the scans" "$scanner /scan  \"$dir\\run.exe\""$'\n'"$scanner /scan \"$dir\\pending.tmp\" " "$(sorted_scans)"
expect_eq "the reports" "Registry Action - Scan and Update Multiple Entries,$dir\\run.exe"$'\n'"The following Files were scanned as a precaution (being renamed or deleted from Wininit),$dir\\pending.tmp" \
    "$(cat "$app"/Data/Log/*.log | tr -d '\r' | sort)"
grep -qF "TarvelonE2E=($dir\\run.exe /min)" "$app/Data/Registry.dat" || fail "the Run value was not accepted"
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

printf 'more' >>"$changed_dll"
start_program "$app" " /a"
expect_eq "exit of a scheduled run with a finding, the main window never shown" "0" \
    "$(auto --timeout 120000 wait-exit "$PID" "$main")"
sys='C:\windows\system32\'
wait_for "the finding's scan" "$scanner /scan \"${sys}msacm32.dll\" " sorted_scans  # it runs on after the program
expect_eq "the finding's report" "Integrity Checker - These files were either New or Failed the Integrity Check,${sys}msacm32.dll" \
    "$(tr -d '\r' <"$app"/Data/Log/*.log)"
