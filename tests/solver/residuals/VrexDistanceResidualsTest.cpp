#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "solver/JacobianChecks.h"
#include "solver/Mechanism.h"
#include "solver/NearestPoints.h"
#include "solver/RandomEntities.h"
#include "solver/VrexSolver3D.h"

namespace {

std::shared_ptr<VrexDistance3D> distanceOf(const std::shared_ptr<VrexGeometry3D>& first,
                                           const std::shared_ptr<VrexGeometry3D>& second, double value) {
    return VrexDistance3D::create(first, second, value, VrexGeometryComponentType::UNKNOWN,
                                  VrexGeometryComponentType::UNKNOWN);
}

template <class Check>
void forEachPair(const Check& check) {
    for (const auto first : nsRandomEntities::KINDS) {
        for (const auto second : nsRandomEntities::KINDS) {
            SCOPED_TRACE(std::string(getEnumeratorText(first)) + " " + getEnumeratorText(second));
            check(first, second);
        }
    }
}

TEST(VrexDistanceResiduals, DerivativesMatchCentralDifferences) {
    RandomShapes random;
    forEachPair([&random](auto first, auto second) {
        for (int i = 0; i < 2; ++i) {
            const auto one = nsRandomEntities::make(first, random);
            const auto other = nsRandomEntities::make(second, random);
            // Where two are near to touching the way between them turns fast.
            expectJacobianMatches(distanceOf(one, other, random.number(0.5, 2.0)), {one, other}, {}, 1e-5);
        }
    });
}

TEST(VrexDistanceResiduals, IsTheDistanceBetweenTheNearestPoints) {
    RandomShapes random;
    forEachPair([&random](auto first, auto second) {
        {
            Mechanism mechanism;
            const auto [one, other] = nsNearest::makeApart(first, second, random);
            mechanism.add(one);
            mechanism.add(other);
            const double value = random.number(0.5, 2.0);
            mechanism.bind(distanceOf(one, other, value));
            const auto report = VrexSolver3D().solve({mechanism.component()});
            ASSERT_TRUE(report.components[0].remarks.empty());
            ASSERT_TRUE(report.isConverged());
            // Of two places that are as near but for the grid of the search, it may be either.
            const double beyond = nsNearest::distance(*one, *other) - value;
            EXPECT_LT(beyond, 1e-5);
            EXPECT_GT(beyond, -1e-4);
        }
    });
}

TEST(VrexDistanceResiduals, HelpPointOnTheFarSideMeansTheFarSide) {
    Mechanism mechanism;
    const auto point = mechanism.add(VrexPoint3D::create(4.0, 0.0, 0.0));
    const auto sphere = mechanism.add(VrexSphere3D::create({0.0, 0.0, 0.0}, 1.0));
    mechanism.bind(VrexFixation3D::create(sphere, VrexFixation3DType::Complete3D));
    const auto distance = mechanism.bind(distanceOf(point, sphere, 3.0));
    distance->setHelpPoint2({-1.0, 0.0, 0.0});
    ASSERT_TRUE(VrexSolver3D().solve({mechanism.component()}).isConverged());
    EXPECT_NEAR(point->getPosition().magnitude(), 2.0, 1e-9);
}

TEST(VrexDistanceResiduals, OrientationChoosesTheSideOfAPlane) {
    for (const auto& [orientation, height] : {std::pair{VrexConstraintOrientation::Positive, 3.0},
                                              std::pair{VrexConstraintOrientation::Negative, -3.0},
                                              std::pair{VrexConstraintOrientation::Current, -3.0}}) {
        Mechanism mechanism;
        const auto point = mechanism.add(VrexPoint3D::create(4.0, 0.0, -1.0));
        const auto plane = mechanism.add(VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}));
        mechanism.bind(VrexFixation3D::create(plane, VrexFixation3DType::Complete3D));
        mechanism.bind(distanceOf(point, plane, 3.0))->orientation() = orientation;
        ASSERT_TRUE(VrexSolver3D().solve({mechanism.component()}).isConverged());
        EXPECT_NEAR(point->getPosition().z(), height, 1e-9);
    }
}

TEST(VrexDistanceResiduals, HelpParameterThatIsHeldIsNotSupported) {
    Mechanism mechanism;
    const auto point = mechanism.add(VrexPoint3D::create(4.0, 0.0, -1.0));
    const auto plane = mechanism.add(VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}));
    const auto distance = mechanism.bind(distanceOf(plane, point, 3.0));
    distance->fixHelpParameter1(true);
    const auto report = VrexSolver3D().solve({mechanism.component()});
    ASSERT_EQ(report.components[0].remarks.size(), 1U);
    EXPECT_EQ(report.components[0].remarks[0].reason, "A help parameter that is held is not supported.");
    EXPECT_EQ(distance->status(), VrexConstraintStatus::NotSolved);
}

} // namespace
