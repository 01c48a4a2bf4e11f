#!/usr/bin/env bash
# The log browser's speed, a part of make bench that also runs on its own:
# Load Logs over 2,000 and 20,000 reports (six a day, at the same six clock
# times every day) and View Log of a 1 MiB and a 10 MiB report, as the program
# runs them (bench/log_bench.exe: the win64 build under Wine, the real files
# and message pumps, core 0 for everything). Each is timed twice: with the
# windows only in the control model, which is the program's own work and what
# the targets are about, and with the main window on the screen, which adds
# the system's tree and list controls. The bare listing of the folder is timed
# beside, for the share of the system's file calls. Results:
# build/bench/log-results.md.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
source tools/wine-session.sh
source bench/bench-session.sh

results=$out/log-results.md
runs=${BENCH_RUNS:-15}

echo "== building the log browser benchmark"
{ cmake --preset win64 && cmake --build --preset win64 -j "$(nproc)" --target log_bench; } >"$out/log-build.log" 2>&1

bench_session_start "$root"

# One pair of cases, timed in turns: "median fastest median fastest ratio",
# the ratio being the median over the pairs of the larger against the smaller.
measure() {  # load|list|open, smaller, larger, [model]
    "${pin[@]}" wine "$out/../win64/bench/log_bench.exe" "$1" "$2" "$3" "$runs" "Z:$(realpath "$data" | tr / '\\')\\" \
        ${4:+"$4"} >"$out/log_bench.out" 2>&1 || true
    local answer
    answer=$(tr -d '\r' <"$out/log_bench.out")
    [[ $answer =~ ^([0-9.]+\ [0-9.]+\ [0-9.]+\ [0-9.]+)\ ratio=([0-9.]+)$ ]] || { echo "log_bench $*: $answer" >&2; return 1; }
    echo "${BASH_REMATCH[1]} ${BASH_REMATCH[2]}"
}
cell() {  # figures, which case (1 or 2)
    local f
    read -ra f <<<"$1"
    printf '%s (%s)' "${f[$((2 * $2 - 2))]}" "${f[$((2 * $2 - 1))]}"
}
ratio() { local f; read -ra f <<<"$1"; echo "${f[4]}"; }

echo "== timing the log browser"
list=$(measure list 2000 20000)
load_model=$(measure load 2000 20000 model)
load_screen=$(measure load 2000 20000)
open_model=$(measure open 1 10 model)
open_screen=$(measure open 1 10)

{
    echo "## The log browser (seconds: median of $runs, fastest in brackets)"
    echo
    echo "The ratios are the median over $runs pairs of runs, the larger case timed right after the smaller."
    echo
    echo "| | the program's work | on the screen | listing the folder alone |"
    echo "|---|---|---|---|"
    echo "| Load Logs, 2,000 reports | $(cell "$load_model" 1) | $(cell "$load_screen" 1) | $(cell "$list" 1) |"
    echo "| Load Logs, 20,000 reports | $(cell "$load_model" 2) | $(cell "$load_screen" 2) | $(cell "$list" 2) |"
    echo "| 20,000 / 2,000 (at most 12) | $(ratio "$load_model") | $(ratio "$load_screen") | $(ratio "$list") |"
    echo "| View Log, 1 MiB | $(cell "$open_model" 1) | $(cell "$open_screen" 1) | |"
    echo "| View Log, 10 MiB | $(cell "$open_model" 2) | $(cell "$open_screen" 2) | |"
    echo "| 10 MiB / 1 MiB (at most 12) | $(ratio "$open_model") | $(ratio "$open_screen") | |"
} >"$results"
cat "$results"
