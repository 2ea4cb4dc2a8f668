#include "data/serialization/3d/VrexObject3DDeserializer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/DocumentTexts.h"
#include "support/LogCapture.h"
#include "support/ProbeObject.h"
#include "support/SamplesRelations.h"

using nsDocumentTexts::constraintOf;
using nsDocumentTexts::Coordinates;
using nsDocumentTexts::coordinatesOf;
using nsDocumentTexts::documentOf;
using nsDocumentTexts::Elements;
using nsDocumentTexts::joined;
using nsDocumentTexts::LINE;
using nsDocumentTexts::OUT_OF_RANGE;
using nsDocumentTexts::POINT;
using nsDocumentTexts::read;
using nsDocumentTexts::refusal;

namespace {

/// The system of one constraint between two points, with further members.
VrexImmutableSystem3D withConstraint(const std::string& type, const std::string& members) {
    return read({.objects = joined({POINT, POINT}),
                 .variables = R"({"val": 2.5}, {"val": -1})",
                 .constraints = R"({"type": ")" + type + R"(", "arguments": [0, 1])" + members + "}"});
}

/// Reads a document into a system of another size.
class Filling {
public:
    explicit Filling(const Elements& elements, const VrexSerializationParameters& parameters = {})
        : m_json(documentOf(elements)), m_places(m_generator, parameters), m_parameters(parameters) {}

    std::string refusal(const VrexImmutableSystem3D& system) {
        return nsDocumentTexts::refusalOf([&] { fill(system); });
    }
    void fill(const VrexImmutableSystem3D& system) {
        VrexObject3DDeserializer reader(m_json, m_places, m_generator, m_parameters);
        system.accept(reader);
    }

private:
    LumoJson m_json;
    VrexIDGenerator m_generator{40};
    VrexSystem3DDeserializer m_places;
    VrexSerializationParameters m_parameters;
};

TEST(VrexObject3DDeserializer, EveryObjectNeedsAnElementOfItsArray) {
    using Geometries = std::vector<std::shared_ptr<VrexGeometry3D>>;
    const Elements one{.objects = POINT, .variables = R"({"val": 1})"};
    const auto point = makeSample<VrexPoint3D>();
    const VrexImmutableSystem3D points(Geometries{point, makeSample<VrexPoint3D>()}, {}, {}, {}, 1, 1, {},
                                       {});
    EXPECT_EQ(Filling(one).refusal(points), "There are no unvisited geometries left in the system.");
    EXPECT_EQ(coordinatesOf(point->getPosition()), (Coordinates{1, 2, 3}));
    const auto variable = makeSample<VrexGeometryVariable>();
    EXPECT_EQ(Filling(one).refusal({{}, {variable, variable}, {}, {}, 1, 1, {}, {}}),
              "There are no unvisited variables left in the system.");
    EXPECT_EQ(Filling(one).refusal({{}, {}, {makeSample<VrexParallelism3D>()}, {}, 1, 1, {}, {}}),
              "There are no unvisited constraints left in the system.");
    EXPECT_EQ(Filling(one).refusal({{}, {}, {}, {makeSample<VrexExpressionEquation>()}, 1, 1, {}, {}}),
              "There are no unvisited equations left in the system.");
}

TEST(VrexObject3DDeserializer, WhatTheSystemHasNoObjectForIsNotRead) {
    const VrexImmutableSystem3D system({makeSample<VrexPoint3D>()}, {}, {}, {}, 1, 1, {}, {});
    EXPECT_EQ(Filling({.objects = joined({POINT, "7"}), .constraints = "7"}).refusal(system), "");
}

TEST(VrexObject3DDeserializer, ArraysThatAreNoneAreRefused) {
    VrexIDGenerator generator;
    VrexSystem3DDeserializer places(generator, {});
    const auto json = LumoJson::parse(R"({"equations": {}})");
    EXPECT_EQ(nsDocumentTexts::refusalOf(
                  [&] { const VrexObject3DDeserializer reader(json, places, generator, {}); }),
              "The value at key equations is not an array.");
}

TEST(VrexObject3DDeserializer, ObjectsOfAnUnknownClassAreRefused) {
    VrexIDGenerator generator;
    VrexSystem3DDeserializer places(generator, {});
    const auto json = documentOf({});
    VrexObject3DDeserializer reader(json, places, generator, {});
    const LogCapture log;
    EXPECT_EQ(nsDocumentTexts::refusalOf([&] { ProbeObject::create(2)->accept(reader); }),
              "Deserializer: Not implemented");
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines().front().text,
              "VrexBaseObjectDeserializer::visitBaseObject(): Deserializer: Not implemented");
}

