#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz for a bounded time each (FUZZ_SECONDS,
# default 20); prints one line per target and exits non-zero on the first finding.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${FUZZ_SECONDS:-20}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
for target in "$root"/build/fuzz/tests/fuzz/*_fuzz; do
    name=$(basename "$target")
    mkdir -p "$work/$name"
    if (cd "$work/$name" && "$target" -max_total_time="$seconds" -print_final_stats=1 >log 2>&1); then
        echo "fuzz $name: $(grep -o 'Done [0-9]* runs' "$work/$name/log") without a finding"
    else
        echo "fuzz $name: FAILED"
        tail -n 40 "$work/$name/log"
        status=1
    fi
done
exit $status
