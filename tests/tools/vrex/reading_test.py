#!/usr/bin/env python3
"""check, info and components."""

import json

import vrex_tool as tool
from vrex_tool import Document, FINE, INVALID


def relations():
    """Kinds that the validator refuses whatever they bind, each as its class admits it."""
    document = Document()
    ground, wheel, screw = (document.body() for _ in range(3))
    mates = [document.bind("RevoluteMate3D", [document.connector(ground), document.connector(wheel)], angle=0.0),
             document.bind("SliderMate3D", [document.connector(ground), document.connector(screw)], distance=0.0)]
    document.add("constraints", type="MateRelation3D", constraints=mates, mateParameterIndexs=[0, 0], ratio=2.0)
    angle = document.variable(0.5)
    document.bind("MateDimensionInterval3D", [angle], dimensionType="AngleDimension3D", minLimit=0.0)
    document.bind("VariableFixation3D", [angle])
    points = [document.point(float(i), 0.0, 0.0) for i in range(3)]
    element = document.add("objects", type="EqualDimensionElement3D", value=1.0)
    distances = [document.bind("Distance3D", points[i:i + 2], value=1.0) for i in range(2)]
    document.bind("EqualDimension3D", [element], constraints=distances)
    circle = document.add("objects", type="Circle3D", cen=tool.ZERO, norm=tool.Z, rad=1.0)
    touches = [document.bind("Incidence3D", [points[1], circle], helpParameterU2=0.0, helpParameterV2=0.0),
               document.bind("Incidence3D", [points[2], circle], helpParameterU2=0.0, helpParameterV2=0.0)]
    document.bind("EqualParameter3D", [circle], constraints=touches, helpParameters=[[8, 9], [8, 9]])
    document.bind("IncidenceToCenter3D", [circle, document.add(
        "objects", type="Sphere3D", cen=tool.ZERO, rad=1.0)])
    return document