TEST(VrexObject3DDeserializer, TextsAndVectorsNameTheirKeyWhenTheyAreNone) {
    const auto json = LumoJson::parse(R"({"n": 1, "t": "x", "v": [1, 2, 3, "more"], "short": [1, 2],
                                          "mixed": [1, 2, "3"], "long": [0, 0, 2], "none": [0, 0, 0]})");
    using Reader = VrexObject3DDeserializer;
    const auto textRefusal = [&](const char* key) {
        return nsDocumentTexts::refusalOf([&] { Reader::getString(json, key); });
    };
    EXPECT_EQ(Reader::getString(json, "t"), "x");
    EXPECT_EQ(textRefusal("n"), "The value at key n is not a string.");
    EXPECT_EQ(textRefusal("missing"), "The value at key missing is not a string.");
    const auto vectorRefusal = [&](const char* key) {
        return nsDocumentTexts::refusalOf([&] { Reader::getVector3D(json, key); });
    };
    EXPECT_EQ(coordinatesOf(Reader::getVector3D(json, "v")), (Coordinates{1, 2, 3}));
    EXPECT_EQ(vectorRefusal("short"), "The value at key short is not a vector3d.");
    EXPECT_EQ(vectorRefusal("mixed"), "The value at key mixed is not a vector3d.");
    EXPECT_EQ(vectorRefusal("n"), "The value at key n is not a vector3d.");
    EXPECT_EQ(vectorRefusal("missing"), "The value at key missing is not a vector3d.");
    EXPECT_EQ(coordinatesOf(Reader::getNormalizedVector3D(json, "long")), (Coordinates{0, 0, 1}));
    EXPECT_EQ(coordinatesOf(Reader::getNormalizedVector3D(json, "none")), (Coordinates{0, 0, 0}));
}

TEST(VrexObject3DDeserializer, MissingCommonKeysGiveUnknown) {
    const auto system = read({.objects = POINT,
                              .variables = R"({"val": 1})",
                              .constraints = R"({"type": "Fixation3D", "arguments": [0]})",
                              .equations = R"({"type": "ExpressionEquation", "expression": "1",
                                               "descriptors": []})"});
    const auto& point = *system.geometries()[0];
    EXPECT_EQ(point.status(), VrexGeometryStatus::Unknown);
    EXPECT_EQ(point.getChangeStatus(), VrexGeometryChangeStatus::Unknown);
    EXPECT_EQ(system.variables()[0]->getChangeStatus(), VrexGeometryChangeStatus::Unknown);
    EXPECT_EQ(point.label(), "");
    EXPECT_TRUE(point.isDirty());
    const auto& fixation = constraintOf<VrexFixation3D>(system, 0);
    EXPECT_EQ(fixation.status(), VrexConstraintStatus::Unknown);
    EXPECT_EQ(fixation.satisfiedStatus(), VrexConstraintSatisfiedStatus::Unknown);
    EXPECT_EQ(fixation.solveMethodStatus(), VrexSolveMethodStatus::Unknown);
    EXPECT_EQ(fixation.alignment(), VrexConstraintAlignment::Current);
    EXPECT_EQ(fixation.orientation(), VrexConstraintOrientation::Current);
    EXPECT_EQ(fixation.getFixationType(), VrexFixation3DType::Complete3D);
    EXPECT_FALSE(fixation.helpPoint1() || fixation.helpPoint2());
    EXPECT_FALSE(fixation.helpParam1() || fixation.helpParam2());
    EXPECT_EQ(system.equations()[0]->conditionType(), VrexEquationConditionType::equalToZero);
}

