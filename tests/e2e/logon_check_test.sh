#!/usr/bin/env bash
# A log-on check (MD5) of the system files and a custom folder with its own types finds changed and new
# files in both; "Scan Failing Files..." hands them in batches of two to both scanners (under "C:\Program
# Files\"), writes the report and updates both baselines beside backups; the next run is clean. Then a
# secure shut-down: Turn Off scans a file of wininit.ini and a new Run value, logs and accepts them and
# counts down until the close box's Yes (before the power action, which would end the Wine session).
source "$(dirname "$0")/lib.sh"
: "${FAKESCAN:?} ${SCREENSHOTS:?}"

system=$WINEPREFIX/drive_c/windows/system32
installed="$WINEPREFIX/drive_c/Program Files/Tarvelon Test Scanner"
cp "$system/msacm32.dll" "$WORK/msacm32.dll.orig"
run='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'
session='HKLM\System\CurrentControlSet\Control\Session Manager'
wininit=$WINEPREFIX/drive_c/windows/wininit.ini files=$WINEPREFIX/drive_c/ShutDownFiles dir='C:\ShutDownFiles'
# The prefix's own pending renames (an uninstaller's temporary copy, say) are dropped.
forget() { wine reg delete "$1" /v "$2" /f >"$WORK/.reg" 2>&1 || true; }  # key, value
forget "$session" PendingFileRenameOperations
trap 'cp "$WORK/msacm32.dll.orig" "$system/msacm32.dll"; rm -rf "$system/a&b.exe" "$system/tarvelon-new.dll" "$installed" "$folder"
      forget "$run" TarvelonE2E; forget "$session" PendingFileRenameOperations; rm -rf "$wininit" "$files"; cleanup' EXIT

folder=$WINEPREFIX/drive_c/Tools
app=$(new_program_folder)
rm -rf "$folder"
mkdir -p "$app/Data" "$folder" "$installed"
cp "$FAKESCAN" "$installed/fakescan.exe"
scanner='C:\Program Files\Tarvelon Test Scanner\fakescan.exe'
export TARVELON_FAKESCAN_LOG
TARVELON_FAKESCAN_LOG=$(windows_path "$WORK/scans.log")
# Every group at log-on, reports on, no automatic action, batches of two; slot 2's folder with DLL and EXE.
{
    printf '[Tarvelon]\r\nsettings=1,1,1,1,1,1,0,1\r\nadvanced=65536,2,0\r\nantivirus=%s|/scan\r\n' "$scanner"
    printf 'av2=%s|\r\nantivirus2=1,0,0\r\nalgo=md5\r\n\r\n' "$scanner"
    for n in $(seq 1 20); do
        [ "$n" == 2 ] && slot=('C:\Tools\' 1,0,0,0,1,0,1) || slot=(NULL 0,0,0,0,0,0,0)
        printf '[%d]\r\npath=%s\r\nargs=%s\r\nargs2=0,0,0,0,0,0,0\r\n\r\n' "$n" "${slot[@]}"
    done
} >"$app/Data/Tarvelon.dat"
: >"$app/Data/Integrity.dat"  # the plain CRC-32 name does not count for md5
for name in a.dll g.exe c.ocx; do printf '%s' "$name" >"$folder/$name"; done
watched_baseline md5 "$system" "$app/Data/Integrity-md5.dat"
watched_baseline md5 "$folder" "$app/Data/2-md5.dat"

printf 'more' >>"$system/msacm32.dll"
cp "$WORK/msacm32.dll.orig" "$system/a&b.exe"
printf 'new' >"$system/tarvelon-new.dll"
printf 'changed' | tee "$folder/g.exe" >"$folder/c.ocx"  # an OCX file is not among the folder's types
printf 'c' >"$folder/c^d.dll"
printf 'e' >"$folder/e%PATH%f.dll"
cp "$app/Data/Integrity-md5.dat" "$WORK/system.before"
cp "$app/Data/2-md5.dat" "$WORK/custom.before"

start_program "$app" " /r"
auto --timeout 120000 wait-caption @intCheck Label13 Results >/dev/null
auto restore @intCheck >/dev/null
watched_baseline md5 "$system" "$WORK/system.now"
total=$(($(entries "$WORK/system.now" | wc -l) + 4))  # with the folder's a.dll, g.exe, c^d.dll, e%PATH%f.dll
expect_eq "custom folder turn" "Custom Folder 1/1" "$(auto caption @intCheck l_cust2)"
expect_eq "scanned, passing, new, failed" "$total $((total - 6)) 4 2" "$(captions @intCheck Label6 Label7 Label8 Label9)"
expect_eq "the results' tab order" "Label2" "$(tab_order @intCheck)"
shoot @intCheck scan-results
auto click @intCheck Image11 >/dev/null
expect_eq "leaving with findings" "Some files failed the integrity check!  Are you sure you want to exit?" "$(auto box-text Warning)"
auto press Warning No >/dev/null
auto click @intCheck Label2 >/dev/null
auto wait-caption @intCheck Label10 "New and Failed Files:" >/dev/null
wait_shown @intCheck List1
expect_eq "the failed files' tab order" "List1 Label12" "$(tab_order @intCheck)"
sys='C:\windows\system32\' custom='C:\Tools\'
mapfile -t found < <(auto items @intCheck List1 | tr -d '\r')
expect_eq "new and failed files" "$(printf '%s\n' "${sys}msacm32.dll" "${sys}a&b.exe *NEW*" "${sys}tarvelon-new.dll *NEW*" \
    "${custom}g.exe" "${custom}c^d.dll *NEW*" "${custom}e%PATH%f.dll *NEW*" | LC_ALL=C sort)" "$(printf '%s\n' "${found[@]}" | LC_ALL=C sort)"
shoot @intCheck scan-failed-files

auto click @intCheck Label12 >/dev/null
auto --timeout 60000 wait-caption @intCheck Label13 "Integrity File Updated" >/dev/null
expect_eq "the action's caption afterwards" "Close Integrity Window" "$(auto caption @intCheck Label12)"
auto click @intCheck Label12 >/dev/null
expect_eq "exit after the update" "0" "$(auto wait-exit "$PID")"
found=("${found[@]% \*NEW\*}")
expected=$(for ((i = 0; i < 6; i += 2)); do  # each scanner's line unchanged, its arguments or none
    batch="\"${found[i]}\" \"${found[i + 1]}\" "
    printf '%s /scan %s\n%s  %s\n' "$scanner" "$batch" "$scanner" "$batch"
done | LC_ALL=C sort)
wait_for "scanner command lines" "$expected" sorted_scans  # the scanners run on after the program has ended
expect_eq "the one report" "Integrity Checker - These files were either New or Failed the Integrity Check,$(IFS=,; echo "${found[*]}")" \
    "$(cat "$app"/Data/Log/*.log | tr -d '\r')"
cmp -s "$WORK/system.before" "$app/Data/integrity.bak" || fail "Data\\integrity.bak is not the former baseline"
cmp -s "$WORK/custom.before" "$app/Data/2-md5.bak" || fail "Data\\2-md5.bak is not the former custom baseline"
# The system baseline holds every new value, and the folder's files with that of the last system file.
ab=$(entries "$WORK/system.now" | grep '^A&B.EXE=' | cut -d= -f2)
expect_eq "the new system baseline" "$( (entries "$WORK/system.now"
    for name in G.EXE 'C^D.DLL' 'E%PATH%F.DLL'; do echo "$name=$ab"; done) | LC_ALL=C sort)" "$(entries "$app/Data/Integrity-md5.dat")"
