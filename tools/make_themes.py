#!/usr/bin/env python3
"""Writes the themes shipped with Velmora, Themes/<name>/Theme.json.

Each theme is derived from the built-in colour table (read from
theme/ThemeManager.cpp) and written in the file form the program writes:
compact JSON, keys sorted as text, "#rrggbb" colours.
Run from the repository root: python3 tools/make_themes.py
"""
import colorsys
import json
import os
import re

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")


def built_in_table():
    source = open(os.path.join(ROOT, "theme", "ThemeManager.cpp"), encoding="utf-8").read()
    rows = re.findall(r"ThemeKey::(\w+), 0x([0-9a-f]{6})\}", source)
    keys = dict(re.findall(r"^\s+(\w+) = (\d+),$",
                           open(os.path.join(ROOT, "theme", "ThemeKey.h"), encoding="utf-8").read(), re.M))
    table = {int(keys[name]): "#" + colour for name, colour in rows}
    assert len(table) == 148, len(table)
    return table


def rgb(colour):
    return tuple(int(colour[i:i + 2], 16) / 255.0 for i in (1, 3, 5))


def hexed(r, g, b):
    return "#%02x%02x%02x" % tuple(max(0, min(255, round(v * 255))) for v in (r, g, b))


def luminance(colour):
    """The relative luminance of WCAG 2, which the contrast rule of the themes uses."""
    def linear(c):
        return c / 12.92 if c <= 0.03928 else ((c + 0.055) / 1.055) ** 2.4
    r, g, b = rgb(colour)
    return 0.2126 * linear(r) + 0.7152 * linear(g) + 0.0722 * linear(b)


# Colours that white text stands on: the selection, the coloured buttons,
# the selected list row and menu entry.
TEXT_GROUNDS = {2004, 16000, 16001, 16002, 16003, 16004, 16005, 16006, 16007, 17009, 17010, 22002, 22003}


def red_tint(key, colour):
    r, g, b = rgb(colour)
    h, l, s = colorsys.rgb_to_hls(r, g, b)
    if s < 0.12:
        # Greys lean towards a dark wine red.
        return hexed(r * 1.22 + 0.02, g * 0.86, b * 0.86)
    if 0.45 < h < 0.75:
        # Blue accents become crimson; other accents keep their hue. A red is
        # brighter to the eye than a blue of the same lightness, so a red that
        # text stands on is darkened to the blue's luminance: the text keeps
        # its contrast.
        hue = (h + 0.42) % 1.0
        tinted = hexed(*colorsys.hls_to_rgb(hue, l, s))
        while key in TEXT_GROUNDS and l > 0 and luminance(tinted) > luminance(colour):
            l = max(0.0, l - 0.005)
            tinted = hexed(*colorsys.hls_to_rgb(hue, l, s))
        return tinted
    return colour


LIGHT = {
    # Disabled texts keep 3:1 on the greys of panels and faded buttons too.
    0: "#eef0f4", 1: "#d5d9e3", 2: "#e2e5ec", 3: "#1a1c22", 4: "#60646d",
    1000: "#ffffff", 1001: "#f1f3f7", 1002: "#fdfdf0", 1003: "#1a1c22", 1004: "#16181d",
    1005: "#60646d", 1006: "#c3c7d0", 1007: "#9a9ea8", 1008: "#e1e4ea",
    2000: "#16181d", 2001: "#60646d", 2002: "#c00000", 2003: "#1a5fb4", 2004: "#2f6fd0",
    2005: "#b8bcc6", 2006: "#ffffff", 2007: "#5c606a",
    17007: "#30343c", 17008: "#0a7fa8", 17009: "#7db3ee", 17010: "#4f93e3",
    18002: "#000000", 18003: "#ffffff", 18004: "#ffffff", 18005: "#000000",
}


def light(key, colour):
    if key in LIGHT:
        return LIGHT[key]
    r, g, b = rgb(colour)
    h, l, s = colorsys.rgb_to_hls(r, g, b)
    if s < 0.12:
        # Dark greys become light greys, light ones dark, keeping their order.
        return hexed(*colorsys.hls_to_rgb(h, 1.0 - l * 0.82, s))
    # Accents keep their hue at a lightness that reads on a light surface.
    return hexed(*colorsys.hls_to_rgb(h, min(0.72, max(0.34, 1.0 - l)), s))


def write(name, table):
    folder = os.path.join(ROOT, "Themes", name)
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, "Theme.json"), "w", encoding="utf-8") as out:
        out.write(json.dumps({str(k): v for k, v in table.items()}, sort_keys=True, separators=(",", ":")))


def main():
    base = built_in_table()
    base[1] = "#3c3c4b"
    red = {key: red_tint(key, colour) for key, colour in base.items()}
    red[1] = "#4b3c3c"
    # Text on the coloured buttons and on the selection stays white: the
    # tinted white is too dark for the lighter reds under it.
    red[2000] = red[2006] = "#ffffff"
    write("Red Tint", red)
    write("Light", {key: light(key, colour) for key, colour in base.items()})


if __name__ == "__main__":
    main()