class Check(tool.ToolTest):
    def test_valid_document(self):
        report = self.report(FINE, "check", self.write(tool.gap()))
        self.assertEqual((report["valid"], report["objects"], report["constraints"], report["refused"]),
                         (True, 3, 3, []))

    def test_refused_constraint_has_index_id_label_code_and_message(self):
        document = tool.gap()
        other = document.point(0.0, 0.0, 0.0)
        document.bind("Angle3D", [0, other], value=1.0, label="wrong")
        report = self.report(INVALID, "check", self.write(document))
        self.assertEqual(report["refused"], [{
            "index": 3, "pointer": "/constraints/3", "id": 8, "label": "wrong", "type": "Angle3D", "code": "0x10000005",
            "codeName": "GEOMETRY_TYPE_ERROR",
            "message": "Do not supported geometry types combination (POINT, POINT)"}])
        self.assertTrue(report["summary"].endswith(
            ": 1 of 4 constraints are refused, first the one at /constraints/3, Angle3D \"wrong\" (id 8): "
            "Do not supported geometry types combination (POINT, POINT)"))
        text = self.expect(INVALID, "check", self.write(document)).stdout.decode()
        for part in (report["summary"], "wrong", "GEOMETRY_TYPE_ERROR"):
            self.assertIn(part, text)

    def test_every_refused_constraint_has_its_own_message(self):
        document = Document()
        point, line = document.point(0.0, 0.0, 0.0), document.line()
        document.bind("Angle3D", [point, line], value=1.0)
        document.bind("Parallelism3D", [point, point])
        document.fix(line, "Radius3D")
        refused = self.report(INVALID, "check", self.write(document))["refused"]
        self.assertEqual([row["message"] for row in refused], [
            "Do not supported geometry types combination (POINT, LINE)", "Input geometrys ID is repeated.",
            "Fixation constraint isn't supported geometry type."])

    def test_kinds_without_rule_are_asked_by_their_class(self):
        document = relations()
        self.assertEqual(self.report(FINE, "check", self.write(document))["refused"], [])
        kinds = [item["type"] for item in document.root["constraints"]]
        document.root["constraints"][kinds.index("MateRelation3D")]["mateParameterIndexs"] = [0, 1]
        document.root["constraints"][kinds.index("EqualDimension3D")]["constraints"].pop()
        document.root["constraints"][kinds.index("EqualDimension3D")]["constraints"].pop()
        document.root["constraints"][kinds.index("EqualParameter3D")]["helpParameters"] = [[6, 7], [8, 9]]
        refused = self.report(INVALID, "check", self.write(document))["refused"]
        self.assertEqual([row["type"] for row in refused], ["MateRelation3D", "EqualDimension3D", "EqualParameter3D"])

    def test_unreadable_document_names_pointer_and_object(self):
        def spoilt(array, place, **keys):
            document = tool.gap()
            document.root[array][place].update(keys)
            return document.root

        def root(**keys):
            return {**tool.gap().root, **keys}

        for document, pointer, *parts in (
                (spoilt("objects", 0, loc=[1, 2]), "/objects/0/loc", "Point3D \"corner\" (id 1)", "vector3d"),
                (spoilt("objects", 1, type="Lyne3D"), "/objects/1", "Lyne3D \"edge\" (id 2)", "Lyne3D"),
                (spoilt("variables", 0, val="2"), "/variables/0/val", "Variable \"width\" (id 3)", "number"),
                (spoilt("constraints", 0, arguments=[0, 7]), "/constraints/0", "Distance3D \"gap\" (id 4)",
                 "an object that does not stand before it"),
                (spoilt("constraints", 1, arguments=[]), "/constraints/1", "Fixation3D (id 5)"),
                (spoilt("constraints", 0, value=None), "/constraints/0/value", "Distance3D", "number"),
                (root(equations=[{"type": "GenericCallback"}]), "/equations/0", "GenericCallback"),
                (spoilt("objects", 1, type=7), "/objects/1/type", "an object without type \"edge\" (id 2)", "string"),
                (spoilt("objects", 1, type="Unknown"), "/objects/1", "No geometry has this type."),
                (spoilt("constraints", 0, arguments=[0]), "/constraints/0",
                 "constraint was not created! What it binds is missing, or of a kind that does not fit."),
                (root(objects=[3]), "/objects/0", "an object without type"), (root(objects={}), "/objects", "array"),
                (root(LinearTolerance="a"), "", "the root", "LinearTolerance"),
                (root(constraints=0), "/constraints", "array"), (root(ReferenceGeometries=[9]), "/ReferenceGeometries"),
                (root(dragTranslations=[{"objectId": 9, "translation": [1, 2, 3]}]), "/dragTranslations"),
                (root(maxId=-1), "/maxId")):
            text = json.dumps(document).encode()
            report = self.report(INVALID, "check", "-", stdin=text)
            self.assertEqual((report["pointer"], report["valid"]), (pointer, False))
            sentence = self.failure(INVALID, "info", "-", stdin=text)
            for part in (pointer, *parts):
                self.assertIn(part, sentence)

    def test_text_that_is_no_json_names_line_and_column(self):
        report = self.report(INVALID, "check", "-", stdin=b"{\n  \"objects\": [,]\n}")
        self.assertIsNone(report["pointer"])
        self.assertIn("line 2, column 15", report["summary"])
        self.assertTrue(self.failure(INVALID, "info", "-", stdin=b" <robot/>").endswith(
            "A robot description is read by vrex import."))
        for text in (b"", b"0", b"\xff", b"[]", b"0\x00\x00\x00\x00"):
            self.failure(INVALID, "check", "-", stdin=text)


