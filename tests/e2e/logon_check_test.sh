#!/usr/bin/env bash
# A log-on check with MD5 over a baseline of every watched system file and a custom
# folder joining with its own file types: the clean run ends by itself. With files
# changed and added in both, the run stops on its results; "Scan Failing Files..."
# hands the findings in batches of two to both scanners (under "C:\Program Files\"),
# writes the report and takes the new values into both baselines beside their
# backups; the next run is clean. The scan window's tab orders and pictures.
source "$(dirname "$0")/lib.sh"
: "${FAKESCAN:?} ${SCREENSHOTS:?}"

system=$WINEPREFIX/drive_c/windows/system32
installed="$WINEPREFIX/drive_c/Program Files/Tarvelon Test Scanner"
cp "$system/msacm32.dll" "$WORK/msacm32.dll.orig"
restore_system() {
    cp "$WORK/msacm32.dll.orig" "$system/msacm32.dll" 2>/dev/null || true
    rm -rf "$system/a&b.exe" "$system/tarvelon-new.dll" "$installed" "$folder"
}
trap 'restore_system; cleanup' EXIT

folder=$WINEPREFIX/drive_c/Tools
app=$(new_program_folder)
rm -rf "$folder"
mkdir -p "$app/Data" "$folder" "$installed"
cp "$FAKESCAN" "$installed/fakescan.exe"
scanner='C:\Program Files\Tarvelon Test Scanner\fakescan.exe'
export TARVELON_FAKESCAN_LOG
TARVELON_FAKESCAN_LOG=$(windows_path "$WORK/scans.log")
# Every group at log-on, reports on, no automatic action, batches of two; the
# folder in slot 2 with its DLL and EXE files.
{
    printf '[Tarvelon]\r\nsettings=1,1,1,1,1,1,0,1\r\nadvanced=65536,2,0\r\nantivirus=%s|/scan\r\n' "$scanner"
    printf 'av2=%s|\r\nantivirus2=1,0,0\r\nalgo=md5\r\n\r\n' "$scanner"
    for n in $(seq 1 20); do
        path=NULL args=0,0,0,0,0,0,0
        [ "$n" != 2 ] || { path='C:\Tools\'; args=1,0,0,0,1,0,1; }
        printf '[%d]\r\npath=%s\r\nargs=%s\r\nargs2=0,0,0,0,0,0,0\r\n\r\n' "$n" "$path" "$args"
    done
} >"$app/Data/Tarvelon.dat"
: >"$app/Data/Integrity.dat"  # the plain CRC-32 name does not count for md5
for name in a.dll g.exe c.ocx; do printf '%s' "$name" >"$folder/$name"; done
watched_baseline md5 "$system" "$app/Data/Integrity-md5.dat"
watched_baseline md5 "$folder" "$app/Data/2-md5.dat"

start_program "$app" " /r"
expect_eq "exit of a clean log-on run" "0" "$(auto --timeout 120000 wait-exit "$PID")"
[ -z "$(ls -A "$app/Data/Log")" ] || fail "a clean run wrote a report"

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
expect_eq "leaving with findings" "Some files failed the integrity check!  Are you sure you want to exit?" \
    "$(auto box-text Warning)"
auto press Warning No >/dev/null
auto click @intCheck Label2 >/dev/null
auto wait-caption @intCheck Label10 "New and Failed Files:" >/dev/null
wait_shown @intCheck List1
expect_eq "the failed files' tab order" "List1 Label12" "$(tab_order @intCheck)"
sys='C:\windows\system32\' custom='C:\Tools\'
mapfile -t found < <(auto items @intCheck List1 | tr -d '\r')
expect_eq "new and failed files" "$(printf '%s\n' "${sys}msacm32.dll" "${sys}a&b.exe *NEW*" "${sys}tarvelon-new.dll *NEW*" \
    "${custom}g.exe" "${custom}c^d.dll *NEW*" "${custom}e%PATH%f.dll *NEW*" | LC_ALL=C sort)" \
    "$(printf '%s\n' "${found[@]}" | LC_ALL=C sort)"
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
logs=("$app"/Data/Log/*.log)
[ ${#logs[@]} == 1 ] && [[ $(basename "${logs[0]}") =~ ^[0-9]{2}-[0-9]{2}-[0-9]{4}\([0-9]{1,2}_[0-9]{2}_[0-9]{2}(AM|PM)?\)\.log$ ]] ||
    fail "reports written: ${logs[*]}"
expect_eq "report" "Integrity Checker - These files were either New or Failed the Integrity Check,$(IFS=,; echo "${found[*]}")" \
    "$(tr -d '\r' <"${logs[0]}")"
cmp -s "$WORK/system.before" "$app/Data/integrity.bak" || fail "Data\\integrity.bak is not the former baseline"
cmp -s "$WORK/custom.before" "$app/Data/2-md5.bak" || fail "Data\\2-md5.bak is not the former custom baseline"
# The system baseline holds every file's new value; the folder's files behind the
# last system file (a&b.exe) also reach it, with that file's value.
ab=$(entries "$WORK/system.now" | grep '^A&B.EXE=' | cut -d= -f2)
expect_eq "the new system baseline" "$( (entries "$WORK/system.now"
    for name in G.EXE 'C^D.DLL' 'E%PATH%F.DLL'; do echo "$name=$ab"; done) | LC_ALL=C sort)" "$(entries "$app/Data/Integrity-md5.dat")"
watched_baseline md5 "$folder" "$WORK/custom.now"
expect_eq "the new folder baseline" "$(entries "$WORK/custom.now" | grep -v '^C.OCX=')" \
    "$(entries "$app/Data/2-md5.dat" | grep -v '^C.OCX=')"

start_program "$app" " /r"
expect_eq "exit of the next, clean log-on run" "0" "$(auto --timeout 120000 wait-exit "$PID")"
expect_eq "reports and scanner runs after it" "1 6" "$(ls "$app"/Data/Log | wc -l) $(wc -l <"$WORK/scans.log")"
echo "log-on check: clean runs, findings to both scanners, report and new baselines as expected"
