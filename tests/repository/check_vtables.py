#!/usr/bin/env python3
"""Compares the compiler's vtable layout of the classes in vtables.txt with the operations listed there.

usage: check_vtables.py COMPILE_COMMANDS [TABLE]
Ends with 77 (skipped) when the compiler is not GCC: the layout comes from its -fdump-lang-class.

The dump hides the names of pure operations. A class that has some is therefore looked at through a probe derived
from it, which overrides each of them by its listed signature and adds no slot. Where the listed signature is wrong
the probe does not compile; an operation too few or too many, or two that changed places, shows in the comparison.
"""

import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

import repository

SKIPPED = 77
DESTRUCTOR = "~"


class Listed:
    """One class of the table: its operations in slot order, and the signatures of those that are pure."""

    def __init__(self, name, header, base):
        self.name, self.header = name, header
        self.slots = list(base.slots) if base else []
        self.pure = list(base.pure) if base else []
        self.abstract = False

    def add(self, text):
        signature = text.removeprefix("pure ")
        name = re.search(r"(~|\w+)\s*(?:\(|$)", signature).group(1)
        self.slots.append(name)
        if signature != text:
            self.pure.append(signature)


def read_table(text):
    """The classes of a table, in its order. Its form is described at the head of vtables.txt."""
    listed = {}
    current = None
    for number, line in enumerate(text.splitlines(), 1):
        line = line.split("#")[0].rstrip()
        match = re.fullmatch(r"(abstract )?class (\S+) in (\S+?)(?: continues (\S+))?", line)
        if match:
            abstract, name, header, base = match.groups()
            if name in listed or (base and base not in listed):
                raise ValueError(f"line {number}: {name} is listed twice, or after its base")
            current = listed[name] = Listed(name, header, listed.get(base))
            current.abstract = bool(abstract)
        elif line.startswith("    ") and current:
            current.add(line.strip())
        elif line:
            raise ValueError(f"line {number}: neither a class nor an operation: {line}")
    return list(listed.values())


def probe_name(number):
    return f"VtableProbe{number}"


def translation_unit(classes):
    lines = [f'#include "{header}"' for header in sorted({listed.header for listed in classes})]
    for number, listed in enumerate(classes):
        lines.append(f"static_assert(sizeof({listed.name}) > 0);")
        if listed.abstract:
            overrides = " ".join(f"{signature} override;" for signature in listed.pure)
            lines.append(f"struct {probe_name(number)} : {listed.name} {{ {overrides} }};")
    return "\n".join(lines) + "\n"


def primary_slots(lines):
    """Operation names of the first vtable of a dump's section; the two slots of a destructor count as one."""
    entries = [re.fullmatch(r"\d+\s+(?:\(int \(\*\)\(\.\.\.\)\))?(.*)", line).group(1) for line in lines]
    slots = []
    for entry in entries[2:]:  # behind the offset to the top and the type information
        if re.fullmatch(r"-\d+", entry):  # offset to the top: a second vtable begins
            break
        # The destructor of an abstract class is a bare 0.
        name = DESTRUCTOR if entry == "0" or "::~" in entry else re.sub(r"^.*::", "", entry)
        if name != DESTRUCTOR or slots[-1:] != [DESTRUCTOR]:
            slots.append(name)
    return slots


def read_dump(text):
    """Class name -> operation names in slot order, of every vtable in the dump."""
    found = {}
    for section in re.split(r"\n\s*\n", text):
        lines = section.strip().splitlines()
        if lines and lines[0].startswith("Vtable for "):
            found[lines[0].removeprefix("Vtable for ")] = primary_slots(lines[2:])
    return found


def compile_and_dump(compiler, flags, text):
    """(dump, error text) of a translation unit."""
    with tempfile.TemporaryDirectory() as folder:
        source, dump = pathlib.Path(folder) / "vtables.cpp", pathlib.Path(folder) / "vtables.class"
        source.write_text(text)
        command = [*compiler, *flags, "-w", "-fsyntax-only", f"-fdump-lang-class={dump}", str(source)]
        environment = {**os.environ, "LC_ALL": "C"}
        result = subprocess.run(command, capture_output=True, text=True, env=environment)
        if result.returncode or not dump.exists():
            return "", result.stderr or "no dump was written"
        return dump.read_text(), ""


def compare(classes, dumped):
    """What differs, class by class."""
    for number, listed in enumerate(classes):
        found = dumped.get(probe_name(number) if listed.abstract else listed.name)
        if found is None:
            yield f"{listed.name}: has no vtable"
        elif found != listed.slots:
            yield f"{listed.name}: {difference(listed.slots, found)}"


def difference(expected, found):
    for slot in range(max(len(expected), len(found))):
        want = expected[slot] if slot < len(expected) else "nothing"
        have = found[slot] if slot < len(found) else "nothing"
        if want != have:
            return f"slot {slot + 1} holds {have}, listed is {want}\n  found:  {' '.join(found)}"
    raise AssertionError("no difference")


def compiler_and_flags(commands):
    """Compiler and language flags of the data library's sources."""
    for entry in commands:
        if "/src/data/" in entry["file"]:
            words = shlex.split(entry["command"])
            compiler = [word for word in words if re.search(r"(\+\+|/cc|gcc|clang)(-[\d.]+)?$", word)][:1]
            return compiler, [word for word in words if word.startswith(("-I", "-D", "-std="))]
    raise ValueError("no source of the data library is compiled")


def main():
    root = repository.ROOT
    compiler, flags = compiler_and_flags(json.loads(pathlib.Path(sys.argv[1]).read_text()))
    banner = subprocess.run([*compiler, "--version"], capture_output=True, text=True).stdout
    if "Free Software Foundation" not in banner:
        print(f"vtables: skipped, {compiler[0]} is not GCC and has no -fdump-lang-class")
        sys.exit(SKIPPED)
    table = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else root / "tests/repository/vtables.txt"
    classes = read_table(table.read_text())
    dump, error = compile_and_dump(compiler, flags, translation_unit(classes))
    offences = [error] if error else list(compare(classes, read_dump(dump)))
    repository.finish("vtables", offences, len(classes))


if __name__ == "__main__":
    main()
