#!/usr/bin/env bash
# make bench: the checksum engines against the usual tools, and the log-on scan.
#
# On a generated 1 GiB file held in the page cache and on a folder of 20,000
# small files, getChecksum as the program runs it (the win64 build under Wine,
# reading through the Win32 platform, in each of the four buffer sizes) is timed
# inside the program (median of its repetitions); the peers are timed with
# hyperfine (-N, median). Digests are compared with the peers' before any time
# is reported. Then a clean log-on scan of generated system directories of
# 5,000, 10,000 and 100,000 files runs on its window, shown and hidden, and the
# first scan of custom folders of 2,000 and 20,000 new files runs up to their
# saved baselines. Then the registry pass over 200 and 2,000 Run values,
# recording and comparing, the pass over every watched place with 200 and
# 2,000 services and tasks, and over the prefix's own, and a log-on run with the automatic action over
# data files no healthy program writes (20 MiB of random bytes, one 20 MiB line
# of "=", 200,000 entries in one section), with its time and peak working set.
# Then, on both cores, the checksums on worker threads against the tools
# that use every core: the MD5 log-on check of 100,000 files beside hashdeep
# and md5deep over the same tree, two workers against one, the 20,000 small
# files beside xargs cat, the floor under Wine (open, read and close alone, on
# one thread and on every core) of both trees, and the primary full scan of
# 2,000 and 20,000 files.
# Last, bench/log-bench.sh times the log browser. Every command but those of
# the two cores runs on core 0. Results: build/bench/results.md.
#
#   bench/run-bench.sh            everything (about twenty-five minutes)
#   bench/run-bench.sh regwatch   only the registry pass (a minute): build/bench/regwatch.md
#   bench/run-bench.sh places     only the pass over every watched place: build/bench/places.md
#   bench/run-bench.sh cores      only the part on both cores (five minutes): build/bench/cores.md
set -euo pipefail
part=${1:-all}
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
source tools/wine-session.sh
source bench/bench-session.sh

results=$out/results.md
runs=${BENCH_RUNS:-10}

echo "== building"
if [ "$part" == all ]; then
    cmake --preset bench >"$out/build.log" 2>&1 && cmake --build --preset bench -j "$(nproc)" >>"$out/build.log" 2>&1
fi
cmake --preset win64 >>"$out/build.log" 2>&1 &&
    cmake --build --preset win64 -j "$(nproc)" --target checksum_bench scan_bench regwatch_bench autostart_bench file_cost_bench >>"$out/build.log" 2>&1

small=$data/small
if [ "$part" != regwatch ] && [ "$part" != places ]; then
echo "== data"
big=$data/big.bin
[ "$part" == cores ] || [ "$(stat -c %s "$big" 2>/dev/null)" == 1073741824 ] || head -c 1073741824 /dev/urandom >"$big"
if [ "$(find "$small" -type f 2>/dev/null | wc -l)" != 20000 ]; then
    rm -rf "$small" && mkdir -p "$small"
    python3 - "$small" <<'PY'
import os, random, sys
random.seed(1)
for i in range(20000):
    with open(os.path.join(sys.argv[1], f"f{i:05d}.dll"), "wb") as f:
        f.write(os.urandom(random.randint(512, 16384)))
PY
fi
find "$small" -type f | sort >"$data/small.list"
for count in 2000 5000 10000 20000 100000; do
    folder=$data/scan$count
    [ "$(find "$folder/system" -type f 2>/dev/null | wc -l)" == "$count" ] && [ -s "$folder/program/Data/Integrity-md5.dat" ] ||
        { rm -rf "$folder" && bench/make-scan-folder.py "$count" "$folder"; }
    find "$folder" -type f -exec cat {} + >/dev/null
done
hostile=$data/hostile
[ -s "$hostile/entries.dat" ] || bench/make-hostile-data-files.py "$data/scan2000/system" "$hostile"
[ "$part" == cores ] || cat "$big" "$hostile"/*.dat >/dev/null  # into the page cache
cat "$small"/* >/dev/null
fi

bench_session_start "$root"
winpath() { printf 'Z:%s' "${1//\//\\}"; }

# Where the measured commands run: core 0, or both cores for the part that
# measures the checksums on worker threads.
on=("${pin[@]}")

# Our time: median seconds of getChecksum over a file or a folder; given a
# worker count and an extension, over the folder's files of that extension
# as a scan's pass takes them.
ours() {  # algorithm, buffer, target (folder ends in /)[, workers, extension]
    local target
    target=$(winpath "$(realpath "$3")")
    [[ $3 == */ ]] && target+='\'
    "${on[@]}" wine "$out/../win64/bench/checksum_bench.exe" "$1" "$2" "$runs" "$target" "${@:4}" 2>/dev/null | tr -d '\r'
}

