"""Holds what the programs print and write against what the repository has.

    check_programs.py screen RUN DATA GOLDEN         the screen of `make run`, numbers by tolerance
    check_programs.py documents DOCUMENTS DATA       the documents of the examples, byte for byte
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile

NUMBER = re.compile(r"-?\d+\.?\d*")
# How often the search went round, and how long texts of numbers are, may differ by machine.
LOOSE = re.compile(r" (iterations|bytes to the solver|back)\b")
TOLERANCE = 0.002


def is_near(shown, wanted, rest):
    if "." not in wanted:
        return shown == wanted or (LOOSE.match(rest) and abs(int(shown) - int(wanted)) <= 0.2 * int(wanted))
    return abs(float(shown) - float(wanted)) <= TOLERANCE


def difference(shown, wanted):
    """What is wrong with a line; nothing if it is right."""
    if NUMBER.sub("#", shown).split() != NUMBER.sub("#", wanted).split():
        return "the words differ"
    for a, b in zip(NUMBER.finditer(shown), NUMBER.finditer(wanted)):
        if not is_near(a.group(), b.group(), wanted[b.end():]):
            return f"{a.group()} is not {b.group()}"
    return None


def check_screen(program, data, golden):
    with tempfile.TemporaryDirectory() as folder:
        run = subprocess.run([program, data, "out"], cwd=folder, capture_output=True, text=True, check=False)
        written = sorted(path.name for path in pathlib.Path(folder, "out").glob("*"))
        for name in written:
            json.loads(pathlib.Path(folder, "out", name).read_text(encoding="utf-8"))
    wanted = pathlib.Path(golden).read_text(encoding="utf-8").splitlines()
    shown = run.stdout.splitlines()
    faults = [f"line {i}: {why}\n  shown:  {a}\n  wanted: {b}"
              for i, (a, b) in enumerate(zip(shown, wanted), 1) if (why := difference(a, b))]
    if len(shown) != len(wanted):
        faults.append(f"{len(shown)} lines instead of {len(wanted)}")
    if run.returncode != 0 or run.stderr:
        faults.append(f"exit code {run.returncode}, {run.stderr}")
    if written != ["six_axis_arm.json", "stewart_platform.json"]:
        faults.append(f"written: {written}")
    return faults


def check_documents(program, data):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, folder], capture_output=True, check=True)
        names = sorted(path.name for path in pathlib.Path(data).glob("*.json"))
        written = sorted(path.name for path in pathlib.Path(folder).glob("*"))
        faults = [] if names == written else [f"{written} instead of {names}"]
        faults += [f"{name} differs" for name in names
                   if pathlib.Path(folder, name).read_bytes() != pathlib.Path(data, name).read_bytes()]
    return faults


def main(arguments):
    check = {"screen": check_screen, "documents": check_documents}[arguments[0]]
    faults = check(*arguments[1:])
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
