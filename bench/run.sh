#!/usr/bin/env bash
# Builds and runs the benchmarks (never part of the test suite).
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${VELMORA_BUILD:-$root/build}"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j "$(nproc)" --target velmora-bench-tree velmora-bench-scene
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-tree" "${1:-7}"
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-scene" "${1:-7}"
