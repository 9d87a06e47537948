#!/usr/bin/env bash
# Makes the sample project's web fonts from Debian's DejaVu fonts: a WOFF of
# DejaVu Serif and a WOFF2 of DejaVu Sans Mono, each cut down to Latin-1 so the
# repository stays small. Needs fonts-dejavu-core, python3-fonttools,
# woff-tools and woff2. The results are committed; run again only to remake them.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
fonts="$root/examples/SampleProject/fonts"
dejavu=/usr/share/fonts/truetype/dejavu
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

subset() {
    # Names and licence text are kept whole; only glyphs outside Latin-1 go.
    /usr/bin/python3 -m fontTools.subset "$dejavu/$1.ttf" --output-file="$work/$2.ttf" \
        --unicodes="U+0020-007E,U+00A0-00FF" --name-IDs='*' --name-languages='*' --notdef-outline
}

subset DejaVuSerif DejaVuSerif-Latin
sfnt2woff "$work/DejaVuSerif-Latin.ttf"
cp "$work/DejaVuSerif-Latin.woff" "$fonts/"

subset DejaVuSansMono DejaVuSansMono-Latin
woff2_compress "$work/DejaVuSansMono-Latin.ttf" >/dev/null
cp "$work/DejaVuSansMono-Latin.woff2" "$fonts/"

ls -l "$fonts"