TEST(VrexObject3DDeserializer, FreshIdentifiersGoInTheOrderOfTheVisit) {
    VrexIDGenerator generator(40);
    VrexSystem3DDeserializer deserializer(generator, {.ignoreObjectIds = true});
    VrexImmutableSystem3D system;
    deserializer.deserialize(
        documentOf({.objects = joined({R"({"type": "Point3D", "loc": [0,0,0], "id": 7})", POINT}),
                    .variables = R"({"val": 1, "id": "not read"}, {"val": 2})",
                    .constraints = R"({"type": "Fixation3D", "arguments": [0], "id": 1})",
                    .equations = R"({"type": "LinearEquation", "coef": 0, "multipliers": [],
                                     "descriptors": [], "id": 2})"}),
        system);
    EXPECT_EQ(system.geometries()[0]->getID(), 40U);
    EXPECT_EQ(system.geometries()[1]->getID(), 41U);
    EXPECT_EQ(system.variables()[0]->getID(), 42U);
    EXPECT_EQ(system.variables()[1]->getID(), 43U);
    EXPECT_EQ(system.constraints()[0]->getID(), 44U);
    EXPECT_EQ(system.equations()[0]->getID(), 45U);
    EXPECT_EQ(generator.getNext(), 46U);
}

TEST(VrexObject3DDeserializer, IdentifiersAreWholeNumbersOf64Bits) {
    const auto withId = [](const std::string& id) {
        return Elements{.objects = R"({"type": "Point3D", "loc": [0,0,0], "id": )" + id + "}"};
    };
    EXPECT_EQ(read(withId("18446744073709551615")).geometries()[0]->getID(), 18446744073709551615U);
    EXPECT_EQ(read(withId("0")).geometries()[0]->getID(), 0U);
    EXPECT_EQ(refusal(withId("-1")), "The value at key id is not an unsigned integer.");
    EXPECT_EQ(refusal(withId("1.5")), "The value at key id is not an unsigned integer.");
    EXPECT_EQ(refusal(withId("\"1\"")), "The value at key id is not a number.");
    EXPECT_EQ(refusal(withId("null")), "The value at key id is not a number.");
}

TEST(VrexObject3DDeserializer, TheStatusOfOlderDocumentsTellsWhetherItIsSatisfied) {
    using enum VrexConstraintSatisfiedStatus;
    struct Row {
        std::string members;
        VrexConstraintStatus status;
        VrexConstraintSatisfiedStatus satisfied;
    };
    for (const auto& [members, status, satisfied] : std::vector<Row>{
             {R"(, "status": "Satisfied")", VrexConstraintStatus::Unknown, Satisfied},
             {R"(, "status": "NotSatisfied")", VrexConstraintStatus::Unknown, NotSatisfied},
             {R"(, "status": "NotSatisfied", "satisfiedStatus": "Satisfied")", VrexConstraintStatus::Unknown,
              NotSatisfied},
             {R"(, "status": "Regular", "satisfiedStatus": "Satisfied")", VrexConstraintStatus::Regular,
              Satisfied},
             {R"(, "status": "Overdefined")", VrexConstraintStatus::Overdefined, Unknown},
             {R"(, "status": "Unknown")", VrexConstraintStatus::Unknown, Unknown},
         }) {
        const auto system = withConstraint("Parallelism3D", members);
        EXPECT_EQ(system.constraints()[0]->status(), status) << members;
        EXPECT_EQ(system.constraints()[0]->satisfiedStatus(), satisfied) << members;
    }
}

TEST(VrexObject3DDeserializer, UnknownTextsOfEnumerationsAreRefusedByName) {
    const std::string point = R"({"type": "Point3D", "loc": [0, 0, 0])";
    EXPECT_EQ(refusal({.objects = point + R"(, "status": "Solved"})"}),
              "out_of_range: Failed to convert the string \"Solved\" to enum VrexGeometryStatus.");
    EXPECT_EQ(refusal({.objects = point + R"(, "changeStatus": "changed"})"}),
              "out_of_range: Failed to convert the string \"changed\" to enum VrexGeometryChangeStatus.");
    const auto constraint = [](const std::string& members) {
        return nsDocumentTexts::refusalOf([&] { withConstraint("Parallelism3D", members); });
    };
    EXPECT_EQ(constraint(R"(, "status": "satisfied")"),
              "out_of_range: Failed to convert the string \"satisfied\" to enum VrexConstraintStatus.");
    EXPECT_EQ(constraint(R"(, "satisfiedStatus": "")"),
              "out_of_range: Failed to convert the string \"\" to enum VrexConstraintSatisfiedStatus.");
    EXPECT_EQ(constraint(R"(, "solveMethodStatus": "By hand")"),
              "out_of_range: Failed to convert the string \"By hand\" to enum VrexSolveMethodStatus.");
    EXPECT_EQ(constraint(R"(, "alignment": "any")"),
              "out_of_range: Failed to convert the string \"any\" to enum VrexConstraintAlignment.");
    EXPECT_EQ(constraint(R"(, "orientation": "?")"),
              "out_of_range: Failed to convert the string \"?\" to enum VrexConstraintOrientation.");
}

