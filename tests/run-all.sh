#!/usr/bin/env bash
# make test: builds every preset and runs every test: the native unit tests
# under ASan/UBSan, the fuzz targets for a bounded time, the Windows integration
# tests and end-to-end scenarios under Wine on a virtual screen, and the check
# that the 32-bit program file loads on Windows 98 SE and XP.
# Ends with the line "N passed, N failed"; exits non-zero when anything failed.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
source tools/wine-session.sh
jobs=$(nproc)
logs=build/test-logs
mkdir -p "$logs"
passed=0
failed=0

# Counts one ctest run from its closing line; a run without one counts as a failure.
count_ctest() {
    local line
    line=$(grep -E '^[0-9]+% tests passed' "$1" | tail -n 1)
    if [[ $line =~ ([0-9]+)\ tests?\ failed\ out\ of\ ([0-9]+) ]]; then
        passed=$((passed + BASH_REMATCH[2] - BASH_REMATCH[1]))
        failed=$((failed + BASH_REMATCH[1]))
    else
        failed=$((failed + 1))
    fi
}

# Builds one preset; a failed build counts as one failure and its tests do not run.
build() {
    echo "== build $1"
    if cmake --preset "$1" >"$logs/configure-$1.log" 2>&1 &&
        cmake --build --preset "$1" -j "$jobs" >"$logs/build-$1.log" 2>&1; then
        return 0
    fi
    cat "$logs/configure-$1.log" "$logs/build-$1.log" 2>/dev/null | grep -E 'error|Error' | head -n 40
    failed=$((failed + 1))
    return 1
}

if build native; then
    echo "== native unit tests (ASan/UBSan)"
    ctest --test-dir build/native --output-on-failure -j "$jobs" >"$logs/native.log" 2>&1
    grep -E 'tests passed|\*\*\*Failed|FAILED|Failure' "$logs/native.log" | head -n 60
    count_ctest "$logs/native.log"
fi

if build fuzz; then
    echo "== fuzzing the data-file loader and the baseline look-ups (ASan/UBSan)"
    while read -r line; do
        echo "$line"
        case $line in
            *"without a finding") passed=$((passed + 1)) ;;
            "fuzz "*": FAILED") failed=$((failed + 1)) ;;
        esac
    done < <(tests/run-fuzz.sh)
fi

if build win32; then
    echo "== Windows 98 SE and XP fit of the 32-bit program file"
    if tools/check-imports.sh build/win32/TarvelonLow.exe; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
    fi
fi

if build win64; then
    echo "== release: installers and portable archive"
    tools/make-release.sh >"$logs/release.log" 2>&1 || { tail -n 20 "$logs/release.log"; failed=$((failed + 1)); }
    echo "== Windows integration and end-to-end tests under Wine"
    start_virtual_display  # always its own screen: tests neither need nor disturb a desktop
    wine_session_start "$root/build/wine-test" fresh
    # Output goes to a file: a pipe could be held open by Windows processes.
    ctest --test-dir build/win64 --output-on-failure --timeout 300 >"$logs/win64.log" 2>&1
    wine_session_stop
    grep -E 'tests passed|\*\*\*Failed|FAIL|Failure|Expected|Which is|Actual' "$logs/win64.log" | head -n 80
    count_ctest "$logs/win64.log"
fi

echo "Logs: $logs/"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
