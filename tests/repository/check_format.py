#!/usr/bin/env python3
"""Holds every tracked C++ file against .clang-format.

usage: check_format.py CLANG_FORMAT
To repair: git ls-files '*.h' '*.cpp' '*.def' | xargs clang-format -i
"""

import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

import repository

SUFFIXES = (".h", ".cpp", ".def")
BATCH = 40


def offences(tool, root, files):
    """The lines that clang-format would change, at most a few of each file."""
    batches = [files[start:start + BATCH] for start in range(0, len(files), BATCH)]

    def run(batch):
        command = [tool, "--style=file", "--dry-run", "-Werror", "--ferror-limit=3", *batch]
        result = subprocess.run(command, cwd=root, capture_output=True, text=True)
        if result.returncode == 0:
            return []
        places = re.findall(r"^(\S+?:\d+):\d+: error: ", result.stderr, re.MULTILINE)
        return list(dict.fromkeys(places)) or [result.stderr or f"clang-format failed on {batch}"]

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        return [text for texts in pool.map(run, batches) for text in texts]


def main():
    files = [path for path in repository.tracked_files() if path.endswith(SUFFIXES)]
    repository.finish("format", offences(sys.argv[1], repository.ROOT, files), len(files))


if __name__ == "__main__":
    main()