TEST(VrexObject3DDeserializer, HelpParametersComeInPairs) {
    const auto whole = withConstraint("Parallelism3D", R"(, "helpParameterU1": 1, "helpParameterV1": 2,
        "helpParameterU2": 3, "helpParameterV2": 4, "helpPoint1": [5, 6, 7], "helpPoint2": [8, 9, 10],
        "fixHelpParameter1": true, "fixHelpParameter2": true)");
    const auto& all = *whole.constraints()[0];
    EXPECT_EQ(all.helpParam1()->x(), 1.0);
    EXPECT_EQ(all.helpParam1()->y(), 2.0);
    EXPECT_EQ(all.helpParam2()->x(), 3.0);
    EXPECT_EQ(all.helpParam2()->y(), 4.0);
    EXPECT_EQ(coordinatesOf(all.helpPoint1().value()), (Coordinates{5, 6, 7}));
    EXPECT_EQ(coordinatesOf(all.helpPoint2().value()), (Coordinates{8, 9, 10}));
    EXPECT_TRUE(all.fixHelpParameter1() && all.fixHelpParameter2());
    const auto halves = withConstraint("Parallelism3D", R"(, "helpParameterU1": 1, "helpParameterV2": 4,
        "fixHelpParameter1": false)");
    const auto& none = *halves.constraints()[0];
    EXPECT_FALSE(none.helpParam1() || none.helpParam2());
    EXPECT_FALSE(none.fixHelpParameter1() || none.fixHelpParameter2());
}

TEST(VrexObject3DDeserializer, ADimensionTakesItsValueBeforeItsVariable) {
    const auto system = withConstraint("Distance3D", R"(, "value": 9, "rigid": true, "minLimit": -1,
        "variable": 1)");
    const auto& distance = constraintOf<VrexDistance3D>(system, 0);
    EXPECT_EQ(distance.value(), -1.0);
    EXPECT_EQ(distance.getVariable(), system.variables()[1]);
    EXPECT_EQ(system.variables()[1]->getValue(), -1.0);
    EXPECT_TRUE(distance.isRigid());
    EXPECT_EQ(distance.getLimits(), (VrexDimensionLimits{-1.0, std::nullopt}));
    const auto refused = [](const std::string& members) {
        return nsDocumentTexts::refusalOf([&] { withConstraint("Distance3D", members); });
    };
    EXPECT_EQ(refused(""), "The value at key value is not a number.");
    EXPECT_EQ(refused(R"(, "value": 1, "variable": 2)"), OUT_OF_RANGE);
    EXPECT_EQ(refused(R"(, "value": 1, "variable": -1)"),
              "The value at key variable is not an unsigned integer.");
}

