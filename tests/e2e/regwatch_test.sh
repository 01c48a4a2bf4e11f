#!/usr/bin/env bash
# RegWatch as a new user meets it. A fresh program folder's first start
# records the prefix's watched registry values in Data\Registry.dat, its
# seventeen sections in order. A Run value added afterwards shows as its
# warning after Refresh, is chosen and scanned on its own, then scanned with
# every warning and accepted, after which the snapshot is clean. A pending
# wininit.ini entry and a pending rename value show in the pending view, and
# Refresh goes back to the tree. Everything put into the prefix is taken out
# again: Wine acts on Run values and pending operations when the prefix starts.
source "$(dirname "$0")/lib.sh"
: "${FAKESCAN:?} ${SCREENSHOTS:?}"
mkdir -p "$SCREENSHOTS"

main="Welcome to Tarvelon"
run='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'
session='HKLM\System\CurrentControlSet\Control\Session Manager'
wininit=$WINEPREFIX/drive_c/windows/wininit.ini
[ ! -e "$wininit" ] || fail "a wininit.ini is left in the prefix"

# A folder of a fixed name, so that the pictures stay the same from run to run.
files=$WINEPREFIX/drive_c/RegWatchTools
rm -rf "$files" && mkdir -p "$files"
dir='C:\RegWatchTools'
touch "$files/new-tool.exe"

reg_quiet() { wine reg "$@" >"$WORK/.reg" 2>&1; }
pending_saved=""
if reg_quiet query "$session" /v PendingFileRenameOperations; then
    pending_saved=$WORK/session.reg
    reg_quiet export "$session" "$(windows_path "$pending_saved")" /y
fi
restore_prefix() {
    reg_quiet delete "$run" /v TarvelonE2E /f || true
    reg_quiet delete "$run" /v TarvelonE2EOld /f || true
    rm -f "$wininit"
    if [ -n "$pending_saved" ]; then
        reg_quiet import "$(windows_path "$pending_saved")" || true
    else
        reg_quiet delete "$session" /v PendingFileRenameOperations /f || true
    fi
    rm -rf "$files"
}
trap 'restore_prefix; cleanup' EXIT

list_items() { auto items "$main" "$1" | tr -d '\r'; }
wait_items() { wait_for "$1" "$2" list_items "$1"; }  # control, expected items, one per line
# Waits until the fake scanners have started `count` times; prints their lines.
scanned() {  # count
    wait_until 30 "$1 scanner starts" scans_at_least "$1"
    sorted_scans
}

reg_quiet add "$run" /v TarvelonE2EOld /d 'C:\old-tool.exe /q' /f || fail "cannot add a Run value"
app=$(new_program_folder)
mkdir -p "$app/Data"
: >"$app/Data/Integrity.dat"
fake=$(windows_path "$FAKESCAN")
{
    printf '[Tarvelon]\r\nsettings=0,0,0,0,0,0,0,1\r\nadvanced=65536,500,0\r\n'
    printf 'antivirus=%s|/x\r\nav2=%s| /y \r\nantivirus2=1,0,0\r\nalgo=crc32\r\n\r\n' "$fake" "$fake"
} >"$app/Data/Tarvelon.dat"
export TARVELON_FAKESCAN_LOG
TARVELON_FAKESCAN_LOG=$(windows_path "$WORK/scans.log")

start_program "$app" ""
auto wait-window "$main" >/dev/null

# The snapshot: the seventeen sections in their order, each with exactly the
# values the prefix's key holds (its usual "%1" %* default left out).
python3 - "$app/Data/Registry.dat" "$WORK" <<'PY' || fail "Data\\Registry.dat does not hold the prefix's values"
import os, re, subprocess, sys
snapshot, work = sys.argv[1], sys.argv[2]
locations = [
    ("LM/R", r"HKLM\Software\Microsoft\Windows\CurrentVersion\Run"),
    ("LM/RO", r"HKLM\Software\Microsoft\Windows\CurrentVersion\RunOnce"),
    ("LM/ROX", r"HKLM\Software\Microsoft\Windows\CurrentVersion\RunOnceEx"),
    ("LM/RS", r"HKLM\Software\Microsoft\Windows\CurrentVersion\RunServices"),
    ("LM/RSO", r"HKLM\Software\Microsoft\Windows\CurrentVersion\RunServicesOnce"),
] + [(f"LM/S{t[0].upper()}", rf"HKLM\Software\CLASSES\{t}file\shell\open\command") for t in ("exe", "com", "bat", "hta", "pif")] + [
    ("CU/R", r"HKCU\Software\Microsoft\Windows\CurrentVersion\Run"),
    ("CU/RO", r"HKCU\Software\Microsoft\Windows\CurrentVersion\RunOnce"),
] + [(f"CR/S{t[0].upper()}", rf"HKCR\{t}file\shell\open\command") for t in ("exe", "com", "bat", "hta", "pif")]
text = open(snapshot, encoding="cp1252").read()
sections = re.findall(r"^\[([^\]]*)\]$", text, re.M)
if sections != [code for code, _ in locations]:
    sys.exit(f"sections {sections}")
for code, key in locations:
    block = ("\n" + text.split(f"[{code}]\n", 1)[1]).split("\n[", 1)[0]
    recorded = {line.split("=", 1)[0].strip(): line.split("=", 1)[1] for line in block.splitlines() if "=" in line}
    with open(os.path.join(work, "query.txt"), "w") as out:
        subprocess.run(["wine", "reg", "query", key], stdout=out, stderr=subprocess.DEVNULL)
    present = {}
    for line in open(os.path.join(work, "query.txt"), encoding="cp1252", errors="replace").read().splitlines():
        match = re.match(r"^    (.*?)    (REG_\w+)    ?(.*)$", line)
        if match and match.group(3) != '"%1" %*':
            name = match.group(1)
            present[f" ({match.group(3)})" if name == "(Default)" else name] = (match.group(2), match.group(3))
    for name, (kind, value) in present.items():
        if name.replace("=", "-") not in recorded or kind == "REG_SZ" and recorded[name.replace("=", "-")] != f"({value})":
            sys.exit(f"{code}: {name}={value} recorded as {recorded.get(name)}")
    if len(recorded) != len(present):
        sys.exit(f"{code}: recorded {sorted(recorded)}, present {sorted(present)}")
