#!/usr/bin/env bash
# The Integrity Checker against Wine's real system directory: the first start
# with "Yes" builds the baseline in a primary full scan; a log-on run on the
# unchanged system ends by itself; after one DLL is changed and hidden, one EXE
# added and one DLL added hidden and marked as a system file, the log-on run
# stops on its results with all three.
source "$(dirname "$0")/lib.sh"

system=$WINEPREFIX/drive_c/windows/system32
changed_dll=$system/msacm32.dll
added_exe=$system/tarvelon-added.exe
hidden_dll=$system/tarvelon-hidden.dll
cp "$changed_dll" "$WORK/msacm32.dll.orig"
# Wine keeps the hidden and system attributes in this extended attribute.
dos_attributes() { python3 -c "import os, sys; print(os.getxattr(sys.argv[1], 'user.DOSATTRIB').decode())" "$1" 2>/dev/null; }
restore_system() {
    cp "$WORK/msacm32.dll.orig" "$changed_dll" 2>/dev/null || true
    python3 -c "import os, sys; os.removexattr(sys.argv[1], 'user.DOSATTRIB')" "$changed_dll" 2>/dev/null || true
    rm -f "$added_exe" "$hidden_dll"
}
trap 'restore_system; cleanup' EXIT

# CRC-32 of every watched file of the system directory, as "NAME=HEX", computed here.
watched_crcs() {
    python3 - "$system" <<'PY'
import os, sys, zlib
folder = sys.argv[1]
for name in sorted(os.listdir(folder)):
    path = os.path.join(folder, name)
    if name.startswith(".") or not os.path.isfile(path):
        continue
    if name[-4:].upper() in (".DLL", ".DRV", ".386", ".SYS", ".OCX", ".EXE", ".COM", ".PIF", ".SCR"):
        with open(path, "rb") as f:
            print(f"{name.upper()}={zlib.crc32(f.read()):X}")
PY
}

app=$(new_program_folder)
data=$app/Data/Integrity.dat
start_program "$app" ""
expect_eq "first-run question" "$FIRST_RUN_PROMPT" "$(auto box-text TarvelonLow)"
auto press TarvelonLow Yes >/dev/null

# The primary scan fills every value in; the scan window then gives way to the main window.
wait_for_primary_scan "$data"
ours=$(tr -d '\r' <"$data" | grep -v '^NULL\*E$' | grep -E '^[^[/].*=[0-9A-F]+\*E$' | sed 's/\*E$//' |
    awk -F= '{name=$1; for (i = 2; i < NF; i++) name = name "=" $i; print toupper(name) "=" $NF}' | sort)
expect_eq "baseline of the system directory" "$(watched_crcs | sort)" "$ours"
auto click "Welcome to Tarvelon" cButton9 >/dev/null
auto wait-exit "$PID" >/dev/null

# Check everything at log-on from now on.
sed -i 's/^settings=.*/settings=1,1,1,1,1,1,0,0\r/' "$app/Data/Tarvelon.dat"

start_program "$app" " /r"
expect_eq "exit of a clean log-on run" "0" "$(auto --timeout 120000 wait-exit "$PID")"
[ -z "$(ls -A "$app/Data/Log")" ] || fail "a clean run wrote a report"

printf 'more' >>"$changed_dll"
cp "$WORK/msacm32.dll.orig" "$added_exe"
printf 'hidden' >"$hidden_dll"
system_attrib() { wine attrib "$1" "C:\\windows\\system32\\$2" >>"$WORK/.log" 2>&1; }  # one flag a call
system_attrib +h msacm32.dll
system_attrib +h tarvelon-hidden.dll
system_attrib +s tarvelon-hidden.dll
expect_eq "attributes of the changed DLL" "0x2" "$(dos_attributes "$changed_dll")"
expect_eq "attributes of the added DLL" "0x6" "$(dos_attributes "$hidden_dll")"
start_program "$app" " /r"
auto --timeout 120000 wait-caption @intCheck Label13 Results >/dev/null
total=$(watched_crcs | wc -l)
expect_eq "files scanned" "$total" "$(auto caption @intCheck Label6)"
expect_eq "new files" "2" "$(auto caption @intCheck Label8)"
expect_eq "failed files" "1" "$(auto caption @intCheck Label9)"
expect_eq "passing files" "$((total - 3))" "$(auto caption @intCheck Label7)"
expect_eq "list heading" "New and Failed Files:" "$(auto caption @intCheck Label10)"
expect_eq "new and failed files" "$(printf '%s\n' 'C:\windows\system32\msacm32.dll' \
    'C:\windows\system32\tarvelon-added.exe *NEW*' 'C:\windows\system32\tarvelon-hidden.dll *NEW*' | sort)" \
    "$(auto items @intCheck List1 | tr -d '\r' | sort)"
scan_tab_order() { auto tab-order @intCheck | tr -d '\r' | tr '\n' ' ' | sed 's/ $//'; }
expect_eq "the results' tab order" "Label2" "$(scan_tab_order)"
auto click @intCheck Label2 >/dev/null
auto wait-caption @intCheck Label10 "New and Failed Files:" >/dev/null
wait_shown @intCheck List1
expect_eq "the failed files' tab order" "List1 Label12" "$(scan_tab_order)"

auto click @intCheck Image11 >/dev/null
expect_eq "leaving with findings" "Some files failed the integrity check!  Are you sure you want to exit?" "$(auto box-text Warning)"
auto press Warning Yes >/dev/null
auto wait-exit "$PID" >/dev/null
echo "integrity scan: primary scan, clean and changed log-on runs as expected"