TEST(VrexObject3DDeserializer, TheTypeOfARadiusIsThatOfItsKind) {
    const std::string ellipse =
        R"({"type": "Ellipse3D", "cen": [0,0,0], "norm": [0,0,1], "dir": [1,0,0], "maj": 2, "min": 1})";
    const auto system = read({.objects = ellipse, .constraints = R"(
        {"type": "MinorRadius3D", "arguments": [0], "radType": "MajorRadius3D", "value": 1},
        {"type": "MajorRadius3D", "arguments": [0], "radType": 7, "value": 1},
        {"type": "Radius3D", "arguments": [0], "value": 1})"});
    EXPECT_EQ(constraintOf<VrexRadius3D>(system, 0).getRadiusType(), VrexRadius3DType::MinorRadius3D);
    EXPECT_EQ(constraintOf<VrexRadius3D>(system, 1).getRadiusType(), VrexRadius3DType::MajorRadius3D);
    EXPECT_EQ(constraintOf<VrexRadius3D>(system, 2).getRadiusType(), VrexRadius3DType::Radius3D);
}

TEST(VrexObject3DDeserializer, DescriptorsTellTypePlaceAndIndex) {
    const auto refused = [](const std::string& descriptor) {
        return refusal({.objects = POINT,
                        .equations = R"({"type": "ExpressionEquation", "expression": "1",
                                                        "descriptors": [)" +
                                     descriptor + "]}"});
    };
    EXPECT_EQ(refused(R"({"type": "Geometry", "object": 0, "index": 4294967295})"), "");
    EXPECT_EQ(refused(R"({"object": 0, "index": 0})"), "Equation descriptor must contain a type!");
    EXPECT_EQ(refused("null"), "Equation descriptor must contain a type!");
    EXPECT_EQ(refused(R"({"type": 2})"), "The value at key type is not a string.");
    EXPECT_EQ(refused(R"({"type": "Equation", "index": 0})"),
              "Unknown value of the equation descriptor type.");
    EXPECT_EQ(refused(R"({"type": "Geometry", "object": 0})"), "The value at key index is not a number.");
    EXPECT_EQ(refused(R"({"type": "Geometry", "object": 0, "index": 4294967296})"),
              "The value at key index is not an unsigned integer.");
    EXPECT_EQ(refused(R"({"type": "Geometry", "index": 0})"), "The value at key object is not a number.");
    EXPECT_EQ(refused(R"({"type": "Variable", "index": 0})"),
              "The value at key variableIndex is not a number.");
    EXPECT_EQ(refused(R"({"type": "Constraint", "index": 0})"),
              "The value at key constraint is not a number.");
    EXPECT_EQ(refused(R"({"type": "Geometry", "object": 1, "index": 0})"), OUT_OF_RANGE);
    EXPECT_EQ(refused(R"({"type": "Variable", "variableIndex": 0, "index": 0})"), OUT_OF_RANGE);
    EXPECT_EQ(refused(R"({"type": "Constraint", "constraint": 0, "index": 0})"), OUT_OF_RANGE);
    EXPECT_EQ(refused(R"({"type": "Geometry", "object": 0, "index": 0, "name": 5})"),
              "The value at key name is not a string.");
}

TEST(VrexObject3DDeserializer, NamesOfALinearEquationAreMadeAnew) {
    const auto system = read({.objects = R"({"type": "Point3D", "loc": [1, 2, 3], "id": 17})",
                              .variables = R"({"val": 1, "id": 4})",
                              .equations = R"({"type": "LinearEquation", "coef": 2, "multipliers": [3, 4],
                                               "conditionType": "lessThanZero", "descriptors": [
                                               {"index": 2, "type": "Geometry", "object": 0},
                                               {"index": 0, "type": "Variable", "variableIndex": 0}]})"});
    const auto& equation = dynamic_cast<const VrexCallbackEquation&>(*system.equations()[0]);
    EXPECT_EQ(equation.descriptors()[0].variableName(), "p17_2");
    EXPECT_EQ(equation.descriptors()[1].variableName(), "v4");
    EXPECT_EQ(equation.conditionType(), VrexEquationConditionType::lessThanZero);
    const auto* const callback = equation.callback().target<VrexLinearEquationCallback>();
    ASSERT_NE(callback, nullptr);
    EXPECT_EQ(callback->constant(), 2.0);
    EXPECT_EQ(callback->coefficients(), (std::vector<double>{3.0, 4.0}));
}

std::string instanceRefusal(const std::string& coefficients) {
    const std::string pattern = R"({"type": "Pattern3D", "axis": 0, "patternType": "Linear3D", "value": 3})";
    return refusal({.objects = joined(
                        {LINE, pattern, R"({"type": "ArrayPattern3D", "arguments": [1, 1]})", POINT, POINT}),
                    .constraints = R"({"type": "Instance3D", "arguments": [3, 4, 2], "coefficients": )" +
                                   coefficients + "}"});
}

TEST(VrexObject3DDeserializer, AnInstanceHasACoefficientForEachPattern) {
    EXPECT_EQ(instanceRefusal("[3, -2]"), "");
    EXPECT_EQ(instanceRefusal("[3]"), "Instance3D constraint data is incorrect!");
    EXPECT_EQ(instanceRefusal("[3, -2, 1]"), "Instance3D constraint data is incorrect!");
    EXPECT_EQ(instanceRefusal("7"), "The value at key coefficients is not an array.");
    EXPECT_EQ(instanceRefusal("[3, 2.5]"), "The value at key coefficients is not an integer.");
    EXPECT_EQ(instanceRefusal("[3, null]"), "The value at key coefficients is not a number.");
}

TEST(VrexObject3DDeserializer, AnInstanceIsCheckedWhenItsGeometriesAreRead) {
    const auto curve = [](const std::string& x) {
        return R"({"type": "EvaluatedCurve3D", "cen": [0,0,0], "rot": 0, "axis": [0,0,1], "y": "0", "z": "0", "x": ")" +
               x + "\"}";
    };
    const auto refused = [&](const std::string& first, const std::string& second) {
        return refusal(
            {.objects =
                 joined({curve(first), curve(second), R"({"type": "ArrayPattern3D", "arguments": []})"}),
             .constraints = R"({"type": "Instance3D", "arguments": [0, 1, 2], "coefficients": []})"});
    };
    EXPECT_EQ(refused("t", "t"), "");
    EXPECT_EQ(refused("t", "2 * t"), "Instance3D constraint data is incorrect!");
}

