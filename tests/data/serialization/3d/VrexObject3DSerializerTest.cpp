#include "data/serialization/3d/VrexObject3DSerializer.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/JsonDocuments.h"
#include "support/JsonSamples.h"
#include "support/Numbered.h"
#include "support/SamplesRelations.h"

namespace {

using nsJsonSamples::thrownText;
using nsJsonSamples::valueOf;
using testing::HasSubstr;
using testing::Not;

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
constexpr const char* NOT_YET_THERE =
    "Objects can only reference already serialized geometries. Try reordering the system.";

/// What writing throws, of whatever class.
std::string refusal(const JsonDocuments& lists) {
    try {
        (void)lists.json();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "written";
}

VrexSerializationParameters withRegularStatus() {
    VrexSerializationParameters parameters;
    parameters.writeRegularStatus = true;
    return parameters;
}

TEST(VrexObject3DSerializer, AnEmptyLabelHasNoKey) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    EXPECT_EQ((JsonDocuments{{point}}.last("objects")),
              R"({"type":"Point3D","loc":[1.0,2.0,3.0],"id":0,"changeStatus":"NotChanged"})");
    point->label() = "x";
    EXPECT_THAT((JsonDocuments{{point}}.last("objects")), HasSubstr(R"("label":"x")"));
}

TEST(VrexObject3DSerializer, TextsAreEscapedAndCheckedEverywhere) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    const std::string label("quote\" back\\ line\n null\0 \xC3\xA4", 27);
    point->label() = label;
    EXPECT_THAT((JsonDocuments{{point}}.last("objects")),
                HasSubstr(R"("label":"quote\" back\\ line\n null\u0000 )"
                          "\xC3\xA4\""));
    EXPECT_EQ(valueOf<std::string>(JsonDocuments{{point}}.json()["objects"][0]["label"]), label);
    point->label() = "\xFF";
    EXPECT_EQ(refusal({{point}}), "Text that is not valid UTF-8 cannot be written as JSON.");
}

TEST(VrexObject3DSerializer, NumbersThatAreNotFiniteAreRefused) {
    for (const double number : {std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(refusal({{VrexPoint3D::create(0.0, number, 0.0)}}),
                  "Non-finite number cannot be written as JSON.");
    }
}

TEST(VrexObject3DSerializer, IgnoredIdentifiersLeaveTheReferences) {
    const auto point = numbered(VrexPoint3D::create(1.0, 2.0, 3.0), 9);
    const auto set = numbered(VrexRigidSet3D::create({point}), 7);
    const JsonDocuments lists{{point, set},
                              {numbered(VrexGeometryVariable::create(1.0), 3)},
                              {numbered(VrexFixation3D::create(set, VrexFixation3DType::Complete3D), 4)}};
    VrexSerializationParameters parameters;
    parameters.ignoreObjectIds = true;
    const std::string text = lists.json(parameters).dump();
    EXPECT_THAT(text, Not(HasSubstr("\"id\"")));
    EXPECT_THAT(text, HasSubstr(R"("arguments":[0],"changeStatus")"));
    EXPECT_THAT(text, HasSubstr(R"({"arguments":[1],"fixType":"Complete3D")"));
    EXPECT_THAT(lists.json().dump(), HasSubstr("\"id\":9"));
}

TEST(VrexObject3DSerializer, TheLargestIdentifierIsWrittenWhole) {
    const auto point = numbered(makeSample<VrexPoint3D>(), std::numeric_limits<std::uint64_t>::max());
    EXPECT_THAT((JsonDocuments{{point}}.last("objects")), HasSubstr("\"id\":18446744073709551615,"));
}

TEST(VrexObject3DSerializer, AGeometryOfUnknownStatusHasNoStatusButAlwaysAChangeStatus) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    point->setChangeStatus(VrexGeometryChangeStatus::Unknown);
    EXPECT_EQ((JsonDocuments{{point}}.last("objects")),
              R"({"type":"Point3D","loc":[1.0,2.0,3.0],"id":0,"changeStatus":"Unknown"})");
}

TEST(VrexObject3DSerializer, ARegularConstraintHasAStatusOnlyIfAskedFor) {
    const auto point = makeSample<VrexPoint3D>();
    const auto fixation = VrexFixation3D::create(point, VrexFixation3DType::Complete3D);
    const JsonDocuments lists{{point}, {}, {fixation}};
    fixation->status() = VrexConstraintStatus::Regular;
    EXPECT_THAT(lists.last("constraints"), Not(HasSubstr("\"status\"")));
    EXPECT_THAT(lists.last("constraints", withRegularStatus()), HasSubstr(R"("status":"Regular")"));
    fixation->status() = VrexConstraintStatus::Unknown;
    EXPECT_THAT(lists.last("constraints", withRegularStatus()), Not(HasSubstr("\"status\"")));
    fixation->status() = VrexConstraintStatus::NotSolved;
    EXPECT_THAT(lists.last("constraints"), HasSubstr(R"("status":"NotSolved")"));
}

