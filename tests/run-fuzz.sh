#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz for a bounded time each (FUZZ_SECONDS,
# default 15), as many at once as there are cores; prints one line per target
# and exits non-zero when any target found something.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${FUZZ_SECONDS:-15}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fuzz_one() {  # target
    local name
    name=$(basename "$1")
    mkdir -p "$work/$name"
    if (cd "$work/$name" && "$1" -max_total_time="$seconds" -print_final_stats=1 >log 2>&1); then
        echo "fuzz $name: $(grep -o 'Done [0-9]* runs' "$work/$name/log") without a finding" >"$work/$name/result"
    else
        { echo "fuzz $name: FAILED"; tail -n 40 "$work/$name/log"; } >"$work/$name/result"
    fi
}

targets=("$root"/build/fuzz/tests/fuzz/*_fuzz)
for target in "${targets[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$(nproc)" ]; do wait -n; done
    fuzz_one "$target" &
done
wait
status=0
for target in "${targets[@]}"; do
    result=$work/$(basename "$target")/result
    cat "$result"
    grep -q ': FAILED' "$result" && status=1
done
exit $status