# Median seconds of the least a Windows program pays to read a folder's files.
file_cost() {  # folder, threads, repetitions
    "${on[@]}" wine "$out/../win64/bench/file_cost_bench.exe" "$(winpath "$(realpath "$1")")\\" "$2" "$3" 2>/dev/null |
        tr -d '\r' | sed -n 's/.*median=\([0-9.]*\).*/\1/p'
}

# Peer's median seconds, from hyperfine's export.
peer() {  # name, command...
    local name=$1
    shift
    "${on[@]}" hyperfine -N --warmup 2 --runs "$runs" --export-json "$out/$name.json" "$*" >"$out/$name.log" 2>&1 || { cat "$out/$name.log" >&2; return 1; }
    python3 -c "import json,sys; print(json.load(open(sys.argv[1]))['results'][0]['median'])" "$out/$name.json"
}

# Median seconds of a clean log-on scan over a generated system directory.
scan() {  # display (shown, minimised, hidden), file count, repetitions[, algorithm[, workers]]
    local folder
    folder=$(winpath "$(realpath "$data/scan$2")")
    "${on[@]}" wine "$out/../win64/bench/scan_bench.exe" logon "$1" "$3" "$folder\\program\\" "$folder\\system\\" \
        "${@:4}" 2>/dev/null | tr -d '\r' | sed 's/median=\([0-9.]*\).*/\1/'
}

# Median seconds of the primary full scan of a generated system directory,
# from the first-run question to the complete data file.
primary_scan() {  # file count, repetitions
    local program=$out/primary$1
    rm -rf "$program" && mkdir -p "$program/Data"
    printf '[Tarvelon]\r\nsettings=1,1,1,1,1,1,0,0\r\nantivirus=\r\nav2=\r\nalgo=crc32\r\n' >"$program/Data/Tarvelon.dat"
    "${on[@]}" wine "$out/../win64/bench/scan_bench.exe" primary "$2" "$(winpath "$(realpath "$program")")\\" \
        "$(winpath "$(realpath "$data/scan$1/system")")\\" 2>/dev/null | tr -d '\r' | sed 's/median=\([0-9.]*\).*/\1/'
}

# Median seconds of the first scan of a custom folder of new files, up to its saved baseline.
first_scan() {  # file count, repetitions
    local program=$out/first$1  # a folder without "data\" in its path: the slot is read from the name
    rm -rf "$program" && mkdir -p "$program/Data" && : >"$program/Data/Integrity.dat"
    "${pin[@]}" wine "$out/../win64/bench/scan_bench.exe" first-custom "$2" "$(winpath "$(realpath "$program")")\\" \
        "$(winpath "$(realpath "$data/scan$1/system")")\\" 2>/dev/null | tr -d '\r' | sed 's/median=\([0-9.]*\).*/\1/'
}

# Median seconds and peak working set of a log-on run over a hostile data file.
hostile_run() {  # data file name
    local program=$out/hostile-$1
    rm -rf "$program" && mkdir -p "$program/Data/Log"
    printf '[Tarvelon]\r\nsettings=1,1,1,1,1,1,1,0\r\nantivirus=\r\nav2=\r\nalgo=crc32\r\n' >"$program/Data/Tarvelon.dat"
    "${pin[@]}" wine "$out/../win64/bench/scan_bench.exe" hostile 3 "$(winpath "$(realpath "$program")")\\" \
        "$(winpath "$(realpath "$data/scan2000/system")")\\" "$(winpath "$(realpath "$hostile/$1.dat")")" \
        2>/dev/null | tr -d '\r'
}
field() { sed "s/.*$1=\([0-9.]*\).*/\1/" <<<"$2"; }

ratio() { python3 -c "import sys; print(f'{float(sys.argv[1]) / float(sys.argv[2]):.2f}')" "$1" "$2"; }

