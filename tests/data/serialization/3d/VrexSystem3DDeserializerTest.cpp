#include "data/serialization/3d/VrexSystem3DDeserializer.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/DocumentTexts.h"
#include "support/JsonSamples.h"
#include "support/LogCapture.h"
#include "support/SamplesRelations.h"

using nsDocumentTexts::Coordinates;
using nsDocumentTexts::coordinatesOf;
using nsDocumentTexts::documentOf;
using nsDocumentTexts::Elements;
using nsDocumentTexts::expectRefused;
using nsDocumentTexts::geometryOf;
using nsDocumentTexts::jsonRefusal;
using nsDocumentTexts::LINE;
using nsDocumentTexts::OUT_OF_RANGE;
using nsDocumentTexts::POINT;
using nsDocumentTexts::read;
using nsDocumentTexts::readJson;
using nsDocumentTexts::refusal;
using nsDocumentTexts::VARIABLE;
using nsDocumentTexts::written;

namespace {

const std::string NO_GEOMETRY = "Failed to replay: geometry was not created!";
const std::string NO_CONSTRAINT = "Failed to replay: constraint was not created!";

std::string notAnArray(const std::string& key) {
    return std::string("The value at key ").append(key).append(" is not an array.");
}

TEST(VrexSystem3DDeserializer, AnEmptySystemComesBackFromValueAndText) {
    const VrexImmutableSystem3D empty({}, {}, {}, {}, 0.5, 0.25, {}, {});
    VrexSystem3DSerializer serializer{{}};
    ASSERT_TRUE(serializer.serialize(empty));
    for (const auto& json : {serializer.json(), LumoJson::parse(serializer.jsonStream())}) {
        const auto system = readJson(json);
        EXPECT_TRUE(system.geometries().empty() && system.variables().empty());
        EXPECT_TRUE(system.constraints().empty() && system.equations().empty());
        EXPECT_EQ(system.linearTolerance(), 0.5);
        EXPECT_EQ(system.angularTolerance(), 0.25);
        EXPECT_TRUE(system.transform().isEmpty());
    }
}

TEST(VrexSystem3DDeserializer, ADocumentHasBothTolerances) {
    const std::string linear =
        "The linear tolerance should be named: LinearTolerance, and should be a number.";
    const std::string angular =
        "The angular tolerance should be named: AngularTolerance, and should be a number.";
    EXPECT_EQ(jsonRefusal(LumoJson::parse(R"({"AngularTolerance": 1})")), linear);
    EXPECT_EQ(jsonRefusal(LumoJson::parse(R"({"LinearTolerance": "1", "AngularTolerance": 1})")), linear);
    EXPECT_EQ(jsonRefusal(LumoJson::parse(R"({"LinearTolerance": 1})")), angular);
    EXPECT_EQ(jsonRefusal(LumoJson::parse(R"({"LinearTolerance": 1, "AngularTolerance": null})")), angular);
    for (const auto& [value, type] : nsJsonSamples::TYPE_ROWS) {
        EXPECT_EQ(jsonRefusal(value), linear) << type;
    }
}

TEST(VrexSystem3DDeserializer, ArraysOfTheRootMayBeMissingButNothingElse) {
    EXPECT_EQ(jsonRefusal(LumoJson::parse(R"({"LinearTolerance": 1, "AngularTolerance": 1})")), "");
    for (const char* key : {"objects", "variables", "constraints", "equations", "ReferenceGeometries",
                            "dragTransforms", "dragTranslations", "dragParameters", "dragVariables"}) {
        for (const char* value : {"{}", "null", "1", "\"x\"", "true"}) {
            LumoJson json = LumoJson::parse(R"({"LinearTolerance": 1, "AngularTolerance": 1})");
            json[key] = LumoJson::parse(value);
            EXPECT_EQ(jsonRefusal(json), notAnArray(key)) << value;
        }
    }
}

TEST(VrexSystem3DDeserializer, WhatIsNoDragIsNotRead) {
    EXPECT_EQ(refusal({.further = R"("moveAndEvaluate": 7, "author": [], "solver": {"objects": 1})"}), "");
}

TEST(VrexSystem3DDeserializer, GeometriesNeedAKnownType) {
    const std::string missing = "The geometry type should be named \"type\"!";
    expectRefused({
        {{.objects = R"({"loc": [0, 0, 0]})"}, missing},
        {{.objects = "null"}, missing},
        {{.objects = "3"}, missing},
        {{.objects = "\"Point3D\""}, missing},
        {{.objects = "[]"}, missing},
        {{.objects = R"({"type": 0})"}, "The value at key type is not a string."},
        {{.objects = R"({"type": null})"}, "The value at key type is not a string."},
        {{.objects = R"({"type": "Unknown"})"}, "Failed to replay: geometry not implemented!"},
        {{.objects = R"({"type": "point3d"})"},
         "out_of_range: Failed to convert the string \"point3d\" to enum VrexGeometry3DType."},
    });
}

TEST(VrexSystem3DDeserializer, ConstraintsNeedAKnownType) {
    const std::string missing = "The constraint type should be named \"type\"!";
    expectRefused({
        {{.constraints = R"({"arguments": []})"}, missing},
        {{.constraints = "null"}, missing},
        {{.constraints = R"({"type": []})"}, "The value at key type is not a string."},
        {{.constraints = R"({"type": "Unknown"})"}, "Failed to replay: constriant not implemented!"},
        {{.constraints = R"({"type": "Distance"})"},
         "out_of_range: Failed to convert the string \"Distance\" to enum VrexConstraint3DType."},
    });
}

TEST(VrexSystem3DDeserializer, EquationsNeedAKnownType) {
    expectRefused({
        {{.equations = R"({"expression": "1"})"}, "Equation must contain a type!"},
        {{.equations = "[]"}, "Equation must contain a type!"},
        {{.equations = R"({"type": 1})"}, "The value at key type is not a string."},
        {{.equations = R"({"type": "Unknown"})"}, "Unknown value of the equation type."},
        {{.equations = R"({"type": "GenericCallback", "callback": 4702111234474983745, "descriptors": []})"},
         "Can not replay callback equation."},
        {{.equations = R"({"type": "ExpressionEquation", "conditionType": "equal"})"},
         "out_of_range: Failed to convert the string \"equal\" to enum VrexEquationConditionType."},
        {{.equations = R"({"type": "LinearEquation", "multipliers": []})"},
         "The value at key coef is not a number."},
        {{.equations = R"({"type": "LinearEquation", "coef": 1})"}, notAnArray("multipliers")},
        {{.equations = R"({"type": "LinearEquation", "coef": 1, "multipliers": [1, "2"]})"},
         "The value at key multipliers is not a number."},
    });
}

TEST(VrexSystem3DDeserializer, AGenericCallbackIsWrittenButCannotBeRead) {
    const VrexImmutableSystem3D system(
        {}, {}, {}, {VrexCallbackEquation::create(VrexEquationConditionType::equalToZero, {})}, 1.0, 1.0, {},
        {});
    EXPECT_EQ(jsonRefusal(written(system)), "Can not replay callback equation.");
}

TEST(VrexSystem3DDeserializer, FailuresAreLogged) {
    const LogCapture log;
    EXPECT_EQ(refusal({.objects = R"({"type": "Unknown"})"}), "Failed to replay: geometry not implemented!");
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines().front().level, 1U);
    EXPECT_EQ(log.lines().front().text,
              "nsGeometryReplay::create(): Failed to replay: geometry not implemented!");
}

