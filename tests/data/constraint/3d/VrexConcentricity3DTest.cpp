#include "data/constraint/3d/VrexConcentricity3D.h"

#include <gtest/gtest.h>

#include "support/Samples.h"
#include "support/TypeChecks.h"

namespace {

using nsTypeChecks::FreedomByType;

TEST(VrexConcentricity3D, CanCreateBetweenTypesWithAnAxisOrACentre) {
    nsTypeChecks::expectAdmitsBothOf(VrexConcentricity3D::canCreate, "pt ln cy s ci co el to spin");
}

TEST(VrexConcentricity3D, DegreeCountsPointsAndSpheres) {
    const auto pointLike = nsTypeChecks::typesOf("pt s");
    nsTypeChecks::forAllPairs([&](int first, int second) {
        const auto constraint =
            VrexConcentricity3D::create(FreedomByType::create(first), FreedomByType::create(second));
        const bool both = pointLike.contains(first) && pointLike.contains(second);
        const bool none = !pointLike.contains(first) && !pointLike.contains(second);
        EXPECT_EQ(constraint->doc(), both ? 3 : none ? 4 : 2);
    });
}

TEST(VrexConcentricity3D, DegreeBetweenPointAndCircleIsTwo) {
    const auto point = makeSample<VrexPoint3D>();
    const auto circle = makeSample<VrexCircle3D>();
    EXPECT_EQ(VrexConcentricity3D::create(point, circle)->doc(), 2);
    EXPECT_EQ(VrexConcentricity3D::create(circle, point)->doc(), 2);
}

TEST(VrexConcentricity3D, MissingGeometryIsNoPoint) {
    const auto sphere = makeSample<VrexSphere3D>();
    EXPECT_EQ(VrexConcentricity3D::create(nullptr, sphere)->doc(), 2);
    EXPECT_EQ(VrexConcentricity3D::create(sphere, nullptr)->doc(), 2);
    EXPECT_EQ(VrexConcentricity3D::create(nullptr, nullptr)->doc(), 4);
}

} // namespace
