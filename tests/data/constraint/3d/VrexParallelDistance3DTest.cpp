#include "data/constraint/3d/VrexParallelDistance3D.h"

#include <set>

#include <gtest/gtest.h>

#include "support/AnyGeometry.h"
#include "support/Samples.h"

namespace {

TEST(VrexParallelDistance3D, CanCreateOverAllKindsOfDirections) {
    // line, plane, cylinder, circle, cone, ellipse, torus, spin and sweep surface
    const std::set<int> directed{1, 2, 5, 7, 9, 10, 11, 13, 16};
    const auto point = makeSample<VrexPoint3D>();
    for (int kind = -1; kind <= 20; ++kind) {
        const auto geometry = AnyGeometry::create(VrexGeometry3DType{kind}, 0);
        EXPECT_EQ(VrexParallelDistance3D::canCreate(point, point, geometry), directed.contains(kind)) << kind;
    }
}

TEST(VrexParallelDistance3D, CanCreateNeedsAllThree) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    EXPECT_TRUE(VrexParallelDistance3D::canCreate(point, point, line));
    EXPECT_FALSE(VrexParallelDistance3D::canCreate(nullptr, point, line));
    EXPECT_FALSE(VrexParallelDistance3D::canCreate(point, nullptr, line));
    EXPECT_FALSE(VrexParallelDistance3D::canCreate(point, point, nullptr));
}

TEST(VrexParallelDistance3D, DirectionGeometryIsTheThird) {
    const auto line = makeSample<VrexLine3D>();
    const auto distance =
        VrexParallelDistance3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(), line, 1.0);
    distance->bindVariable(makeSample<VrexGeometryVariable>());
    EXPECT_EQ(distance->getDirectionGeometry(), line);
    EXPECT_EQ(VrexParallelDistance3D::create(nullptr, nullptr, nullptr, 1.0)->getDirectionGeometry(),
              nullptr);
    EXPECT_EQ(VrexParallelDistance3D::m_defaultTolerance, 1e-6);
}

} // namespace