std::string mates(const std::string& members) {
    return R"({"type": "SliderMate3D", "arguments": [0, 0], "distanceMin": -1, "distanceFix": true},
              {"type": "MateRelation3D", "arguments": "not read", "constraints": [0, 0])" +
           members + "}";
}

TEST(VrexObject3DDeserializer, MatesAndTheirRelationsTakeWhatIsThere) {
    const std::string connector = R"({"type": "Connector3D", "cen": [0,0,0], "rot": 0, "norm": [1,0,0]})";
    const auto system = read({.objects = connector,
                              .constraints = mates(R"(, "mateParameterIndexs": [1, 18446744073709551615])")});
    const auto& distance = constraintOf<VrexSliderMate3D>(system, 0).getDistance();
    EXPECT_EQ(distance.limits, (VrexDimensionLimits{-1.0, std::nullopt}));
    EXPECT_TRUE(distance.fixed());
    EXPECT_EQ(distance.value, 0.0);
    const auto& relation = constraintOf<VrexMateRelation3D>(system, 1);
    EXPECT_EQ(relation.getRatio(), 1.0);
    EXPECT_EQ(relation.getMateParameterIndexs(), (std::vector<std::uint64_t>{1, 18446744073709551615U}));
    const auto refused = [&](const std::string& members) {
        return refusal({.objects = connector, .constraints = mates(members)});
    };
    EXPECT_EQ(refused(""), "The value at key mateParameterIndexs is not an array.");
    EXPECT_EQ(refused(R"(, "mateParameterIndexs": [-1, 0])"),
              "The value at key mateParameterIndexs is not an unsigned integer.");
}

TEST(VrexObject3DDeserializer, AnIntervalTellsWhichDimensionOnlyIfItIsNotTheFirst) {
    const auto system = read({.variables = R"({"val": 1})", .constraints = R"(
        {"type": "MateDimensionInterval3D", "arguments": [0], "minLimit": 1, "maxLimit": 2,
         "dimensionType": "LinearDimension3D", "dimensionIndex": 18446744073709551615},
        {"type": "MateDimensionInterval3D", "arguments": [0], "dimensionType": "AngleDimension3D"})"});
    const auto& first = constraintOf<VrexMateDimensionInterval3D>(system, 0);
    EXPECT_EQ(first.dimensionIndex(), 18446744073709551615U);
    EXPECT_EQ(first.limit(), (VrexDimensionLimits{1.0, 2.0}));
    EXPECT_EQ(first.getMateDimensionType(), VrexMateDimensionInterval3DType::LinearDimension3D);
    EXPECT_EQ(first.variable(), system.variables()[0]);
    EXPECT_EQ(constraintOf<VrexMateDimensionInterval3D>(system, 1).dimensionIndex(), 0U);
}

} // namespace
