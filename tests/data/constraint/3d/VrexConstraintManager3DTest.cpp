#include "data/constraint/3d/VrexConstraintManager3D.h"

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/constraint/3d/VrexCurveLength3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "support/Numbered.h"
#include "support/ProbeConstraint3D.h"
#include "support/RefusalChecks.h"
#include "support/Samples.h"

namespace {

using testing::ElementsAre;

/// A constraint with the support for help values that a test asks for.
class HelpConstraint : public ProbeConstraint3D {
public:
    bool isHelpPointSupported() const override { return points; }
    bool isHelpParameterSupported() const override { return parameters; }
    bool points = true;
    bool parameters = true;
};

class OpenManager : public VrexConstraintManager3D {
public:
    using VrexConstraintManager3D::adjustHelpParameterRange;
    using VrexConstraintManager3D::getRelatedGeometryMap;
    using VrexConstraintManager3D::VrexConstraintManager3D;
};

using Values = std::vector<double>;
Values values(const VrexVector3DT<double>& vector) { return {vector.x(), vector.y(), vector.z()}; }
Values values(const VrexVector2DT<double>& vector) { return {vector.x(), vector.y()}; }
/// Nothing for an empty one.
template <class Vector>
Values values(const std::optional<Vector>& vector) {
    return vector ? values(*vector) : Values{};
}

/// Two splines, 1 and 2, under constraint 100; spline 3 stands apart.
class VrexConstraintManager3DTest : public testing::Test {
protected:
    VrexConstraintManager3DTest() { manager.addConstraint(constraint); }

    static std::shared_ptr<VrexSpline3D> spline(std::uint64_t id) {
        auto made = numbered(VrexSpline3D::create({1, false, {2.0, 2.0, 5.0, 5.0}, {}}), id);
        made->controlPoints() = {{VrexPoint3D::create(0.0, 0.0, 0.0), 1.0},
                                 {VrexPoint3D::create(1.0, 0.0, 0.0), 1.0}};
        return made;
    }
    std::shared_ptr<HelpConstraint> helpConstraint(std::uint64_t id,
                                                   const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                   const std::shared_ptr<VrexGeometry3D>& geometry2) {
        auto made = numbered(std::make_shared<HelpConstraint>(), id);
        made->addArguments(geometry1, geometry2);
        made->setDirty(false);
        return made;
    }
    void expectUntouched() const {
        EXPECT_FALSE(constraint->isDirty());
        EXPECT_FALSE(constraint->helpPoint1());
        EXPECT_FALSE(constraint->helpPoint2());
        EXPECT_FALSE(constraint->helpParam1());
        EXPECT_FALSE(constraint->helpParam2());
        EXPECT_FALSE(constraint->fixHelpParameter1());
        EXPECT_FALSE(constraint->fixHelpParameter2());
    }

