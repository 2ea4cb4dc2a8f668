#!/usr/bin/env python3
"""Runs clang-tidy over the sources of the libraries.

usage: check_lint.py CLANG_TIDY COMPILE_COMMANDS CACHE_FOLDER

Most of clang-tidy's time goes into the standard headers, so the sources of a folder are linted in groups that
share one translation unit: a source of "#include" lines. A group whose sources do not stand beside each other
(two hidden helpers of the same name) is halved until they do; a source alone is linted as the compiler sees it.
A group that passed is remembered by the content of everything of ours that it includes, of the configuration and
of the flags, so that a second run costs nothing.
"""

import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

import repository

GROUP = 16
# What clang-tidy needs of the compiler's command line; warnings and code generation are the compiler's own.
KEPT = ("-I", "-isystem", "-D", "-U", "-std=")
FLAGS = ["-w", "-fno-caret-diagnostics"]


def kept_flags(entry):
    words = entry["arguments"] if "arguments" in entry else shlex.split(entry["command"])
    flags, take_next = [], False
    for word in words:
        if take_next or word.startswith(KEPT):
            flags.append(word)
        take_next = word in KEPT
    return tuple(flags)


def groups(root, commands):
    """Lists of sources of one folder and the same flags, and those flags; only the libraries' own sources."""
    found = {}
    for entry in commands:
        path = os.path.relpath(os.path.join(entry["directory"], entry["file"]), root)
        if path.startswith("src/"):
            found.setdefault((os.path.dirname(path), kept_flags(entry)), set()).add(path)
    for (_, flags), paths in sorted(found.items()):
        ordered = sorted(paths)
        for start in range(0, len(ordered), GROUP):
            yield ordered[start:start + GROUP], flags


def closure(root, paths):
    """The sources and everything under src/ that they include."""
    seen, left = set(), list(paths)
    while left:
        path = left.pop()
        if path in seen or not (root / path).is_file():
            continue
        seen.add(path)
        text = (root / path).read_text()
        left += [f"src/{name}" for _, bracket, name in repository.includes(text) if bracket == '"']
    return sorted(seen)


def complaints(root, text):
    """The complaints of one run, each with its notes, by paths relative to the root."""
    return re.split(r"\n(?=\S+:\d+:\d+: error:)", text.replace(f"{root}/", ""))


class Lint:
    def __init__(self, tool, root, cache):
        self.tool, self.root, self.cache = tool, root, pathlib.Path(cache)
        self.cache.mkdir(parents=True, exist_ok=True)
        version = subprocess.run([tool, "--version"], capture_output=True, check=True).stdout
        self.settings = version + (root / ".clang-tidy").read_bytes()

    def run(self, group):
        """The offences of a group; remembers that there were none."""
        paths, flags = group
        stamp = self.cache / self._key(paths, flags)
        if stamp.exists():
            return []
        offences = self._lint(paths, flags)
        if not offences:
            stamp.touch()
        return offences

    def _key(self, paths, flags):
        digest = hashlib.sha256(self.settings + repr((paths, flags)).encode())
        for path in closure(self.root, paths):
            digest.update(path.encode() + b"\0" + hashlib.sha256((self.root / path).read_bytes()).digest())
        return digest.hexdigest()

    def _lint(self, paths, flags):
        if len(paths) == 1:
            failed, text = self._tidy(self.root / paths[0], flags)
            return [text] if failed else []
        failed, text = self._tidy_together(paths, flags)
        if not failed:
            return []
        if "clang-diagnostic-error" not in text:
            return [text]
        half = len(paths) // 2
        return self._lint(paths[:half], flags) + self._lint(paths[half:], flags)

    def _tidy_together(self, paths, flags):
        lines = [f'#include "{self.root / path}" // NOLINT(bugprone-suspicious-include)\n' for path in paths]
        # Inside the tree, so that clang-tidy finds the configuration above it.
        with tempfile.TemporaryDirectory(dir=self.cache) as folder:
            together = pathlib.Path(folder) / "together.cpp"
            together.write_text("".join(lines))
            return self._tidy(together, flags)

    def _tidy(self, source, flags):
        command = [self.tool, "--quiet", f"--config-file={self.root / '.clang-tidy'}", str(source), "--",
                   *flags, *FLAGS]
        result = subprocess.run(command, cwd=self.root, capture_output=True, text=True)
        if result.returncode == 0:
            return False, ""
        return True, result.stdout.strip() or result.stderr.strip()


def main():
    tool, commands, cache = sys.argv[1:4]
    root = repository.ROOT
    work = list(groups(root, json.loads(pathlib.Path(commands).read_text())))
    lint = Lint(tool, root, cache)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        texts = [text for texts in pool.map(lint.run, work) for text in texts]
    # Each complaint once: several groups meet the same header.
    offences = dict.fromkeys(piece for text in texts for piece in complaints(root, text))
    repository.finish("lint", list(offences), sum(len(paths) for paths, _ in work))


if __name__ == "__main__":
    main()