TEST(VrexSystem3DDeserializer, PartsStandBeforeWhatIsMadeOfThem) {
    const std::string set = R"({"type": "RigidSet3D", "cen": [0,0,0], "norm": [0,0,1], "dir": [1,0,0],)";
    const auto withMembers = [&](const std::string& members) {
        return Elements{.objects = POINT + ", " + set + R"("arguments": )" + members + "}, " + POINT};
    };
    EXPECT_EQ(refusal(withMembers("[0, 0]")), "");
    expectRefused({
        {withMembers("[2]"), OUT_OF_RANGE},
        {withMembers("[1]"), OUT_OF_RANGE},
        {withMembers("[18446744073709551615]"), OUT_OF_RANGE},
        {withMembers("[-1]"), "The value at key arguments is not an unsigned integer."},
        {withMembers("[0.5]"), "The value at key arguments is not an unsigned integer."},
        {withMembers("[1e300]"), "The value at key arguments is not an unsigned integer."},
        {withMembers("[18446744073709551616]"), "The value at key arguments is not an unsigned integer."},
        {withMembers("[\"0\"]"), "The value at key arguments is not a number."},
        {withMembers("[null]"), "The value at key arguments is not a number."},
        {withMembers("{}"), notAnArray("arguments")},
        {withMembers("0"), notAnArray("arguments")},
    });
}

