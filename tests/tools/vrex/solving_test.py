#!/usr/bin/env python3
"""solve, convert, diff and import."""

import json
import math
import struct

import vrex_tool as tool
from vrex_tool import (DIFFERENT, Document, FINE, INVALID, IO_FAILURE, NOT_CONVERGED, OVER_CONSTRAINED,
                       UNDER_CONSTRAINED, USAGE)

# Distances of solved points: what the solver leaves, as a part of the system's size.
NEAR = 1e-8
# How near a wish draws, which counts less than any constraint.
DRAWN = 1e-2


def inconsistent():
    """A point that is to be at two distances from one that is fixed."""
    document = tool.triangle(1.0)
    document.bind("Distance3D", [0, 1], value=2.0, label="other")
    return document


class Solve(tool.ToolTest):
    def solved(self, document, *options):
        output = self.folder / "solved.json"
        self.report(FINE, "solve", self.write(document), "--out", output, *options)
        return json.loads(output.read_text())

    def corner(self, document, *options):
        return self.solved(document, *options)["objects"][0]["loc"]

    def test_constraints_hold_and_freedom_is_told(self):
        x, y, _ = self.corner(tool.gap())
        self.assertAlmostEqual(math.hypot(x, y), 2.0, delta=NEAR)
        report = self.report(FINE, "solve", self.write(tool.gap()))
        self.assertEqual((report["converged"], report["overConstrained"], report["freedom"]), (True, False, 2))
        self.assertEqual([(row["id"], row["label"], row["degrees"]) for row in report["freedoms"]], [(1, "corner", 2)])

    def test_statuses_are_in_the_solved_document(self):
        document = self.solved(tool.gap())
        self.assertEqual([item["status"] for item in document["objects"]], ["Underdefined", "Welldefined"])
        self.assertEqual({item["satisfiedStatus"] for item in document["constraints"]}, {"Satisfied"})

    def test_set_holds_a_variable_and_leaves_no_trace(self):
        for isHeldAlready in (True, False):
            document = tool.gap()
            if not isHeldAlready:
                document.root["constraints"].pop()
            solved = self.solved(document, "--set", "width=3.5")
            x, y, _ = solved["objects"][0]["loc"]
            self.assertAlmostEqual(math.hypot(x, y), 3.5, delta=NEAR)
            self.assertEqual(solved["variables"][0]["val"], 3.5)
            self.assertEqual(len(solved["constraints"]), len(document.root["constraints"]))

    def test_move_draws_as_far_as_constraints_allow(self):
        x, y, z = self.corner(tool.gap(), "--move", "corner=-9,-4,2.5")
        self.assertAlmostEqual(math.hypot(x, y), 2.0, delta=NEAR)
        # Towards (-6, 0, 3.5), so as near to that as the cylinder about the line is.
        for found, wanted in zip((x, y, z), (-2.0, 0.0, 3.5)):
            self.assertAlmostEqual(found, wanted, delta=DRAWN)

    def test_drags_of_the_document_are_followed_when_asked_for(self):
        document = tool.gap()
        document.root["dragTranslations"] = [{"objectId": 0, "translation": [0.0, 0.0, 5.0]}]
        document.root["author"] = "somebody"
        still = self.solved(document)
        self.assertAlmostEqual(still["objects"][0]["loc"][2], 1.0, delta=NEAR)
        self.assertIn("dragTranslations", still)
        moved = self.solved(document, "--drag")
        self.assertAlmostEqual(moved["objects"][0]["loc"][2], 6.0, delta=DRAWN)
        self.assertNotIn("dragTranslations", moved)
        self.assertEqual(moved["author"], "somebody")

    def test_freedom_is_a_failure_when_asked_for(self):
        self.report(UNDER_CONSTRAINED, "solve", "--determined", self.write(tool.gap()))
        document = tool.gap()
        document.fix(0)
        document.root["variables"], document.root["constraints"] = [], document.root["constraints"][1:2]
        document.fix(0)
        self.assertEqual(self.report(FINE, "solve", "--determined", self.write(document))["freedom"], 0)

    def test_over_constrained_names_the_culprits(self):
        document = tool.triangle(1.0)
        document.bind("Distance3D", [0, 1], value=1.0, label="again")
        file = self.write(document)
        report = self.report(OVER_CONSTRAINED, "solve", file)
        self.assertEqual([(row["id"], row["type"], row["label"]) for row in report["overConstrainedGroups"]],
                         [(4, "Distance3D", ""), (5, "Distance3D", "again")])
        self.assertIn("Distance3D (id 4), Distance3D \"again\" (id 5)", report["summary"])
        self.assertTrue(report["summary"].endswith("With --allow-redundant that is no failure."))
        self.assertTrue(report["converged"])
        self.report(FINE, "solve", "--allow-redundant", file)

    def test_inconsistent_names_the_culprits_and_writes_nothing(self):
        output = self.write(b"former", "out.json")
        for options in ((), ("--allow-redundant",)):
            report = self.report(OVER_CONSTRAINED, "solve", self.write(inconsistent()), "--out", output, *options)
            self.assertEqual({row["id"] for row in report["overConstrainedGroups"]}, {4, 5})
            self.assertNotIn("--allow-redundant", report["summary"])
            self.assertFalse(report["converged"])
        self.assertEqual(output.read_bytes(), b"former")
        self.expect_files("system.json", "out.json")

    def test_failure_is_told_where_the_report_is_not(self):
        sentence = self.failure(OVER_CONSTRAINED, "--quiet", "solve", "--out", "-", self.write(inconsistent()))
        self.assertIn("cannot hold together", sentence)
        self.assertEqual(self.expect(OVER_CONSTRAINED, "--quiet", "solve", self.write(inconsistent())).stderr, b"")

    def test_one_constraint_that_cannot_hold_between_what_is_fixed(self):
        document = Document()
        for place in range(2):
            document.fix(document.point(float(place), 0.0, 0.0))
        document.bind("Distance3D", [0, 1], value=1.0, label="wide")
        self.report(FINE, "solve", self.write(document))
        document.root["constraints"][-1]["value"] = 2.0
        summary = self.report(OVER_CONSTRAINED, "solve", self.write(document))["summary"]
        self.assertIn("Distance3D \"wide\" (id 5) cannot hold, with or without the others.", summary)

    def test_component_that_does_not_converge_is_named(self):
        """A wide ring of short links, which takes many steps to draw together; too many to tell which are to blame."""
        document = Document()
        count = 400
        for i in range(count):
            angle = 2.0 * math.pi * i / count
            document.point(50.0 * math.cos(angle), 50.0 * math.sin(angle), float(i % 3), label=f"p{i}")
        for i in range(count):
            document.bind("Distance3D", [i, (i + 1) % count], value=1.0)
        output = self.folder / "out.json"
        report = self.report(NOT_CONVERGED, "solve", "--max-iterations", "1", "--out", output, self.write(document))
        self.assertIn("Component 0 with Point3D \"p0\" (id 1): It did not converge in", report["summary"])
        self.assertFalse(output.exists())

    def test_component_that_is_refused_leaves_the_others_to_be_solved(self):
        document = tool.gap()
        first, second = document.point(0.0, 0.0, 0.0), document.point(1.0, 1.0, 0.0)
        document.bind("Distance3D", [first, second], value=1.0, minLimit=3.0, maxLimit=2.0)
        report = self.report(NOT_CONVERGED, "solve", self.write(document))
        self.assertEqual([row["converged"] for row in report["components"]], [True, False])
        self.assertIn("Component 1: Distance3D 9 has a lower limit above the upper one.", report["summary"])

    def test_unsupported_kind_is_not_solved_and_named(self):
        document = Document()
        points = [document.point(float(i), 0.0, 0.0) for i in range(2)]
        circle = document.add("objects", type="Circle3D", cen=tool.ZERO, norm=tool.Z, rad=1.0)
        document.bind("CurveLength3D", [*points, circle], value=1.0)
        report = self.report(NOT_CONVERGED, "solve", self.write(document))
        self.assertEqual([(row["id"], row["type"]) for row in report["remarks"]], [(4, "CurveLength3D")])
        self.assertIn("CurveLength3D (id 4)", report["summary"])

    def test_solved_document_on_standard_output_comes_alone(self):
        result = self.expect(FINE, "solve", "--out", "-", self.write(tool.gap()))
        self.assertEqual(len(json.loads(result.stdout)["objects"]), 2)
        self.assertIn(b"is solved", result.stderr)
        self.assertEqual(self.failure(USAGE, "--json", "solve", "--out", "-", self.write(tool.gap())),
                         "With --json the report takes standard output: name a file for the document with --out.")

    def test_same_result_twice(self):
        file = self.write(tool.triangle(1.5, 1.2))
        self.assertEqual(*(self.expect(FINE, "solve", "-o", "-", file).stdout for _ in range(2)))

    def test_labels_that_nothing_or_several_have(self):
        document = tool.gap()
        document.variable(1.0, label="twice")
        document.variable(1.0, label="twice")
        file = self.write(document)
        for option, text, part in (("--set", "none=1", "No variable is called \"none\""),
                                   ("--set", "twice=1", "More than one variable is called \"twice\": Variable \"twice\" (id 7), Variable "
                                    "\"twice\" (id 8). Take \"#\" and the identifier instead."),
                                   ("--set", "#1=1", "No variable is called \"#1\""),
                                   ("--set", "width=a", "is not label=number"), ("--set", "width", "label=number"),
                                   ("--set", "width=1e999", "label=number"), ("--set", "=1", "label=number"),
                                   ("--move", "corner=1,2", "label=x,y,z"), ("--move", "corner=1,2,3,", "label=x,y,z"),
                                   ("--move", "width=1,2,3", "No geometry is called \"width\"")):
            self.assertIn(part, self.failure(USAGE, "solve", option, text, file))

    def test_label_of_a_body_and_its_members_means_the_body(self):
        document = Document()
        members = [document.point(float(i), 0.0, 0.0, label="link") for i in range(2)]
        document.body(members)
        document.root["objects"][-1]["label"] = "link"
        points = self.solved(document, "--move", "link=0,0,2")["objects"][:2]
        for place, point in enumerate(points):
            for found, wanted in zip(point["loc"], (float(place), 0.0, 2.0)):
                self.assertAlmostEqual(found, wanted, delta=DRAWN)

    def test_identifier_serves_where_there_is_no_label(self):
        document = tool.gap()
        document.root["variables"][0].pop("label")
        self.assertEqual(self.solved(document, "--set", "#3=3.5")["variables"][0]["val"], 3.5)
        document.variable(1.0, label="#3")
        document.bind("VariableFixation3D", [1])
        values = [item["val"] for item in self.solved(document, "--set", "#3=3.5")["variables"]]
        self.assertEqual(values[1], 3.5)
        self.assertAlmostEqual(values[0], 2.0, delta=NEAR)

    def test_object_that_is_told_twice(self):
        file = self.write(tool.gap())
        for option, first, second, name in (("--set", "width=2", "width=3", 'Variable "width" (id 3)'),
                                            ("--set", "width=2", "#3=2", 'Variable "width" (id 3)'),
                                            ("--move", "#1=1,2,3", "corner=1,2,3", 'Point3D "corner" (id 1)')):
            self.assertEqual(self.failure(USAGE, "solve", option, first, option, second, file),
                             f"{option}: {name} stands here twice.")

    def test_expressions_of_a_solved_document_name_what_they_named(self):
        document = Document()
        point = document.point(1.0, 2.0, 3.0)
        document.add("objects", type="EvaluatedCurve3D", cen=tool.ZERO, rot=0.0, axis=tool.Z, x="t * q", y="0", z="0",
                     descriptors=[{"name": "q", "index": 0, "type": "Geometry", "object": point}])
        document.fix(point)
        curve = self.solved(document)["objects"][1]
        self.assertEqual(curve["descriptors"], document.root["objects"][1]["descriptors"])

    def test_input_is_never_the_output(self):
        file = self.write(tool.gap())
        for command in (("solve",), ("convert", "--to", "stream"), ("convert",)):
            self.assertIn("never touched", self.failure(USAGE, *command, file, "--out", self.folder / "." / file.name))
        self.assertEqual(file.read_bytes(), tool.gap().text())


