#!/usr/bin/env python3
"""No tracked file holds a marker for work left undone, a merge conflict or trailing blanks."""

import re

import repository

# The markers are spelt apart so that this file passes its own check.
MARKERS = re.compile(r"\b(" + "|".join(["TO" + "DO", "FIX" + "ME", "XX" + "X", "HA" + "CK"]) + r")\b")
CONFLICT = re.compile(r"^(<{7}|>{7}|={7})( |$)")
TRAILING = re.compile(r"[ \t]+$")
EXACT = ("tests/golden/", "fuzz/seeds/")  # compared or read byte by byte


def line_offences(path, number, line):
    marker = MARKERS.search(line)
    if marker:
        yield f"{path}:{number}: {marker.group()} is left in"
    if CONFLICT.search(line):
        yield f"{path}:{number}: merge conflict is left in"
    if TRAILING.search(line):
        yield f"{path}:{number}: trailing blanks"


def offences(root, files):
    for path in files:
        if path.startswith(EXACT):
            continue
        text = (root / path).read_bytes()
        if b"\0" in text:
            continue
        if text and not text.endswith(b"\n"):
            yield f"{path}: does not end with a line break"
        for number, line in enumerate(text.decode(errors="replace").split("\n"), 1):
            yield from line_offences(path, number, line)


def main():
    files = repository.tracked_files()
    repository.finish("words", list(offences(repository.ROOT, files)), len(files))


if __name__ == "__main__":
    main()
