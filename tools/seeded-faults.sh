#!/usr/bin/env bash
# Seeded faults: plants plausible one-line faults (tools/seeded-faults.txt), one
# at a time, into a scratch copy of the tree (build/faults/tree), rebuilds
# what the change touches and runs the tests each fault names, cheapest level
# first, until one catches it. The real tree is never changed.
#
#   tools/seeded-faults.sh             every fault
#   tools/seeded-faults.sh 3 7 12      the faults named
#   tools/seeded-faults.sh --check     only verifies that every fault still applies
#   tools/seeded-faults.sh --list      prints the table of faults
#
# Levels: native (every native unit test), fuzz:<target> (FAULT_FUZZ_SECONDS,
# default 30, from a fixed seed), win:<ctest -R regex> (Windows integration
# tests under Wine), e2e:<scenario> (one end-to-end script). Before the faults,
# the same tests run once on the unchanged tree: a test that fails there is
# reported and never counted as catching a fault.
#
# FAULT_KINDS limits the levels tried to some kinds, e.g. "native" for a quick
# look or "win e2e" to go on where a run left off.
#
# Results: a table on stdout and in build/faults/results.md; each run's output
# in build/faults/logs/.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

table=tools/seeded-faults.txt
work=$root/build/faults
tree=$work/tree
logs=$work/logs
results=$work/results.md
fuzz_seconds=${FAULT_FUZZ_SECONDS:-30}
jobs=$(nproc)
# Each fault's file is compiled twice (with the fault, then without it again):
# a compiler cache, where there is one, makes the second a look-up.
if command -v ccache >/dev/null && [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ]; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
fi

# ---- the fault table --------------------------------------------------------

ids=() ; declare -A subsystem file levels what old new
load_table() {
    local line id="" key
    while IFS= read -r line || [ -n "$line" ]; do
        if [[ $line =~ ^==\ ([0-9]+)\ \|\ ([a-z]+)\ \|\ ([^ |]+)\ \|\ (.+)$ ]]; then
            id=${BASH_REMATCH[1]}
            ids+=("$id")
            subsystem[$id]=${BASH_REMATCH[2]} file[$id]=${BASH_REMATCH[3]} levels[$id]=${BASH_REMATCH[4]}
        elif [[ -n $id && $line =~ ^(what|old|new):\ (.*)$ ]]; then
            key=${BASH_REMATCH[1]}
            case $key in
                what) what[$id]=${BASH_REMATCH[2]} ;;
                old) old[$id]=${BASH_REMATCH[2]} ;;
                new) new[$id]=${BASH_REMATCH[2]} ;;
            esac
        fi
    done <"$table"
}

# Replaces the fault's old text in `dir` by its new text; refuses, naming the
# reason, unless the old text stands exactly once in the file.
apply_fault() {  # id dir
    FAULT_OLD=${old[$1]} FAULT_NEW=${new[$1]} python3 - "$2/${file[$1]}" <<'EOF'
import os, sys
path = sys.argv[1]
old, new = os.environ["FAULT_OLD"].encode(), os.environ["FAULT_NEW"].encode()
try:
    text = open(path, "rb").read()
except OSError as error:
    sys.exit(f"cannot read {path}: {error.strerror}")
count = text.count(old)
if count != 1 or not old or old == new:
    sys.exit(f"the old text stands {count} times in {path}" if count != 1 else f"no change in {path}")
open(path, "wb").write(text.replace(old, new))
EOF
}

check_faults() {  # ids...
    local id scratch status=0
    scratch=$(mktemp -d)
    for id in "$@"; do
        mkdir -p "$scratch/$(dirname "${file[$id]}")"
        cp "${file[$id]}" "$scratch/${file[$id]}" 2>/dev/null
        if ! apply_fault "$id" "$scratch" 2>"$scratch/why"; then
            echo "fault $id: $(cat "$scratch/why")" >&2
            status=1
        fi
        rm -f "$scratch/${file[$id]}"
    done
    rm -rf "$scratch"
    return $status
}

# ---- the scratch tree ---------------------------------------------------------