# The registry pass over 200 and 2,000 values under HKEY_CURRENT_USER's Run
# key, on the RegWatch page shown: the recording of a first start, a
# comparison at once after it and one of a later Refresh (medians of 5).
regwatch_section() {
    # The snapshot goes to memory (tmpfs) where there is one: the disk's
    # write-back would otherwise decide the times of a pass that writes.
    local program=$out/regwatch-program small large own
    [ -d /dev/shm ] && program=$(mktemp -d /dev/shm/tarvelon-regwatch.XXXXXX)
    rm -rf "$program" && mkdir -p "$program"
    # The small pass lasts a few hundredths of a second, where a tick of the
    # system clock weighs: it is repeated three times as often.
    small=$("${pin[@]}" wine "$out/../win64/bench/regwatch_bench.exe" 200 15 "$(winpath "$(realpath "$program")")\\" 2>/dev/null | tr -d '\r')
    large=$("${pin[@]}" wine "$out/../win64/bench/regwatch_bench.exe" 2000 5 "$(winpath "$(realpath "$program")")\\" 2>/dev/null | tr -d '\r')
    rm -rf "$program"
    echo "## Registry pass, seventeen locations, values under HKEY_CURRENT_USER's Run key (seconds, medians of 15 and 5 runs)"
    echo
    echo "| | 200 values | 2,000 values | ratio |"
    echo "|---|---|---|---|"
    for name in record compare compare-at-once writes-alone; do
        echo "| $name | $(field "$name" "$small") | $(field "$name" "$large") | $(ratio "$(field "$name" "$large")" "$(field "$name" "$small")") |"
    done
    own() { python3 -c "import sys; print(f'{float(sys.argv[1]) - float(sys.argv[2]):.6f}')" "$(field record "$1")" "$(field writes-alone "$1")"; }
    echo "| record without its writes | $(own "$small") | $(own "$large") | $(ratio "$(own "$large")" "$(own "$small")") |"
    echo
    echo "Targets: 2,000 against 200 at most 12. record: the first start's recording pass;"
    echo "compare: Refresh with nothing changed; compare-at-once: Refresh within 2.1 s of a"
    echo "recording, while the system's profile calls read the file anew at every call;"
    echo "writes-alone: the recording's profile writes without the pass (the system's share)."
}

# The whole pass, every watched place with it, over services and scheduled
# tasks planted in registry keys and a Windows folder of the bench's own (two
# services to a task), then over the prefix's own registry and tasks: the
# comparing pass of a Refresh with nothing changed (medians).
places_section() {
    local base=$out places=() real
    [ -d /dev/shm ] && base=$(mktemp -d /dev/shm/tarvelon-places.XXXXXX)
    places_run() {  # arguments of autostart_bench, with the program folder last but for planted's Windows folder
        rm -rf "$base/program" "$base/windows" && mkdir -p "$base/program" "$base/windows"
        "${pin[@]}" wine "$out/../win64/bench/autostart_bench.exe" "$@" 2>/dev/null | tr -d '\r'
    }
    local program windows
    program="$(winpath "$(realpath "$base")")\\program\\"
    windows="$(winpath "$(realpath "$base")")\\windows\\"
    for entries in 200 2000 450; do
        places+=("$(places_run planted "$entries" $([ "$entries" == 2000 ] && echo 5 || echo 15) "$program" "$windows")")
    done
    real=$(places_run real 15 "$program")
    [ "$base" != "$out" ] && rm -rf "$base"
    echo "## Registry pass over every watched place (seconds, Refresh with nothing changed, medians of 15 and 5 runs)"
    echo
    echo "| | 200 entries | 2,000 entries | ratio |"
    echo "|---|---|---|---|"
    echo "| services and tasks planted, two to one | $(field compare "${places[0]}") | $(field compare "${places[1]}") | $(ratio "$(field compare "${places[1]}")" "$(field compare "${places[0]}")") |"
    echo
    echo "- 300 services and 150 tasks: $(field compare "${places[2]}") s ($(field nodes "${places[2]}") tree nodes)"
    echo "- the prefix's own registry and tasks: $(field compare "$real") s, $(field services "$real") services and drivers, $(field tasks "$real") scheduled tasks, $(field nodes "$real") tree nodes"
    echo
    echo "Target: 2,000 against 200 at most 12."
}

