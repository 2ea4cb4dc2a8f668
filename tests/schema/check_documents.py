#!/usr/bin/env python3
"""Holds the schema of documents against documents: the golden ones and all that tests wrote are valid, and none of
them is any longer once a key is of another type, a required key is gone, or a value is out of its range. All are still
valid without a key that a reader does without.

usage: check_documents.py SCHEMA GOLDEN_FOLDER WRITTEN_FOLDER
"""

import copy
import json
import pathlib
import sys

import jsonschema

# No key of an object holds this.
ANOTHER_TYPE = {"no": "such value"}
# Of the root and of the objects of each kind: what has to be there.
ROOT = ("LinearTolerance", "AngularTolerance")
DIMENSION = ("arguments", "value", "type")
PLAIN = ("arguments", "type")
REQUIRED = {
    "Point3D": ("loc",), "Line3D": ("loc", "dir"), "Plane3D": ("loc", "norm"), "Circle3D": ("cen", "norm", "rad"),
    "Ellipse3D": ("cen", "norm", "dir", "maj", "min"), "Cylinder3D": ("loc", "dir", "rad"), "Cone3D": ("cen", "dir", "ap"),
    "Sphere3D": ("cen", "rad"), "Torus3D": ("cen", "norm", "maj", "min"), "RigidSet3D": ("cen", "norm", "dir"),
    "Connector3D": ("cen", "rot", "norm"),
    "NurbsSurface3D": ("uDegree", "vDegree", "uKnots", "vKnots", "controlPoints", "weights"),
    "Spline3D": ("degree", "periodic", "knots", "points", "weights"), "SpinSurface3D": ("profileSurface", "axis"),
    "SweepSurface3D": ("profileCurve", "trajectoryLine"), "EvaluatedCurve3D": ("cen", "rot", "axis", "x", "y", "z"),
    "EvaluatedSurface3D": ("cen", "rot", "axis", "x", "y", "z"), "Pattern3D": ("axis", "patternType", "value"),
    "ArrayPattern3D": (), "EqualDimensionElement3D": ("value",),
    "DirectionDistance3D": DIMENSION + ("direction",), "EqualRadius3D": PLAIN + ("radType1", "radType2"),
    "Instance3D": PLAIN + ("coefficients",), "MateDimensionInterval3D": PLAIN + ("dimensionType",),
    "EqualDimension3D": PLAIN, "EqualParameter3D": PLAIN + ("constraints",),
    "MateRelation3D": ("mateParameterIndexs", "type"),
    "ExpressionEquation": ("type", "expression", "descriptors"), "LinearEquation": ("type", "coef", "multipliers", "descriptors"),
} | {kind: DIMENSION for kind in (
    "Distance3D", "ParallelDistance3D", "Angle3D", "PlanarAngle3D", "Radius3D", "MajorRadius3D", "MinorRadius3D",
    "CurveLength3D", "HalfAngle3D", "PatternValue3D", "EqualDimensionValue3D")}
# Document, where, and what is put there.
OUT_OF_RANGE = (
    ("drags", ("ReferenceGeometries", 0), -1), ("drags", ("ReferenceGeometries", 0), 0.5), ("drags", ("maxId",), -1),
    ("drags", ("maxId",), 18446744073709551616), ("drags", ("dragTransforms", 0, "transformMatrix", 3), [0, 0, 0]),
    ("drags", ("dragTransforms", 0, "transformMatrix"), [[1, 0, 0, 0]] * 3), ("drags", ("dragTranslations", 0, "translation"), [1, 2]),
    ("drags", ("dragTransforms", 0), 1), ("drags", ("dragParameters", 0, "type"), "radius3D"), ("drags", ("dragVariables", 0, "objectId"), -1),
    ("geometries", ("objects", 0, "type"), "Unknown"), ("geometries", ("objects", 0, "type"), "point3D"),
    ("geometries", ("objects", 0), None), ("geometries", ("objects", 0, "id"), 18446744073709551616),
    ("geometries", ("objects", 0, "id"), -1), ("geometries", ("objects", 0, "loc"), [1, 2]),
    ("geometries", ("objects", 0, "loc"), [1, "2", 3]), ("geometries", ("objects", 0, "status"), "Regular"),
    ("geometries", ("objects", 0, "changeStatus"), "fixed"), ("geometries", ("objects", 10, "arguments"), [9, 9]),
    ("geometries", ("objects", 14, "controlPoints", 1), -1), ("geometries", ("objects", 15, "points", 0), 0.25),
    ("geometries", ("objects", 15, "degree"), 1.5), ("geometries", ("objects", 16, "axis"), [0, 0, 1]),
    ("geometries", ("objects", 18, "axis"), 1), ("geometries", ("objects", 18, "descriptors", 0, "type"), "Equation"),
    ("geometries", ("objects", 18, "descriptors", 0, "index"), 4294967296), ("geometries", ("objects", 20, "patternType"), "Circular"),
    ("constraints", ("constraints", 0, "type"), "Unknown"), ("constraints", ("constraints", 0, "arguments"), [0]),
    ("constraints", ("constraints", 2, "arguments"), [0, 1]), ("constraints", ("constraints", 13, "arguments"), []),
    ("constraints", ("constraints", 0, "status"), "Welldefined"), ("constraints", ("constraints", 0, "alignment"), "positive"),
    ("constraints", ("constraints", 0, "solveMethodStatus"), "Satisfied"), ("constraints", ("constraints", 0, "GeomComponent2"), "Middle"),
    ("constraints", ("constraints", 5, "radType"), "Radius"), ("constraints", ("constraints", 12, "incType"), "Unknown"),
    ("constraints", ("constraints", 13, "fixType"), "Complete"), ("constraints", ("constraints", 28, "coefficients", 0), 0.5),
    ("constraints", ("constraints", 38, "dimensionType"), "Angle3D"), ("constraints", ("constraints", 38, "dimensionIndex"), -1),
    ("constraints", ("constraints", 40, "constraints"), [8]), ("constraints", ("constraints", 40, "helpParameters", 0), [6]),
    ("constraints", ("constraints", 40, "helpParameters"), [[6, 7]]), ("constraints", ("constraints", 41, "mateParameterIndexs"), [1]),
    ("constraints", ("constraints", 41, "constraints"), [34, 31, 31]), ("equations", ("equations", 0, "conditionType"), "Unknown"),
    ("equations", ("equations", 0, "type"), "Expression"), ("equations", ("equations", 2, "multipliers", 0), "2"),
)