    VrexLogRecorder recorder{3};
    OpenManager manager{recorder};
    std::shared_ptr<VrexSpline3D> first = spline(1);
    std::shared_ptr<VrexSpline3D> second = spline(2);
    std::shared_ptr<VrexSpline3D> stranger = spline(3);
    std::shared_ptr<HelpConstraint> constraint = helpConstraint(100, first, second);
    const VrexVector3DT<double> P{1.0, 2.0, 3.0};
    const VrexVector2DT<double> U{3.0, 4.0};
    VrexVector3DT<double> point{-1.0, -1.0, -1.0};
    VrexVector2DT<double> parameter{-1.0, -1.0};
    bool fixed = false;
};

TEST_F(VrexConstraintManager3DTest, HelpPointIsSetByTheGeometryOrByTheIndex) {
    EXPECT_TRUE(manager.createHelpPoint(constraint, second, P));
    EXPECT_EQ(values(constraint->helpPoint2()), values(P));
    EXPECT_FALSE(constraint->helpPoint1());
    EXPECT_TRUE(constraint->isDirty());
    constraint->setDirty(false);
    EXPECT_TRUE(manager.createHelpPoint(constraint, second, P, 1));
    EXPECT_EQ(values(constraint->helpPoint1()), values(P));
    EXPECT_TRUE(constraint->isDirty());
    EXPECT_TRUE(manager.createHelpPoint(constraint, first, P * 2.0));
    EXPECT_EQ(values(constraint->helpPoint1()), values(P * 2.0));
    EXPECT_TRUE(manager.createHelpPoint(constraint, stranger, P * 3.0, 2));
    EXPECT_EQ(values(constraint->helpPoint2()), values(P * 3.0));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManager3DTest, HelpPointGoesToTheStoredConstraint) {
    const auto passed = helpConstraint(100, first, second);
    EXPECT_TRUE(manager.createHelpPoint(passed, first, P));
    EXPECT_FALSE(passed->helpPoint1());
    EXPECT_FALSE(passed->isDirty());
    EXPECT_EQ(values(constraint->helpPoint1()), values(P));
}

TEST_F(VrexConstraintManager3DTest, AGeometryInBothPlacesMeansTheFirst) {
    const auto both = helpConstraint(101, first, first);
    manager.addConstraint(both);
    EXPECT_TRUE(manager.createHelpPoint(both, first, P));
    EXPECT_TRUE(both->helpPoint1());
    EXPECT_FALSE(both->helpPoint2());
}

TEST_F(VrexConstraintManager3DTest, HelpPointTakesCurvesSurfacesAndSpheres) {
    const std::shared_ptr<VrexGeometry3D> taken[] = {
        makeSample<VrexCircle3D>(), makeSample<VrexEvaluatedCurve3D>(), makeSample<VrexCylinder3D>(),
        makeSample<VrexNURBSSurface3D>(), makeSample<VrexSphere3D>()};
    for (const auto& geometry : taken) {
        EXPECT_TRUE(manager.createHelpPoint(constraint, geometry, P, 1));
    }
    constraint->helpPoint1().reset();
    constraint->setDirty(false);
    const std::shared_ptr<VrexGeometry3D> refused[] = {makeSample<VrexPoint3D>(), makeSample<VrexLine3D>(),
                                                       makeSample<VrexPlane3D>(),
                                                       makeSample<VrexRigidSet3D>()};
    for (const auto& geometry : refused) {
        geometry->setID(44);
        const std::string text = "Checking geometry failure, geometry do not support help point, id : 44.";
        expectRefusal(recorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED, text,
                      [&] { EXPECT_FALSE(manager.createHelpPoint(constraint, geometry, P, 1)); });
        expectRefusal(recorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED, text,
                      [&] { EXPECT_FALSE(manager.enquireHelpPoint(constraint, geometry, 1, point)); });
    }
    expectUntouched();
}

TEST_F(VrexConstraintManager3DTest, HelpPointChecksTheGeometryFirstAndThenTheConstraint) {
    const auto bare = helpConstraint(100, first, second);
    bare->points = false;
    const std::string noGeometry = "Failed to check help point  geometry, the geometry is invalid";
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, noGeometry,
                  [&] { EXPECT_FALSE(manager.createHelpPoint(bare, nullptr, P)); });
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, noGeometry,
                  [&] { EXPECT_FALSE(manager.enquireHelpPoint(nullptr, nullptr, point)); });
    const std::string noSupport = "Constraint don't support help point, id : 100.";
    expectRefusal(recorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED, noSupport,
                  [&] { EXPECT_FALSE(manager.createHelpPoint(bare, first, P)); });
    expectRefusal(recorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED, noSupport,
                  [&] { EXPECT_FALSE(manager.enquireHelpPoint(bare, first, 1, point)); });
    const std::string noConstraint = "Failed to find related constraint, the constraint is invalid, id : 0.";
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_ID_INVALID, noConstraint,
                  [&] { EXPECT_FALSE(manager.createHelpPoint(nullptr, first, P)); });
    expectUntouched();
}

