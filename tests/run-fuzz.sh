#!/usr/bin/env bash
# Runs every fuzz target of build/native for FUZZ_SECONDS (default 15) each, as many at
# once as there are cores; one line per target; non-zero when any found something.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export seconds=${FUZZ_SECONDS:-15} work
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fuzz_one() {  # target
    local name=${1##*/}
    mkdir -p "$work/$name" && cd "$work/$name" || return
    "$1" -max_total_time="$seconds" >log 2>&1 && echo "fuzz $name: $(grep -o 'Done [0-9]* runs' log) without a finding" >result ||
        { echo "fuzz $name: FAILED"; tail -n 40 log; } >result
}
export -f fuzz_one
printf '%s\0' "$root"/build/native/tests/fuzz/*_fuzz | xargs -0 -n 1 -P "$(nproc)" bash -c 'fuzz_one "$1"' _
cat "$work"/*/result
! grep -q ': FAILED' "$work"/*/result