# The checksums on worker threads, with the Wine server and every command free
# to use both cores, beside the tools that use every core themselves.
cores_section() {
    on=()
    wineserver -k
    wineserver -p
    wine cmd /c exit >/dev/null 2>&1 || true
    local tree=$data/scan100000/system processors
    processors=$(nproc)
    local -A c
    c[hashdeep]=$(peer hashdeep_md5 hashdeep -c md5 -r "$tree")
    c[md5deep]=$(peer md5deep md5deep -r "$tree")
    c[logon]=$(scan minimised 100000 3 md5)
    c[logon1]=$(scan minimised 100000 3 md5 1)
    c[logon0]=$(scan minimised 100000 3 md5 0)
    c[small_cat]=$(peer small_cat_cores xargs -a "$data/small.list" cat)
    c[small]=$(ours CRC32 65536 "$data/small/" -1 .DLL | sed 's/median=\([0-9.]*\).*/\1/')
    c[small0]=$(ours CRC32 65536 "$data/small/" 0 .DLL | sed 's/median=\([0-9.]*\).*/\1/')
    c[floor1]=$(file_cost "$data/small" 1 "$runs")
    c[floor2]=$(file_cost "$data/small" "$processors" "$runs")
    c[tree_floor1]=$(file_cost "$tree" 1 3)
    c[tree_floor2]=$(file_cost "$tree" "$processors" 3)
    c[primary2000]=$(primary_scan 2000 5)
    c[primary20000]=$(primary_scan 20000 3)
    on=("${pin[@]}")
    echo "## On both cores: checksums on worker threads (seconds, median)"
    echo
    echo "Worker threads: one per processor ($processors here) unless a number is named."
    echo
    echo "| | seconds |"
    echo "|---|---|"
    echo "| hashdeep -c md5 -r, 100,000 files | ${c[hashdeep]} |"
    echo "| md5deep -r, 100,000 files | ${c[md5deep]} |"
    echo "| log-on check, MD5, 100,000 files, minimised | ${c[logon]} |"
    echo "| the same with 1 worker | ${c[logon1]} |"
    echo "| the same with no worker (all on the window's thread) | ${c[logon0]} |"
    echo "| open, read and close alone, 100,000 files, 1 thread | ${c[tree_floor1]} |"
    echo "| the same on $processors threads | ${c[tree_floor2]} |"
    echo "| xargs cat, 20,000 small files | ${c[small_cat]} |"
    echo "| the checksums of a pass, CRC-32, 20,000 small files | ${c[small]} |"
    echo "| the same with no worker | ${c[small0]} |"
    echo "| open, read and close alone, 20,000 small files, 1 thread | ${c[floor1]} |"
    echo "| the same on $processors threads | ${c[floor2]} |"
    echo "| primary full scan, 2,000 files | ${c[primary2000]} |"
    echo "| primary full scan, 20,000 files | ${c[primary20000]} |"
    echo
    echo "Goals:"
    echo
    echo "- log-on check MD5 / hashdeep -c md5 -r: $(ratio "${c[logon]}" "${c[hashdeep]}") (at most 1.5)"
    echo "- log-on check MD5 / md5deep -r: $(ratio "${c[logon]}" "${c[md5deep]}")"
    echo "- the floor under Wine, 100,000 files, open, read and close alone on $processors threads / hashdeep: $(ratio "${c[tree_floor2]}" "${c[hashdeep]}")"
    echo "- 1 worker / $processors workers: $(ratio "${c[logon1]}" "${c[logon]}") (at least 1.6)"
    echo "- the floor's own gain, 1 thread / $processors threads over the 100,000 files: $(ratio "${c[tree_floor1]}" "${c[tree_floor2]}")"
    echo "- 20,000 small files, CRC-32 / xargs cat: $(ratio "${c[small]}" "${c[small_cat]}") (at most 1.5)"
    echo "- the floor under Wine, open, read and close alone on $processors threads / xargs cat: $(ratio "${c[floor2]}" "${c[small_cat]}")"
    echo "- primary full scan, 20,000 / 2,000 files: $(ratio "${c[primary20000]}" "${c[primary2000]}") (at most 12)"
}

if [ "$part" == regwatch ]; then
    regwatch_section | tee "$out/regwatch.md"
    exit 0
fi
if [ "$part" == places ]; then
    places_section | tee "$out/places.md"
    exit 0
fi
if [ "$part" == cores ]; then
    cores_section | tee "$out/cores.md"
    exit 0
fi

hex_to_decimal_bytes() { python3 -c "import sys; print(''.join(str(b) for b in bytes.fromhex(sys.argv[1])))" "$1"; }

