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

out=build/bench
data=$out/data
mkdir -p "$data"
results=$out/log-results.md
runs=${BENCH_RUNS:-7}
pin=(taskset -c 0)

echo "== building the log browser benchmark"
{ cmake --preset win64 && cmake --build --preset win64 -j "$(nproc)" --target log_bench; } >"$out/log-build.log" 2>&1

start_virtual_display
wine_session_start "$root/build/wine-bench"
trap wine_session_stop EXIT
# No window manager on the virtual screen: windows Wine does not manage are
# hidden at once instead of after a wait for the manager's answer.
wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
wineserver -k
"${pin[@]}" wineserver -p
wine cmd /c exit >/dev/null 2>&1 || true  # Wine's services start now, away from any output we read

# "median minimum" seconds of one measurement; the program folder is made on first use.
measure() {  # load|list|open, size, folder, [model]
    mkdir -p "$data/$3"
    local folder answer
    folder="Z:$(realpath "$data/$3" | tr / '\\')\\"
    "${pin[@]}" wine "$out/../win64/bench/log_bench.exe" "$1" "$2" "$runs" "$folder" ${4:+"$4"} >"$out/log_bench.out" 2>&1 || true
    answer=$(tr -d '\r' <"$out/log_bench.out")
    [[ $answer =~ median=([0-9.]+)\ min=([0-9.]+) ]] || { echo "log_bench $*: $answer" >&2; return 1; }
    echo "${BASH_REMATCH[1]} ${BASH_REMATCH[2]}"
}
# The larger over the smaller, from the fastest repetition of each: other
# programs on the machine can only ever add time.
ratio() { python3 -c "import sys; print(f'{float(sys.argv[2]) / float(sys.argv[1]):.1f}')" "${1#* }" "${2#* }"; }
shown() { printf '%s (%s)' "${1% *}" "${1#* }"; }

echo "== timing the log browser"
declare -A t
t[list2000]=$(measure list 2000 logs2000)
t[list20000]=$(measure list 20000 logs20000)
for way in model screen; do
    mode=; [ "$way" == model ] && mode=model
    t[load2000.$way]=$(measure load 2000 logs2000 $mode)
    t[load20000.$way]=$(measure load 20000 logs20000 $mode)
    t[open1.$way]=$(measure open 1 report $mode)
    t[open10.$way]=$(measure open 10 report $mode)
done

{
    echo "## The log browser (seconds: median of $runs, fastest in brackets; ratios of the fastest)"
    echo
    echo "| | the program's work | on the screen | listing the folder alone |"
    echo "|---|---|---|---|"
    echo "| Load Logs, 2,000 reports | $(shown "${t[load2000.model]}") | $(shown "${t[load2000.screen]}") | $(shown "${t[list2000]}") |"
    echo "| Load Logs, 20,000 reports | $(shown "${t[load20000.model]}") | $(shown "${t[load20000.screen]}") | $(shown "${t[list20000]}") |"
    echo "| 20,000 / 2,000 (at most 12) | $(ratio "${t[load2000.model]}" "${t[load20000.model]}") | $(ratio "${t[load2000.screen]}" "${t[load20000.screen]}") | $(ratio "${t[list2000]}" "${t[list20000]}") |"
    echo "| View Log, 1 MiB | $(shown "${t[open1.model]}") | $(shown "${t[open1.screen]}") | |"
    echo "| View Log, 10 MiB | $(shown "${t[open10.model]}") | $(shown "${t[open10.screen]}") | |"
    echo "| 10 MiB / 1 MiB (at most 12) | $(ratio "${t[open1.model]}" "${t[open10.model]}") | $(ratio "${t[open1.screen]}" "${t[open10.screen]}") | |"
} >"$results"
cat "$results"
