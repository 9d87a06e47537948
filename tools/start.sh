#!/usr/bin/env bash
# Builds Velmora and opens the editor on a copy of the bundled sample project.
# Without a display the editor runs under Xvfb: a screenshot of its window is
# saved, its path printed, and the script exits.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

# The editor works on a copy, so saving never changes the bundled example.
project="$VELMORA_BUILD/SampleProject"
if [ ! -d "$project" ]; then
    cp -r "$VELMORA_ROOT/examples/SampleProject" "$project"
fi
editor="$VELMORA_BUILD/bin/velmora"

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec "$editor" "$project/game.rmmzproject"
fi

shot="$VELMORA_BUILD/velmora-screenshot.png"
rm -f "$shot"
# A throw-away settings store: a headless look must not change the user's.
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
XDG_CONFIG_HOME="$scratch/config" XDG_DATA_HOME="$scratch/data" XDG_CACHE_HOME="$scratch/cache" \
xvfb-run -a -s "-screen 0 1600x1000x24" bash -c '
    "$1" "$2" &
    pid=$!
    for _ in $(seq 1 150); do
        if xwininfo -root -tree 2>/dev/null | grep -q "\"Velmora\""; then break; fi
        sleep 0.2
    done
    sleep 2
    import -window root "$3"
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
' _ "$editor" "$project/game.rmmzproject" "$shot"

if [ ! -s "$shot" ]; then
    echo "The editor did not come up: no screenshot was taken." >&2
    exit 1
fi
echo "Screenshot of the editor: $shot"
