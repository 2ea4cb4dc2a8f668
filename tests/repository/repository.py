"""What the repository checks share: which files are ours, and how a check ends."""

import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)
COMMENT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)


def tracked_files(root=ROOT):
    """Paths relative to the root, sorted: what git tracks and is still there; all files without git."""
    # A clone that belongs to somebody else (a container's bind mount) is fine to read.
    listing = subprocess.run(
        ["git", "-c", f"safe.directory={root}", "-C", str(root), "ls-files", "-z"], capture_output=True)
    if listing.returncode == 0:
        names = [os.fsdecode(name) for name in listing.stdout.split(b"\0") if name]
    else:
        names = all_files(root)
    return sorted(name for name in set(names) if (root / name).is_file())


def all_files(root):
    found = []
    for folder, subfolders, files in os.walk(root):
        subfolders[:] = [name for name in subfolders if name not in (".git", "build", "out", "__pycache__")]
        found += [os.path.relpath(os.path.join(folder, name), root) for name in files]
    return found


def without_comments(text):
    """The text with its comments blanked, line by line; string literals (and so include paths) stay."""
    def blank(match):
        piece = match.group()
        return piece if piece.startswith('"') else re.sub(r"[^\n]", " ", piece)
    return COMMENT.sub(blank, text)


def includes(text):
    """(line, '<' or '"', name) of every include, conditional ones too."""
    text = without_comments(text)
    return [(text.count("\n", 0, match.start()) + 1, match.group(1), match.group(2))
            for match in INCLUDE.finditer(text)]


def finish(check, offences, seen):
    """Ends the program: the offences, or how much was looked at. Having seen nothing is an offence."""
    if not seen:
        offences = list(offences) + ["nothing was checked"]
    for offence in offences:
        print(offence)
    print(f"{check}: {len(offences)} offences" if offences else f"{check}: {seen} checked, all fine")
    sys.exit(1 if offences else 0)
