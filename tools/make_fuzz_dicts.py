#!/usr/bin/env python3
"""Writes the libFuzzer dictionaries tests/fuzz/<target>.dict from the
documents they fuzz: the keys of the test HUD document and of the sample
project's data files, the theme keys, the clipboard identifiers, and the
tokens of the CSV grammar and of the font formats. Run it from anywhere
after the documents' keys change:

    python3 tools/make_fuzz_dicts.py
"""

import json
import pathlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUT = ROOT / "tests" / "fuzz"

JSON_TOKENS = ["{", "}", "[", "]", ":", ",", "\"\"", "true", "false", "null", "0", "-1", "0.5",
               "1e308", "-2147483649", "4294967296", "\"\\u0000\"", "\"\\ud800\""]
CLIPBOARD_WORDS = ["VELMOCOMP", "RMCONDITION", "VELMORAHUD", "VELMORAADDON", "HUDCOMPPARAM",
                   "UIPROPANIMATION", "CUSTOMPROPERTY"]
SFNT_TAGS = [b"head", b"hhea", b"hmtx", b"maxp", b"name", b"OS/2", b"post", b"cmap", b"glyf", b"loca", b"CFF ",
             b"kern", b"GPOS", b"GSUB", b"DSIG", b"\x00\x01\x00\x00", b"OTTO", b"true", b"ttcf"]


def keys_of(value, into):
    if isinstance(value, dict):
        for key, inner in value.items():
            into.add(key)
            keys_of(inner, into)
    elif isinstance(value, list):
        for inner in value:
            keys_of(inner, into)
    return into


def escape(token):
    # Text is written as UTF-8; bytes objects stand for themselves.
    data = token if isinstance(token, bytes) else token.encode("utf-8")
    out = []
    for byte in data:
        char = chr(byte)
        if char in "\\\"":
            out.append("\\" + char)
        elif 0x20 <= byte < 0x7f:
            out.append(char)
        else:
            out.append("\\x%02X" % byte)
    return "".join(out)


def write(name, tokens):
    seen = []
    for token in tokens:
        if token not in seen:
            seen.append(token)
    lines = ["# Tokens for fuzz-%s; made by tools/make_fuzz_dicts.py." % name]
    lines += ["\"%s\"" % escape(token) for token in seen]
    (OUT / ("%s.dict" % name)).write_text("\n".join(lines) + "\n", encoding="utf-8")


def quoted(keys):
    return ["\"%s\"" % key for key in sorted(keys)]


def main():
    document = json.loads((ROOT / "tests" / "data" / "full_document.json").read_text(encoding="utf-8"))
    document_keys = keys_of(document, set())
    write("huddocument", quoted(document_keys) + JSON_TOKENS)
    write("component", quoted(document_keys) + JSON_TOKENS)
    write("clipboard", CLIPBOARD_WORDS + quoted(document_keys) + JSON_TOKENS)

    data_keys = set()
    for path in sorted((ROOT / "examples" / "SampleProject" / "data").glob("*.json")):
        keys_of(json.loads(path.read_text(encoding="utf-8")), data_keys)
    write("projectdata", quoted(data_keys) + JSON_TOKENS)

    theme_keys = set()
    for path in sorted((ROOT / "Themes").glob("*/Theme.json")):
        keys_of(json.loads(path.read_text(encoding="utf-8")), theme_keys)
    colours = ["\"#ffffff\"", "\"#fff\"", "\"#80ff0000\"", "\"#fffffffffff\"", "\"red\"", "\"transparent\"",
               "\"#\"", "\"\""]
    write("theme", quoted(theme_keys) + colours + JSON_TOKENS)

    write("translator", ["\"", ",", "\"\"", "\",\"", "\r\n", "\n", "\r", "\x00", "\u00e9", "\u65e5",
                         "\U0001f642", b"\xff", b"\xc3", "&Save", "%1"])
    write("woff", [b"wOFF"] + SFNT_TAGS + [b"\x78\x9c", b"\x78\xda", b"\xff\xff\xff\xff"])
    write("woff2", [b"wOF2"] + SFNT_TAGS + [b"\x00\x00\x00\x00", b"\xff\xff\xff\xff"])


if __name__ == "__main__":
    main()