/// A geometry that is made of others, and arguments that do not fit.
TEST(VrexSystem3DDeserializer, PartsAreOfTheKindThatTheirOwnerNeeds) {
    const std::string both = POINT + ", " + LINE + ", ";
    const std::string circle = R"({"type": "Circle3D", "cen": [0,0,0], "norm": [0,0,1], "rad": 1}, )";
    expectRefused({
        {{.objects = both + R"({"type": "Connector3D", "arguments": [0]})"}, NO_GEOMETRY},
        {{.objects = both + R"({"type": "SpinSurface3D", "profileSurface": 0, "axis": 1})"}, NO_GEOMETRY},
        {{.objects = circle + R"({"type": "SpinSurface3D", "profileSurface": 0, "axis": 0})"}, NO_GEOMETRY},
        {{.objects = circle + R"({"type": "SweepSurface3D", "profileCurve": 0, "trajectoryLine": 0})"},
         NO_GEOMETRY},
        {{.objects = both + R"({"type": "Pattern3D", "axis": 0})"}, NO_GEOMETRY},
        {{.objects = both + R"({"type": "ArrayPattern3D", "arguments": [1]})"}, NO_GEOMETRY},
        {{.objects = both + R"({"type": "Spline3D", "points": [0, 1]})"}, NO_GEOMETRY},
        {{.objects = both + R"({"type": "NurbsSurface3D", "controlPoints": [1]})"}, NO_GEOMETRY},
        {{.objects = both + R"({"type": "SpinSurface3D", "axis": 1})"},
         "The value at key profileSurface is not a number."},
        {{.objects = both + R"({"type": "SweepSurface3D", "profileCurve": 1})"},
         "The value at key trajectoryLine is not a number."},
        {{.objects = both + R"({"type": "Pattern3D"})"}, "The value at key axis is not a number."},
        {{.objects = both + R"({"type": "SpinSurface3D", "profileSurface": 2, "axis": 1})"}, OUT_OF_RANGE},
    });
}

TEST(VrexSystem3DDeserializer, PointsAreReadOnlyWithoutArguments) {
    const auto elements = [](const std::string& arguments) {
        return Elements{.objects = POINT + ", " + LINE + R"(, {"type": "RigidSet3D", "cen": [0,0,0],)" +
                                   R"("norm": [0,0,1], "dir": [1,0,0], )" + arguments + "}"};
    };
    const auto membersOf = [](const VrexImmutableSystem3D& system) {
        return dynamic_cast<const VrexRigidSet3D&>(*system.geometries().at(2)).geometries();
    };
    const auto byPoints = read(elements(R"("points": [1, 0])"));
    EXPECT_EQ(membersOf(byPoints), (std::vector{byPoints.geometries().at(1), byPoints.geometries().at(0)}));
    const auto byArguments = read(elements(R"("arguments": [0], "points": [1, 7])"));
    EXPECT_EQ(membersOf(byArguments), (std::vector{byArguments.geometries().at(0)}));
}