# The tracked and new files of the working tree, copied where their content
# differs (so untouched files keep their times and nothing else rebuilds);
# files that left the tree since the last run leave the copy too.
sync_tree() {
    local f list=$work/tree-files
    mkdir -p "$tree"
    git ls-files -z --cached --others --exclude-standard | sort -z >"$list.new"
    if [ -f "$list" ]; then
        comm -z -23 "$list" "$list.new" | while IFS= read -r -d '' f; do rm -f "$tree/$f"; done
    fi
    while IFS= read -r -d '' f; do
        [ -f "$f" ] || continue
        cmp -s "$f" "$tree/$f" 2>/dev/null && continue
        mkdir -p "$tree/$(dirname "$f")"
        cp "$f" "$tree/$f"
    done <"$list.new"
    mv "$list.new" "$list"
}

restore_file() {  # path
    cp "$root/$1" "$tree/$1"
}

# ---- building -----------------------------------------------------------------

declare -A configured=()
# Builds a preset of the scratch tree; Windows tests need no benchmarks. A
# lock per preset lets a build started by hand in the scratch tree finish first.
build_preset() {  # preset log
    local lock status
    exec {lock}>"$work/build-$1.lock"
    flock "$lock"
    build_preset_locked "$@"
    status=$?
    exec {lock}>&-
    return $status
}
build_preset_locked() {  # preset log
    local preset=$1 targets=()
    if [ -z "${configured[$preset]:-}" ]; then
        # One file changes per fault: compiled alone, not in a batch.
        (cd "$tree" && cmake --preset "$preset" -DTARVELON_UNITY=OFF) >>"$2" 2>&1 || return 1
        configured[$preset]=1
    fi
    if [ "$preset" == win64 ]; then
        mapfile -t targets < <(cmake --build "$tree/build/win64" --target help 2>/dev/null |
            sed -n 's/^\.\.\. \([A-Za-z0-9_]*\)$/\1/p' | grep -v -E '_bench$|^(clean|depend|edit_cache|rebuild_cache|test)$')
    fi
    if [ ${#targets[@]} -gt 0 ]; then
        cmake --build "$tree/build/$preset" -j "$jobs" --target "${targets[@]}" >>"$2" 2>&1
    else
        cmake --build "$tree/build/$preset" -j "$jobs" >>"$2" 2>&1
    fi
}

preset_of() {  # level
    case $1 in
        native | fuzz:*) echo native ;;
        *) echo win64 ;;
    esac
}

# ---- Wine ---------------------------------------------------------------------

wine_up=""
wine_needed() {
    [ -n "$wine_up" ] && return 0
    source "$root/tools/wine-session.sh"
    start_virtual_display || return 1
    wine_session_start "$work/wine" fresh
    wine_up=1
}
finish() {
    [ -n "${current_file:-}" ] && restore_file "$current_file"
    [ -z "$wine_up" ] || wine_session_stop
}
trap finish EXIT
trap 'exit 130' INT TERM

# ---- running one level --------------------------------------------------------

# The names of the tests that failed, one a line, from ctest's closing list.
ctest_failures() {  # log
    sed -n '/The following tests FAILED:/,$p' "$1" | sed -n 's/^[[:space:]]*[0-9]* - \(.*\) (\(.*\))$/\1/p'
}

# The failed tests of one GoogleTest program's output; a program that ended
# without saying which test failed (a crash, a sanitizer's report) names the
# test it was running.
gtest_failures() {  # output status program
    local names
    names=$(sed -n 's/^\[  FAILED  \] \([A-Za-z0-9_/]*\.[A-Za-z0-9_/]*\).*/\1/p' "$1" | sort -u)
    if [ -n "$names" ]; then
        echo "$names"
    elif [ "$2" -ne 0 ]; then
        names=$(sed -n 's/^\[ RUN      \] \(.*\)$/\1/p' "$1" | tail -n 1)
        echo "${names:-$3} (ended abnormally)"
    fi
}