def arrays(document):
    return [(name, document[name]) for name in ("objects", "variables", "constraints", "equations") if name in document]


def changed(document, path, change):
    broken = copy.deepcopy(document)
    place = broken
    for step in path[:-1]:
        place = place[step]
    change(place, path[-1])
    return broken


def dropped(document, path):
    return changed(document, path, lambda place, key: place.pop(key))


def replaced(document, path, value):
    return changed(document, path, lambda place, key: place.__setitem__(key, value))


def alone(document, array, place):
    """The document with one object only, which is quicker to validate: the schema follows no index."""
    return {key: document[key] for key in ROOT} | {array: [document[array][place]]}


def required(array, kind):
    return REQUIRED.get(kind, PLAIN if array == "constraints" else ("val",))


def lesser_ones(name, document):
    """What is left out of the document, and what it is then."""
    for key in document:
        if key not in ROOT:
            yield f"{name}: without {key}", dropped(document, (key,))
    for array, objects in arrays(document):
        for place, item in enumerate(objects):
            kind = item.get("type", "variable")
            for key in item.keys() - set(required(array, kind)) - {"type"}:
                yield f"{name}: {kind} without {key}", dropped(alone(document, array, place), (array, 0, key))


def broken_ones(name, document):
    """What is done to the document, and what it is then."""
    for key in ROOT:
        yield f"{name}: without {key}", dropped(document, (key,))
    for key in document:
        if key not in ("moveAndEvaluate", "author"):
            yield f"{name}: {key} of another type", replaced(document, (key,), ANOTHER_TYPE)
    for array, objects in arrays(document):
        for place, item in enumerate(objects):
            kind = item.get("type", "variable")
            lone = alone(document, array, place)
            for key in required(array, kind):
                yield f"{name}: {kind} without {key}", dropped(lone, (array, 0, key))
            for key in item:
                yield f"{name}: {kind} with {key} of another type", replaced(lone, (array, 0, key), ANOTHER_TYPE)
    for where, path, value in OUT_OF_RANGE:
        if where == name and len(path) > 1:
            yield f"{name}: {path} is {value}", replaced(alone(document, *path[:2]), (path[0], 0) + path[2:], value)
        elif where == name:
            yield f"{name}: {path} is {value}", replaced(document, path, value)


def main():
    schema = json.loads(pathlib.Path(sys.argv[1]).read_text())
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    golden = {path.stem: json.loads(path.read_text()) for path in sorted(pathlib.Path(sys.argv[2]).glob("*.json"))}
    written = {path.name: json.loads(path.read_text()) for path in pathlib.Path(sys.argv[3]).glob("*.json")}
    faults = []
    for name, document in (golden | written).items():
        faults += [f"{name}: {list(error.absolute_path)}: {error.message}" for error in validator.iter_errors(document)]
    broken = [row for name, document in golden.items() for row in broken_ones(name, document)]
    faults += [f"{what}: not refused" for what, document in broken if validator.is_valid(document)]
    lesser = [row for name, document in golden.items() for row in lesser_ones(name, document)]
    faults += [f"{what}: refused" for what, document in lesser if not validator.is_valid(document)]
    if len(golden) < 4 or len(written) < len(golden) or len(broken) < 100:
        faults.append(f"only {len(golden)} golden, {len(written)} written and {len(broken)} broken documents")
    print(*faults, sep="\n")
    print(f"{len(golden)} golden, {len(written)} written and {len(lesser)} lesser documents valid, {len(broken)} broken ones not")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