TEST(VrexSystem3DDeserializer, ArgumentsOfConstraintsFitTheirKind) {
    const std::string point = POINT + ", " + POINT + ", " + LINE;
    const auto one = [&](const std::string& constraint) {
        return Elements{.objects = point, .variables = VARIABLE, .constraints = constraint};
    };
    expectRefused({
        {one(R"({"type": "Distance3D"})"), NO_CONSTRAINT},
        {one(R"({"type": "Distance3D", "arguments": [0]})"), NO_CONSTRAINT},
        {one(R"({"type": "Distance3D", "arguments": [0, 3]})"), OUT_OF_RANGE},
        {one(R"({"type": "Distance3D", "arguments": [0, -1]})"),
         "The value at key arguments is not an unsigned integer."},
        {one(R"({"type": "Distance3D", "arguments": "01"})"), notAnArray("arguments")},
        {one(R"({"type": "DirectionDistance3D", "arguments": [0, 2]})"), NO_CONSTRAINT},
        {one(R"({"type": "ParallelDistance3D", "arguments": [0, 1]})"), NO_CONSTRAINT},
        {one(R"({"type": "Symmetry3D", "arguments": [0, 1, 2]})"), NO_CONSTRAINT},
        {one(R"({"type": "MidPoint3D", "arguments": [0, 1, 2]})"), NO_CONSTRAINT},
        {one(R"({"type": "CurveLength3D", "arguments": [2, 1, 2]})"), NO_CONSTRAINT},
        {one(R"({"type": "HalfAngle3D", "arguments": [0]})"), NO_CONSTRAINT},
        {one(R"({"type": "SurfaceNormal3D", "arguments": [0, 1]})"), NO_CONSTRAINT},
        {one(R"({"type": "PatternValue3D", "arguments": [0]})"), NO_CONSTRAINT},
        {one(R"({"type": "EqualDimensionValue3D", "arguments": [0]})"), NO_CONSTRAINT},
        {one(R"({"type": "EqualDimension3D", "arguments": [0]})"), NO_CONSTRAINT},
        {one(R"({"type": "EqualRadius3D", "arguments": [0]})"), NO_CONSTRAINT},
        {one(R"({"type": "FastenedMate3D", "arguments": [0, 1]})"), NO_CONSTRAINT},
        {one(R"({"type": "Instance3D", "arguments": [0, 1, 2]})"), NO_CONSTRAINT},
        {one(R"({"type": "EqualParameter3D", "arguments": [0]})"), NO_CONSTRAINT},
        {one(R"({"type": "EqualParameter3D", "arguments": [0], "constraints": [0]})"), OUT_OF_RANGE},
        {one(R"({"type": "VariableFixation3D", "arguments": []})"), NO_CONSTRAINT},
        {one(R"({"type": "VariableFixation3D", "arguments": [1]})"), OUT_OF_RANGE},
        {one(R"({"type": "VariableFixation3D", "arguments": [4294967296]})"), OUT_OF_RANGE},
        {one(R"({"type": "MateDimensionInterval3D"})"), NO_CONSTRAINT},
        {one(R"({"type": "MateRelation3D", "constraints": [0]})"), OUT_OF_RANGE},
        {one(R"({"type": "MateRelation3D", "constraints": {}})"), notAnArray("constraints")},
    });
}

TEST(VrexSystem3DDeserializer, ConstraintsNameOnlyThoseBeforeThemAndOfTheRightKind) {
    const std::string parallel = R"({"type": "Parallelism3D", "arguments": [0, 1]}, )";
    const std::string element = R"({"type": "EqualDimensionElement3D", "value": 1})";
    const auto elements = [&](const std::string& constraints) {
        return Elements{.objects = LINE + ", " + LINE + ", " + element, .constraints = constraints};
    };
    expectRefused({
        {elements(R"({"type": "EqualDimension3D", "arguments": [2], "constraints": [0]})"), OUT_OF_RANGE},
        {elements(parallel + R"({"type": "EqualDimension3D", "arguments": [2], "constraints": [0]})"),
         NO_CONSTRAINT},
        {elements(parallel + R"({"type": "MateRelation3D", "constraints": [0, 0]})"), NO_CONSTRAINT},
    });
}

TEST(VrexSystem3DDeserializer, HelpParametersArePairsOfIntegers) {
    const std::string distance = R"({"type": "Distance3D", "arguments": [0, 1], "value": 1}, )";
    const auto elements = [&](const std::string& pairs) {
        return Elements{.objects = POINT + ", " + POINT,
                        .constraints = distance + R"({"type": "EqualParameter3D", "arguments": [0], )" +
                                       R"("constraints": [0, 0])" + pairs + "}"};
    };
    const auto pairsOf = [&](const std::string& pairs) {
        return dynamic_cast<const VrexEqualParameter3D&>(*read(elements(pairs)).constraints().at(1))
            .getParameterIndices();
    };
    using Pairs = std::array<VrexEqualParameter3D::ParameterIndices, 2>;
    EXPECT_EQ(pairsOf(""), (Pairs{{{0, 0}, {0, 0}}}));
    EXPECT_EQ(pairsOf(R"(, "helpParameters": [[6, 7], [-8, 9]])"), (Pairs{{{6, 7}, {-8, 9}}}));
    EXPECT_EQ(pairsOf(R"(, "helpParameters": [[6, 7, 1], [8, 9], [0, 0]])"), (Pairs{{{6, 7}, {8, 9}}}));
    const std::string noPairs = "The value at key helpParameters is not an array of pairs.";
    expectRefused({
        {elements(R"(, "helpParameters": [[6, 7]])"), NO_CONSTRAINT},
        {elements(R"(, "helpParameters": [[6], [8, 9]])"), noPairs},
        {elements(R"(, "helpParameters": [6, 7])"), noPairs},
        {elements(R"(, "helpParameters": [{}, [8, 9]])"), noPairs},
        {elements(R"(, "helpParameters": {})"), notAnArray("helpParameters")},
        {elements(R"(, "helpParameters": [["6", 7], [8, 9]])"),
         "The value at key helpParameters is not a number."},
        {elements(R"(, "helpParameters": [[6.5, 7], [8, 9]])"),
         "The value at key helpParameters is not an integer."},
        {elements(R"(, "helpParameters": [[4294967296, 7], [8, 9]])"),
         "The value at key helpParameters is not an integer."},
    });
}

