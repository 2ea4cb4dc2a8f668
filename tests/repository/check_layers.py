#!/usr/bin/env python3
"""Holds every include of the sources and their clients against cmake/layers.txt.

usage: check_layers.py PUBLIC_HEADERS     (the list that the build writes: paths relative to src/)
"""

import pathlib
import re
import sys

import repository

CLIENTS = ("examples", "benchmarks", "tools")
SUFFIXES = (".h", ".cpp", ".def")


class Rules:
    """The statements of layers.txt."""

    def __init__(self, text):
        self.layers = {}     # folder -> folders that it may include
        self.upward = {}     # source -> folders
        self.externals = []  # (name, its pattern, [(file pattern as written, compiled)])
        self.errors = []
        for number, line in enumerate(text.splitlines(), 1):
            statement = line.split("#")[0].strip()
            if statement:
                self._read(number, statement)

    def _read(self, number, statement):
        match = re.fullmatch(r"(layer|upward|external)\s+([^\s:]+):\s*(.*)", statement)
        if not match:
            self.errors.append(f"cmake/layers.txt:{number}: not a statement: {statement}")
            return
        kind, name, rest = match.groups()
        if kind == "external":
            self.externals.append((pattern(name), [(word, pattern(word)) for word in rest.split()]))
            return
        folders = {name} if kind == "layer" else set()
        for word in rest.split():
            folders |= self._folders(number, word)
        if kind == "layer":
            self.layers[name] = folders
        elif not name.endswith(".cpp"):
            self.errors.append(f"cmake/layers.txt:{number}: only sources may look up: {name}")
        else:
            self.upward[name] = folders

    def _folders(self, number, word):
        known = list(self.layers)
        name = word.removeprefix("..")
        if name not in known:
            self.errors.append(f"cmake/layers.txt:{number}: no layer above this line: {name}")
            return set()
        return set(known[:known.index(name) + 1]) if word.startswith("..") else {name}

    def external_allowed(self, name, path, public):
        for known, files in self.externals:
            if known.fullmatch(name):
                return any(shape.fullmatch(path) and (written == path or not public) for written, shape in files)
        return False


def pattern(text):
    """A file pattern: "*" stops at a slash, "**" does not."""
    parts = re.split(r"(\*\*|\*)", text)
    return re.compile("".join({"**": ".*", "*": "[^/]*"}.get(part, re.escape(part)) for part in parts))


def folder_of(name):
    return name.rpartition("/")[0]


class Check:
    """One walk over the files of a tree."""

    def __init__(self, root, files, public):
        self.root = root
        self.files = set(files)
        self.public = set(public)
        self.rules = Rules((root / "cmake/layers.txt").read_text())
        self.offences = list(self.rules.errors)
        self.used = set()
        self.seen = 0

    def run(self):
        for path in sorted(self.files):
            if path.startswith(("src/",) + tuple(f"{client}/" for client in CLIENTS)) and path.endswith(SUFFIXES):
                self._file(path)
        for name in sorted(self.public):
            if f"src/{name}" not in self.files:
                self._offence(f"src/{name}", 0, "is listed as a public header and not tracked")
        for source, folders in self.rules.upward.items():
            for folder in sorted(folders):
                if (source, folder) not in self.used:
                    self.offences.append(f"cmake/layers.txt: {source} does not look up into {folder}; take it out")
        return self.offences

    def _offence(self, path, line, text):
        self.offences.append(f"{path}:{line}: {text}")

    def _file(self, path):
        self.seen += 1
        text = (self.root / path).read_text()
        name = path.removeprefix("src/")
        if path.endswith(".h") and not re.search(r"^#pragma once$", repository.without_comments(text), re.MULTILINE):
            self._offence(path, 1, "has no #pragma once")
        if folder_of(name) not in self.rules.layers:
            self._offence(path, 1, "lies in a folder that cmake/layers.txt does not name")
            return
        for line, bracket, included in repository.includes(text):
            if bracket == "<":
                self._external(path, name, line, included)
            else:
                self._project(path, name, line, included)

    def _external(self, path, name, line, included):
        if re.fullmatch(r"[a-z_0-9]+", included):
            return
        if f"src/{included}" in self.files:
            self._offence(path, line, f'<{included}> is ours: "{included}"')
        elif not self.rules.external_allowed(included, path, name in self.public):
            self._offence(path, line, f"<{included}> is not allowed here")

    def _project(self, path, name, line, included):
        client = path.split("/")[0] in CLIENTS
        if client and f"{folder_of(path)}/{included}" in self.files:
            return
        # What clients share is named by its path from the root.
        shared = client and included.split("/")[0] in CLIENTS and included in self.files
        if not shared and f"src/{included}" not in self.files:
            self._offence(path, line, f'"{included}" is no path from src/')
            return
        if not shared and (client or name in self.public) and included not in self.public:
            self._offence(path, line, f'"{included}" is not a public header')
        here, there = folder_of(name), folder_of(included)
        if there in self.rules.layers[here]:
            return
        if there in self.rules.upward.get(name, ()):
            self.used.add((name, there))
        else:
            self._offence(path, line, f'"{included}": {here} may not include {there}')


def main():
    public = pathlib.Path(sys.argv[1]).read_text().split()
    check = Check(repository.ROOT, repository.tracked_files(), public)
    repository.finish("layers", check.run(), check.seen)


if __name__ == "__main__":
    main()
