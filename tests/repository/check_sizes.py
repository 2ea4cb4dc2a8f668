#!/usr/bin/env python3
"""No source, script or build file is longer than 500 lines; tables (*.def) are exempt."""

import repository

LIMIT = 500
SUFFIXES = (".h", ".cpp", ".py", ".cmake", "CMakeLists.txt")


def offences(root, files):
    for path in files:
        lines = len((root / path).read_bytes().splitlines())
        if lines > LIMIT:
            yield f"{path}: {lines} lines, {LIMIT} are allowed"


def main():
    files = [path for path in repository.tracked_files() if path.endswith(SUFFIXES)]
    repository.finish("sizes", list(offences(repository.ROOT, files)), len(files))


if __name__ == "__main__":
    main()
