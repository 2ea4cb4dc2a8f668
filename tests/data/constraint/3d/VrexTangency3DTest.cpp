#include "data/constraint/3d/VrexTangency3D.h"

#include <gtest/gtest.h>

#include "support/SamplesRelations.h"
#include "support/TypeChecks.h"

namespace {

using nsTypeChecks::FreedomByType;
using nsTypeChecks::typesOf;

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

TEST(VrexTangency3D, CanCreateBetweenTypesThatTouchUnlessBothAreStraight) {
    const auto touching = typesOf("ln pl ns cy s ci sp co el to spin eval_surf_3d evac_3d sweep");
    const auto straight = typesOf("ln pl");
    nsTypeChecks::expectAdmits(VrexTangency3D::canCreate, [&](int first, int second) {
        return touching.contains(first) && touching.contains(second) &&
               !(straight.contains(first) && straight.contains(second));
    });
}

TEST(VrexTangency3D, LineTouchesASphereAndNoPlane) {
    using enum VrexGeometry3DType;
    EXPECT_TRUE(VrexTangency3D::canCreate(LINE, SPHERE));
    EXPECT_FALSE(VrexTangency3D::canCreate(LINE, PLANE));
    EXPECT_FALSE(VrexTangency3D::canCreate(PLANE, LINE));
    EXPECT_FALSE(VrexTangency3D::canCreate(LINE, LINE));
    EXPECT_FALSE(VrexTangency3D::canCreate(PLANE, PLANE));
}

TEST(VrexTangency3D, DegreeIsTheFirstFreedomForOneTypeElseOne) {
    nsTypeChecks::forAllPairs([](int first, int second) {
        const auto tangency =
            VrexTangency3D::create(FreedomByType::create(first), FreedomByType::create(second), WHOLE, WHOLE);
        EXPECT_EQ(tangency->doc(), first == second ? 100 + first : 1);
    });
}

TEST(VrexTangency3D, MissingGeometryHasNoFreedomAndNoType) {
    const auto circle = makeSample<VrexCircle3D>();
    EXPECT_EQ(VrexTangency3D::create(nullptr, circle, WHOLE, WHOLE)->doc(), 1);
    EXPECT_EQ(VrexTangency3D::create(circle, nullptr, WHOLE, WHOLE)->doc(), 1);
    EXPECT_EQ(VrexTangency3D::create(nullptr, nullptr, WHOLE, WHOLE)->doc(), 0);
}

TEST(VrexTangency3D, ComponentsAreStoredAndTravel) {
    const auto tangency = makeSample<VrexTangency3D>();
    EXPECT_EQ(tangency->getGeomComponentType(1), VrexGeometryComponentType::PLANE);
    EXPECT_EQ(tangency->getGeomComponentType(2), VrexGeometryComponentType::EXTERIOR);
    const auto whole =
        VrexTangency3D::create(makeSample<VrexCircle3D>(), makeSample<VrexCircle3D>(), WHOLE, WHOLE);
    whole->updateFrom(tangency);
    EXPECT_EQ(whole->getGeomComponentType(1), VrexGeometryComponentType::PLANE);
    EXPECT_EQ(whole->getGeomComponentType(2), VrexGeometryComponentType::EXTERIOR);
}

} // namespace
