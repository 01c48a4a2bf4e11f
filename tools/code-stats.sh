#!/usr/bin/env bash
# make stats: the program's non-blank lines by folder, the tests' non-blank
# lines by kind, and the tests' share of the program.
#   tools/code-stats.sh            prints the figures
#   tools/code-stats.sh --check N  also fails when the tests exceed N% of the program
set -euo pipefail
cd "$(dirname "$0")/.."

program_folders=(appwatch avshell core custom hash integrity logging platform regwatch shutdown ui)
declare -A test_kinds=(
    [native]="tests/core tests/hash tests/integrity tests/custom tests/logging tests/regwatch
              tests/appwatch tests/avshell tests/shutdown tests/ui tests/memory"
    [Wine]="tests/win"
    [end-to-end]="tests/e2e"
    [fuzz]="tests/fuzz"
)

# Non-blank lines of every file git knows (or would add) below the given places.
nonblank() {
    local files
    files=$(git ls-files --cached --others --exclude-standard -- "$@" 2>/dev/null)
    [ -n "$files" ] || { echo 0; return; }
    # shellcheck disable=SC2086
    cat $files | grep -cv '^[[:space:]]*$' || true
}

program=0
echo "Program (non-blank lines)"
for folder in "${program_folders[@]}"; do
    n=$(nonblank "$folder")
    program=$((program + n))
    printf '  %-12s %6d\n' "$folder" "$n"
done
printf '  %-12s %6d\n' total "$program"

counted=0
echo "Tests (non-blank lines)"
for kind in native Wine end-to-end fuzz; do
    # shellcheck disable=SC2086
    n=$(nonblank ${test_kinds[$kind]})
    counted=$((counted + n))
    printf '  %-12s %6d\n' "$kind" "$n"
done
tests=$(nonblank tests)
printf '  %-12s %6d\n' "runners" "$((tests - counted))"
printf '  %-12s %6d\n' total "$tests"

percent=$((tests * 1000 / program))
printf 'Tests are %d.%d%% of the program.\n' $((percent / 10)) $((percent % 10))

if [ "${1:-}" == --check ]; then
    limit=$2
    if [ $((tests * 100)) -gt $((program * limit)) ]; then
        echo "The tests have grown past ${limit}% of the program. Tests should be a quarter to a third" >&2
        echo "of the code: check behaviour through tables, fakes and whole journeys instead of line" >&2
        echo "by line, and fold cases that check the same thing." >&2
        exit 1
    fi
fi
