"""The tool as a black box: running it, and documents for it.

Scripts beside this one are called as SCRIPT VREX_PROGRAM SOURCE_FOLDER.
"""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

import jsonschema

PROGRAM, SOURCES = sys.argv[1], pathlib.Path(sys.argv[2])
SCHEMA = json.loads((SOURCES / "share" / "report.schema.json").read_text())
ZERO, Z = [0.0, 0.0, 0.0], [0.0, 0.0, 1.0]

FINE, USAGE, INVALID, NOT_CONVERGED, OVER_CONSTRAINED, UNDER_CONSTRAINED, IO_FAILURE, DIFFERENT = range(8)


def run(*arguments, stdin=b"", **more):
    return subprocess.run([PROGRAM, *map(str, arguments)], input=stdin, capture_output=True, timeout=120, **more)


class Document:
    """Objects, variables, constraints and equations, numbered from 1 in the order of their adding."""

    def __init__(self):
        self.root = {"objects": [], "variables": [], "constraints": [], "equations": [], "LinearTolerance": 1e-6,
                     "AngularTolerance": 1e-8}
        self.count = 0

    def add(self, array, **keys):
        """Its place in the array."""
        self.count += 1
        self.root[array].append({**keys, "id": self.count})
        return len(self.root[array]) - 1

    def point(self, *place, **more):
        return self.add("objects", type="Point3D", loc=list(place), **more)

    def line(self, **more):
        return self.add("objects", type="Line3D", loc=ZERO, dir=Z, **more)

    def body(self, members=(), place=ZERO):
        return self.add("objects", type="RigidSet3D", cen=place, norm=Z, dir=[1.0, 0.0, 0.0], arguments=list(members))

    def connector(self, body, place=ZERO):
        return self.add("objects", type="Connector3D", arguments=[body], cen=place, rot=0.0, norm=Z)

    def variable(self, value, **more):
        return self.add("variables", val=value, **more)

    def bind(self, kind, arguments, **more):
        return self.add("constraints", type=kind, arguments=list(arguments), **more)

    def fix(self, place, kind="Complete3D"):
        return self.bind("Fixation3D", [place], fixType=kind)

    def text(self):
        return json.dumps(self.root).encode()


def gap():
    """A point at some distance from a line that is fixed; the distance is that of the variable "width"."""
    document = Document()
    corner = document.point(3.0, 4.0, 1.0, label="corner")
    edge = document.line(label="edge")
    width = document.variable(2.0, label="width")
    document.bind("Distance3D", [corner, edge], value=2.0, variable=width, label="gap")
    document.fix(edge)
    document.bind("VariableFixation3D", [width])
    return document


def triangle(*distances):
    """Points in a row that are fixed but for the last one, which has a distance from each."""
    document = Document()
    points = [document.point(float(i), 0.0, 0.0) for i in range(len(distances))]
    free = document.point(0.3, 0.7, 0.0, label="free")
    for point, distance in zip(points, distances):
        document.fix(point)
        document.bind("Distance3D", [point, free], value=distance)
    return document


class ToolTest(unittest.TestCase):
    """Runs in a folder of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, document, name="system.json"):
        file = self.folder / name
        file.write_bytes(document.text() if isinstance(document, Document) else document)
        return file

    def expect(self, code, *arguments, **more):
        result = run(*arguments, **more)
        self.assertEqual(result.returncode, code, f"{arguments}: {result.stdout!r} {result.stderr!r}")
        return result

    def report(self, code, *arguments, **more):
        """What the tool reports as JSON, valid by the schema."""
        result = self.expect(code, "--json", *arguments, **more)
        self.assertEqual(result.stdout.count(b"\n"), 1)
        report = json.loads(result.stdout)
        jsonschema.Draft7Validator(SCHEMA).validate(report)
        self.assertEqual(report["command"], next(word for word in map(str, arguments) if not word.startswith("-")))
        return report

    def failure(self, code, *arguments, **more):
        """The one sentence of a command that fails."""
        result = self.expect(code, *arguments, **more)
        self.assertEqual(result.stderr.count(b"\n"), 1, result.stderr)
        text = result.stderr.decode()
        self.assertTrue(text.startswith("vrex: error: "), text)
        return text.removeprefix("vrex: error: ").strip()

    def expect_files(self, *names):
        self.assertEqual(sorted(file.name for file in self.folder.iterdir()), sorted(names))


def main():
    unittest.main(argv=sys.argv[:1], verbosity=1)
