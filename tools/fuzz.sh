#!/usr/bin/env bash
# Builds Velmora's libFuzzer targets with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer into ./build-fuzz, and runs them one after the
# other.
#   bash tools/fuzz.sh                    every target for 60 s each
#   bash tools/fuzz.sh TARGET [SECONDS]   one target (or "all") for SECONDS
#   bash tools/fuzz.sh --list             the targets
# An input that crashes, breaks a target's check or runs over 1 s is written
# to tests/fuzz/<target>/ (crash-*, timeout-*, slow-unit-*, oom-*, leak-*):
# fix the program, keep the input there under a name that says what it is,
# and tst_fuzzreplay replays it on every test run. Exits non-zero when any
# target found something. VELMORA_FUZZ_LEAKS=1 looks for leaks too (slow).
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${VELMORA_FUZZ_BUILD:-$root/build-fuzz}"
targets=(huddocument projectdata component clipboard theme translator woff woff2)

if [ "${1:-}" = "--list" ]; then
    printf '%s\n' "${targets[@]}"
    exit 0
fi
chosen="${1:-all}"
seconds="${2:-60}"
if [ "$chosen" = "all" ]; then
    selected=("${targets[@]}")
elif printf '%s\n' "${targets[@]}" | grep -qx -- "$chosen"; then
    selected=("$chosen")
else
    echo "usage: bash tools/fuzz.sh [TARGET|all] [SECONDS]; targets: ${targets[*]}" >&2
    exit 2
fi
if ! [[ "$seconds" =~ ^[0-9]+$ ]] || [ "$seconds" -eq 0 ]; then
    echo "SECONDS must be a whole number above 0" >&2
    exit 2
fi
if ! command -v clang++ >/dev/null; then
    echo "tools/fuzz.sh needs clang (Debian: apt-get install -y clang)" >&2
    exit 1
fi

export CCACHE_DIR="${CCACHE_DIR:-${HOME:-/tmp}/.cache/ccache}"
CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELMORA_FUZZ=ON \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build "$build" -j "$(nproc)" --target "${selected[@]/#/fuzz-}" velmora-data

# A synthetic project deep and wide enough to seed every target with
# components of all kinds at every level of nesting.
seedProject="$build/seed-project"
if [ ! -d "$seedProject" ]; then
    python3 "$root/tools/gen-project" --out "$seedProject" --seed 1 --entries 20 --huds 2 \
        --components 40 --depth 4 >/dev/null
fi

export QT_QPA_PLATFORM=offscreen
# The targets write their files below a temporary home; in memory, a save's
# sync to disk costs nothing.
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
    export TMPDIR=/dev/shm
fi
# A report stops the run. Leaks are looked for only with VELMORA_FUZZ_LEAKS=1:
# libFuzzer then scans the heap after every input that allocated more than it
# freed, which with Qt's caches is most of them, at a hundredth of the speed.
# tools/test.sh --sanitize checks the kept inputs and seeds for leaks anyway
# (tst_fuzzreplay). Only Qt's and the system's own leaks are suppressed; to
# see Qt's frames, deep ones included, the stacks are unwound the slow way,
# and an input counts as a hang only after 30 s: leaks are what is looked for.
timeout=1
if [ "${VELMORA_FUZZ_LEAKS:-0}" = "1" ]; then
    export ASAN_OPTIONS="abort_on_error=1:handle_abort=1:detect_leaks=1:fast_unwind_on_malloc=0:malloc_context_size=250"
    timeout=30
else
    export ASAN_OPTIONS="abort_on_error=1:handle_abort=1:detect_leaks=0"
fi
export LSAN_OPTIONS="suppressions=$root/tools/sanitize/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"

found=0
mkdir -p "$build/logs"
for target in "${selected[@]}"; do
    program="$build/bin/fuzz-$target"
    corpus="$build/corpus/$target"
    seeds="$build/seeds/$target"
    cases="$root/tests/fuzz/$target"
    log="$build/logs/$target.log"
    mkdir -p "$corpus" "$cases"
    if [ ! -d "$seeds" ]; then
        VELMORA_FUZZ_SEEDS="$seeds" VELMORA_FUZZ_SEED_PROJECTS="$seedProject" "$program" >/dev/null 2>&1
    fi
    find "$cases" -type f | sort >"$build/logs/$target.before"
    echo "== $target: $seconds s (log: $log)"
    status=0
    # New inputs go to the first folder, the working corpus; the seeds and
    # the kept cases are read only.
    "$program" -timeout="$timeout" -report_slow_units="$timeout" -max_total_time="$seconds" -print_final_stats=1 \
        -dict="$root/tests/fuzz/$target.dict" -artifact_prefix="$cases/" \
        "$corpus" "$seeds" "$cases" >"$log" 2>&1 || status=$?
    grep -E '^#[0-9]+[[:space:]]+(INITED|DONE)' "$log" | sed 's/^/   /' || true
    grep -E '^stat::number_of_executed_units|^stat::average_exec_per_sec|^stat::peak_rss_mb' "$log" \
        | sed 's/^/   /' || true
    new="$(find "$cases" -type f | sort | comm -13 "$build/logs/$target.before" -)"
    if [ "$status" -ne 0 ] || [ -n "$new" ]; then
        found=1
        echo "   FOUND: exit $status; new in tests/fuzz/$target/:"
        [ -z "$new" ] || printf '     %s\n' $new
        grep -E 'ERROR|QFATAL|FATAL|SUMMARY|runtime error|==[0-9]+==' "$log" | head -5 | sed 's/^/   /' || true
    fi
done
exit "$found"