# Runs one level on the built scratch tree and writes the failing tests'
# names, one a line, to `failures`. Returns 1 when the tests could not run.
run_level() {  # level log failures
    local level=$1 log=$2 failures=$3 target dir regex args=()
    : >"$failures"
    case $level in
        native)
            # Each test program once, rather than a process per test.
            local programs=() program status
            mapfile -t programs < <(ctest --test-dir "$tree/build/native" --show-only=json-v1 2>>"$log" |
                python3 -c 'import json, sys; print("\n".join(sorted({t["command"][0] for t in json.load(sys.stdin)["tests"] if t.get("command")})))')
            [ ${#programs[@]} -gt 0 ] && [ -n "${programs[0]}" ] || return 1
            for program in "${programs[@]}"; do
                timeout 300 "$program" --gtest_color=no >"$log.one" 2>&1
                status=$?
                cat "$log.one" >>"$log"
                gtest_failures "$log.one" "$status" "$(basename "$program")" >>"$failures"
            done
            rm -f "$log.one" ;;
        fuzz:*)
            target=${level#fuzz:}
            [ -x "$tree/build/native/tests/fuzz/$target" ] || { echo "no fuzz target $target" >>"$log"; return 1; }
            dir=$(mktemp -d)
            (cd "$dir" && "$tree/build/native/tests/fuzz/$target" -seed=1 -max_total_time="$fuzz_seconds" \
                -print_final_stats=1) >>"$log" 2>&1 || echo "$target" >"$failures"
            rm -rf "$dir" ;;
        win:* | e2e:*)
            wine_needed >>"$log" 2>&1 || return 1
            if [[ $level == e2e:* ]]; then
                regex="^e2e\\.${level#e2e:}\$"
            else
                regex=${level#win:}
                args=(-LE e2e)
            fi
            (cd "$tree/build/win64" && ctest -R "$regex" "${args[@]}" --timeout 300 --output-on-failure) >>"$log" 2>&1
            if grep -q 'No tests were found' "$log" || ! grep -q -E 'tests passed|tests failed' "$log"; then
                echo "no test ran for $regex" >>"$log"
                return 1
            fi
            ctest_failures "$log" >"$failures" ;;
        *) echo "unknown level $level" >>"$log"; return 1 ;;
    esac
}

# ---- the clean run --------------------------------------------------------------

