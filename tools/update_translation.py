#!/usr/bin/env python3
"""Brings a translation file up to date with the base file.

Every line of resources/VelmoraTranslationBase.csv appears once, in the base
file's order, with the translation the file already had, or the English text
when it had none. Lines for texts the program no longer has are dropped.
Usage: python3 tools/update_translation.py examples/translations/German.csv
"""
import csv
import io
import os
import sys

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")


def read(path):
    with open(path, encoding="utf-8", newline="") as handle:
        return [row for row in csv.reader(io.StringIO(handle.read())) if len(row) >= 2]


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: update_translation.py TRANSLATION.csv")
    target = sys.argv[1]
    known = {row[0]: row[1] for row in read(target)} if os.path.exists(target) else {}
    base = read(os.path.join(ROOT, "resources", "VelmoraTranslationBase.csv"))
    lines = [quoted(source) + "," + quoted(known.get(source, source)) for source, _ in base]
    with open(target, "w", encoding="utf-8", newline="\n") as handle:
        handle.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
