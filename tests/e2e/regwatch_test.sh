#!/usr/bin/env bash
# RegWatch in the real program's window: a new Run value as a warning and a node, scanned, reported and accepted
# into the snapshot on disk; the pending view, empty and then with wininit.ini and a pending rename, scanned.
source "$(dirname "$0")/lib.sh"
: "${FAKESCAN:?} ${SCREENSHOTS:?}"

main="Welcome to Tarvelon"
run='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'
session='HKLM\System\CurrentControlSet\Control\Session Manager'
wininit=$WINEPREFIX/drive_c/windows/wininit.ini
[ ! -e "$wininit" ] || fail "a wininit.ini is left in the prefix"
files=$WINEPREFIX/drive_c/RegWatchTools  # a fixed name keeps the pictures the same from run to run
dir='C:\RegWatchTools'
rm -rf "$files" && mkdir -p "$files" && touch "$files/new-tool.exe"
# What the scenario puts into the prefix goes again (Wine acts on Run values and pending renames), and so do
# the prefix's own pending renames.
forget() { wine reg delete "$1" /v "$2" /f >"$WORK/.reg" 2>&1 || true; }  # key, value
forget "$session" PendingFileRenameOperations
trap 'forget "$run" TarvelonE2E; forget "$session" PendingFileRenameOperations; rm -rf "$wininit" "$files"; cleanup' EXIT
wait_items() { wait_for "$1" "$2" eval "auto items '$main' $1 | tr -d '\r'"; }  # control, expected items, one a line
scanned() { wait_until 30 "$1 scanner starts" scans_at_least "$1" && sorted_scans; }  # count

app=$(new_program_folder)
mkdir -p "$app/Data" && : >"$app/Data/Integrity.dat"
fake=$(windows_path "$FAKESCAN")
printf '[Tarvelon]\r\nsettings=0,0,0,0,0,0,0,1\r\nantivirus=%s|/x\r\nav2=%s| /y \r\nantivirus2=1,0,0\r\n' \
    "$fake" "$fake" >"$app/Data/Tarvelon.dat"
TARVELON_FAKESCAN_LOG=$(windows_path "$WORK/scans.log") && export TARVELON_FAKESCAN_LOG
start_program "$app" ""
auto wait-window "$main" >/dev/null
grep -q '^\[FS/ST\]' "$app/Data/Registry.dat" || fail "the first start made no whole snapshot"

# The page shows what the start-up pass left; Refresh shows the new value, as a row and as a node.
wine reg add "$run" /v TarvelonE2E /d "$dir\\new-tool.exe /autorun" /f >"$WORK/.reg" 2>&1 || fail "cannot add a Run value"
auto click "$main" Image7 >/dev/null
heading="New and Modified Registry Entry Warnings"
wait_items List5 "$heading"$'\n'"*No new or modified Registry Entries*"
auto click "$main" Command1 >/dev/null
wait_items List5 "$heading"$'\n'"HKEY_CURRENT_USER|Loaded in \\TarvelonE2E ($dir\\new-tool.exe /autorun) New Entry!"
auto tree-open "$main" TreeView1 "HKEY_CURRENT_USER" 1 >/dev/null
auto tree-open "$main" TreeView1 "HKEY_CURRENT_USER\\Loaded in Run" 1 >/dev/null
auto tree-select "$main" TreeView1 "HKEY_CURRENT_USER\\Loaded in Run\\TarvelonE2E ($dir\\new-tool.exe /autorun)" >/dev/null
auto wait-caption "$main" Text4 "TarvelonE2E ($dir\\new-tool.exe /autorun)" >/dev/null
shoot "$main" main-regwatch

# Scan && Update: every warning in one run per scanner, reported and accepted.
auto click "$main" cScnUpd >/dev/null
wait_items List5 "$heading"$'\n'"*No new or modified Registry Entries*"
expect_eq "Scan && Update Warnings" "$fake /x  \"$dir\\new-tool.exe\""$'\n'"$fake /y  \"$dir\\new-tool.exe\"" "$(scanned 2)"
expect_eq "the report" "Registry Action - Scan and Update Multiple Entries,$dir\\new-tool.exe" "$(tr -d '\r' <"$app"/Data/Log/*.log)"
grep -qF "TarvelonE2E=($dir\\new-tool.exe /autorun)" "$app/Data/Registry.dat" || fail "the value was not accepted"
rm "$app"/Data/Log/*.log "$WORK/scans.log"

# The pending view: nothing pending is said so; then wininit.ini's entries and the rename value's files.
auto click "$main" cMod >/dev/null
expect_eq "nothing pending" "No files will be modified or deleted on Restart!" "$(auto box-text TarvelonLow)"
auto press TarvelonLow OK >/dev/null
printf '[rename]\r\nNUL=%s\\gone.tmp\r\n%s\\new.dll=%s\\old.dll\r\n' "$dir" "$dir" "$dir" >"$wininit"
wine reg add "$session" /v PendingFileRenameOperations /t REG_MULTI_SZ /d "\\??\\$dir\\p.tmp" /f >"$WORK/.reg" 2>&1 ||
    fail "cannot set the pending rename value"
auto click "$main" cMod >/dev/null
pending="These files are to be Deleted or Overwritten on the next Reboot (Wininit.ini and Registry)."
wait_items List6 "$pending"$'\n'"$dir\\gone.tmp {To be Deleted}"$'\n'"$dir\\old.dll {To be Overwritten}"$'\n'"$dir\\p.tmp"
shoot "$main" main-regwatch-pending
auto wait-caption "$main" Command11 "Scan all Files for Viruses" >/dev/null
auto click "$main" Command11 >/dev/null
listed="\"$dir\\gone.tmp\" \"$dir\\old.dll\" \"$dir\\p.tmp\""
expect_eq "Scan all Files for Viruses" "$fake /x  $listed"$'\n'"$fake /y  $listed" "$(scanned 2)"
wait_items List6 "$pending"$'\n'"$dir\\gone.tmp"$'\n'"$dir\\old.dll"$'\n'"$dir\\p.tmp"
expect_eq "the precautionary report" \
    "Precautionary Scan - These files were to be renamed/deleted/overwritten at startup,$dir\\gone.tmp,$dir\\old.dll,$dir\\p.tmp" \
    "$(tr -d '\r' <"$app"/Data/Log/*.log)"
auto click "$main" cButton9 >/dev/null
expect_eq "exit code after Exit" "0" "$(auto wait-exit "$PID")"