TEST(VrexObject3DSerializer, ARegularEquationHasAStatusOnlyIfAskedFor) {
    const auto equation = VrexExpressionEquation::create(VrexEquationConditionType::equalToZero);
    equation->status() = VrexConstraintStatus::Regular;
    const JsonDocuments lists{{}, {}, {}, {equation}};
    EXPECT_EQ(lists.last("equations"),
              R"({"type":"ExpressionEquation","expression":"","descriptors":[],"id":0,)"
              R"("solveMethodStatus":"Unknown"})");
    EXPECT_THAT(lists.last("equations", withRegularStatus()), HasSubstr(R"("status":"Regular")"));
}

TEST(VrexObject3DSerializer, ACurrentAlignmentHasNoKeyAndAnUnknownOneHas) {
    const auto point = makeSample<VrexPoint3D>();
    const auto fixation = VrexFixation3D::create(point, VrexFixation3DType::Complete3D);
    const JsonDocuments lists{{point}, {}, {fixation}};
    EXPECT_EQ(lists.last("constraints"),
              R"({"arguments":[0],"fixType":"Complete3D","id":0,"solveMethodStatus":"Unknown",)"
              R"("type":"Fixation3D"})");
    fixation->alignment() = VrexConstraintAlignment::Unknown;
    fixation->orientation() = VrexConstraintOrientation::Unknown;
    EXPECT_THAT(lists.last("constraints"), HasSubstr(R"("alignment":"Unknown","orientation":"Unknown")"));
}

TEST(VrexObject3DSerializer, ValuesOutsideTheTablesAreRefused) {
    const auto point = makeSample<VrexPoint3D>();
    const auto fixation = VrexFixation3D::create(point, static_cast<VrexFixation3DType>(8));
    const JsonDocuments lists{{point}, {}, {fixation}};
    EXPECT_THROW((void)lists.json(), std::out_of_range);
    EXPECT_EQ(refusal(lists), "Failed to convert enum VrexFixation3DType(8) to string.");
    fixation->setFixationType(VrexFixation3DType::Complete3D);
    fixation->alignment() = static_cast<VrexConstraintAlignment>(-2);
    EXPECT_EQ(refusal(lists), "Failed to convert enum VrexConstraintAlignment(-2) to string.");
    point->status() = static_cast<VrexGeometryStatus>(4);
    EXPECT_EQ(refusal(lists), "Failed to convert enum VrexGeometryStatus(4) to string.");
}

TEST(VrexObject3DSerializer, OptionsThatAreNotSetHaveNoKeys) {
    const auto circle = VrexCircle3D::create({1.0, 2.0, 3.0}, {0.0, 0.0, 1.0}, 4.0);
    EXPECT_EQ((JsonDocuments{{circle}}.last("objects")),
              R"({"type":"Circle3D","cen":[1.0,2.0,3.0],"norm":[0.0,0.0,1.0],"rad":4.0,"id":0,)"
              R"("changeStatus":"NotChanged"})");
    circle->end() = 0.5;
    EXPECT_THAT((JsonDocuments{{circle}}.last("objects")), HasSubstr(R"("rad":4.0,"endParameter":0.5,"id")"));
    const auto cone = VrexCone3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 0.5);
    cone->endU() = 1.0;
    cone->startV() = 2.0;
    EXPECT_THAT((JsonDocuments{{cone}}.last("objects")),
                HasSubstr(R"("ap":0.5,"endParameterU":1.0,"startParameterV":2.0,"id")"));
}

TEST(VrexObject3DSerializer, AConnectorWithoutSetHasEmptyArguments) {
    EXPECT_EQ((JsonDocuments{{VrexConnector3D::create(nullptr)}}.last("objects")),
              R"({"type":"Connector3D","arguments":[],"cen":[0.0,0.0,0.0],"rot":0.0,"norm":[1.0,0.0,0.0],)"
              R"("id":0,"changeStatus":"NotChanged"})");
}

