#!/usr/bin/env bash
# Draws the application icon's PNGs for the hicolor theme from its SVG:
#   bash tools/packaging/make_icons.sh
# Needs rsvg-convert (Debian's librsvg2-bin). The PNGs are committed, so a
# build needs neither this script nor librsvg.
set -euo pipefail

HERE="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
ID=io.github.ostrel_vane.velmora
SVG="$HERE/hicolor/scalable/apps/$ID.svg"

for size in 16 32 48 64 128 256; do
    folder="$HERE/hicolor/${size}x${size}/apps"
    mkdir -p "$folder"
    rsvg-convert --width "$size" --height "$size" --format png --output "$folder/$ID.png" "$SVG"
done
