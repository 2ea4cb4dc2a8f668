#include "data/constraint/3d/VrexConstraintManager3D.h"

#include <cmath>
#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "data/constraint/3d/HelpValues.h"
#include "data/constraint/3d/VrexCurveLength3D.h"
#include "support/AnyGeometry.h"
#include "support/RefusalChecks.h"
#include "support/Samples.h"

namespace {

using nsHelpFixture::values;

class VrexConstraintManager3DHelpParameter : public nsHelpFixture::Fixture {};

TEST_F(VrexConstraintManager3DHelpParameter, HelpParameterIsSetByTheGeometryOrByTheIndex) {
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

TEST_F(VrexConstraintManager3DHelpParameter, OnlySixAndEightAreIndicesOfHelpParameters) {
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

TEST_F(VrexConstraintManager3DHelpParameter, HelpParameterOfAGeometryThatIsNotTheConstraintsIsRefused) {
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

TEST_F(VrexConstraintManager3DHelpParameter, HelpParameterRefusesKindsWithoutAFixedOrigin) {
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

TEST_F(VrexConstraintManager3DHelpParameter, HelpParameterChecksTheGeometryFirstAndThenTheConstraint) {
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

TEST_F(VrexConstraintManager3DHelpParameter, AHelpParameterBeyondTheEndsIsStoredAtTheEnd) {
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {7.0, 9.0}));
    EXPECT_EQ(values(constraint->helpParam1()), values(VrexVector2DT<double>{5.0, 9.0}));
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {1.0, -9.0}));
    EXPECT_EQ(values(constraint->helpParam1()), values(VrexVector2DT<double>{2.0, -9.0}));
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {std::nan(""), 0.0}));
    EXPECT_TRUE(std::isnan(constraint->helpParam1()->x()));
}

TEST_F(VrexConstraintManager3DHelpParameter, ARoundCurveIsOnlyLimitedWhereBothEndsAreTrimmed) {
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

TEST_F(VrexConstraintManager3DHelpParameter, AFreeSurfaceParameterIsBroughtIntoBothRanges) {
    const auto surface = makeSample<VrexEvaluatedSurface3D>(); // trimmed to [0.125, 3] by [-2, 7]
    VrexVector2DT<double> value{-5.0, 50.0};
    EXPECT_TRUE(manager.adjustHelpParameterRange(*surface, value));
    EXPECT_EQ(values(value), values(VrexVector2DT<double>{0.125, 7.0}));
    surface->endV().reset();
    value = {5.0, 50.0};
    EXPECT_TRUE(manager.adjustHelpParameterRange(*surface, value));
    EXPECT_EQ(values(value), values(VrexVector2DT<double>{3.0, 50.0}));
}

TEST_F(VrexConstraintManager3DHelpParameter, EndsTheWrongWayRoundGiveTheUpperOne) {
    first->start() = 4.0;
    first->end() = 3.0;
    EXPECT_TRUE(manager.createHelpParameter(constraint, first, {3.5, 0.0}));
    EXPECT_EQ(constraint->helpParam1()->x(), 3.0);
}

TEST_F(VrexConstraintManager3DHelpParameter, WhatHasNoParametersHasNoRange) {
    VrexVector2DT<double> value = U;
    expectRefusal(recorder, VrexErrorCode::HELP_PARAMETER_NOT_SUPPORTED,
                  "Constraint is not support help parameter.",
                  [&] { EXPECT_FALSE(manager.adjustHelpParameterRange(*makeSample<VrexPlane3D>(), value)); });
    EXPECT_EQ(values(value), values(U));
}

/// Says that it is a curve, and has no range.
class CurveByName : public AnyGeometry {
public:
    using AnyGeometry::AnyGeometry;
    bool isParametricCurve() const override { return true; }
};

TEST_F(VrexConstraintManager3DHelpParameter, ACurveWithoutARangeIsRefusedAsItIsAdjusted) {
    const auto geometry = std::make_shared<CurveByName>(VrexGeometry3DType::UNKNOWN);
    expectRefusal(
        recorder, VrexErrorCode::HELP_PARAMETER_NOT_SUPPORTED, "Constraint is not support help parameter.",
        [&] { EXPECT_FALSE(manager.createHelpParameter(constraint, geometry, U, 6)); },
        ", createHelpParameter failed!");
    expectUntouched();
}

TEST_F(VrexConstraintManager3DHelpParameter, FixedStateNeedsAHelpParameter) {
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

TEST_F(VrexConstraintManager3DHelpParameter, FixedStateOfThePassedConstraintIsSetAndRead) {
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

TEST_F(VrexConstraintManager3DHelpParameter, FixedStateIsReadWithoutCheckingKindAndSupport) {
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

TEST_F(VrexConstraintManager3DHelpParameter, AKindThatCannotHoldItsParameterIsRefused) {
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

TEST_F(VrexConstraintManager3DHelpParameter, TheThirdGeometryOfACurveLengthIsOnlyReachedByIndex) {
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

} // namespace
