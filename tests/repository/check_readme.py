"""The code of the README stands, line by line, in the example that is built and run."""

import pathlib
import re
import sys

from repository import ROOT, finish

EXAMPLE = "examples/in_fifteen_lines.cpp"


def offences(readme, example):
    """Lines of the README's C++ blocks that the example does not hold, in order."""
    code = [line.strip() for block in re.findall(r"```cpp\n(.*?)```", readme, re.DOTALL) for line in block.split("\n")]
    rest = iter([line.strip() for line in example.split("\n")])
    return len(code), [line for line in code if line and line not in rest]


def main():
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT
    seen, missing = offences((root / "README.md").read_text(encoding="utf-8"),
                             (root / EXAMPLE).read_text(encoding="utf-8"))
    finish("readme", [f"README.md: not in {EXAMPLE}: {line}" for line in missing], seen)


if __name__ == "__main__":
    main()