echo "== digests agree with the peers"
crc=$(ours CRC32 65536 "$big" | sed 's/.*text=//')
[ "$crc" == "$(rhash --crc32 --simple "$big" | cut -d' ' -f1 | tr a-f A-F | sed 's/^0*//')" ] || { echo "CRC-32 differs"; exit 1; }
for algo in md5 sha1 md4; do
    case $algo in
        md5) theirs=$(md5sum "$big" | cut -d' ' -f1) ;;
        sha1) theirs=$(sha1sum "$big" | cut -d' ' -f1) ;;
        md4) theirs=$(rhash --md4 --simple "$big" | cut -d' ' -f1) ;;
    esac
    mine=$(ours "$algo" 65536 "$big" | sed 's/.*text=//')
    [ "$mine" == "$(hex_to_decimal_bytes "$theirs")" ] || { echo "$algo differs"; exit 1; }
done
echo "all four digests match"

echo "== timing (this takes a few minutes)"
declare -A t
t[cat]=$(peer cat cat "$big")
t[cksum]=$(peer cksum cksum "$big")
t[rhash_crc32]=$(peer rhash_crc32 rhash --crc32 "$big")
t[rhash_md4]=$(peer rhash_md4 rhash --md4 "$big")
t[7z]=$(peer 7z 7zz h -scrcCRC32 "$big")  # 7-Zip, Debian names its program 7zz
t[md5sum]=$(peer md5sum md5sum "$big")
t[sha1sum]=$(peer sha1sum sha1sum "$big")
t[openssl_md5]=$(peer openssl_md5 openssl dgst -md5 "$big")
t[openssl_sha1]=$(peer openssl_sha1 openssl dgst -sha1 "$big")
t[small_cat]=$(peer small_cat xargs -a "$data/small.list" cat)
t[small_cksum]=$(peer small_cksum xargs -a "$data/small.list" cksum)

buffers=(65536 131072 262144 524288)
declare -A mine
for algo in CRC32 MD5 SHA1 MD4; do
    for buffer in "${buffers[@]}"; do
        mine[$algo.$buffer]=$(ours "$algo" "$buffer" "$big" | sed 's/median=\([0-9.]*\).*/\1/')
    done
    mine[$algo.small]=$(ours "$algo" 65536 "$small/" | sed 's/median=\([0-9.]*\).*/\1/')
done

declare -A scans
scans[5000.hidden]=$(scan hidden 5000 9)
scans[5000.shown]=$(scan shown 5000 9)
scans[5000.minimised]=$(scan minimised 5000 9)
scans[10000.shown]=$(scan shown 10000 7)
scans[100000.shown]=$(scan shown 100000 3)
scans[2000.first]=$(first_scan 2000 7)
scans[20000.first]=$(first_scan 20000 3)
scans[10000.checksums]=$(ours CRC32 65536 "$data/scan10000/system/" | sed 's/median=\([0-9.]*\).*/\1/')
scans[100000.checksums]=$(ours CRC32 65536 "$data/scan100000/system/" | sed 's/median=\([0-9.]*\).*/\1/')
declare -A hostiles
for name in random equals entries; do hostiles[$name]=$(hostile_run "$name"); done
hostiles[reference]=$(scan hidden 2000 3)

best() { printf '%s\n' "$@" | sort -g | head -n 1; }

crc=$(best "${mine[CRC32.65536]}" "${mine[CRC32.131072]}" "${mine[CRC32.262144]}" "${mine[CRC32.524288]}")
md5=$(best "${mine[MD5.65536]}" "${mine[MD5.131072]}" "${mine[MD5.262144]}" "${mine[MD5.524288]}")
sha1=$(best "${mine[SHA1.65536]}" "${mine[SHA1.131072]}" "${mine[SHA1.262144]}" "${mine[SHA1.524288]}")
md4=$(best "${mine[MD4.65536]}" "${mine[MD4.131072]}" "${mine[MD4.262144]}" "${mine[MD4.524288]}")