TEST_F(VrexConstraintManager3DTest, HelpPointIndexThreeIsRefusedAndTheConstraintStaysClean) {
    for (const std::uint64_t index : {0U, 3U, 6U}) {
        expectRefusal(
            recorder, VrexErrorCode::HELP_POINT_INDEX_INVALID,
            "Failed to set help point on constraint, the help point index is out of range, cosntraint id : "
            "100.",
            [&] { EXPECT_FALSE(manager.createHelpPoint(constraint, first, P, index)); },
            ", Failed to create help point. failed!");
        expectRefusal(
            recorder, VrexErrorCode::HELP_POINT_INDEX_INVALID,
            "Failed to get help point on constraint, the help point index is out of range, cosntraint id : "
            "100.",
            [&] { EXPECT_FALSE(manager.enquireHelpPoint(constraint, first, index, point)); });
    }
    expectUntouched();
    EXPECT_EQ(point.x(), -1.0);
}

TEST_F(VrexConstraintManager3DTest, HelpPointOfAGeometryThatIsNotTheConstraintsIsRefused) {
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
        "Failed to add help point on constraint, the geometry is independent of the constraint, geometry id "
        ": "
        "3, constraint id : 100.",
        [&] { EXPECT_FALSE(manager.createHelpPoint(constraint, stranger, P)); },
        ", Failed to create help point. failed!");
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                  "Failed to get help point on constraint, the geometry is independent of the constraint, "
                  "geometry id : "
                  "3, constraint id : 100.",
                  [&] { EXPECT_FALSE(manager.enquireHelpPoint(constraint, stranger, point)); });
    expectUntouched();
}

TEST_F(VrexConstraintManager3DTest, HelpValuesOfAConstraintThatIsNotStoredAreRefused) {
    const auto unknown = helpConstraint(55, first, second);
    const std::string text = "Failed to find related constraint, the constraint is invalid, id : 55.";
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_ID_INVALID, text,
        [&] { EXPECT_FALSE(manager.createHelpPoint(unknown, first, P)); },
        ", Failed to create help point. failed!");
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_ID_INVALID, text,
        [&] { EXPECT_FALSE(manager.createHelpParameter(unknown, first, U)); },
        ", createHelpParameter failed!");
    // An equation under the identifier has no help values.
    manager.addConstraint(numbered(makeSample<VrexExpressionEquation>(), 55));
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_ID_INVALID, text,
        [&] { EXPECT_FALSE(manager.createHelpPoint(unknown, first, P)); },
        ", Failed to create help point. failed!");
    EXPECT_FALSE(unknown->helpPoint1());
}

TEST_F(VrexConstraintManager3DTest, EnquiringReadsThePassedConstraint) {
    const auto unstored = helpConstraint(55, first, second);
    unstored->setHelpPoint2(P);
    unstored->setHelpParam2(U);
    EXPECT_TRUE(manager.enquireHelpPoint(unstored, second, point));
    EXPECT_EQ(values(point), values(P));
    EXPECT_TRUE(manager.enquireHelpPoint(unstored, first, 2, point));
    EXPECT_TRUE(manager.enquireHelpParameter(unstored, second, parameter));
    EXPECT_EQ(values(parameter), values(U));
    EXPECT_TRUE(manager.enquireHelpParameter(unstored, first, 8, parameter));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManager3DTest, EnquiringAnEmptyHelpValueRecordsNothing) {
    EXPECT_FALSE(manager.enquireHelpPoint(constraint, first, point));
    EXPECT_FALSE(manager.enquireHelpPoint(constraint, first, 2, point));
    EXPECT_FALSE(manager.enquireHelpParameter(constraint, first, parameter));
    EXPECT_FALSE(manager.enquireHelpParameter(constraint, first, 8, parameter));
    EXPECT_TRUE(recorder.isNoError());
    EXPECT_EQ(point.x(), -1.0);
    EXPECT_EQ(parameter.x(), -1.0);
}