print("ok")
PY
grep -q $'^TarvelonE2EOld=(C:\\\\old-tool.exe /q)\r$' "$app/Data/Registry.dat" || fail "the old Run value is not recorded"

# The page shows what the start-up pass left; Refresh shows the new value.
reg_quiet add "$run" /v TarvelonE2E /d "$dir\\new-tool.exe /autorun" /f || fail "cannot add a Run value"
auto click "$main" Image7 >/dev/null
heading="New and Modified Registry Entry Warnings"
wait_items List5 "$heading"$'\n'"*No new or modified Registry Entries*"
auto click "$main" Command1 >/dev/null
row="HKEY_CURRENT_USER|Loaded in \\TarvelonE2E ($dir\\new-tool.exe /autorun) New Entry!"
wait_items List5 "$heading"$'\n'"$row"
node="HKEY_CURRENT_USER\\Loaded in Run\\TarvelonE2E ($dir\\new-tool.exe /autorun)"
auto tree "$main" TreeView1 | tr -d '\r' | grep -qxF "$node" || fail "the new value has no node under its location"
auto tree-open "$main" TreeView1 "HKEY_CURRENT_USER" 1 >/dev/null
auto tree-open "$main" TreeView1 "HKEY_CURRENT_USER\\Loaded in Run" 1 >/dev/null
auto tree-select "$main" TreeView1 "$node" >/dev/null
auto wait-caption "$main" Text4 "TarvelonE2E ($dir\\new-tool.exe /autorun)" >/dev/null
shoot "$main" main-regwatch

# Chosen and scanned on its own: the file, quoted, to both scanners.
auto choose "$main" List5 1 >/dev/null
wait_items List5 "$heading"$'\n'"$row) "
expect_eq "chosen entry" "TarvelonE2E ($dir\\new-tool.exe /autorun)" "$(auto caption "$main" Text4)"
auto click "$main" Command11 >/dev/null
expect_eq "Scan File for Viruses" "$fake /x \"$dir\\new-tool.exe\""$'\n'"$fake /y \"$dir\\new-tool.exe\"" "$(scanned 2)"

# Scan && Update: every warning in one run per scanner, the report, and the
# value accepted into the snapshot.
auto click "$main" cScnUpd >/dev/null
wait_items List5 "$heading"$'\n'"*No new or modified Registry Entries*"
expect_eq "Scan && Update Warnings" \
    "$fake /x  \"$dir\\new-tool.exe\""$'\n'"$fake /x \"$dir\\new-tool.exe\""$'\n'"$fake /y  \"$dir\\new-tool.exe\""$'\n'"$fake /y \"$dir\\new-tool.exe\"" \
    "$(scanned 4)"
reports=("$app"/Data/Log/*.log)
[ "${#reports[@]}" == 1 ] && [ -f "${reports[0]}" ] || fail "expected one report, found ${reports[*]}"
expect_eq "report" "Registry Action - Scan and Update Multiple Entries,$dir\\new-tool.exe"$'\r' "$(cat "${reports[0]}")"
grep -qF "TarvelonE2E=($dir\\new-tool.exe /autorun)" "$app/Data/Registry.dat" || fail "the value was not accepted"
auto click "$main" Command1 >/dev/null
wait_items List5 "$heading"$'\n'"*No new or modified Registry Entries*"

# The pending view: wininit.ini's entries with their operation, the rename
# value's files as they are.
printf '[rename]\r\nNUL=%s\\gone.tmp\r\n%s\\new.dll=%s\\old.dll\r\n' "$dir" "$dir" "$dir" >"$wininit"
python3 - "$dir\\p.tmp" "$WORK/pending.reg" <<'PY'
import sys
data = ("\\??\\" + sys.argv[1] + "\0\0").encode("cp1252")
with open(sys.argv[2], "w", newline="") as f:
    f.write("REGEDIT4\r\n\r\n"
            "[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\Session Manager]\r\n"
            '"PendingFileRenameOperations"=hex(7):' + ",".join(f"{b:02x}" for b in data) + "\r\n")
PY
reg_quiet import "$(windows_path "$WORK/pending.reg")" || fail "cannot set the pending rename value"
auto click "$main" cMod >/dev/null
wait_items List6 "These files are to be Deleted or Overwritten on the next Reboot (Wininit.ini and Registry)."$'\n'"$dir\\gone.tmp {To be Deleted}"$'\n'"$dir\\old.dll {To be Overwritten}"$'\n'"$dir\\p.tmp"
expect_eq "pending view's scan button" "Scan all Files for Viruses" "$(auto caption "$main" Command11)"
expect_eq "tree under the pending view" "0" "$(auto shown "$main" TreeView1)"
shoot "$main" main-regwatch-pending
auto click "$main" Command1 >/dev/null
auto wait-caption "$main" Command11 "Scan File for Viruses" >/dev/null
expect_eq "tree after Refresh" "1" "$(auto shown "$main" TreeView1)"
expect_eq "pending view after Refresh" "0" "$(auto shown "$main" List6)"

auto click "$main" cButton9 >/dev/null
expect_eq "exit code after Exit" "0" "$(auto wait-exit "$PID")"
echo "regwatch: snapshot, warning, scans, acceptance and pending view as expected"
