#!/usr/bin/env python3
"""Every tracked source and header belongs to the build: a file that no list names would silently do nothing.

usage: check_registered.py COMPILE_COMMANDS LISTED_FILES
LISTED_FILES holds what the folders of src/ list, one path relative to the root a line, in the order of the lists.
"""

import json
import os
import pathlib
import sys

import repository

BUILT = ("src/", "tests/", "examples/", "tools/", "benchmarks/")
# Projects of their own, built by a test.
APART = ("tests/repository/install_consumer/",)


def compiled(root, commands):
    return {os.path.relpath(os.path.join(entry["directory"], entry["file"]), root) for entry in commands}


def offences(files, compiled_files, listed):
    for path in files:
        if path.startswith(APART):
            continue
        if path.endswith(".cpp") and path.startswith(BUILT) and path not in compiled_files:
            yield f"{path}: is not compiled; name it in the CMakeLists.txt of its folder"
        if path.endswith((".h", ".def")) and path.startswith("src/") and path not in listed:
            yield f"{path}: is in no list; name it in the CMakeLists.txt of its folder"
    known = set(files)
    for path in listed:
        if path not in known:
            yield f"{path}: is listed and not tracked"


def main():
    root = repository.ROOT
    commands = json.loads(pathlib.Path(sys.argv[1]).read_text())
    listed = pathlib.Path(sys.argv[2]).read_text().split()
    files = repository.tracked_files()
    found = list(offences(files, compiled(root, commands), listed))
    repository.finish("registered", found, len(listed))


if __name__ == "__main__":
    main()