TEST_F(VrexConstraintManager3DTest, HelpParameterIsSetByTheGeometryOrByTheIndex) {
    EXPECT_TRUE(manager.createHelpParameter(constraint, second, U));
    EXPECT_EQ(values(constraint->helpParam2()), values(U));
    EXPECT_FALSE(constraint->helpParam1());
    EXPECT_TRUE(constraint->isDirty());
    constraint->setDirty(false);
    EXPECT_TRUE(manager.createHelpParameter(constraint, stranger, U, 6));
    EXPECT_EQ(values(constraint->helpParam1()), values(U));
    EXPECT_TRUE(constraint->isDirty());
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {4.0, 0.0}, 8));
    EXPECT_EQ(values(constraint->helpParam2()), values(VrexVector2DT<double>{4.0, 0.0}));
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {2.5, 0.0}));
    EXPECT_EQ(values(constraint->helpParam1()), values(VrexVector2DT<double>{2.5, 0.0}));
}

TEST_F(VrexConstraintManager3DTest, OnlySixAndEightAreIndicesOfHelpParameters) {
    for (const std::uint64_t index : {0U, 1U, 2U, 5U, 7U, 9U}) {
        expectRefusal(
            recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
            "Failed to set help parameter,index is invalid,index id: " + std::to_string(index) +
                ",constraint id : 100.",
            [&] { EXPECT_FALSE(manager.createHelpParameter(constraint, first, U, index)); },
            ", createHelpParameter failed!");
        const std::string text = "Failed to get the fix state of help parameter, helpParameterIndex is wrong";
        const std::function<void()> calls[] = {
            [&] { EXPECT_FALSE(manager.enquireHelpParameter(constraint, first, index, parameter)); },
            [&] { EXPECT_FALSE(manager.setHelpParameterFixedState(constraint, first, index, true)); },
            [&] { EXPECT_FALSE(manager.getHelpParameterFixedState(constraint, first, index, fixed)); }};
        for (const auto& call : calls) {
            expectRefusal(recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR, text, call);
        }
    }
    expectUntouched();
}

TEST_F(VrexConstraintManager3DTest, HelpParameterOfAGeometryThatIsNotTheConstraintsIsRefused) {
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
        "Failed to set help parameter,geometry is invalid,geometry id: 3,constraint id : 100.",
        [&] { EXPECT_FALSE(manager.createHelpParameter(constraint, stranger, U)); },
        ", createHelpParameter failed!");
    const std::string rest = ", constraint doesn't contained geometry, geometry id : 3, constraint id : 100.";
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR, "Failed to get the help parameter" + rest,
                  [&] { EXPECT_FALSE(manager.enquireHelpParameter(constraint, stranger, parameter)); });
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                  "Failed to get the fix state of help parameter" + rest,
                  [&] { EXPECT_FALSE(manager.getHelpParameterFixedState(constraint, stranger, fixed)); });
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                  "Failed to set the fix state of help parameter" + rest,
                  [&] { EXPECT_FALSE(manager.setHelpParameterFixedState(constraint, stranger, true)); });
    expectUntouched();
}

TEST_F(VrexConstraintManager3DTest, HelpParameterRefusesKindsWithoutAFixedOrigin) {
    const std::shared_ptr<VrexGeometry3D> refused[] = {
        makeSample<VrexCircle3D>(), makeSample<VrexCylinder3D>(), makeSample<VrexCone3D>(),
        makeSample<VrexTorus3D>(),  makeSample<VrexSphere3D>(),   makeSample<VrexLine3D>(),
        makeSample<VrexPlane3D>(),  makeSample<VrexPoint3D>()};
    for (const auto& geometry : refused) {
        geometry->setID(44);
        const std::function<void()> calls[] = {
            [&] { EXPECT_FALSE(manager.createHelpParameter(constraint, geometry, U, 6)); },
            [&] { EXPECT_FALSE(manager.enquireHelpParameter(constraint, geometry, 6, parameter)); },
            [&] { EXPECT_FALSE(manager.setHelpParameterFixedState(constraint, geometry, 6, true)); }};
        for (const auto& call : calls) {
            expectRefusal(recorder, VrexErrorCode::HELP_PARAMETER_NOT_SUPPORTED,
                          "Checking geometry failure, geometry not support help parameter, id : 44.", call);
        }
    }
    expectUntouched();
    const std::shared_ptr<VrexGeometry3D> taken[] = {
        makeSample<VrexEllipse3D>(),          makeSample<VrexEvaluatedCurve3D>(),
        makeSample<VrexNURBSSurface3D>(),     makeSample<VrexSpinSurface3D>(),
        makeSample<VrexEvaluatedSurface3D>(), makeSample<VrexSweepSurface3D>()};
    for (const auto& geometry : taken) {
        EXPECT_TRUE(manager.createHelpParameter(constraint, geometry, U, 6));
    }
}

