#include <cmath>
#include <optional>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexTransformMatrix3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "solver/FourBar.h"
#include "solver/PlantedSystem.h"
#include "solver/RandomStarts.h"

namespace {

using Vector = VrexVector3DT<double>;
constexpr double TOLERANCE = 1e-9;

/// A drag that turns the crank about its pivot.
VrexTransform3D turned(const FourBar& linkage, double angle) {
    VrexTransform3D drag;
    const auto turn = VrexQuaternionT<double>::makeFromAngleAndAxis(angle, Vector::OZ(), 1e-12);
    EXPECT_TRUE(drag.applyTransformation(linkage.crank, VrexTransformMatrix3D::makeFromQuaternion(turn)));
    return drag;
}

TEST(VrexSolver3DLimits, CrankStopsAtTheLimitsOfItsHinge) {
    for (const double wanted : {-1.0, -0.3, 0.6, 1.5}) {
        FourBar linkage(0.8);
        linkage.input->getAngle().limits = {-0.25, 0.4};
        const VrexTransform3D drag = turned(linkage, wanted);
        const auto report = VrexSolver3D().solve({linkage.component()}, &drag).components.at(0);
        ASSERT_TRUE(report.isConverged);
        const double angle = wanted < 0.0 ? -0.25 : 0.4;
        EXPECT_NEAR(linkage.input->getAngle().value, angle, TOLERANCE) << wanted;
        EXPECT_NEAR(linkage.output->getAngle().value,
                    FourBar::rockerAngle(0.8 + angle) - FourBar::rockerAngle(0.8), TOLERANCE);
    }
}

TEST(VrexSolver3DLimits, CrankMovesFreelyWithinTheLimits) {
    FourBar linkage(0.8);
    linkage.input->getAngle().limits = {-0.25, 0.4};
    const VrexTransform3D drag = turned(linkage, 0.2);
    const auto report = VrexSolver3D().solve({linkage.component()}, &drag).components.at(0);
    ASSERT_TRUE(report.isConverged);
    EXPECT_NEAR(linkage.input->getAngle().value, 0.2, 0.02);
    EXPECT_EQ(report.freedom, 1U); // limits that are kept bind nothing
}

/// Freedom on one side is freedom: a joint that rests on its limit can leave it.
TEST(VrexSolver3DLimits, WhatRestsOnALimitIsAsFreeAsAnywhereElse) {
    const FourBar unlimited(0.8);
    const auto elsewhere = VrexSolver3D().solve({unlimited.component()}).components.at(0);
    ASSERT_EQ(elsewhere.freedom, 1U);
    for (const double wanted : {-1.0, -0.3, 0.6, 1.5}) {
        FourBar linkage(0.8);
        linkage.input->getAngle().limits = {-0.25, 0.4};
        const VrexTransform3D drag = turned(linkage, wanted);
        for (const VrexTransform3D* const asked : {&drag, static_cast<const VrexTransform3D*>(nullptr)}) {
            const auto report = VrexSolver3D().solve({linkage.component()}, asked).components.at(0);
            EXPECT_EQ(report.freedom, elsewhere.freedom) << wanted;
            EXPECT_EQ(report.overConstrained, elsewhere.overConstrained) << wanted;
            EXPECT_EQ(linkage.crank->status(), unlimited.crank->status()) << wanted;
            EXPECT_EQ(linkage.input->status(), unlimited.input->status()) << wanted;
        }
    }
}

TEST(VrexSolver3DLimits, LimitsThatLeaveNoRoomHoldTheJoint) {
    FourBar linkage(0.8);
    linkage.input->getAngle().limits = {0.25, 0.25};
    const auto report = VrexSolver3D().solve({linkage.component()}).components.at(0);
    ASSERT_TRUE(report.isConverged);
    EXPECT_NEAR(linkage.input->getAngle().value, 0.25, TOLERANCE);
    EXPECT_EQ(report.freedom, 0U);
}

TEST(VrexSolver3DLimits, LimitsOfALaterJointHoldTheWholeLinkage) {
    FourBar linkage(0.8);
    const double most = FourBar::rockerAngle(1.0) - FourBar::rockerAngle(0.8);
    linkage.output->getAngle().limits = {std::nullopt, most};
    const VrexTransform3D drag = turned(linkage, 0.9);
    ASSERT_TRUE(VrexSolver3D().solve({linkage.component()}, &drag).isConverged());
    EXPECT_NEAR(linkage.input->getAngle().value, 0.2, 1e-8);
}

TEST(VrexSolver3DLimits, SlideThatStartsOutsideComesBack) {
    const auto make = [] {
        PlantedSystem system;
        const auto base = system.ground();
        const auto slide = system.body();
        system.bind(VrexSliderMate3D::create(system.connector(base, {0, 0, 0}),
                                             system.connector(slide, {0, 0, 6}), {0.5, 2.0}));
        return system;
    };
    solveFromRandomStarts(0.1, make, [](const PlantedSystem& system, const VrexSolverComponentReport&) {
        const auto& slider = static_cast<const VrexSliderMate3D&>(*system.constraints.back());
        EXPECT_LE(slider.getDistance().value, 2.0 + TOLERANCE);
        EXPECT_GE(slider.getDistance().value, 1.5); // no further than it has to
    });
}

/// A point on a sphere about the origin, which an equation keeps on one side.
struct Bowl : PlantedSystem {
    explicit Bowl(VrexEquationConditionType condition) : p(point(0, 0.6, -0.8)) {
        distance(fixed(point(0, 0, 0)), p, 1.0);
        bind(VrexExpressionEquation::create({{p, VrexPoint3D::X, "x"}}, condition, "x - 0.6"));
    }
    Point p;
};

TEST(VrexSolver3DLimits, InequalitiesHoldWhatIsDragged) {
    for (const auto condition :
         {VrexEquationConditionType::lessEqualZero, VrexEquationConditionType::lessThanZero}) {
        const Bowl bowl(condition);
        VrexTransform3D drag;
        ASSERT_TRUE(drag.applyTranslation(bowl.p, {1.5, -0.6, 0.8}));
        const auto report = VrexSolver3D().solve({bowl.component()}, &drag).components.at(0);
        ASSERT_TRUE(report.isConverged);
        EXPECT_EQ(report.freedom, 2U); // it can roll back
        EXPECT_NEAR(bowl.p->getPosition().magnitude(), 1.0, TOLERANCE);
        EXPECT_NEAR(bowl.p->getPosition().x(), 0.6, 1e-8);
        EXPECT_LE(bowl.p->getPosition().x(), 0.6 + TOLERANCE);
    }
}

TEST(VrexSolver3DLimits, InequalitiesThatHoldBindNothing) {
    const Bowl bowl(VrexEquationConditionType::lessEqualZero);
    const auto report = solve(bowl);
    EXPECT_TRUE(report.isConverged);
    EXPECT_EQ(report.iterations, 0);
    EXPECT_EQ(report.freedom, 2U);
}

TEST(VrexSolver3DLimits, InequalitiesThatContradictTheRestAreNamed) {
    const Bowl bowl(VrexEquationConditionType::lessEqualZero);
    const auto other = VrexExpressionEquation::create({{bowl.p, VrexPoint3D::X, "x"}},
                                                      VrexEquationConditionType::greaterEqualZero, "x - 2");
    Mechanism system = bowl;
    system.bind(other);
    const auto report = solve(system);
    EXPECT_FALSE(report.isConverged);
    ASSERT_EQ(report.overConstrained.size(), 1U);
    const auto& group = report.overConstrained[0];
    EXPECT_EQ(group.size(), 2U); // either with the distance or with the other inequality
    EXPECT_EQ(group.back(), other->getID());
}

} // namespace