{
    echo "# Checksum speed, $(date -u +%Y-%m-%d)"
    echo
    echo "CPU: $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | sed 's/^ //'); forms chosen:"
    "$out/bench/engine_bench" --benchmark_min_time=0.2 --benchmark_format=console 2>/dev/null |
        awk '/bytes_per_second/ {print "- in memory, " $1 ": " $NF}'
    echo
    echo "## 1 GiB file in the page cache (seconds, median of $runs)"
    echo
    echo "| | 64 KiB | 128 KiB | 256 KiB | 512 KiB |"
    echo "|---|---|---|---|---|"
    for algo in CRC32 MD5 SHA1 MD4; do
        echo "| getChecksum $algo (win64 under Wine) | ${mine[$algo.65536]} | ${mine[$algo.131072]} | ${mine[$algo.262144]} | ${mine[$algo.524288]} |"
    done
    echo
    echo "| Peer | seconds |"
    echo "|---|---|"
    for name in cat cksum 7z rhash_crc32 rhash_md4 md5sum sha1sum openssl_md5 openssl_sha1; do
        echo "| $name | ${t[$name]} |"
    done
    echo
    echo "## Ratios (our best buffer size / peer; target in brackets)"
    echo
    echo "- CRC-32 / cat: $(ratio "$crc" "${t[cat]}") (at most 1.3)"
    echo "- CRC-32 / rhash --crc32: $(ratio "$crc" "${t[rhash_crc32]}")"
    echo "- CRC-32 / 7zz h: $(ratio "$crc" "${t[7z]}")"
    echo "- CRC-32 / cksum: $(ratio "$crc" "${t[cksum]}")"
    echo "- MD5 / openssl dgst -md5: $(ratio "$md5" "${t[openssl_md5]}") (at most 1.0)"
    echo "- MD5 / md5sum: $(ratio "$md5" "${t[md5sum]}")"
    echo "- SHA-1 / openssl dgst -sha1: $(ratio "$sha1" "${t[openssl_sha1]}") (at most 1.0)"
    echo "- SHA-1 / sha1sum: $(ratio "$sha1" "${t[sha1sum]}")"
    echo "- MD4 / rhash --md4: $(ratio "$md4" "${t[rhash_md4]}") (below 1)"
    echo
    echo "## 20,000 small files (0.5-16 KiB), seconds"
    echo
    echo "- getChecksum CRC32 ${mine[CRC32.small]}, MD5 ${mine[MD5.small]}, SHA1 ${mine[SHA1.small]}, MD4 ${mine[MD4.small]}"
    echo "- xargs cat ${t[small_cat]}, xargs cksum ${t[small_cksum]}"
    echo "- CRC-32 / cat: $(ratio "${mine[CRC32.small]}" "${t[small_cat]}")"
    echo
    echo "## Log-on scan, clean, CRC-32, all six groups (seconds, median)"
    echo
    echo "- 5,000 files: window hidden ${scans[5000.hidden]}, shown ${scans[5000.shown]}, minimised ${scans[5000.minimised]}"
    echo "- shown / hidden: $(ratio "${scans[5000.shown]}" "${scans[5000.hidden]}") (at most 1.2)"
    echo "- 10,000 files ${scans[10000.shown]}, 100,000 files ${scans[100000.shown]} (shown)"
    echo "- 100,000 / 10,000: $(ratio "${scans[100000.shown]}" "${scans[10000.shown]}") (at most 12)"
    echo "- the checksums alone, getChecksum over the same folders: ${scans[10000.checksums]} and ${scans[100000.checksums]}, ratio $(ratio "${scans[100000.checksums]}" "${scans[10000.checksums]}")"
    echo
    echo "## First scan of a custom folder, every file new, up to the saved baseline (seconds, median)"
    echo
    echo "- 2,000 files ${scans[2000.first]}, 20,000 files ${scans[20000.first]}"
    echo "- 20,000 / 2,000: $(ratio "${scans[20000.first]}" "${scans[2000.first]}") (at most 12)"
    echo
    regwatch_section
    echo
    places_section
    echo
    echo "## Log-on run with the automatic action over hostile data files, 2,000 files (median of 3)"
    echo
    echo "| Data file | Size | Seconds | Peak working set, MiB | Before the run, MiB |"
    echo "|---|---|---|---|---|"
    for name in random equals entries; do
        echo "| $name.dat | $(stat -c %s "$hostile/$name.dat") | $(field median "${hostiles[$name]}") |" \
            "$(field peak_mib "${hostiles[$name]}") | $(field start_mib "${hostiles[$name]}") |"
    done
    echo
    echo "- the same 2,000 files, clean run over their own baseline, hidden window: ${hostiles[reference]} s"
    echo
    cores_section
} >"$results"
cat "$results"

echo "== the log browser"
wine_session_stop
trap - EXIT
bench/log-bench.sh >/dev/null
{ echo; cat "$out/log-results.md"; } | tee -a "$results"