TEST(VrexSystem3DDeserializer, ComponentsAreStoredWhateverTheGeometry) {
    const auto system = read({.objects = POINT + ", " + LINE, .constraints = R"(
        {"type": "Parallelism3D", "arguments": [0, 1], "GeomComponent1": "Apex", "GeomComponent2": "Spine"},
        {"type": "Distance3D", "arguments": [0, 1], "value": 1, "GeomComponent2": "Minor"})"});
    const auto& parallelism = *system.constraints().at(0);
    EXPECT_EQ(parallelism.getGeomComponentType(1), VrexGeometryComponentType::APEX);
    EXPECT_EQ(parallelism.getGeomComponentType(2), VrexGeometryComponentType::SPINE);
    const auto& distance = *system.constraints().at(1);
    EXPECT_EQ(distance.getGeomComponentType(1), VrexGeometryComponentType::UNKNOWN);
    EXPECT_EQ(distance.getGeomComponentType(2), VrexGeometryComponentType::MINOR);
    EXPECT_EQ(refusal({.objects = POINT + ", " + LINE,
                       .constraints = R"({"type": "Angle3D", "arguments": [0, 1], "GeomComponent1": "?"})"}),
              "out_of_range: Failed to convert the string \"?\" to enum VrexGeometryComponentType.");
}

TEST(VrexSystem3DDeserializer, AConnectorMayHaveNoRigidSet) {
    const auto system = read(
        {.objects = R"({"type": "Connector3D", "arguments": [], "cen": [1,2,3], "rot": 0, "norm": [1,0,0]},
                            {"type": "Connector3D", "cen": [1,2,3], "rot": 0, "norm": [1,0,0]})"});
    for (const auto& geometry : system.geometries()) {
        EXPECT_EQ(dynamic_cast<const VrexConnector3D&>(*geometry).getRigidSet(), nullptr);
    }
}

TEST(VrexSystem3DDeserializer, ReferenceGeometriesArePlaces) {
    const auto system =
        read({.objects = POINT + ", " + LINE, .further = R"("ReferenceGeometries": [1, 1, 0])"});
    const auto& geometries = system.geometries();
    EXPECT_EQ(system.referenceGeometries(), (std::vector{geometries[1], geometries[1], geometries[0]}));
    EXPECT_EQ(refusal({.objects = POINT, .further = R"("ReferenceGeometries": [1])"}), OUT_OF_RANGE);
}

TEST(VrexSystem3DDeserializer, PlacesAreThoseOfTheLastDocument) {
    VrexIDGenerator generator;
    VrexSystem3DDeserializer deserializer(generator, {});
    VrexImmutableSystem3D first;
    VrexImmutableSystem3D second;
    const auto json = documentOf({.objects = POINT + ", " + LINE,
                                  .variables = VARIABLE,
                                  .constraints = R"({"type": "Parallelism3D", "arguments": [0, 1]})",
                                  .equations = R"({"type": "LinearEquation", "coef": 1, "multipliers": [],)"
                                               R"("descriptors": []})"});
    ASSERT_TRUE(deserializer.deserialize(json, first));
    ASSERT_TRUE(deserializer.deserialize(json, second));
    EXPECT_EQ(deserializer.geometry(1), second.geometries().at(1));
    EXPECT_EQ(deserializer.variable(0), second.variables().at(0));
    EXPECT_EQ(deserializer.constraint(0), second.constraints().at(0));
    EXPECT_EQ(deserializer.equation(0), second.equations().at(0));
    EXPECT_NE(first.geometries().at(1), second.geometries().at(1));
    EXPECT_THROW((void)deserializer.geometry(2), std::out_of_range);
    EXPECT_THROW((void)deserializer.variable(1), std::out_of_range);
    EXPECT_THROW((void)deserializer.constraint(1), std::out_of_range);
    EXPECT_THROW((void)deserializer.equation(std::numeric_limits<std::uint64_t>::max()), std::out_of_range);
    ASSERT_TRUE(deserializer.deserialize(documentOf({}), second));
    EXPECT_THROW((void)deserializer.geometry(0), std::out_of_range);
}

std::uint64_t nextIdAfter(const std::string& maxId, const VrexSerializationParameters& parameters) {
    VrexIDGenerator generator(500);
    VrexSystem3DDeserializer deserializer(generator, parameters);
    VrexImmutableSystem3D system;
    deserializer.deserialize(documentOf({.objects = POINT, .further = R"("maxId": )" + maxId}), system);
    return generator.next();
}

TEST(VrexSystem3DDeserializer, MaxIdSetsTheGeneratorForwardsAndBack) {
    EXPECT_EQ(nextIdAfter("100", {}), 101U);
    EXPECT_EQ(nextIdAfter("1000", {}), 1001U);
    EXPECT_EQ(nextIdAfter("0", {}), 1U);
    EXPECT_EQ(nextIdAfter("100", {.ignoreObjectIds = true}), 501U);
    EXPECT_EQ(nextIdAfter("\"not read\"", {.ignoreObjectIds = true}), 501U);
    EXPECT_EQ(nextIdAfter("18446744073709551614", {}), std::numeric_limits<std::uint64_t>::max());
    EXPECT_THROW(nextIdAfter("18446744073709551615", {}), std::out_of_range);
    EXPECT_EQ(refusal({.further = R"("maxId": "7")"}), "The value at key maxId is not a number.");
    EXPECT_EQ(refusal({.further = R"("maxId": -7)"}), "The value at key maxId is not an unsigned integer.");
}

TEST(VrexSystem3DDeserializer, IdentifiersThatAreMissingComeFromTheGenerator) {
    VrexIDGenerator generator(7);
    VrexSystem3DDeserializer deserializer(generator, {});
    VrexImmutableSystem3D system;
    deserializer.deserialize(
        documentOf(
            {.objects = POINT + R"(, {"type": "Point3D", "loc": [0,0,0], "id": 7})", .variables = VARIABLE}),
        system);
    EXPECT_EQ(system.geometries()[0]->getID(), 7U);
    EXPECT_EQ(system.geometries()[1]->getID(), 7U);
    EXPECT_EQ(system.variables()[0]->getID(), 8U);
    EXPECT_EQ(generator.getNext(), 9U);
}

TEST(VrexSystem3DDeserializer, AFailureBeforeAllIsCreatedLeavesTheSystem) {
    const auto point = makeSample<VrexPoint3D>();
    for (const Elements& elements :
         {Elements{.objects = R"({"type": "Unknown"})"}, Elements{.constraints = R"({"type": "Unknown"})"},
          Elements{.equations = "{}"}, Elements{.further = R"("ReferenceGeometries": [0])"},
          Elements{.further = R"("dragVariables": [{}])"}, Elements{.further = R"("dragTransforms": 1)"},
          Elements{.further = R"("dragTranslations": 1)"}, Elements{.further = R"("dragParameters": [1])"},
          Elements{.variables = "1", .further = R"("dragParameters": 1)"}}) {
        VrexImmutableSystem3D system({point}, {}, {}, {}, 3.0, 4.0, {}, {});
        EXPECT_NE(nsDocumentTexts::refusalOf([&] { deserialize(documentOf(elements), system, {}); }), "");
        EXPECT_EQ(system.geometries(), (std::vector<std::shared_ptr<VrexGeometry3D>>{point}));
        EXPECT_EQ(system.linearTolerance(), 3.0);
    }
}

TEST(VrexSystem3DDeserializer, AFailureWhileValuesAreReadLeavesObjectsHalfFilled) {
    VrexImmutableSystem3D system({makeSample<VrexPoint3D>()}, {}, {}, {}, 3.0, 4.0, {}, {});
    const Elements elements{.objects = POINT + R"(, {"type": "Point3D", "loc": [1]})", .variables = VARIABLE};
    EXPECT_EQ(nsDocumentTexts::refusalOf([&] { deserialize(documentOf(elements), system, {}); }),
              "The value at key loc is not a vector3d.");
    ASSERT_EQ(system.geometries().size(), 2U);
    EXPECT_EQ(coordinatesOf(geometryOf<VrexPoint3D>(system, 0).getPosition()), (Coordinates{1.0, 2.0, 3.0}));
    EXPECT_EQ(coordinatesOf(geometryOf<VrexPoint3D>(system, 1).getPosition()), (Coordinates{0.0, 0.0, 0.0}));
    EXPECT_EQ(system.variables().at(0)->getValue(), 0.0);
    EXPECT_EQ(system.linearTolerance(), 1e-6);
}

} // namespace
