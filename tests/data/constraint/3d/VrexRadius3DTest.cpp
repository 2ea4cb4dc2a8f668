#include "data/constraint/3d/VrexRadius3D.h"

#include <set>

#include <gtest/gtest.h>

#include "support/Samples.h"

namespace {

TEST(VrexRadius3D, CanCreateOverAllKinds) {
    const std::set<int> round{5, 6, 7, 10, 11}; // cylinder, sphere, circle, ellipse, torus
    for (int kind = -1; kind <= 20; ++kind) {
        EXPECT_EQ(VrexRadius3D::canCreate(VrexGeometry3DType{kind}), round.contains(kind)) << kind;
    }
}

TEST(VrexRadius3D, KindFollowsTheRadiusType) {
    EXPECT_EQ(VrexRadius3D::type(VrexRadius3DType::Radius3D), VrexConstraint3DType::Radius3D);
    EXPECT_EQ(VrexRadius3D::type(VrexRadius3DType::MajorRadius3D), VrexConstraint3DType::MajorRadius3D);
    EXPECT_EQ(VrexRadius3D::type(VrexRadius3DType::MinorRadius3D), VrexConstraint3DType::MinorRadius3D);
}

TEST(VrexRadius3D, KindOfAnUnknownRadiusTypeIsMinusOne) {
    for (const int type : {7, 3, -1}) {
        EXPECT_EQ(static_cast<int>(VrexRadius3D::type(VrexRadius3DType{type})), -1) << type;
    }
    const auto radius = VrexRadius3D::create(makeSample<VrexSphere3D>(), 1.0, VrexRadius3DType{7});
    EXPECT_EQ(radius->type(), VrexConstraint3DType::Unknown);
    EXPECT_EQ(radius->getRadiusType(), VrexRadius3DType{7});
}

TEST(VrexRadius3D, SettingTheRadiusTypeKeepsTheKind) {
    const auto radius = VrexRadius3D::create(makeSample<VrexTorus3D>(), 1.0, VrexRadius3DType::MajorRadius3D);
    radius->setRadiusType(VrexRadius3DType::MinorRadius3D);
    EXPECT_EQ(radius->getRadiusType(), VrexRadius3DType::MinorRadius3D);
    EXPECT_EQ(radius->type(), VrexConstraint3DType::MajorRadius3D);
}

TEST(VrexRadius3D, RadiusTypeTravelsWithAnUpdate) {
    const auto radius = VrexRadius3D::create(makeSample<VrexTorus3D>(), 1.0, VrexRadius3DType::MajorRadius3D);
    radius->updateFrom(VrexRadius3D::create(makeSample<VrexTorus3D>(), 2.0, VrexRadius3DType::MinorRadius3D));
    EXPECT_EQ(radius->getRadiusType(), VrexRadius3DType::MinorRadius3D);
    EXPECT_EQ(radius->type(), VrexConstraint3DType::MinorRadius3D);
    EXPECT_EQ(radius->value(), 2.0);
}

} // namespace