watched_baseline md5 "$folder" "$WORK/custom.now"
expect_eq "the new folder baseline" "$(entries "$WORK/custom.now" | grep -v '^C.OCX=')" "$(entries "$app/Data/2-md5.dat" | grep -v '^C.OCX=')"

start_program "$app" " /r"
expect_eq "exit of the next, clean log-on run" "0" "$(auto --timeout 120000 wait-exit "$PID")"
expect_eq "reports and scanner runs after it" "1 6" "$(ls "$app"/Data/Log | wc -l) $(wc -l <"$WORK/scans.log")"

# The secure shut-down, with one scanner.
rm "$app"/Data/Log/*.log "$WORK/scans.log" && mkdir -p "$files"
printf '[Tarvelon]\r\nsettings=1,1,1,1,1,1,0,1\r\nsettings2=1,1,1,1,1,1\r\nadvanced=65536,2,0\r\n' >"$app/Data/Tarvelon.dat"
printf 'antivirus=%s|/scan\r\nav2=|\r\nantivirus2=1,0,0\r\nalgo=md5\r\n\r\n' "$scanner" >>"$app/Data/Tarvelon.dat"
main="Welcome to Tarvelon" dialog="Secure Shut Down" progress="Scanning and Shutting Down...Please Wait"
start_program "$app" ""
auto wait-window "$main" >/dev/null
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
expect_eq "the dialog's tab order" "Image1 Image3 Image5 Label2 Label1" "$(tab_order "$dialog")"
shoot "$dialog" shutdown-dialog
auto key "$dialog" - 27 >/dev/null
expect_eq "Esc in the dialog" "0" "$(auto wait-exit "$PID")"

printf 'x' >"$files/pending.tmp" && printf 'x' >"$files/run.exe"
printf '[Rename]\r\nNUL=%s\\pending.tmp\r\n' "$dir" >"$wininit"
wine reg add "$run" /v TarvelonE2E /d "$dir\\run.exe /min" /f >"$WORK/.reg" 2>&1 || fail "cannot add a Run value"
start_program "$app" " /s"
auto wait-window "$dialog" >/dev/null
auto click "$dialog" Image4 >/dev/null  # Turn Off
auto --timeout 120000 wait-caption "$progress" Label2 "Status: Some files were scanned...Shutting Down in 2 minutes" >/dev/null
expect_eq "the count-down's button, the only stop" "1 Command1" "$(auto shown "$progress" Command1) $(tab_order "$progress")"
wait_until 30 "two scanner starts" scans_at_least 2
expect_eq "the scans" "$scanner /scan  \"$dir\\run.exe\""$'\n'"$scanner /scan \"$dir\\pending.tmp\" " "$(sorted_scans)"
expect_eq "the reports" "Registry Action - Scan and Update Multiple Entries,$dir\\run.exe"$'\n'"The following Files were scanned as a precaution (being renamed or deleted from Wininit),$dir\\pending.tmp" \
    "$(cat "$app"/Data/Log/*.log | tr -d '\r' | sort)"
grep -qF "TarvelonE2E=($dir\\run.exe /min)" "$app/Data/Registry.dat" || fail "the Run value was not accepted"
shoot "$progress" shutdown-progress
auto close "$progress" >/dev/null
expect_eq "the close box's question" "Cancel Shutdown?" "$(auto box-text TarvelonLow)"
auto press TarvelonLow No >/dev/null
auto close "$progress" >/dev/null
auto press TarvelonLow Yes >/dev/null
expect_eq "exit after Cancel Shutdown" "0" "$(auto wait-exit "$PID")"
echo "log-on check and secure shut-down: findings to the scanners, report, new baselines, pending files and Run values"
