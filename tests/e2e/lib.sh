# Shared steps of the end-to-end scenarios: a fresh program folder, the program
# started with an exact command line, and the automation helper. Sourced.
set -euo pipefail
: "${TARVELON_EXE:?} ${TARVAUTO:?} ${WINEPREFIX:?} ${DISPLAY:?}"
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="

WORK=$(mktemp -d /tmp/tarvelon-e2e.XXXXXX)
STARTED=()
cleanup() {
    for pid in "${STARTED[@]}"; do wine "$TARVAUTO" kill "$pid" >/dev/null 2>&1 || true; done
    rm -rf "$WORK"
}
trap cleanup EXIT

fail() { echo "FAIL: $*" >&2; exit 1; }

# The helper writes to a file, never to a pipe a Windows process could keep open. It
# says why whenever it fails: a failure without a word is Wine not starting it at
# all, as a busy machine sees now and then, and that start is tried again.
auto() {
    local attempt
    for attempt in 1 2 3; do
        if wine "$TARVAUTO" "$@" >"$WORK/.answer" 2>"$WORK/.said"; then
            cat "$WORK/.said" >>"$WORK/.log"
            cat "$WORK/.answer"
            return 0
        fi
        cat "$WORK/.said" >>"$WORK/.log"
        [ -s "$WORK/.said" ] && break
    done
    cat "$WORK/.log" >&2
    fail "tarvauto $*"
}

# Waits until a command succeeds, for at most `seconds`; then fails the scenario.
wait_until() {  # seconds, what is awaited, command...
    local deadline=$((SECONDS + $1)) what=$2
    shift 2
    until "$@"; do
        [ $SECONDS -lt $deadline ] || fail "still waiting for $what"
        sleep 0.2
    done
}
# Runs a command until it prints the expected text, for at most 30 seconds;
# then fails the scenario with what it printed last.
wait_for() {  # what, expected, command...
    local what=$1 expected=$2 got deadline=$((SECONDS + 30))
    shift 2
    until got=$("$@" 2>/dev/null) && [ "$got" == "$expected" ]; do
        [ $SECONDS -lt $deadline ] || fail "$what: expected [$(printf '%q' "$expected")] got [$(printf '%q' "$got")]"
        sleep 0.2
    done
}
is_shown() { [ "$(auto shown "$1" "$2")" == "${3:-1}" ]; }  # window, control [1 shown | 0 hidden]
wait_shown() { wait_until 20 "$2 shown=${3:-1}" is_shown "$@"; }
# What the fake scanners have written to $WORK/scans.log: at least `count`
# lines; the lines in order of their text (scanners run side by side).
scans_at_least() { [ -f "$WORK/scans.log" ] && [ "$(wc -l <"$WORK/scans.log")" -ge "$1" ]; }
sorted_scans() { tr -d '\r' <"$WORK/scans.log" | LC_ALL=C sort; }

windows_path() { local p=${1//\//\\}; printf 'Z:%s' "$p"; }

# A new program folder holding only the program file.
new_program_folder() {
    local dir
    dir=$(mktemp -d "$WORK/app.XXXXXX")
    cp "$TARVELON_EXE" "$dir/TarvelonLow.exe"
    printf '%s' "$dir"
}

# Starts the program of a folder with the arguments exactly as given (blanks
# kept) behind its quoted name; sets PID.
start_program() {
    PID=$(auto start "\"$(windows_path "$1")\\TarvelonLow.exe\"$2")
    STARTED+=("$PID")
}

expect_eq() {  # what, expected, actual
    [ "$2" == "$3" ] || fail "$1: expected [$(printf '%q' "$2")] got [$(printf '%q' "$3")]"
}

FIRST_RUN_PROMPT=$'This is your first time using Tarvelon.  Tarvelon is required to do a system file Integrity scan before proceeding.\r\nIf you are sure there are no viruses on your computer, it is safe to scan now. Otherwise, please do a full scan at a later time. The full scan should take no more than five minutes to complete.\r\n\r\nPerform scan now?'

# Answers the first-run question with No and takes note of the refusal.
refuse_first_run() {
    expect_eq "first-run question" "$FIRST_RUN_PROMPT" "$(auto box-text TarvelonLow)"
    auto press TarvelonLow No >/dev/null
    expect_eq "refusal of the full scan" "You have chosen not to do a full scan at this time.  You need to run the full scan before using the Integrity Checker." "$(auto box-text TarvelonLow)"
    auto press TarvelonLow OK >/dev/null
}

every_value_filled() { [ -s "$1" ] && ! grep -q '=NULL\*E' "$1"; }
# Waits until the primary full scan has filled every value of the data file in
# and its window has given way to the main window.
wait_for_primary_scan() {  # data file
    wait_until 240 "the primary full scan" every_value_filled "$1"
    auto wait-no-window @intCheck >/dev/null
    auto wait-window "Welcome to Tarvelon" >/dev/null
}

# A picture of one window in docs/screenshots/ (SCREENSHOTS), which must show
# more than a blank window. Under Wine on a screen without a window manager, a
# window that lies wholly inside another visible one stays black; the corner
# keeps it clear of them.
shoot() {  # window title, picture name
    local rect width height left top colours
    [ "$1" == "Welcome to Tarvelon" ] || auto move "$1" 0 0 >/dev/null
    rect=$(auto settle "$1")
    read -r width height left top <<<"$rect"
    xwd -root -silent | convert xwd:- -crop "${width}x${height}+${left}+${top}" +repage -strip "$SCREENSHOTS/$2.png"
    colours=$(identify -format '%k' "$SCREENSHOTS/$2.png")
    [ "$colours" -gt 8 ] || fail "$2.png is nearly blank ($colours colours)"
}

# A window's controls in the order the Tab key walks them, on one line.
tab_order() { auto tab-order "$1" | tr -d '\r' | tr '\n' ' ' | sed 's/ $//'; }
# The captions of a window's controls, on one line.
captions() {  # window, control...
    local window=$1 control texts=()
    shift
    for control; do texts+=("$(auto caption "$window" "$control")"); done
    echo "${texts[*]}"
}

# The data file the program makes of a folder's watched files (CRC-32 in
# hexadecimal, MD5 as the decimal digits of its bytes), written here.
watched_baseline() {  # crc32|md5, folder, data file
    python3 - "$@" <<'PY'
import hashlib, os, sys, zlib
algorithm, folder, out = sys.argv[1:4]
value = lambda data: f"{zlib.crc32(data):X}" if algorithm == "crc32" else "".join(map(str, hashlib.md5(data).digest()))
lines = ["//Do not edit this file", "//This file contains the Integrity Checker Data"]
for section in ["DLL", "DRV", "386", "SYS", "OCX", "EXE", "COM", "PIF", "SCR"]:
    lines += [f"[{section}]"] + [f"{name}={value(open(os.path.join(folder, name), 'rb').read())}*E"
        for name in sorted(os.listdir(folder)) if not name.startswith(".") and name[-4:].upper() == "." + section
        and os.path.isfile(os.path.join(folder, name))] + ["NULL*E"]
open(out, "w", newline="").write("\r\n".join(lines) + "\r\n")
PY
}
# A data file's entries as "NAME=VALUE" lines in sorted order, for comparing.
entries() { tr -d '\r' <"$1" | grep -E '^[^/].*=.*\*E$' | tr '[:lower:]' '[:upper:]' | LC_ALL=C sort; }