TEST(VrexObject3DSerializer, EmptyListsOfPointsHaveNoKeysAndKnotsHave) {
    EXPECT_EQ((JsonDocuments{{VrexSpline3D::create({3, false, {}, {}})}}.last("objects")),
              R"({"type":"Spline3D","degree":3,"periodic":false,"knots":[],"id":0,)"
              R"("changeStatus":"NotChanged"})");
    for (const auto& rows : {std::vector<std::vector<VrexSpline3D::ControlPoint>>{},
                             std::vector<std::vector<VrexSpline3D::ControlPoint>>{{}, {}}}) {
        EXPECT_EQ((JsonDocuments{{VrexNURBSSurface3D::create({-1, 2, {}, {}, rows})}}.last("objects")),
                  R"({"type":"NurbsSurface3D","uDegree":-1,"vDegree":2,"uKnots":[],"vKnots":[],"id":0,)"
                  R"("changeStatus":"NotChanged"})");
    }
    EXPECT_EQ((JsonDocuments{{VrexRigidSet3D::create({})}}.last("objects")),
              R"({"type":"RigidSet3D","cen":[0.0,0.0,0.0],"norm":[0.0,0.0,1.0],"dir":[1.0,0.0,0.0],)"
              R"("arguments":[],"id":0,"changeStatus":"NotChanged"})");
}

TEST(VrexObject3DSerializer, ANetOfUnequalRowsIsRefused) {
    const auto a = makeSample<VrexPoint3D>();
    const auto b = makeSample<VrexPoint3D>();
    const auto surface = VrexNURBSSurface3D::create({1, 1, {}, {}, {{{a, 1.0}, {b, 1.0}}, {{a, 1.0}}}});
    EXPECT_EQ(refusal({{a, b, surface}}), "Invalid data: NURBS surface points.");
}

TEST(VrexObject3DSerializer, AConstraintOfAGeometryThatIsNotThereIsRefused) {
    const auto fixation = VrexFixation3D::create(makeSample<VrexPoint3D>(), VrexFixation3DType::Complete3D);
    EXPECT_EQ(refusal({{}, {}, {fixation}}), NOT_YET_THERE);
}

TEST(VrexObject3DSerializer, AnObjectThatContainsItselfIsRefused) {
    const auto set = VrexRigidSet3D::create({});
    set->geometries().push_back(set);
    EXPECT_EQ(refusal({{set}}), NOT_YET_THERE);
    set->geometries().clear();
    const auto curve = VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE());
    curve->setDescriptors({{curve, 0, "x"}});
    EXPECT_EQ(refusal({{curve}}), NOT_YET_THERE);
    curve->setDescriptors({});
}

TEST(VrexObject3DSerializer, ASetBeforeItsMembersIsRefused) {
    const auto point = makeSample<VrexPoint3D>();
    EXPECT_EQ(refusal({{VrexRigidSet3D::create({point}), point}}), NOT_YET_THERE);
}

TEST(VrexObject3DSerializer, EveryMissingPartOfAGeometryIsRefused) {
    const auto line = makeSample<VrexLine3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto spline = VrexSpline3D::create({1, false, {}, {}});
    spline->setInterpolatedPoints({nullptr});
    const std::vector<std::shared_ptr<VrexGeometry3D>> broken{
        VrexRigidSet3D::create({line, nullptr}),
        VrexNURBSSurface3D::create({1, 1, {}, {}, {{{nullptr, 1.0}}}}),
        VrexSpline3D::create({1, false, {}, {{nullptr, 1.0}}}),
        spline,
        VrexSpinSurface3D::create(nullptr, line),
        VrexSpinSurface3D::create(circle, nullptr),
        VrexSweepSurface3D::create(nullptr, line, {}),
        VrexSweepSurface3D::create(circle, nullptr, {}),
        VrexPattern3D::create(VrexPattern3DType::Linear3D, nullptr, 1.0),
        VrexArrayPattern3D::create({nullptr}),
        VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE(), {{nullptr, 0, "a"}}, "t", "t", "t"),
    };
    for (const auto& geometry : broken) {
        EXPECT_EQ(refusal({{line, circle, geometry}}), "Null pointer to geometry!")
            << nsEnum::toText(geometry->type());
    }
}