class Convert(tool.ToolTest):
    def test_document_is_written_anew_byte_for_byte(self):
        first = self.expect(FINE, "convert", self.write(tool.gap())).stdout
        second = self.expect(FINE, "convert", "-", stdin=first).stdout
        self.assertEqual(first, second)
        self.assertIn(b"\n  \"objects\": [", self.expect(FINE, "convert", "--indent", "2", "-", stdin=first).stdout)

    def test_keys_of_others_stay(self):
        document = tool.gap()
        document.root.update(author="me", maxId=77, dragVariables=[{"objectId": 0, "targetValue": 1.5}])
        written = json.loads(self.expect(FINE, "convert", self.write(document)).stdout)
        self.assertEqual([written[key] for key in ("author", "maxId", "dragVariables")],
                         ["me", 77, [{"objectId": 0, "targetValue": 1.5}]])

    def test_stream_and_back_is_the_same_system(self):
        document = tool.gap()
        document.root.update(LinearTolerance=1e-8, AngularTolerance=1e-11)
        file, stream = self.write(document), self.folder / "system.stream"
        self.assertEqual(self.expect(FINE, "--quiet", "convert", "--to", "stream", "-o", stream, file).stderr, b"")
        self.assertEqual(stream.read_bytes()[:1], b"\x30")
        back = self.expect(FINE, "convert", stream).stdout
        self.assertEqual(back, self.expect(FINE, "convert", file).stdout)
        self.report(FINE, "diff", file, stream)

    def test_what_a_stream_leaves_out_is_told(self):
        result = self.expect(FINE, "convert", "--to", "stream", self.write(tool.gap()))
        self.assertIn(b"keeps no tolerances", result.stderr)

    def test_objects_that_no_stream_holds_are_named(self):
        document = tool.gap()
        document.add("equations", type="LinearEquation", coef=0.0, multipliers=[1.0], label="sum", descriptors=[
            {"type": "Variable", "variableIndex": 0, "index": 0}])
        sentence = self.failure(INVALID, "convert", "--to", "stream", self.write(document))
        self.assertIn("\"sum\" (id 7)", sentence)

    def test_equal_identifiers_are_named(self):
        document = tool.gap()
        document.root["objects"][1]["id"] = 1
        sentence = self.failure(INVALID, "convert", "--to", "stream", self.write(document))
        self.assertIn("Point3D \"corner\" (id 1) and Line3D \"edge\" (id 1)", sentence)

    def test_no_broken_stream_does_harm(self):
        stream = self.expect(FINE, "convert", "--to", "stream", self.write(tool.gap())).stdout
        for size in range(1, len(stream), 37):
            self.failure(INVALID, "info", "-", stdin=stream[:size])
        for place in range(0, len(stream), 23):
            spoilt = bytearray(stream)
            spoilt[place] ^= 0xFF
            self.assertIn(tool.run("check", "-", stdin=bytes(spoilt)).returncode, (FINE, INVALID), place)

    def spoilt(self, old, new):
        """A stream of two points, with other bytes in the second one."""
        document = Document()
        document.point(1.0, 2.0, 3.0, label="first")
        document.point(1.0, 2.0, 3.25, label="last")
        stream = self.expect(FINE, "convert", "--to", "stream", self.write(document)).stdout
        self.assertEqual(stream.count(old), 1)
        return stream.replace(old, new)

    def test_objects_that_no_document_holds_are_named(self):
        other = self.write(tool.gap())
        for stream, told in (
                (self.spoilt(struct.pack("<d", 3.25), struct.pack("<d", math.nan)),
                 'at Point3D "last" (id 2): Non-finite number cannot be written as JSON.'),
                (self.spoilt(b"last", b"la\xe9t"),
                 'at Point3D "la\\xe9t" (id 2): Text that is not valid UTF-8 cannot be written as JSON.')):
            for command in (("convert", "-"), ("diff", "-", other)):
                self.assertEqual(self.failure(INVALID, *command, stdin=stream),
                                 "Standard input cannot be written as a document " + told)

    def test_labels_that_are_no_text_have_a_place_in_reports(self):
        rows = self.report(FINE, "solve", "-", stdin=self.spoilt(b"last", b"la\xe9t"))["freedoms"]
        self.assertEqual([row["label"] for row in rows], ["first", "la\\xe9t"])

    def test_stream_stands_alone_and_whole(self):
        stream = self.expect(FINE, "convert", "--to", "stream", self.write(tool.gap())).stdout
        size = len(stream)
        for text, told in ((stream[:100], f"neither a document nor a whole stream: it would have {size} bytes and has 100."),
                           (stream + b"\n", f"nor one stream alone: 1 byte stands behind its end at offset {size}."),
                           (stream * 2, f"nor one stream alone: {size} bytes stand behind its end at offset {size}.")):
            self.assertIn(told, self.failure(INVALID, "info", "-", stdin=text))
        self.expect(FINE, "info", "-", stdin=stream)

    def test_stream_of_something_else(self):
        """A block that holds an empty list of geometries, and then no list."""
        self.assertIn("reading ended behind 0 geometries and 0 constraints",
                      self.failure(INVALID, "info", "-", stdin=b"\x30\x05\0\0\0\x30\0\0\0\0"))

    def test_unknown_form(self):
        self.assertIn("FORM", tool.run("convert", "--help").stdout.decode())
        self.assertIn("--to", self.failure(USAGE, "convert", "--to", "picture", self.write(tool.gap())))


