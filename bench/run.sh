#!/usr/bin/env bash
# Builds and runs the benchmarks (never part of the test suite):
#   bash bench/run.sh [runs]      (median of `runs` runs, 5 by default)
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${VELMORA_BUILD:-$root/build}"
runs="${1:-5}"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j "$(nproc)" --target velmora velmora-cli velmora-bench-tree velmora-bench-scene velmora-bench-manipulation velmora-bench-kinds velmora-bench-undo velmora-bench-codeinput velmora-bench-dialog velmora-bench-project velmora-bench-datapickers velmora-bench-conditions velmora-bench-custom >/dev/null

echo "== The program's list: 5,000 rows (ms)"
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-tree" "$runs"
echo
echo "== The editor scene: 500 components nested three deep (ms)"
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-scene" "$runs"
echo
echo "== Direct manipulation on 500 components: per mouse move with a repaint (ms)"
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-manipulation" "$runs"
echo
echo "== Undo and redo: 1,000 steps on the same HUD (processor ms per step)"
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-undo"
echo
echo "== The code input: keystrokes in a 5,000-line script (ms)"
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-codeinput"
echo
echo "== A property dialog with 200 animations and 200 custom properties: from the double-click (ms, median of $runs runs)"
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-dialog" "$runs"
echo
echo "== The condition list with 500 conditions of every kind (ms, median of $runs runs)"
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-conditions" "$runs"
echo
echo "== The game-data pickers on a project of 10,000 entries per table (ms, median of $runs runs)"
pickers="$build/bench-projects/n10000-10x50"
[ -f "$pickers/data/plugin/VelmoraHUD.json" ] || "$root/tools/gen-project" --out "$pickers" --entries 10000 --huds 10 \
    --components 50 --depth 4 --seed 7 >/dev/null
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-datapickers" "$pickers" "$runs"
echo
echo "== Every kind with real images: the biggest HUDs of a tools/gen-project project (ms, median of $runs runs)"
kinds="$build/bench-projects/n100-50x500"
[ -f "$kinds/data/plugin/VelmoraHUD.json" ] || "$root/tools/gen-project" --out "$kinds" --entries 100 --huds 50 \
    --components 500 --depth 4 --seed 7 >/dev/null
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-kinds" "$kinds" "$runs"
echo
echo "== Custom kinds: 20 Custom components and 5 collections of 16 cells of a 25-component custom HUD (ms, best of $runs runs)"
custom="$build/bench-projects/custom"
[ -f "$custom/game.rmmzproject" ] || "$root/tools/gen-project" --out "$custom" --entries 10 --huds 0 --components 1 \
    --seed 7 >/dev/null
QT_QPA_PLATFORM=offscreen "$build/bin/velmora-bench-custom" "$custom" "$build/bin/velmora-cli" "$runs"
echo
echo "== Projects made by tools/gen-project (median of $runs runs)"
python3 "$root/bench/projects.py" "$build" "$runs"