TEST(VrexObject3DSerializer, EveryMissingPartOfAConstraintIsRefused) {
    const auto point = makeSample<VrexPoint3D>();
    const auto element = makeSample<VrexEqualDimensionElement3D>();
    const auto distance = VrexDistance3D::create(point, point, 1.0, WHOLE, WHOLE);
    const auto slider = VrexSliderMate3D::create(nullptr, nullptr, {});
    const struct {
        std::shared_ptr<VrexConstraint3D> constraint;
        const char* text;
    } rows[] = {
        {VrexDistance3D::create(point, nullptr, 1.0, WHOLE, WHOLE), "Null pointer to geometry!"},
        {slider, "Null pointer to geometry!"},
        {VrexFixation3D::create(nullptr, VrexFixation3DType::Complete3D), "Null pointer to geometry!"},
        {VrexEqualDimension3D::create({distance}, nullptr), "Null pointer to geometry!"},
        {VrexEqualDimension3D::create({distance, nullptr}, element), "Null pointer to constraint!"},
        {VrexEqualParameter3D::create(distance, {6, 7}, nullptr, {6, 7}), "Null pointer to constraint!"},
        {VrexMateRelation3D::create({nullptr, nullptr}, {0, 0}, 1.0), "Null pointer to constraint!"},
        {VrexVariableFixation3D::create(nullptr), "Null pointer to variable!"},
        {VrexMateDimensionInterval3D::create(nullptr, {}, 0,
                                             VrexMateDimensionInterval3DType::AngleDimension3D),
         "Null pointer to variable!"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(refusal({{point, element}, {}, {distance, row.constraint}}), row.text)
            << nsEnum::toText(row.constraint->type());
    }
}

TEST(VrexObject3DSerializer, ConstraintsOfLaterConstraintsAreRefused) {
    const auto point = makeSample<VrexPoint3D>();
    const auto element = makeSample<VrexEqualDimensionElement3D>();
    const auto distance = VrexDistance3D::create(point, point, 1.0, WHOLE, WHOLE);
    const auto equality = VrexEqualDimension3D::create({distance}, element);
    EXPECT_EQ(refusal({{point, element}, {}, {equality, distance}}),
              "Objects can only reference already serialized constraints. Try reordering the system.");
    EXPECT_EQ(refusal({{point, element}, {}, {distance, equality}}), "written");
}

TEST(VrexObject3DSerializer, ABoundVariableHasToBeInTheSystem) {
    const auto point = makeSample<VrexPoint3D>();
    const auto variable = VrexGeometryVariable::create(2.5);
    const auto distance = VrexDistance3D::create(point, point, 1.0, WHOLE, WHOLE);
    distance->bindVariable(variable);
    EXPECT_EQ(refusal({{point}, {}, {distance}}),
              "Objects can only reference already serialized variables. Try reordering the system.");
    EXPECT_EQ((JsonDocuments{{point}, {variable}, {distance}}.last("constraints")),
              R"({"arguments":[0,0],"value":2.5,"variable":0,"id":0,"solveMethodStatus":"Unknown",)"
              R"("type":"Distance3D"})");
}

TEST(VrexObject3DSerializer, AnIntervalOfTheFirstDimensionHasNoIndex) {
    const auto variable = VrexGeometryVariable::create(2.5);
    const auto interval = VrexMateDimensionInterval3D::create(
        variable, {}, 0, VrexMateDimensionInterval3DType::AngleDimension3D);
    EXPECT_EQ((JsonDocuments{{}, {variable}, {interval}}.last("constraints")),
              R"({"arguments":[0],"dimensionType":"AngleDimension3D","id":0,"solveMethodStatus":"Unknown",)"
              R"("type":"MateDimensionInterval3D"})");
}

TEST(VrexObject3DSerializer, ARadiusTellsTheTypeItWasGivenLastAndTheKindItWasMadeWith) {
    const auto ellipse = makeSample<VrexEllipse3D>();
    const auto radius = VrexRadius3D::create(ellipse, 1.0, VrexRadius3DType::MajorRadius3D);
    radius->setRadiusType(VrexRadius3DType::MinorRadius3D);
    EXPECT_EQ((JsonDocuments{{ellipse}, {}, {radius}}.last("constraints")),
              R"({"arguments":[0],"radType":"MinorRadius3D","value":1.0,"id":0,)"
              R"("solveMethodStatus":"Unknown","type":"MajorRadius3D"})");
}

TEST(VrexObject3DSerializer, OtherCallbacksAreWrittenAsTheAddressOfTheirFunction) {
    const auto variable = VrexGeometryVariable::create(2.5);
    const auto equation =
        VrexCallbackEquation::create({{variable, 0, "v"}}, VrexEquationConditionType::lessThanZero,
                                     [](const std::vector<VrexVariable>& arguments) { return arguments[0]; });
    const auto address = reinterpret_cast<std::uintptr_t>(&equation->callback());
    EXPECT_EQ((JsonDocuments{{}, {variable}, {}, {equation}}.last("equations")),
              R"({"type":"GenericCallback","callback":)" + std::to_string(address) +
                  R"(,"descriptors":[{"index":0,"type":"Variable","variableIndex":0}],"id":0,)"
                  R"("solveMethodStatus":"Unknown","conditionType":"lessThanZero"})");
}

TEST(VrexObject3DSerializer, AGeometryThatNamesAConstraintIsRefused) {
    const auto point = makeSample<VrexPoint3D>();
    const auto fixation = VrexFixation3D::create(point, VrexFixation3DType::Complete3D);
    const auto curve =
        VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE(), {{fixation, 0, "a"}}, "t", "t", "t");
    EXPECT_EQ(refusal({{point, curve}, {}, {fixation}}),
              "Objects can only reference already serialized constraints. Try reordering the system.");
}

} // namespace
