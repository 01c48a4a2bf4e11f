#!/usr/bin/env bash
# make test: builds every preset and runs every test: the native unit tests under
# ASan/UBSan, the fuzz targets for a bounded time, the Windows integration tests and
# end-to-end scenarios under Wine on a virtual screen, and the check that the 32-bit
# program file loads on Windows 98 SE and XP; first, that the tests have not grown
# past 40% of the program's lines.
# Ends with the line "N passed, N failed"; exits non-zero when anything failed.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
source tools/wine-session.sh
jobs=$(nproc) logs=build/test-logs passed=0 failed=0
mkdir -p "$logs"
tally() { if [ "$1" -eq 0 ]; then passed=$((passed + 1)); else failed=$((failed + 1)); fi; }  # exit status

# Builds one preset; a failed build counts as one failure and its tests do not run.
build() {
    echo "== build $1"
    cmake --preset "$1" >"$logs/configure-$1.log" 2>&1 &&
        cmake --build --preset "$1" -j "$jobs" >"$logs/build-$1.log" 2>&1 && return 0
    cat "$logs/configure-$1.log" "$logs/build-$1.log" 2>/dev/null | grep -E 'error|Error' | head -n 40
    tally 1
    return 1
}
# Runs ctest into a log (never a pipe, which a Windows process could hold open),
# shows its failures and counts it from its closing line (none: one failure).
run_ctest() {  # log name, lines to show, ctest arguments...
    local log=$logs/$1.log shown=$2 line
    shift 2
    ctest --output-on-failure "$@" >"$log" 2>&1
    grep -E "$shown" "$log" | head -n 80
    line=$(grep -E '^[0-9]+% tests passed' "$log" | tail -n 1)
    if [[ $line =~ ([0-9]+)\ tests?\ failed\ out\ of\ ([0-9]+) ]]; then
        passed=$((passed + BASH_REMATCH[2] - BASH_REMATCH[1])) failed=$((failed + BASH_REMATCH[1]))
    else
        tally 1
    fi
}

echo "== the tests' share of the program (at most 40%)"
tools/code-stats.sh --check 40 | tail -n 1
tally "${PIPESTATUS[0]}"
if build native; then
    echo "== native unit tests (ASan/UBSan)"
    run_ctest native 'tests passed|\*\*\*Failed|FAILED|Failure' --test-dir build/native -j "$jobs"
    echo "== fuzzing the data-file loader and the baseline look-ups (ASan/UBSan)"
    while read -r line; do
        echo "$line"
        case $line in *"without a finding") tally 0 ;; "fuzz "*": FAILED") tally 1 ;; esac
    done < <(tests/run-fuzz.sh)
fi
if build win32; then
    echo "== Windows 98 SE and XP fit of the 32-bit program file"
    tools/check-imports.sh build/win32/TarvelonLow.exe
    tally $?
fi
if build win64; then
    echo "== release: installers and portable archive"
    tools/make-release.sh >"$logs/release.log" 2>&1 || { tail -n 20 "$logs/release.log"; tally 1; }
    echo "== Windows integration and end-to-end tests under Wine"
    start_virtual_display  # always its own screen: tests neither need nor disturb a desktop
    wine_session_start "$root/build/wine-test" fresh
    run_ctest win64 'tests passed|\*\*\*Failed|FAIL|Failure|Expected|Which is|Actual' --test-dir build/win64 --timeout 300
    wine_session_stop
fi
echo "Logs: $logs/"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