declare -A broken=()      # tests that fail on the unchanged tree
declare -A clean_done=()  # levels already run on the unchanged tree
# Runs a level once on the unchanged tree (the scratch tree must be unchanged
# and built); remembers the tests that fail there.
clean_level() {  # level
    local level=$1 log name
    log=$logs/clean-${level//[^A-Za-z0-9_.-]/_}.log
    : >"$log"
    clean_done[$level]=1
    if ! run_level "$level" "$log" "$log.failed"; then
        echo "  the level $level could not run on the unchanged tree (see $log)"
        return 0
    fi
    while IFS= read -r name; do
        [ -n "$name" ] || continue
        broken[$name]=1
        echo "  fails without any fault: $name ($level)"
    done <"$log.failed"
}

# ---- the faults -------------------------------------------------------------------

row() {  # id caught-by
    printf '| %s | %s | %s | %s |\n' "$1" "${subsystem[$1]}" "${what[$1]}" "${2//|/\\|}"
}

# Tries one fault at the given levels, in their order; sets CAUGHT to the
# catching level and tests, VERDICT to a build failure or a stale fault, and
# adds levels that could not run to UNRUN.
try_fault() {  # id levels...
    local id=$1 level preset log name failed=() kept
    declare -A built=()
    shift
    CAUGHT="" VERDICT=""
    current_file=${file[$id]}
    if ! apply_fault "$id" "$tree" 2>"$logs/$id-apply.log"; then
        current_file=""
        VERDICT="STALE: $(cat "$logs/$id-apply.log")"
        return
    fi
    for level in "$@"; do
        preset=$(preset_of "$level")
        log=$logs/$id-${level//[^A-Za-z0-9_.-]/_}.log
        : >"$log"
        # The first use of a level: once without the fault, to know its failures.
        if [ -z "${clean_done[$level]:-}" ]; then
            restore_file "${file[$id]}"
            if ! build_preset "$preset" "$logs/clean-build-$preset.log"; then
                echo "the unchanged tree does not build ($preset): see $logs/clean-build-$preset.log" >&2
                exit 1
            fi
            clean_level "$level" >&2
            apply_fault "$id" "$tree"
            built[$preset]=""
        fi
        if [ -z "${built[$preset]:-}" ]; then
            if ! build_preset "$preset" "$log"; then
                VERDICT="BUILD FAILED ($preset)"
                break
            fi
            built[$preset]=1
        fi
        if ! run_level "$level" "$log" "$log.failed"; then
            UNRUN[$id]+=" $level"  # a scenario or test that is gone: the next level may still catch it
            continue
        fi
        mapfile -t failed <"$log.failed"
        kept=()
        for name in "${failed[@]}"; do
            [ -n "$name" ] && [ -z "${broken[$name]:-}" ] && kept+=("$name")
        done
        if [ ${#kept[@]} -gt 0 ]; then
            CAUGHT="$level: $(printf '%s, ' "${kept[@]:0:6}")"
            CAUGHT=${CAUGHT%, }
            [ ${#kept[@]} -le 6 ] || CAUGHT+=" and $((${#kept[@]} - 6)) more"
            break
        fi
    done
    restore_file "${file[$id]}"
    current_file=""
}

# The fault's levels of one kind (native, fuzz, win, e2e).
levels_of_kind() {  # id kind
    local level
    for level in ${levels[$1]}; do
        [[ $level == "$2" || $level == "$2":* ]] && echo "$level"
    done
}

# ---- main ---------------------------------------------------------------------------

load_table
mode=run
chosen=()
for arg in "$@"; do
    case $arg in
        --check) mode=check ;;
        --list) mode=list ;;
        -h | --help) sed -n '2,/^set -uo/p' "$0" | sed -n 's/^# \{0,1\}//p'; exit 0 ;;
        *)
            [[ -n ${subsystem[$arg]:-} ]] || { echo "no fault $arg in $table" >&2; exit 2; }
            chosen+=("$arg") ;;
    esac
done
[ ${#chosen[@]} -gt 0 ] || chosen=("${ids[@]}")

if [ "$mode" == list ]; then
    echo "| id | subsystem | fault | file | where to look |"
    echo "| --- | --- | --- | --- | --- |"
    for id in "${chosen[@]}"; do
        printf '| %s | %s | %s | %s | %s |\n' "$id" "${subsystem[$id]}" "${what[$id]}" "${file[$id]}" "${levels[$id]}"
    done
    exit 0
fi
check_faults "${chosen[@]}" || { echo "stale faults: mend $table first" >&2; exit 1; }
echo "${#chosen[@]} faults apply exactly once."
[ "$mode" == check ] && exit 0

make --no-print-directory -s deps || exit 1
mkdir -p "$logs"
sync_tree
started=$SECONDS
{
    echo "# Seeded faults: results"
    echo
    echo "Tree: $(git rev-parse --short HEAD)$(git diff --quiet HEAD 2>/dev/null || echo ' with changes'), $(date -u '+%Y-%m-%d %H:%M UTC')"
    echo
    echo "| id | subsystem | fault | caught by |"
    echo "| --- | --- | --- | --- |"
} >"$results"
# Every fault at its cheapest level first, then the ones still uncaught at
# the next kind, so that each kind's build and session serve all its faults.
declare -A RESULT=() UNRUN=()
pending=("${chosen[@]}")
for kind in ${FAULT_KINDS:-native fuzz win e2e}; do
    still=()
    for id in "${pending[@]}"; do
        mapfile -t wanted < <(levels_of_kind "$id" "$kind")
        if [ ${#wanted[@]} -eq 0 ] || [ -z "${wanted[0]}" ]; then
            still+=("$id")
            continue
        fi
        fault_started=$SECONDS
        try_fault "$id" "${wanted[@]}"
        if [ -n "$VERDICT" ]; then
            RESULT[$id]=$VERDICT
        elif [ -n "$CAUGHT" ]; then
            RESULT[$id]=$CAUGHT
        else
            still+=("$id")
        fi
        echo "fault $id at $kind: ${RESULT[$id]:-not caught} ($((SECONDS - fault_started)) s)"
    done
    pending=("${still[@]}")
done
missed=0
for id in "${chosen[@]}"; do
    if [ -z "${RESULT[$id]:-}" ]; then RESULT[$id]="MISSED (looked in: ${levels[$id]})"; fi
    [ -z "${UNRUN[$id]:-}" ] || RESULT[$id]+=" (could not run:${UNRUN[$id]})"
    [[ ${RESULT[$id]} == MISSED* || ${RESULT[$id]} == STALE* || ${RESULT[$id]} == BUILD* ]] && missed=$((missed + 1))
    row "$id" "${RESULT[$id]}" >>"$results"
done
cat "$results"
{
    echo
    echo "${#chosen[@]} faults, $missed not caught; $(((SECONDS - started) / 60)) min $(((SECONDS - started) % 60)) s."
    if [ ${#broken[@]} -gt 0 ]; then
        echo
        echo "Failing on the unchanged tree (never counted as catching): ${!broken[*]}"
    fi
} | tee -a "$results"
[ "$missed" -eq 0 ] || echo "Faults not caught are kept: each shows where a test is worth adding."
