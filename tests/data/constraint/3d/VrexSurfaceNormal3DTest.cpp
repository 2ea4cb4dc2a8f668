#include "data/constraint/3d/VrexSurfaceNormal3D.h"

#include <gtest/gtest.h>

#include "support/SamplesRelations.h"
#include "support/TypeChecks.h"

namespace {

TEST(VrexSurfaceNormal3D, CanCreateOverAllTypesOfTheSecond) {
    const auto along = nsTypeChecks::typesOf("ln cy ci co el to spin");
    const std::shared_ptr<VrexParametricSurface3D> surfaces[] = {makeSample<VrexCylinder3D>(),
                                                                 makeSample<VrexTorus3D>()};
    for (const auto& surface : surfaces) {
        for (int type = nsTypeChecks::LOWEST; type <= nsTypeChecks::HIGHEST; ++type) {
            const auto geometry = AnyGeometry::create(VrexGeometry3DType{type}, 0);
            EXPECT_EQ(VrexSurfaceNormal3D::canCreate(surface, geometry), along.contains(type)) << type;
        }
    }
}

TEST(VrexSurfaceNormal3D, CanCreateNeedsBoth) {
    const auto cone = makeSample<VrexCone3D>();
    EXPECT_TRUE(VrexSurfaceNormal3D::canCreate(cone, cone));
    EXPECT_FALSE(VrexSurfaceNormal3D::canCreate(nullptr, cone));
    EXPECT_FALSE(VrexSurfaceNormal3D::canCreate(cone, nullptr));
}

} // namespace
