#include "data/constraint/3d/VrexSymmetry3D.h"

#include <gtest/gtest.h>

#include "support/SamplesRelations.h"
#include "support/TypeChecks.h"

namespace {

using nsTypeChecks::FreedomByType;

TEST(VrexSymmetry3D, CanCreateBetweenTypesThatMirror) {
    nsTypeChecks::expectAdmitsBothOf(VrexSymmetry3D::canCreate, "pt ln pl cy s ci co el to spin sweep");
}

TEST(VrexSymmetry3D, PlaneIsTheThirdElement) {
    const auto plane = makeSample<VrexPlane3D>();
    const auto mirrored = makeSample<VrexPlane3D>();
    EXPECT_EQ(VrexSymmetry3D::create(mirrored, mirrored, plane)->symmetryPlane(), plane);
    EXPECT_EQ(VrexSymmetry3D::create(mirrored, mirrored, nullptr)->symmetryPlane(), nullptr);
}

TEST(VrexSymmetry3D, DegreeIsTheFreedomOfTheFirst) {
    const auto plane = makeSample<VrexPlane3D>();
    nsTypeChecks::forAllPairs([&plane](int first, int second) {
        const auto symmetry =
            VrexSymmetry3D::create(FreedomByType::create(first), FreedomByType::create(second), plane);
        EXPECT_EQ(symmetry->doc(), 100 + first);
    });
    EXPECT_EQ(VrexSymmetry3D::create(makeSample<VrexLine3D>(), makeSample<VrexPoint3D>(), plane)->doc(), 4);
    EXPECT_EQ(VrexSymmetry3D::create(nullptr, plane, plane)->doc(), 0);
}

} // namespace