TEST_F(VrexConstraintManager3DTest, HelpParameterChecksTheGeometryFirstAndThenTheConstraint) {
    const auto bare = helpConstraint(100, first, second);
    bare->parameters = false;
    const auto expectEach = [&](VrexErrorCode code, const std::string& text,
                                const std::shared_ptr<VrexConstraint3D>& on,
                                const std::shared_ptr<VrexGeometry3D>& geometry) {
        const std::function<void()> calls[] = {
            [&] { EXPECT_FALSE(manager.createHelpParameter(on, geometry, U)); },
            [&] { EXPECT_FALSE(manager.enquireHelpParameter(on, geometry, parameter)); },
            [&] { EXPECT_FALSE(manager.setHelpParameterFixedState(on, geometry, true)); }};
        for (const auto& call : calls) {
            expectRefusal(recorder, code, text, call);
        }
    };
    expectEach(VrexErrorCode::GEOMETRY_ID_INVALID,
               "Failed to check helpParameter geometry, the geometry is invalid", bare, nullptr);
    expectEach(VrexErrorCode::HELP_PARAMETER_NOT_SUPPORTED, "Constraint is not support help parameter.", bare,
               first);
    expectEach(VrexErrorCode::CONSTRAINT_ID_INVALID,
               "Failed to find related constraint, the constraint is invalid, id : 0.", nullptr, first);
    expectUntouched();
}

TEST_F(VrexConstraintManager3DTest, AHelpParameterBeyondTheEndsIsStoredAtTheEnd) {
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {7.0, 9.0}));
    EXPECT_EQ(values(constraint->helpParam1()), values(VrexVector2DT<double>{5.0, 9.0}));
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {1.0, -9.0}));
    EXPECT_EQ(values(constraint->helpParam1()), values(VrexVector2DT<double>{2.0, -9.0}));
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {std::nan(""), 0.0}));
    EXPECT_TRUE(std::isnan(constraint->helpParam1()->x()));
}

TEST_F(VrexConstraintManager3DTest, ARoundCurveIsOnlyLimitedWhereBothEndsAreTrimmed) {
    const auto adjusted = [this](const VrexGeometry3D& geometry) {
        VrexVector2DT<double> value{100.0, 100.0};
        EXPECT_TRUE(manager.adjustHelpParameterRange(geometry, value));
        EXPECT_EQ(value.y(), 100.0);
        return value.x();
    };
    const auto ellipse = makeSample<VrexEllipse3D>(); // trimmed to [-0.5, 2]
    EXPECT_EQ(adjusted(*ellipse), 2.0);
    ellipse->start().reset();
    EXPECT_EQ(adjusted(*ellipse), 100.0);
    const auto periodic = makeSample<VrexSpline3D>(); // trimmed to [2.25, 5.75]
    EXPECT_EQ(adjusted(*periodic), 5.75);
    periodic->end().reset();
    EXPECT_EQ(adjusted(*periodic), 100.0);
    periodic->periodic() = false;
    EXPECT_EQ(adjusted(*periodic), periodic->interval().second.value());
    const auto open = makeSample<VrexEvaluatedCurve3D>(); // trimmed to [-1, 4]
    EXPECT_EQ(adjusted(*open), 4.0);
    open->end().reset();
    EXPECT_EQ(adjusted(*open), 100.0);
}

TEST_F(VrexConstraintManager3DTest, AFreeSurfaceParameterIsBroughtIntoBothRanges) {
    const auto surface = makeSample<VrexEvaluatedSurface3D>(); // trimmed to [0.125, 3] by [-2, 7]
    VrexVector2DT<double> value{-5.0, 50.0};
    EXPECT_TRUE(manager.adjustHelpParameterRange(*surface, value));
    EXPECT_EQ(values(value), values(VrexVector2DT<double>{0.125, 7.0}));
    surface->endV().reset();
    value = {5.0, 50.0};
    EXPECT_TRUE(manager.adjustHelpParameterRange(*surface, value));
    EXPECT_EQ(values(value), values(VrexVector2DT<double>{3.0, 50.0}));
}

