#!/usr/bin/env bash
# Peer comparison: Tiled, the established Qt editor of 2D game content, loads
# and writes a map without its window (tiled --export-map). For each Velmora
# project given, a Tiled map is made whose object layer holds as many objects
# as the project's HUD document holds components (rectangles and texts with a
# few custom properties each); then `tiled --export-map` and
# `velmora-cli resave --out` are timed with repeated runs.
#
#   bash bench/peer.sh RUNS PROJECT...
#
# Prints one line per project: objects, Tiled's median, Velmora's median (ms)
# and the ratio Velmora / Tiled. Tiled is installed here only, never for the tests.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${VELMORA_BUILD:-$root/build}"
runs="${1:-5}"
shift || true

if ! command -v tiled >/dev/null 2>&1; then
    if [ "$(id -u)" -eq 0 ]; then
        DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends tiled >/dev/null
    else
        echo "peer.sh needs Tiled: apt-get install -y tiled" >&2
        exit 1
    fi
fi
exec python3 "$root/bench/peer.py" "$build/bin/velmora-cli" "$runs" "$@"
