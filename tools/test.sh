#!/usr/bin/env bash
# Builds Velmora and runs the whole test suite headless; non-zero on any failure.
#   bash tools/test.sh              the normal build in ./build
#   bash tools/test.sh --sanitize   AddressSanitizer, LeakSanitizer and
#                                   UndefinedBehaviorSanitizer, in ./build-sanitize
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
if [ "${1:-}" = "--sanitize" ]; then
    export VELMORA_BUILD="${VELMORA_BUILD:-$root/build-sanitize}"
    export VELMORA_CMAKE_ARGS="-DVELMORA_SANITIZE=ON"
    # Any report fails its test: an error stops the program, a leak fails
    # its exit. The suppressions cover Qt's and the system's own leaks only.
    export ASAN_OPTIONS="detect_leaks=1:abort_on_error=0:halt_on_error=1:detect_stack_use_after_return=1"
    export LSAN_OPTIONS="suppressions=$root/tools/sanitize/lsan.supp:print_suppressions=0"
    export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
elif [ -n "${1:-}" ]; then
    echo "usage: bash tools/test.sh [--sanitize]" >&2
    exit 2
fi

source "$root/tools/setup.sh"

cd "$VELMORA_BUILD"
QT_QPA_PLATFORM=offscreen ctest -j "$(nproc)" --output-on-failure