class Info(tool.ToolTest):
    def test_counts_by_kind_with_degrees(self):
        report = self.report(FINE, "info", self.write(tool.gap()))
        self.assertEqual(report["kindsOfGeometries"], [{"kind": "Line3D", "count": 1, "degreesOfFreedom": 4},
                                                       {"kind": "Point3D", "count": 1, "degreesOfFreedom": 3},
                                                       {"kind": "Variable", "count": 1, "degreesOfFreedom": 1}])
        self.assertEqual(report["kindsOfConstraints"], [
            {"kind": "Distance3D", "count": 1, "degreesOfConstraint": 1},
            {"kind": "Fixation3D", "count": 1, "degreesOfConstraint": 4},
            {"kind": "VariableFixation3D", "count": 1, "degreesOfConstraint": 1}])
        self.assertEqual((report["degreesOfFreedom"], report["degreesOfConstraint"]), (8, 6))

    def test_what_a_body_carries_has_no_freedom_of_its_own(self):
        document = Document()
        body = document.body([document.point(0.0, 0.0, 0.0), document.line()])
        document.connector(body)
        self.assertEqual(self.report(FINE, "info", self.write(document))["degreesOfFreedom"], 6)

    def test_drags_equations_and_references_are_counted(self):
        document = tool.gap()
        document.root.update(ReferenceGeometries=[1], dragTranslations=[{"objectId": 0, "translation": [1, 2, 3]}])
        document.add("equations", type="LinearEquation", coef=0.0, multipliers=[1.0], descriptors=[
            {"type": "Variable", "variableIndex": 0, "index": 0}])
        report = self.report(FINE, "info", self.write(document))
        self.assertEqual([report[key] for key in ("geometries", "variables", "constraints", "equations",
                                                  "referenceGeometries", "drags")], [2, 1, 3, 1, 1, 1])

    def test_text_has_words_for_keys(self):
        text = self.expect(FINE, "info", self.write(tool.gap())).stdout.decode()
        self.assertIn("6 objects, 8 degrees of freedom, 6 of constraint", text)
        self.assertIn("  degrees of freedom: 8\n", text)
        self.assertIn("  Point3D   1      3\n", text)

    def test_labels_do_not_move_the_cursor(self):
        for label, shown in (("a\x1b[2Jb\n", "a\\u001b[2Jb\\u000a"), ("\x7f\x80\x9f", "\\u007f\\u0080\\u009f"),
                             ("\u202eabc\u2066\u200f\u061c", "\\u202eabc\\u2066\\u200f\\u061c"), ("\u2028", "\\u2028"),
                             ("\xa0\u00e9\u4e2d\u200d\U0001f980", "\xa0\u00e9\u4e2d\u200d\U0001f980")):
            document = tool.gap()
            document.bind("Angle3D", [0, 1], value=1.0, label=label)
            text = self.expect(INVALID, "check", self.write(document)).stdout.decode()
            self.assertIn(f"  {shown}  Angle3D", text)
            self.assertEqual(self.report(INVALID, "check", self.write(document))["refused"][0]["label"], label)


class Components(tool.ToolTest):
    def pairs(self):
        """Two pairs of points, each with a distance, about a fixed point that all four touch."""
        document = Document()
        middle = document.point(0.0, 0.0, 0.0)
        document.fix(middle)
        for place in (1.0, 2.0):
            first, second = document.point(place, 0.0, 0.0), document.point(0.0, place, 0.0)
            document.bind("Distance3D", [first, second], value=1.0)
            document.bind("Distance3D", [first, middle], value=1.0)
        return document

    def test_fixed_geometry_parts_components(self):
        report = self.report(FINE, "components", self.write(self.pairs()))
        self.assertEqual([(row["geometries"], row["constraints"]) for row in report["components"]], [(3, 3), (3, 3)])
        self.assertEqual([(row["degreesOfFreedom"], row["degreesOfConstraint"]) for row in report["components"]],
                         [(9, 5), (9, 5)])

    def test_members_are_told_by_identifier(self):
        document = self.pairs()
        for objects in ("objects", "constraints"):  # One numbering each, as old documents have it.
            for place, item in enumerate(document.root[objects]):
                item["id"] = 10 + place
        rows = self.report(FINE, "components", "--members", self.write(document))["components"]
        self.assertEqual([(sorted(row["geometryIds"]), sorted(row["constraintIds"])) for row in rows],
                         [([10, 11, 12], [10, 11, 12]), ([10, 13, 14], [10, 13, 14])])

    def test_empty_system_has_none(self):
        self.assertEqual(self.report(FINE, "components", self.write(Document()))["components"], [])


if __name__ == "__main__":
    tool.main()