TEST_F(VrexConstraintManager3DTest, EndsTheWrongWayRoundGiveTheUpperOne) {
    first->start() = 4.0;
    first->end() = 3.0;
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {3.5, 0.0}));
    EXPECT_EQ(constraint->helpParam1()->x(), 3.0);
}

TEST_F(VrexConstraintManager3DTest, WhatHasNoParametersHasNoRange) {
    VrexVector2DT<double> value = U;
    expectRefusal(recorder, VrexErrorCode::HELP_PARAMETER_NOT_SUPPORTED,
                  "Constraint is not support help parameter.",
                  [&] { EXPECT_FALSE(manager.adjustHelpParameterRange(*makeSample<VrexPlane3D>(), value)); });
    EXPECT_EQ(values(value), values(U));
}

TEST_F(VrexConstraintManager3DTest, FixedStateNeedsAHelpParameter) {
    expectRefusal(
        recorder, VrexErrorCode::HELP_PARAMETER_INVALID,
        "Failed to set the fix state of help parameter1, constraint not set helpParameter1, id : 100.",
        [&] { EXPECT_FALSE(manager.setHelpParameterFixedState(constraint, first, true)); });
    expectRefusal(
        recorder, VrexErrorCode::HELP_PARAMETER_INVALID,
        "Failed to set the fix state of help parameter2, constraint not set helpParameter2, id : 100.",
        [&] { EXPECT_FALSE(manager.setHelpParameterFixedState(constraint, first, 8, true)); });
    expectUntouched();
}

TEST_F(VrexConstraintManager3DTest, FixedStateOfThePassedConstraintIsSetAndRead) {
    const auto unstored = helpConstraint(55, first, second);
    unstored->setHelpParam1(U);
    unstored->setHelpParam2(U);
    EXPECT_TRUE(manager.setHelpParameterFixedState(unstored, second, true));
    EXPECT_TRUE(unstored->isDirty());
    EXPECT_TRUE(manager.getHelpParameterFixedState(unstored, second, fixed));
    EXPECT_TRUE(fixed);
    EXPECT_TRUE(manager.getHelpParameterFixedState(unstored, first, fixed));
    EXPECT_FALSE(fixed);
    EXPECT_TRUE(manager.getHelpParameterFixedState(unstored, nullptr, 8, fixed));
    EXPECT_TRUE(fixed);
    unstored->setDirty(false);
    EXPECT_TRUE(manager.setHelpParameterFixedState(unstored, second, true));
    EXPECT_FALSE(unstored->isDirty());
    EXPECT_TRUE(manager.setHelpParameterFixedState(unstored, stranger, 6, true));
    EXPECT_TRUE(unstored->fixHelpParameter1());
    EXPECT_TRUE(manager.setHelpParameterFixedState(unstored, second, false));
    EXPECT_FALSE(unstored->fixHelpParameter2());
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManager3DTest, FixedStateIsReadWithoutCheckingKindAndSupport) {
    const auto circle = makeSample<VrexCircle3D>();
    const auto bare = helpConstraint(55, circle, second);
    bare->parameters = false;
    fixed = true;
    EXPECT_TRUE(manager.getHelpParameterFixedState(bare, circle, fixed));
    EXPECT_FALSE(fixed);
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                  "Failed to get the fix state of help parameter, constraint doesn't contained geometry, "
                  "geometry id : 0, constraint id : 55.",
                  [&] { EXPECT_FALSE(manager.getHelpParameterFixedState(bare, nullptr, fixed)); });
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_ID_INVALID,
                  "Failed to find related constraint, the constraint is invalid, id : 0.",
                  [&] { EXPECT_FALSE(manager.getHelpParameterFixedState(nullptr, circle, fixed)); });
}