class Diff(tool.ToolTest):
    def differences(self, code, first, second, *options):
        rows = self.report(code, "diff", *options, self.write(first, "1.json"), self.write(second, "2.json"))
        self.assertEqual(rows["equal"], code == FINE)
        return [(row["change"], row["pointer"], row["id"], row["first"], row["second"]) for row in rows["differences"]]

    def test_same_documents(self):
        self.assertEqual(self.differences(FINE, tool.gap(), tool.gap()), [])

    def test_values_up_to_the_tolerance(self):
        other = tool.gap()
        other.root["objects"][0]["loc"][1] = 4.25
        self.assertEqual(self.differences(DIFFERENT, tool.gap(), other), [("changed", "/objects/0/loc/1", 1, 4.0, 4.25)])
        self.assertEqual(self.differences(FINE, tool.gap(), other, "--tolerance", "0.25"), [])

    def test_objects_belong_together_by_identifier(self):
        other = tool.gap()
        objects = other.root["objects"]
        objects.insert(0, {"type": "Point3D", "loc": [9.0, 9.0, 9.0], "id": 99})
        for constraint in other.root["constraints"][:2]:
            constraint["arguments"] = [place + 1 for place in constraint["arguments"]]
        added = [("onlyInSecond", "/objects/0", 99, None, None)]
        self.assertEqual(self.differences(DIFFERENT, tool.gap(), other), added)
        removed = [("onlyInFirst", "/objects/0", 99, None, None)]
        self.assertEqual(self.differences(DIFFERENT, other, tool.gap()), removed)
        # The same places now name other objects.
        other.root["constraints"][0]["arguments"] = [1, 0]
        self.assertEqual([row[1:3] for row in self.differences(DIFFERENT, tool.gap(), other)],
                         [("/objects/0", 99), ("/constraints/0/arguments/1", 4)])

    def test_further_keys_and_root(self):
        other = tool.gap()
        other.root["constraints"][0]["label"] = "room"
        other.root["constraints"][0]["maxLimit"] = 5.0
        other.root["LinearTolerance"] = 1e-3
        self.assertEqual(self.differences(DIFFERENT, tool.gap(), other), [
            ("changed", "/constraints/0/label", 4, "gap", "room"), ("changed", "/constraints/0/maxLimit", 4, None, 5.0),
            ("changed", "/LinearTolerance", None, 1e-6, 1e-3)])

    def test_keys_of_others_are_compared(self):
        first, second = tool.gap(), tool.gap()
        first.root.update({"author": "me", "a/b~c": {"size": [1.0, 2.0]}, "maxId": 9})
        second.root.update({"author": "you", "a/b~c": {"size": [1.0, 2.5]}, "dragVariables": []})
        self.assertEqual(self.differences(DIFFERENT, first, second), [
            ("changed", "/author", None, "me", "you"), ("changed", "/a~1b~0c/size/1", None, 2.0, 2.5),
            ("changed", "/maxId", None, 9, None), ("changed", "/dragVariables", None, None, [])])
        self.assertEqual(self.differences(FINE, first, first), [])
        # What says nothing is not written either.
        second = tool.gap()
        second.root.update(ReferenceGeometries=[], dragTranslations=[])
        self.assertEqual(self.differences(FINE, tool.gap(), second), [])

    def test_two_standard_inputs(self):
        self.failure(USAGE, "diff", "-", "-")


