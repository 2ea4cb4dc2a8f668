#include <memory>
#include <string>

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
            EXPECT_NEAR(nsNearest::distance(*one, *other), value, 1e-5);
        }
    });
}

} // namespace
