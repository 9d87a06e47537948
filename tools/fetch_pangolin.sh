#!/usr/bin/env bash
# Makes resources/Fonts/Pangolin-Regular.ttf, the title bar's font, and the
# licence text beside it.
#
# Pangolin (SIL Open Font License 1.1) is published on the npm registry by
# Fontsource as WOFF files. We take the Latin subset at weight 400 and unpack
# it into TrueType with Velmora's own WOFF decoder (velmora-woff2sfnt, built
# with -DVELMORA_BUILD_TOOLS=ON), the same code that fills the font cache.
#
# Needs: npm, tar, a build tree with the tools (default ./build).
# Usage: bash tools/fetch_pangolin.sh [BUILD_DIR]
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="${1:-$ROOT/build}"
PACKAGE="@fontsource/pangolin@${PANGOLIN_VERSION:-5.3.0}"
CONVERTER="$BUILD/bin/velmora-woff2sfnt"

if [ ! -x "$CONVERTER" ]; then
    cmake -S "$ROOT" -B "$BUILD" -DVELMORA_BUILD_TOOLS=ON >/dev/null
    cmake --build "$BUILD" -j2 --target velmora-woff2sfnt
fi

WORK="$(mktemp -d)"
trap 'rm -rf "$WORK"' EXIT

# npm pack fetches the package's tarball without installing anything.
(cd "$WORK" && npm pack --silent "$PACKAGE" >/dev/null)
tar -xzf "$WORK"/fontsource-pangolin-*.tgz -C "$WORK"

mkdir -p "$ROOT/resources/Fonts"
"$CONVERTER" "$WORK/package/files/pangolin-latin-400-normal.woff" "$ROOT/resources/Fonts/Pangolin-Regular.ttf"
cp "$WORK/package/LICENSE" "$ROOT/resources/Fonts/Pangolin-OFL.txt"
echo "resources/Fonts/Pangolin-Regular.ttf and Pangolin-OFL.txt written from $PACKAGE"