ROBOT = b"""<robot name="arm">
  <link name="base"/>
  <link name="tip"><glow/></link>
  <joint name="swing" type="revolute">
    <parent link="base"/>
    <child link="tip"/>
    <origin xyz="0 0 1"/>
    <axis xyz="0 1 0"/>
    %s
  </joint>
</robot>
"""


class Import(tool.ToolTest):
    def test_lenient_import_becomes_a_document(self):
        output = self.folder / "arm.json"
        robot = self.write(ROBOT % b'<limit lower="-1" upper="2"/>', "arm.urdf")
        report = self.report(FINE, "import", "--lenient", "--out", output, robot)
        self.assertEqual((report["imported"], report["robot"]), (True, "arm"))
        self.assertEqual([(row["severity"], row["line"], row["name"]) for row in report["findings"]],
                         [("warning", 3, "glow")])
        self.report(FINE, "check", output)
        mate, = (item for item in json.loads(output.read_text())["constraints"] if item["type"] == "RevoluteMate3D")
        self.assertEqual((mate["angleMin"], mate["angleMax"]), (-1.0, 2.0))
        self.assertEqual(self.report(FINE, "solve", output)["freedom"], 1)
        self.assertEqual(self.expect(FINE, "--quiet", "import", "--lenient", "-", stdin=robot.read_bytes()).stdout,
                         output.read_bytes())

    def test_strict_import_names_the_line(self):
        robot = self.write(ROBOT % b"", "arm.urdf")
        output = self.folder / "arm.json"
        result = self.expect(INVALID, "import", "--out", output, robot)
        self.assertIn(f"{robot}:3: ", result.stderr.decode())
        report = self.report(INVALID, "import", "--out", output, robot)
        self.assertFalse(report["imported"])
        self.expect_files("arm.urdf")

    def test_strict_import_tells_what_to_do(self):
        robot = self.write(ROBOT % b"", "arm.urdf")
        self.assertEqual(self.failure(INVALID, "--quiet", "import", robot),
                         f"{robot}:3: link \"tip\": <glow> is not known. 1 further error follows. "
                         "With --lenient there are warnings instead.")
        robot = self.write((ROBOT % b"").replace(b'"0 0 1"', b'"0 0"'), "arm.urdf")
        self.assertEqual(self.failure(INVALID, "--quiet", "import", robot),
                         f"{robot}:3: link \"tip\": <glow> is not known. 2 further errors follow.")

    def test_loops_from_standard_input(self):
        robot = self.write(ROBOT % b'<limit lower="-1" upper="2"/>', "arm.urdf")
        loops = b"closed_loop: [[base, tip]]\ntype: [3d]\nmotor: x\n"
        report = self.report(FINE, "import", "--lenient", "--loops", "-", "--out", self.folder / "arm.json", robot, stdin=loops)
        self.assertEqual([(row["file"], row["line"], row["name"]) for row in report["findings"]],
                         [(str(robot), 3, "glow"), ("Standard input", 3, "motor")])
        kinds = [item["type"] for item in json.loads((self.folder / "arm.json").read_text())["constraints"]]
        self.assertIn("Incidence3D", kinds)

    def test_report_and_document_do_not_share_standard_output(self):
        robot = self.write(ROBOT % b"", "arm.urdf")
        for options in ((), ("--out", "-")):
            self.assertEqual(self.failure(USAGE, "--json", "import", "--lenient", *options, robot),
                             "With --json the report takes standard output: name a file for the document with --out.")

    def test_files_that_are_not_there(self):
        self.assertIn("none.urdf", self.failure(IO_FAILURE, "import", self.folder / "none.urdf"))
        robot = self.write(ROBOT % b"", "arm.urdf")
        self.assertIn("none.yaml", self.failure(IO_FAILURE, "import", "--loops", self.folder / "none.yaml", robot))


if __name__ == "__main__":
    tool.main()
