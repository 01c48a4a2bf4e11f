# The Wine session of the benchmarks: a virtual screen and the prefix
# build/wine-bench, its Wine server on core 0 beside everything measured.
# Sourced after tools/wine-session.sh; bench_session_start ROOT, stopped at exit.
# Results go to build/bench, generated inputs to build/bench/data, and every
# measured command runs pinned to core 0.
out=build/bench
data=$out/data
mkdir -p "$data"
pin=(taskset -c 0)

bench_session_start() {
    start_virtual_display
    wine_session_start "$1/build/wine-bench"
    trap wine_session_stop EXIT
    # The virtual screen has no window manager, for which Wine would wait up to two
    # seconds whenever a window is hidden; windows it does not manage are hidden at once.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
    # The Wine server is part of every system call our program makes under Wine; it
    # runs on the same core as everything measured.
    wineserver -k
    taskset -c 0 wineserver -p
    # Wine's services start now, away from any output a benchmark reads.
    wine cmd /c exit >/dev/null 2>&1 || true
}
