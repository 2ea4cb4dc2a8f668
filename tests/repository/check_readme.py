"""The code of the README stands, line by line, in the example that is built and run; its screen is the one that is
tested."""

import pathlib
import re
import sys

from repository import ROOT, finish

EXAMPLE = "examples/in_fifteen_lines.cpp"
SCREEN = "tests/golden/run.txt"


def offences(readme, example):
    """Lines of the README's C++ blocks that the example does not hold, in order."""
    code = [line.strip() for block in re.findall(r"```cpp\n(.*?)```", readme, re.DOTALL) for line in block.split("\n")]
    rest = iter([line.strip() for line in example.split("\n")])
    return len(code), [line for line in code if line and line not in rest]


def is_screen_shown(readme, screen):
    return f"```text\n{screen.rstrip()}\n```" in readme


def main():
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT
    readme = (root / "README.md").read_text(encoding="utf-8")
    seen, missing = offences(readme, (root / EXAMPLE).read_text(encoding="utf-8"))
    found = [f"README.md: not in {EXAMPLE}: {line}" for line in missing]
    if not is_screen_shown(readme, (root / SCREEN).read_text(encoding="utf-8")):
        found.append(f"README.md: does not show {SCREEN}")
    finish("readme", found, seen)


if __name__ == "__main__":
    main()