TEST_F(VrexConstraintManager3DTest, AKindThatCannotHoldItsParameterIsRefused) {
    const auto circle = numbered(makeSample<VrexCircle3D>(), 8);
    const auto mixed = helpConstraint(55, first, circle);
    mixed->setHelpParam2(U);
    expectRefusal(recorder, VrexErrorCode::HELP_PARAMETER_FIXED_NOT_SUPPORTED,
                  "Failed to set the fix state of help parameter, geometry not support, geometry id : 8, "
                  "constraint id : 55.",
                  [&] { EXPECT_FALSE(manager.setHelpParameterFixedState(mixed, first, 8, true)); });
    EXPECT_FALSE(mixed->fixHelpParameter2());
    EXPECT_FALSE(mixed->isDirty());
    EXPECT_TRUE(manager.setHelpParameterFixedState(mixed, first, 8, false));
}

TEST_F(VrexConstraintManager3DTest, TheThirdGeometryOfACurveLengthIsOnlyReachedByIndex) {
    const auto length = numbered(VrexCurveLength3D::create(VrexPoint3D::create(0.0, 0.0, 0.0),
                                                           VrexPoint3D::create(1.0, 0.0, 0.0), first, 1.0),
                                 60);
    manager.addConstraint(length);
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
        "Failed to set help parameter,geometry is invalid,geometry id: 1,constraint id : 60.",
        [&] { EXPECT_FALSE(manager.createHelpParameter(length, first, U)); },
        ", createHelpParameter failed!");
    EXPECT_TRUE(manager.createHelpParameter(length, first, U, VrexConstraint3D::HPARAMU2));
    EXPECT_EQ(values(length->helpParam2()), values(U));
}

TEST_F(VrexConstraintManager3DTest, RefusalsOfChecksAreNotAppendedTo) {
    EXPECT_FALSE(manager.createHelpPoint(constraint, makeSample<VrexPlane3D>(), P));
    EXPECT_EQ(std::string(recorder.getErrorMessage()).find("failed!"), std::string::npos);
    EXPECT_STREQ(recorder.getLogMessage(), "");
}

TEST_F(VrexConstraintManager3DTest, ReleasingAVariableUnbindsItsDimensions) {
    const auto variable = numbered(VrexGeometryVariable::create(7.5), 9);
    const auto distance = [&](std::uint64_t id) {
        const auto made =
            numbered(VrexDistance3D::create(first, second, 1.25, VrexGeometryComponentType::UNKNOWN,
                                            VrexGeometryComponentType::UNKNOWN),
                     id);
        made->bindVariable(variable);
        manager.addConstraint(made);
        made->setDirty(false);
        return made;
    };
    const auto one = distance(61);
    const auto two = distance(62);
    const auto equation = numbered(
        VrexExpressionEquation::create({{variable, 0, "d"}}, VrexEquationConditionType::greaterThanZero, "d"),
        63);
    manager.addConstraint(equation);
    EXPECT_EQ(one->value(), 7.5);
    manager.removeFromReleatedDimension(one->getGeometries().back()); // gone from the list meanwhile
    for (const auto& dimension : {one, two}) {
        EXPECT_EQ(dimension->getVariable(), nullptr);
        EXPECT_EQ(dimension->value(), 1.25);
        EXPECT_TRUE(dimension->isDirty());
        EXPECT_THAT(dimension->getGeometries(), ElementsAre(first, second));
    }
    EXPECT_THAT(manager.findRelatedConstraints(std::shared_ptr<VrexBaseGeometry>(variable)),
                ElementsAre(equation));
    manager.removeConstraint(equation);
    EXPECT_FALSE(manager.getRelatedGeometryMap().contains(9));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManager3DTest, ReleasingAnUnusedVariableChangesNothing) {
    manager.removeFromReleatedDimension(first);
    EXPECT_THAT(manager.getRelatedGeometryMap().find(1), ElementsAre(100));
    expectUntouched();
    EXPECT_TRUE(recorder.isNoError());
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!",
                  [&] { manager.removeFromReleatedDimension(nullptr); });
}

} // namespace
